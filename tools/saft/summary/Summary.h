// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_SUMMARY_SUMMARY_H_
#define ZEVO_TOOLS_SAFT_SUMMARY_SUMMARY_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zevo::saft {

struct JournalFigures {
  std::string id;
  std::string description;
  Totals totals;
};

struct InvoiceTypeFigures {
  std::string type;  ///< code as in the file, empty for documents without one
  Totals totals;
  Amount tax;
  Amount net;
  Amount gross;
};

struct EntriesFigures {
  Totals in_file;
  Totals as_summed;
  std::vector<JournalFigures> journals;  ///< in the order of the file
};

struct InvoicesFigures {
  Totals in_file;
  Totals as_summed;                       ///< of the documents that the totals in the file are about
  Totals left_out;                        ///< of the others: their TransactionID is "Anulado"
  std::vector<InvoiceTypeFigures> types;  ///< of all documents, in the order of the codes
};

/// What an audit file holds, in figures.
struct Summary {
  using Values = std::vector<std::pair<std::string, std::string>>;

  std::string file;
  std::optional<Values> header;  ///< property and text of what the header holds
  /// Class of record and number; none where the records cannot be read.
  std::vector<std::pair<std::string, std::optional<int32_t>>> counts;
  std::optional<EntriesFigures> entries;
  std::optional<InvoicesFigures> invoices;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_SUMMARY_SUMMARY_H_
