// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_COLUMNS_MEANINGS_H_
#define ZEVO_TOOLS_SAFT_COLUMNS_MEANINGS_H_

#include <zevo/adapters.h>

#include <span>
#include <string_view>

namespace zevo::saft {

/// What a column of a dataset means, in one sentence.
struct Meaning {
  /// The kind of record and the column, such as "Customer.CompanyName". "*" stands for what leads to any address.
  std::string_view column;
  std::string_view english;
  std::string_view portuguese;
  /// A value of a text that must match a pattern; empty for others.
  std::string_view example = {};

  std::string_view In(Language language) const { return language == Language::kEnglish ? english : portuguese; }
};

/// All meanings, in the order of the audit file; those of addresses come last.
std::span<const Meaning> Meanings();

/// That of a column of a kind of record; null when there is none.
const Meaning* MeaningOf(std::string_view kind, std::string_view column);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_COLUMNS_MEANINGS_H_
