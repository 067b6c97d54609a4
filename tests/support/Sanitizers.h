// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_SANITIZERS_H_
#define ZEVO_TESTS_SUPPORT_SANITIZERS_H_

// Each compiler says it in its own way.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ZEVO_SANITIZED true
#elif defined(__has_feature)
#define ZEVO_SANITIZED (__has_feature(address_sanitizer) || __has_feature(thread_sanitizer))
#else
#define ZEVO_SANITIZED false
#endif

namespace zevo::testing {

/// Whether memory is watched by a sanitizer, which needs much of its own and finds leaks itself.
inline constexpr bool kSanitized = ZEVO_SANITIZED;

}  // namespace zevo::testing

#undef ZEVO_SANITIZED

#endif  // ZEVO_TESTS_SUPPORT_SANITIZERS_H_
