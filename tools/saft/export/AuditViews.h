// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_EXPORT_AUDITVIEWS_H_
#define ZEVO_TOOLS_SAFT_EXPORT_AUDITVIEWS_H_

#include <span>

#include "tools/saft/tables/TableShape.h"

namespace zevo::saft {

/// What an auditor asks of the tables.
std::span<const TableView> AuditViews();

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_EXPORT_AUDITVIEWS_H_
