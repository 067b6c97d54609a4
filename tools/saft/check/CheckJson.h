// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CHECK_CHECKJSON_H_
#define ZEVO_TOOLS_SAFT_CHECK_CHECKJSON_H_

#include <string>

#include "tools/saft/check/CheckReport.h"

namespace zevo::saft {

/// What a check says of a file as one JSON object for programs, in one line.
std::string JsonOf(const CheckReport& report);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CHECK_CHECKJSON_H_
