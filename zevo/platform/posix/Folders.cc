// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Folders.h>

#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace zevo {
namespace {

// The path of the file that this code was loaded from, as the loader has it.
std::string LoadedFile() {
  Dl_info info{};
  void* loaded = nullptr;
  if (dladdr1(reinterpret_cast<const void*>(&LibraryFolder), &info, &loaded, RTLD_DL_LINKMAP) != 0) {
    const char* const name = static_cast<const link_map*>(loaded)->l_name;
    if (name != nullptr && *name != '\0') return name;
  }
  // The code is part of the program itself. For that the loader gives the name by which it was called, which the caller
  // chooses freely.
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

}  // namespace

std::string CommonFilesFolder() { return {}; }

// A relative path depends on the current folder of the process.
std::string LibraryFolder() {
  const std::string file = LoadedFile();
  return file.starts_with('/') ? file.substr(0, std::max<size_t>(file.rfind('/'), 1)) : std::string();
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  return std::string(folder).append("/").append(name);
}

}  // namespace zevo
