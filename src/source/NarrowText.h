// Shared by the two narrow loaders: the messages when a file is opened, and its lines as CP932.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "source/Load.h"
#include "source/TextLines.h"

namespace zelvaro {

/// Reports that the file is read; false if it cannot be opened, which is reported too.
bool reportNarrowReading(Assembly& a, const std::string& name, const SourceBytes& bytes);

/// How a line that is not UTF-8 is treated: as CP932 whose undecodable bytes are reported and replaced, or
/// its bytes are kept unchanged.
enum class OtherBytes : std::uint8_t { Mended, Kept };

/// The lines of a file, one after the other, each decoded as UTF-8 or else as CP932.
class NarrowLines {
 public:
  NarrowLines(TShellData& sh, std::string_view bytes, OtherBytes otherBytes = OtherBytes::Mended)
      : sh_(sh), rest_(bytes), otherBytes_(otherBytes) {
    if (rest_.starts_with(kUtf8Mark)) rest_.remove_prefix(kUtf8Mark.size());  // CP932 has no such character
  }
  bool atEnd() const { return rest_.empty(); }
  /// Bytes that have not been read yet.
  std::size_t left() const { return rest_.size(); }
  /// Whether the line that next() has returned last has a line end: the last line of a file may have none.
  bool hadEnd() const { return hadEnd_; }
  /// The next line in CP932, without its line end; valid up to the next call.
  std::string_view next();

 private:
  TShellData& sh_;
  std::string_view rest_;
  OtherBytes otherBytes_;
  bool hadEnd_ = false;
  std::u16string wide_;
  std::string narrow_;
};

/// Takes what one read of the fixed form brings off the front of a line.  True if another read follows: for the
/// rest of the line, or for its end alone, which needs room as well.
bool takeRead(std::string_view& line, bool hasEnd, std::string_view& read);

}  // namespace zelvaro
