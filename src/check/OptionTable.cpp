#include "check/OptionTable.h"

#include <array>
#include <charconv>
#include <limits>

namespace zelvaro::check {
namespace {

template <class Value>
struct Choice {
  std::string_view name;
  Value value;
};

constexpr std::array kLanguages{Choice<Language>{"en", Language::English},
                                Choice<Language>{"ja", Language::Japanese}};
constexpr std::array kEncodings{Choice<engine::Encoding>{"auto", engine::Encoding::Auto},
                                Choice<engine::Encoding>{"utf-8", engine::Encoding::Utf8},
                                Choice<engine::Encoding>{"cp932", engine::Encoding::Cp932},
                                Choice<engine::Encoding>{"utf-16", engine::Encoding::Utf16}};
constexpr std::array kFormats{Choice<Format>{"text", Format::Text}, Choice<Format>{"gnu", Format::Gnu},
                              Choice<Format>{"json", Format::Json}, Choice<Format>{"sarif", Format::Sarif},
                              Choice<Format>{"csv", Format::Csv},   Choice<Format>{"junit", Format::Junit}};
constexpr std::array kColors{Choice<ColorChoice>{"auto", ColorChoice::Auto},
                             Choice<ColorChoice>{"always", ColorChoice::Always},
                             Choice<ColorChoice>{"never", ColorChoice::Never}};

/// Sets a member to the value of that name.
template <auto Member, auto& Choices>
bool choose(Options& o, const std::string& name) {
  for (const auto& choice : Choices) {
    if (choice.name != name) continue;
    o.*Member = choice.value;
    return true;
  }
  return false;
}

bool choosePipeline(Options& o, const std::string& name) {
  const Family* family = findFamily(name);
  if (family != nullptr) o.pipeline = family->id;
  return family != nullptr;
}

template <auto Member>
bool flag(Options& o, const std::string&) {
  return o.*Member = true;
}

/// A text that is not empty: a name of a file, a folder, a code or a place.
template <auto Member>
bool text(Options& o, const std::string& value) {
  o.*Member = value;
  return !value.empty();
}

/// A whole number in decimal, from Least to Most.
template <auto Member, std::int64_t Least, std::int64_t Most>
bool number(Options& o, const std::string& value) {
  std::int64_t n = 0;
  const char* const end = value.data() + value.size();
  const auto [rest, error] = std::from_chars(value.data(), end, n);
  if (error != std::errc() || rest != end || n < Least || n > Most) return false;
  using Value = std::remove_reference_t<decltype(o.*Member)>;
  o.*Member = static_cast<Value>(n);
  return true;
}

constexpr std::int64_t kAny = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMostJobs = 256;
constexpr std::int64_t kMostLast = 1'000'000;

// clang-format off
constexpr std::array kOptions{
  OptionRow{"--lang", "en|ja",
    {"メッセージの言語（指定がなければロケールに従う）", "language of messages; default from the locale"},
    choose<&Options::language, kLanguages>},
  OptionRow{"--pipeline", "WP|NWW|NwW|NaW|AP|NA|NH",
    {"パイプライン（指定がなければ WP）", "pipeline; WP by default"}, choosePipeline},
  OptionRow{"--encoding", "auto|utf-8|cp932|utf-16",
    {"ソースの文字コード（auto は自動判定）", "encoding of the sources; auto detects it"},
    choose<&Options::encoding, kEncodings>},
  OptionRow{"--format", "text|gnu|json|sarif",
    {"出力の形式（--grade では text, json, csv, junit）", "form of the results; with --grade text, json, csv or junit"},
    choose<&Options::format, kFormats>},
  OptionRow{"--output", "FILE",
    {"文書（text と gnu 以外の形式）を書くファイル（指定がなければ標準出力）", "where a document goes, any form but text and gnu; standard output by default"},
    text<&Options::output>},
  OptionRow{"--run", "",
    {"アセンブルできたプログラムを実行する", "runs what was assembled"}, flag<&Options::run>},
  OptionRow{"--input", "FILE",
    {"IN が読む行のファイル", "file with the lines for IN"}, text<&Options::input>},
  OptionRow{"--max-steps", "N",
    {"実行する命令数の上限（指定がなければ 1 億、0 は無制限）", "limit of steps; 100 million by default, 0 for none"},
    number<&Options::maxSteps, 0, kAny>},
  OptionRow{"--expect", "FILE",
    {"OUT の出力をファイルと比べる", "compares what OUT writes with the file"}, text<&Options::expect>},
  OptionRow{"--listing", "",
    {"アセンブルリストを表示する", "prints an assembler listing"}, flag<&Options::listing>},
  OptionRow{"--report-dir", "DIR",
    {"実行前と実行後のレポートを書くフォルダ", "folder for the reports before and after the run"}, text<&Options::reportDir>},
  OptionRow{"--trace", "",
    {"実行した命令と変化を 1 行ずつ表示する", "prints a line for each step and what it changed"}, flag<&Options::trace>},
  OptionRow{"--last", "N",
    {"トレースのうち停止前の N 行だけを表示する", "only the last N lines of the trace before the stop"},
    number<&Options::last, 1, kMostLast>},
  OptionRow{"--from", "PLACE",
    {"この番地からトレースする（LABEL, PROG.LABEL, 16, 0x10）", "traces from here on: LABEL, PROG.LABEL, 16 or 0x10"}, text<&Options::from>},
  OptionRow{"--until", "PLACE",
    {"この番地までトレースする", "traces up to here"}, text<&Options::until>},
  OptionRow{"--hints", "",
    {"誤りの原因についてのヒントを加える", "adds hints on what may be the cause of a fault"}, flag<&Options::hints>},
  OptionRow{"--grade", "TASK.toml",
    {"課題のファイルに従って採点する", "marks the files by a task"}, text<&Options::grade>},
  OptionRow{"--jobs", "N",
    {"同時に処理するファイルの数", "files that are processed at once"}, number<&Options::jobs, 1, kMostJobs>},
  OptionRow{"--watch", "",
    {"ファイルが変わるたびに調べ直す（Ctrl+C で終わる）", "checks again when a file changes; Ctrl+C ends it"}, flag<&Options::watch>},
  OptionRow{"--quiet", "",
    {"まとめの行だけを表示する", "prints only the summary"}, flag<&Options::quiet>},
  OptionRow{"--explain", "CODE",
    {"メッセージのコードを説明する", "explains the code of a message"}, text<&Options::explain>},
  OptionRow{"--list-codes", "",
    {"メッセージのコードの一覧を表示する", "lists the codes of all messages"}, flag<&Options::listCodes>},
  OptionRow{"--init", "DIR",
    {"サンプルと課題の入ったフォルダを作る", "makes a folder with samples and tasks"}, text<&Options::init>},
  OptionRow{"--color", "auto|always|never",
    {"見出しと引用に色を付ける", "colours heads and quoted text"}, choose<&Options::color, kColors>},
  OptionRow{"--help", "", {"この説明を表示する", "prints this text"}, flag<&Options::help>},
  OptionRow{"--version", "", {"版を表示する", "prints the version"}, flag<&Options::version>},
};
// clang-format on

}  // namespace

std::span<const OptionRow> optionTable() {
  return kOptions;
}

}  // namespace zelvaro::check
