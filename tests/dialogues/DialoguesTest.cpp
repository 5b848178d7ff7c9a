// Plays the scripts tests/dialogues/*.dialogue.  A line of a script begins with what it is:
//
//   == name           a case.  Directives before the first case hold for every case of the file
//   file N | N: text  a file that is there before; the samples of workspace/src always are
//   edit N: text      what the file holds once it has been edited
//   folder N, unwritable N, language ja, random N, ticks N (microseconds from look to look at a clock)
//   > a | b           typed lines; what follows is about the answer to the last one
//   ^                 what is shown before anything is typed;  $ what follows the end of the input
//   ? N               the file as it was at the end of that answer
//   > a => x => + y   the same as lines of their own
//     text            a line that comes after the line found last; "..." is any text
//   + text            the line directly after the line found last
//   ! text            a line that comes nowhere in the answer
//   define N          the lines that follow take the place of a line <N>
//
// A "=" directly after > ^ $ or ? means to the letter: no line is left out.  Texts of directives and typed
// lines have the escapes of support/Texts.h.  "#" begins a comment.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "shell/ShellRows.h"
#include "support/Dialogue.h"
#include "support/Texts.h"

namespace zelvaro::test {
namespace {

using Lines = std::vector<std::string>;

/// A line that is expected, as the script has it.
struct Expected {
  char kind;
  std::string text;
  int line;
};

/// A look at an answer, or at a file.
struct Look {
  std::size_t answer = 0;
  std::string file;  ///< empty: the answer itself
  bool toTheLetter = true;
  int line = 0;
  std::vector<Expected> expected;
};

struct Script {
  std::string name;
  Lines directives, typed;
  std::vector<Look> looks;
};

bool isOneOf(char c, std::string_view all) {
  return all.find(c) != std::string_view::npos;
}

class Parser {
 public:
  std::vector<Script> scripts{{}};  ///< the first one has the directives of all

  explicit Parser(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    for (std::string text; std::getline(in, text); ++line_)
      if (!text.starts_with("#")) parse(text.empty() ? "  " : text);
  }

 private:
  void parse(const std::string& text) {
    if (text.starts_with("== ")) {
      scripts.push_back({text.substr(3), scripts[0].directives, {}, {}});
    } else if (text.starts_with("define ")) {
      look_ = &defined_["<" + text.substr(7) + ">"];
    } else if (!isOneOf(text[0], ">^$? +!")) {
      scripts.back().directives.push_back(text);
    } else {
      Lines parts = cut(text, " => ");
      isOneOf(text[0], ">^$?") ? look(parts[0]) : expect(parts[0]);
      for (std::size_t i = 1; i < parts.size(); ++i)
        expect(isOneOf(parts[i][0], "+!") ? parts[i] : "  " + parts[i]);
    }
  }
  void look(const std::string& text) {
    Script& s = scripts.back();
    const bool toTheLetter = text.substr(1, 1) == "=";
    const Lines rest = cut(text.substr(toTheLetter ? 2 : 1), "|", true);
    if (text[0] == '>')
      for (const std::string& part : rest) s.typed.push_back(unescaped(part));
    std::size_t answer = text[0] == '^' ? 0 : s.typed.size() + (text[0] == '$' ? 1 : 0);
    if (text[0] == '?') answer = s.looks.back().answer;
    s.looks.push_back({answer, text[0] == '?' ? rest[0] : "", toTheLetter, line_, {}});
    look_ = &s.looks.back();
  }
  void expect(const std::string& line) {
    char kind = look_->toTheLetter ? '+' : line[0];
    const std::string text = line.substr(std::min<std::size_t>(line.size(), 2));
    if (text.empty() && kind == ' ') return;
    const auto named = defined_.find(text);
    if (named == defined_.end()) return look_->expected.push_back({kind, text, line_});
    for (const Expected& e : named->second.expected)
      look_->expected.push_back({std::exchange(kind, '+'), e.text, line_});
  }

