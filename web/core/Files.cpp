#include "Files.h"

#include <optional>
#include <vector>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"

namespace zelvaro::web {
namespace {

constexpr std::size_t kMostLacking = 100;

const engine::Text kNoText{"テキストファイルではない。", "This is not a text file."};
const engine::Text kTooLarge{"ファイルが大きすぎる。8 MiB までのファイルを開ける。",
                             "The file is too large: files of up to 8 MiB are opened."};

/// Whether the bytes hold characters that no source has: most files that are no text do.
bool hasControls(std::string_view utf8) {
  for (const char c : utf8) {
    const auto b = static_cast<unsigned char>(c);
    if (b < 0x20 && b != '\t' && b != '\n' && b != '\r' && b != '\f' && b != 0x1A) return true;
  }
  return false;
}

std::string utf16ToUtf8(std::string_view bytes) {
  const ByteOrder order = bytes.starts_with(kUtf16BeMark) ? ByteOrder::Big : ByteOrder::Little;
  if (bytes.starts_with(kUtf16BeMark) || bytes.starts_with(kUtf16LeMark)) bytes.remove_prefix(2);
  const Utf16Units units(bytes, order);
  std::u16string wide(units.size(), u'\0');
  for (std::size_t i = 0; i < wide.size(); ++i) wide[i] = units[i];
  return toUtf8(wide);
}

std::string decoded(std::string_view bytes, engine::Encoding encoding) {
  switch (encoding) {
    case engine::Encoding::Utf16:
      return utf16ToUtf8(bytes);
    case engine::Encoding::Cp932:
      return cp932ToUtf8(bytes);
    case engine::Encoding::Utf8:
      if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
      return toUtf8(toUtf16(bytes));
    case engine::Encoding::Auto:
      break;
  }
  return fileTextAsUtf8(bytes);
}

/// Whether CP932 has the character and gives it back unchanged.
bool cp932Has(std::string_view character) {
  std::string bytes;
  return utf16ToCp932(toUtf16(character), bytes) && cp932ToUtf8(bytes) == character;
}

}  // namespace

void putDecoded(Json& out, std::string_view bytes, const engine::Options& options) {
  constexpr const char* kNames[] = {"auto", "utf-8", "cp932", "utf-16"};
  std::optional<engine::Text> refusal;
  std::string text, name;
  engine::Encoding encoding = engine::Encoding::Auto;
  if (bytes.size() > options.mostBytes) {
    refusal = kTooLarge;
  } else {
    // the assembler detects the encoding, as it does for a source that is assembled
    const engine::Assembled a = engine::assemble(bytes, options);
    encoding = a.encoding();
    name = a.encodingName();
    text = decoded(bytes, encoding);
    if (hasControls(text)) refusal = kNoText;
  }
  out.member("text", refusal ? std::string() : text);
  out.member("encoding", kNames[static_cast<std::size_t>(encoding)]);
  out.member("encodingName", name);
  out.key("refusal");
  if (refusal) {
    out.value(*refusal);
  } else {
    out.null();
  }
}

std::string utf8ToCp932(std::string_view utf8) {
  return utf16ToCp932(toUtf16(utf8));
}

void putLacking(Json& out, std::string_view utf8) {
  struct Lacking {
    std::string character;
    int line, from;
  };
  std::vector<Lacking> lacking;
  int line = 1, from = 0;
  while (!utf8.empty() && lacking.size() < kMostLacking) {
    const std::size_t size = decodeUtf8(utf8).size;
    const std::string_view character = utf8.substr(0, size);
    if (character == "\n") {
      ++line;
      from = 0;
    } else {
      if (!isAscii(character) && !cp932Has(character))
        lacking.push_back({std::string(character), line, from});
      from += size >= 4 ? 2 : 1;
    }
    utf8.remove_prefix(size);
  }
  out.objects(lacking, [&](const Lacking& l) {
    out.member("character", l.character);
    out.member("line", l.line);
    out.member("from", l.from);
  });
}

}  // namespace zelvaro::web
