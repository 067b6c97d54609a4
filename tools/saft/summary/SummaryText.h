// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYTEXT_H_
#define ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYTEXT_H_

#include <ostream>

#include "tools/saft/summary/Summary.h"

namespace zevo::saft {

/// Writes a summary as tables for people.
void PrintText(const Summary& summary, std::ostream& out);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYTEXT_H_
