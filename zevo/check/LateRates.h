// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_LATERATES_H_
#define ZEVO_CHECK_LATERATES_H_

#include <zevo/check/DocumentTable.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/check/KeptElement.h>
#include <zevo/check/VatRates.h>
#include <zevo/model/Decimal.h>
#include <zevo/model/Finding.h>

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// The VAT rates of lines that correct a document which does not stand before them in the file, until the end of it:
/// some 300 bytes each.
class LateRates {
 public:
  struct Line {
    KeptElement percentage;
    std::string reference;
    VatRate rate;
    Decimal value;
    Severity most;
  };

  /// What lines of a debit document, or of a debit note, correct that say nothing else: the first reference that the
  /// document has. Empty where there is none, and for other documents.
  static std::string_view ReferenceOf(const InvoiceFacts& facts);
  /// What a line corrects in a document that has this reference: its own, or that.
  static std::string_view ReferenceOf(const InvoiceLineFacts& line, std::string_view first);
  /// The rate that a line says it has; nothing where it is none that is judged.
  static std::optional<VatRate> RateOf(const TaxFacts& tax);

  /// The documents have taken it in before.
  void Take(const InvoiceFacts& facts, const DocumentTable& documents);

  const std::deque<Line>& All() const { return lines_; }

 private:
  std::deque<Line> lines_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_LATERATES_H_
