// DspRegMry70NW, DspRegMry68NA, DspRegMry68NH: registers, memory with its labels and statements, and the
// stack.
#include <array>

#include "diag/FailureWords.h"
#include "diag/Limits.h"
#include "diag/Render.h"
#include "report/LabelColumn.h"
#include "report/Report.h"
#include "report/ReportText.h"

namespace zelvaro {
namespace {

using namespace std::string_view_literals;

constexpr int kRowsAfterImage = 10;
constexpr int kZerosThatEndTheStack = 4;
constexpr int kSeparatorWidth = 35;
constexpr int kYearBeforeEra = 2018;  ///< 2019 is the first year of Reiwa
constexpr Message date = notice(
    "report-date", args("year", "month", "monthName", "day", "dayName", "era", "hour", "minute", "second"),
    {.ja = "作成日時：{year}年{month}月{day}日 {hour}時{minute}分{second}秒",
     .en = "{dayName} {monthName} {day}, {year}(R{era})  {hour}:{minute}:{second}s"});
constexpr Words kRunTime{" = 実行時間 ", " = Running Time of the COMET2"};
constexpr std::string_view kViewHead = "Char  Hex    UD     SD       Binary Code\n";

constexpr Message notOpened = notice("report-not-opened", args("file", "reason", "function"),
                                     bothLanguages("{file} does not open.\nMsg:: {reason}\n"
                                                   "Prg. Error: 70D5A3E1 {function}\n"));

/// What differs between the reports of the wide, the narrow and the fixed pipelines.
struct Layout {
  std::string_view nameLine;
  std::string_view flagOvf, flagSign, flagZero;
  std::string_view tableLine;    ///< the line above the table
  std::string_view literalHead;  ///< printed before the statement on a literal's row
  int firstLabelWidth;           ///< the label width if no label is longer
  int leastLabelColumn;          ///< minimum width of the label column, which is else the label width + 1
};

constexpr Layout wideForm{"Src. File: ",
                          "f_Ovf=",
                          ", f_Sign=",
                          "f_Zero=",
                          "//----------------------------------------"
                          "--------------------------------------------\n",
                          "Literal Const. in (",
                          5,
                          0};
constexpr Layout narrowForm{"Src. File: ",
                            "Fovf=",
                            ", Fsign=",
                            "Fzero=",
                            "//------------------------------------------------------------\n",
                            "Literal Const:(",
                            8,
                            11};

constexpr Layout fixedForm = [] {
  Layout form = narrowForm;
  form.nameLine = "Src File: ";
  return form;
}();

const Layout& layoutOf(ReportForm form) {
  return form == ReportForm::Wide ? wideForm : form == ReportForm::Narrow ? narrowForm : fixedForm;
}

std::string dateText(const std::tm& t, Language language) {
  static constexpr std::array days{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                   "Thursday", "Friday", "Saturday"};
  static constexpr std::array months{"January", "February", "March",     "April",   "May",      "June",
                                     "July",    "August",   "September", "October", "November", "December"};
  const int year = t.tm_year + 1900;
  return words({language, FamilyId::WP}, date, year, t.tm_mon + 1, months[static_cast<std::size_t>(t.tm_mon)],
               t.tm_mday, days[static_cast<std::size_t>(t.tm_wday)], year - kYearBeforeEra, t.tm_hour,
               t.tm_min, t.tm_sec);
}

void SeparatorLine(ReportText& out, int n) {
  out.text("//--");
  for (; n > 0; --n) out.text("--");
  out.text("\n");
}

int decimalDigits(std::int32_t value) {
  int digits = 1;
  for (; value >= 10; value /= 10) ++digits;
  return digits;
}

/// One report.  Its members write the parts of the file in their order.
template <class Char>
class RegMryReport {
 public:
  using Store = LineStore<Char>;

  RegMryReport(const ReportFile& file, const Tcomet2& m, const TBasicData& b, const Store& store)
      : file_(file),
        form_(layoutOf(file.family.report)),
        m_(m),
        b_(b),
        store_(store),
        endAdr_(isFixed() ? m.LastAdr : b.PrgEndAdr),
        labels_(store.lines(), isFixed() ? LabelOrder::OfAddresses : LabelOrder::OfLines),
        labelWidth_(labels_.longest(endAdr_, form_.firstLabelWidth)),
        column_(labelWidth_ > form_.leastLabelColumn ? labelWidth_ + 1 : form_.leastLabelColumn),
        countWidth_(decimalDigits(m.MaxExecCount) + 1) {}

  void head(ReportText& out) const;
  void registers(ReportText& out) const;
  void memory(ReportText& out);
  void stack(ReportText& out) const;

