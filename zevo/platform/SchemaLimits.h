// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMALIMITS_H_
#define ZEVO_PLATFORM_SCHEMALIMITS_H_

#include <zevo/platform/Document.h>

#include <string>

namespace zevo {

/// How far a schema may go. Beyond it libxml2 would take too long for it, or too much memory: what the limits let pass
/// is compiled in 2 seconds and 64 MB. The shipped schema stays far below them.
struct SchemaLimits {
  /// Elements of the schema document, and elements once every reference is replaced by the definition it names.
  static constexpr int kElements = 10'000;
  static constexpr int kGrownElements = 100'000;
  /// Definitions in a chain, each of which refers to the next, and the depth of elements along such a chain.
  static constexpr int kChain = 500;
  static constexpr int kNesting = 2'000;
  /// Elements and wildcards in a content model, the groups and the base types in it included.
  static constexpr int kParticles = 500;
  /// Repeated parts of one content model or pattern that may be empty.
  static constexpr int kEmptyRepetitions = 8;
  /// What compiling takes, by estimate.
  static constexpr double kSeconds = 1.7;
  static constexpr double kBytes = 40e6;

  /// Thrown for a schema that goes beyond.
  struct Passed {
    /// Portuguese: what follows on "O esquema".
    std::string reason;
    /// An element of the definition at fault, or nothing where it is the whole schema.
    Element within = {};
  };
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMALIMITS_H_
