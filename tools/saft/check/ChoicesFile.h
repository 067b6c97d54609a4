// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CHECK_CHOICESFILE_H_
#define ZEVO_TOOLS_SAFT_CHECK_CHOICESFILE_H_

#include <string>

#include "tools/saft/check/CheckChoices.h"

namespace zevo::saft {

/// What a TOML file chooses. The names of files in it start from its folder. Fails, with the place, for what it must
/// not have.
CheckChoices ReadChoicesFile(const std::string& file);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CHECK_CHOICESFILE_H_
