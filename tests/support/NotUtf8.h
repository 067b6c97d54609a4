// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_NOTUTF8_H_
#define ZEVO_TESTS_SUPPORT_NOTUTF8_H_

#include <array>
#include <string_view>

namespace zevo::testing {

/// What is not well-formed from its first byte on: bytes out of place, characters cut off or broken, overlong forms,
/// surrogates and what is beyond the last code point.
inline constexpr std::array<std::string_view, 20> kNotWellFormed{"\x80",
                                                                 "\xBF",
                                                                 "\xC0\x80",
                                                                 "\xC1\xBF",
                                                                 "\xC3",
                                                                 "\xC3(",
                                                                 "\xE0\x80\xAF",
                                                                 "\xE0\x9F\xBF",
                                                                 "\xE2\x82",
                                                                 "\xE2\x82(",
                                                                 "\xED\xA0\x80",
                                                                 "\xED\xBF\xBF",
                                                                 "\xF0\x80\x80\xAF",
                                                                 "\xF0\x8F\xBF\xBF",
                                                                 "\xF0\x9F\x98",
                                                                 "\xF0\x9F\x98(",
                                                                 "\xF4\x90\x80\x80",
                                                                 "\xF5\x80\x80\x80",
                                                                 "\xFE",
                                                                 "\xFF"};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SUPPORT_NOTUTF8_H_
