// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/KeyList.h>

#include <zevo/Error.h>
#include <zevo/platform/LetterCase.h>

#include <algorithm>
#include <utility>

namespace zevo {
namespace {

constexpr size_t kSearchedThrough = 16;

}  // namespace

KeyList::KeyList() = default;
KeyList::~KeyList() = default;

size_t KeyList::PlaceOf(std::string_view folded) const {
  if (folded_.size() <= kSearchedThrough) {
    const auto found = std::find(folded_.begin(), folded_.end(), folded);
    return found == folded_.end() ? kUnknown : static_cast<size_t>(found - folded_.begin());
  }
  if (places_.empty()) {
    decltype(places_) places;
    places.reserve(folded_.size() * 2);
    for (size_t place = 0; place < folded_.size(); ++place) places.emplace(folded_[place], place);
    // Only now: when memory runs out above, there is no half-filled table.
    places_ = std::move(places);
  }
  const auto found = places_.find(folded);
  return found == places_.end() ? kUnknown : found->second;
}

void KeyList::Add(std::string_view key) {
  std::string folded = FoldCase(key);
  if (PlaceOf(folded) != kUnknown) throw MakeRunTimeError(RunTimeError::kDuplicateKey, key);
  AppendFolded(std::move(folded));
}

bool KeyList::Append(std::string_view key) {
  std::string folded = FoldCase(key);
  const bool isNew = PlaceOf(folded) == kUnknown;
  AppendFolded(std::move(folded));
  return isNew;
}

void KeyList::AppendFolded(std::string folded) {
  folded_.push_back(folded);
  if (places_.empty()) return;
  try {
    places_.emplace(std::move(folded), folded_.size() - 1);
  } catch (...) {
    folded_.pop_back();
    throw;
  }
}

size_t KeyList::Find(std::string_view key) const {
  const size_t place = PlaceOf(FoldCase(key));
  if (place == kUnknown) throw MakeRunTimeError(RunTimeError::kInvalidCall, key);
  return place;
}

void KeyList::RemoveAt(size_t place) {
  if (place >= folded_.size()) return;
  folded_.erase(folded_.begin() + static_cast<std::ptrdiff_t>(place));
  places_.clear();
}

void KeyList::Clear() {
  folded_.clear();
  places_.clear();
}

}  // namespace zevo
