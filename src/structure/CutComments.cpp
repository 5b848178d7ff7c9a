// Removes the comment from the working text of a program's lines, except the END line.
#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

/// The index of the comment, or the length of the line.  A ';' inside quotes is a character.  A ';' directly
/// after the opcode word is kept too, so that the recognition of the opcode can explain it.
template <class Char>
std::size_t commentAt(std::basic_string_view<Char> s) {
  if (s.find(Char(';')) == s.npos) return s.size();
  std::size_t op = std::min(findBlank(s), s.size());
  op = s.size() - trimLeft(s.substr(op)).size();
  const std::size_t opEnd = op + std::min(findBlank(s.substr(op)), s.size() - op);
  bool inQuote = false;
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] == Char('\'')) {
      if (i + 1 < s.size() && s[i + 1] == Char('\'')) {
        ++i;
      } else {
        inQuote = !inQuote;
      }
    } else if (s[i] == Char(';') && !inQuote && !(i > op && i < opEnd)) {
      return i;
    }
  }
  return s.size();
}

}  // namespace

template <class Char>
void CutComments(Assembly& a, int prg) {
  for (auto& line : a.store<Char>().linesBeforeEnd(a.program<Char>(prg)))
    line.SrcWork = line.SrcWork.substr(0, commentAt(line.SrcWork));
}

template void CutComments<char16_t>(Assembly&, int);
template void CutComments<char>(Assembly&, int);

}  // namespace zelvaro
