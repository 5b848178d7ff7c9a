#include "check/Options.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <array>

#include "check/CheckRows.h"
#include "check/OptionTable.h"

namespace zelvaro::check {
namespace {

constexpr Message unknownOption =
    notice("usage-unknown-option", args("option"),
           {.ja = "{option} というオプションはありません。", .en = "{option} is no option."});
constexpr Message badValue =
    notice("usage-value", args("option", "value", "allowed"),
           {.ja = "{option} の値 \"{value}\" は使えません。使えるのは {allowed} です。",
            .en = "{option} does not take \"{value}\". It takes {allowed}."});
constexpr Message needs =
    notice("usage-needs", args("option", "other"),
           {.ja = "{option} には {other} が必要です。", .en = "{option} needs {other}."});
constexpr Message apart = notice(
    "usage-conflict", args("option", "other"),
    {.ja = "{option} と {other} は同時に指定できません。", .en = "{option} and {other} do not go together."});
constexpr Message noFile =
    notice("usage-no-file", args(), {.ja = "ファイルの指定がありません。", .en = "No file is named."});
constexpr Message inputTwice = notice("usage-input-twice", args(),
                                      {.ja = "標準入力をソースとしては 1 回しか読めません。",
                                       .en = "Standard input can be a source only once."});
constexpr Message mismatch =
    notice("usage-mismatch", args("reason"), {.ja = "コマンド行の誤り: {reason}", .en = "{reason}"});

/// An option that needs another one: without it there is nothing for it to do.
struct Pair {
  std::string_view option, other;
};
constexpr std::array kNeeds{Pair{"--input", "--run"},  Pair{"--max-steps", "--run"},
                            Pair{"--expect", "--run"}, Pair{"--trace", "--run"},
                            Pair{"--last", "--trace"}, Pair{"--from", "--trace"},
                            Pair{"--until", "--trace"}};
constexpr std::array kApart{
    Pair{"--grade", "--run"},          Pair{"--grade", "--listing"}, Pair{"--grade", "--report-dir"},
    Pair{"--grade", "--hints"},        Pair{"--grade", "--watch"},   Pair{"--watch", "--output"},
    Pair{"--explain", "--list-codes"}, Pair{"--explain", "--init"},  Pair{"--list-codes", "--init"},
};
/// Options that do all there is to do, without a file.
constexpr std::array<std::string_view, 3> kAlone{"--explain", "--list-codes", "--init"};

/// The options that a command line has, by their names.
class Given {
 public:
  explicit Given(const CLI::App& app) : app_(app) {}
  bool operator()(std::string_view name) const { return app_.get_option(std::string(name))->count() > 0; }

 private:
  const CLI::App& app_;
};

std::string formatName(Format format) {
  constexpr std::array<const char*, 6> kNames{"text", "gnu", "json", "sarif", "csv", "junit"};
  return fmt::format("--format {}", kNames.at(static_cast<std::size_t>(format)));
}

/// What the format does not go with; empty if there is nothing.
std::string faultOfFormat(const Options& o, const Given& given) {
  const Language l = o.language;
  const std::string name = formatName(o.format);
  const bool isOfGrades = o.format == Format::Csv || o.format == Format::Junit;
  if (isOfGrades && o.grade.empty()) return say(l, needs, name, "--grade");
  if (!o.grade.empty() && (o.format == Format::Gnu || o.format == Format::Sarif))
    return say(l, apart, "--grade", name);
  if (given("--output") && !o.makesDocument()) return say(l, apart, "--output", name);
  if (o.watch && o.makesDocument()) return say(l, apart, "--watch", name);
  // standard output is the program's own then
  if (o.listing && o.run && !o.makesDocument()) return say(l, apart, "--listing", "--run");
  if (o.listing && o.format == Format::Sarif) return say(l, apart, "--listing", name);
  return {};
}

/// What the files do not go with; empty if there is nothing.
std::string faultOfFiles(const Options& o, const Given& given) {
  const Language l = o.language;
  for (const std::string_view option : kAlone) {
    if (given(option)) return o.files.empty() ? "" : say(l, apart, option, "FILE");
  }
  if (o.files.empty()) return say(l, noFile);
  const auto standard = std::ranges::count(o.files, kStandardInput);
  if (standard > 1) return say(l, inputTwice);
  if (standard > 0 && o.watch) return say(l, apart, "--watch", kStandardInput);
  if (!o.run || given("--input")) return {};
  if (standard > 0) return say(l, needs, "--run -", "--input");
  if (o.files.size() > 1) return say(l, needs, "--run FILE FILE", "--input");
  return {};
}

std::string faultOf(const Options& o, const Given& given) {
  for (const Pair& p : kNeeds)
    if (given(p.option) && !given(p.other)) return say(o.language, needs, p.option, p.other);
  for (const Pair& p : kApart)
    if (given(p.option) && given(p.other)) return say(o.language, apart, p.option, p.other);
  std::string fault = faultOfFormat(o, given);
  return fault.empty() ? faultOfFiles(o, given) : fault;
}

/// Takes the values of the options in the order of the table, the language first.
std::string takeValues(const CLI::App& app, Options& o) {
  for (const OptionRow& row : optionTable()) {
    const CLI::Option* option = app.get_option(std::string(row.name));
    if (option->count() == 0) continue;
    const std::string value = row.argument.empty() ? "" : option->results().front();
    if (!row.take(o, value)) return say(o.language, badValue, row.name, value, row.argument);
  }
  return {};
}

}  // namespace

std::variant<Options, WrongUse> parseOptions(std::vector<std::string> arguments, Language usual) {
  Options o;
  o.language = usual;
  CLI::App app;
  app.set_help_flag();
  app.allow_extras();
  app.allow_windows_style_options(false);  // a name may begin with a slash on every system
  for (const OptionRow& row : optionTable()) {
    if (row.argument.empty()) {
      app.add_flag(std::string(row.name));
    } else {
      app.add_option(std::string(row.name))->expected(1)->type_size(1);
    }
  }
  app.add_option("FILE", o.files);
  std::ranges::reverse(arguments);  // as CLI11 wants them
  try {
    app.parse(arguments);
  } catch (const CLI::ParseError& e) {
    return WrongUse{say(o.language, mismatch, e.what()), o.language};
  }
  if (std::string fault = takeValues(app, o); !fault.empty()) return WrongUse{fault, o.language};
  if (!app.remaining().empty())
    return WrongUse{say(o.language, unknownOption, app.remaining().front()), o.language};
  if (o.help || o.version) return o;
  if (std::string fault = faultOf(o, Given(app)); !fault.empty()) return WrongUse{fault, o.language};
  return o;
}

RowList rowsOfOptions() {
  return rows(unknownOption, badValue, needs, apart, noFile, inputTwice, mismatch);
}

}  // namespace zelvaro::check
