// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_REPLACEMENT_H_
#define ZEVO_TESTS_PLATFORM_REPLACEMENT_H_

#include <zevo/platform/File.h>

#include <string>
#include <string_view>

namespace zevo::testing {

inline constexpr std::string_view kOld = "old content";
inline constexpr std::string_view kNew = "new and longer content";

/// Puts a file of those bytes in the place of what is there.
inline void Replace(const std::string& target, std::string_view bytes) {
  FileReplacement replacement(target);
  replacement.Write(bytes);
  replacement.Commit();
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_REPLACEMENT_H_
