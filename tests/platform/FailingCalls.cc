// SPDX-License-Identifier: Apache-2.0
#include "tests/platform/FailingCalls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <string>

namespace zevo::testing {
namespace {

struct Plan {
  std::string function;
  int calls_left = 0;
  int error = 0;
  bool happened = false;
  bool short_transfers = false;
  bool interruptions = false;
  bool interrupted = false;  // the last call was
};

Plan& ThePlan() {
  static Plan plan;
  return plan;
}

// Whether this call is the one to fail; sets errno when it is.
bool Fails(std::string_view function, bool interruptible) {
  Plan& plan = ThePlan();
  if (plan.interruptions && interruptible) {
    plan.interrupted = !plan.interrupted;
    if (plan.interrupted) {
      errno = EINTR;
      return true;
    }
  }
  if (plan.function != function || --plan.calls_left != 0) return false;
  plan.happened = true;
  errno = plan.error;
  return true;
}

size_t Transferred(size_t size) { return ThePlan().short_transfers ? std::min<size_t>(size, 1) : size; }

}  // namespace

FailingCall::FailingCall(std::string_view function, int nth, int error) {
  ThePlan() = Plan{};
  ThePlan().calls_left = nth;
  ThePlan().error = error;
  ThePlan().function = function;
}
FailingCall::~FailingCall() { ThePlan() = Plan{}; }
bool FailingCall::Happened() const { return ThePlan().happened; }

ShortTransfers::ShortTransfers() { ThePlan().short_transfers = true; }
ShortTransfers::~ShortTransfers() { ThePlan().short_transfers = false; }

Interruptions::Interruptions() { ThePlan().interruptions = true; }
Interruptions::~Interruptions() { ThePlan() = Plan{}; }

extern "C" {

int __real_open(const char* path, int flags, mode_t mode);
ssize_t __real_read(int descriptor, void* bytes, size_t size);
ssize_t __real_write(int descriptor, const void* bytes, size_t size);
int __real_fsync(int descriptor);
int __real_close(int descriptor);
int __real_rename(const char* from, const char* to);
int __real_fchmod(int descriptor, mode_t mode);
int __real_unlink(const char* path);
int __real_flock(int descriptor, int operation);

int __wrap_open(const char* path, int flags, ...) {
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list arguments;
    va_start(arguments, flags);
    mode = va_arg(arguments, mode_t);
    va_end(arguments);
  }
  return Fails("open", true) ? -1 : __real_open(path, flags, mode);
}

ssize_t __wrap_read(int descriptor, void* bytes, size_t size) {
  return Fails("read", true) ? -1 : __real_read(descriptor, bytes, Transferred(size));
}

ssize_t __wrap_write(int descriptor, const void* bytes, size_t size) {
  return Fails("write", true) ? -1 : __real_write(descriptor, bytes, Transferred(size));
}

int __wrap_fsync(int descriptor) { return Fails("fsync", true) ? -1 : __real_fsync(descriptor); }

// Even when it fails, the descriptor is gone.
int __wrap_close(int descriptor) {
  const int closed = __real_close(descriptor);
  return Fails("close", false) ? -1 : closed;
}

int __wrap_rename(const char* from, const char* to) { return Fails("rename", false) ? -1 : __real_rename(from, to); }

int __wrap_fchmod(int descriptor, mode_t mode) { return Fails("fchmod", false) ? -1 : __real_fchmod(descriptor, mode); }

int __wrap_flock(int descriptor, int operation) {
  return Fails("flock", false) ? -1 : __real_flock(descriptor, operation);
}

int __wrap_unlink(const char* path) { return Fails("unlink", false) ? -1 : __real_unlink(path); }

}  // extern "C"

}  // namespace zevo::testing
