// A file that is written to a temporary file beside its target and renamed: the steps that both systems share.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Platform.h"

namespace zelvaro {

/// A system derives from it, implements the steps and calls discard() in its destructor.  A step that fails
/// calls fail(); the steps after it are then left out.
class TemporaryOutput : public OutputFile {
 public:
  TemporaryOutput(const TemporaryOutput&) = delete;
  TemporaryOutput& operator=(const TemporaryOutput&) = delete;

  /// Creates the temporary file; false, with the cause in failure(), if that fails.  Called once.
  bool open(const std::string& path);
  void write(std::string_view bytes) override;
  bool commit() override;
  FileFailure failure() const override { return failure_; }

 protected:
  enum class Creation { Created, NameInUse, Failed };

  /// `lineEnd` replaces each line feed in a file that is a text.
  TemporaryOutput(FileWriting writing, std::string_view lineEnd) : writing_(writing), lineEnd_(lineEnd) {}

  bool failed() const { return !failure_.reason.empty(); }
  /// Keeps the first cause.
  void fail(FileFailure cause) {
    if (!failed()) failure_ = std::move(cause);
  }
  /// Removes the temporary file if it was not renamed.
  void discard();

  const FileWriting writing_;

 private:
  /// Finds the file that is to be written, and whether it may be.
  virtual void findTarget(const std::string& path) = 0;
  /// Creates the temporary file with the name that ends with `suffix`.
  virtual Creation createNew(const std::string& suffix) = 0;
  /// Removes the file that has the temporary name if its program was killed; false if another one is writing it.
  virtual bool removeLeftover() = 0;
  virtual void writeOut(std::string_view bytes) = 0;
  /// What remains to be done before the file is closed: permissions, and its way to the disk where that is wanted.
  virtual void complete() = 0;
  virtual void close() = 0;
  virtual void rename() = 0;
  virtual void remove() = 0;

  void create();
  void writeBuffer();

  std::string_view lineEnd_;
  std::string buffer_;
  FileFailure failure_;
  bool created_ = false;  ///< and neither renamed nor removed since
};

}  // namespace zelvaro
