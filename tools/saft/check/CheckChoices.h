// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CHECK_CHECKCHOICES_H_
#define ZEVO_TOOLS_SAFT_CHECK_CHECKCHOICES_H_

#include <zevo/adapters.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/check/RuleSeverity.h"

namespace zevo::saft {

/// A file with a public key, and the version of it; 0 for all versions.
struct KeyFile {
  std::string file;
  int version = 0;
};

/// From "FILE" or "FILE:VERSION", as it stands on a command line.
KeyFile TakeKeyFile(std::string_view text);

/// A whole number of 0 or more; nothing for another text.
std::optional<int> TakeCount(std::string_view text);

/// What a user chooses of a check. What comes later counts for more.
struct CheckChoices {
  std::vector<RuleSeverity> severities;
  std::vector<KeyFile> public_keys;
  std::optional<int> most;  ///< findings of a rule; 0 for all
  std::string schema;       ///< empty where none is named

  /// Adds what counts for more.
  void Add(const CheckChoices& more);
  /// Has a checker check so. Fails where a key cannot be read, or is none.
  void Apply(AuditFileChecker& checker) const;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CHECK_CHECKCHOICES_H_
