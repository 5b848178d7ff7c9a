// The interface to the outside world.  PosixPlatform implements it; tests use a scripted one.
#pragma once

#include <cstdint>
#include <ctime>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zelvaro {

/// Why a file could not be opened, read or written.
struct FileFailure {
  enum class Kind : std::uint8_t {
    System,       ///< what the operating system says is all that is known
    Missing,      ///< nothing has the name
    Exists,       ///< something has the name
    NoMemory,     ///< memory does not suffice for it
    Folder,       ///< a folder has the name
    NotRegular,   ///< a device, a pipe or a socket has it
    TooLarge,     ///< the file has more bytes than the caller takes
    LeadsOutside  ///< the name is a link to what lies outside its folder
  };
  Kind kind = Kind::System;
  std::string reason;  ///< the operating system's words, or words of that kind in English
};

/// How a file is written.
struct FileWriting {
  bool synced = false;   ///< on the disk before it takes its name: for what cannot be made again
  bool replaces = true;  ///< false: only under a name that nothing has
};

/// A file under construction.  Its bytes lie in a temporary file beside the target, ".<name>.tmp", until
/// commit() has flushed, checked and renamed it; without a commit the target stays as it was.  What a killed
/// program has left there is removed by the next one that writes the target.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Appends bytes.  A failure is kept for commit().
  virtual void write(std::string_view bytes) = 0;
  /// Puts the file in the place of its target.  Returns false, with the cause in failure(), on any failure
  /// since the file was created; the target is untouched then.
  virtual bool commit() = 0;
  /// The first failure; its reason is empty without one.
  virtual FileFailure failure() const = 0;
};

/// The bytes of a file, in memory that lives as long as a copy of this.
struct FileBytes {
  std::string_view bytes;
  std::shared_ptr<const void> memory;
};

/// One way to show a file: through the platform's own text editor or the one that the settings name.
struct EditorCommand {
  /// UTF-8; empty: the platform's own editor.  The name of an existing program, with blanks or without, is
  /// that program; any other text is a command line, in which blanks outside of quotes separate.
  std::string commandLine;
};

/// What came of an attempt to open a file in an editor.
struct EditResult {
  enum class Status : std::uint8_t {
    Edited,      ///< the editor has run and ended
    NoEditor,    ///< the platform has none of its own, or no terminal for it
    NotStarted,  ///< the editor's program does not start
    Refused      ///< what has the name is no regular file; nothing was started
  };
  Status status = Status::Edited;
  std::string editor;   ///< the program that does not start
  FileFailure failure;  ///< why it does not, or what has the name
};

/// All that the program knows of the outside world.  It prints nothing of its own: it returns results and
/// reasons, and the shell words them.
class Platform {
 public:
  virtual ~Platform() = default;

  // --- console: one byte sink, UTF-8, buffered, flushed before any read and at the end ---
  /// Prints text.  On a terminal what could steer it is shown instead: control characters other than line
  /// feed and tab, broken characters, those that reorder, break or hide text.  Through a pipe or into a file
  /// all bytes pass as they are.
  virtual void print(std::string_view utf8) = 0;
  virtual void flush() = 0;
  /// One whole input line without its line end (a CR before the LF is no part of it either), or nothing
  /// at the end of the input, or where nobody follows the console any more.  On a terminal a later call may
  /// find more.
  virtual std::optional<std::string> readLine() = 0;
  /// Whether the input has ended for good: it is no terminal, and a read has found its end.
  virtual bool inputHasEnded() = 0;
  /// Whether nobody follows the console any more: the reader of the output has gone, or a terminal has hung
  /// up.  Cheap: the system is asked at most four times a second.
  virtual bool consoleIsGone() { return false; }

  // --- files: `path` is a native path, UTF-8, already without quotes.  Only regular files are read and
  //     written, and no pipe or device is waited for.  On a failure the cause is stored in `failure`, where
  //     it is given. ---
  /// Whether a regular file has the name and opens for reading.
  virtual bool canRead(const std::string& path, FileFailure* failure = nullptr) = 0;
  /// The whole file, whatever size it claims, or nothing; a file of more than `most` bytes is TooLarge and is
  /// not read further.
  virtual std::optional<std::string> readFile(const std::string& path, FileFailure* failure = nullptr,
                                              std::size_t most = kAnySize) = 0;
  static constexpr std::size_t kAnySize = std::numeric_limits<std::size_t>::max();
  /// The same for a source: as many bytes as an int counts at most, and a large file in memory that costs
  /// little to touch for the first time.
  virtual std::optional<FileBytes> loadFile(const std::string& path, FileFailure* failure = nullptr) {
    auto text = readFile(path, failure, kMostSourceBytes);
    if (!text) return std::nullopt;
    auto memory = std::make_shared<const std::string>(std::move(*text));
    return FileBytes{*memory, memory};
  }
  static constexpr std::size_t kMostSourceBytes = std::numeric_limits<std::int32_t>::max();
  /// Begins a new file for `path`, or null.  A symbolic link under the name is followed, and stays, if what it
  /// names lies in the folder of `path` or below it; any other is LeadsOutside.  Owner, group and mode of a
  /// file that is replaced are kept as far as the system lets this user set them.
  virtual std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure = nullptr,
                                                 FileWriting writing = {}) = 0;
  /// Whether anything, a folder included, stands under `path`.
  virtual bool exists(const std::string& path) = 0;

  // --- what the menu asks for ---
  /// Names of a folder's entries, a line each, sorted, folders with a "/" at their end; a file is its only
  /// entry.  Nothing, with the reason, where the folder cannot be listed.
  virtual std::optional<std::string> folderListing(const std::string& path, FileFailure* failure) = 0;
  virtual bool deleteFile(const std::string& path, FileFailure* failure) = 0;
  /// Opens a file in a text editor and waits for it.  Nothing goes through a shell, the name is handed over
  /// in a form that no program takes for an option or a command, and only a regular file or a name that
  /// nothing has.  The terminal's settings are afterwards those of before, however the editor has ended.
  virtual EditResult editFile(const EditorCommand& editor, const std::string& path) = 0;
  /// Hands a document to the desktop, cut off from the console, and does not wait.  False where there is no
  /// desktop.
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
