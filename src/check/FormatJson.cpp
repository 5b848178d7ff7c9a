// The document that docs/zelvaro-check.schema.json describes.
#include <nlohmann/json.hpp>

#include "check/Formats.h"
#include "check/Json.h"

namespace zelvaro::check {
namespace {

/// The number of the document's form.  It changes when a member is removed or means something else.
constexpr int kFormVersion = 1;

void putWhere(Json& out, int line, int column, int length) {
  if (line > 0) out["line"] = line;
  if (column > 0) out["column"] = column;
  if (length > 0) out["length"] = length;
}

Json remarkJson(const Remark& r, Language language) {
  Json out{{"code", r.code}};
  putWhere(out, r.line, r.column, r.length);
  out["message"] = r.text.in(language);
  return out;
}

Json findingJson(const engine::Finding& f, Language language) {
  Json out{{"code", f.code}, {"severity", f.severity == Severity::Memo ? "memo" : severityName(f.severity)}};
  putWhere(out, f.line, f.column, f.length);
  if (f.secondLine > 0) out["secondLine"] = f.secondLine;
  if (!f.quoted.empty()) out["quoted"] = f.quoted;
  out["counted"] = f.counted;
  if (f.continues) out["continues"] = true;
  out["message"] = f.text.in(language);
  return out;
}

Json talliesJson(const engine::Tallies& t) {
  return {{"errors", t.errors}, {"warnings", t.warnings}, {"notes", t.notes}, {"memos", t.memos}};
}

/// The values that are not 0, in runs of neighbours: [{"address": 4, "values": [...]}].
template <class ValueOf>
Json valuesByAddress(ValueOf valueOf) {
  constexpr int kAddresses = 0x10000;
  Json out = Json::array();
  for (int address = 0, last = -2; address < kAddresses; ++address) {
    const auto value = valueOf(address);
    if (value == 0) continue;
    if (address != last + 1) out.push_back({{"address", address}, {"values", Json::array()}});
    out.back()["values"].push_back(value);
    last = address;
  }
  return out;
}

Json registersJson(const engine::Registers& r) {
  return {{"gr", r.gr}, {"pr", r.pr}, {"sp", r.sp}};
}

Json runJson(const RunResult& run, Language language) {
  const engine::Registers r = run.machine.registers();
  Json messages = Json::array();
  for (const RunMessage& m : run.messages) {
    messages.push_back(findingJson(m.finding, language));
    messages.back()["severity"] = m.isStop ? "error" : "warning";
  }
  for (const Remark& remark : run.remarks) {
    messages.push_back(remarkJson(remark, language));
    messages.back()["severity"] = "error";
  }
  Json out{{"stop", stopName(run.stop)},
           {"steps", run.steps},
           {"messages", std::move(messages)},
           {"registers", registersJson(r)},
           {"flags", {{"overflow", r.overflow}, {"sign", r.sign}, {"zero", r.zero}}},
           {"callDepth", r.os},
           {"output", run.output},
           {"outputIsCut", run.outputIsCut}};
  if (run.isAsExpected) out["outputIsAsExpected"] = *run.isAsExpected;
  out["words"] = valuesByAddress([&](int a) { return run.machine.word(a); });
  out["counts"] = valuesByAddress([&](int a) { return run.machine.count(a); });
  return out;
}

Json listingJson(const engine::Assembled& assembled) {
  Json out = Json::array();
  for (const engine::ListingRow& r : assembled.listing())
    out.push_back({{"line", r.line}, {"address", r.address}, {"words", r.words}, {"text", r.text}});
  for (const engine::LiteralRow& r : assembled.literals())
    out.push_back(
        {{"line", r.line}, {"address", r.address}, {"words", r.words}, {"text", r.text}, {"literal", true}});
  return out;
}

class JsonDocument : public DocumentFormat {
 public:
  explicit JsonDocument(const Options& options) : options_(options) {}

  std::string fragment(const FileResult& result) const override {
    const Language l = options_.language;
    Json out{{"path", result.path}, {"status", static_cast<int>(result.status)}};
    if (result.fault) out["fault"] = remarkJson(*result.fault, l);
    if (result.assembled) putAssembled(out, *result.assembled);
    if (options_.hints) {
      out["hints"] = Json::array();
      for (const Remark& hint : result.hints) out["hints"].push_back(remarkJson(hint, l));
    }
    if (result.run) out["run"] = runJson(*result.run, l);
    return dumped(out);
  }

  std::string document(const std::vector<std::string>& fragments, Status status) const override {
    const Json head{{"format", "zelvaro-check"},
                    {"formatVersion", kFormVersion},
                    {"version", ZELVARO_VERSION},
                    {"language", options_.language == Language::Japanese ? "ja" : "en"},
                    {"pipeline", family(options_.pipeline).name},
                    {"columnKind", "unicodeCodePoints"},
                    {"status", static_cast<int>(status)}};
    return documentOf(head, "files", fragments);
  }

 private:
  void putAssembled(Json& out, const engine::Assembled& assembled) const {
    engine::Tallies shown;
    Json messages = Json::array();
    for (const engine::Finding& f : assembled.findings()) {
      if (f.severity == Severity::Notice) continue;
      messages.push_back(findingJson(f, options_.language));
      shown.errors += f.severity == Severity::Error;
      shown.warnings += f.severity == Severity::Warning;
      shown.notes += f.severity == Severity::Note;
      shown.memos += f.severity == Severity::Memo;
    }
    out["assembled"] = assembled.ok();
    if (!assembled.encodingName().empty()) out["encoding"] = assembled.encodingName();
    out["messages"] = std::move(messages);
    out["messagesLeftOut"] = assembled.findingsLeftOut();
    out["messagesShown"] = talliesJson(shown);
    out["dialogueTallies"] = talliesJson(assembled.tallies());
    if (options_.listing && assembled.ok()) out["listing"] = listingJson(assembled);
  }

  Options options_;
};

}  // namespace

std::unique_ptr<DocumentFormat> jsonFormat(const Options& options) {
  return std::make_unique<JsonDocument>(options);
}

}  // namespace zelvaro::check
