// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_BENCH_TALLY_H_
#define ZEVO_BENCH_TALLY_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace zevo::bench {

/// What every competitor must find in a file, or lay into it.
struct Tally {
  int64_t transactions = 0;
  int64_t invoices = 0;
  int64_t credit = 0;  ///< sum of the credit amounts of all lines, in ten-thousandths

  friend bool operator==(const Tally&, const Tally&) = default;
  /// The tally of a file with the same records so many times.
  Tally Times(int64_t factor) const { return {transactions * factor, invoices * factor, credit * factor}; }
};

/// Counts as a parser goes through a file.
class ElementTally {
 public:
  void Start(std::string_view localName);
  void Text(std::string_view text) {
    if (in_credit_) text_ += text;
  }
  void End();
  const Tally& Found() const { return tally_; }

 private:
  Tally tally_;
  bool in_credit_ = false;
  std::string text_;
};

/// The tally of a file that the generator or a competitor wrote. Knows no XML: it looks for the tags as they stand.
Tally TallyOf(const std::string& file);

/// Throws std::runtime_error when the tallies differ.
void RequireEqual(const Tally& found, const Tally& expected);
/// Throws std::runtime_error unless the condition holds.
void Require(bool condition, const char* what);

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_TALLY_H_
