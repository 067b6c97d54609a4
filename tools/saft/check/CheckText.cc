// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/CheckText.h"

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <string_view>
#include <vector>

#include "tools/saft/check/RuleSeverity.h"
#include "tools/saft/terminal/Table.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/terminal/WrappedText.h"
#include "tools/saft/words/CheckWords.h"

namespace zevo::saft {
namespace {

int64_t CountOf(const SeverityCounts& counts, Severity severity) { return counts[static_cast<size_t>(severity)]; }
int64_t Total(const SeverityCounts& counts) { return std::reduce(counts.begin(), counts.end()); }

// Of findings, of which there are some.
Severity WorstOf(const SeverityCounts& counts) {
  for (const Severity severity : {Severity::kError, Severity::kWarning}) {
    if (CountOf(counts, severity) > 0) return severity;
  }
  return Severity::kInformation;
}

// The rules that found something, the worst first.
std::vector<size_t> RulesWithFindings(const CheckReport& report) {
  std::vector<size_t> rules;
  for (size_t i = 0; i < report.counts.size(); ++i) {
    if (Total(report.counts[i]) > 0) rules.push_back(i);
  }
  std::ranges::stable_sort(rules, std::greater(), [&](size_t rule) { return WorstOf(report.counts[rule]); });
  return rules;
}

// "3 errors", or "1 error".
std::string Counted(int64_t count, const Text<1>& one, const Text<1>& several) {
  return Say(count == 1 ? one : several, Grouped(count));
}

std::string Listed(const std::vector<std::string>& parts) {
  std::string all;
  for (const std::string& part : parts) all.append(all.empty() ? "" : ", ").append(part);
  return all;
}

// "1 error, 2 warnings" of what there is.
std::vector<std::string> PartsOf(const SeverityCounts& counts) {
  std::vector<std::string> parts;
  const auto add = [&](Severity severity, const Text<1>& one, const Text<1>& several) {
    const int64_t count = CountOf(counts, severity);
    if (count > 0) parts.push_back(Counted(count, one, several));
  };
  add(Severity::kError, words::kOneError, words::kErrors);
  add(Severity::kWarning, words::kOneWarning, words::kWarnings);
  add(Severity::kInformation, words::kOneNote, words::kNotes);
  return parts;
}

SeverityCounts SumOf(const CheckReport& report) {
  SeverityCounts sum{};
  for (const SeverityCounts& counts : report.counts) {
    for (size_t i = 0; i < sum.size(); ++i) sum[i] += counts[i];
  }
  return sum;
}

std::string VerdictOf(const CheckReport& report) {
  const SeverityCounts sum = SumOf(report);
  std::vector<std::string> parts = PartsOf(sum);
  if (report.verdict == CheckVerdict::kNotJudged) {
    if (report.is_another_file) parts.clear();
    parts.insert(parts.begin(), Say(words::kNotJudged));
    return Listed(parts);
  }
  if (CountOf(sum, Severity::kError) + CountOf(sum, Severity::kWarning) == 0) {
    parts.insert(parts.begin(), Say(words::kNothingWrong));
  }
  return Listed(parts) + " (" + Counted(report.documents, words::kOneDocumentJudged, words::kDocumentsJudged) + ", " +
         Counted(report.transactions, words::kOneTransactionJudged, words::kTransactionsJudged) + ")";
}

// The severity whose colour a verdict has.
Severity ColourOf(CheckVerdict verdict) {
  if (verdict == CheckVerdict::kWarnings) return Severity::kWarning;
  return verdict == CheckVerdict::kClean ? Severity::kOff : Severity::kError;
}

std::string Placed(const std::string& sentence, const FilePlace& place) {
  if (place.line == 0) return sentence;
  return place.column == 0 ? Say(words::kAtLine, sentence, place.line)
                           : Say(words::kAtColumn, sentence, place.line, place.column);
}

}  // namespace

std::string Grouped(int64_t number) {
  const bool portuguese = SpokenLanguage() == Language::kPortuguese;
  std::string text = std::to_string(number);
  const size_t fewest = portuguese ? 5 : 4;  // digits that are grouped
  if (text.size() < fewest) return text;
  for (size_t at = text.size(); at > 3;) text.insert(at -= 3, portuguese ? " " : ",");
  return text;
}

void CheckText::PrintFindings(const CheckReport& report, bool with_heading) const {
  const std::vector<size_t> rules = report.is_another_file ? std::vector<size_t>() : RulesWithFindings(report);
  if (with_heading && !rules.empty()) out_ << Visible(report.file) << "\n\n";
  for (const size_t rule : rules) PrintGroup(report, rule);
  PrintVerdict(report);
  if (with_heading && !rules.empty()) out_ << '\n';
}

void CheckText::PrintSummary(const CheckReport& report, bool with_others) const {
  Table table(3);
  for (const size_t rule : RulesWithFindings(report)) {
    const RuleInfo& info = AuditFileChecker::Rules()[rule];
    table.Add({std::string(WordOf(WorstOf(report.counts[rule]))), std::string(info.id), std::string(TitleOf(info)),
               Grouped(Total(report.counts[rule]))});
  }
  const bool has_rules = !report.is_another_file && Total(SumOf(report)) > 0;
  if (has_rules) table.Print(out_);
  PrintVerdict(report);
  if (with_others && has_rules) out_ << '\n';
}

void CheckText::PrintFiles(const VerdictCounts& files) const {
  std::vector<std::string> parts;
  const auto add = [&](CheckVerdict verdict, const Text<1>& text) {
    const int64_t count = files[static_cast<size_t>(verdict)];
    if (count > 0) parts.push_back(Coloured(ColourOf(verdict), Say(text, Grouped(count))));
  };
  add(CheckVerdict::kClean, words::kFilesClean);
  add(CheckVerdict::kWarnings, words::kFilesWithWarnings);
  add(CheckVerdict::kErrors, words::kFilesWithErrors);
  add(CheckVerdict::kNotJudged, words::kFilesNotJudged);
  out_ << Say(words::kFilesJudged, Grouped(std::reduce(files.begin(), files.end())), Listed(parts)) << '\n';
}

void CheckText::PrintGroup(const CheckReport& report, size_t rule) const {
  const RuleInfo& info = AuditFileChecker::Rules()[rule];
  const SeverityCounts& counts = report.counts[rule];
  const Severity worst = WorstOf(counts);
  const int64_t all = Total(counts);
  const bool alike = CountOf(counts, worst) == all;
  out_ << Say(words::kGroup, Coloured(worst, std::string(WordOf(worst))), info.id, TitleOf(info),
              alike ? Grouped(all) : Listed(PartsOf(counts)))
       << '\n';
  int64_t told = 0;
  for (const Finding& finding : report.findings) {
    if (finding.rule != info.id) continue;
    PrintFinding(finding, worst);
    ++told;
  }
  if (told < all) out_ << "  " << Say(words::kFindingsMore, Grouped(all - told)) << '\n';
  out_ << '\n';
}

void CheckText::PrintFinding(const Finding& finding, Severity usual) const {
  std::string sentence = Abridged(Describe(finding, SpokenLanguage()));
  if (finding.severity != usual) {
    sentence.insert(0, Coloured(finding.severity, std::string(WordOf(finding.severity))) + ": ");
  }
  const std::string text = Placed(sentence, finding.place);
  out_ << (width_ ? WrappedText(text, *width_, {.first = 2, .others = 4}) : "  " + text) << '\n';
}

void CheckText::PrintVerdict(const CheckReport& report) const {
  out_ << Visible(report.file) << ": " << Coloured(ColourOf(report.verdict), VerdictOf(report)) << '\n';
}

std::string CheckText::Coloured(Severity severity, const std::string& text) const {
  // In the order of `Severity`: green, cyan, yellow, red.
  constexpr std::array kColours{"\x1B[32m", "\x1B[36m", "\x1B[33m", "\x1B[31m"};
  return colour_ ? kColours[static_cast<size_t>(severity)] + text + "\x1B[0m" : text;
}

}  // namespace zevo::saft
