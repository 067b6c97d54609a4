// SPDX-License-Identifier: Apache-2.0
#include "fuzz/FileInMemory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>

namespace zevo::fuzz {

FileInMemory::FileInMemory()
    : descriptor_(memfd_create("fuzz", MFD_CLOEXEC)), path_("/proc/self/fd/" + std::to_string(descriptor_)) {
  if (descriptor_ < 0) std::abort();
}

FileInMemory::~FileInMemory() { close(descriptor_); }

void FileInMemory::Replace(std::string_view bytes) {
  if (ftruncate(descriptor_, 0) != 0 || pwrite(descriptor_, bytes.data(), bytes.size(), 0) < 0) std::abort();
}

}  // namespace zevo::fuzz
