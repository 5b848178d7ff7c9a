// The loader of the fixed form.  It measures a line in the bytes of its CP932 text, without the line end.
#include "MoziCode/Characters.h"
#include "diag/Limits.h"
#include "source/NarrowText.h"

namespace zelvaro {
namespace {

constexpr Message lineTooLong =
    Message{"line-length",
            Severity::Warning,
            Head::Line,
            args("count", limit("most", kFixedLineLength)),
            {.ja = "一行の中に {count} 文字ある。 "
                   "ソースコード一行の制限文字数 {most} 文字（独自仕様）を超えている。 "
                   "エラーにはなりませんが、制限文字数以上は読み込みません。 ",
             .en = "There are {count} characters in the line. "
                   "The assembler does not read more than {most} characters in a line. (Spec. of Zelvaro): "
                   "This could cause an error to assemble the line. "}}
        .uncounted();
constexpr Message tooManyLines{
    "lines-many",
    Severity::Notice,
    Head::None,
    args("count", limit("most", kFixedLines)),
    {.ja = "ソースコードのおおよその制限（一つのファイルにつき） {most}行 を超えています。"
           "行数を減らす工夫をしてご利用ください。 ",
     .en = "There is a limitation to the number of the lines in a source code file. "
           "The maximum is {most} lines in a file. There are {count} lines in your source code. "
           "You are expected to decrease the lines in your file. "}};

}  // namespace

bool takeRead(std::string_view& line, bool hasEnd, std::string_view& read) {
  read = firstMozi(line, kFixedReadLength);
  line.remove_prefix(read.size());
  return !line.empty() || (hasEnd && read.size() == kFixedReadLength);
}

bool OpenFileChH(Assembly& a, const std::string& name, const SourceBytes& bytes) {
  if (!reportNarrowReading(a, name, bytes)) return false;
  LineStore<char>& store = a.b.vecSrcA;
  store.clear();
  bool isTold = false;
  for (NarrowLines lines(a.sh, bytes->bytes, OtherBytes::Kept); !lines.atEnd();) {
    std::string_view line = lines.next();
    std::string_view read;
    bool goesOn = true;
    while (goesOn) {
      goesOn = takeRead(line, lines.hadEnd(), read);
      if (!isTold && read.size() > kFixedLineLength) {
        a.sh.report(lineTooLong, store.lineCount(), read.size());
        isTold = true;
      }
      const std::string_view text = firstMozi(read, kFixedLineLength);
      store.addLine(holdsStatement(text) ? store.arena.keep(text) : std::string_view());
    }
  }
  if (store.lineCount() > kFixedLines) {
    a.sh.report(tooManyLines, 0, store.lineCount());
    store.clear();
    return false;
  }
  a.sh.CurrentFile = name;
  return true;
}

RowList rowsOfOpenFileChH() {
  return rows(lineTooLong, tooManyLines);
}

}  // namespace zelvaro
