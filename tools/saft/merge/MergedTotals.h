// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_MERGEDTOTALS_H_
#define ZEVO_TOOLS_SAFT_MERGE_MERGEDTOTALS_H_

#include <zevo/adapters.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::saft {

/// The number and the totals of a section, over all files. Software differs in which documents it counts and adds up;
/// what is written follows the files: the way in which the totals of all of them are right, else that of the library.
class MergedTotals {
 public:
  /// The ways of counting, the library's first.
  enum Way : uint8_t {
    kNotAnnulled,   ///< what `CountsInTotals` takes: documents whose TransactionID is not "Anulado"
    kAll,           ///< all
    kNotCancelled,  ///< neither those nor those with InvoiceStatus A
    kLive,          ///< nor those with InvoiceStatus F
  };
  static constexpr size_t kWays = 4;

  /// Adds a transaction or an invoice of the file, by its elements.
  void Add(EntityKind kind, std::span<const ScannedElement> elements);
  /// Ends the file, of which the section has these texts; tells whether they are right in some way.
  bool EndFile(std::optional<std::string_view> entries, std::optional<std::string_view> debit,
               std::optional<std::string_view> credit);

  /// How many amounts the totals go without: their texts are no numbers.
  int64_t Unreadable() const { return unreadable_; }

  // The texts to write: where a file has the same number, as it has it, else with as many decimals as the files have.

  std::string EntriesText() const;
  std::string DebitText() const { return TextOf(debit_, debit_texts_); }
  std::string CreditText() const { return TextOf(credit_, credit_texts_); }

 private:
  using Sums = std::array<Decimal, kWays>;

  void AddLine(std::span<const ScannedElement> elements, size_t line, Decimal& debit, Decimal& credit);
  std::string TextOf(const Sums& sums, const std::vector<std::string>& texts) const;

  // Of the file.
  std::array<int64_t, kWays> file_entries_{};
  Sums file_debit_;
  Sums file_credit_;
  int64_t long_amounts_ = 0;  // of more than two decimals

  // Of all files.
  std::array<int64_t, kWays> entries_{};
  Sums debit_;
  Sums credit_;
  std::array<bool, kWays> entries_fit_{true, true, true, true};
  std::array<bool, kWays> sums_fit_{true, true, true, true};
  std::vector<std::string> entries_texts_;
  std::vector<std::string> debit_texts_;
  std::vector<std::string> credit_texts_;
  int64_t unreadable_ = 0;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_MERGEDTOTALS_H_
