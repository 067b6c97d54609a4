// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_XMLERROR_H_
#define ZEVO_PLATFORM_XMLERROR_H_

#include <zevo/Error.h>

#include <cstdint>
#include <string_view>

namespace zevo {

/// Makes libxml2 ready for use, once in the process. The library never shuts it down: the host may use it too.
void InitialiseXml();

/// An error of the XML parser or validator: its number, and its reason with line and column, as far as they
/// are known: 0 is unknown.
Error XmlError(int number, std::string_view source, std::string_view reason, int64_t line, int64_t column);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_XMLERROR_H_
