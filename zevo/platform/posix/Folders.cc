#include <zevo/platform/Folders.h>

#include <dlfcn.h>

namespace zevo {

std::string CommonFilesFolder() { return {}; }

std::string LibraryFolder() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<const void*>(&LibraryFolder), &info) == 0 || info.dli_fname == nullptr) return {};
  const std::string_view path = info.dli_fname;
  const size_t separator = path.rfind('/');
  return separator == std::string_view::npos ? std::string(".") : std::string(path.substr(0, separator));
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  return std::string(folder).append("/").append(name);
}

}  // namespace zevo
