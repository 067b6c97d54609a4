// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_KEYINDEX_H_
#define ZEVO_TOOLS_SAFT_DATASET_KEYINDEX_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace zevo::saft {

/// Finds the rows of a file by their keys. Of a key it keeps 16 bytes of a keyed hash, so that it takes at most 57
/// bytes for each, while it grows.
class KeyIndex {
 public:
  /// Takes the key of a row, of which the number is not 0; gives the row that has it already, if there is one.
  std::optional<uint32_t> Add(std::string_view key, uint32_t row);

  /// The row that has a key.
  std::optional<uint32_t> Find(std::string_view key) const;

 private:
  using Hash = std::array<uint32_t, 4>;
  struct Entry {
    Hash hash{};
    uint32_t row = 0;  // 0 where nothing is
  };

  static Hash HashOf(std::string_view key);
  static size_t PlaceFor(const Hash& hash, const std::vector<Entry>& entries);
  void Grow();

  std::vector<Entry> entries_;  // a hash stands where its first part says, or as soon behind as there was room
  size_t used_ = 0;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_KEYINDEX_H_
