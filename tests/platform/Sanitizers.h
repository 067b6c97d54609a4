#ifndef ZEVO_TESTS_PLATFORM_SANITIZERS_H_
#define ZEVO_TESTS_PLATFORM_SANITIZERS_H_

namespace zevo::testing {

/// Whether memory is watched by a sanitizer, which needs much of its own and finds leaks itself.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_SANITIZERS_H_
