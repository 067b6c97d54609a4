// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_ALTERATIONS_H_
#define ZEVO_TOOLS_SAFT_DATASET_ALTERATIONS_H_

#include <zevo/adapters.h>

#include <array>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

#include "tools/saft/csv/CsvFile.h"
#include "tools/saft/dataset/FirstPlaces.h"

namespace zevo::saft {

/// The row at which a file of a dataset stands.
struct RowIn {
  size_t number;  ///< of the file among `Dataset::Files`
  const CsvFile& file;
};

/// How an audit file differs from the dataset that it is made of: how many differences there are of each kind, and
/// where the first few are.
class Alterations {
 public:
  /// A text that is longer than the schema allows, and what the property holds of it.
  void AddShortened(const RowIn& row, size_t column, std::string_view kept);
  /// A number with more digits than its element holds, and the number that is written.
  void AddRounded(const RowIn& row, size_t column, std::string_view written);
  /// A number whose element is not written because that of the other one is.
  void AddLeftOut(const RowIn& row, size_t column, size_t other);
  /// A row without a value.
  void AddEmptyRow(const RowIn& row);
  /// A value beside which the file has a constant.
  void AddConstant(const RowIn& row, size_t column, std::string_view constant);
  /// A code that the schema allows and the library has no value for.
  void AddUnknownCode(const RowIn& row, size_t column);
  /// A row without a value in a column, which the file need not have, whose element is written all the same.
  void AddAbsent(const RowIn& row, std::string_view column);
  /// A row that is left out because the record that it names in a column holds one already.
  void AddSecond(const RowIn& row, size_t column);
  /// A key that another record of the same parent has.
  void AddRepeatedKey(const RowIn& row, size_t column);
  /// A row that names in a column a record that is there several times, and is given to one of them.
  void AddGuess(const RowIn& row, size_t column);
  /// A text with carriage returns.
  void AddReturns(const RowIn& row, size_t column);
  /// To be called when the file is written in the way that keeps carriage returns.
  void ForgetReturns() { places_[kReturns] = {}; }
  /// The totals of a section, where their two decimals make them differ from the sums of its entries.
  void AddTotals(std::string_view section, const Totals& sums);

  /// A file that is not written as those of a dataset are. Its note is told once.
  void AddForm(const CsvFile& file, bool hasDayFirst);
  /// Tells how those files are written.
  void ReportForms(std::ostream& out) const;

  /// Whether there are numbers that the file does not hold as given.
  bool HasLostNumbers() const { return IsIn(kRounded) || IsIn(kLeftOut); }

  /// Tells everything; nothing when there is nothing.
  void Report(std::ostream& out) const;
  /// Tells what would become of the numbers that the file does not hold as given.
  void ReportLostNumbers(std::ostream& out) const;

 private:
  enum Kind {
    kShortened,
    kRounded,
    kLeftOut,
    kEmptyRow,
    kTotal,
    kConstant,
    kUnknownCode,
    kAbsent,
    kSecond,
    kRepeatedKey,
    kGuess,
    kReturns,
    kKinds
  };
  static constexpr size_t kTold = 5;
  struct Places : FirstPlaces {
    Places() : FirstPlaces(kTold) {}
  };

  /// Counts one. What `describe` says of it is told of the first few.
  template <class Describe>
  void Add(Kind kind, const RowIn& row, Describe&& describe) {
    places_[kind].Add({row.number, row.file.Row()}, describe);
  }
  void AddCell(Kind kind, const RowIn& row, size_t column);
  void AddTotal(std::string_view section, std::string_view element, Amount sum);
  bool IsIn(Kind kind) const { return places_[kind].Count() > 0; }
  struct Wording;
  void Report(Kind kind, const Wording& wording, std::ostream& out) const;

  std::array<Places, kKinds> places_;
  std::vector<std::string> forms_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_ALTERATIONS_H_
