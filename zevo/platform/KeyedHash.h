// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_KEYEDHASH_H_
#define ZEVO_PLATFORM_KEYEDHASH_H_

#include <array>
#include <cstdint>
#include <string_view>

namespace zevo {

/// SipHash-2-4 under a key that the process draws once: nobody outside can choose texts that share a slot of a table.
/// Differs from process to process. The first call may raise what std::random_device does.
uint64_t KeyedHash(std::string_view text);

/// 128 bits for a text; never all zeros.
using Digest = std::array<uint64_t, 2>;
/// Made of two such hashes: no two texts of one file meet.
Digest KeyedDigest(std::string_view text);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_KEYEDHASH_H_
