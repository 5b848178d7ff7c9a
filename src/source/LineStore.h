// The line store: the lines of one source file that hold a statement, and its programs.
#pragma once

#include <algorithm>
#include <new>
#include <span>
#include <string_view>
#include <vector>

#include "MoziCode/Characters.h"
#include "platform/Memory.h"
#include "source/SrcData.h"
#include "source/TextArena.h"

namespace zelvaro {

/// Whether a line holds a statement: it is not blank, and its first nonblank character is not ';'.
template <class Char>
constexpr bool holdsStatement(std::basic_string_view<Char> line) {
  const std::basic_string_view<Char> s = trimLeft(line);
  return !s.empty() && s.front() != Char(';');
}

template <class Char>
class LineStore {
 public:
  using View = std::basic_string_view<Char>;
  using Src = SrcData<Char>;
  using Prg = PrgData<Char>;

  /// Adds the next line of the file.  `text` must be in this store's arena if the line holds a statement; any
  /// other line is counted and gets no record.
  void addLine(View text) {
    if (holdsStatement(text)) {
      Src& s = records_.emplace_back();
      s.SrcStr = s.SrcWork = text;
      s.Line = lineCount_;
    }
    ++lineCount_;
  }
  /// Called by a loader that has read `done` of `total` bytes: a full table grows to the size that the whole
  /// file will need at this rate, so it is rarely copied.  Memory that remains unused is never accessed.  The
  /// rest of the file may be comments, so one step multiplies the size by 16 at most; where there is no memory
  /// for a step, the table grows as it needs.
  void foresee(std::size_t done, std::size_t total) {
    constexpr std::size_t kFirst = 256, kMostGrowth = 16;
    const std::size_t size = records_.size();
    if (size < records_.capacity() || size < kFirst) return;
    try {
      records_.reserve(std::min(size + size / 8 + size * (total - done) / done, size * kMostGrowth));
    } catch (const std::bad_alloc&) {
      return;
    }
    preferLargePages(records_.data() + size, (records_.capacity() - size) * sizeof(Src));
  }
  void clear() {
    records_.clear();
    records_.shrink_to_fit();
    vecPrg.clear();
    PrgIndex.clear();
    vecOprndAtDC.clear();
    vecAdrConst.clear();
    Unsettled.clear();
    arena.clear();
    lineCount_ = 0;
  }

  int lineCount() const { return lineCount_; }
  /// All records in the order of the lines.
  std::span<Src> lines() { return records_; }
  std::span<const Src> lines() const { return records_; }
  /// The records of a program: START to END, both included, or without the END.
  std::span<Src> linesWithEnd(const Prg& p) { return lines().subspan(first(p), count(p) + 1); }
  std::span<Src> linesBeforeEnd(const Prg& p) { return lines().subspan(first(p), count(p)); }
  std::span<const Src> linesBeforeEnd(const Prg& p) const { return lines().subspan(first(p), count(p)); }
  Src& operator[](int record) { return records_[static_cast<std::size_t>(record)]; }
  const Src& operator[](int record) const { return records_[static_cast<std::size_t>(record)]; }
  /// The record of a line (0-based index in the file), or null for a line without a statement.
  const Src* atLine(int line) const;

  std::span<OprndAtDC<Char>> oprndsAtDC(const Src& s) {
    return std::span(vecOprndAtDC)
        .subspan(static_cast<std::size_t>(s.DcFirst), static_cast<std::size_t>(s.DcCount));
  }
  std::span<const OprndAtDC<Char>> oprndsAtDC(const Src& s) const {
    return std::span(vecOprndAtDC)
        .subspan(static_cast<std::size_t>(s.DcFirst), static_cast<std::size_t>(s.DcCount));
  }
  /// The line's literal, or null.
  AdrConst<Char>* literal(const Src& s) {
    return s.LiteralNr < 0 ? nullptr : &vecAdrConst[static_cast<std::size_t>(s.LiteralNr)];
  }
  const AdrConst<Char>* literal(const Src& s) const {
    return s.LiteralNr < 0 ? nullptr : &vecAdrConst[static_cast<std::size_t>(s.LiteralNr)];
  }
  /// The program of that name other than `own` (-1: any program), or -1.
  int findPrg(View name, int own) const {
    const int at = PrgIndex.find(name);
    return at == own ? -1 : at;
  }

  TextArena<Char> arena;
  std::vector<Prg> vecPrg;
  NameTable<Char> PrgIndex;  ///< program name to program, filled once the names are unique
  std::vector<OprndAtDC<Char>> vecOprndAtDC;
  std::vector<AdrConst<Char>> vecAdrConst;
  std::vector<int> Unsettled;  ///< records whose operand text a further walk of TrimZenOprndCom changes

 private:
  static std::size_t first(const Prg& p) { return static_cast<std::size_t>(p.RecStart); }
  static std::size_t count(const Prg& p) { return static_cast<std::size_t>(p.RecEnd - p.RecStart); }

  std::vector<Src> records_;
  int lineCount_ = 0;
};

template <class Char>
const SrcData<Char>* LineStore<Char>::atLine(int line) const {
  const auto at = std::lower_bound(records_.begin(), records_.end(), line,
                                   [](const Src& s, int l) { return s.Line < l; });
  return at == records_.end() || at->Line != line ? nullptr : &*at;
}

}  // namespace zelvaro
