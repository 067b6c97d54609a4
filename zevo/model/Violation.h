// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_VIOLATION_H_
#define ZEVO_MODEL_VIOLATION_H_

#include <zevo/Api.h>
#include <zevo/FilePlace.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Language.h>

#include <cstdint>
#include <optional>
#include <string>

namespace zevo {

/// One thing in a file that the schema does not allow.
struct Violation {
  /// The number that libxml2 has for it, the same as `AuditFile::ValidateAuditFile` fails with.
  int32_t number = 0;
  /// The record in which the element is, the innermost; none for what stands between records.
  std::optional<EntityKind> kind;
  /// What that record is called in the file: the text of its `KeyOf` element. Empty where it has none.
  std::string key;
  /// The element at fault: in the record, such as "Line[2]/CreditAmount", "" being the record's own; from the root,
  /// such as "/AuditFile/MasterFiles", where there is no record. Elements of which the schema allows several are
  /// counted, and those that are there too often. An attribute is "Line[2]/@id". For something that is missing, where
  /// it would stand. Empty without a record where libxml2 tells the violation itself.
  std::string path;
  /// Where its start tag begins. For something that is missing, the sibling in front of which it would stand or, at the
  /// end, the element that lacks it. Of what libxml2 tells itself, how far it had come: an offset is not known.
  FilePlace place;
  /// The text that is refused: of the element, of the attribute, between elements; of the root, its namespace; of an
  /// element that would be right but for its namespace, the declaration of that. Empty where else an element itself is
  /// at fault. Where libxml2 tells the violation itself, what it says.
  std::string value;
  /// What would be right: the facet's value, the codes, the name of the type as XML Schema has it, the fixed text; for
  /// elements that are missing the names of which one is needed; for those that are misplaced or unknown the names of
  /// which one may be there; "1" for those that are there too often; for a reference the element that has to have it.
  std::string allowed;

  /// Whether all of two violations is equal.
  friend bool operator==(const Violation&, const Violation&) = default;
};

/// The violation in a sentence, with its place. Long values are abridged. One that libxml2 tells itself is worded like
/// any other where its words have what that takes; else it is told by its element, in English in libxml2's own words.
ZEVO_API std::string Describe(const Violation& violation, Language language);

}  // namespace zevo

#endif  // ZEVO_MODEL_VIOLATION_H_
