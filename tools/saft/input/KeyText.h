// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_KEYTEXT_H_
#define ZEVO_TOOLS_SAFT_INPUT_KEYTEXT_H_

#include <string>

namespace zevo::saft {

/// The text of a file with a key, as far as a key can be long. Fails where it cannot be read, and for what is no
/// regular file.
std::string KeyTextOf(const std::string& file);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_KEYTEXT_H_
