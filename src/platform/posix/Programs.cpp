#include "platform/posix/Programs.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>

#include "platform/CommandLine.h"
#include "platform/posix/Files.h"

extern char** environ;

namespace zelvaro::posix {
namespace {

/// What posix_spawn is to do in the new process.
class SpawnSetting {
 public:
  SpawnSetting() {
    posix_spawn_file_actions_init(&actions);
    posix_spawnattr_init(&attributes);
  }
  ~SpawnSetting() {
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
  }
  SpawnSetting(const SpawnSetting&) = delete;
  SpawnSetting& operator=(const SpawnSetting&) = delete;

  void redirectToNothing(int fd) {
    posix_spawn_file_actions_addopen(&actions, fd, "/dev/null", fd == STDIN_FILENO ? O_RDONLY : O_WRONLY, 0);
  }
  void setFlags(int flags) { posix_spawnattr_setflags(&attributes, static_cast<short>(flags)); }
  void resetSignals(const sigset_t& signals) { posix_spawnattr_setsigdefault(&attributes, &signals); }

  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
};

sigset_t ignoredSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : kIgnoredSignals) sigaddset(&signals, signal);
  return signals;
}

/// Ignores the keys that end a program (Ctrl+C, Ctrl+\) while this program waits for another one.
class IgnoredKeys {
 public:
  IgnoredKeys() {
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGINT, &ignore, &interrupt_);
    ::sigaction(SIGQUIT, &ignore, &quit_);
  }
  ~IgnoredKeys() {
    ::sigaction(SIGINT, &interrupt_, nullptr);
    ::sigaction(SIGQUIT, &quit_, nullptr);
  }
  IgnoredKeys(const IgnoredKeys&) = delete;
  IgnoredKeys& operator=(const IgnoredKeys&) = delete;

  /// The signals to be reset to their default action in the new program: those that had it in this one.
  sigset_t forTheProgram() const {
    sigset_t signals = ignoredSignals();
    if (interrupt_.sa_handler != SIG_IGN) sigaddset(&signals, SIGINT);
    if (quit_.sa_handler != SIG_IGN) sigaddset(&signals, SIGQUIT);
    return signals;
  }

 private:
  struct sigaction interrupt_ {};
  struct sigaction quit_ {};
};

/// Restores a terminal's settings and its foreground process group, whatever the started program has changed.
class KeptTerminal {
 public:
  explicit KeptTerminal(int fd) : fd_(fd), known_(fd >= 0 && ::tcgetattr(fd, &mode_) == 0) {}
  ~KeptTerminal() {
    if (!known_) return;
    // if the started program has taken the terminal's foreground, this one is in the background, where the
    // signal would stop it
    struct sigaction ignore {
    }, old{};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGTTOU, &ignore, &old);
    ::tcsetpgrp(fd_, ::getpgrp());
    ::tcsetattr(fd_, TCSADRAIN, &mode_);
    ::sigaction(SIGTTOU, &old, nullptr);
  }
  KeptTerminal(const KeptTerminal&) = delete;
  KeptTerminal& operator=(const KeptTerminal&) = delete;

 private:
  int fd_;
  termios mode_{};
  bool known_;
};

/// The texts as an array for the system, with a null pointer at its end.
std::vector<char*> asArray(const std::vector<std::string>& texts) {
  std::vector<char*> array;
  array.reserve(texts.size() + 1);
  for (const std::string& text : texts) array.push_back(const_cast<char*>(text.c_str()));
  array.push_back(nullptr);
  return array;
}

/// This program's environment with other values for some variables.
std::vector<std::string> environmentWith(std::vector<std::string> variables) {
  const auto nameOf = [](std::string_view variable) { return variable.substr(0, variable.find('=') + 1); };
  const std::vector<std::string> own = variables;
  for (char** at = environ; *at != nullptr; ++at) {
    const bool replaced =
        std::ranges::any_of(own, [&](const std::string& v) { return nameOf(v) == nameOf(*at); });
    if (!replaced) variables.emplace_back(*at);
  }
  return variables;
}

int spawn(pid_t& pid, const std::vector<std::string>& arguments, const SpawnSetting& setting,
          const std::vector<std::string>& variables = {}) {
  const std::vector<char*> argv = asArray(arguments);
  const std::vector<std::string> environment = environmentWith(variables);
  return ::posix_spawnp(&pid, argv[0], &setting.actions, &setting.attributes, argv.data(),
                        asArray(environment).data());
}

bool isProgramFile(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

bool isSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

}  // namespace

std::vector<std::string> editorCommand(std::string_view setting) {
  return zelvaro::editorCommand(setting, [](const std::string& name) {
    return name.find('/') != std::string::npos ? isProgramFile(name) : isInstalled(name);
  });
}

std::string asArgument(const std::string& path) {
  return path.starts_with('/') || path.starts_with("./") ? path : "./" + path;
}

std::string asPagerPrompt(const std::string& text) {
  std::string prompt;
  for (const char c : text) {
    if (std::string_view("?:.%\\").find(c) != std::string_view::npos) prompt += '\\';
    prompt += c;
  }
  return prompt;
}

bool isInstalled(const std::string& program) {
  const char* variable = std::getenv("PATH");
  std::string_view folders = variable != nullptr ? variable : "/usr/local/bin:/usr/bin:/bin";
  for (;;) {
    const std::size_t colon = folders.find(':');
    const std::string file = std::string(folders.substr(0, colon)) + "/" + program;
    if (isProgramFile(file)) return true;
    if (colon == std::string_view::npos) return false;
    folders.remove_prefix(colon + 1);
  }
}

std::optional<std::string> ownEditor() {
  // sensible-editor is useful only if there is an editor that it can start
  const bool anyEditor =
      isSet("VISUAL") || isSet("EDITOR") || isInstalled("editor") || isInstalled("nano") || isInstalled("vi");
  if (anyEditor && isInstalled("sensible-editor")) return "sensible-editor";
  for (const char* editor : {"nano", "vi"})
    if (isInstalled(editor)) return editor;
  return std::nullopt;
}

int runAndWait(const std::vector<std::string>& arguments, int terminal,
               const std::vector<std::string>& variables) {
  const IgnoredKeys keys;
  const KeptTerminal kept(terminal);
  SpawnSetting setting;
  setting.resetSignals(keys.forTheProgram());
  setting.setFlags(POSIX_SPAWN_SETSIGDEF);
  // piped input belongs to this program's own dialogue
  if (terminal < 0) setting.redirectToNothing(STDIN_FILENO);
  pid_t pid = 0;
  const int error = spawn(pid, arguments, setting, variables);
  if (error != 0) return error;
  int status = 0;
  uninterrupted([&] { return ::waitpid(pid, &status, 0); });
  return 0;
}

int startDetached(const std::vector<std::string>& arguments, pid_t& pid) {
  SpawnSetting setting;
  setting.resetSignals(ignoredSignals());
  setting.setFlags(POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
  for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) setting.redirectToNothing(fd);
  return spawn(pid, arguments, setting);
}

}  // namespace zelvaro::posix
