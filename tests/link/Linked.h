// Source text taken through encoders, DC, DS and the first run of the address pass, ready for the link.
#pragma once

#include "comet2/Comet2.h"
#include "data/Data.h"
#include "link/Link.h"
#include "macro/Macro.h"
#include "support/SourceLines.h"

namespace zelvaro::test {

template <class Family = WP>
struct Linked : SourceLines<Family> {
  explicit Linked(std::string_view source, int lang = kEnglish) : SourceLines<Family>(source, lang) {
    for (int prg = 0; prg < programs(); ++prg) {
      for (SrcOf<Family>& line : this->store.linesBeforeEnd(this->program(static_cast<std::size_t>(prg))))
        dispatch(line);
      SetMryInAtDS<Family>(this->a, prg);
      SetMryInAtDC<Family>(this->a, prg);
      AdrCk53<Family>(this->a, prg);
    }
  }
  int link() { return Link31<Family>(this->a, m); }
  int programs() const { return static_cast<int>(this->store.vecPrg.size()); }
  std::vector<std::int32_t> image(int from, int to) const {
    std::vector<std::int32_t> out;
    for (int adr = from; adr < to; ++adr) out.push_back(m.Memory[static_cast<std::size_t>(adr)]);
    return out;
  }
  /// The line of each address, counted from 1 as in an editor, 0 for none.
  std::vector<std::int32_t> lines(int from, int to) const {
    std::vector<std::int32_t> out;
    for (int adr = from; adr < to; ++adr) out.push_back(m.LineOfAddress[static_cast<std::size_t>(adr)] + 1);
    return out;
  }

  Tcomet2 m;

 private:
  void dispatch(SrcOf<Family>& line) {
    if (line.OpStr.empty()) return;
    switch (instruction(opOf(line)).form) {
      case OpForm::Data:
        opOf(line) == Op::DC ? dispatchDC<Family>(this->a, line) : dispatchDS<Family>(this->a, line);
        break;
      case OpForm::InOut:
        macro2<Family>(this->a, line);
        break;
      case OpForm::Regs:
        macroR2<Family>(this->a, line);
        break;
      case OpForm::None:
        line.word_kazu = 1;
        break;
      case OpForm::Start:
        line.word_kazu = line.Oprnd[1].empty() ? 1 : 2;
        break;
      default:
        encode<Family>(this->a, line);
    }
  }
};

}  // namespace zelvaro::test
