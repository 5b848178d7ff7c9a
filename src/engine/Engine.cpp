#include "engine/Engine.h"

#include <algorithm>
#include <new>
#include <string_view>

#include "MoziCode/Utf.h"
#include "diag/Heads.h"
#include "diag/Quote.h"
#include "diag/Render.h"
#include "engine/Catalogue.h"
#include "engine/MachineRows.h"
#include "engine/Source.h"

namespace zelvaro::engine {
namespace {

constexpr int kUtf8Page = 65001;
constexpr int kCp932Page = 932;
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

/// Gives the bytes of one source to the loader.
class SourcePlatform : public QuietPlatform {
 public:
  SourcePlatform(std::shared_ptr<const std::string> bytes, std::size_t most)
      : bytes_(std::move(bytes)), most_(most) {}
  std::optional<FileBytes> loadFile(const std::string&, FileFailure* failure) override {
    if (bytes_->size() <= most_) return FileBytes{*bytes_, bytes_};
    if (failure != nullptr) *failure = {FileFailure::Kind::TooLarge, "File too large"};
    return std::nullopt;
  }
  std::size_t mostSourceBytes() const override { return most_; }

 private:
  std::shared_ptr<const std::string> bytes_;
  std::size_t most_;
};

/// Keeps the text of a report.
class ReportPlatform : public QuietPlatform {
 public:
  explicit ReportPlatform(const ReportOptions& how) : how_(how) {}
  std::unique_ptr<OutputFile> createFile(const std::string&, FileFailure*, FileWriting) override {
    return std::make_unique<Text>(text);
  }
  std::tm localTime() override { return how_.date; }
  int randomNumber() override { return how_.hint ? 1 : 0; }

  std::string text;

