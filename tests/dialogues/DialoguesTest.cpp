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
//     text            a line that comes after the line found last; "..." stands for any text
//   + text            the line directly after the line found last
//   ! text            a line that comes nowhere in the answer
//   " a | b           all that OUT has printed in the answer
//   define N          the lines that follow take the place of a line <N>
//
// A "=" directly after > ^ $ or ? means to the letter: no line is left out.  Texts of directives and typed
// lines know \n, \\ and \xFF.  "#" begins a comment.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "whole/Dialogue.h"

namespace zelvaro::test {
namespace {

using Lines = std::vector<std::string>;

struct Expected {
  char kind;  ///< as in the script
  std::string text;
  int line;
};

/// A look at an answer, or at a file.
struct Look {
  std::size_t answer;
  std::string file;  ///< empty: the answer itself
  bool toTheLetter;
  int line;
  std::vector<Expected> expected;
};

struct Script {
  std::string path, name;
  Lines directives, typed;
  std::vector<Look> looks;
};

bool isOneOf(char c, std::string_view all) {
  return all.find(c) != std::string_view::npos;
}

Lines cut(std::string_view text, std::string_view separator) {
  Lines out;
  for (std::size_t end; (end = text.find(separator)) != text.npos; text.remove_prefix(end + separator.size()))
    out.emplace_back(text.substr(0, end));
  out.emplace_back(text);
  return out;
}

std::string unescaped(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out += text[i];
    } else if (text[++i] == 'x') {
      out += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      out += text[i] == 'n' ? '\n' : text[i];
    }
  }
  return out;
}

