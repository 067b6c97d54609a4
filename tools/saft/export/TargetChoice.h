// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_EXPORT_TARGETCHOICE_H_
#define ZEVO_TOOLS_SAFT_EXPORT_TARGETCHOICE_H_

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "tools/saft/tables/TableTarget.h"

namespace zevo::saft {

/// Opens the target that a user names: what its name begins or ends with tells which kind it is. The tables and the
/// views must outlive it. Fails for a name that tells none.
std::unique_ptr<TableTarget> OpenTarget(const std::string& name, const std::vector<TableShape>& tables,
                                        std::span<const TableView> views);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_EXPORT_TARGETCHOICE_H_
