// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_ERRORDESCRIPTION_H_
#define ZEVO_MODEL_ERRORDESCRIPTION_H_

#include <zevo/Api.h>
#include <zevo/model/AuditException.h>
#include <zevo/model/Language.h>

#include <string>

namespace zevo {

/// The failure in a sentence for a reader, from its number, its source and what its description has of names, values
/// and places. The description itself is in Portuguese, with the system's reasons and the parser's in English.
///
/// A number that this library does not raise, of a host's own, is told with its description as it is. In English, what
/// the parser says of a schema that cannot be used follows in its own words.
ZEVO_API std::string Describe(const AuditException& error, Language language);

/// What an error of the operating system (errno) with a file means, without a full stop, such as "O disco está cheio".
/// One that this library does not know is told in the system's words. `creating` where a file was to be created: then
/// it is its folder that does not exist.
ZEVO_API std::string DescribeSystemError(int error, Language language, bool creating = false);

}  // namespace zevo

#endif  // ZEVO_MODEL_ERRORDESCRIPTION_H_
