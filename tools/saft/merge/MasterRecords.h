// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_MASTERRECORDS_H_
#define ZEVO_TOOLS_SAFT_MERGE_MASTERRECORDS_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/dataset/KeyIndex.h"

namespace zevo::saft {

/// The opening balances of an account, as a file has them.
struct OpeningBalances {
  std::optional<std::string> debit;
  std::optional<std::string> credit;
};

/// What is known of the master records of a kind in files that are taken in one after the other: the last file that has
/// each. Of a record it keeps 32 bits of each element and some 70 bytes, of an account its first opening balances.
class MasterRecords {
 public:
  /// How a record differs from that of its key in a file before.
  struct Difference {
    size_t source;     ///< the last file before that has it
    std::string path;  ///< of the first element that differs, such as "BillingAddress/City"
  };

  /// Takes a record of a file; tells whether it differs. Opening balances do not count.
  std::optional<Difference> Take(size_t source, std::string_view key, std::span<const ScannedElement> elements);

  /// Whether no later file has the record.
  bool IsLast(size_t source, std::string_view key) const;
  /// The opening balances of an account in the first file that has it.
  const OpeningBalances& OpeningOf(std::string_view account) const;

 private:
  struct Known {
    uint32_t source;   // the last that has it
    uint32_t count;    // of the hashes of its elements
    size_t first;      // of those
    uint32_t opening;  // among the opening balances, or kNoOpening
  };
  static constexpr uint32_t kNoOpening = UINT32_MAX;

  KeyIndex keys_;  // of those known, from 1
  std::vector<Known> known_;
  std::vector<uint32_t> hashes_;
  std::vector<OpeningBalances> openings_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_MASTERRECORDS_H_
