// Preloaded into the program: every read of a large piece of a file takes a while.

#include <dlfcn.h>
#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <thread>

extern "C" ssize_t read(int descriptor, void* bytes, size_t size) {
  static const auto real = reinterpret_cast<ssize_t (*)(int, void*, size_t)>(dlsym(RTLD_NEXT, "read"));
  constexpr size_t kLarge = 16 * 1024;
  if (size >= kLarge) std::this_thread::sleep_for(std::chrono::milliseconds(150));
  return real(descriptor, bytes, size);
}
