// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_SUMMARY_SUMMARY_H_
#define ZEVO_TOOLS_SAFT_SUMMARY_SUMMARY_H_

#include <zevo/adapters.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo::saft {

/// The exact sum of the amounts of a file that can be read.
struct Sum {
  Decimal value;
  int64_t unreadable = 0;  ///< how many amounts it lacks: their texts are no numbers

  void Add(std::string_view text) {
    if (const std::optional<Decimal> amount = Decimal::FromText(text)) {
      value += *amount;
    } else {
      ++unreadable;
    }
  }
  Sum& operator+=(const Sum& other) {
    value += other.value;
    unreadable += other.unreadable;
    return *this;
  }
};

/// How many entries there are and what they sum up to.
struct EntrySums {
  int64_t entries = 0;
  Sum debit;
  Sum credit;

  EntrySums& operator+=(const EntrySums& other) {
    entries += other.entries;
    debit += other.debit;
    credit += other.credit;
    return *this;
  }
  bool LacksAmounts() const { return debit.unreadable + credit.unreadable > 0; }
};

/// The totals that a section of the file has at its front: texts, which may be no numbers; none where the element is
/// not there.
struct TotalsInFile {
  std::optional<std::string> entries;
  std::optional<std::string> debit;
  std::optional<std::string> credit;
};

struct JournalFigures {
  std::string id;
  std::string description;
  EntrySums sums;
};

struct InvoiceTypeFigures {
  std::string type;  ///< as in the file, empty for documents without one
  EntrySums sums;
  Sum tax;
  Sum net;
  Sum gross;
};

struct EntriesFigures {
  TotalsInFile in_file;
  EntrySums as_summed;
  std::vector<JournalFigures> journals;  ///< in the order of the file
};

struct InvoicesFigures {
  TotalsInFile in_file;
  EntrySums as_summed;  ///< of the documents that the totals in the file are about
  EntrySums left_out;   ///< of the others: their TransactionID is "Anulado"
  /// Of all documents: those without a type, then those of the codes that the library knows in their order, then the
  /// others in the order of the file.
  std::vector<InvoiceTypeFigures> types;
};

/// What an audit file holds, in figures.
struct Summary {
  using Values = std::vector<std::pair<std::string, std::string>>;

  std::string file;
  std::optional<std::string> version;  ///< text of the header's AuditFileVersion
  std::optional<Values> header;        ///< elements of the header and their texts, in the order of the file
  std::vector<std::pair<std::string, int64_t>> counts;  ///< class of record and number
  std::optional<EntriesFigures> entries;
  std::optional<InvoicesFigures> invoices;
  int64_t problems = 0;                     ///< that make figures differ from the file, or may
  std::vector<std::string> first_problems;  ///< sentences
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_SUMMARY_SUMMARY_H_
