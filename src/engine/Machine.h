// The run of an assembled source: slices, exact steps forth and back, breakpoints.
//
//   engine::Machine m(assembled);
//   m.giveLine("12");
//   engine::Halt h = m.run(100'000'000);
//   while (h.stop == Stop::InputWanted) {
//     readLine(line) ? m.giveLine(line) : m.endInput();
//     h = m.run(100'000'000 - m.steps());
//   }
//   for (const engine::Event& e : m.events())
//     if (e.kind == engine::Event::Kind::Out) std::cout << e.text << '\n';
//
// A step is one instruction that is counted at its address.  A run is determined by its image and its input,
// so that a step back is a return to a recorded state and a replay from there: the lines that were given are
// read again, and what was written is not written again.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "comet2/Stop.h"
#include "engine/Engine.h"

namespace zelvaro::engine {

struct RunOptions {
  /// An IN after endInput(): false, it stops the run with Stop::InputExhausted; true, it reads an empty line
  /// as the dialogue does at the end of a file, and the 100th in a row stops with Stop::InputEnded.
  bool endedInputIsEmpty = false;
  /// Bytes of events that a run keeps; the SVC after them stops it with Stop::OutputFull.
  std::size_t mostOutput = 64u << 20;
};

/// Where and why a call has come to rest.
struct Halt {
  Stop stop = Stop::Steps;
  std::int64_t executed = 0;  ///< steps of this call
};

/// The kinds of a stop, for those who do not need to know the guards apart.
enum class HaltKind : std::uint8_t {
  End,    ///< the program has come to its end
  Guard,  ///< a guard of the virtual OS has stopped it
  Pause   ///< it goes on with the next call: steps, breakpoint, and an IN once there is a line
};
HaltKind kindOf(Stop stop);

struct Registers {
  std::array<std::uint16_t, 8> gr{};
  int pr = 0;  ///< may exceed 16 bits
  int sp = 0xFFFF;
  int os = 0;  ///< nesting depth of CALL
  bool overflow = false, sign = false, zero = false;
  friend bool operator==(const Registers&, const Registers&) = default;
};

/// Something that a step has changed.
struct Change {
  enum class Place : std::uint8_t { GR, PR, SP, OS, Overflow, Sign, Zero, Memory, Stack };
  Place place = Place::PR;
  int index = 0;  ///< number of the GR; address of the word in memory or of the stack, as SP names it
  int before = 0;
  int after = 0;
  friend bool operator==(const Change&, const Change&) = default;
};

/// What a run has written or read.
struct Event {
  enum class Kind : std::uint8_t {
    Out,     ///< text: what OUT has written, without the line end that follows it
    In,      ///< text: the line that IN has read
    Message  ///< message: such as the Warning of a store
  };
  Kind kind = Kind::Out;
  std::int64_t step = 0;  ///< the number of the step that did it, from 1
  std::string text;
  std::shared_ptr<const Finding> message;  ///< null for any other kind
};

/// A machine with the image of an assembled source, at step 0.  A copy is a machine of its own, in the same
/// state.  One thread at a time may use it; several machines may share an Assembled.
class Machine {
 public:
  /// Throws std::invalid_argument if the source has no image.
  explicit Machine(const Assembled& assembled, const RunOptions& options = {});
  Machine(const Machine& other);
  Machine& operator=(const Machine& other);
  Machine(Machine&&) noexcept;
  Machine& operator=(Machine&&) noexcept;
  ~Machine();

  // --- input ---
  /// Adds a line to the input, UTF-8, without its line end.  IN reads 256 bytes of it at most.
  void giveLine(std::string line);
  /// Says that no more lines come.  A later giveLine takes that back.
  void endInput();
  /// How many of the lines given have been read.
  std::size_t linesRead() const;

  // --- the state at the start ---
  /// Sets a word of memory, or a GR, of a machine at step 0; it belongs to the initial state from then on, and
  /// a recorded future is dropped.  Throws std::logic_error at any other step, std::out_of_range for an
  /// address outside of 0 to 65535 or a number of a GR outside of 0 to 7.
  void setWord(int address, std::uint16_t value);
  void setRegister(int gr, std::uint16_t value);

  // --- forth ---
  /// Executes `steps` instructions, exactly, unless the run stops before.  With an IN for which no line is
  /// there, the IN is not executed; the next call begins with it.  A breakpoint at the address where the
  /// call begins is passed over.  After the end, or at a guard, further calls return the same stop.
  Halt run(std::int64_t steps);
  /// run(1), after which changes() is what the step has changed.  Passes over breakpoints.
  Halt step();

  // --- back ---
  /// Returns to the state `steps` steps ago, but not to before step 0.  After it, changes() is what the last
  /// step before that state has changed.  Takes a small part of the time of the run.
  void back(std::int64_t steps = 1);
  /// Goes to the state after that many steps from the start, forth or back.  Forth it stops where run()
  /// does, but at no breakpoint.
  Halt goTo(std::int64_t step);
  /// Drops the recorded lines and events after the present state: the run then takes new input.
  void forgetFuture();

  // --- breakpoints: addresses of 0 to 65535, others are ignored ---
  void setBreakpoint(int address);
  void clearBreakpoint(int address);
  std::vector<int> breakpoints() const;

  // --- state ---
  std::int64_t steps() const;
  /// Why the last call has stopped; Stop::Steps at the start and after back().
  Stop stop() const;
  /// The messages of that stop; empty for Stop::End and Stop::Steps.
  std::span<const Finding> stopMessages() const;
  Registers registers() const;
  /// The word of an address, 0 to 65535; other addresses wrap.
  std::uint16_t word(int address) const;
  std::vector<std::uint16_t> memory(int from, int count) const;
  /// How often the instruction of an address has been executed.
  std::uint32_t count(int address) const;
  /// The words on the stack, the last one pushed first.
  std::vector<std::uint16_t> stack() const;
  /// The line of the instruction at PR, 0 for none.
  int line() const;
  /// The effective address of the last instruction that had one.
  int effectiveAddress() const;
  /// What the last step has changed, in the order of Change::Place; empty after run().
  std::span<const Change> changes() const;
  /// All events up to the present state.  Fewer after back(); the same ones come again after steps forth.
  std::span<const Event> events() const;
  /// The report after the run, the bytes of the dialogue's file.
  std::string report(const ReportOptions& options = {}) const;

  const Assembled& assembled() const;

 private:
  struct State;
  std::unique_ptr<State> s_;
};

}  // namespace zelvaro::engine
