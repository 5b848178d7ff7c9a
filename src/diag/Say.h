// How the parts speak that are no checks, the virtual OS first of all: straight to the console, outside the
// tallies and the log.
#pragma once

#include <utility>

#include "diag/Message.h"
#include "platform/Platform.h"

namespace zelvaro {

/// Prints a row of the catalogue as it stands, its holes filled; `lang` is 0 for Japanese, else English.
template <class Family, const Message& Row, class... Arg>
void say(Platform& platform, int lang, Arg&&... arg) {
  static_assert(sizeof...(Arg) == Row.argNames.count, "a message gets the arguments that its row declares");
  catalogued<Row>.fired[lang == kJapanese ? kJapanese : kEnglish] = true;
  platform.print(fillText(Row, Family::id, lang, {MsgArg(std::forward<Arg>(arg))...}));
}

}  // namespace zelvaro
