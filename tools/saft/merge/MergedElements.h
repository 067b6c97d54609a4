// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_MERGEDELEMENTS_H_
#define ZEVO_TOOLS_SAFT_MERGE_MERGEDELEMENTS_H_

#include <string_view>

/// The elements that are not just copied, and those that hold records without being one.
namespace zevo::saft::merged {

inline constexpr std::string_view kMasterFiles = "MasterFiles";
inline constexpr std::string_view kSourceDocuments = "SourceDocuments";
inline constexpr std::string_view kTaxRegistrationNumber = "TaxRegistrationNumber";
inline constexpr std::string_view kTaxAccountingBasis = "TaxAccountingBasis";
inline constexpr std::string_view kFiscalYear = "FiscalYear";
inline constexpr std::string_view kStartDate = "StartDate";
inline constexpr std::string_view kEndDate = "EndDate";
inline constexpr std::string_view kOpeningDebit = "OpeningDebitBalance";
inline constexpr std::string_view kOpeningCredit = "OpeningCreditBalance";
inline constexpr std::string_view kNumberOfEntries = "NumberOfEntries";
inline constexpr std::string_view kTotalDebit = "TotalDebit";
inline constexpr std::string_view kTotalCredit = "TotalCredit";
inline constexpr std::string_view kInvoiceStatus = "InvoiceStatus";
inline constexpr std::string_view kTransactionID = "TransactionID";

}  // namespace zevo::saft::merged

#endif  // ZEVO_TOOLS_SAFT_MERGE_MERGEDELEMENTS_H_
