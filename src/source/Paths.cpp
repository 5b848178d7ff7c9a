#include "MoziCode/Utf.h"
#include "source/Load.h"

namespace zelvaro {
namespace {

constexpr Message fileNotFound =
    notice("file-not-found", args(),
           {.ja = "ファイルが見つかりませんでした。\n", .en = "The file is not found there. *"});

constexpr std::size_t kLongestName = 247;  ///< characters of a typed name
constexpr std::string_view kExtensions[] = {"", ".txt", ".asl", ".asm", ".cas", ".casl"};

bool isQuoted(std::string_view s) {
  return s.size() >= 2 && s.front() == '"' && s.back() == '"';
}

std::string_view withoutQuotes(std::string_view s) {
  while (isQuoted(s)) s = s.substr(1, s.size() - 2);
  return s;
}

}  // namespace

std::string NormalizePath(const std::string& name) {
  std::string out(trimAnyBlanks(name));
  const bool hasBlank =
      out.find(' ') != std::string::npos || out.find(kZenKakuSpaceUtf8) != std::string::npos;
  if (hasBlank && !isQuoted(out)) out = "\"" + out + "\"";
  for (char& c : out)
    if (c == '/') c = '\\';
  return out;
}

std::string nativePath(const std::string& name) {
  std::string out(withoutQuotes(trimAnyBlanks(name)));
  for (char& c : out)
    if (c == '\\') c = '/';
  return out;
}

bool FileExists(Platform& platform, const std::string& name, FileFailure* failure) {
  return !name.empty() && platform.canRead(nativePath(name), failure);
}

std::optional<std::string> FindSrcFile(TShellData& sh, Platform& platform) {
  const auto line = platform.readLine();
  if (!line) return std::nullopt;
  std::string_view rest = *line;
  constexpr std::string_view kWhiteSpace = " \t\r\v\f";
  rest.remove_prefix(std::min(rest.find_first_not_of(kWhiteSpace), rest.size()));
  const std::string typed(withoutQuotes(trimAnyBlanks(firstCharacters(rest, kLongestName))));
  FileFailure failure;  // of the name as it was typed
  for (const std::string_view extension : kExtensions) {
    if (typed.empty()) break;
    const std::string candidate = NormalizePath(typed + std::string(extension));
    if (!FileExists(platform, candidate, extension.empty() ? &failure : nullptr)) continue;
    sh.CurrentFile = candidate;
    sh.LastSrcFile = candidate;
    return candidate;
  }
  reportRefusal(sh, NormalizePath(typed), failure);
  sh.say(fileNotFound);
  return std::string();
}

RowList rowsOfPaths() {
  return rows(fileNotFound);
}

}  // namespace zelvaro
