#include "shell/Settings.h"

#include <algorithm>
#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <sstream>
#include <utility>

#include "MoziCode/Utf.h"
#include "diag/FailureWords.h"
#include "shell/Prompt.h"

namespace zelvaro {
namespace {

using Tree = boost::property_tree::ptree;

// Messages about the file are in both languages: the user's language may be what could not be read.
constexpr Message doesNotParse{
    "settings-not-parsed",
    Severity::Notice,
    Head::None,
    args("path", "nr", "reason"),
    {.ja = "設定ファイル {path} の {nr} 行目を読み取れません： {reason}",
     .en = "Line {nr} of the settings file {path} cannot be understood: {reason}"}};
constexpr Message doesNotOpen{"settings-not-opened",
                              Severity::Notice,
                              Head::None,
                              args("path", "reason"),
                              {.ja = "設定ファイル {path} を読み込めません： {reason}",
                               .en = "The settings file {path} cannot be read: {reason}"}};
constexpr Message tooLarge{"settings-too-large",
                           Severity::Notice,
                           Head::None,
                           args("path"),
                           {.ja = "設定ファイル {path} は 1 MiB を超えているので読み込みません。",
                            .en = "The settings file {path} is not read, because it is larger than 1 MiB."}};
constexpr Message keptAside{
    "settings-set-aside",
    Severity::Notice,
    Head::None,
    args("kept"),
    {.ja = "それを {kept} という名前で残し、初期設定に置きかえて続けます。",
     .en = "It is kept under the name {kept}, and a file of default settings takes its place."}};
constexpr Message notKeptAside{"settings-not-set-aside",
                               Severity::Notice,
                               Head::None,
                               args("kept", "reason"),
                               {.ja = "{kept} という名前で残すことはできませんでした： {reason}",
                                .en = "It could not be kept under the name {kept}: {reason}"}};
constexpr Message leftAlone{
    "settings-left-alone",
    Severity::Notice,
    Head::None,
    args(),
    {.ja = "それはそのまま残し、初期設定で続けます。 終了するときも設定は保存しません。",
     .en = "It stays as it is, and default settings are used. No settings are saved at the end."}};
constexpr Message doesNotWrite{
    "settings-not-written",
    Severity::Notice,
    Head::None,
    args("path", "reason"),
    {.ja = "設定ファイル {path} に書き込めません： {reason}\n今の設定は保存されません。",
     .en = "The settings file {path} cannot be written: {reason}\nThe present settings are not saved."}};

template <std::size_t N, class... Arg>
void report(TSession& s, const Message<N>& row, const Arg&... arg) {
  for (const Language language : {Language::Japanese, Language::English})
    s.platform.print(words({language, s.wording.family}, row, arg...) + "\n");
}

Language languageOf(bool japanese) {
  return japanese ? Language::Japanese : Language::English;
}

/// A value for the file.  A value with a control character would break its line and is replaced by
/// `otherwise`.
std::string storable(const std::string& value, std::string_view otherwise) {
  const bool control = std::any_of(value.begin(), value.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
  return control ? std::string(otherwise) : value;
}

/// The values of a settings file.
struct Settings {
  Language language = Language::English;
  std::string FightFunc = "WP";
  std::string TimeFuncStr = "QPC";
  int TimeFuncInt = 0;
  std::string LastSrcFile = "src\\pn1000.txt";
  int SimpleTitleIndex = 0;
  int BusyModeIndex = 1;
  std::string SilentModeIndex = "0";
  int TextEditorIndex = 0;
  std::string TextEditorPath1;
  std::string TextEditorPath2;
};

/// The keys in the order of the file.  All values are read and written as text: the tree's own conversions
/// treat a lack of memory as a value that is not a number.
Tree treeOf(const Settings& v) {
  Tree tree;
  tree.put("Mode.LangStr", v.language == Language::Japanese ? "JPN" : "ENU");
  tree.put("Mode.LangInt", v.language == Language::Japanese ? "0" : "1");
  tree.put("Mode.FightFunc", v.FightFunc);
  tree.put("Mode.TimeFuncStr", v.TimeFuncStr);
  tree.put("Mode.TimeFuncInt", std::to_string(v.TimeFuncInt));
  tree.put("Src.LastSrcFile", v.LastSrcFile);
  tree.put("Mode.SimpleTitleIndex", std::to_string(v.SimpleTitleIndex));
  tree.put("Mode.BusyModeIndex", std::to_string(v.BusyModeIndex));
  tree.put("Mode.SilentModeIndex", v.SilentModeIndex);
  tree.put("Editor.TextEditorIndex", std::to_string(v.TextEditorIndex));
  tree.put("Editor.TextEditorPath1", v.TextEditorPath1);
  tree.put("Editor.TextEditorPath2", v.TextEditorPath2);
  return tree;
}

Tree defaultTree(TSession& s) {
  Settings v;
  v.language = languageOf(s.platform.userInterfaceIsJapanese());
  return treeOf(v);
}

/// 0 and 1 are unchanged, any other value becomes 0.
int zeroOrOne(int value) {
  return value == 1 ? 1 : 0;
}

Tree currentTree(TSession& s) {
  Settings v;
  v.language = s.wording.language;
  v.FightFunc = storable(s.sh.FightFunc, v.FightFunc);
  v.TimeFuncStr = s.timeData.ClockName;
  v.TimeFuncInt = s.timeData.ClockIndex;
  v.LastSrcFile = storable(s.sh.LastSrcFile, "");
  if (v.LastSrcFile.empty()) v.LastSrcFile = "src\\list792j.txt";
  v.SimpleTitleIndex = s.b.SimpleTitleIndex = zeroOrOne(s.b.SimpleTitleIndex);
  v.BusyModeIndex = s.b.BusyModeIndex = zeroOrOne(s.b.BusyModeIndex);
  v.SilentModeIndex = "false";  // not a number, so it counts as absent when it is read
  v.TextEditorIndex = s.sh.TextEditorIndex;
  v.TextEditorPath1 = storable(s.b.TextEditorPath[1], "");
  v.TextEditorPath2 = storable(s.b.TextEditorPath[2], "");
  return treeOf(v);
}

constexpr std::size_t kMostBytes = std::size_t{1} << 20;  ///< of a settings file

/// Writes a file.  Returns false, with the cause in `failure`.
bool write(Platform& platform, const std::string& path, std::string_view bytes, FileWriting how,
           FileFailure& failure) {
  const auto file = platform.createFile(path, &failure, how);
  if (!file) return false;
  file->write(bytes);
  const bool done = file->commit();
  failure = file->failure();
  return done;
}

void writeTree(TSession& s, const std::string& path, const Tree& tree) {
  std::ostringstream text;
  text.exceptions(std::ios::badbit);  // otherwise a lack of memory would silently cut the text
  boost::property_tree::write_ini(text, tree);
  FileFailure failure;
  if (!write(s.platform, path, text.view(), {.synced = true, .isText = true}, failure))
    report(s, doesNotWrite, path, failureWords(failure));
}

/// A file that cannot be read or parsed is not written at the end either.
void leaveAlone(TSession& s) {
  s.iniIsLeftAlone = true;
  report(s, leftAlone);
}

/// Saves the bytes of a file that does not parse under the first unused backup name and writes a default file
/// in its place.  Another program that does the same at the same time uses the next name.
void keepAside(TSession& s, const std::string& path, const std::string& bytes) {
  constexpr int kMostKept = 100;
  FileFailure failure;
  std::string kept;
  for (int i = 1; i <= kMostKept; ++i) {
    kept = path + ".bak" + (i > 1 ? std::to_string(i) : "");
    if (write(s.platform, kept, bytes, {.synced = true, .replaces = false}, failure)) {
      report(s, keptAside, kept);
      return WriteDefaultIni(s, path);
    }
    if (failure.kind != FileFailure::Kind::Exists) break;
  }
  report(s, notKeptAside, kept, failureWords(failure));
  leaveAlone(s);
}

Tree parsed(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  Tree tree;
  std::istringstream text{std::string(bytes)};
  text.exceptions(std::ios::badbit);
  boost::property_tree::read_ini(text, tree);
  return tree;
}

/// The tree of the file, or the default one if the file cannot be used.
Tree readTree(TSession& s, const std::string& path) {
  FileFailure failure;
  const std::optional<std::string> bytes = s.platform.readFile(path, &failure, kMostBytes);
  s.iniIsLeftAlone = false;
  if (bytes) {
    try {
      return parsed(*bytes);
    } catch (const boost::property_tree::ini_parser_error& e) {
      report(s, doesNotParse, path, e.line(), e.message());
    }
    keepAside(s, path, *bytes);
  } else if (failure.kind == FileFailure::Kind::Missing) {
    WriteDefaultIni(s, path);
  } else {
    if (failure.kind == FileFailure::Kind::TooLarge) {
      report(s, tooLarge, path);
    } else {
      report(s, doesNotOpen, path, failureWords(failure));
    }
    leaveAlone(s);
  }
  return defaultTree(s);
}

std::string textOf(const Tree& tree, const char* key, const std::string& otherwise) {
  return tree.get(key, otherwise);
}

/// The number, or `otherwise` if it is absent or not a number.
int numberOf(const Tree& tree, const char* key, int otherwise) {
  const std::string text = textOf(tree, key, "");
  const std::optional<long> number = text.empty() ? std::nullopt : decimalNumber(text);
  return number && std::in_range<int>(*number) ? static_cast<int>(*number) : otherwise;
}

void take(const Tree& tree, const char* key, int& value) {
  value = numberOf(tree, key, value);
}
void take(const Tree& tree, const char* key, std::string& value) {
  value = textOf(tree, key, value);
}

/// If two keys set the same value, the later one wins, so the order matters.
void takeSettings(TSession& s, const Tree& tree) {
  s.wording.language = languageOf(textOf(tree, "Mode.LangStr", "ENU") == "JPN");
  s.sh.FightFunc = textOf(tree, "Mode.FightFunc", "WP");
  s.timeData.SetClockByName(textOf(tree, "Mode.TimeFuncStr", "QPC"));
  s.timeData.SetClockByIndex(numberOf(tree, "Mode.TimeFuncInt", 0));
  s.sh.TextEditorIndex = numberOf(tree, "Editor.TextEditorIndex", 0);
  s.b.SetTextEdIndex(s.sh.TextEditorIndex);
  take(tree, "Editor.TextEditorPath1", s.b.TextEditorPath[1]);
  take(tree, "Editor.TextEditorPath2", s.b.TextEditorPath[2]);
  take(tree, "Mode.SilentModeIndex", s.modeData.SilentModeIndex);
  take(tree, "Mode.BusyModeIndex", s.modeData.BusyModeIndex);
  s.b.BusyModeIndex = zeroOrOne(s.modeData.BusyModeIndex);
  take(tree, "Mode.SimpleTitleIndex", s.modeData.SimpleTitleIndex);
  s.b.SimpleTitleIndex = zeroOrOne(s.modeData.SimpleTitleIndex);
  s.sh.LastSrcFile = textOf(tree, "Src.LastSrcFile", "src\\pn1000");
  s.b.SrcFilename = s.sh.LastSrcFile;
}

}  // namespace

void ReadIni(TSession& s, const std::string& path) {
  takeSettings(s, readTree(s, path));
}

void WriteIni(TSession& s, const std::string& path) {
  if (s.iniIsLeftAlone && s.platform.exists(path)) return;
  writeTree(s, path, currentTree(s));
}

void WriteDefaultIni(TSession& s, const std::string& path) {
  writeTree(s, path, defaultTree(s));
}

RowList rowsOfSettings() {
  return rows(doesNotParse, doesNotOpen, tooLarge, keptAside, notKeptAside, leftAlone, doesNotWrite);
}

}  // namespace zelvaro
