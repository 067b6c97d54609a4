// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_FINDING_H_
#define ZEVO_MODEL_FINDING_H_

#include <zevo/Api.h>
#include <zevo/FilePlace.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Language.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// How much a finding weighs.
enum class Severity : uint8_t {
  kOff,          ///< It is not told; a rule that is off judges nothing.
  kInformation,  ///< Worth knowing. A file that has nothing else is clean.
  kWarning,      ///< Probably wrong, or against good practice.
  kError,        ///< Wrong.
};

/// What a check says of a file as a whole.
enum class CheckVerdict : uint8_t {
  kClean,      ///< Neither errors nor warnings.
  kWarnings,   ///< Warnings, no errors.
  kErrors,     ///< Errors.
  kNotJudged,  ///< The file could not be judged, or not to its end.
};

/// A rule of the check.
struct RuleInfo {
  /// The identifier, such as "HDR-PERIOD". It never changes.
  std::string_view id;
  /// The severity of its findings where the host sets none. A rule may tell some of its findings softer.
  Severity severity = Severity::kOff;
  /// What it is about, in the order of `Language`.
  std::string_view title[2];
  /// What must hold, in the order of `Language`.
  std::string_view explanation[2];
  /// The law it comes from; empty for a rule of good practice.
  std::string_view source;
  /// The first and the last day, yyyy-mm-dd, of the documents and entries for which the source demands it; empty where
  /// it is for all before, or after.
  std::string_view since = {};
  /// See `since`.
  std::string_view until = {};
};

/// One of the sentences of a rule, in both languages. What a finding says takes the places of "{found}", "{expected}"
/// and "{difference}"; with a "#" behind the name, as in "{found#}", it is numbers, which have a decimal comma in
/// Portuguese. "{expected2}" is the second of what stands there with ", " between.
struct Sentence {
  /// Without the record that it begins with, nor a full stop.
  std::string_view portuguese;
  /// The same in English.
  std::string_view english;
  /// Whether it is of the whole record, though what it tells of is in a line: the line is not named then.
  bool of_record = false;
};

/// Which sentence tells a finding. The check sets it; a copy of a finding keeps it.
struct Wording {
  /// Null for violations of the schema, and in a finding that no check made.
  const Sentence* sentence = nullptr;
  /// The number of the violation; 0 for other findings.
  int32_t violation = 0;

  /// Whether both are the same.
  friend bool operator==(const Wording&, const Wording&) = default;
};

/// Something that a check found in a file.
struct Finding {
  /// The identifier of the rule.
  std::string_view rule;
  /// How much it weighs.
  zevo::Severity severity = zevo::Severity::kOff;
  /// The record in which it is; none for what stands between records.
  std::optional<EntityKind> kind;
  /// What the record is called in the file: the text of its `KeyOf` element, such as "FT A/12". Empty without.
  std::string key;
  /// The element in the record, such as "Line[2]/CreditAmount", "" being the record's own; from the root, such as
  /// "/AuditFile/MasterFiles", where there is no record. Elements of which the schema allows several are counted, also
  /// where there is one, and those that are there too often. For something that is missing, where it would stand.
  std::string path;
  /// Where the element begins; for something that is missing, the element that lacks it.
  FilePlace place;
  /// What is written there. Numbers are as the file has them.
  std::string found;
  /// What would be right, with the formula where there is one: "75.00 + 17.25 = 92.25".
  std::string expected;
  /// By how much they differ, a number with a point, amounts with two decimals at least; empty where there is no such
  /// number.
  std::string difference;
  /// Which sentence tells it.
  Wording wording;

  /// Whether all of two findings is equal.
  friend bool operator==(const Finding&, const Finding&) = default;
};

/// The finding in a sentence that names the record, without its place. Long values are abridged.
ZEVO_API std::string Describe(const Finding& finding, Language language);

}  // namespace zevo

#endif  // ZEVO_MODEL_FINDING_H_
