// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_POSTGRESADDRESS_H_
#define ZEVO_TOOLS_SAFT_TABLES_POSTGRESADDRESS_H_

#include <string>
#include <string_view>

namespace zevo::saft {

/// Whether a name is the address of a database of PostgreSQL, such as "postgresql://user@host/database".
bool IsPostgresAddress(std::string_view name);

/// An address as messages show it: without user, password and options. Fails for one that is not well-formed, as one
/// is whose password has an @ or a / that is not written %40 or %2F: a part of it would be taken for a host, and shown.
std::string ShownAddress(const std::string& address);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_POSTGRESADDRESS_H_
