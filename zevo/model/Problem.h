// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_PROBLEM_H_
#define ZEVO_MODEL_PROBLEM_H_

#include <zevo/Api.h>
#include <zevo/FilePlace.h>
#include <zevo/model/Language.h>

#include <cstddef>
#include <string>

namespace zevo {

/// Why a record holds something otherwise than the file.
enum class Fault {
  kUnreadable,      ///< The text is no value of the element's type; the property keeps its first value.
  kUnknownCode,     ///< The text is none of the codes that the library knows; the property is 0.
  kInexact,         ///< The number has more decimals or digits than the property; it is rounded or left out.
  kRepeated,        ///< The element stands there once more; the record has the first.
  kUnknownElement,  ///< The record has no property for the element, attribute or text.
  kOutOfOrder,      ///< The element does not stand where the version has it; the record has its value all the same.
  kKeyTaken,        ///< A line before has the same key; the record has both, this one by its position only.
  kConstant,        ///< The property is the same in every record, and the file has something else. Of "/AuditFile": the
                    ///< file does not say its version.
};
/// How many there are.
inline constexpr size_t kFaults = static_cast<size_t>(Fault::kConstant) + 1;

/// Something in an entity that its record holds otherwise than the file.
struct Problem {
  /// Why the record differs.
  Fault fault{};
  /// The element in the entity, such as "Line[2]/CreditAmount"; "" is the entity itself. An attribute is "Line[2]/@id".
  /// From the root, such as "/AuditFile/Extra", for what stands between entities.
  std::string path;
  /// Of the element's start tag.
  FilePlace place;
  /// What the file has.
  std::string text;

  /// Whether all of two problems is equal.
  friend bool operator==(const Problem&, const Problem&) = default;
};

/// The problem in a sentence, with its place.
ZEVO_API std::string Describe(const Problem& problem, Language language);

}  // namespace zevo

#endif  // ZEVO_MODEL_PROBLEM_H_
