#include "source/Load.h"

namespace zelvaro {
namespace {

constexpr std::size_t kLongestName = 247;  ///< characters of a typed name
constexpr std::string_view kZenKakuSpaceUtf8 = "\u3000";
constexpr std::string_view kExtensions[] = {"", ".txt", ".asl", ".asm", ".cas", ".casl"};

/// Takes one blank of any kind off an end; false if there is none.
bool dropBlank(std::string_view& s, bool atFront) {
  for (const std::string_view blank : {std::string_view(" "), std::string_view("\t"), kZenKakuSpaceUtf8}) {
    if (atFront ? !s.starts_with(blank) : !s.ends_with(blank)) continue;
    atFront ? s.remove_prefix(blank.size()) : s.remove_suffix(blank.size());
    return true;
  }
  return false;
}

std::string_view trimName(std::string_view s) {
  while (dropBlank(s, true)) {
  }
  while (dropBlank(s, false)) {
  }
  return s;
}

bool isQuoted(std::string_view s) {
  return s.size() >= 2 && s.front() == '"' && s.back() == '"';
}

std::string_view withoutQuotes(std::string_view s) {
  while (isQuoted(s)) s = s.substr(1, s.size() - 2);
  return s;
}

/// The first characters of a UTF-8 text, never a part of one.
std::string_view firstCharacters(std::string_view s, std::size_t count) {
  for (std::size_t i = 0; i < s.size(); ++i) {
    const bool begins = (static_cast<unsigned char>(s[i]) & 0xC0) != 0x80;
    if (begins && count-- == 0) return s.substr(0, i);
  }
  return s;
}

}  // namespace

std::string NormalizePath(const std::string& name) {
  std::string out(trimName(name));
  const bool hasBlank =
      out.find(' ') != std::string::npos || out.find(kZenKakuSpaceUtf8) != std::string::npos;
  if (hasBlank && !isQuoted(out)) out = "\"" + out + "\"";
  for (char& c : out)
    if (c == '/') c = '\\';
  return out;
}

std::string nativePath(const std::string& name) {
  std::string out(withoutQuotes(trimName(name)));
  for (char& c : out)
    if (c == '\\') c = '/';
  return out;
}

bool FileExists(Platform& platform, const std::string& name, FileFailure* failure) {
  return !name.empty() && platform.canRead(nativePath(name), failure);
}

std::optional<std::string> FindSrcFile(TShellData& sh) {
  const auto line = sh.console().readLine();
  if (!line) return std::nullopt;
  std::string_view rest = *line;
  constexpr std::string_view kWhiteSpace = " \t\r\v\f";
  rest.remove_prefix(std::min(rest.find_first_not_of(kWhiteSpace), rest.size()));
  const std::string typed(withoutQuotes(trimName(firstCharacters(rest, kLongestName))));
  FileFailure failure;  // of the name as it was typed
  for (const std::string_view extension : kExtensions) {
    if (typed.empty()) break;
    const std::string candidate = NormalizePath(typed + std::string(extension));
    if (!FileExists(sh.console(), candidate, extension.empty() ? &failure : nullptr)) continue;
    sh.CurrentFile = candidate;
    sh.LastSrcFile = candidate;
    return candidate;
  }
  tellRefusal(sh, NormalizePath(typed), failure);
  sh.print(inLanguage(sh.Lang, "ファイルが見つかりませんでした。\n", "The file is not found there. *"));
  return std::string();
}

}  // namespace zelvaro
