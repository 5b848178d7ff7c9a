#include "platform/TemporaryOutput.h"

#include <cerrno>

#include "platform/Failures.h"

namespace zelvaro {
namespace {

constexpr std::size_t kBuffer = 64 * 1024;

}  // namespace

bool TemporaryOutput::open(const std::string& path) {
  findTarget(path);
  if (!failed()) create();
  created_ = !failed();
  buffer_.reserve(kBuffer + lineEnd_.size());
  return created_;
}

/// Picks a name beside the target: the same each time, or the next one while another program is writing.
void TemporaryOutput::create() {
  constexpr int kMostTries = 100;
  for (int i = 1; i <= kMostTries; ++i) {
    const std::string suffix = (i > 1 ? "." + std::to_string(i) : "") + ".tmp";
    Creation result = createNew(suffix);
    if (result == Creation::NameInUse && removeLeftover()) result = createNew(suffix);
    if (result != Creation::NameInUse) return;
  }
  fail(failureOf(EEXIST));
}

void TemporaryOutput::write(std::string_view bytes) {
  const bool translates = writing_.isText && lineEnd_ != "\n";
  while (!bytes.empty() && !failed()) {
    std::string_view part = bytes.substr(0, kBuffer - buffer_.size());
    const std::size_t lineFeed = translates ? part.find('\n') : part.npos;
    if (lineFeed != part.npos) part = part.substr(0, lineFeed);
    buffer_ += part;
    bytes.remove_prefix(part.size());
    if (lineFeed != part.npos) {
      buffer_ += lineEnd_;
      bytes.remove_prefix(1);
    }
    if (buffer_.size() >= kBuffer) writeBuffer();
  }
}

void TemporaryOutput::writeBuffer() {
  writeOut(buffer_);
  buffer_.clear();
}

bool TemporaryOutput::commit() {
  if (!created_) fail(failureOf(EBADF));
  if (!failed()) writeBuffer();
  if (!failed()) complete();
  close();
  if (!failed()) rename();
  if (!failed()) created_ = false;
  discard();
  return !failed();
}

void TemporaryOutput::discard() {
  if (created_) remove();
  created_ = false;
}

}  // namespace zelvaro
