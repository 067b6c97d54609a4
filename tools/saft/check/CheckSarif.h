// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CHECK_CHECKSARIF_H_
#define ZEVO_TOOLS_SAFT_CHECK_CHECKSARIF_H_

#include <span>
#include <string>

#include "tools/saft/check/CheckChoices.h"
#include "tools/saft/check/CheckReport.h"

namespace zevo::saft {

/// What a check says of all files as a SARIF 2.1.0 document of one run, which ended with an exit code.
std::string SarifOf(std::span<const CheckReport> reports, const CheckChoices& choices, int exit_code);

/// The name of a file as a relative URI, or as a "file" one where it begins at the root. "-" is the standard input.
std::string UriOf(const std::string& file);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CHECK_CHECKSARIF_H_
