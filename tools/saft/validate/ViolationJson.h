// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_VALIDATE_VIOLATIONJSON_H_
#define ZEVO_TOOLS_SAFT_VALIDATE_VIOLATIONJSON_H_

#include <zevo/adapters.h>

#include <string>

namespace zevo::saft {

/// A violation as one JSON object for programs, in one line: what it has, and its sentence in that language.
std::string JsonOf(const Violation& violation, Language language);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_VALIDATE_VIOLATIONJSON_H_
