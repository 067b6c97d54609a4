// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/windows/WideText.h>

#include <windows.h>
#include <zevo/Error.h>

#include <climits>

namespace zevo {
namespace {

int CheckedSize(size_t size) {
  if (size > INT_MAX) throw MakeRunTimeError(RunTimeError::kOverflow);
  return static_cast<int>(size);
}

}  // namespace

std::wstring WideFromUtf8(std::string_view text) {
  std::wstring result;
  const int size = CheckedSize(text.size());
  if (size == 0) return result;
  result.resize(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)));
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), static_cast<int>(result.size()));
  return result;
}

std::string Utf8FromWide(std::wstring_view text) {
  std::string result;
  const int size = CheckedSize(text.size());
  if (size == 0) return result;
  result.resize(static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr)));
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, result.data(), static_cast<int>(result.size()), nullptr, nullptr);
  return result;
}

}  // namespace zevo
