// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_KEYSET_H_
#define ZEVO_CHECK_KEYSET_H_

#include <zevo/platform/KeyedHash.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace zevo {

/// A set of keys of a file, of which it keeps no more than digests: 16 bytes each in a table that is never fuller than
/// three quarters. While the table grows, a key takes 64 bytes.
class KeySet {
 public:
  /// False when the key is there already.
  bool Add(std::string_view key) { return Add(KeyedDigest(key)); }
  bool Has(std::string_view key) const { return Has(KeyedDigest(key)); }
  bool Add(const Digest& digest);
  bool Has(const Digest& digest) const;
  size_t Count() const { return count_; }

 private:
  size_t SlotOf(const Digest& digest) const;
  void Grow();

  std::vector<Digest> slots_;  // their number is a power of two; an empty one is all zeros
  size_t count_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_KEYSET_H_
