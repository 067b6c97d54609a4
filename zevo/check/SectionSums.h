// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_SECTIONSUMS_H_
#define ZEVO_CHECK_SECTIONSUMS_H_

#include <zevo/check/AmountSum.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/check/InvoiceSums.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace zevo {

/// How many invoices there are and what their lines debit and credit, by which of them programs count.
class SectionSums {
 public:
  /// Which invoices count: each of these takes in those of the one before.
  enum class Counted : uint8_t {
    kLive,          ///< neither cancelled nor merged into others
    kNotCancelled,  ///< also those merged into others
    kNotAnulado,    ///< also those cancelled by their status alone, but not by the TransactionID "Anulado"
    kAll,
  };
  struct Sums {
    int64_t invoices = 0;
    AmountSum debit;
    AmountSum credit;
  };

  void Take(const InvoiceFacts& facts, const InvoiceSums& lines);

  Sums Of(Counted counted) const;
  /// Whether the status of each invoice was one of the schema's. Otherwise only `kAll` is known.
  bool KnowsEachStatus() const { return knows_each_status_; }

 private:
  // What each way to count takes in beyond the one before.
  std::array<Sums, static_cast<size_t>(Counted::kAll) + 1> more_;
  bool knows_each_status_ = true;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_SECTIONSUMS_H_
