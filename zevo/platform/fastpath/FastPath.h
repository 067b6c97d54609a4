// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_FASTPATH_H_
#define ZEVO_PLATFORM_FASTPATH_FASTPATH_H_

namespace zevo {

/// Whether files are tried on the fast path before libxml2 gets them. Never where the library was built with
/// ZEVO_FAST_PATH=OFF; otherwise unless the environment variable ZEVO_FAST_PATH was "off" when this was asked first.
bool IsFastPathOn();
/// For tests: switches it for the whole process. Does nothing where the library was built with it off.
void SetFastPath(bool on);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_FASTPATH_H_
