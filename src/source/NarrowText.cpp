#include "source/NarrowText.h"

#include "diag/Quote.h"

namespace zelvaro {
namespace {

constexpr std::uint8_t kFixed = families(FamilyId::NH);

constexpr Message reading = Message{Severity::Plain,
                                    Head::None,
                                    args("name"),
                                    {.ja = "'{name}' を読み込みます。 ", .en = "Reading {name}. "},
                                    {{kFixed, {.ja = "'{name}' を読み込みます。", .en = "Reading {name}."}}}}
                                .uncounted()
                                .unlogged();
constexpr Message trace =
    Message{Severity::Plain, Head::None, args("name"), bothLanguages("5BD36104: Fail to open {name}")}
        .uncounted()
        .unlogged();
constexpr Message notOpened =
    Message{Severity::Error,
            Head::None,
            args("name"),
            {.ja = "'{name}' を開くことができません。 \nミススペル あるいは ファイルが存在しない。 *",
             .en = "The file {name} does not open. \nMisspellings?\nOr the file does not exist there. * "},
            {{kFixed,
              {.ja = "'{name}' を開くことができません。 \nミススペル あるいは ファイルが存在しない。",
               .en = "The file {name} does not open. \nMisspellings?\nOr the file does not exist there."}}}}
        .uncounted()
        .unlogged();

}  // namespace

template <class Family>
bool tellNarrowReading(TShellData& sh, const std::string& name, const SourceBytes& bytes) {
  sh.report<Family, reading>(0, name);
  if (bytes) return true;
  if constexpr (Family::id == FamilyId::NH) sh.report<Family, trace>(0, name);
  sh.report<Family, notOpened>(0, name);
  return false;
}

std::string_view NarrowLines::next() {
  const std::string_view line = takeLine(rest_);
  if (isAscii(line)) return line;
  wide_.clear();
  narrow_.clear();
  if (otherBytes_ == OtherBytes::Mended) {
    MbChToWCs(sh_, line, wide_);
  } else if (!utf8ToUtf16(line, wide_)) {
    return line;
  }
  utf16ToCp932(wide_, narrow_);
  return narrow_;
}

#define ZELVARO_INSTANTIATE(F) \
  template bool tellNarrowReading<F>(TShellData&, const std::string&, const SourceBytes&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
