// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_COMPACTKEY_H_
#define ZEVO_CHECK_COMPACTKEY_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zevo {

/// A key of a file in 24 bytes, however long it is: a short one as it stands, a longer one as a digest. No two keys of
/// one file are equal in them.
class CompactKey {
 public:
  /// That of the empty key.
  CompactKey() = default;
  explicit CompactKey(std::string_view key);

  /// A keyed hash: for tables that files must not choose the slots of.
  uint64_t Hash() const;
  /// A hash that costs next to nothing. Files can be made whose keys all have the same one.
  uint64_t QuickHash() const {
    uint64_t mixed = words_[0] ^ words_[1] * 31 ^ words_[2] * 961;
    mixed ^= mixed >> 32U;
    return mixed * uint64_t{0x9E3779B97F4A7C15} >> 32U;
  }

  friend bool operator==(const CompactKey& left, const CompactKey& right) {
    return left.words_[0] == right.words_[0] && left.words_[1] == right.words_[1] && left.words_[2] == right.words_[2];
  }

 private:
  static constexpr size_t kWords = 3;
  // The highest byte of the last word is the size of a short key.
  static constexpr size_t kMostShort = kWords * sizeof(uint64_t) - 1;
  static constexpr uint64_t kLong = 255;
  static constexpr uint64_t kFormShift = 56;

  std::array<uint64_t, kWords> words_{};
};

}  // namespace zevo

#endif  // ZEVO_CHECK_COMPACTKEY_H_
