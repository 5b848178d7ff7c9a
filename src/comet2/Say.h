// How the virtual OS speaks: straight to the console, outside the tallies and the log.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "diag/Message.h"
#include "platform/Platform.h"

namespace zelvaro {

/// Prints a row of the catalogue as it stands, its holes filled.
template <class Family, const Message& Row, class... Arg>
void say(Platform& platform, std::int32_t isEnglish, Arg&&... arg) {
  static_assert(sizeof...(Arg) == Row.argNames.count, "a message gets the arguments that its row declares");
  const int lang = isEnglish == kJapanese ? kJapanese : kEnglish;
  catalogued<Row>.fired[static_cast<std::size_t>(lang)] = true;
  platform.print(fillText(Row, Family::id, lang, {MsgArg(std::forward<Arg>(arg))...}));
}

/// The low 16 bits in upper-case hexadecimal: four digits, and without filling.
std::string hex4(std::int32_t word);
std::string hex(std::int32_t number);

}  // namespace zelvaro
