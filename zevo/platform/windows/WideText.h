// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_WINDOWS_WIDETEXT_H_
#define ZEVO_PLATFORM_WINDOWS_WIDETEXT_H_

#include <string>
#include <string_view>

namespace zevo {

/// UTF-8 as the UTF-16 of the system's own calls. What is not UTF-8 becomes U+FFFD.
std::wstring WideFromUtf8(std::string_view text);

/// UTF-16 as UTF-8. A half of a pair that stands alone becomes U+FFFD.
std::string Utf8FromWide(std::wstring_view text);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_WINDOWS_WIDETEXT_H_
