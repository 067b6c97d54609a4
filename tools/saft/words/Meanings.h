// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_MEANINGS_H_
#define ZEVO_TOOLS_SAFT_WORDS_MEANINGS_H_

#include <span>
#include <string_view>

#include "tools/saft/words/Text.h"

namespace zevo::saft {

/// What a column of a dataset means, in one sentence.
struct Meaning {
  /// The kind of record and the column, such as "Customer.CompanyName". "*" stands for what leads to any address.
  std::string_view column;
  Text<> text;
  /// A value of a text that must match a pattern; empty for others.
  std::string_view example = {};
};

/// All meanings, in the order of the audit file; those of addresses come last.
std::span<const Meaning> Meanings();

/// That of a column of a kind of record; null when there is none.
const Meaning* MeaningOf(std::string_view kind, std::string_view column);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_WORDS_MEANINGS_H_
