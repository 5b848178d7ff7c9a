#include "SourceJson.h"

#include <algorithm>

#include "Completed.h"
#include "MoziCode/Utf.h"
#include "check/Hints.h"

namespace zelvaro::web {
namespace {

const char* nameOf(Severity severity) {
  constexpr const char* kNames[] = {"error", "warning", "note", "memo", "notice"};
  return kNames[static_cast<std::size_t>(severity)];
}

const char* nameOf(engine::Encoding encoding) {
  constexpr const char* kNames[] = {"auto", "utf-8", "cp932", "utf-16"};
  return kNames[static_cast<std::size_t>(encoding)];
}

const char* nameOf(engine::Outcome outcome) {
  constexpr const char* kNames[] = {"assembled", "faulty", "notLoaded", "noMemory"};
  return kNames[static_cast<std::size_t>(outcome)];
}

/// UTF-16 units of the first code points of a text; of all of them if `count` is negative.
int unitsOf(std::string_view utf8, int count) {
  int units = 0;
  for (const char c : utf8) {
    if (isContinuation(c)) continue;
    if (count-- == 0) break;
    units += static_cast<unsigned char>(c) >= 0xF0 ? 2 : 1;
  }
  return units;
}

void putPlace(Json& out, int line, int column, int length, const Lines& lines) {
  const auto index = static_cast<std::size_t>(line) - 1;
  const std::string_view text = index < lines.size() ? std::string_view(lines[index]) : std::string_view();
  out.member("line", line);
  out.member("column", column);
  out.member("length", length);
  out.member("from", column > 0 ? unitsOf(text, column - 1) : 0);
  out.member("to", unitsOf(text, column > 0 ? column - 1 + length : -1));
}

void putTallies(Json& out, const engine::Tallies& t) {
  out.key("tallies");
  out.begin('{');
  out.member("errors", t.errors);
  out.member("warnings", t.warnings);
  out.member("notes", t.notes);
  out.member("memos", t.memos);
  out.end('}');
}

void putHint(Json& out, const check::Remark& r, const Lines& lines) {
  out.member("code", r.code);
  putPlace(out, r.line, r.column, r.length, lines);
  out.member("text", r.text);
}

/// The findings of a completed copy that belong to a line of the source and that the source itself has not.
void putWhenComplete(Json& out, const engine::Assembled& a, const Lines& lines, std::string_view utf8) {
  out.key("whenComplete");
  const Completed copy = a.ok() ? Completed{} : completed(utf8);
  if (copy.added.empty()) return out.null();

  engine::Options options = a.options();
  options.encoding = engine::Encoding::Utf8;
  const engine::Assembled whole = engine::assemble(copy.text, options);
  const auto lineOf = [&](int line) {
    return line > 0 && line <= static_cast<int>(copy.lineOf.size())
               ? copy.lineOf[static_cast<std::size_t>(line) - 1]
               : 0;
  };
  const auto known = a.findings();
  std::vector<engine::Finding> findings;
  for (engine::Finding f : whole.findings()) {
    f.line = lineOf(f.line);
    f.secondLine = lineOf(f.secondLine);
    const auto isSame = [&](const engine::Finding& k) { return k.code == f.code && k.line == f.line; };
    if (f.line > 0 && f.severity != Severity::Notice && std::none_of(known.begin(), known.end(), isSame))
      findings.push_back(std::move(f));
  }
  std::vector<check::Remark> hints = check::sourceHints(whole);
  for (check::Remark& h : hints) h.line = lineOf(h.line);

  out.begin('{');
  out.list("added", copy.added);
  putTallies(out, whole.tallies());
  out.objects("findings", findings, [&](const auto& f) { putFinding(out, f, lines); });
  out.objects("hints", hints, [&](const auto& h) { putHint(out, h, lines); });
  out.end('}');
}

}  // namespace

void putFinding(Json& out, const engine::Finding& f, const Lines& lines) {
  out.member("code", f.code);
  out.member("severity", nameOf(f.severity));
  out.member("counted", f.counted);
  out.member("continues", f.continues);
  putPlace(out, f.line, f.column, f.length, lines);
  out.member("secondLine", f.secondLine);
  out.member("quoted", f.quoted);
  out.member("text", f.text);
  out.member("printed", f.printed);
}

void putCheck(Json& out, const engine::Assembled& a, const Lines& lines, std::string_view utf8) {
  out.member("outcome", nameOf(a.outcome()));
  out.member("encoding", nameOf(a.encoding()));
  out.member("encodingName", a.encodingName());
  putTallies(out, a.tallies());
  out.objects("findings", a.findings(), [&](const auto& f) { putFinding(out, f, lines); });
  out.member("findingsLeftOut", a.findingsLeftOut());
  out.objects("hints", check::sourceHints(a), [&](const auto& h) { putHint(out, h, lines); });
  out.objects("programs", a.programs(), [&](const engine::Program& p) {
    out.member("name", p.name);
    out.member("address", p.address);
    out.member("size", p.size);
    out.member("startLine", p.startLine);
    out.member("endLine", p.endLine);
  });
  out.objects("labels", a.labels(), [&](const engine::Label& l) {
    out.member("program", l.program);
    out.member("name", l.name);
    out.member("address", l.address);
    out.member("line", l.line);
  });
  putWhenComplete(out, a, lines, utf8);
}

void putListing(Json& out, const engine::Assembled& a, const Lines& lines) {
  out.list("lines", lines);
  out.objects("listing", a.listing(), [&](const engine::ListingRow& r) {
    out.member("program", r.program);
    out.member("line", r.line);
    out.member("address", r.address);
    out.list("words", r.words);
    out.member("label", r.label);
    out.member("opcode", r.opcode);
    out.member("operands", r.operands);
    out.member("text", r.text);
  });
  out.objects("literals", a.literals(), [&](const engine::LiteralRow& r) {
    out.member("program", r.program);
    out.member("line", r.line);
    out.member("address", r.address);
    out.list("words", r.words);
    out.member("label", "");
    out.member("opcode", "");
    out.member("operands", "");
    out.member("text", r.text);
  });
  out.list("image", a.image());
}

}  // namespace zelvaro::web
