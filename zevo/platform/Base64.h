// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_BASE64_H_
#define ZEVO_PLATFORM_BASE64_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// The bytes of a text in base64, with its "=" at the end. White space counts for nothing. Nothing for any other text.
std::optional<std::string> Base64Decoded(std::string_view text);

/// Whether a text is what `Base64Of` makes of so many bytes.
bool IsBase64Of(std::string_view text, size_t bytes);

/// Bytes as base64, in one line.
std::string Base64Of(std::string_view bytes);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_BASE64_H_
