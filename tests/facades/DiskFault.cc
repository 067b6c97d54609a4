// SPDX-License-Identifier: Apache-2.0
#include "tests/facades/DiskFault.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace zevo::testing {
namespace {

struct State {
  std::string folder;
  int strikes_at;
  FaultKind kind;
  int error;
  int calls = 0;
  std::string struck;
  std::vector<int> descriptors;
};

State* state = nullptr;

template <class Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsWatched(const char* name) { return state != nullptr && std::string_view(name).starts_with(state->folder); }
bool IsWatched(int descriptor) { return state != nullptr && std::ranges::count(state->descriptors, descriptor) > 0; }

// Counts a call; whether the fault strikes it.
bool Strikes(const char* function) {
  if (++state->calls != state->strikes_at || state->kind == FaultKind::kNone) return false;
  state->struck = function;
  return true;
}

// What a struck call returns, when it does.
int Fault() {
  if (state->kind == FaultKind::kDeath) raise(SIGKILL);
  errno = state->error;
  return -1;
}

template <class Call>
int Do(bool watched, const char* function, Call&& call) {
  if (watched && Strikes(function) && state->kind != FaultKind::kShortWrite) return Fault();
  return call();
}

int Open(const char* function, const char* name, int flags, mode_t mode) {
  const bool watched = IsWatched(name);
  const int descriptor =
      Do(watched, "open", [&] { return Next<int(const char*, int, ...)>(function)(name, flags, mode); });
  if (watched && descriptor >= 0) state->descriptors.push_back(descriptor);
  return descriptor;
}

// A duplicate is watched like the descriptor it was made of.
int Control(const char* function, int descriptor, int command, void* argument) {
  const bool watched = IsWatched(descriptor);
  const int result =
      Do(watched, "fcntl", [&] { return Next<int(int, int, ...)>(function)(descriptor, command, argument); });
  if (watched && result >= 0 && command == F_DUPFD_CLOEXEC) state->descriptors.push_back(result);
  return result;
}

mode_t ModeOf(int flags, va_list arguments) { return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0; }

}  // namespace

DiskFault::DiskFault(const std::string& folder, int call, FaultKind kind, int error) {
  if (state != nullptr) throw std::logic_error("one fault at a time");
  state =
      new State{.folder = folder, .strikes_at = call, .kind = kind, .error = error, .struck = {}, .descriptors = {}};
}

DiskFault::~DiskFault() {
  delete state;
  state = nullptr;
}

int DiskFault::Calls() const { return state->calls; }
const std::string& DiskFault::Struck() const { return state->struck; }
int DiskFault::OpenFiles() const { return static_cast<int>(state->descriptors.size()); }

extern "C" {

__attribute__((visibility("default"))) int open(const char* name, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return Open("open", name, flags, mode);
}

__attribute__((visibility("default"))) int open64(const char* name, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return Open("open64", name, flags, mode);
}

__attribute__((visibility("default"))) int fcntl(int descriptor, int command, ...) {
  va_list arguments;
  va_start(arguments, command);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  return Control("fcntl", descriptor, command, argument);
}

__attribute__((visibility("default"))) int fcntl64(int descriptor, int command, ...) {
  va_list arguments;
  va_start(arguments, command);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  return Control("fcntl64", descriptor, command, argument);
}

__attribute__((visibility("default"))) int flock(int descriptor, int operation) {
  return Do(IsWatched(descriptor), "flock", [&] { return Next<int(int, int)>("flock")(descriptor, operation); });
}

__attribute__((visibility("default"))) ssize_t write(int descriptor, const void* bytes, size_t size) {
  const auto next = Next<ssize_t(int, const void*, size_t)>("write");
  if (!IsWatched(descriptor) || !Strikes("write")) return next(descriptor, bytes, size);
  if (state->kind == FaultKind::kError) return Fault();
  const ssize_t written = next(descriptor, bytes, (size + 1) / 2);
  return state->kind == FaultKind::kDeath ? Fault() : written;
}

__attribute__((visibility("default"))) int fsync(int descriptor) {
  return Do(IsWatched(descriptor), "fsync", [&] { return Next<int(int)>("fsync")(descriptor); });
}

__attribute__((visibility("default"))) int fchmod(int descriptor, mode_t mode) {
  return Do(IsWatched(descriptor), "fchmod", [&] { return Next<int(int, mode_t)>("fchmod")(descriptor, mode); });
}

__attribute__((visibility("default"))) int fchown(int descriptor, uid_t owner, gid_t group) {
  return Do(IsWatched(descriptor), "fchown",
            [&] { return Next<int(int, uid_t, gid_t)>("fchown")(descriptor, owner, group); });
}

__attribute__((visibility("default"))) int close(int descriptor) {
  const bool watched = IsWatched(descriptor);
  if (watched) std::erase(state->descriptors, descriptor);
  const auto next = Next<int(int)>("close");
  if (!watched || !Strikes("close") || state->kind == FaultKind::kShortWrite) return next(descriptor);
  if (state->kind == FaultKind::kError) next(descriptor);
  return Fault();
}

__attribute__((visibility("default"))) int rename(const char* from, const char* to) {
  return Do(IsWatched(from), "rename", [&] { return Next<int(const char*, const char*)>("rename")(from, to); });
}

__attribute__((visibility("default"))) int unlink(const char* name) {
  return Do(IsWatched(name), "unlink", [&] { return Next<int(const char*)>("unlink")(name); });
}

}  // extern "C"

}  // namespace zevo::testing
