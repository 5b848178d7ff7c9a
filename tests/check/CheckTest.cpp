// The built program, or the one that the variable ZELVARO_CHECK names, command line by command line: check.cases, whose
// head explains the form.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <vector>

#include "platform/TemporaryFolder.h"

namespace zelvaro::test {
namespace {

using Files = std::map<std::string, std::string>;

std::string contentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// Turns \n, \r, \t, \\ and \xHH into what they stand for.
std::string unescaped(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out += text[i];
    } else if (const char kind = text[++i]; kind == 'x') {
      out += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      out += kind == 'n' ? '\n' : kind == 'r' ? '\r' : kind == 't' ? '\t' : kind;
    }
  }
  return out;
}

std::vector<std::string> fieldsOf(const std::string& line) {
  std::vector<std::string> out;
  for (std::size_t from = 0, end = 0; end != line.npos; from = end + 4) {
    end = line.find(" => ", from);
    out.push_back(line.substr(from, end - from));
    if (end == line.npos) break;
  }
  return out;
}

/// One command in a folder of its own with all files.
class Played {
 public:
  Played(const std::string& command, const Files& files) {
    for (const auto& [name, text] : files)
      std::ofstream(folder_.path() + "/" + name, std::ios::binary) << text;
    std::ofstream(folder_.path() + "/run.sh")
        << "export LC_ALL=C.UTF-8 TERM=xterm ROOT='" ZELVARO_ROOT
           "'\nunset NO_COLOR\nZ=${ZELVARO_CHECK:-'" ZELVARO_CHECK "'}\nz() { \"$Z\" \"$@\"; }\n{ "
        << command << "\n} >.out 2>.err\n";
    const std::string run = "cd '" + folder_.path() + "' && sh run.sh </dev/null";
    status = WEXITSTATUS(std::system(run.c_str()));
  }
  /// What a word of an expectation names: out, err, or a file.
  std::string content(const std::string& name) const {
    return contentOf(folder_.path() + "/" + (name == "out" || name == "err" ? "." + name : name));
  }
  /// An expectation is "NAME= text", the whole content; "NAME~ text", a part of it; "NAME! text", no part of it.
  std::string faultOf(const std::string& expectation) const {
    const std::size_t sign = expectation.find_first_of("=~!");
    const std::string text = unescaped(expectation.substr(std::min(sign + 2, expectation.size())));
    const std::string is = content(expectation.substr(0, sign));
    const bool isPart = is.find(text) != is.npos;
    const bool holds = expectation[sign] == '=' ? is == text : isPart == (expectation[sign] == '~');
    return holds ? "" : expectation + "\n--- is:\n" + is;
  }

  int status = -1;

 private:
  TemporaryFolder folder_;
};

/// Under wine the terminal is a console, which sends sequences of its own; who has no reader any more finds out at the
/// next write; and a link of the machine is no link for the program.
bool isNotForWine(const std::string& line) {
  return line.find("script -qec") != line.npos || line.find("| { head -1") != line.npos ||
         line.find("ln -s") != line.npos;
}

/// Plays those cases that process several files at once, or the others; returns how many.
int play(bool atOnce) {
  const std::string name = ZELVARO_ROOT "/tests/check/check.cases";
  std::ifstream in(name);
  Files files;
  int cases = 0, number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (line.empty() || line[0] == '#') continue;
    if (const std::size_t equals = line.find(" := "); equals != line.npos) {
      files[line.substr(0, equals)] = unescaped(line.substr(equals + 4));
      continue;
    }
    const std::vector<std::string> fields = fieldsOf(line);
    if (std::getenv("ZELVARO_CHECK") != nullptr && isNotForWine(line)) continue;
    if ((line.find("--jobs") != line.npos) != atOnce || fields.size() < 2) continue;
    const Played played(fields[0], files);
    if (std::to_string(played.status) != fields[1])
      ADD_FAILURE_AT(name.c_str(), number) << "status " << played.status << "\n"
                                           << played.content("out") << played.content("err");
    for (std::size_t i = 2; i < fields.size(); ++i)
      if (const std::string fault = played.faultOf(fields[i]); !fault.empty())
        ADD_FAILURE_AT(name.c_str(), number) << fault;
    ++cases;
  }
  return cases;
}

TEST(Check, DoesWhatTheCasesSay) {
  EXPECT_GT(play(false), 150);
}

TEST(CheckJobs, DoWhatTheCasesSay) {
  EXPECT_GE(play(true), 5);
}

}  // namespace
}  // namespace zelvaro::test
