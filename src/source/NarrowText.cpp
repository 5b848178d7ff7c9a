#include "source/NarrowText.h"

#include "diag/Quote.h"

namespace zelvaro {
namespace {

constexpr Message reading{"reading-narrow",
                          Severity::Notice,
                          Head::None,
                          args("name"),
                          {.ja = "'{name}' を読み込みます。 ", .en = "Reading {name}. "},
                          {{kNH, {.ja = "'{name}' を読み込みます。", .en = "Reading {name}."}}}};
constexpr Message trace{"source-not-opened-trace", Severity::Notice, Head::None, args("name"),
                        bothLanguages("5BD36104: Fail to open {name}")};
constexpr Message notOpened =
    Message{"source-not-opened",
            Severity::Error,
            Head::None,
            args("name"),
            {.ja = "'{name}' を開くことができません。 \nミススペル あるいは ファイルが存在しない。 *",
             .en = "The file {name} does not open. \nMisspellings?\nOr the file does not exist there. * "},
            {{kNH,
              {.ja = "'{name}' を開くことができません。 \nミススペル あるいは ファイルが存在しない。",
               .en = "The file {name} does not open. \nMisspellings?\nOr the file does not exist there."}}}}
        .uncounted()
        .unlogged();

}  // namespace

bool reportNarrowReading(Assembly& a, const std::string& name, const SourceBytes& bytes) {
  a.sh.report(reading, 0, name);
  if (bytes) return true;
  if (a.family.loader == Loader::Fixed) a.sh.report(trace, 0, name);
  a.sh.report(notOpened, 0, name);
  return false;
}

std::string_view NarrowLines::next() {
  hadEnd_ = rest_.find('\n') != rest_.npos;
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

RowList rowsOfNarrowText() {
  return rows(reading, trace, notOpened);
}

}  // namespace zelvaro
