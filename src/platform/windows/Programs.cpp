#include "platform/windows/Programs.h"

#include <algorithm>

#include "platform/CommandLine.h"
#include "platform/windows/Paths.h"

namespace zelvaro::windows {
namespace {

/// Not of batch files: for those the system would start its command interpreter.
constexpr std::wstring_view kProgramExtensions[] = {L".exe", L".com"};

bool isProgram(const std::wstring& name) {
  const DWORD attributes = attributesOf(name);
  return attributes != INVALID_FILE_ATTRIBUTES && !isFolder(attributes) &&
         std::ranges::any_of(kProgramExtensions, [&](std::wstring_view extension) {
           return name.size() > extension.size() &&
                  ::CompareStringOrdinal(name.c_str() + name.size() - extension.size(), -1, extension.data(),
                                         static_cast<int>(extension.size()), TRUE) == CSTR_EQUAL;
         });
}

/// A program by its full name, with or without its extension.
std::optional<std::wstring> withExtension(const std::wstring& name) {
  if (isProgram(name)) return name;
  for (const std::wstring_view extension : kProgramExtensions)
    if (std::wstring whole = name + std::wstring(extension); isProgram(whole)) return whole;
  return std::nullopt;
}

std::wstring systemFolder() {
  std::wstring folder(MAX_PATH, L'\0');
  folder.resize(::GetSystemDirectoryW(folder.data(), MAX_PATH));
  return folder;
}

std::wstring searchPath() {
  std::wstring path(32767, L'\0');  // the most that the system allows
  path.resize(::GetEnvironmentVariableW(L"PATH", path.data(), static_cast<DWORD>(path.size())));
  return systemFolder() + L";" + path;
}

/// The file of a program: a name without a folder is searched for in the search path, never in the working folder.
std::optional<std::wstring> programFile(const std::string& program) {
  if (program.find_first_of("/\\:") != program.npos) {
    const auto name = fullName(program, nullptr);
    return name ? withExtension(*name) : std::nullopt;
  }
  const std::wstring folders = searchPath();
  for (std::size_t from = 0, end = 0; end != folders.npos; from = end + 1) {
    end = folders.find(L';', from);
    std::wstring folder = folders.substr(from, end - from);
    std::erase(folder, L'"');
    if (folder.empty() || folder == L".") continue;
    if (auto file = withExtension(folder + L'\\' + wide(program))) return file;
  }
  return std::nullopt;
}

/// Ctrl+C and Ctrl+Break are for the program that this one waits for.
class IgnoredKeys {
 public:
  IgnoredKeys() { ::SetConsoleCtrlHandler(ignore, TRUE); }
  ~IgnoredKeys() { ::SetConsoleCtrlHandler(ignore, FALSE); }
  IgnoredKeys(const IgnoredKeys&) = delete;
  IgnoredKeys& operator=(const IgnoredKeys&) = delete;

 private:
  static BOOL WINAPI ignore(DWORD event) { return event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT; }
};

/// Restores the console's modes, whatever the started program has changed.
class KeptModes {
 public:
  KeptModes() {
    for (Kept& kept : all_) kept.known = ::GetConsoleMode(kept.handle, &kept.mode) != 0;
  }
  ~KeptModes() {
    for (const Kept& kept : all_)
      if (kept.known) ::SetConsoleMode(kept.handle, kept.mode);
  }
  KeptModes(const KeptModes&) = delete;
  KeptModes& operator=(const KeptModes&) = delete;

 private:
  struct Kept {
    HANDLE handle;
    DWORD mode = 0;
    bool known = false;
  };
  Kept all_[2]{{::GetStdHandle(STD_INPUT_HANDLE)}, {::GetStdHandle(STD_OUTPUT_HANDLE)}};
};

}  // namespace

std::string quotedArgument(std::string_view argument) {
  if (!argument.empty() && argument.find_first_of(" \t\n\v\"") == argument.npos) return std::string(argument);
  std::string out = "\"";
  std::size_t backslashes = 0;
  for (const char c : argument) {
    if (c == '"') out.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    out += c;
  }
  out.append(backslashes, '\\');
  return out + '"';
}

std::string asArgument(const std::string& path) {
  std::string out = path;
  std::ranges::replace(out, '/', '\\');
  const bool isAbsolute = out.starts_with('\\') || (out.size() > 1 && out[1] == ':');
  return isAbsolute || out.starts_with(".\\") ? out : ".\\" + out;
}

std::vector<std::string> editorCommand(std::string_view setting) {
  return zelvaro::editorCommand(setting,
                                [](const std::string& name) { return programFile(name).has_value(); });
}

std::string ownEditor() {
  return narrow(systemFolder() + L"\\notepad.exe");
}

DWORD runAndWait(const std::vector<std::string>& arguments, bool readsConsole) {
  const auto program = programFile(arguments.front());
  if (!program) return ERROR_FILE_NOT_FOUND;
  std::string words;
  for (const std::string& argument : arguments)
    words += (words.empty() ? "" : " ") + quotedArgument(argument);
  std::wstring commandLine = wide(words);

  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  Handle nothing;  // piped input belongs to this program's own dialogue
  if (!readsConsole)
    nothing = Handle(::CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                   OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  STARTUPINFOW setting{};
  setting.cb = sizeof setting;
  setting.dwFlags = STARTF_USESTDHANDLES;
  setting.hStdInput = readsConsole ? ::GetStdHandle(STD_INPUT_HANDLE) : nothing.get();
  setting.hStdOutput = ::GetStdHandle(STD_OUTPUT_HANDLE);
  setting.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);

  const IgnoredKeys keys;
  const KeptModes modes;
  PROCESS_INFORMATION started{};
  if (::CreateProcessW(program->c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &setting, &started) == 0)
    return ::GetLastError();
  const Handle process(started.hProcess);
  const Handle thread(started.hThread);
  ::WaitForSingleObject(process.get(), INFINITE);
  return 0;
}

bool openDocument(const std::string& path) {
  constexpr INT_PTR kLastError = 32;
  const auto name = fullName(path, nullptr);
  return name && reinterpret_cast<INT_PTR>(::ShellExecuteW(nullptr, L"open", name->c_str(), nullptr, nullptr,
                                                           SW_SHOWNORMAL)) > kLastError;
}

}  // namespace zelvaro::windows
