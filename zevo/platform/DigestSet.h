// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_DIGESTSET_H_
#define ZEVO_PLATFORM_DIGESTSET_H_

#include <zevo/platform/KeyedHash.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace zevo {

/// A set of keys of a file, of which it keeps no more than digests: 20 to 27 bytes for each key once there are
/// thousands. It is made of segments that grow one after the other, so that no more than a few keys are ever held
/// twice.
class DigestSet {
 public:
  /// False when the key is there already.
  bool Add(std::string_view key) { return Add(KeyedDigest(key)); }
  bool Has(std::string_view key) const { return Has(KeyedDigest(key)); }
  bool Add(const Digest& digest);
  bool Has(const Digest& digest) const;
  /// Whether it has all keys of another.
  bool HasAllOf(const DigestSet& other) const;
  size_t Count() const { return count_; }

 private:
  // A table by digests, whose second number is never zero: in an empty slot it is.
  struct Segment {
    std::vector<Digest> slots;
    size_t count = 0;
  };

  static size_t SlotOf(const Segment& segment, const Digest& digest);
  static bool Put(Segment& segment, const Digest& digest);
  size_t SegmentOf(const Digest& digest) const {
    return static_cast<size_t>(digest[0] >> kSegmentShift) & (segments_.size() - 1);
  }
  void Divide();

  static constexpr unsigned kSegmentShift = 58;
  std::vector<Segment> segments_;  // none, one for few keys, or 64 by the first bits of a digest
  size_t count_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_DIGESTSET_H_
