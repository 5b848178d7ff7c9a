#include "comet2/Services.h"

#include <optional>
#include <string>
#include <string_view>

#include "MoziCode/Utf.h"

namespace zelvaro {
namespace {

constexpr Message inputPrompt{"in-prompt",
                              Severity::Notice,
                              Head::Open,
                              args(),
                              {.ja = "\nOS: 文字を入力してください。 \n"
                                     "マクロ命令( IN )による入力要求。\n"
                                     "Enter キイ を押す 又は CTRL + Z を押す と 入力終了。 \n",
                               .en = "\nOS: Input some letters from your keyboard. \n"
                                     "(Input Requirement by a Macro Instruction of IN) \n"
                                     "Press Enter key or Ctrl + Z Keys "
                                     "at the end of your input. \n"}};
constexpr Message conversionFailed{"in-not-text", Severity::Notice, Head::Open, args(),
                                   bothLanguages("mbsrtowcs_s() has returned Error. MbChToWCsH(), ")};
constexpr Message outputHeading{
    "out-heading",
    Severity::Notice,
    Head::Open,
    args(),
    {.ja = "\nOS: マクロ命令( OUT )による出力 \n", .en = "\nOS: Output by a Macro Instruction of OUT. \n"}};
constexpr Message unknownService{
    "svc-unknown",
    Severity::Notice,
    Head::Open,
    args("number"),
    {.ja = "svc {number} は仕様に記述がないので、NOP と同じ動作をするものとした。 ",
     .en = "{number} works as NOP does. "
           "Because there does not exist any description about {number} "
           "in Spec.of CASL2. "}};

/// The bytes of a line that are used: at most kMostBytesOfInput, no partial character, nothing after a zero
/// byte.
std::string_view cutToLimit(std::string_view line) {
  line = firstBytes(line, kMostBytesOfInput);
  return line.substr(0, line.find('\0'));
}

std::u16string textOf(const std::string& line, const Services& services) {
  std::u16string text;
  if (!utf8ToUtf16(cutToLimit(line), text)) {
    services.sink.say(conversionFailed);
    text.clear();
  }
  return text;
}

std::size_t address(std::int32_t value) {
  return static_cast<std::size_t>(unsignedWord(value));
}

}  // namespace

int SvcIn(Tcomet2& m, const Services& services) {
  services.sink.say(inputPrompt);
  const std::optional<std::string> line = services.platform.readLine();
  const std::u16string text = textOf(line.value_or(""), services);
  const auto length = static_cast<std::int32_t>(text.size());
  m.Memory[address(m.GR[2])] = length;
  for (std::int32_t i = 0; i < length; ++i)
    m.Memory[address(unsignedWord(m.GR[1]) + i)] = text[static_cast<std::size_t>(i)];
  return line || !services.platform.inputHasEnded() ? length : kNoLine;
}

void SvcOut(const Tcomet2& m, const Services& services) {
  constexpr std::size_t kBlock = 4096;
  services.sink.say(outputHeading);
  const std::int32_t length = m.Memory[address(m.GR[2])];
  std::u16string block;
  for (std::int32_t i = 0; i < length; ++i) {
    // a cell may hold any length: both the address and the sum that it is computed from wrap
    const auto at = static_cast<std::uint32_t>(m.GR[1]) + static_cast<std::uint32_t>(i);
    block += static_cast<char16_t>(unsignedWord(m.Memory[at & 0xFFFFu]));
    if (block.size() < kBlock || isHighSurrogate(block.back())) continue;
    services.platform.print(toUtf8(block));
    block.clear();
  }
  services.platform.print(toUtf8(block) + "\n");
  services.platform.flush();
}

int SvcCall(Tcomet2& m, const Services& services, std::int32_t number) {
  switch (number) {
    case kSvcIn:
      return SvcIn(m, services);
    case kSvcOut:
      SvcOut(m, services);
      return 0;
    default:
      services.sink.say(unknownService, number);
      return 0;
  }
}

RowList rowsOfServices() {
  return rows(inputPrompt, conversionFailed, outputHeading, unknownService);
}

}  // namespace zelvaro
