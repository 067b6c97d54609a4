// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMARESTRICTIONS_H_
#define ZEVO_PLATFORM_SCHEMARESTRICTIONS_H_

#include <zevo/platform/Document.h>

#include <string_view>

namespace zevo {

/// Raises XML_ERR_USER_STOP, with the reason and the definition it lies in, for a schema that is for another namespace
/// than `targetNamespace` or goes beyond SchemaLimits, and XML_SCHEMAP_SRC_INCLUDE for one that pulls in another file.
/// `document` is what LoadSchemaDocument makes. Takes time and memory in proportion to the schema.
void RequireModestSchema(const Document& document, std::string_view targetNamespace, std::string_view errorSource);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMARESTRICTIONS_H_
