#include "check/Json.h"

#include <array>

namespace zelvaro::check {

std::string dumped(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string documentOf(const Json& head, std::string_view member, const std::vector<std::string>& elements) {
  std::string out = dumped(head);
  out.back() = ',';  // for the closing brace
  out += dumped(member) + ":[";
  for (std::size_t i = 0; i < elements.size(); ++i) out += (i == 0 ? "\n" : ",\n") + elements[i];
  return out + "\n]}\n";
}

std::string_view stopName(Stop stop) {
  switch (stop) {
    case Stop::End:
      return "end";
    case Stop::Pr:
      return "pr-guard";
    case Stop::Register:
      return "register-guard";
    case Stop::Load:
      return "load-guard";
    case Stop::Store:
      return "store-guard";
    case Stop::Stack:
      return "stack-guard";
    case Stop::EmptyStack:
      return "empty-stack-guard";
    case Stop::Return:
      return "return-guard";
    case Stop::Nop:
      return "nop-guard";
    case Stop::Unregistered:
      return "unregistered-code";
    case Stop::Steps:
      return "step-limit";
    case Stop::InputExhausted:
      return "input-exhausted";
    case Stop::OutputFull:
      return "output-limit";
    case Stop::NobodyThere:
      return "given-up";
    case Stop::InputEnded:
    case Stop::Breakpoint:
    case Stop::InputWanted:
      break;  // no run of the checker ends so
  }
  return "other";
}

}  // namespace zelvaro::check