  int line_ = 1;
  std::map<std::string, Look> defined_;
  Look* look_ = nullptr;  ///< takes the next lines
};

bool matches(std::string_view line, std::string_view pattern) {
  const std::size_t any = pattern.find("...");
  if (any == std::string_view::npos) return line == pattern;
  if (!line.starts_with(pattern.substr(0, any))) return false;
  for (std::size_t i = any; i <= line.size(); ++i)
    if (matches(line.substr(i), pattern.substr(any + 3))) return true;
  return false;
}

/// Reports the first line that is not as the script has it: what was expected and what is shown.
void compare(const std::string& path, const Look& look, const Lines& lines) {
  std::size_t at = 0;
  const auto fail = [&](int line, const std::string& expected) {
    std::string shown = at == lines.size() ? "(nothing more)" : "";
    for (std::size_t i = at; i < lines.size(); ++i) shown += "  " + lines[i] + "\n";
    ADD_FAILURE_AT(path.c_str(), line) << "expected " << expected << "\nshown from there:\n" << shown;
  };
  for (const auto& [kind, text, line] : look.expected) {
    std::size_t i = kind == '!' ? 0 : at;
    while (isOneOf(kind, " !") && i < lines.size() && !matches(lines[i], text)) ++i;
    const bool isFound = i < lines.size() && matches(lines[i], text);
    if (isFound == (kind == '!')) return fail(line, std::string(1, kind) + " [" + text + "]");
    if (isOneOf(kind, " +")) at = i + 1;
  }
  if (look.toTheLetter && at < lines.size()) fail(look.line, "nothing more");
}

void prepare(WatchedPlatform& platform, const std::string& directive) {
  const std::size_t blank = directive.find(' '), colon = std::min(directive.find(": "), directive.size());
  const std::string word = directive.substr(0, blank), name = directive.substr(blank + 1, colon - blank - 1);
  const std::string text = colon == directive.size() ? "" : unescaped(directive.substr(colon + 2));
  if (word == "file") {
    for (const std::string& each : cut(name, "|", true)) platform.files[each] = text;
  } else if (word == "edit") {
    platform.editing[name] = text;
  } else if (word == "folder" || word == "unwritable") {
    (word == "folder" ? platform.folders : platform.unwritable).insert(name);
  } else if (word == "ticks") {
    platform.ticksPerCall = std::stoll(name);
  } else if (word == "random") {
    platform.random = std::stoi(name);
  } else {
    ASSERT_EQ(directive, "language ja");
    platform.japanese = true;
  }
}

/// Keeps the codes of what is issued.
struct CodesIssued : DiagSink {
  std::set<std::string, std::less<>> codes;
  void take(const Diagnostic& d) override { codes.emplace(d.row->code); }
};

const std::string kNoFile = "(no such file)\n";

void play(const std::string& path, const Script& script, CodesIssued& issued) {
  SCOPED_TRACE(script.name);
  Dialogue d;
  d.alsoTakes = &issued;
  d.platform.files = samples();
  for (const std::string& directive : script.directives) prepare(d.platform, directive);
  d.run(script.typed);
  ASSERT_TRUE(d.platform.typed.empty()) << "lines were left over";
  for (const Look& look : script.looks) {
    ASSERT_LT(look.answer, d.platform.answers.size()) << "the program had ended";
    const auto& [shown, files] = d.platform.answers[look.answer];
    const auto file = files.find(look.file);
    const std::string& text = look.file.empty() ? shown : file == files.end() ? kNoFile : file->second;
    Lines lines = cut(text, "\n");
    lines.back().empty() ? lines.pop_back() : void(lines.back() += "(no line end)");
    compare(path, look, lines);
  }
}

/// Rows of the shell that need surroundings which no script has: files and folders that refuse, a lack of memory,
/// programs that do not start, a terminal, a desktop.
constexpr char kOfOtherTests[] =
    "memory-lacking self-folder-not-recorded self-folder-unknown guide-on-desktop page-prompt settings-not-opened "
    "settings-left-alone settings-not-parsed settings-set-aside settings-not-written settings-too-large settings-not-set-aside "
    "folder-not-listed file-not-there deleted not-deleted not-shown editor-not-started document-not-opened "
    "document-place";

TEST(Dialogues, GoAsTheScriptsHaveThem) {
  std::size_t count = 0;
  CodesIssued issued;
  for (const auto& e : std::filesystem::directory_iterator(ZELVARO_ROOT "/tests/dialogues")) {
    if (e.path().extension() != ".dialogue") continue;
    for (const Script& script : Parser(e.path().string()).scripts) play(e.path().string(), script, issued);
    ++count;
  }
  EXPECT_EQ(count, 7u);
  for (const std::string& code : cut(kOfOtherTests, " ")) issued.codes.insert(code);
  for (const MessageRow* row : shellRows()) EXPECT_TRUE(issued.codes.contains(row->code)) << row->code;
}

}  // namespace
}  // namespace zelvaro::test
