// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_LETTERCASE_H_
#define ZEVO_PLATFORM_LETTERCASE_H_

#include <string>
#include <string_view>

namespace zevo {

// Letter case of the letters that Windows-1252 has; all other characters have none. Texts are UTF-8.

std::string FoldCase(std::string_view text);

/// Whether two texts differ in nothing but letter case.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_LETTERCASE_H_
