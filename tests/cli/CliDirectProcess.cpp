#if defined(__linux__)

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <string>
#include <vector>

#include "cli/CliProcess.h"

extern char** environ;

namespace kartova::test {

namespace {

constexpr int kTimeoutMs = 60000;

struct Stream {
  int fd = -1;
  std::string* text = nullptr;
};

// Reads both streams until the child has closed them; a pseudo terminal reports EIO then.
bool Drain(std::vector<Stream> streams) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(kTimeoutMs);
  while (!streams.empty()) {
    std::vector<pollfd> fds;
    for (const Stream& s : streams) fds.push_back({s.fd, POLLIN, 0});
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    if (left.count() <= 0) return false;
    if (::poll(fds.data(), fds.size(), static_cast<int>(left.count())) < 0 && errno != EINTR) return false;
    for (std::size_t i = fds.size(); i-- > 0;) {
      if (fds[i].revents == 0) continue;
      char buffer[4096];
      const ssize_t n = ::read(streams[i].fd, buffer, sizeof buffer);
      if (n > 0) {
        streams[i].text->append(buffer, static_cast<std::size_t>(n));
      } else if (n == 0 || errno != EINTR) {
        ::close(streams[i].fd);
        streams.erase(streams.begin() + static_cast<std::ptrdiff_t>(i));
      }
    }
  }
  return true;
}

}  // namespace

CliResult RunCliDirect(const std::vector<std::string>& args, bool stderr_on_terminal) {
  CliResult result;
  int out[2], err[2];
  if (::pipe2(out, O_CLOEXEC) != 0) return result;
  if (stderr_on_terminal ? ::openpty(&err[0], &err[1], nullptr, nullptr, nullptr) != 0
                         : ::pipe2(err, O_CLOEXEC) != 0)
    return result;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
  posix_spawn_file_actions_addclose(&actions, err[0]);

  std::vector<std::string> argv_text = {KARTOVA_CLI_PATH};
  argv_text.insert(argv_text.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& a : argv_text) argv.push_back(a.data());
  argv.push_back(nullptr);
  std::vector<std::string> env_text = {"ASAN_OPTIONS=detect_leaks=0"};
  for (char** e = environ; *e != nullptr; ++e)
    if (std::string(*e).rfind("ASAN_OPTIONS=", 0) != 0) env_text.emplace_back(*e);
  std::vector<char*> env;
  for (std::string& e : env_text) env.push_back(e.data());
  env.push_back(nullptr);

  pid_t pid = -1;
  const int spawned = ::posix_spawn(&pid, KARTOVA_CLI_PATH, &actions, nullptr, argv.data(), env.data());
  posix_spawn_file_actions_destroy(&actions);
  ::close(out[1]);
  ::close(err[1]);
  if (spawned != 0) {
    ::close(out[0]);
    ::close(err[0]);
    return result;
  }
  const bool drained = Drain({{out[0], &result.out}, {err[0], &result.err}});
  if (!drained) ::kill(pid, SIGKILL);
  int status = 0;
  while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  if (drained && WIFEXITED(status)) result.status = WEXITSTATUS(status);
  return result;
}

}  // namespace kartova::test

#endif
