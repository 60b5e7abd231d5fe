#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace korvinel {

/// Runs an act in another process, as `user` if not 0, and returns its result, 0..254; 255 if the process could not
/// become that user.
inline int inAnotherProcess(const std::function<int()>& act, uid_t user = 0) {
  const pid_t child = fork();
  if (child == 0) {
    if (user != 0 && (setgroups(0, nullptr) != 0 || setgid(user) != 0 || setuid(user) != 0)) _exit(255);
    _exit(act());
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

/// A process that performs an act and then waits until it is killed.
class WaitingProcess {
 public:
  explicit WaitingProcess(const std::function<void()>& act) {
    int done[2];
    if (pipe(done) != 0) return;
    child_ = fork();
    if (child_ == 0) {
      act();
      static_cast<void>(write(done[1], "!", 1) == 1);
      for (;;) pause();
    }
    close(done[1]);
    char sign = 0;
    static_cast<void>(read(done[0], &sign, 1) == 1);
    close(done[0]);
  }
  WaitingProcess(const WaitingProcess&) = delete;
  WaitingProcess& operator=(const WaitingProcess&) = delete;
  ~WaitingProcess() { end(); }

  /// Kills it, without any chance to clean up.
  void end() {
    if (child_ <= 0) return;
    ::kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
    child_ = 0;
  }

 private:
  pid_t child_ = 0;
};

}  // namespace korvinel
