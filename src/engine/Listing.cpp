// The tables of an assembled source, made from the line store when they are asked for.
#include <charconv>
#include <limits>

#include "diag/Quote.h"
#include "engine/Quiet.h"
#include "engine/Source.h"
#include "source/NarrowText.h"

namespace zelvaro::engine {
namespace {

/// Calls `work(program, its index, line)` for every line of every program, START included.
template <class Store, class Work>
void forEachLine(const Store& store, Work work) {
  for (std::size_t i = 0; i < store.vecPrg.size(); ++i)
    for (const auto& line : store.linesBeforeEnd(store.vecPrg[i])) work(static_cast<int>(i), line);
}

/// A number as a place: decimal, or hexadecimal after "0x" or "#".
std::optional<int> numberOf(std::string_view text) {
  int base = 10;
  for (const std::string_view prefix : {"0x", "0X", "#"})
    if (text.starts_with(prefix)) {
      text.remove_prefix(prefix.size());
      base = 16;
    }
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
  const bool isWhole = error == std::errc() && end == text.data() + text.size();
  if (!isWhole || value < 0 || value >= kAddressSpace) return std::nullopt;
  return value;
}

std::vector<std::string> utf16Lines(std::string_view bytes, ByteOrder order) {
  const Utf16Units units(bytes, order);
  std::vector<std::string> out;
  std::u16string line;
  for (std::size_t i = 1; i < units.size(); ++i) {  // unit 0 is the mark
    if (units[i] != u'\r' || i + 1 == units.size() || units[i + 1] != u'\n') {
      line += units[i];
      continue;
    }
    out.push_back(toUtf8(line));
    line.clear();
    ++i;
  }
  out.push_back(toUtf8(line));
  return out;
}

std::vector<std::string> wideLines(std::string_view rest, const MoziCodeData& code, TShellData& sh) {
  std::vector<std::string> out;
  std::u16string wide;
  const bool isMarked = !code.BomText.empty();
  if (isMarked) rest.remove_prefix(std::min<std::size_t>(rest.size(), 3));
  for (bool isFirst = isMarked; isFirst || !rest.empty(); isFirst = false) {
    const std::string_view line = takeLine(rest);
    wide.clear();
    if (code.CodePage == 65001) {
      MbChToWCs(sh, line, wide);
    } else {
      cp932ToUtf16(line, wide);
    }
    out.push_back(toUtf8(wide));
  }
  return out;
}

std::vector<std::string> narrowLines(std::string_view bytes, TShellData& sh, bool isFixed) {
  std::vector<std::string> out;
  for (NarrowLines lines(sh, bytes, isFixed ? OtherBytes::Kept : OtherBytes::Mended); !lines.atEnd();) {
    std::string_view line = lines.next();
    if (!isFixed) {
      out.push_back(plain(line));
      continue;
    }
    std::string_view read;
    for (bool goesOn = true; goesOn;) {
      goesOn = takeRead(line, lines.hadEnd(), read);
      out.push_back(plain(firstMozi(read, kFixedLineLength)));
    }
  }
  return out;
}

}  // namespace

std::vector<std::string> Assembled::sourceLines() const {
  QuietSink sink;  // the load has issued the messages already
  TShellData sh(sink);
  const MoziCodeData& code = source_->code;
  if (source_->encoding == Encoding::Auto) return {};
  if (source_->f.loader != Loader::Detecting)
    return narrowLines(*source_->bytes, sh, source_->f.loader == Loader::Fixed);
  if (source_->encoding == Encoding::Utf16) return utf16Lines(*source_->bytes, code.byteOrder());
  return wideLines(*source_->bytes, code, sh);
}

std::vector<Program> Assembled::programs() const {
  std::vector<Program> out;
  if (!ok()) return out;
  source_->withStore([&out](const auto& store) {
    for (const auto& p : store.vecPrg)
      out.push_back({plain(p.PrgName), p.AbAdrAtStart, p.PrgSize, p.StartLine + 1, p.EndLine + 1});
  });
  return out;
}

std::vector<Label> Assembled::labels() const {
  std::vector<Label> out;
  if (!ok()) return out;
  source_->withStore([&out](const auto& store) {
    forEachLine(store, [&out](int program, const auto& line) {
      if (!line.LabelStr.empty()) out.push_back({program, plain(line.LabelStr), line.AbAdr, line.Line + 1});
    });
  });
  return out;
}

std::vector<ListingRow> Assembled::listing() const {
  std::vector<ListingRow> out;
  if (!ok()) return out;
  const auto add = [this, &out](int program, const auto& line, int address, int words) {
    out.push_back({program, line.Line + 1, address, source_->words(address, words), plain(line.LabelStr),
                   plain(line.OpStr), plain(line.OprndComStr), plain(line.SrcStr)});
  };
  source_->withStore([&add](const auto& store) {
    for (std::size_t i = 0; i < store.vecPrg.size(); ++i) {
      const auto& p = store.vecPrg[i];
      const auto program = static_cast<int>(i);
      for (const auto& line : store.linesBeforeEnd(p)) add(program, line, line.AbAdr, line.word_kazu);
      add(program, store[p.RecEnd], p.AbAdrAtStart + p.PrgSize, 0);  // END has no address of its own
    }
  });
  return out;
}

std::vector<LiteralRow> Assembled::literals() const {
  std::vector<LiteralRow> out;
  if (!ok()) return out;
  source_->withStore([this, &out](const auto& store) {
    forEachLine(store, [this, &out, &store](int program, const auto& line) {
      if (const auto* literal = store.literal(line))
        out.push_back({program, line.Line + 1, literal->AbAdr,
                       source_->words(literal->AbAdr, literal->WordKazu), "=" + plain(literal->ConstStr)});
    });
  });
  return out;
}

int Assembled::lineOf(int address) const {
  if (!ok() || address < 0 || address >= kLinesKnown) return 0;
  const Cells& lines = source_->m.LineOfAddress;
  return lines[static_cast<std::size_t>(address)] + 1;
}

std::optional<int> Assembled::addressOf(std::string_view place) const {
  if (!ok()) return std::nullopt;
  if (const std::optional<int> number = numberOf(place)) return number;
  const std::size_t dot = place.find('.');
  const std::string_view program = dot == std::string_view::npos ? "" : place.substr(0, dot);
  const std::string_view label = dot == std::string_view::npos ? place : place.substr(dot + 1);
  const std::vector<Program> all = programs();
  for (const Label& l : labels())
    if (l.name == label && (program.empty() || all[static_cast<std::size_t>(l.program)].name == program))
      return l.address;
  return std::nullopt;
}

}  // namespace zelvaro::engine
