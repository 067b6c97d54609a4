// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_ERRORS_H_
#define ZEVO_TOOLS_SAFT_DATASET_ERRORS_H_

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/saft/csv/CsvFault.h"
#include "tools/saft/dataset/FirstPlaces.h"

namespace zevo::saft {

/// Everything that is wrong with a dataset: the first errors in the order of its files and rows, and how many more
/// there are in each file. Memory does not grow with their number.
class Errors {
 public:
  /// How many are told.
  static constexpr size_t kTold = 50;

  /// The names of the files as messages tell them, in their order. Errors of the number behind the last are those that
  /// belong to no file.
  explicit Errors(std::vector<std::string> files) : files_(std::move(files)), counts_(files_.size() + 1) {}

  void Add(size_t file, const CsvFault& fault) { Add({file, fault.Row()}, fault.Column(), fault.what()); }
  /// One with its whole message, and the column, where there is one.
  void Add(const RowPlace& place, std::string_view column, std::string_view message) {
    Add(place, column, [&] { return std::string(message); });
  }
  /// The same, with what gives the message, if it is to be told.
  template <std::invocable Describe>
  void Add(const RowPlace& place, std::string_view column, Describe&& describe) {
    Count(place, column);
    first_.Add(place, describe);
  }
  /// One of a file as a whole.
  void AddToFile(size_t file, std::string_view reason);
  /// One that belongs to no file.
  void AddElsewhere(std::string_view message) { Add({files_.size(), 0}, {}, message); }

  size_t Count() const { return first_.Count(); }
  size_t CountIn(size_t file) const { return counts_[file]; }

  /// Rows of the file are lost: nothing follows from what is not in it.
  void SetIncomplete(size_t file) { incomplete_.insert(file); }
  bool IsIncomplete(size_t file) const { return incomplete_.contains(file); }

  /// What is wrong in a column as a whole is said.
  void SetToldInAllRows(size_t file, std::string_view column) { cells_.emplace(RowPlace{file, 0}, column); }
  /// Whether there is an error of this cell, or of its column.
  bool IsTold(const RowPlace& place, std::string_view column) const;
  /// Whether `IsTold` knows all errors: of so many it would not.
  bool KnowsAll() const { return cells_.size() < kKnown; }

  /// Tells everything; nothing when there is nothing.
  void Report(std::ostream& out) const;

 private:
  static constexpr size_t kKnown = 1000;

  void Count(const RowPlace& place, std::string_view column);

  std::vector<std::string> files_;
  FirstPlaces first_{kTold};
  std::vector<size_t> counts_;  // by file
  std::set<size_t> incomplete_;
  std::set<std::pair<RowPlace, std::string>, std::less<>> cells_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_ERRORS_H_
