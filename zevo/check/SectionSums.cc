// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/SectionSums.h>

#include <zevo/model/Totals.h>

#include <string_view>

namespace zevo {
namespace {

using Counted = SectionSums::Counted;

// The first way to count by which an invoice does.
Counted FirstOf(const InvoiceFacts& facts) {
  if (facts.transaction_id.Read() && !CountsInTotals(*facts.transaction_id)) return Counted::kAll;
  if (facts.IsCancelled()) return Counted::kNotAnulado;
  return facts.IsLive() ? Counted::kLive : Counted::kNotCancelled;
}

bool IsKnownStatus(const TextFact& status) {
  constexpr std::string_view kCodes = "NSAF";
  return status.Read() && status->size() == 1 && kCodes.find(*status) != std::string_view::npos;
}

}  // namespace

void SectionSums::Take(const InvoiceFacts& facts, const InvoiceSums& lines) {
  Sums& sums = more_[static_cast<size_t>(FirstOf(facts))];
  ++sums.invoices;
  sums.debit += lines.Debit();
  sums.credit += lines.Credit();
  if (!IsKnownStatus(facts.status)) knows_each_status_ = false;
}

SectionSums::Sums SectionSums::Of(Counted counted) const {
  Sums sums;
  for (size_t i = 0; i <= static_cast<size_t>(counted); ++i) {
    sums.invoices += more_[i].invoices;
    sums.debit += more_[i].debit;
    sums.credit += more_[i].credit;
  }
  return sums;
}

}  // namespace zevo