 private:
  struct Text : OutputFile {
    explicit Text(std::string& t) : text(t) {}
    void write(std::string_view bytes) override { text += bytes; }
    bool commit() override { return true; }
    FileFailure failure() const override { return {}; }
    std::string& text;
  };
  const ReportOptions& how_;
};

std::string utf8OfUtf16(std::string_view bytes) {
  const Utf16Units units(bytes, ByteOrder::Little);
  std::u16string wide(units.size(), u'\0');
  for (std::size_t i = 0; i < wide.size(); ++i) wide[i] = units[i];
  return toUtf8(wide);
}

bool hasMark(std::string_view bytes) {
  return bytes.starts_with(kUtf8Mark) || bytes.starts_with(kUtf16LeMark) || bytes.starts_with(kUtf16BeMark);
}

/// The bytes in a form in which the pipeline's loader reads them in the encoding that the caller has chosen.
std::string bytesFor(std::string_view bytes, Encoding encoding, const Family& f) {
  const bool detects = f.loader == Loader::Detecting;
  if (!hasMark(bytes) && encoding == Encoding::Utf16)
    return detects ? std::string(kUtf16Mark).append(bytes) : utf8OfUtf16(bytes);
  if (!hasMark(bytes) && encoding == Encoding::Cp932 && !detects) return cp932ToUtf8(bytes);
  return std::string(bytes);
}

std::size_t codePoints(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::size_t argOf(const MessageRow& row, std::string_view name) {
  for (std::size_t i = 0; i < row.argCount; ++i)
    if (name == row.argName[i]) return i;
  return row.argCount;
}

/// The arguments that name another line than that of the message.
int secondLineOf(const Diagnostic& d) {
  for (const char* name : {"other", "line2"})
    if (const std::size_t i = argOf(*d.row, name); i < d.args.size()) return std::stoi(d.args[i].text);
  return 0;
}

bool showsLine(const MessageRow& row) {
  const auto names = [](std::string_view text) { return text.find("{line}") != std::string_view::npos; };
  switch (row.head) {
    case Head::None:
    case Head::Prefix:
    case Head::Bare:
    case Head::Open:
    case Head::Own:
      return names(row.words.en) || names(row.ownHead.en);
    default:
      return true;
  }
}

/// Notices of the loaders, and messages about the whole file, are issued with the first line.
bool isOfLine(const Diagnostic& d) {
  if (d.line == Diagnostic::kNoLine || d.row->severity == Severity::Notice) return false;
  return d.line > 0 || showsLine(*d.row);
}

}  // namespace

namespace detail {

Finding findingOf(const Diagnostic& d, FamilyId family) {
  Finding out;
  out.code = d.row->code;
  out.severity = d.row->severity;
  out.counted = d.row->counts;
  out.continues = d.row->continues;
  if (isOfLine(d)) out.line = d.line + 1;
  out.secondLine = secondLineOf(d);
  out.printed = {render(d, {Language::Japanese, family}), render(d, {Language::English, family})};
  out.text = {renderText(d, {Language::Japanese, family}), renderText(d, {Language::English, family})};
  for (const MsgArg& arg : d.args) {
    if (arg.kind == MsgArg::Kind::Quoted && out.quoted.empty()) out.quoted = arg.text;
    out.args.push_back(arg.text);
  }
  return out;
}

Source::Source(std::string_view source, const Options& o)
    : options(o),
      f(family(o.pipeline)),
      bytes(std::make_shared<const std::string>(source.size() <= o.mostBytes
                                                    ? bytesFor(source, o.encoding, f)
                                                    : std::string(source.substr(0, o.mostBytes + 1)))) {}

/// What the notices say about the encoding.
bool Source::isLeftOut(const Diagnostic& d) const {
  return !options.reportsEncoding && (d.row->code == "reading-as" || d.row->code == "characters-counted");
}

void Source::take(const Diagnostic& d) {
  if (isLeftOut(d)) return;
  if (findings.size() == options.mostFindings) {
    ++leftOut;
    return;
  }
  Finding finding = findingOf(d, f.id);
  if (finding.line != 0) findPlace(finding, d);
  findings.push_back(std::move(finding));
}

/// Where the line has the quoted text, if it occurs in it exactly once.
void Source::findPlace(Finding& finding, const Diagnostic& d) const {
  if (finding.quoted.empty()) return;
  const std::string line = withStore([&d](const auto& store) {
    const auto* record = store.atLine(d.line);
    return record == nullptr ? std::string() : plain(record->SrcStr);
  });
  const std::size_t at = line.find(finding.quoted);
  if (at == std::string::npos || line.find(finding.quoted, at + 1) != std::string::npos) return;
  finding.column = static_cast<int>(codePoints(std::string_view(line).substr(0, at))) + 1;
  finding.length = static_cast<int>(codePoints(finding.quoted));
}

void Source::assemble() {
  try {
    outcome = passPhases();
  } catch (const std::bad_alloc&) {
    outcome = Outcome::NoMemory;
  }
}

/// The way of the dialogue, without its stops.
Outcome Source::passPhases() {
  SourcePlatform platform(bytes, options.mostBytes);
  const bool isChosen = options.encoding == Encoding::Utf8 || options.encoding == Encoding::Cp932;
  if (isChosen) code.CodePage = options.encoding == Encoding::Utf8 ? kUtf8Page : kCp932Page;
  Pass pass{Assembly{sh, cs, b, f}, LoadRequest{platform, code, options.name, !isChosen}, m,
            RunEnvironment{platform, *this, time, f},
            ReportFile{platform, *this, time, f, Language::English}};
  if (!runPhase(pass, Phase::Load)) return pass.assembly.errors() > 0 ? Outcome::Faulty : Outcome::NotLoaded;
  b.SrcFilename = options.name;
  if (f.loader != Loader::Detecting) {
    std::u16string ignored;
    encoding = utf8ToUtf16(*bytes, ignored) ? Encoding::Utf8 : Encoding::Cp932;
  } else {
    encoding = code.CodePage == kUtf8Page    ? Encoding::Utf8
               : code.CodePage == kCp932Page ? Encoding::Cp932
                                             : Encoding::Utf16;
  }
  if (!runPhase(pass, Phase::Check) || !runPhase(pass, Phase::Link)) return Outcome::Faulty;
  m.Filename = b.FirstPrgName;
  takeImage();
  return Outcome::Assembled;
}

/// The fixed form has no sum of the sizes of its programs.
void Source::takeImage() {
  const int size = f.dataPlace == DataPlace::AfterCode ? m.LastAdr : b.PrgEndAdr;
  image.resize(static_cast<std::size_t>(std::max(size, 0)));
  const Cells& cells = m.Memory;
  for (std::size_t adr = 0; adr < image.size(); ++adr) image[adr] = static_cast<std::uint16_t>(cells[adr]);
}

std::span<const std::uint16_t> Source::words(int address, int count) const {
  const auto size = static_cast<int>(image.size());
  const int from = std::clamp(address, 0, size);
  const int to = static_cast<int>(std::clamp<std::int64_t>(std::int64_t{from} + count, from, size));
  return std::span(image).subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
}

std::string Source::report(Tcomet2 machine, std::string_view name, const ReportOptions& how) const {
  ReportPlatform platform(how);
  QuietSink sink;
  const ReportFile file{platform, sink, time, f, how.language, name};
  if (f.text == TextForm::Wide) {
    DspRegMry<char16_t>(file, machine, b);
  } else {
    DspRegMry<char>(file, machine, b);
  }
  return std::move(platform.text);
}

}  // namespace detail

Assembled assemble(std::string_view bytes, const Options& options) {
  const auto source = std::make_shared<detail::Source>(bytes, options);
  source->assemble();
  return Assembled(source);
}

Outcome Assembled::outcome() const {
  return source_->outcome;
}

const Options& Assembled::options() const {
  return source_->options;
}

std::span<const Finding> Assembled::findings() const {
  return source_->findings;
}

std::size_t Assembled::findingsLeftOut() const {
  return source_->leftOut;
}

Tallies Assembled::tallies() const {
  Tallies sum;
  for (const TMsgBase* o :
       {static_cast<const TMsgBase*>(&source_->sh), static_cast<const TMsgBase*>(&source_->cs),
        static_cast<const TMsgBase*>(&source_->b)}) {
    sum.errors += o->ErrorKazu;
    sum.warnings += o->WarningKazu;
    sum.notes += o->NoteKazu;
    sum.memos += o->MemoKazu;
  }
  return sum;
}

Encoding Assembled::encoding() const {
  return source_->encoding;
}

std::string_view Assembled::encodingName() const {
  return source_->code.CodeName;
}

std::span<const std::uint16_t> Assembled::image() const {
  return source_->image;
}

std::string Assembled::report(const ReportOptions& options) const {
  return ok() ? source_->report(source_->m, AssembledRegFile, options) : std::string();
}

std::vector<CodeInfo> codes(FamilyId pipeline) {
  std::vector<CatalogueFile> files = allFiles();
  files.push_back({"Machine", machineRows()});
  std::vector<CodeInfo> out;
  for (const CatalogueFile& file : files)
    for (const MessageRow* row : file.rows)
      out.push_back({row->code, file.name, row->severity, row->text(pipeline, Language::Japanese),
                     row->text(pipeline, Language::English)});
  return out;
}

std::string_view headOf(Severity severity, Language language) {
  return severityHead(severity).in(language);
}

}  // namespace zelvaro::engine
