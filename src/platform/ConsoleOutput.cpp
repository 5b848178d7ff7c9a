#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <utility>

#include "platform/Console.h"

namespace zelvaro {
namespace {

constexpr std::size_t kBuffer = 64 * 1024;
constexpr std::string_view kReplacementUtf8 = "\xEF\xBF\xBD";

/// Number of bytes that a first byte announces; 0 for one that begins no character.
std::size_t announcedBy(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

bool isPlain(unsigned char c) {
  return (c >= 0x20 && c < 0x7F) || c == '\n' || c == '\t';
}

/// The value of a complete sequence, or 0 for one that is longer than its character needs (some terminals
/// decode such a disguise of a control character) or that is no character at all.
std::uint32_t valueOf(std::string_view sequence) {
  std::uint32_t value = static_cast<unsigned char>(sequence[0]) & (0x7Fu >> sequence.size());
  for (std::size_t i = 1; i < sequence.size(); ++i)
    value = (value << 6) | (static_cast<unsigned char>(sequence[i]) & 0x3Fu);
  constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = value >= 0xD800 && value <= 0xDFFF;
  return value < kLeast[sequence.size()] || isSurrogate || value > 0x10FFFF ? 0 : value;
}

/// Characters that a terminal obeys instead of showing them.
bool steers(std::uint32_t value) {
  constexpr std::pair<std::uint32_t, std::uint32_t> kRanges[] = {
      {0x80, 0x9F},                                                              // controls
      {0x61C, 0x61C},   {0x200E, 0x200F},   {0x202A, 0x202E}, {0x2066, 0x206F},  // the direction of writing
      {0x2028, 0x2029},                      // ends of lines and paragraphs
      {0xFFF9, 0xFFFB}, {0xE0000, 0xE007F},  // text that is not shown
  };
  for (const auto& [first, last] : kRanges)
    if (value >= first && value <= last) return true;
  return false;
}

/// "<U+009B>": at least four digits.
std::string inDigits(std::uint32_t value) {
  std::array<char, 12> text{};
  std::snprintf(text.data(), text.size(), "<U+%04X>", static_cast<unsigned>(value));
  return text.data();
}

}  // namespace

ConsoleOutput::ConsoleOutput(int fd) : fd_(fd), terminal_(isatty(fd) == 1) {
  buffer_.reserve(kBuffer);
}

void ConsoleOutput::print(std::string_view utf8) {
  if (!terminal_) {
    append(utf8);
    return;
  }
  appendHarmless(utf8);
  if (utf8.find('\n') != std::string_view::npos) writeOut();
}

void ConsoleOutput::flush() {
  endSequence();
  writeOut();
}

void ConsoleOutput::look() {
  pollfd other{fd_, 0, 0};
  if (poll(&other, 1, 0) == 1 && (other.revents & (POLLERR | POLLHUP)) != 0) giveUp();
}

void ConsoleOutput::append(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::string_view part = bytes.substr(0, kBuffer - buffer_.size());
    buffer_ += part;
    bytes.remove_prefix(part.size());
    if (buffer_.size() == kBuffer) writeOut();
  }
}

void ConsoleOutput::appendHarmless(std::string_view utf8) {
  for (std::size_t i = 0; i < utf8.size();) {
    const auto c = static_cast<unsigned char>(utf8[i]);
    if (announced_ != 0) {
      if (takeIntoSequence(c)) ++i;
      continue;
    }
    std::size_t end = i;
    while (end < utf8.size() && isPlain(static_cast<unsigned char>(utf8[end]))) ++end;
    if (end > i) {
      append(utf8.substr(i, end - i));
      i = end;
      continue;
    }
    ++i;
    if (c < 0x80) {
      appendControl(c);
    } else if ((announced_ = announcedBy(c)) != 0) {
      sequence_.assign(1, static_cast<char>(c));
    } else {
      append(kReplacementUtf8);
    }
  }
}

/// Caret notation: "^[" for escape, "^?" for 0x7F.
void ConsoleOutput::appendControl(unsigned char c) {
  const char shown[2] = {'^', static_cast<char>(c ^ 0x40)};
  append({shown, 2});
}

/// Adds a byte to the begun character; false, with the character ended, if it does not belong to it.
bool ConsoleOutput::takeIntoSequence(unsigned char c) {
  if ((c & 0xC0) != 0x80) {
    endSequence();
    return false;
  }
  sequence_ += static_cast<char>(c);
  if (sequence_.size() == announced_) endSequence();
  return true;
}

void ConsoleOutput::endSequence() {
  if (announced_ == 0) return;
  const std::uint32_t value = sequence_.size() == announced_ ? valueOf(sequence_) : 0;
  announced_ = 0;
  if (value == 0) {
    append(kReplacementUtf8);
  } else if (steers(value)) {
    append(inDigits(value));
  } else {
    append(sequence_);
  }
}

void ConsoleOutput::writeOut() {
  std::string_view rest = buffer_;
  while (!rest.empty() && !failed_) {
    const ssize_t n = ::write(fd_, rest.data(), rest.size());
    if (n >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(n));
    } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
      pollfd ready{fd_, POLLOUT, 0};
      if (poll(&ready, 1, -1) < 0 && errno != EINTR) failed_ = true;
    } else if (errno != EINTR) {
      readerIsGone_ = errno == EPIPE || (terminal_ && errno == EIO);
      failed_ = true;
    }
  }
  buffer_.clear();
}

}  // namespace zelvaro
