#include "Json.h"

namespace zelvaro::web {

void Json::value(std::string_view text) {
  constexpr char kHex[] = "0123456789abcdef";
  separate();
  out_ += '"';
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      out_ += '\\';
      out_ += c;
    } else if (const auto b = static_cast<unsigned char>(c); b < 0x20) {
      out_ += "\\u00";
      out_ += kHex[b >> 4];
      out_ += kHex[b & 0xF];
    } else {
      out_ += c;
    }
  }
  out_ += '"';
}

}  // namespace zelvaro::web
