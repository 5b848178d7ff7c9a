// What the fuzz targets share.  A target is one file that defines LLVMFuzzerTestOneInput; everything runs in
// this process, against the scripted platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "MoziCode/Utf.h"
#include "shell/Session.h"
#include "support/LimitedPlatform.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace zelvaro::fuzz {

/// Ends the process with a message where `holds` is false.
inline void require(bool holds, const std::string& message) {
  if (holds) return;
  std::fprintf(stderr, "fuzz: %s\n", message.c_str());
  std::abort();
}
inline void requireUtf8(std::string_view text, const std::string& what) {
  std::u16string wide;
  require(utf8ToUtf16(text, wide), what + " is no UTF-8");
}

/// The bytes of an input, taken from the front; after the last one come zeros.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}
  int byte() {
    if (rest_.empty()) return 0;
    const auto b = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    return b;
  }
  /// A word, the high byte first.
  int word() {
    const int high = byte();
    return high << 8 | byte();
  }
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
};

/// The first byte of an input: the family, the language, and what a target makes of the other bits.
struct How {
  int byte;
  const Family& family = families()[static_cast<std::size_t>(byte & 7) % families().size()];
  Language language = (byte & 0x08) != 0 ? Language::Japanese : Language::English;

  explicit How(int b) : byte(b) {}
};

}  // namespace zelvaro::fuzz
