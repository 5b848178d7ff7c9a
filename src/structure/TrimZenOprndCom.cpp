// Cleans the operand texts by the class of the opcode.
//
// The rule processes the whole file once for each program, so a line is cleaned again with every program
// after its own.  It can then only change a run of spaces in a plain operand text, which each pass halves:
// the store keeps a list of the lines that still have one, and only these are processed again.
#include <algorithm>
#include <cstdint>

#include "structure/Structure.h"

namespace zelvaro {
namespace {

enum class TextClass : std::uint8_t { Other, Plain, Constant, AddressWord };

template <class Char>
TextClass textClass(std::basic_string_view<Char> op) {
  for (const char* word : {"RPUSH", "RPOP", "RET", "NOP", "END", "START", "POP", "DS", "IN", "OUT"})
    if (equals(op, word)) return TextClass::Plain;
  if (equals(op, "DC")) return TextClass::Constant;
  for (const char* word : {"CALL", "PUSH", "SVC"})
    if (equals(op, word)) return TextClass::AddressWord;
  return TextClass::Other;
}

/// The spaces beside a comma.
enum class AtCommas : std::uint8_t { Kept, Removed };

/// A text that is built in the arena; its pieces are never longer than their sources.
template <class Char>
class Builder {
 public:
  Builder(TextArena<Char>& arena, std::size_t most) : at_(arena.allocate(most)) {}

  void put(Char c) { at_[size_++] = c; }
  void put(std::basic_string_view<Char> text) {
    for (const Char c : text) put(c);
  }
  /// A piece outside quotes: a tab becomes a space, a run of spaces becomes one.
  void putCleaned(std::basic_string_view<Char> piece, AtCommas spaces) {
    const std::size_t begin = size_;
    const auto endsIn = [&](Char c) { return size_ > begin && at_[size_ - 1] == c; };
    for (const Char c : piece) {
      if (isBlank(c)) {
        if (!endsIn(Char(' ')) && !(spaces == AtCommas::Removed && endsIn(Char(',')))) put(Char(' '));
        continue;
      }
      if (spaces == AtCommas::Removed && c == Char(',') && endsIn(Char(' '))) --size_;
      put(c);
    }
  }
  std::basic_string_view<Char> text() const { return {at_, size_}; }

 private:
  Char* at_;
  std::size_t size_ = 0;
};

template <class Char>
bool isClean(std::basic_string_view<Char> piece, AtCommas spaces) {
  const bool commas = spaces == AtCommas::Removed;
  for (std::size_t i = 0; i < piece.size(); ++i) {
    if (!isBlank(piece[i])) continue;
    if (piece[i] == Char('\t')) return false;
    if (i + 1 < piece.size() && (isBlank(piece[i + 1]) || (commas && piece[i + 1] == Char(','))))
      return false;
    if (commas && i > 0 && piece[i - 1] == Char(',')) return false;
  }
  return true;
}

/// One pass over a plain operand text: of each pair of spaces one is removed, so a run of n becomes (n + 1) /
/// 2.
template <class Char>
std::basic_string_view<Char> cleanPlain(TextArena<Char>& arena, std::basic_string_view<Char> text) {
  text = text.substr(0, text.find(Char(';')));
  if (isClean(text, AtCommas::Kept)) return trim(text);
  Builder<Char> out(arena, text.size());
  std::size_t run = 0;
  for (const Char c : text) {
    run = isBlank(c) ? run + 1 : 0;
    if (run == 0) {
      out.put(c);
    } else if (run % 2 == 1) {
      out.put(Char(' '));
    }
  }
  return trim(out.text());
}

/// The text from the first to the last apostrophe is not changed.
template <class Char>
std::basic_string_view<Char> cleanQuoted(TextArena<Char>& arena, std::basic_string_view<Char> text,
                                         AtCommas spaces) {
  if (text.find(Char(';')) < text.find(Char('\''))) text = text.substr(0, text.find(Char(';')));
  const std::size_t first = std::min(text.find(Char('\'')), text.size());
  const std::size_t end = first == text.size() ? first : text.rfind(Char('\'')) + 1;
  text = text.substr(0, text.find(Char(';'), end));
  const auto front = text.substr(0, first);
  const auto back = text.substr(end);
  if (isClean(front, spaces) && isClean(back, spaces)) return trim(text);
  Builder<Char> out(arena, text.size());
  out.putCleaned(front, spaces);
  out.put(text.substr(first, end - first));
  out.putCleaned(back, spaces);
  return trim(out.text());
}

/// One pass over a line.  True if another pass would change it.
template <class Char>
bool clean(TextArena<Char>& arena, SrcData<Char>& line) {
  if (line.OprndComStr.empty()) return false;
  switch (textClass(line.OpStr)) {
    case TextClass::Plain:
      line.OprndComStr = cleanPlain(arena, line.OprndComStr);
      return !isClean(line.OprndComStr, AtCommas::Kept);
    case TextClass::Constant:
      line.OprndComStr = cleanQuoted(arena, line.OprndComStr, AtCommas::Removed);
      break;
    case TextClass::AddressWord:
      line.OprndComStr = cleanQuoted(arena, line.OprndComStr, AtCommas::Kept);
      break;
    case TextClass::Other:
      break;
  }
  return false;
}

}  // namespace

template <class Char>
void TrimZenOprndCom(Assembly& a, int prg) {
  auto& store = a.store<Char>();
  std::erase_if(store.Unsettled, [&](int record) { return !clean(store.arena, store[record]); });
  const auto& program = a.program<Char>(prg);
  for (int record = program.RecStart; record <= program.RecEnd; ++record)
    if (clean(store.arena, store[record])) store.Unsettled.push_back(record);
}

template void TrimZenOprndCom<char16_t>(Assembly&, int);
template void TrimZenOprndCom<char>(Assembly&, int);

}  // namespace zelvaro
