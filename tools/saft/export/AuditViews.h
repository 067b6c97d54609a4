// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_EXPORT_AUDITVIEWS_H_
#define ZEVO_TOOLS_SAFT_EXPORT_AUDITVIEWS_H_

#include <span>
#include <string>
#include <string_view>

namespace zevo::saft {

/// What an auditor asks of the tables, as a query of its own.
struct AuditView {
  std::string_view name;
  std::string_view query;
};

/// All of them, in an order in which each stands on those before it. The queries are understood by every database that
/// the tables go to.
std::span<const AuditView> AuditViews();

/// The statements that make all views anew.
std::string AuditViewStatements();

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_EXPORT_AUDITVIEWS_H_
