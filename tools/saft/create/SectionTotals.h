// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_SECTIONTOTALS_H_
#define ZEVO_TOOLS_SAFT_CREATE_SECTIONTOTALS_H_

#include <zevo/adapters.h>

#include "tools/saft/dataset/RecordFile.h"
#include "tools/saft/words/CreateWords.h"

namespace zevo::saft {

/// The totals of a section, added up from the rows of its entries and of their lines.
class SectionTotals {
 public:
  void AddEntry(RecordFile& rows) { Add({.entries = 1, .debit = {}, .credit = {}}, rows); }
  template <class Line>
  void AddLine(const Line& line, RecordFile& rows) {
    Add({.entries = 0, .debit = line.DebitAmount(), .credit = line.CreditAmount()}, rows);
  }

  const Totals& Sums() const { return sums_; }

 private:
  // What is out of range is an error of the row with which it becomes so.
  void Add(const Totals& more, RecordFile& rows) {
    try {
      if (!out_of_range_) sums_ += more;
    } catch (const Error&) {
      out_of_range_ = true;
      rows.AddError(Say(words::kTotalOutOfRange));
    }
  }

  Totals sums_;
  bool out_of_range_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_SECTIONTOTALS_H_
