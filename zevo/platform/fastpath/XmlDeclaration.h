// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_XMLDECLARATION_H_
#define ZEVO_PLATFORM_FASTPATH_XMLDECLARATION_H_

#include <cstddef>
#include <optional>
#include <string_view>

namespace zevo {

/// `<?xml version="1.0" encoding="..." standalone="yes"?>`. What the encoding means is TextDecoder's matter.
struct XmlDeclaration {
  size_t size = 0;  // in bytes
  bool standalone = false;
};

/// The declaration at the front of a text that begins with "<?". Nothing for anything else, another version included.
std::optional<XmlDeclaration> ParseXmlDeclaration(std::string_view text);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_XMLDECLARATION_H_
