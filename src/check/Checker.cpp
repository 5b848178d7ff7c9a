#include "check/Checker.h"

#include <array>
#include <atomic>

#include "check/CheckFile.h"
#include "check/Explain.h"
#include "check/Formats.h"
#include "check/Grade.h"
#include "check/Hints.h"
#include "check/Init.h"
#include "check/Jobs.h"
#include "check/Lines.h"
#include "check/Listing.h"
#include "check/Progress.h"
#include "check/Remarks.h"
#include "check/Watch.h"
#include "platform/Surroundings.h"

namespace zelvaro::check {
namespace {

constexpr Message tryHelp = notice(
    "usage-try-help", args(),
    {.ja = "zelvaro-check --help で使い方を表示します。\n", .en = "Try 'zelvaro-check --help' for more.\n"});
constexpr Message summary = notice(
    "check-summary",
    args("files", "clean", "faulty", "guarded", "limited", "differing", "unread", "errors", "warnings"),
    {.ja =
         "ファイル {files}: 誤りなし {clean}, 誤りあり {faulty}, 保護機能で停止 {guarded}, 上限か入力切れ {limited}, "
         "出力の違い {differing}, 読み書き不可 {unread}; エラー {errors}, 警告 {warnings}\n",
     .en =
         "{files} files: {clean} clean, {faulty} faulty, {guarded} stopped by a guard, {limited} at a limit, "
         "{differing} different, {unread} unreadable; {errors} errors, {warnings} warnings\n"});
constexpr Message writeFailed = notice(
    "output-failed", args(), {.ja = "標準出力に書き込めない。", .en = "Standard output cannot be written."});

constexpr std::size_t kMostBytes = std::size_t{64} << 20;

/// Whether colours are on: asked for, or by itself on a terminal that has them.
bool isColored(ColorChoice choice) {
  if (choice != ColorChoice::Auto) return choice == ColorChoice::Always;
  return isTerminal(2) && !environmentVariable("NO_COLOR") && terminalHasColors();
}

void complain(Screen& screen, const std::string& words) {
  screen.err("zelvaro-check: " + words + "\n", Shade::Plain);
}

/// The work on the files of a command line.
class Checker {
 public:
  Checker(Shared shared, Screen& screen)
      : shared_(std::move(shared)),
        screen_(screen),
        lines_(o().format == Format::Gnu ? gnuFormat(o().language) : textFormat(o().language)) {
    if (o().format == Format::Json) document_ = jsonFormat(o());
    if (o().format == Format::Sarif) document_ = sarifFormat(o());
  }

  Status checkAll() {
    const std::size_t count = o().files.size();
    counts_.assign(count, {});
    std::vector<std::string> fragments(count);
    OrderedChannels channels(screen_);
    Progress progress(screen_, count, document_ != nullptr || o().quiet);
    runJobs(count, o().jobs, [&](std::size_t i) {
      const std::unique_ptr<Channel> channel = channels.open(i);
      fragments[i] = checkOne(o().files[i], counts_[i], *channel);
      progress.countOne();
    });
    progress.end();
    Status status = Status::Clean;
    for (const Counts& c : counts_) status = worse(status, c.status);
    if (document_) return worse(status, writeDocument(document_->document(fragments, status)));
    if (o().quiet || (o().format == Format::Text && count > 1)) sumUp();
    return status;
  }

  Status gradeAll() {
    Task task;
    std::string driver;
    if (const Status status = readTask(task, driver); status != Status::Clean) return status;
    std::vector<Grade> grades(o().files.size());
    Progress progress(screen_, grades.size(), true);
    runJobs(grades.size(), o().jobs, [&](std::size_t i) {
      grades[i] = gradeFile(shared_, task, driver, o().files[i]);
      progress.countOne();
    });
    progress.end();
    Status status = Status::Clean;
    for (const Grade& g : grades) status = worse(status, g.status);
    return worse(status, writeDocument(gradesText(task, grades, o())));
  }

 private:
  struct Counts {
    Status status = Status::Clean;
    int errors = 0, warnings = 0;
  };

  const Options& o() const { return shared_.options; }

  /// Returns the fragment of the document, if one is made.
  std::string checkOne(const std::string& path, Counts& counts, Channel& channel) const {
    FileResult result = assembleFile(shared_, path);
    const bool shows = document_ == nullptr && !o().quiet;
    if (shows) lines_->findings(result, channel);
    if (result.assembled) finish(result, channel);
    if (shows) lines_->afterRun(result, channel);
    counts.status = result.status;
    if (result.assembled) {
      counts.errors = result.assembled->tallies().errors;
      counts.warnings = result.assembled->tallies().warnings;
    }
    return document_ ? document_->fragment(result) : "";
  }

  void finish(FileResult& result, Channel& channel) const {
    const engine::Assembled& assembled = *result.assembled;
    if (o().hints) result.hints = sourceHints(assembled);
    if (!assembled.ok()) return;
    if (o().listing && document_ == nullptr) channel.out(listingText(assembled, o().language));
    if (o().run) runFile(shared_, result, channel);
    if (o().hints && result.run)
      for (Remark& hint : runHints(*result.run)) result.hints.push_back(std::move(hint));
    if (!o().reportDir.empty()) writeReports(shared_, result);
  }

