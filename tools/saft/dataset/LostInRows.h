// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_LOSTINROWS_H_
#define ZEVO_TOOLS_SAFT_DATASET_LOSTINROWS_H_

#include <zevo/adapters.h>

namespace zevo::saft {

/// Whether rows with the texts of all records lack something, or mislead, because of a problem of the record at which
/// the scanner stands.
bool IsLostInRows(const AuditFileScanner& scanner, const Problem& problem);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_LOSTINROWS_H_
