// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_FILEDIGEST_H_
#define ZEVO_TOOLS_SAFT_INPUT_FILEDIGEST_H_

#include <string>

namespace zevo::saft {

/// The SHA-256 of a file's bytes, as 64 small hexadecimal digits: two files with the same are the same. Fails when the
/// file cannot be read. Throws `Interrupted` where a signal was noted.
std::string FileDigest(const std::string& file);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_FILEDIGEST_H_
