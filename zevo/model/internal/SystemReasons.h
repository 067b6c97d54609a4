// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INTERNAL_SYSTEMREASONS_H_
#define ZEVO_MODEL_INTERNAL_SYSTEMREASONS_H_

#include <zevo/model/Language.h>

#include <string>
#include <string_view>

namespace zevo {

/// The reason that the system has for an error of that number (errno), in the language; one that is not known in its
/// own words. `creating` as below.
std::string SystemReason(int error, bool creating, Language language);

/// The system's reason for a failure with a file, "reason: name", in the language, with the name. Empty for what is
/// none. `creating` where a file was to be created, of which the folder may be missing.
std::string SystemReason(std::string_view detail, bool creating, Language language);

}  // namespace zevo

#endif  // ZEVO_MODEL_INTERNAL_SYSTEMREASONS_H_
