// Renders an issued message as text.  Language, family, heads and quotation marks are handled here and
// nowhere else.
#pragma once

#include <string>
#include <string_view>

#include "diag/Diagnostic.h"

namespace zelvaro {

/// Which words are used: the language and the family.
struct Wording {
  Language language = Language::English;
  FamilyId family = FamilyId::WP;
};

/// The message as the console shows it: head, text, and a line end unless the row's head is Head::Open.
std::string render(const Diagnostic& d, Wording wording);
/// The message's own text for the log: without the head and without a quoted text directly after it.
std::string renderText(const Diagnostic& d, Wording wording);

/// The words of a row with its holes filled, without a head.
template <std::size_t N, class... Arg>
std::string words(Wording wording, const Message<N>& row, Arg&&... arg) {
  return renderText(diagnostic(row, Diagnostic::kNoLine, std::forward<Arg>(arg)...), wording);
}

/// The quoted form of a text: a blank, a double quote, the text, a double quote, a blank.
std::string quotedText(std::string_view utf8);

}  // namespace zelvaro
