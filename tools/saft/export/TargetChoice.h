// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_EXPORT_TARGETCHOICE_H_
#define ZEVO_TOOLS_SAFT_EXPORT_TARGETCHOICE_H_

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tools/saft/tables/FolderForm.h"
#include "tools/saft/tables/TableTarget.h"

namespace zevo::saft {

/// What a user wants of some targets.
struct TargetOptions {
  bool replace = false;              ///< what is there, of a target that is made anew
  std::optional<FolderForm> format;  ///< of a folder only
  bool partition = false;            ///< of a folder only
};

/// Opens the target that a user names: what its name begins or ends with tells which kind it is. The tables and the
/// views must outlive it. Fails for a name that tells none, and for options that the target has
/// not.
std::unique_ptr<TableTarget> OpenTarget(const std::string& name, const TargetOptions& options,
                                        const std::vector<TableShape>& tables, std::span<const TableView> views);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_EXPORT_TARGETCHOICE_H_
