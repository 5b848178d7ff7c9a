// SARIF 2.1.0, with a rule for each code.
#include <map>

#include "check/CheckRows.h"
#include "check/Formats.h"
#include "check/Json.h"

namespace zelvaro::check {
namespace {

/// A path as the reference of a URI: blanks, signs and bytes of other characters are written %XX.
std::string uriOf(std::string_view path) {
  constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string out = path.starts_with('/') ? "file://" : "";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (kPlain.find(c) != kPlain.npos) {
      out += c;
    } else {
      out += {'%', kHex[byte >> 4], kHex[byte & 15]};
    }
  }
  return out;
}

Json location(const std::string& path, int line, int column, int length) {
  Json physical{{"artifactLocation", {{"uri", uriOf(path)}}}};
  if (line > 0) {
    physical["region"] = {{"startLine", line}};
    if (column > 0) physical["region"]["startColumn"] = column;
    if (column > 0 && length > 0) physical["region"]["endColumn"] = column + length;
  }
  return {{"physicalLocation", std::move(physical)}};
}

Json rule(std::string_view code, std::string_view words, std::string_view level) {
  return {
      {"id", code}, {"shortDescription", {{"text", words}}}, {"defaultConfiguration", {{"level", level}}}};
}

class Sarif : public DocumentFormat {
 public:
  explicit Sarif(const Options& options) : options_(options) {
    const bool japanese = options.language == Language::Japanese;
    for (const engine::CodeInfo& c : engine::codes(options.pipeline))
      add(c.code, japanese ? c.ja : c.en, severityName(c.severity));
    for (const MessageRow* row : checkRows())
      add(row->code, row->text(options.pipeline, options.language), "note");
  }

  /// The results of a file, joined by commas.
  std::string fragment(const FileResult& result) const override {
    std::string out;
    const auto add = [&](const Json& one) { out += (out.empty() ? "" : ",\n") + dumped(one); };
    if (result.fault) add(remarkResult(result.path, *result.fault, "error"));
    if (result.assembled)
      for (const engine::Finding& f : result.assembled->findings())
        if (f.severity != Severity::Notice)
          add(findingResult(result.path, f, f.continues ? "note" : severityName(f.severity)));
    if (result.run) {
      for (const RunMessage& m : result.run->messages)
        add(findingResult(result.path, m.finding, m.isStop ? "error" : "warning"));
      for (const Remark& r : result.run->remarks) add(remarkResult(result.path, r, "error"));
    }
    for (const Remark& hint : result.hints) add(remarkResult(result.path, hint, "note"));
    return out;
  }

  std::string document(const std::vector<std::string>& fragments, Status status) const override {
    const Json driver{{"name", "zelvaro-check"}, {"version", ZELVARO_VERSION}, {"rules", rules_}};
    const Json invocation{{"executionSuccessful", status != Status::File && status != Status::Usage},
                          {"exitCode", static_cast<int>(status)}};
    const Json run{{"tool", {{"driver", driver}}},
                   {"invocations", Json::array({invocation})},
                   {"language", options_.language == Language::Japanese ? "ja" : "en"},
                   {"columnKind", "unicodeCodePoints"}};
    std::vector<std::string> results;
    for (const std::string& f : fragments)
      if (!f.empty()) results.push_back(f);
    std::string runText = documentOf(run, "results", results);
    runText.pop_back();
    const Json head{
        {"$schema",
         "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json"},
        {"version", "2.1.0"}};
    return documentOf(head, "runs", {runText});
  }

 private:
  void add(std::string_view code, std::string_view words, std::string_view level) {
    indexOf_.emplace(code, rules_.size());
    rules_.push_back(rule(code, words.empty() ? code : words, level));
  }
  Json result(std::string_view code, std::string_view level, const std::string& text, Json where) const {
    return {{"ruleId", code},
            {"ruleIndex", indexOf_.at(code)},
            {"level", level},
            {"message", {{"text", text.empty() ? std::string(code) : text}}},
            {"locations", Json::array({std::move(where)})}};
  }
  Json remarkResult(const std::string& path, const Remark& r, std::string_view level) const {
    return result(r.code, level, r.text.in(options_.language), location(path, r.line, r.column, r.length));
  }
  Json findingResult(const std::string& path, const engine::Finding& f, std::string_view level) const {
    Json out =
        result(f.code, level, f.text.in(options_.language), location(path, f.line, f.column, f.length));
    if (f.secondLine > 0) {
      out["relatedLocations"] = Json::array({location(path, f.secondLine, 0, 0)});
      out["relatedLocations"][0]["id"] = 1;
    }
    return out;
  }

  Options options_;
  Json rules_ = Json::array();
  std::map<std::string_view, std::size_t> indexOf_;
};

}  // namespace

std::unique_ptr<DocumentFormat> sarifFormat(const Options& options) {
  return std::make_unique<Sarif>(options);
}

}  // namespace zelvaro::check
