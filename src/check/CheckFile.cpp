#include "check/CheckFile.h"

#include <filesystem>

#include "check/Remarks.h"
#include "check/Run.h"
#include "check/Trace.h"
#include "diag/FailureWords.h"
#include "diag/MsgBase.h"
#include "platform/Surroundings.h"

namespace zelvaro::check {
namespace {

constexpr Message unreadable =
    notice("file-unreadable", args("name", "reason"),
           {.ja = "{name} を読み込めない: {reason}", .en = "{name} cannot be read: {reason}"});
constexpr Message unwritable =
    notice("file-unwritable", args("name", "reason"),
           {.ja = "{name} に書き込めない: {reason}", .en = "{name} cannot be written: {reason}"});
constexpr Message unknownPlace =
    notice("place-unknown", args("place"),
           {.ja = "{place} という番地もラベルもない。", .en = "{place} is neither an address nor a label."});

/// Bytes of output that a document keeps of a run.
constexpr std::size_t kMostKept = std::size_t{16} << 20;
constexpr std::size_t kMostSource = std::size_t{64} << 20;

/// The lines of --input, or what is typed.
NextLine inputOf(const Shared& shared, Channel& channel) {
  if (shared.input)
    return [&lines = *shared.input, next = std::size_t{0}]() mutable -> std::optional<std::string> {
      if (next == lines.size()) return std::nullopt;
      return lines[next++];
    };
  return [&] {
    channel.flush();
    return shared.platform.readLine();
  };
}

/// The folder of a source's reports: its relative path below --report-dir, which it cannot leave.
std::filesystem::path reportFolder(const std::string& dir, const std::string& path) {
  std::filesystem::path folder = dir;
  for (const auto& part : std::filesystem::path(path).lexically_normal().relative_path())
    folder /= part == ".." ? "up" : part;
  return folder;
}

/// A place of the command line as an address; sets the fault if there is no such place.
std::optional<int> addressOf(FileResult& result, const std::string& place) {
  if (place.empty()) return std::nullopt;
  const std::optional<int> address = result.assembled->addressOf(place);
  if (!address) {
    result.fault = remark(unknownPlace, 0, place);
    result.status = worse(result.status, Status::Usage);
  }
  return address;
}

Stop runAsAsked(const Shared& shared, const TracePlan& trace, Runner& runner, engine::Machine& machine) {
  return shared.options.trace ? runTraced(runner, machine, trace) : runner.finish();
}

void finishResult(const Shared& shared, RunResult& run, std::optional<Expected>& expected) {
  if (run.stop == Stop::Steps) run.remarks.push_back(stepLimitRemark(shared.options.maxSteps));
  if (!expected) return;
  std::optional<Remark> difference = expected->difference();
  run.isAsExpected = !difference;
  if (difference) run.remarks.push_back(std::move(*difference));
}

}  // namespace

Remark fileFault(const std::string& path, const FileFailure& failure, bool isRead) {
  const MsgArg reason = failureWords(failure);
  return isRead ? remark(unreadable, 0, path, reason) : remark(unwritable, 0, path, reason);
}

std::optional<std::string> readSource(const Shared& shared, const std::string& path, FileFailure& failure) {
  if (path == kStandardInput) return readStandardInput(kMostSource, &failure);
  return shared.platform.readFile(path, &failure, kMostSource);
}

FileResult assembleFile(const Shared& shared, const std::string& path) {
  FileResult result;
  result.path = path;
  FileFailure failure;
  const std::optional<std::string> bytes = readSource(shared, path, failure);
  if (!bytes) {
    result.fault = fileFault(path, failure, true);
    result.status = Status::File;
    return result;
  }
  const Options& o = shared.options;
  result.assembled = engine::assemble(*bytes, {.pipeline = o.pipeline, .encoding = o.encoding, .name = path});
  if (!result.assembled->ok()) result.status = Status::Faulty;
  return result;
}

void runFile(const Shared& shared, FileResult& result, Channel& channel) {
  const Options& o = shared.options;
  TracePlan trace{addressOf(result, o.from), addressOf(result, o.until), o.last,
                  [&](const std::string& line) { channel.err(line); }};
  if (result.fault) return;
  result.run.emplace(*result.assembled);
  RunResult& run = *result.run;
  std::optional<Expected> expected;
  if (shared.expected) expected.emplace(*shared.expected);

  RunPlan plan;
  plan.maxSteps = o.maxSteps;
  plan.input = inputOf(shared, channel);
  plan.givesUp = [&] {
    channel.flush();
    return channel.isGone();
  };
  plan.output = [&](const std::string& text) {
    if (expected) expected->take(text);
    if (!o.makesDocument()) {
      channel.out(text);
      channel.out("\n");
    } else if (run.output.size() + text.size() < kMostKept) {
      run.output += text + '\n';
    } else {
      run.outputIsCut = true;
    }
  };
  Runner runner(run.machine, plan);
  run.stop = runAsAsked(shared, trace, runner, run.machine);
  run.steps = run.machine.steps();
  run.readerIsGone = runner.wasGivenUp();
  run.messages = runner.takeMessages();
  for (RunMessage& m : stopMessages(run.machine)) run.messages.push_back(std::move(m));
  finishResult(shared, run, expected);
  result.status = worse(result.status, statusOf(run.stop));
  if (run.isAsExpected == false) result.status = worse(result.status, Status::Differs);
}

void writeReports(const Shared& shared, FileResult& result) {
  const engine::ReportOptions options{.language = shared.options.language, .date = shared.now, .hint = false};
  const std::string folder = reportFolder(shared.options.reportDir, result.path).string();
  FileFailure failure;
  const auto write = [&](std::string_view name, const std::string& bytes) {
    const std::string path = folder + "/" + std::string(name);
    auto file = shared.platform.createFile(path, &failure, {.isText = true});
    if (file) file->write(bytes);
    if (file && file->commit()) return;
    result.fault = fileFault(path, file ? file->failure() : failure, false);
    result.status = worse(result.status, Status::File);
  };
  if (!makeFolders(folder, &failure)) {
    result.fault = fileFault(folder, failure, false);
    result.status = worse(result.status, Status::File);
    return;
  }
  write(AssembledRegFile, result.assembled->report(options));
  if (result.run) write(ResultantRegFile, result.run->machine.report(options));
}

RowList rowsOfCheckFile() {
  return rows(unreadable, unwritable, unknownPlace);
}

}  // namespace zelvaro::check
