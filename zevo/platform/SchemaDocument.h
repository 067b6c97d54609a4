// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMADOCUMENT_H_
#define ZEVO_PLATFORM_SCHEMADOCUMENT_H_

#include <zevo/platform/Document.h>

#include <string_view>

namespace zevo {

/// Fills an empty document with the declarations of a schema. The elements of XML Schema's namespace have their local
/// names there, whatever their prefix; others are there, but have a name that no element of a schema has. Attributes
/// with a prefix, texts and comments are left out. Raises what the parser raises, with the source `errorSource`.
void LoadSchemaDocument(std::string_view bytes, std::string_view errorSource, Document& document);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMADOCUMENT_H_