 private:
  bool isWide() const { return file_.family.report == ReportForm::Wide; }
  bool isFixed() const { return file_.family.report == ReportForm::Fixed; }

  void flags(ReportText& out) const;
  void tableHead(ReportText& out) const;
  void row(ReportText& out, int adr);
  void echo(ReportText& out, int adr);
  void sourceRow(ReportText& out, std::basic_string_view<Char> row) const;
  const SrcData<Char>* recordOf(int line);

  const ReportFile& file_;
  const Layout& form_;
  const Tcomet2& m_;
  const TBasicData& b_;
  const Store& store_;
  int endAdr_;  ///< the first address after the image
  LabelColumn<Char> labels_;
  int labelWidth_;
  int column_;  ///< width of the label column
  int countWidth_;
  int echoedLine_ = -1;     ///< line of the last row that had an echo
  std::size_t record_ = 0;  ///< where recordOf found its last line
};

template <class Char>
void RegMryReport<Char>::head(ReportText& out) const {
  Platform& platform = file_.platform;
  if (platform.randomNumber() % 3 != 0) {
    out.text("Open this file using a monospaced font such as MS Gothic.\n")
        .text("This will make the tabular results easier to read.\n")
        .text("Font size 10 is recommended when printing on A4 paper.\n")
        .text("To continue, please close this editor.\n")
        .text("Press Ctrl+W or Ctrl+Shift+W.\n");
    SeparatorLine(out, kSeparatorWidth);
  }
  out.text(form_.nameLine).text(b_.SrcFilename).blanks(4);
  out.text(dateText(platform.localTime(), file_.language)).text("\n\n");
  out.text(timeLineOfReport(file_.time, platform, file_.family.report));
  if (file_.name != AssembledRegFile) {
    out.blanks(13).text(DetTimeDiff_General(file_.time, platform, "RunTime"));
    out.text(kRunTime.in(file_.language)).text("\n");
  }
  out.text("\nVM COMET2: ").text(file_.name).text("\n");
}

template <class Char>
void RegMryReport<Char>::registers(ReportText& out) const {
  out.text("//-------------------------------------------------\n").blanks(6).text(kViewHead);
  out.text("   PR:").word(m_.PR).text("\n");
  for (std::size_t i = 0; i < m_.GR.size(); ++i)
    out.text("  GR").number(static_cast<int>(i)).text(":").word(m_.GR[i]).text("\n");
  flags(out);
  out.text("   SP:").word(m_.SP).text("\n\n");
}

template <class Char>
void RegMryReport<Char>::flags(ReportText& out) const {
  const auto meaning = [](std::int32_t flag, std::string_view off, std::string_view on,
                          std::string_view other) {
    return flag == 0 ? off : flag == 1 ? on : other;
  };
  out.text("Flags:    ").text(form_.flagOvf).number(m_.Fovf);
  out.text(form_.flagSign).number(m_.Fsign).text("(");
  out.text(meaning(m_.Fsign, "plus), ", "minus), ", "Error of else: at Fsign ! in comet2.cpp.),"));
  out.text(form_.flagZero).number(m_.Fzero).text("(");
  out.text(meaning(m_.Fzero, "non zero).", "zero).", "Error of else: at Fzero ! in comet2.cpp.)."));
  out.text("\n");
}

template <class Char>
void RegMryReport<Char>::tableHead(ReportText& out) const {
  const auto rightAligned = [&out](std::string_view s, int columns) {
    out.blanks(columns - static_cast<int>(s.size())).text(s);
  };
  out.text(form_.tableLine).text("  Address   ");
  if (isWide()) {
    const int s = column_ / 2;
    rightAligned("Lab", s + 2);
    out.text("el").blanks(s - 2 - 2);
  } else if (labelWidth_ > form_.leastLabelColumn) {
    rightAligned("Label  ", labelWidth_ - 5);
  } else {
    out.text("Label");
  }
  out.text(" ").text(kViewHead);
}

template <class Char>
void RegMryReport<Char>::memory(ReportText& out) {
  tableHead(out);
  const bool isBoundaryKnown =
      isFixed() || (!store_.vecPrg.empty() && store_.vecPrg.back().AbAdrAtEnd == b_.PrgEndAdr - 1);
  int rows = endAdr_ + kRowsAfterImage;
  if (isFixed()) rows = std::min(rows, MaxMemoryDCDS);
  for (int adr = 0; adr < rows; ++adr) {
    row(out, adr);
    if (adr == endAdr_ - 1 && isBoundaryKnown) SeparatorLine(out, kSeparatorWidth);
  }
  out.text("The area that a program has reserved in main memory is called ")
      .text("the \"Reserved Area.\"\n")
      .text("The dashed line marks the boundary between the Reserved Area \n")
      .text("and the non-reserved area.\n\n");
}

template <class Char>
void RegMryReport<Char>::row(ReportText& out, int adr) {
  const auto i = static_cast<std::size_t>(adr);
  out.address(adr);
  const auto labels = labels_.at(adr);
  out.blanks(column_ - LabelColumn<Char>::length(labels));
  for (std::size_t n = 0; n < labels.size(); ++n) {
    if (n != 0) out.text(" ");
    out.source(labels[n]);
  }
  out.text(":").word(m_.Memory[i]).number(m_.ExecCount[i], countWidth_).text(":");
  echo(out, adr);
  out.text("\n");
}

/// Prints the statement, on the row of its first word and on that of its literal.
template <class Char>
void RegMryReport<Char>::echo(ReportText& out, int adr) {
  const int line = adr < kLinesKnown ? m_.LineOfAddress[static_cast<std::size_t>(adr)] : -1;
  if (line < 0 || line == echoedLine_) return;
  const SrcData<Char>* s = recordOf(line);
  if (s == nullptr || s->OpStr.empty()) return;
  echoedLine_ = line;
  if (isFixed()) return sourceRow(out, s->SrcStr);
  if (store_.literal(*s) != nullptr && adr > s->AbAdr) {
    out.text(form_.literalHead).source(s->LabelStr);
    if (!s->LabelStr.empty()) out.text(" ");
    out.source(s->OpStr).text(" ").source(s->OprndComStr).text(")");
    return;
  }
  out.source(s->LabelStr).blanks(2 - static_cast<int>(s->LabelStr.size())).text(" ");
  out.source(s->OpStr).text(" ").source(s->OprndComStr);
}

/// The row as line normalisation leaves it.
template <class Char>
void RegMryReport<Char>::sourceRow(ReportText& out, std::basic_string_view<Char> row) const {
  if (isBlank(row.front())) out.blanks(12);
  withFirstTwoRunsCut(row, [&out](auto piece) { out.source(piece); });
}

/// The record of a line.  Addresses rise with the lines, so it mostly is the one after the last.
template <class Char>
const SrcData<Char>* RegMryReport<Char>::recordOf(int line) {
  const auto records = store_.lines();
  if (++record_ < records.size() && records[record_].Line == line) return &records[record_];
  const SrcData<Char>* found = store_.atLine(line);
  if (found != nullptr) record_ = static_cast<std::size_t>(found - records.data());
  return found;
}

template <class Char>
void RegMryReport<Char>::stack(ReportText& out) const {
  out.blanks(11).text("Stack Area in Main Memory\n");
  out.text("The Stack Pointer(SP) has pointed at ").hex(static_cast<std::uint32_t>(m_.SP));
  out.text(" at present. \n");
  int entries = 0;
  for (int zeros = 0; entries < kStackDepth && zeros < kZerosThatEndTheStack; ++entries)
    zeros = m_.StackArea[static_cast<std::size_t>(entries)] == 0 ? zeros + 1 : 0;
  for (int i = entries; i >= 0; --i) {
    out.address(kFirstSP - i).blanks(column_);
    out.text(":").word(m_.StackArea[static_cast<std::size_t>(i)]).text("\n");
  }
  SeparatorLine(out, kSeparatorWidth);
}

void reportFailure(const ReportFile& file, const FileFailure& failure) {
  const ReportForm form = file.family.report;
  file.sink.say(notOpened, file.name, failureWords(failure),
                form == ReportForm::Wide     ? "DspRegMry70NW"
                : form == ReportForm::Narrow ? "DspRegMry68NA"
                                             : "DspRegMry68NH");
}

}  // namespace

template <class Char>
void DspRegMry(const ReportFile& file, Tcomet2& m, const TBasicData& b) {
  FileFailure failure;
  const std::unique_ptr<OutputFile> output =
      file.platform.createFile(std::string(file.name), &failure, {.isText = true});
  if (output == nullptr) return reportFailure(file, failure);
  if (file.family.report == ReportForm::Narrow) m.LastAdr = b.PrgEndAdr;
  RegMryReport<Char> report(file, m, b, b.store<Char>());
  ReportText out(*output);
  report.head(out);
  report.registers(out);
  report.memory(out);
  report.stack(out);
  out.flush();
  if (!output->commit()) reportFailure(file, output->failure());
}

template void DspRegMry<char16_t>(const ReportFile&, Tcomet2&, const TBasicData&);
template void DspRegMry<char>(const ReportFile&, Tcomet2&, const TBasicData&);

RowList rowsOfDspRegMry() {
  return rows(notOpened, date);
}

}  // namespace zelvaro
