// The interface to the outside world.  PosixPlatform implements it; tests use a scripted one.
#pragma once

#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zelvaro {

/// A file under construction.  It stands under a temporary name beside its target until commit() has
/// flushed, checked and renamed it; without a commit the target stays as it was.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Appends bytes.  A failure is kept and told by commit().
  virtual void write(std::string_view bytes) = 0;
  /// Puts the file in the place of its target.  Returns false, with the reason in reason(), on any
  /// failure since the file was created; the target is untouched then.
  virtual bool commit() = 0;
  /// The operating system's words for the first failure, empty without one.
  virtual std::string reason() const = 0;
};

/// Why a file did not open or could not be written, in the operating system's words.
struct FileFailure {
  std::string reason;
};

/// The bytes of a file, in memory that lives as long as a copy of this.
struct FileBytes {
  std::string_view bytes;
  std::shared_ptr<const void> memory;
};

/// One way to show a file: through the platform's own text editor or a command line of the settings.
struct EditorCommand {
  std::string commandLine;  ///< UTF-8; empty: the platform's own editor
};

/// What came of an attempt to open a file in an editor.
struct EditResult {
  enum class Status : std::uint8_t {
    Edited,     ///< the editor has run and ended
    NoEditor,   ///< the platform has none of its own, or no terminal for it
    NotStarted  ///< the editor's program does not start
  };
  Status status = Status::Edited;
  std::string editor;  ///< name of the program that does not start
  std::string reason;  ///< the operating system's words for it
};

/// All that the program knows of the outside world.  It prints nothing of its own: it returns results and
/// reasons, and the shell words them.
class Platform {
 public:
  virtual ~Platform() = default;

  // --- console: one byte sink, UTF-8, buffered, flushed before any read and at the end ---
  /// Prints text.  On a terminal control characters other than line feed and tab are shown harmlessly;
  /// through a pipe or into a file they pass as they are.
  virtual void print(std::string_view utf8) = 0;
  virtual void flush() = 0;
  /// One whole input line without its line end (a CR before the LF is no part of it either), or nothing
  /// at the end of the input.  On a terminal a later call may find more.
  virtual std::optional<std::string> readLine() = 0;

  // --- files: `path` is a native path, UTF-8, already without quotes ---
  /// True for a file, not a folder, that opens for reading.
  virtual bool canRead(const std::string& path) = 0;
  /// The whole file, or nothing, with the reason in `failure` where it is given.
  virtual std::optional<std::string> readFile(const std::string& path, FileFailure* failure = nullptr) = 0;
  /// The same for a file that may be large, in memory that costs little to touch for the first time.
  virtual std::optional<FileBytes> loadFile(const std::string& path, FileFailure* failure = nullptr) {
    auto text = readFile(path, failure);
    if (!text) return std::nullopt;
    auto memory = std::make_shared<const std::string>(std::move(*text));
    return FileBytes{*memory, memory};
  }
  /// Begins a new file for `path`; null, with the reason in `failure`, where that cannot be done.
  virtual std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure = nullptr) = 0;
  /// Whether anything, a folder included, stands under `path`.
  virtual bool exists(const std::string& path) = 0;
  virtual bool renameFile(const std::string& from, const std::string& to) = 0;

  // --- what the menu asks for ---
  /// Names of a folder's entries, a line each, sorted, folders with a "/" at their end; a file is its only
  /// entry.  Nothing, with the reason, where the folder cannot be listed.
  virtual std::optional<std::string> folderListing(const std::string& path, FileFailure* failure) = 0;
  virtual bool deleteFile(const std::string& path, FileFailure* failure) = 0;
  /// Opens a file in a text editor and waits for it.  Nothing goes through a shell.
  virtual EditResult editFile(const EditorCommand& editor, const std::string& path) = 0;
  /// Hands a document to the desktop and does not wait.  False where there is no desktop.
  virtual bool openOnDesktop(const std::string& path) = 0;
  virtual void bringConsoleToFront() = 0;

  // --- environment ---
  /// The working directory, or nothing with errno's words in `failure`.
  virtual std::optional<std::string> workingDirectory(FileFailure* failure = nullptr) = 0;
  virtual bool userInterfaceIsJapanese() = 0;
  /// The processor time that std::clock() gives, in milliseconds.
  virtual std::int32_t clockMilliseconds() = 0;
  /// The system clock in units of 100 nanoseconds.
  virtual std::int64_t chronoTicks() = 0;
  /// The best monotonic counter, and its ticks a second (0 where there is none).
  virtual std::int64_t performanceCounter() = 0;
  virtual std::int64_t performanceFrequency() = 0;
  virtual std::tm localTime() = 0;
  /// A number that differs from call to call, 0 or above.
  virtual int randomNumber() = 0;
};

}  // namespace zelvaro
