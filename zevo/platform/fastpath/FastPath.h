// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_FASTPATH_H_
#define ZEVO_PLATFORM_FASTPATH_FASTPATH_H_

namespace zevo {

/// Whether files are tried on the fast path before libxml2 gets them. Off where the library was built without it
/// (ZEVO_FAST_PATH=OFF) and where the environment variable ZEVO_FAST_PATH was "off" when this was asked first.
bool IsFastPathOn();
/// For tests: has their own way until they say otherwise.
void SetFastPath(bool on);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_FASTPATH_H_
