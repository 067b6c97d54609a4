// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_KEYSET_H_
#define ZEVO_CHECK_KEYSET_H_

#include <zevo/check/CompactKey.h>
#include <zevo/check/SlotTable.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// A set of keys of a file, counted from 0 in the order that they were added in: 24 bytes each, and 5 to 11 to find it
/// once one is looked for out of order. Of keys that come in order, and are looked for in order, nothing is looked up.
class KeySet {
 public:
  /// False when the key is there already.
  bool Add(std::string_view key);
  bool Has(std::string_view key) const { return Find(key).has_value(); }
  bool Has(const CompactKey& key) const { return Find(key).has_value(); }
  /// Which one it is.
  std::optional<uint32_t> Find(std::string_view key) const {
    return count_ == 0 ? std::nullopt : Find(CompactKey(key));
  }
  std::optional<uint32_t> Find(const CompactKey& key) const;
  uint32_t Count() const { return count_; }

 private:
  static constexpr uint32_t kChunk = 256;

  const CompactKey& At(uint32_t number) const { return chunks_[number / kChunk][number % kChunk]; }
  std::optional<uint32_t> LookUp(const CompactKey& key) const;

  std::vector<std::unique_ptr<CompactKey[]>> chunks_;
  uint32_t count_ = 0;
  std::string highest_;  // of the keys that are not too long for it, in the order of numbers in texts
  // Made when somebody asks: what was found last, what was found before by its quick hash, and the keys by their hash.
  mutable uint32_t last_ = std::numeric_limits<uint32_t>::max();  // one before the first
  mutable bool in_order_ = true;                                  // whether it stood behind the one before
  mutable std::vector<uint32_t> recent_;
  mutable SlotTable slots_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_KEYSET_H_
