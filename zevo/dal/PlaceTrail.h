// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_PLACETRAIL_H_
#define ZEVO_DAL_PLACETRAIL_H_

#include <zevo/FilePlace.h>
#include <zevo/dal/ChunkedList.h>

#include <cstddef>
#include <cstdint>

namespace zevo {

/// Any places in their order, in five bytes each as long as they stand near each other: each is a step from the one
/// before. Places that are too far for a step are kept as they are, and so is every 32nd, to go on from.
class PlaceTrail {
 public:
  void Add(const FilePlace& place) {
    if (steps_.Size() == 0) last_ = first_ = place;
    const uint64_t lines = Distance(last_.line, place.line);
    const uint64_t columns = Distance(lines == 0 ? last_.column : 0, place.column);
    const uint64_t bytes = Distance(last_.offset, place.offset);
    last_ = place;
    const bool far = lines >= kFarLines || ((columns | bytes) >> kBits) != 0;
    if (far || steps_.Size() % kWhole == kWhole - 1) return AddWhole();
    steps_.Add(static_cast<uint32_t>(lines << (2 * kBits) | columns << kBits | bytes));
  }
  /// Keeps its memory.
  void Clear();

  FilePlace At(size_t index) const;
  /// The same, sooner, from the place before; that of the first from itself.
  FilePlace After(const FilePlace& before, size_t index) const;

  /// How many bytes of memory it keeps.
  size_t Capacity() const { return steps_.Capacity() + whole_.Capacity(); }

 private:
  // A step has so many bits for columns and for bytes, above them the lines. Of another line it has the column itself.
  static constexpr uint32_t kBits = 14;
  static constexpr uint32_t kFarLines = (1U << (32 - 2 * kBits)) - 1;
  static constexpr size_t kWhole = 32;
  struct Whole {
    FilePlace place;
    size_t index;
  };

  static uint64_t Distance(int64_t from, int64_t to) { return static_cast<uint64_t>(to) - static_cast<uint64_t>(from); }
  void AddWhole();
  Whole WholeUpTo(size_t index) const;

  ChunkedList<uint32_t> steps_;
  ChunkedList<Whole> whole_;
  FilePlace first_;
  FilePlace last_;
};

}  // namespace zevo

#endif  // ZEVO_DAL_PLACETRAIL_H_
