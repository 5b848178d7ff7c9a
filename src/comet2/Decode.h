// The decoded image: one entry per address, decoded at the first execution and dropped when a store changes a
// word that it was decoded from.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "comet2/Cells.h"
#include "comet2/Comet2.h"

namespace zelvaro {

/// The operand of an instruction: r,adr with x = 0 or indexed, r1,r2, or none but r.
enum class Kind : std::uint8_t { Direct, Indexed, Register, Plain };

/// What an entry executes.  Decode, 0, means that it must be decoded first.
enum class Handler : std::uint8_t {
  Decode,
#define ZELVARO_STOP(name) name,
#define ZELVARO_SINGLE(m, kind) m##kind,
#define ZELVARO_FUSED2(a, ka, b, kb) a##ka##_##b##kb,
#define ZELVARO_FUSED3(a, ka, b, kb, c, kc) a##ka##_##b##kb##_##c##kc,
#include "comet2/Handlers.inc"
  Count
};
inline constexpr auto kHandlers = static_cast<std::size_t>(Handler::Count);

/// The entry of an address.  All zero until the address is executed.
struct Entry {
  std::int32_t handler;  ///< the jump target in the run loop, relative to that of Decode; 0: decode
  std::uint32_t count;   ///< executions in this run
  std::uint16_t second;  ///< the second word
  std::uint8_t r, x;     ///< the fields of the first word
  Handler single;        ///< the handler of this instruction alone, valid if Decoded::kFirstWord is set
  std::uint8_t drops;    ///< how often the handler has been dropped, 0 to Decoded::kMostDrops
};

/// The decoded image.  A handler for several instructions belongs to the entry of the first one and reads the
/// fields of the others from their own entries, which stay unchanged; so a jump to one of the others is
/// correct.
class Decoded {
 public:
  static constexpr std::uint8_t kMostDrops = 8;  ///< an entry dropped this often is not fused any more

  /// `memory` is all cells of the machine; no instruction is executed above the address `limit`.
  Decoded(const std::int32_t* memory, int limit) : memory_(memory), limit_(limit) {}
  /// An image for a run that is watched: without `fuses`, each handler executes one instruction.
  Decoded(const std::int32_t* memory, int limit, bool fuses)
      : memory_(memory), limit_(limit), fuses_(fuses) {}
  Decoded(Decoded&&) = default;
  ~Decoded();

  /// Drops everything decoded, as after changes of the memory without a call of stored().  The run stops
  /// at the addresses whose flag is set in `breakpoints`, one for each address, or null.
  void forget(const std::vector<bool>* breakpoints);

  Entry* entries() { return entries_.get(); }
  /// One byte per word: not 0 if an entry was decoded from it, so that stored() must be called after a
  /// change.
  const std::uint8_t* readers() const { return readers_.get(); }

  /// Decodes the entry of an address, 0 to the limit.  The caller sets its handler.
  Handler decode(int adr);
  /// To be called when the cell of `adr` has changed: drops or updates the entries decoded from it.
  void stored(int adr) {
    const unsigned use = readers_.get()[adr];
    // the handlers read the second word from its entry at each execution
    if ((use & (kSecondWord | kLoadAddress)) == kSecondWord)
      entries_.get()[adr - 1].second = static_cast<std::uint16_t>(memory_[adr]);
    if ((use & (kFirstWord | kLoadAddress)) != 0) storedIntoDecoded(adr);
  }
  /// How often an address has been executed so far.
  std::int32_t countOf(const Cells& ExecCount, int adr) const;
  /// All executions since the last call of addCountsTo.
  std::int64_t executed() const;
  /// Adds these executions to ExecCount and returns how many they are.
  std::int64_t addCountsTo(Cells& ExecCount);

 private:
  // How the entries use a word of the image, as bits of readers_.
  static constexpr unsigned kFirstWord = 1;   ///< the first word of the entry of this address
  static constexpr unsigned kSecondWord = 2;  ///< the second word of the previous address's entry
  /// The first word of an instruction that the handler `distance` addresses before executes too.
  static constexpr unsigned fusedBit(int distance) { return 2u << static_cast<unsigned>(distance); }
  static constexpr int kGreatestDistance = 4;
  /// A second word that is the address of a direct load: the decoding compares it with the limit.
  static constexpr unsigned kLoadAddress = 64;

  static constexpr std::size_t kEntries = kAddressSpace + 8;
  static constexpr int kPage = 256;

  Handler single(int adr);
  Handler withFollowing(int adr, int following);
  void dropInstruction(int adr);
  void dropHandler(int adr);
  void storedIntoDecoded(int adr);
  void changeLoadAddress(int adr, int word);
  bool has(int adr, unsigned bit) const { return (readers_.get()[adr] & bit) != 0; }
  void set(int adr, unsigned bit);
  void clear(int adr, unsigned bit);

  const std::int32_t* memory_;
  int limit_;
  bool fuses_ = true;
  const std::vector<bool>* breakpoints_ = nullptr;
  ZeroedArray<Entry> entries_{kEntries};
  ZeroedArray<std::uint8_t> readers_{kEntries};
  std::array<bool, kAddressSpace / kPage> pageUsed_{};
};

}  // namespace zelvaro
