// The system's header without what it has besides, handles that close themselves, names and texts in UTF-16.
#pragma once

#ifndef UNICODE
#define UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Failures.h"

namespace zelvaro::windows {

std::wstring wide(std::string_view utf8);
/// To UTF-8; a surrogate without its other half, which a file name may have, becomes U+FFFD.
std::string narrow(std::wstring_view text);

/// Why a call of the system has failed: the words of an errno where there is one, else the system's own.
FileFailure failureOfSystem(DWORD error);

/// The handle of a standard descriptor, or of any other; INVALID_HANDLE_VALUE if it is closed.
HANDLE handleOf(int descriptor);
bool isConsole(HANDLE handle);

/// Reads up to `size` bytes and returns how many there were, 0 at the end.  Nothing on a failure, whose cause is in
/// GetLastError(); the closed end of a pipe is none.
std::optional<std::size_t> readSome(HANDLE from, char* to, std::size_t size);
/// Writes all bytes.  Returns 0 or the system's error.
DWORD writeAll(HANDLE to, std::string_view bytes);

/// Owns a handle and closes it.
class Handle {
 public:
  explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  ~Handle() { close(); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&& other) noexcept {
    close();
    handle_ = std::exchange(other.handle_, INVALID_HANDLE_VALUE);
    return *this;
  }

  bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
  HANDLE get() const { return handle_; }
  void close() {
    if (isOpen()) ::CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE handle_;
};

}  // namespace zelvaro::windows
