// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/MergedTotals.h"

#include <algorithm>
#include <bitset>

#include "tools/saft/input/ScannedElements.h"
#include "tools/saft/merge/MergedElements.h"

namespace zevo::saft {
namespace {

constexpr size_t kCents = 2;  // decimals

// Half a cent for each amount that has more than cents: files may have their totals rounded.
Decimal ToleranceOf(int64_t longAmounts) { return *Decimal::FromText("0.005") * longAmounts; }

bool IsNear(std::optional<std::string_view> text, const Decimal& value, const Decimal& tolerance) {
  const std::optional<Decimal> stated = text ? Decimal::FromText(*text) : std::nullopt;
  if (!stated) return false;
  const Decimal difference = *stated - value;
  return (difference.IsNegative() ? -difference : difference) <= tolerance;
}

size_t DecimalsOf(std::string_view text) {
  const size_t point = Trimmed(text).find('.');
  return point == std::string_view::npos ? 0 : Trimmed(text).size() - point - 1;
}

// The first way in which all files are right; that of the library where there is none.
size_t FittingWay(const std::array<bool, MergedTotals::kWays>& fit) {
  const auto way = static_cast<size_t>(std::ranges::find(fit, true) - fit.begin());
  return way == fit.size() ? size_t{MergedTotals::kNotAnnulled} : way;
}

// In which ways a document counts.
std::bitset<MergedTotals::kWays> WaysOf(EntityKind kind, std::span<const ScannedElement> elements) {
  std::bitset<MergedTotals::kWays> ways;
  ways.set();
  if (kind != EntityKind::kInvoice) return ways;
  std::string_view status;
  std::string_view transaction;
  ForEachChild(elements, 0, [&](size_t child) {
    if (elements[child].name == merged::kInvoiceStatus && status.empty()) status = Trimmed(elements[child].text);
    if (elements[child].name == merged::kTransactionID && transaction.empty()) transaction = elements[child].text;
  });
  ways[MergedTotals::kNotAnnulled] = CountsInTotals(transaction);
  ways[MergedTotals::kNotCancelled] = ways[MergedTotals::kNotAnnulled] && status != "A";
  ways[MergedTotals::kLive] = ways[MergedTotals::kNotCancelled] && status != "F";
  return ways;
}

}  // namespace

// Of several amounts of a name the first counts.
void MergedTotals::AddLine(std::span<const ScannedElement> elements, size_t line, Decimal& debit, Decimal& credit) {
  bool hasDebit = false;
  bool hasCredit = false;
  ForEachChild(elements, line, [&](size_t child) {
    const bool debits = elements[child].name == kCountedDebit;
    if (!debits && elements[child].name != kCountedCredit) return;
    if (std::exchange(debits ? hasDebit : hasCredit, true)) return;
    const std::optional<Decimal> amount = Decimal::FromText(elements[child].text);
    if (!amount) {
      ++unreadable_;
      return;
    }
    if (amount->Decimals() > kCents) ++long_amounts_;
    (debits ? debit : credit) += *amount;
  });
}

void MergedTotals::Add(EntityKind kind, std::span<const ScannedElement> elements) {
  Decimal debit;
  Decimal credit;
  ForEachChild(elements, 0, [&](size_t child) {
    if (elements[child].name == kCountedPart) AddLine(elements, child, debit, credit);
  });
  const auto ways = WaysOf(kind, elements);
  for (size_t way = 0; way < kWays; ++way) {
    if (!ways[way]) continue;
    ++file_entries_[way];
    file_debit_[way] += debit;
    file_credit_[way] += credit;
  }
}

bool MergedTotals::EndFile(std::optional<std::string_view> entries, std::optional<std::string_view> debit,
                           std::optional<std::string_view> credit) {
  const Decimal tolerance = ToleranceOf(long_amounts_);
  bool entriesRight = false;
  bool sumsRight = false;
  for (size_t way = 0; way < kWays; ++way) {
    const bool entriesFit = way != kLive && IsNear(entries, file_entries_[way], 0);
    const bool sumsFit = IsNear(debit, file_debit_[way], tolerance) && IsNear(credit, file_credit_[way], tolerance);
    entries_fit_[way] = entries_fit_[way] && entriesFit;
    sums_fit_[way] = sums_fit_[way] && sumsFit;
    entriesRight = entriesRight || entriesFit;
    sumsRight = sumsRight || sumsFit;
    entries_[way] += std::exchange(file_entries_[way], 0);
    debit_[way] += std::exchange(file_debit_[way], Decimal());
    credit_[way] += std::exchange(file_credit_[way], Decimal());
  }
  long_amounts_ = 0;
  if (entries) entries_texts_.emplace_back(*entries);
  if (debit) debit_texts_.emplace_back(*debit);
  if (credit) credit_texts_.emplace_back(*credit);
  return entriesRight && sumsRight;
}

std::string MergedTotals::EntriesText() const {
  const Decimal entries = entries_[FittingWay(entries_fit_)];
  for (const std::string& text : entries_texts_) {
    if (Decimal::FromText(text) == entries) return text;
  }
  return entries.Text();
}

std::string MergedTotals::TextOf(const Sums& sums, const std::vector<std::string>& texts) const {
  const size_t way = FittingWay(sums_fit_);
  // The total of one file may be rounded.
  if (texts.size() == 1 && sums_fit_[way]) return texts.front();
  size_t decimals = texts.empty() ? kCents : 0;
  for (const std::string& text : texts) {
    const std::optional<Decimal> stated = Decimal::FromText(text);
    if (stated == sums[way]) return text;
    if (stated) decimals = std::max(decimals, DecimalsOf(text));
  }
  std::string text = sums[way].Text();
  const size_t there = DecimalsOf(text);
  if (there >= decimals) return text;
  if (there == 0) text += '.';
  return text.append(decimals - there, '0');
}

}  // namespace zevo::saft
