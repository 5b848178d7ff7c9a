// The interface to the outside world.  Each system has its implementation; tests use a scripted one.
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
    System,       ///< any other error; `reason` is the operating system's text
    Missing,      ///< no file has the name
    Exists,       ///< the name is in use
    NoMemory,     ///< not enough memory
    Folder,       ///< the name is that of a folder
    NotRegular,   ///< the name is that of a device, a pipe or a socket
    TooLarge,     ///< the file has more bytes than the caller accepts
    LeadsOutside  ///< the name is a symbolic link that leads out of its folder
  };
  Kind kind = Kind::System;
  std::string reason;  ///< the operating system's text, or an English text in its style
};

/// How a file is written.
struct FileWriting {
  bool synced = false;   ///< flushed to the disk before the rename: for data that cannot be recreated
  bool replaces = true;  ///< false: fails if the name is in use
  bool isText =
      false;  ///< lines end as the system's editors expect it: CR LF on Windows, line feed elsewhere
};

/// A file that is being written.  Its bytes go to a temporary file beside the target, ".<name>.tmp", which
/// commit() flushes, checks and renames; without a commit the target is unchanged.  A temporary file that a
/// killed program has left is removed by the next program that writes the target.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Appends bytes.  A failure is kept for commit().
  virtual void write(std::string_view bytes) = 0;
  /// Renames the temporary file to the target.  Returns false, with the cause in failure(), after any failure
  /// since the file was created; the target is unchanged then.
  virtual bool commit() = 0;
  /// The first failure; its reason is empty if there was none.
  virtual FileFailure failure() const = 0;
};

/// The bytes of a file.  The memory is shared by all copies and freed with the last one.
struct FileBytes {
  std::string_view bytes;
  std::shared_ptr<const void> memory;
};

/// The editor to use: the platform's own text editor or the one that the settings name.
struct EditorCommand {
  /// UTF-8; empty: the platform's own editor.  The name of an existing program, with blanks or without, is
  /// that program; any other text is a command line, in which blanks outside of quotes separate.
  std::string commandLine;
};

/// Of a terminal, in characters.
struct ConsoleSize {
  int rows = 24;
  int columns = 80;
};

/// What came of an attempt to open a file in an editor.
struct EditResult {
  enum class Status : std::uint8_t {
    Edited,      ///< the editor was started and has ended
    NoEditor,    ///< the platform has no editor of its own, or there is no terminal for it
    NotStarted,  ///< the editor's program could not be started
    Refused      ///< the name is not that of a regular file; nothing was started
  };
  Status status = Status::Edited;
  std::string editor;   ///< NotStarted: the program
  FileFailure failure;  ///< NotStarted: why; Refused: what the name is
};

/// All access to the outside world.  It prints nothing on its own: it returns results and reasons, and the
/// shell turns them into messages.
class Platform {
 public:
  virtual ~Platform() = default;

  // --- console: one byte sink, UTF-8, buffered, flushed before any read and at the end ---
  /// Prints text, UTF-8.  On a terminal, characters that could control it are shown in a visible form:
  /// control characters other than line feed and tab, ill-formed characters, those that reorder, break or
  /// hide text.  To a pipe or a file all bytes are written unchanged.
  virtual void print(std::string_view utf8) = 0;
  virtual void flush() = 0;
  /// One whole input line without its line end (LF or CR LF), or nothing at the end of the input or when
  /// nobody follows the console any more.  On a terminal a later call may return another line.
  virtual std::optional<std::string> readLine() = 0;
  /// Whether the input has ended for good: it is not a terminal, and a read has reached its end.
  virtual bool inputHasEnded() = 0;
  /// Whether nobody follows the console any more: the reader of the output is gone, or a terminal has hung
  /// up.  Cheap: the system is polled at most four times a second.
  virtual bool consoleIsGone() { return false; }

  /// The size of the terminal; nothing if input or output is not a terminal.
  virtual std::optional<ConsoleSize> consoleSize() { return std::nullopt; }

