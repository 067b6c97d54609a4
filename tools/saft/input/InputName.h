// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_INPUTNAME_H_
#define ZEVO_TOOLS_SAFT_INPUT_INPUTNAME_H_

#include <string>

namespace zevo::saft {

/// Fails with what a name leads to when that is there and no regular file, such as a folder, a pipe or a device, and
/// for a link that leads nowhere. Nothing is opened: opening a pipe may wait for ever.
void RequireRegularFile(const std::string& path);

/// What the library calls the standard input.
inline constexpr const char* kStandardInput = "/dev/stdin";

/// What the library calls the file to read that a user gave: "-" and "/dev/stdin" are the standard input, whatever is
/// behind it but a folder. Any other name is required to be a regular file, if it is there.
std::string InputName(const std::string& given);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_INPUTNAME_H_
