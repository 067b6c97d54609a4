// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/PlaceTrail.h>

namespace zevo {

void PlaceTrail::Clear() {
  steps_.Clear();
  whole_.Clear();
}

void PlaceTrail::AddWhole() {
  whole_.Add({last_, steps_.Size()});
  steps_.Add(kFarLines << (2 * kBits));
}

// The last one at an index or before it.
PlaceTrail::Whole PlaceTrail::WholeUpTo(size_t index) const {
  size_t up_to = 0;
  size_t behind = whole_.Size();
  while (up_to < behind) {
    const size_t middle = up_to + (behind - up_to) / 2;
    whole_[middle].index <= index ? up_to = middle + 1 : behind = middle;
  }
  return up_to == 0 ? Whole{first_, 0} : whole_[up_to - 1];
}

FilePlace PlaceTrail::At(size_t index) const {
  const Whole whole = WholeUpTo(index);
  FilePlace place = whole.place;
  for (size_t next = whole.index + 1; next <= index; ++next) place = After(place, next);
  return place;
}

FilePlace PlaceTrail::After(const FilePlace& before, size_t index) const {
  constexpr uint32_t kMask = (1U << kBits) - 1;
  const uint32_t step = steps_[index];
  const uint32_t lines = step >> (2 * kBits);
  if (lines == kFarLines) return WholeUpTo(index).place;
  return {before.line + lines, (lines == 0 ? before.column : 0) + (step >> kBits & kMask),
          before.offset + (step & kMask)};
}

}  // namespace zevo
