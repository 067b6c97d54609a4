// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/NameNumbers.h>

#include <zevo/platform/KeyedHash.h>

namespace zevo {

namespace {

constexpr size_t kFirstPlaces = 1024;

}  // namespace

NameNumbers::NameNumbers()
    : multiplier_(KeyedHash("NameNumbers") | 1U), mask_(kFirstPlaces - 1), places_(kFirstPlaces) {}

// Where the name is, or where it would go.
NameNumbers::Place& NameNumbers::PlaceOf(const char* local, const char* prefix) {
  size_t at = HomeOf(local, prefix);
  while (places_[at].number != 0 && (places_[at].local != local || places_[at].prefix != prefix)) {
    at = (at + 1) & mask_;
  }
  return places_[at];
}

uint32_t NameNumbers::Search(const char* local, const char* prefix) {
  Place* place = &PlaceOf(local, prefix);
  if (place->number != 0) return place->number;
  if (size_t{count_} * 4 >= places_.size()) {
    std::vector<Place> places(places_.size() * 2);
    places_.swap(places);
    mask_ = places_.size() - 1;
    for (const Place& known : places) {
      if (known.number != 0) PlaceOf(known.local, known.prefix) = known;
    }
    place = &PlaceOf(local, prefix);
  }
  *place = {local, prefix, ++count_};
  return count_;
}

}  // namespace zevo
