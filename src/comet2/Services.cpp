#include "comet2/Services.h"

#include <optional>
#include <string>
#include <string_view>

#include "MoziCode/Utf.h"
#include "diag/Family.h"
#include "diag/Say.h"

namespace zelvaro {
namespace {

constexpr Message inputPrompt{Severity::Plain,
                              Head::None,
                              args(),
                              {.ja = "\nOS: 文字を入力してください。 \n"
                                     "マクロ命令( IN )による入力要求。\n"
                                     "Enter キイ を押す 又は CTRL + Z を押す と 入力終了。 \n",
                               .en = "\nOS: Input some letters from your keyboard. \n"
                                     "(Input Requirement by a Macro Instruction of IN) \n"
                                     "Press Enter key or Ctrl + Z Keys "
                                     "at the end of your input. \n"}};
constexpr Message conversionFailed{Severity::Plain, Head::None, args(),
                                   bothLanguages("mbsrtowcs_s() has returned Error. MbChToWCsH(), ")};
constexpr Message outputHeading{
    Severity::Plain,
    Head::None,
    args(),
    {.ja = "\nOS: マクロ命令( OUT )による出力 \n", .en = "\nOS: Output by a Macro Instruction of OUT. \n"}};
constexpr Message unknownService{
    Severity::Plain,
    Head::None,
    args("number"),
    {.ja = "svc {number} は仕様に記述がないので、NOP と同じ動作をするものとした。 ",
     .en = "{number} works as NOP does. "
           "Because there does not exist any description about {number} "
           "in Spec.of CASL2. "}};

constexpr std::size_t kMostBytes = 256;  ///< of a line that is read

/// The bytes of a line that count: at most kMostBytes, no part of a character, nothing behind a zero byte.
std::string_view cutToLimit(std::string_view line) {
  line = firstBytes(line, kMostBytes);
  return line.substr(0, line.find('\0'));
}

std::u16string textOf(const std::string& line, Platform& platform, std::int32_t isEnglish) {
  std::u16string text;
  if (!utf8ToUtf16(cutToLimit(line), text)) {
    say<WP, conversionFailed>(platform, isEnglish);
    text.clear();
  }
  return text;
}

std::size_t address(std::int32_t value) {
  return static_cast<std::size_t>(unsignedWord(value));
}

}  // namespace

int SvcIn(Tcomet2& m, Platform& platform) {
  say<WP, inputPrompt>(platform, m.IsEnglish);
  const std::optional<std::string> line = platform.readLine();
  const std::u16string text = textOf(line.value_or(""), platform, m.IsEnglish);
  const auto length = static_cast<std::int32_t>(text.size());
  m.Memory[address(m.GR[2])] = length;
  for (std::int32_t i = 0; i < length; ++i)
    m.Memory[address(unsignedWord(m.GR[1]) + i)] = text[static_cast<std::size_t>(i)];
  return line || !platform.inputHasEnded() ? length : kNoLine;
}

void SvcOut(const Tcomet2& m, Platform& platform) {
  constexpr std::size_t kBlock = 4096;
  say<WP, outputHeading>(platform, m.IsEnglish);
  const std::int32_t length = m.Memory[address(m.GR[2])];
  std::u16string block;
  for (std::int32_t i = 0; i < length; ++i) {
    // a cell may hold any length: the address wraps, and so does the sum that gives it
    const auto at = static_cast<std::uint32_t>(m.GR[1]) + static_cast<std::uint32_t>(i);
    block += static_cast<char16_t>(unsignedWord(m.Memory[at & 0xFFFFu]));
    if (block.size() < kBlock || isHighSurrogate(block.back())) continue;
    platform.print(toUtf8(block));
    block.clear();
  }
  platform.print(toUtf8(block) + "\n");
  platform.flush();
}

int SvcCall(Tcomet2& m, Platform& platform, std::int32_t number) {
  switch (number) {
    case kSvcIn:
      return SvcIn(m, platform);
    case kSvcOut:
      SvcOut(m, platform);
      return 0;
    default:
      say<WP, unknownService>(platform, m.IsEnglish, number);
      return 0;
  }
}

}  // namespace zelvaro