std::string trimmed(const std::string& text) {
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

class Parser {
 public:
  std::vector<Script> scripts;

  explicit Parser(const std::string& path) {
    always_.path = path;
    std::ifstream in(path, std::ios::binary);
    for (std::string text; std::getline(in, text); ++line_)
      if (!text.starts_with("#")) parse(text.empty() ? "  " : text);
  }

 private:
  void parse(const std::string& text) {
    if (text.starts_with("== ")) {
      scripts.push_back(always_);
      scripts.back().name = text.substr(3);
      into_ = nullptr;
    } else if (isOneOf(text[0], ">^$? +!\"")) {
      Lines parts = cut(text, " => ");
      if (isOneOf(text[0], ">^$?"))
        look(scripts.back(), parts[0]);
      else
        expect(parts[0]);
      for (std::size_t i = 1; i < parts.size(); ++i)
        expect(isOneOf(parts[i][0], "+!\"") ? parts[i] : "  " + parts[i]);
    } else if (text.starts_with("define ")) {
      into_ = &defined_["<" + text.substr(7) + ">"];
      toTheLetter_ = true;
    } else {
      (scripts.empty() ? always_ : scripts.back()).directives.push_back(text);
    }
  }
  void look(Script& s, const std::string& text) {
    const char kind = text[0];
    toTheLetter_ = text.substr(1, 1) == "=";
    const std::string rest = trimmed(text.substr(toTheLetter_ ? 2 : 1));
    if (kind == '>')
      for (const std::string& part : cut(rest, "|")) s.typed.push_back(unescaped(trimmed(part)));
    std::size_t answer = s.typed.size() + (kind == '$' ? 1 : 0);
    if (kind == '^') answer = 0;
    if (kind == '?') answer = s.looks.back().answer;
    s.looks.push_back({answer, kind == '?' ? rest : "", toTheLetter_, line_, {}});
    into_ = &s.looks.back().expected;
  }
  void expect(const std::string& line) {
    char kind = toTheLetter_ ? '+' : line[0];
    const std::string text = line.substr(std::min<std::size_t>(line.size(), 2));
    if (into_ == nullptr || (text.empty() && kind == ' ')) return;
    const auto named = defined_.find(text);
    if (named == defined_.end()) return into_->push_back({kind, text, line_});
    for (const Expected& e : named->second) into_->push_back({std::exchange(kind, '+'), e.text, line_});
  }

  int line_ = 1;
  Script always_;
  std::map<std::string, std::vector<Expected>> defined_;
  std::vector<Expected>* into_ = nullptr;  ///< takes the next lines
  bool toTheLetter_ = true;
};

bool matches(std::string_view line, std::string_view pattern) {
  const std::size_t any = pattern.find("...");
  if (any == std::string_view::npos) return line == pattern;
  if (!line.starts_with(pattern.substr(0, any))) return false;
  for (std::size_t i = any; i <= line.size(); ++i)
    if (matches(line.substr(i), pattern.substr(any + 3))) return true;
  return false;
}

/// All that OUT has printed.
std::string outs(const Lines& lines) {
  std::string out;
  for (std::size_t i = 0; i + 1 < lines.size(); ++i)
    if (lines[i].starts_with("OS: Output by") || lines[i].starts_with("OS: マクロ命令( OUT )"))
      out += (out.empty() ? "" : " | ") + lines[i + 1];
  return out;
}

/// Reports the first line that is not as the script has it.
void compare(const Script& script, const Look& look, const Lines& lines) {
  std::size_t at = 0;
  const auto fail = [&](int line, const std::string& expected) {
    std::string shown = at == lines.size() ? "(nothing more)" : "";
    for (std::size_t i = at; i < lines.size(); ++i) shown += "  " + lines[i] + "\n";
    ADD_FAILURE_AT(script.path.c_str(), line)
        << script.name << "\nexpected " << expected << "\nshown from there:\n"
        << shown;
  };
  for (const auto& [kind, text, line] : look.expected) {
    std::size_t i = kind == '!' ? 0 : at;
    while (isOneOf(kind, " !") && i < lines.size() && !matches(lines[i], text)) ++i;
    const bool isFound = kind == '"' ? outs(lines) == text : i < lines.size() && matches(lines[i], text);
    if (isFound == (kind == '!')) return fail(line, std::string(1, kind) + " [" + text + "]");
    if (isOneOf(kind, " +")) at = i + 1;
  }
  if (look.toTheLetter && at < lines.size()) fail(look.line, "nothing more");
}

void prepare(WatchedPlatform& platform, const std::string& directive) {
  const std::size_t blank = directive.find(' '), colon = directive.find(": ");
  const std::string word = directive.substr(0, blank), rest = directive.substr(blank + 1);
  for (const std::string& name : cut(directive.substr(blank + 1, colon - blank - 1), "|")) {
    if (word == "file") platform.files[trimmed(name)] = unescaped(directive.substr(colon + 2));
    if (word == "edit") platform.editing[name] = unescaped(directive.substr(colon + 2));
  }
  if (word == "folder") platform.folders.insert(rest);
  if (word == "unwritable") platform.unwritable.insert(rest);
  if (word == "language") platform.japanese = rest == "ja";
  if (word == "ticks") platform.ticksPerCall = std::stoll(rest);
  if (word == "random") platform.random = std::stoi(rest);
}

void play(const Script& script) {
  Dialogue d;
  d.platform.files = samples();
  for (const std::string& directive : script.directives) prepare(d.platform, directive);
  d.run(script.typed);
  ASSERT_TRUE(d.platform.typed.empty()) << script.name << ": lines were left over";
  for (const Look& look : script.looks) {
    ASSERT_LT(look.answer, d.platform.answers.size()) << script.name << ": the program had ended";
    const auto& [shown, files] = d.platform.answers[look.answer];
    const auto file = files.find(look.file);
    const std::string text = look.file.empty()     ? shown
                             : file == files.end() ? "(no such file)\n"
                                                   : file->second;
    Lines lines = cut(text, "\n");
    if (lines.back().empty()) {
      lines.pop_back();
    } else {
      lines.back() += "(no line end)";
    }
    compare(script, look, lines);
  }
}

TEST(Dialogues, GoAsTheScriptsHaveThem) {
  std::size_t count = 0;
  for (const auto& e : std::filesystem::directory_iterator(ZELVARO_ROOT "/tests/dialogues")) {
    if (e.path().extension() != ".dialogue") continue;
    const Parser parser(e.path().string());
    for (const Script& script : parser.scripts) play(script);
    count += parser.scripts.size();
  }
  EXPECT_GE(count, 40u);
}

}  // namespace
}  // namespace zelvaro::test
