// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/SnakeCase.h>

#include <zevo/Digit.h>

#include <cstddef>

namespace zevo {
namespace {

bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }
bool IsSmall(char c) { return c >= 'a' && c <= 'z'; }

// Whether a word begins at a position after the first.
bool BeginsWord(std::string_view name, size_t at) {
  if (!IsCapital(name[at])) return false;
  const char before = name[at - 1];
  return IsSmall(before) || IsDigit(before) || (IsCapital(before) && at + 1 < name.size() && IsSmall(name[at + 1]));
}

}  // namespace

std::string SnakeCase(std::string_view name) {
  std::string text;
  for (size_t at = 0; at < name.size(); ++at) {
    if (at > 0 && BeginsWord(name, at)) text += '_';
    text += IsCapital(name[at]) ? static_cast<char>(name[at] - 'A' + 'a') : name[at];
  }
  return text;
}

}  // namespace zevo
