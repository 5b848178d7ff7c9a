// The image as the run loop sees it: an entry an address, decoded when it is first met and dropped when a
// store changes what it was made of.
#pragma once

#include <array>
#include <cstdint>

#include "comet2/Cells.h"
#include "comet2/Comet2.h"

namespace zelvaro {

/// What an entry does.  Decode, 0, means that it has to be decoded first.
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

/// An address.  All zero where the run has not been.
struct Entry {
  std::int32_t handler;  ///< where the loop goes on, relative to its decoding; 0: decode
  std::uint32_t count;   ///< executions in this run
  std::uint16_t second;  ///< the second word
  std::uint8_t r, x;     ///< the fields of the first word
  Handler single;        ///< the instruction itself, where Decoded::kFirstWord says that it is known
  std::uint8_t drops;    ///< how often the handler has been dropped, up to Decoded::kMostDrops
};

/// The decoded image.  A handler of several instructions belongs to the entry of the first one and takes the
/// fields of the others from their own entries, which stay as they are; so a jump between them is right.
class Decoded {
 public:
  static constexpr std::uint8_t kMostDrops = 8;  ///< an entry dropped so often is not fused any more

  /// `memory` are all cells of the machine; no instruction is met above `limit`.
  Decoded(const std::int32_t* memory, int limit) : memory_(memory), limit_(limit) {}

  Entry* entries() { return entries_.get(); }
  /// A byte a word: not 0 if something has been made of it, so that stored() has to be told of a change.
  const std::uint8_t* readers() const { return readers_.get(); }

  /// Decodes the entry of an address up to the limit.  The caller sets its handler.
  Handler decode(int adr);
  /// The cell of `adr` has changed: drops or mends what was made of it.
  void stored(int adr);
  /// How often an address has been executed, up to now.
  std::int32_t countOf(const Cells& ExecCount, int adr) const;
  /// Adds the executions of this run.
  void addCountsTo(Cells& ExecCount);

 private:
  // What a word of the image is to the entries, as bits of readers_.
  static constexpr unsigned kFirstWord = 1;   ///< the first word of the entry of this address
  static constexpr unsigned kSecondWord = 2;  ///< the second word of the entry in front
  /// The first word of an instruction that the handler `distance` addresses in front does as well.
  static constexpr unsigned fusedBit(int distance) { return 2u << static_cast<unsigned>(distance); }
  static constexpr int kGreatestDistance = 4;

  static constexpr std::size_t kEntries = kAddressSpace + 8;
  static constexpr int kPage = 256;

  Handler single(int adr);
  Handler withFollowing(int adr, int following);
  void dropInstruction(int adr);
  void dropHandler(int adr);
  void changeSecondWord(int adr, int word);
  bool has(int adr, unsigned bit) const { return (readers_.get()[adr] & bit) != 0; }
  void set(int adr, unsigned bit);
  void clear(int adr, unsigned bit);

  const std::int32_t* memory_;
  int limit_;
  ZeroedArray<Entry> entries_{kEntries};
  ZeroedArray<std::uint8_t> readers_{kEntries};
  std::array<bool, kAddressSpace / kPage> pageUsed_{};
};

}  // namespace zelvaro
