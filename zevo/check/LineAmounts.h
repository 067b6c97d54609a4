// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_LINEAMOUNTS_H_
#define ZEVO_CHECK_LINEAMOUNTS_H_

#include <zevo/check/EntityFacts.h>
#include <zevo/check/KeptElement.h>
#include <zevo/model/Decimal.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zevo {

/// Compares the amounts of invoice lines with Quantity × UnitPrice, or that less SettlementAmount, all without signs.
///
/// How far they may be apart depends on the unit price of the most decimals in the file, zeros at the end not counted:
/// 0.01, and half a unit of its last decimal for each unit of the quantity. While the file is read it can only become
/// less. So a line that is too far off is wrong at once; one that is not, but would be with more decimals, is doubtful
/// until the end. The result does not depend on the order of the file.
class LineAmounts {
 public:
  /// A line whose amount is wrong.
  struct Fault {
    size_t line;
    bool less_settlement;  ///< that is nearer
    Decimal difference;    ///< the amount less what it should be, without signs
  };
  /// The same, when the invoice is gone.
  struct KeptFault {
    KeptElement at;
    std::string expected;
    Decimal difference;
    bool cancelled;
  };

  /// Of doubtful lines so many of a kind are kept whole, the others are counted; 0 keeps all whole.
  explicit LineAmounts(size_t mostKept) : most_kept_(mostKept) {}

  void Take(const InvoiceFacts& facts);

  /// The faults of the invoice that was taken last, in the order of its lines.
  const std::vector<Fault>& OfThis() const { return of_this_; }

  /// The doubtful lines that are wrong with the decimals that are known by now, in the order of the file; and how many
  /// more there are.
  struct Doubtful {
    std::vector<const KeptFault*> kept;
    size_t more = 0;
    size_t more_cancelled = 0;
  };
  Doubtful WrongByNow() const;

  /// The amount of a line, the one that is not zero; null where there is none, or two.
  static const NumberFact* AmountOf(const InvoiceLineFacts& line);
  /// What the amount should be, with the formula: "20 × 1.50 = 30.00".
  static std::string ExpectedOf(const InvoiceLineFacts& line, bool lessSettlement);

 private:
  // More make no difference.
  static constexpr size_t kMostDecimals = 18;
  // Doubtful lines that are wrong once there are more decimals than their place says.
  struct Doubts {
    std::vector<KeptFault> kept;
    size_t more = 0;
    size_t more_cancelled = 0;
  };

  void TakeLine(const InvoiceFacts& facts, size_t number);
  void TakeDifference(const InvoiceFacts& facts, Fault fault);

  size_t most_kept_;
  size_t decimals_ = 2;
  std::vector<Fault> of_this_;
  std::array<Doubts, kMostDecimals> doubts_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_LINEAMOUNTS_H_
