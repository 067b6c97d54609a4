// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_PLACESTEPS_H_
#define ZEVO_CHECK_PLACESTEPS_H_

#include <zevo/FilePlace.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zevo {

/// How far elements of an entity stand behind its first. Entities that are written alike have the same distances, which
/// are kept once: two bytes an entity tell the places of several elements. Where a file has thousands of different
/// ones, the places of later entities are those of their first elements.
class PlaceSteps {
 public:
  static constexpr size_t kSteps = 4;
  using Places = std::array<FilePlace, kSteps>;

  /// A number for the distances of places from another.
  uint16_t Add(const FilePlace& from, const Places& places);
  /// A place, by that number.
  FilePlace At(const FilePlace& from, uint16_t number, size_t step) const;

 private:
  static constexpr size_t kSlots = 8192;
  static constexpr size_t kMostTried = 16;

  // A distance is a place: the lines from one to the other, the columns where that is none, the column otherwise.
  std::vector<Places> steps_{Places{}};  // the first is for what is not kept
  std::vector<uint16_t> slots_;
  uint16_t last_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_PLACESTEPS_H_
