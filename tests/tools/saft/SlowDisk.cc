// SPDX-License-Identifier: Apache-2.0
// Preloaded into the program: every read of a piece of a file takes a while, and so does every flush to disk.

#include <dlfcn.h>
#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <thread>

namespace {

void Wait() { std::this_thread::sleep_for(std::chrono::milliseconds(150)); }

template <class Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" ssize_t read(int descriptor, void* bytes, size_t size) {
  static const auto real = Next<ssize_t(int, void*, size_t)>("read");
  constexpr size_t kPiece = size_t{4} * 1024;
  if (size >= kPiece) Wait();
  return real(descriptor, bytes, size);
}

extern "C" int fsync(int descriptor) {
  static const auto real = Next<int(int)>("fsync");
  Wait();
  return real(descriptor);
}
