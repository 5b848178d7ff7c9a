#include "comet2/Decode.h"

#include <algorithm>
#include <utility>

#include "encode/Instructions.h"

namespace zelvaro {
namespace {

/// The properties of a handler.
struct HandlerInfo {
  std::uint8_t words = 1;    ///< words of its first instruction
  std::uint8_t parts = 1;    ///< number of instructions
  bool loadsDirect = false;  ///< loads from the address that its second word names
  bool canBeFirst = false;   ///< another handler begins with this instruction
};

constexpr HandlerInfo infoOf(Op op, Kind kind) {
  HandlerInfo info;
  info.words = kind == Kind::Direct || kind == Kind::Indexed ? 2 : 1;
  info.loadsDirect = instruction(op).form == OpForm::Both && kind == Kind::Direct;
  return info;
}

/// A handler for several instructions: the first instruction and the handler of the rest.
struct FusedRow {
  Handler first, rest, fused;
  std::uint8_t parts;
};

constexpr FusedRow kFusedRows[] = {
#define ZELVARO_STOP(name)
#define ZELVARO_SINGLE(m, kind)
#define ZELVARO_FUSED2(a, ka, b, kb) {Handler::a##ka, Handler::b##kb, Handler::a##ka##_##b##kb, 2},
#define ZELVARO_FUSED3(a, ka, b, kb, c, kc) \
  {Handler::a##ka, Handler::b##kb##_##c##kc, Handler::a##ka##_##b##kb##_##c##kc, 3},
#include "comet2/Handlers.inc"
};

constexpr std::size_t indexOf(Handler h) {
  return static_cast<std::size_t>(h);
}

constexpr auto kInfo = [] {
  std::array<HandlerInfo, kHandlers> table{};
  table.fill(HandlerInfo{});  // g++ 12 leaves zeros in a table that is only initialised
#define ZELVARO_STOP(name)
#define ZELVARO_SINGLE(m, kind) table[indexOf(Handler::m##kind)] = infoOf(Op::m, Kind::kind);
#define ZELVARO_FUSED2(a, ka, b, kb)
#define ZELVARO_FUSED3(a, ka, b, kb, c, kc)
#include "comet2/Handlers.inc"
  table[indexOf(Handler::LoadStop)].words = 2;
  table[indexOf(Handler::LoadStop)].loadsDirect = true;
  for (const FusedRow& row : kFusedRows) {
    table[indexOf(row.fused)].parts = row.parts;
    table[indexOf(row.first)].canBeFirst = true;
  }
  return table;
}();

/// The handler that executes two others in a row, or Handler::Decode if there is none.
constexpr auto kFused = [] {
  std::array<std::array<Handler, kHandlers>, indexOf(kFusedRows[0].fused)> table{};
  for (const FusedRow& row : kFusedRows) table[indexOf(row.first)][indexOf(row.rest)] = row.fused;
  return table;
}();

/// An operation code: its handlers without and with an index register, and which register fields of the first
/// word must be 0 to 7.
struct Code {
  Handler direct = Handler::UnregisteredStop;
  Handler indexed = Handler::UnregisteredStop;
  bool checksR = true;
  bool checksX = true;
};

/// NOP and RET have no registers; POP has r only, the branch form x only.  EXIT is checked in both fields.
constexpr Code codeOf(const Instruction& row, Handler direct, Handler indexed) {
  const bool known = row.opClass == OpClass::Machine;
  return {direct, indexed, !known || (row.form != OpForm::None && row.form != OpForm::Branch),
          !known || (row.form != OpForm::None && row.form != OpForm::Single)};
}

constexpr auto kCodes = [] {
  std::array<Code, 256> table{};
  table.fill(Code{});  // as above
  const auto enter = [&table](Op op, Kind kind, Handler h) {
    const Instruction& row = instruction(op);
    Code& code = table[static_cast<std::size_t>(kind == Kind::Register ? row.regCode : row.adrCode)];
    code = codeOf(row, kind == Kind::Indexed ? code.direct : h, kind == Kind::Direct ? code.indexed : h);
  };
#define ZELVARO_STOP(name)
#define ZELVARO_SINGLE(m, kind) enter(Op::m, Kind::kind, Handler::m##kind);
#define ZELVARO_FUSED2(a, ka, b, kb)
#define ZELVARO_FUSED3(a, ka, b, kb, c, kc)
#include "comet2/Handlers.inc"
  return table;
}();

}  // namespace

Decoded::~Decoded() {
  KeptTables* const kept = KeptTables::ofThread();
  if (entries_.get() == nullptr || kept == nullptr) return;
  forget(nullptr);
  entries_.giveTo(*kept, kEntries);
  readers_.giveTo(*kept, kEntries);
}

void Decoded::set(int adr, unsigned bit) {
  std::uint8_t& readers = readers_.get()[adr];
  readers = static_cast<std::uint8_t>(readers | bit);
}

void Decoded::clear(int adr, unsigned bit) {
  std::uint8_t& readers = readers_.get()[adr];
  readers = static_cast<std::uint8_t>(readers & ~bit);
}

/// Decodes the instruction of an address, if that has not been done, and returns its handler.
Handler Decoded::single(int adr) {
  Entry& e = entries_.get()[adr];
  if (has(adr, kFirstWord)) return e.single;
  const std::int32_t cell = memory_[adr];
  const int word = unsignedWord(cell);
  const Code& code = kCodes[static_cast<std::size_t>(word >> 8)];
  e.r = static_cast<std::uint8_t>(word >> 4 & 0xF);
  e.x = static_cast<std::uint8_t>(word & 0xF);
  e.single = e.x == 0 ? code.direct : code.indexed;
  if ((e.r > 7 && code.checksR) || (e.x > 7 && code.checksX)) e.single = Handler::RegisterStop;
  if (e.single == Handler::NOPPlain && cell != 0) e.single = Handler::NopStop;
  if (breakpoints_ != nullptr && (*breakpoints_)[static_cast<std::size_t>(adr)])
    e.single = Handler::BreakStop;
  set(adr, kFirstWord);
  if (kInfo[indexOf(e.single)].words == 2) {
    e.second = static_cast<std::uint16_t>(unsignedWord(memory_[adr + 1]));
    const bool isLoad = kInfo[indexOf(e.single)].loadsDirect;
    if (isLoad && e.second > limit_) e.single = Handler::LoadStop;
    set(adr + 1, isLoad ? kSecondWord | kLoadAddress : kSecondWord);
  }
  pageUsed_[static_cast<std::size_t>(adr / kPage)] = true;
  return e.single;
}

/// The handler for the instruction of an address and up to `following` more instructions.
Handler Decoded::withFollowing(int adr, int following) {
  const Handler first = single(adr);
  const HandlerInfo& info = kInfo[indexOf(first)];
  const int next = adr + info.words;
  if (following == 0 || !info.canBeFirst || next > limit_) return first;
  const auto& fusedWith = kFused[indexOf(first)];
  Handler fused = fusedWith[indexOf(withFollowing(next, following - 1))];
  if (fused == Handler::Decode) fused = fusedWith[indexOf(single(next))];
  return fused == Handler::Decode ? first : fused;
}

Handler Decoded::decode(int adr) {
  const Handler handler = withFollowing(adr, fuses_ && entries_.get()[adr].drops < kMostDrops ? 2 : 0);
  int part = adr;
  for (int i = 1; i < kInfo[indexOf(handler)].parts; ++i) {
    part += kInfo[indexOf(entries_.get()[part].single)].words;
    set(part, fusedBit(part - adr));
  }
  return handler;
}

/// Sets an entry to be decoded again when it is executed next; it then covers only its own instruction.
void Decoded::dropHandler(int adr) {
  Entry& e = entries_.get()[adr];
  if (e.handler == 0) return;
  e.handler = 0;
  if (e.drops < kMostDrops) ++e.drops;
  for (int distance = 1; distance <= kGreatestDistance; ++distance) clear(adr + distance, fusedBit(distance));
}

/// The instruction has changed: drops every entry whose handler executes it.
void Decoded::dropInstruction(int adr) {
  for (int distance = 1; distance <= kGreatestDistance; ++distance)
    if (has(adr, fusedBit(distance))) dropHandler(adr - distance);
  dropHandler(adr);
  if (kInfo[indexOf(entries_.get()[adr].single)].words == 2) clear(adr + 1, kSecondWord | kLoadAddress);
  clear(adr, kFirstWord);
}

void Decoded::changeLoadAddress(int adr, int word) {
  Entry& e = entries_.get()[adr];
  if (e.second > limit_ || word > limit_) {
    dropInstruction(adr);
  } else {
    e.second = static_cast<std::uint16_t>(word);
  }
}

void Decoded::storedIntoDecoded(int adr) {
  if (has(adr, kLoadAddress)) changeLoadAddress(adr - 1, unsignedWord(memory_[adr]));
  if (has(adr, kFirstWord)) dropInstruction(adr);
}

/// The counts are 32-bit integers: those of a very long run wrap around.
std::int32_t Decoded::countOf(const Cells& ExecCount, int adr) const {
  const std::int32_t before = ExecCount[static_cast<std::size_t>(adr)];
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(before) + entries_.get()[adr].count);
}

void Decoded::forget(const std::vector<bool>* breakpoints) {
  breakpoints_ = breakpoints;
  for (std::size_t page = 0; page < pageUsed_.size(); ++page) {
    if (!pageUsed_[page]) continue;
    std::fill_n(entries_.get() + page * kPage, kPage, Entry{});
    std::fill_n(readers_.get() + page * kPage, kPage + kGreatestDistance, std::uint8_t{0});
    pageUsed_[page] = false;
  }
}

std::int64_t Decoded::executed() const {
  std::int64_t sum = 0;
  for (std::size_t page = 0; page < pageUsed_.size(); ++page) {
    if (!pageUsed_[page]) continue;
    for (std::size_t adr = page * kPage; adr < (page + 1) * kPage; ++adr) sum += entries_.get()[adr].count;
  }
  return sum;
}

std::int64_t Decoded::addCountsTo(Cells& ExecCount) {
  std::int64_t sum = 0;
  for (std::size_t page = 0; page < pageUsed_.size(); ++page) {
    if (!pageUsed_[page]) continue;
    for (std::size_t adr = page * kPage; adr < (page + 1) * kPage; ++adr) {
      if (entries_.get()[adr].count == 0) continue;
      ExecCount[adr] = countOf(ExecCount, static_cast<int>(adr));
      sum += std::exchange(entries_.get()[adr].count, 0u);
    }
  }
  return sum;
}

}  // namespace zelvaro
