// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Folders.h>

#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace zevo {
namespace {

// The path of the file that lies in memory where this code is, as the kernel has it; empty when it does not tell.
std::string MappedFile() {
  const auto code = reinterpret_cast<uintptr_t>(&LibraryFolder);
  std::ifstream mappings("/proc/self/maps");
  for (std::string line; std::getline(mappings, line);) {
    uintptr_t begin = 0;
    uintptr_t end = 0;
    char dash = 0;
    std::istringstream(line) >> std::hex >> begin >> dash >> end;
    if (begin <= code && code < end) return line.substr(std::min(line.find('/'), line.size()));
  }
  return {};
}

// The path of the file that this code was loaded from.
std::string LoadedFile() {
  Dl_info info{};
  void* loaded = nullptr;
  if (dladdr1(reinterpret_cast<const void*>(&LibraryFolder), &info, &loaded, RTLD_DL_LINKMAP) != 0) {
    const char* const name = static_cast<const link_map*>(loaded)->l_name;
    // A relative path led there from what was the current folder then.
    if (name != nullptr && *name != '\0') return *name == '/' ? name : MappedFile();
  }
  // The code is part of the program itself. For that the loader gives the name by which it was called, which the caller
  // chooses freely.
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

}  // namespace

std::string CommonFilesFolder() { return {}; }

std::string LibraryFolder() {
  const std::string file = LoadedFile();
  return file.starts_with('/') ? file.substr(0, std::max<size_t>(file.rfind('/'), 1)) : std::string();
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  return std::string(folder).append("/").append(name);
}

}  // namespace zevo
