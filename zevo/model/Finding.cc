// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Finding.h>

#include <zevo/model/SentenceName.h>
#include <zevo/model/Violation.h>
#include <zevo/model/internal/Phrase.h>

#include <algorithm>
#include <cstddef>

namespace zevo {
namespace {

bool InPortuguese(Language language) { return language == Language::kPortuguese; }

// The line of a document that a path leads into, such as "2"; empty where it leads into none.
std::string_view LineOf(std::string_view path) {
  constexpr std::string_view kLine = "Line[";
  if (!path.starts_with(kLine)) return {};
  return path.substr(kLine.size(), path.find(']') - kLine.size());
}

std::string BeginningOf(const Finding& finding, Language language) {
  if (!finding.kind) return {};
  std::string subject = LabelName(*finding.kind, finding.key, language);
  const bool of_record = finding.wording.sentence != nullptr && finding.wording.sentence->of_record;
  if (const std::string_view line = LineOf(finding.path); !line.empty() && !of_record) {
    subject.append(InPortuguese(language) ? ", linha " : ", line ").append(line);
  }
  return subject.append(": ");
}

std::string Shown(std::string_view value, bool numbers, Language language) {
  std::string shown = AbridgedText(value);
  if (numbers && InPortuguese(language)) std::ranges::replace(shown, '.', ',');
  return shown;
}

// "b" is the second of "a, b, c".
std::string_view PartOf(std::string_view list, size_t number) {
  constexpr std::string_view kBetween = ", ";
  for (; number > 1; --number) {
    const size_t end = list.find(kBetween);
    if (end == std::string_view::npos) return {};
    list.remove_prefix(end + kBetween.size());
  }
  return list.substr(0, list.find(kBetween));
}

// What takes the place of a name, such as "expected", "expected#" or "expected2#".
std::string ValueOf(std::string_view name, const Finding& finding, Language language) {
  const bool numbers = name.ends_with('#');
  if (numbers) name.remove_suffix(1);
  const size_t part = name.back() >= '1' && name.back() <= '9' ? static_cast<size_t>(name.back() - '0') : 0;
  if (part != 0) name.remove_suffix(1);
  std::string_view value = finding.difference;
  if (name == "found") value = finding.found;
  if (name == "expected") value = finding.expected;
  return Shown(part == 0 ? value : PartOf(value, part), numbers, language);
}

std::string FilledIn(std::string_view text, const Finding& finding, Language language) {
  std::string filled;
  while (true) {
    const size_t open = text.find('{');
    filled.append(text.substr(0, open));
    if (open == std::string_view::npos) return filled;
    const size_t close = text.find('}', open);
    filled.append(ValueOf(text.substr(open + 1, close - open - 1), finding, language));
    text.remove_prefix(close + 1);
  }
}

// A finding that comes without its sentence still says what it has.
std::string Plain(const Finding& finding, Language language) {
  const bool portuguese = InPortuguese(language);
  std::string sentence(finding.rule);
  if (!finding.path.empty()) sentence.append(", ").append(finding.path);
  sentence.append(portuguese ? ": encontrado \"" : ": found \"").append(AbridgedText(finding.found)).append("\"");
  if (finding.expected.empty()) return sentence;
  return sentence.append(portuguese ? ", esperado \"" : ", expected \"")
      .append(AbridgedText(finding.expected))
      .append("\"");
}

}  // namespace

std::string Describe(const Finding& finding, Language language) {
  if (finding.wording.violation != 0) {
    return Describe(Violation{.number = finding.wording.violation,
                              .kind = finding.kind,
                              .key = finding.key,
                              .path = finding.path,
                              .place = {},
                              .value = finding.found,
                              .allowed = finding.expected},
                    language);
  }
  std::string sentence = BeginningOf(finding, language);
  if (const Sentence* const worded = finding.wording.sentence; worded != nullptr) {
    sentence += FilledIn(InPortuguese(language) ? worded->portuguese : worded->english, finding, language);
  } else {
    sentence += Plain(finding, language);
  }
  // Where no record stands in front. The sentences of the rules begin with letters of ASCII.
  if (!finding.kind && sentence.front() >= 'a' && sentence.front() <= 'z') sentence.front() += 'A' - 'a';
  return sentence += '.';
}

}  // namespace zevo
