// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYJSON_H_
#define ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYJSON_H_

#include <string>

#include "tools/saft/summary/Summary.h"

namespace zevo::saft {

/// A summary as one JSON object for programs. Amounts are texts: as numbers they would lose digits in many
/// readers. A header, section or total that the file does not have is null. What lacks amounts that cannot be read has
/// their number, by the figure, in a member "Unreadable".
std::string JsonOf(const Summary& summary);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYJSON_H_
