#include "failing_calls_posix.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <utility>

namespace {

int callsLeft = -1;  // none is counted
std::function<int()> atThatCall;

bool failsNow() {
  if (callsLeft < 0 || callsLeft-- > 0) return false;
  errno = atThatCall();
  return errno != 0;
}

template <typename Result, typename... Arguments>
Result passedOn(const char* call, Arguments... arguments) {
  if (failsNow()) return -1;
  return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, call))(arguments...);
}

}  // namespace

namespace failing_calls {

bool linksWork = true;

bool struck(int calls, std::function<int()> strike, const std::function<void()>& body) {
  atThatCall = std::move(strike);
  callsLeft = calls;
  body();
  return std::exchange(callsLeft, -1) < 0;
}

void strikeAgain(int calls) { callsLeft = calls; }

int inChild(const std::function<int()>& body) {
  const pid_t child = fork();
  if (child == 0) _exit(body());
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace failing_calls

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  if (failsNow()) return -1;
  return reinterpret_cast<int (*)(const char*, int, ...)>(dlsym(RTLD_NEXT, "open"))(path, flags,
                                                                                    mode);
}

ssize_t write(int file, const void* bytes, size_t count) {
  return passedOn<ssize_t>("write", file, bytes, count);
}

// What a failing flush was to bring to disk is lost, and the next one doesn't tell. The others need
// not wait for the disk: a process that is killed takes nothing from the system's memory.
int fsync(int file) {
  if (!failsNow()) return 0;
  const int error = errno;
  static_cast<void>(ftruncate(file, 0) == 0);
  return errno = error, -1;
}

int rename(const char* from, const char* to) noexcept { return passedOn<int>("rename", from, to); }

int link(const char* from, const char* to) noexcept {
  if (!failing_calls::linksWork) return errno = EPERM, -1;
  return passedOn<int>("link", from, to);
}

int unlink(const char* path) noexcept { return passedOn<int>("unlink", path); }

int remove(const char* path) noexcept { return passedOn<int>("remove", path); }

int fchmod(int file, mode_t mode) noexcept { return passedOn<int>("fchmod", file, mode); }

int faccessat(int folder, const char* path, int how, int flags) noexcept {
  return passedOn<int>("faccessat", folder, path, how, flags);
}

}  // extern "C"
