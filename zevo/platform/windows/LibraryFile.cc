// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/windows/LibraryFile.h>

#include <windows.h>

namespace zevo {

std::wstring LibraryFile() {
  HMODULE library = nullptr;
  constexpr DWORD kFlags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (GetModuleHandleExW(kFlags, reinterpret_cast<LPCWSTR>(&LibraryFile), &library) == 0) return {};
  // The system cuts a path that does not fit.
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD size = GetModuleFileNameW(library, path.data(), static_cast<DWORD>(path.size()));
    if (size < path.size()) {
      path.resize(size);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace zevo