  // --- files: `path` is a native path, UTF-8, already without quotes.  Only regular files are read and
  //     written; no call blocks on a pipe or a device.  On a failure the cause is stored in `failure` if the
  //     caller has passed one. ---
  /// Whether a regular file of that name exists and can be opened for reading.
  virtual bool canRead(const std::string& path, FileFailure* failure = nullptr) = 0;
  /// The whole file, whatever size the system reports for it, or nothing on a failure; for a file of more
  /// than `most` bytes the failure is TooLarge.
  virtual std::optional<std::string> readFile(const std::string& path, FileFailure* failure = nullptr,
                                              std::size_t most = kAnySize) = 0;
  static constexpr std::size_t kAnySize = std::numeric_limits<std::size_t>::max();
  /// The same for a source: at most as many bytes as an int can count, and a large file in large pages, whose
  /// first access is cheap.
  virtual std::optional<FileBytes> loadFile(const std::string& path, FileFailure* failure = nullptr) {
    auto text = readFile(path, failure, kMostSourceBytes);
    if (!text) return std::nullopt;
    auto memory = std::make_shared<const std::string>(std::move(*text));
    return FileBytes{*memory, memory};
  }
  static constexpr std::size_t kMostSourceBytes = std::numeric_limits<std::int32_t>::max();
  /// The limit that loadFile() keeps to.
  virtual std::size_t mostSourceBytes() const { return kMostSourceBytes; }
  /// Creates a file for `path`, or returns null on a failure.  A symbolic link of that name is followed, and
  /// kept, if its target is in the folder of `path` or below it; for any other link the failure is
  /// LeadsOutside.  Owner, group and mode of a file that is replaced are kept as far as the system lets this
  /// user set them.
  virtual std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure = nullptr,
                                                 FileWriting writing = {}) = 0;
  /// Whether anything, a folder included, has the name `path`.
  virtual bool exists(const std::string& path) = 0;

  // --- commands of the menu ---
  /// The names of a folder's entries, one a line, sorted, folders with a "/" at the end; for a file, its own
  /// name.  Nothing, with the reason, if the folder cannot be listed.
  virtual std::optional<std::string> folderListing(const std::string& path, FileFailure* failure) = 0;
  virtual bool deleteFile(const std::string& path, FileFailure* failure) = 0;
  /// Opens a file in a text editor and waits for its end.  No shell is involved, and the name is passed in a
  /// form that no program takes for an option or a command.  `path` must be a regular file or not exist.  The
  /// terminal's settings are restored afterwards, however the editor has ended.
  virtual EditResult editFile(const EditorCommand& editor, const std::string& path) = 0;
  /// Shows a UTF-8 text in a pager and waits for its end.  The pager can neither change the file nor start a
  /// command; `keys` is the ASCII text of its last row.  False if input or output is not a terminal, or no pager
  /// could be started.
  virtual bool pageFile(const std::string& /*path*/, const std::string& /*keys*/) { return false; }
  /// Opens a document with the desktop, detached from the console, and does not wait.  False if there is no
  /// desktop.
  virtual bool openOnDesktop(const std::string& path) = 0;
  virtual void bringConsoleToFront() = 0;

  // --- environment ---
  /// The working directory, or nothing with the system's text in `failure`.
  virtual std::optional<std::string> workingDirectory(FileFailure* failure = nullptr) = 0;
  virtual bool userInterfaceIsJapanese() = 0;
  /// The processor time that std::clock() gives, in milliseconds.
  virtual std::int32_t clockMilliseconds() = 0;
  /// The system clock in units of 100 nanoseconds.
  virtual std::int64_t chronoTicks() = 0;
  /// The monotonic counter of the highest resolution, and its ticks per second (0 if there is none).
  virtual std::int64_t performanceCounter() = 0;
  virtual std::int64_t performanceFrequency() = 0;
  virtual std::tm localTime() = 0;
  /// A random number, 0 or above.
  virtual int randomNumber() = 0;
};

}  // namespace zelvaro
