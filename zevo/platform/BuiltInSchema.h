// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_BUILTINSCHEMA_H_
#define ZEVO_PLATFORM_BUILTINSCHEMA_H_

#include <string_view>

namespace zevo {

/// The bytes of schema/SAF-T-PT_1_01.xsd when the library was built. CMake generates the source file.
std::string_view BuiltInSchema();

}  // namespace zevo

#endif  // ZEVO_PLATFORM_BUILTINSCHEMA_H_