  void sumUp() {
    const auto with = [&](Status status) {
      return std::ranges::count_if(counts_, [&](const Counts& c) { return c.status == status; });
    };
    int errors = 0, warnings = 0;
    for (const Counts& c : counts_) {
      errors += c.errors;
      warnings += c.warnings;
    }
    screen_.err(say(o().language, summary, counts_.size(), with(Status::Clean), with(Status::Faulty),
                    with(Status::Guard), with(Status::Limit), with(Status::Differs),
                    with(Status::File) + with(Status::Usage), errors, warnings),
                Shade::Plain);
  }

  /// The document goes to --output, else to standard output.
  Status writeDocument(const std::string& text) {
    if (o().output.empty()) {
      screen_.out(text);
      return Status::Clean;
    }
    FileFailure failure;
    auto file = shared_.platform.createFile(o().output, &failure);
    if (file) file->write(text);
    if (file && file->commit()) return Status::Clean;
    complain(screen_, fileFault(o().output, file ? file->failure() : failure, false).text.in(o().language));
    return Status::File;
  }

  Status readTask(Task& task, std::string& driver) {
    FileFailure failure;
    const auto refuse = [&](const Remark& fault, Status status) {
      complain(screen_, fault.text.in(o().language));
      return status;
    };
    const auto bytes = shared_.platform.readFile(o().grade, &failure, kMostBytes);
    if (!bytes) return refuse(fileFault(o().grade, failure, true), Status::File);
    auto parsed = parseTask(*bytes, o().grade);
    if (const Remark* fault = std::get_if<Remark>(&parsed)) return refuse(*fault, Status::Usage);
    task = std::get<Task>(std::move(parsed));
    if (task.driver.empty()) return Status::Clean;
    const std::string path = o().grade.substr(0, o().grade.rfind('/') + 1) + task.driver;
    const auto source = shared_.platform.readFile(path, &failure, kMostBytes);
    if (!source) return refuse(fileFault(path, failure, true), Status::File);
    for (const std::string& line : linesOf(*source)) driver += line + '\n';
    return Status::Clean;
  }

  Shared shared_;
  Screen& screen_;
  std::unique_ptr<LineFormat> lines_;
  std::unique_ptr<DocumentFormat> document_;  ///< null for text and gnu
  std::vector<Counts> counts_;
};

/// Reads the lines of a file that all sources share; false, with a message, if that fails.
bool readLines(const std::string& path, std::optional<std::vector<std::string>>& lines, Shared& shared,
               Screen& screen) {
  if (path.empty()) return true;
  FileFailure failure;
  // no lines at all, though it is no regular file
  const bool isNull = path == "/dev/null";
  const auto bytes = isNull ? std::string() : shared.platform.readFile(path, &failure, kMostBytes);
  if (bytes) {
    lines = linesOf(*bytes);
  } else {
    complain(screen, fileFault(path, failure, true).text.in(shared.options.language));
  }
  return bytes.has_value();
}

Status checkFiles(const Options& options, Platform& platform, Screen& screen) {
  Shared shared{platform, options, {}, {}, platform.localTime()};
  if (!readLines(options.input, shared.input, shared, screen)) return Status::File;
  if (!readLines(options.expect, shared.expected, shared, screen)) return Status::File;
  Checker checker(std::move(shared), screen);
  return options.grade.empty() ? checker.checkAll() : checker.gradeAll();
}

/// What needs no file.
Status answer(const Options& o, Platform& platform, Screen& screen) {
  if (!o.init.empty()) return initFolder(o.init, o.language, platform, screen);
  if (o.listCodes) screen.out(codesText(o));
  if (o.explain.empty()) return Status::Clean;
  const std::optional<std::string> text = explanation(o);
  if (text) {
    screen.out(*text);
    return Status::Clean;
  }
  complain(screen, unknownCode(o));
  return Status::Usage;
}

Status obey(const Options& o, Platform& platform, Screen& screen) {
  screen.setColored(isColored(o.color));
  if (o.help || o.version) {
    screen.out(o.help ? helpText(o.language) : versionText(o.language));
    return Status::Clean;
  }
  if (o.files.empty()) return answer(o, platform, screen);
  const auto check = [&] { return checkFiles(o, platform, screen); };
  return o.watch ? watchFiles(o, screen, check) : check();
}

}  // namespace

Status checkMain(const std::vector<std::string>& arguments, Platform& platform, Screen& screen) {
  const Language usual = platform.userInterfaceIsJapanese() ? Language::Japanese : Language::English;
  const auto parsed = parseOptions(arguments, usual);
  if (const WrongUse* wrong = std::get_if<WrongUse>(&parsed)) {
    complain(screen, wrong->words);
    screen.err(say(wrong->language, tryHelp), Shade::Plain);
    screen.flush();
    return Status::Usage;
  }
  const Options& o = std::get<Options>(parsed);
  const Status status = obey(o, platform, screen);
  if (screen.wroteAll()) return status;
  complain(screen, say(o.language, writeFailed));
  screen.flush();
  return worse(status, Status::File);
}

RowList rowsOfChecker() {
  return rows(tryHelp, summary, writeFailed);
}

}  // namespace zelvaro::check
