// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Folders.h>

#include <windows.h>
// After windows.h.
#include <shlobj.h>
#include <zevo/platform/windows/LibraryFile.h>
#include <zevo/platform/windows/WideText.h>

#include <array>

namespace zevo {

std::string CommonFilesFolder() {
  std::array<wchar_t, MAX_PATH> folder{};
  if (SHGetFolderPathW(nullptr, CSIDL_PROGRAM_FILES_COMMON, nullptr, SHGFP_TYPE_CURRENT, folder.data()) != S_OK) {
    return {};
  }
  return Utf8FromWide(folder.data());
}

std::string LibraryFolder() {
  const std::wstring path = LibraryFile();
  const size_t separator = path.rfind(L'\\');
  return separator == std::wstring::npos ? std::string() : Utf8FromWide(path.substr(0, separator));
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  return std::string(folder).append("\\").append(name);
}

}  // namespace zevo
