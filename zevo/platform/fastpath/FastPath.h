// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_FASTPATH_H_
#define ZEVO_PLATFORM_FASTPATH_FASTPATH_H_

namespace zevo {

/// Whether the library has the fast path at all: not where it is built with ZEVO_FAST_PATH=OFF. Then what needs the
/// engine is not compiled, and its sources are left out.
#ifdef ZEVO_NO_FAST_PATH
inline constexpr bool kHasFastPath = false;
#else
inline constexpr bool kHasFastPath = true;
#endif

/// Whether files are tried on the fast path before libxml2 gets them. Never without it;
/// otherwise unless the environment variable ZEVO_FAST_PATH was "off" when this was asked first.
bool IsFastPathOn();
/// For tests: switches it for the whole process. Does nothing in a library without it.
void SetFastPath(bool on);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_FASTPATH_H_
