// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/Judgement.h>

#include <zevo/check/Rule.h>

#include <algorithm>
#include <utility>

namespace zevo {

void Judgement::Tell(const RuleSentence& sentence, const EntityFacts& facts, const ElementSpot& at,
                     FindingValues values) {
  if (!findings_.Wants(rule_)) {
    return findings_.Count(rule_, std::min(sentence.severity, values.at_most), 1);
  }
  Tell(sentence, Keep(facts, at), std::move(values));
}

void Judgement::TellOnce(const RuleSentence& sentence, const EntityFacts& facts, const ElementSpot& at,
                         FindingValues values) {
  if (findings_.IsFirst(sentence.text)) Tell(sentence, facts, at, std::move(values));
}

void Judgement::TellCounted(const RuleSentence& sentence, const EntityFacts& facts, const ElementSpot& at,
                            FindingValues values) {
  if (findings_.CountAlike(sentence.text, values.found, values.expected)) return;
  findings_.TellAlike(rule_, FindingOf(sentence, Keep(facts, at), std::move(values)));
}

void Judgement::Tell(const RuleSentence& sentence, const KeptElement& at, FindingValues values) {
  findings_.Tell(rule_, FindingOf(sentence, at, std::move(values)));
}

Finding Judgement::FindingOf(const RuleSentence& sentence, const KeptElement& at, FindingValues values) {
  Finding finding;
  finding.severity = std::min(sentence.severity, values.at_most);
  finding.kind = at.kind;
  finding.key = at.key;
  finding.path = at.path;
  finding.place = at.place;
  finding.found = std::move(values.found);
  if (finding.found.empty()) finding.found = at.text;
  finding.expected = std::move(values.expected);
  finding.difference = std::move(values.difference);
  finding.wording.sentence = &sentence.text;
  return finding;
}

void Judgement::TellOnce(const RuleSentence& sentence, const KeptElement& at, FindingValues values) {
  if (findings_.IsFirst(sentence.text)) Tell(sentence, at, std::move(values));
}

void Judgement::TellMore(const RuleSentence& sentence, size_t findings, Severity at_most) {
  findings_.Count(rule_, std::min(sentence.severity, at_most), findings);
}

bool Judgement::IsOn(std::string_view rule) const {
  const auto number = RuleOf(rule);
  return number && findings_.IsOn(*number);
}

}  // namespace zevo
