// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_JUDGEMENT_H_
#define ZEVO_CHECK_JUDGEMENT_H_

#include <zevo/check/CheckedFile.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/check/Findings.h>
#include <zevo/check/KeptElement.h>
#include <zevo/model/Finding.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace zevo {

/// A sentence of a rule with the severity that it is told with.
struct RuleSentence {
  Severity severity;
  Sentence text;
};

/// What a finding says beside its element, numbers with a point. What is found is the text of the element where nothing
/// else is said.
struct FindingValues {
  std::string found = {};
  std::string expected = {};
  std::string difference = {};
  Severity at_most = Severity::kError;  ///< softer than the sentence
};

/// What a rule's functions work with: the file so far, and the way to tell what they find.
class Judgement {
 public:
  Judgement(const CheckedFile& file, Findings& findings, size_t rule) : file_(file), findings_(findings), rule_(rule) {}

  const CheckedFile& File() const { return file_; }
  /// Whether another rule judges too.
  bool IsOn(std::string_view rule) const;

  /// Tells of an element of an entity. The sentence must live as long as the program.
  void Tell(const RuleSentence& sentence, const EntityFacts& facts, const ElementSpot& at, FindingValues values = {});
  /// The same, once a file.
  void TellOnce(const RuleSentence& sentence, const EntityFacts& facts, const ElementSpot& at,
                FindingValues values = {});
  /// Tells of an element of an entity at the end of the file, once for all of which the sentence has the same values:
  /// of the first, the difference being how many there are.
  void TellCounted(const RuleSentence& sentence, const EntityFacts& facts, const ElementSpot& at, FindingValues values);
  /// Tells of an element of an entity that may be gone.
  void Tell(const RuleSentence& sentence, const KeptElement& at, FindingValues values = {});
  /// The same, once a file.
  void TellOnce(const RuleSentence& sentence, const KeptElement& at, FindingValues values = {});
  /// So many more of which no more is known.
  void TellMore(const RuleSentence& sentence, size_t findings, Severity at_most = Severity::kError);

 private:
  static Finding FindingOf(const RuleSentence& sentence, const KeptElement& at, FindingValues values);

  const CheckedFile& file_;
  Findings& findings_;
  size_t rule_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_JUDGEMENT_H_
