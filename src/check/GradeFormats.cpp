// Grades as text, as CSV for a mark book, as JSON, as JUnit XML.
#include <fmt/format.h>

#include <boost/property_tree/ptree.hpp>
#include <boost/property_tree/xml_parser.hpp>
#include <sstream>

#include "MoziCode/Utf.h"
#include "check/CheckRows.h"
#include "check/Grade.h"
#include "check/Json.h"

namespace zelvaro::check {
namespace {

constexpr Message ofPoints =
    notice("grade-points", args("name", "points", "of"),
           {.ja = "{name}: {of} 点中 {points} 点\n", .en = "{name}: {points} of {of} points\n"});
constexpr Message failed =
    notice("grade-failed", args("name", "points"),
           {.ja = "  失敗: {name} ({points} 点)\n", .en = "  failed: {name} ({points} points)\n"});
constexpr Message summary =
    notice("grade-summary", args("files", "full", "average", "of"),
           {.ja = "提出 {files} 件、満点 {full} 件、平均 {average} / {of} 点\n",
            .en = "{files} submissions, {full} with all points, {average} of {of} points on average\n"});

/// Text as it may be in XML 1.0: no control characters but tab and line feed, no bytes that are no UTF-8.
std::string xmlText(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const Utf8Mozi first = decodeUtf8(text);
    const bool isWhole = first.kind == Utf8Mozi::Kind::Whole;
    const char32_t c = first.codePoint;
    const bool isAllowed = isWhole && (c >= 0x20 || c == '\t' || c == '\n') && c != 0xFFFE && c != 0xFFFF;
    appendUtf8(out, isAllowed ? c : char32_t{kReplacement});
    text.remove_prefix(std::max<std::size_t>(first.size, 1));
  }
  return out;
}

std::string joined(const std::vector<engine::Text>& texts, Language language) {
  std::string out;
  for (const engine::Text& t : texts) out += (out.empty() ? "" : "\n") + t.in(language);
  return out;
}

/// The lines of a text with blanks in front.
std::string indented(const std::string& text) {
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    if (end > at) out += "    " + text.substr(at, end - at) + '\n';
    at = end + 1;
  }
  return out;
}

std::string asText(const Task& task, const std::vector<Grade>& grades, const Options& o) {
  std::string out;
  std::size_t full = 0;
  double sum = 0;
  for (const Grade& g : grades) {
    full += g.points == task.points;
    sum += g.points;
    if (o.quiet) continue;
    out += say(o.language, ofPoints, g.path, g.points, task.points);
    if (g.fault) {
      out += indented(g.fault->in(o.language));
      continue;
    }
    for (const Mark& m : g.marks)
      if (!m.passed) out += say(o.language, failed, m.name, m.of) + indented(joined(m.reasons, o.language));
  }
  if (grades.size() > 1 || o.quiet)
    out += say(o.language, summary, grades.size(), full,
               fmt::format("{:.1f}", sum / static_cast<double>(grades.size())), task.points);
  return out;
}

/// A field of CSV.  A spreadsheet takes a text that begins with one of these signs for a formula.
std::string csvField(std::string text) {
  constexpr std::string_view kFormula = "=+-@\t\r";
  if (!text.empty() && kFormula.find(text[0]) != kFormula.npos) text.insert(0, "'");
  if (text.find_first_of(",\"\r\n") == text.npos) return text;
  for (std::size_t at = 0; (at = text.find('"', at)) != text.npos; at += 2) text.insert(at, 1, '"');
  return '"' + text + '"';
}

std::string asCsv(const Task& task, const std::vector<Grade>& grades, const Options& o) {
  std::string out = "file,points,of";
  for (const TaskCase& c : task.cases) out += ',' + csvField(c.name);
  if (task.rules.points) out += ",rules";
  out += ",remark\r\n";
  for (const Grade& g : grades) {
    out += fmt::format("{},{},{}", csvField(g.path), g.points, task.points);
    for (const Mark& m : g.marks) out += fmt::format(",{}", m.points);
    out += ',' + csvField(g.fault ? g.fault->in(o.language) : "") + "\r\n";
  }
  return out;
}

std::string asJson(const Task& task, const std::vector<Grade>& grades, const Options& o) {
  std::vector<std::string> elements;
  for (const Grade& g : grades) {
    Json one{{"path", g.path}, {"status", static_cast<int>(g.status)}, {"points", g.points}};
    if (g.fault) one["fault"] = g.fault->in(o.language);
    one["cases"] = Json::array();
    for (const Mark& m : g.marks) {
      Json mark{
          {"name", m.name}, {"hidden", m.hidden}, {"passed", m.passed}, {"points", m.points}, {"of", m.of}};
      mark["reasons"] = Json::array();
      for (const engine::Text& t : m.reasons) mark["reasons"].push_back(t.in(o.language));
      one["cases"].push_back(std::move(mark));
    }
    elements.push_back(dumped(one));
  }
  const Json head{{"format", "zelvaro-check-grades"},
                  {"formatVersion", 1},
                  {"version", ZELVARO_VERSION},
                  {"language", o.language == Language::Japanese ? "ja" : "en"},
                  {"title", task.title},
                  {"of", task.points}};
  return documentOf(head, "grades", elements);
}

std::string asJunit(const Task& task, const std::vector<Grade>& grades, const Options& o) {
  using Tree = boost::property_tree::ptree;
  Tree document;
  Tree& suites = document.add("testsuites", "");
  suites.put("<xmlattr>.name", xmlText(task.title));
  for (const Grade& g : grades) {
    Tree& suite = suites.add("testsuite", "");
    suite.put("<xmlattr>.name", xmlText(g.path));
    suite.put("<xmlattr>.tests", g.marks.size());
    suite.put("<xmlattr>.failures", std::ranges::count_if(g.marks, [](const Mark& m) { return !m.passed; }));
    for (const Mark& m : g.marks) {
      Tree& test = suite.add("testcase", "");
      test.put("<xmlattr>.classname", xmlText(g.path));
      test.put("<xmlattr>.name", xmlText(m.name));
      if (m.passed) continue;
      const std::string why = g.fault ? g.fault->in(o.language) : joined(m.reasons, o.language);
      test.add("failure", "").put("<xmlattr>.message", xmlText(why));
    }
  }
  std::ostringstream out;
  boost::property_tree::write_xml(out, document,
                                  boost::property_tree::xml_writer_settings<std::string>(' ', 1));
  return out.str();
}

}  // namespace

std::string gradesText(const Task& task, const std::vector<Grade>& grades, const Options& options) {
  switch (options.format) {
    case Format::Csv:
      return asCsv(task, grades, options);
    case Format::Json:
      return asJson(task, grades, options);
    case Format::Junit:
      return asJunit(task, grades, options);
    default:
      return asText(task, grades, options);
  }
}

RowList rowsOfGradeFormats() {
  return rows(ofPoints, failed, summary);
}

}  // namespace zelvaro::check
