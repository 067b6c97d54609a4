// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_SUMMARY_SUMMEDELEMENTS_H_
#define ZEVO_TOOLS_SAFT_SUMMARY_SUMMEDELEMENTS_H_

#include <zevo/adapters.h>

#include <optional>
#include <string_view>

namespace zevo::saft {

/// The elements of which the figures of a summary are made, by name, beside what counts in totals.
namespace element {
inline constexpr std::string_view kNumberOfEntries = "NumberOfEntries";
inline constexpr std::string_view kTotalDebit = "TotalDebit";
inline constexpr std::string_view kTotalCredit = "TotalCredit";
inline constexpr std::string_view kJournalID = "JournalID";
inline constexpr std::string_view kDescription = "Description";
inline constexpr std::string_view kTaxTableEntry = "TaxTableEntry";
inline constexpr std::string_view kInvoiceType = "InvoiceType";
inline constexpr std::string_view kTransactionID = "TransactionID";
inline constexpr std::string_view kDocumentTotals = "DocumentTotals";
inline constexpr std::string_view kTaxPayable = "TaxPayable";
inline constexpr std::string_view kNetTotal = "NetTotal";
inline constexpr std::string_view kGrossTotal = "GrossTotal";
}  // namespace element

/// Whether a problem of a record makes the figures differ from what the file has, or may: an amount that is no number,
/// an element of theirs that is there once more, and what may be a record or an element of theirs spelt otherwise or
/// out of its place. Without a kind, a problem behind the last record.
bool TouchesFigures(std::optional<EntityKind> kind, const Problem& problem);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_SUMMARY_SUMMEDELEMENTS_H_
