// From an issued message to its words: the one place that chooses language and family, and that knows heads and
// quotation marks.
#pragma once

#include <string>
#include <string_view>

#include "diag/Diagnostic.h"

namespace zelvaro {

/// Whose words are used.
struct Wording {
  Language language = Language::English;
  FamilyId family = FamilyId::WP;
};

/// The message as the console shows it: head, text, and a line end unless the row is open.
std::string render(const Diagnostic& d, Wording wording);
/// The message's own text, without head and without the quoted text that directly follows the head: what the
/// log keeps.
std::string renderText(const Diagnostic& d, Wording wording);

/// The words of a row with its holes filled, without a head.
template <std::size_t N, class... Arg>
std::string words(Wording wording, const Message<N>& row, Arg&&... arg) {
  return renderText(diagnostic(row, Diagnostic::kNoLine, std::forward<Arg>(arg)...), wording);
}

/// The text as messages quote it: a blank, a double quote, the text, a double quote, a blank.
std::string quotedText(std::string_view utf8);

}  // namespace zelvaro
