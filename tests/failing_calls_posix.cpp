#include "failing_calls_posix.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

namespace failing_calls {

int callsLeft = never;
std::string struckCall;
bool linksWork = true;
std::function<int()> atThatCall;

int inChild(const std::function<int()>& body) {
  const pid_t child = fork();
  if (child == 0) _exit(body());
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace failing_calls

namespace {

using failing_calls::callsLeft;

bool failsNow(const char* call) {
  if (callsLeft == failing_calls::never || callsLeft-- > 0) return false;
  callsLeft = failing_calls::never;
  failing_calls::struckCall = call;
  errno = failing_calls::atThatCall();
  return errno != 0;
}

template <typename Call>
Call* original(const char* name) {
  return reinterpret_cast<Call*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  const char* const call = (flags & O_CREAT) != 0 ? "create" : "open";
  return failsNow(call) ? -1 : original<int(const char*, int, ...)>("open")(path, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t count) {
  return failsNow("write")
             ? -1
             : original<ssize_t(int, const void*, size_t)>("write")(file, bytes, count);
}

// What a failing flush was to bring to disk is lost, and the next one doesn't tell.
int fsync(int file) {
  const bool folder = (fcntl(file, F_GETFL) & O_DIRECTORY) != 0;
  if (!failsNow(folder ? "fsync folder" : "fsync")) return original<int(int)>("fsync")(file);
  const int error = errno;
  static_cast<void>(ftruncate(file, 0) == 0);
  return errno = error, -1;
}

int rename(const char* from, const char* to) noexcept {
  return failsNow("rename") ? -1 : original<int(const char*, const char*)>("rename")(from, to);
}

int link(const char* from, const char* to) noexcept {
  if (!failing_calls::linksWork) return errno = EPERM, -1;
  return failsNow("link") ? -1 : original<int(const char*, const char*)>("link")(from, to);
}

int unlink(const char* path) noexcept {
  return failsNow("unlink") ? -1 : original<int(const char*)>("unlink")(path);
}

int remove(const char* path) noexcept {
  return failsNow("remove") ? -1 : original<int(const char*)>("remove")(path);
}

int fchmod(int file, mode_t mode) noexcept {
  return failsNow("fchmod") ? -1 : original<int(int, mode_t)>("fchmod")(file, mode);
}

int faccessat(int folder, const char* path, int how, int flags) noexcept {
  return failsNow("faccessat")
             ? -1
             : original<int(int, const char*, int, int)>("faccessat")(folder, path, how, flags);
}

}  // extern "C"
