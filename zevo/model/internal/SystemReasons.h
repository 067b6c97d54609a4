// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INTERNAL_SYSTEMREASONS_H_
#define ZEVO_MODEL_INTERNAL_SYSTEMREASONS_H_

#include <zevo/model/Language.h>

#include <string>
#include <string_view>

namespace zevo {

/// The system's reason for a failure with a file, "reason: name", in the language, with the name. Empty for what is
/// none. `ofFolder` where what is missing is the folder of a file that was to be created.
std::string SystemReason(std::string_view detail, bool ofFolder, Language language);

}  // namespace zevo

#endif  // ZEVO_MODEL_INTERNAL_SYSTEMREASONS_H_
