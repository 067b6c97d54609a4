// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_KEYEDHASH_H_
#define ZEVO_PLATFORM_KEYEDHASH_H_

#include <cstdint>
#include <string_view>

namespace zevo {

/// SipHash-2-4 under a key that the process draws once: nobody outside can choose texts that share a slot of a table.
/// Differs from process to process. The first call may raise what std::random_device does.
uint64_t KeyedHash(std::string_view text);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_KEYEDHASH_H_
