// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMADOCUMENT_H_
#define ZEVO_PLATFORM_SCHEMADOCUMENT_H_

#include <zevo/platform/Document.h>

#include <string_view>

namespace zevo {

/// Fills an empty document with the declarations of a schema. Elements of XML Schema's namespace get their local names,
/// whatever their prefix; all others get one name that no element of a schema has. Attributes with a prefix, texts and
/// comments are left out. Raises what the parser raises, with the source `errorSource`.
void LoadSchemaDocument(std::string_view bytes, std::string_view errorSource, Document& document);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMADOCUMENT_H_
