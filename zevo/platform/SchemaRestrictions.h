// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMARESTRICTIONS_H_
#define ZEVO_PLATFORM_SCHEMARESTRICTIONS_H_

#include <zevo/platform/Document.h>

#include <string_view>

namespace zevo {

/// How far a schema may go. Beyond it libxml2 would take too long for it, or too much memory: what the limits let pass
/// is compiled in 2 seconds and 64 MB. The shipped schema stays far below them.
struct SchemaLimits {
  /// Elements of the schema document, and those that its definitions come to, put for each other's names.
  static constexpr int kElements = 10'000;
  static constexpr int kGrownElements = 100'000;
  /// Definitions that refer to each other, one after the other, and the elements of the document around them.
  static constexpr int kChain = 500;
  static constexpr int kNesting = 2'000;
  /// Elements and wildcards in a content model, the groups and the base types in it included.
  static constexpr int kParticles = 500;
  /// Parts of one content model or pattern that may be empty and are repeated.
  static constexpr int kEmptyRepetitions = 8;
  /// What compiling takes, by estimate.
  static constexpr double kSeconds = 1.7;
  static constexpr double kBytes = 40e6;
};

/// Raises XML_ERR_USER_STOP, with the reason and the definition it lies in, for a schema that is for another namespace
/// than `targetNamespace` or goes beyond the limits, and XML_SCHEMAP_SRC_INCLUDE for one that pulls in another file.
/// `schema` is what LoadSchemaDocument makes. Takes time and memory in proportion to the schema.
void RequireModestSchema(const Document& schema, std::string_view targetNamespace, std::string_view errorSource);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMARESTRICTIONS_H_
