// What the worker calls. Texts come in through input slots; each call leaves its answer, JSON or bytes, where zAnswer() points, and
// returns 0, or 1 with the words of an error as the answer.
#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <new>

#include "Desk.h"
#include "Files.h"
#include "check/Grade.h"
#include "encode/Instructions.h"

#define ZELVARO_EXPORT(name) extern "C" __attribute__((export_name(#name)))

namespace zelvaro::web {
namespace {

constexpr std::size_t kMostBytes = 8u << 20;  ///< MOST_BYTES of protocol.ts

Desk desk;
std::array<std::string, 3> input;
std::string answer;

template <class Call>
int answered(Call call) {
  try {
    call();
    return 0;
  } catch (const std::bad_alloc&) {
    answer = "out of memory";
  } catch (const std::exception& e) {
    answer = e.what();
  }
  return 1;
}

template <class Put>
int answeredObject(Put put) {
  return answered([&] {
    Json out;
    out.begin('{');
    put(out);
    out.end('}');
    answer = out.take();
  });
}
template <class Put>
int answeredValue(Put put) {
  return answered([&] {
    Json out;
    put(out);
    answer = out.take();
  });
}

engine::Options options(int pipeline, int encoding) {
  engine::Options o;
  o.pipeline = static_cast<FamilyId>(pipeline);
  o.encoding = static_cast<engine::Encoding>(encoding);
  o.name = input[1];
  o.mostBytes = kMostBytes;
  return o;
}

std::vector<int> numbersOf(const std::string& bytes) {
  std::vector<int> out(bytes.size() / sizeof(int));
  if (!out.empty()) std::memcpy(out.data(), bytes.data(), out.size() * sizeof(int));
  return out;
}

/// Only a text of the editor is completed: its lines are those that the page shows.
std::string_view toComplete(int encoding) {
  return static_cast<engine::Encoding>(encoding) == engine::Encoding::Utf8 ? std::string_view(input[0]) : "";
}

void putForms(Json& out, const Instruction& i) {
  switch (i.form) {
    case OpForm::Both:
      return out.list("forms", std::array{"r,adr[,x]", "r1,r2"});
    case OpForm::Memory:
      return out.list("forms", std::array{"r,adr[,x]"});
    case OpForm::Branch:
      return out.list("forms", std::array{"adr[,x]"});
    case OpForm::Single:
      return out.list("forms", std::array{"r"});
    case OpForm::Data:
      return i.op == Op::DC ? out.list("forms", std::array{"constant[,constant]..."})
                            : out.list("forms", std::array{"words"});
    case OpForm::Start:
      return out.list("forms", std::array{"[entry]"});
    case OpForm::InOut:
      return out.list("forms", std::array{"buffer,length"});
    case OpForm::None:
    case OpForm::End:
    case OpForm::Regs:
      return out.list("forms", std::array{""});
  }
}

void putInstruction(Json& out, const Instruction& i) {
  constexpr const char* kKinds[] = {"assembler", "machine", "macro", "machine"};
  out.member("mnemonic", i.mnemonic);
  out.member("kind", kKinds[static_cast<std::size_t>(i.opClass)]);
  putForms(out, i);
  if (i.regCode != 0) {
    out.list("codes", std::array{i.adrCode, i.regCode});
  } else {
    out.list("codes", std::array{i.adrCode});
  }
  out.member("name", engine::Text{std::string(i.nameJa), std::string(i.nameEn)});
  out.member("effect", i.effect);
  out.member("nhOnly", i.opClass == OpClass::NhOnly);
}

void putGrade(Json& out, const std::string& title, int of, const check::Grade& grade) {
  out.member("title", title);
  out.member("points", grade.points);
  out.member("of", of);
  out.key("fault");
  if (grade.fault) {
    out.value(*grade.fault);
  } else {
    out.null();
  }
  out.objects("cases", grade.marks, [&](const check::Mark& m) {
    out.member("name", m.name);
    out.member("hidden", m.hidden);
    out.member("passed", m.passed);
    out.member("points", m.points);
    out.member("of", m.of);
    out.list("reasons", m.reasons);
  });
}

}  // namespace

ZELVARO_EXPORT(zInput) char* zInput(int slot, std::size_t size) {
  try {
    std::string& text = input.at(static_cast<std::size_t>(slot));
    if (text.capacity() > 2 * size + kMostBytes) std::string().swap(text);
    text.resize(size);
    return text.data();
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
ZELVARO_EXPORT(zAnswer) const char* zAnswer() {
  return answer.data();
}
ZELVARO_EXPORT(zAnswerSize) std::size_t zAnswerSize() {
  return answer.size();
}

ZELVARO_EXPORT(zCheck) int zCheck(int pipeline, int encoding) {
  return answeredObject([&](Json& out) {
    const engine::Assembled a = engine::assemble(input[0], options(pipeline, encoding));
    putCheck(out, a, a.sourceLines(), toComplete(encoding));
  });
}
ZELVARO_EXPORT(zLoad) int zLoad(int pipeline, int encoding) {
  return answeredObject([&](Json& out) {
    const engine::Assembled a = engine::assemble(input[0], options(pipeline, encoding));
    desk.load(a);
    putCheck(out, a, desk.lines(), toComplete(encoding));
    putListing(out, a, desk.lines());
    out.key("state");
    if (!a.ok()) return out.null();
    out.begin('{');
    desk.putState(out);
    out.end('}');
  });
}

/// A line, if it is not 0, names the address instead of `address`.
ZELVARO_EXPORT(zBegin) int zBegin(int kind, double amount, int address, int line) {
  return answered([&] {
    const int target = line > 0 ? desk.addressOfLine(line) : address;
    const auto go = static_cast<GoKind>(kind);
    if (go == GoKind::To && (target < 0 || target > 0xFFFF))
      throw std::logic_error("the line has no instruction");
    desk.begin(go, static_cast<std::int64_t>(amount), target & 0xFFFF);
  });
}
/// The answer is "true" while there is more to do.
ZELVARO_EXPORT(zSlice) int zSlice(double steps) {
  return answeredValue([&](Json& out) { out.value(desk.slice(static_cast<std::int64_t>(steps))); });
}
ZELVARO_EXPORT(zPause) void zPause() {
  desk.pause();
}

ZELVARO_EXPORT(zState) int zState() {
  return answeredObject([&](Json& out) { desk.putState(out); });
}
ZELVARO_EXPORT(zMemory) int zMemory(int from, int count) {
  return answeredValue([&](Json& out) { desk.putMemory(out, from, count); });
}
ZELVARO_EXPORT(zCounts) int zCounts(std::size_t most) {
  return answeredValue([&](Json& out) { desk.putCounts(out, most); });
}
ZELVARO_EXPORT(zBreakpoints) int zBreakpoints() {
  return answeredValue([&](Json& out) {
    out.begin('[');
    for (const int line : desk.setBreakpoints(numbersOf(input[0]))) out.value(line);
    out.end(']');
  });
}
ZELVARO_EXPORT(zGiveLine) int zGiveLine() {
  return answered([&] { desk.giveLine(input[0]); });
}
ZELVARO_EXPORT(zEndInput) int zEndInput() {
  return answered([&] { desk.machine().endInput(); });
}
ZELVARO_EXPORT(zForgetFuture) int zForgetFuture() {
  return answered([&] { desk.forgetFuture(); });
}
ZELVARO_EXPORT(zAddressOf) int zAddressOf() {
  return answeredValue(
      [&](Json& out) { out.value(desk.machine().assembled().addressOf(input[0]).value_or(-1)); });
}

/// Slot 0 has year, month, day, weekday, hour, minute, second as numbers of 32 bits.
ZELVARO_EXPORT(zReport) int zReport(bool isAfter, bool isJapanese, bool hint) {
  return answered([&] {
    const std::vector<int> date = numbersOf(input[0]);
    engine::ReportOptions o;
    o.language = isJapanese ? Language::Japanese : Language::English;
    o.hint = hint;
    o.date.tm_year = date.at(0) - 1900;
    o.date.tm_mon = date.at(1) - 1;
    o.date.tm_mday = date.at(2);
    o.date.tm_wday = date.at(3);
    o.date.tm_hour = date.at(4);
    o.date.tm_min = date.at(5);
    o.date.tm_sec = date.at(6);
    answer = isAfter ? desk.machine().report(o) : desk.machine().assembled().report(o);
  });
}

ZELVARO_EXPORT(zInstructions) int zInstructions() {
  return answeredValue(
      [&](Json& out) { out.objects(kInstructions, [&](const Instruction& i) { putInstruction(out, i); }); });
}
ZELVARO_EXPORT(zDecode) int zDecode(int encoding) {
  return answeredObject([&](Json& out) { putDecoded(out, input[0], options(0, encoding)); });
}
ZELVARO_EXPORT(zEncode) int zEncode() {
  return answered([&] { answer = utf8ToCp932(input[0]); });
}
ZELVARO_EXPORT(zLacking) int zLacking() {
  return answeredValue([&](Json& out) { putLacking(out, input[0]); });
}

/// Slot 0 has the source, 1 its name, 2 the task; the driver is given before by zDriver, from slot 0.
std::string driver;
/// Of all cases of a task together: a link may come from anybody, and must not keep the worker for long.
constexpr std::int64_t kMostGradedSteps = 200'000'000;
ZELVARO_EXPORT(zDriver) void zDriver() {
  driver = input[0];
}
ZELVARO_EXPORT(zGrade) int zGrade(int pipeline, int encoding) {
  return answeredObject([&](Json& out) {
    auto task = check::parseTask(input[2], "task.toml");
    if (const auto* fault = std::get_if<check::Remark>(&task)) {
      check::Grade none;
      none.fault = fault->text;
      return putGrade(out, "", 0, none);
    }
    auto& t = std::get<check::Task>(task);
    for (check::TaskCase& c : t.cases) {
      c.maxSteps = std::min(c.maxSteps, kMostGradedSteps / static_cast<std::int64_t>(t.cases.size()));
    }
    putGrade(out, t.title, t.points, check::gradeBytes(t, driver, input[0], options(pipeline, encoding)));
  });
}

}  // namespace zelvaro::web
