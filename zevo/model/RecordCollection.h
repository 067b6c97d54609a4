// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_RECORDCOLLECTION_H_
#define ZEVO_MODEL_RECORDCOLLECTION_H_

#include <zevo/Error.h>
#include <zevo/model/KeyList.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo {

/// An ordered list of records, shared with whoever added them. Positions count from 1. Where `Derived` has a `KeyOf`,
/// an item is also found by the key it had when it was added, without regard to letter case; changing the property
/// later does not move it.
template <class Derived, class T>
class RecordCollection {
 public:
  using ItemType = T;

  RecordCollection() = default;
  RecordCollection(const RecordCollection&) = delete;
  RecordCollection& operator=(const RecordCollection&) = delete;

  /// Appends an item. Raises error 457 when its key is taken and error 5 when it is null; the list stays as it was.
  void Add(std::shared_ptr<T> value) {
    if (!value) throw MakeRunTimeError(RunTimeError::kInvalidCall);
    items_.push_back(std::move(value));
    if constexpr (kKeyed) {
      try {
        keys_.Add(Derived::KeyOf(*items_.back()));
      } catch (...) {
        items_.pop_back();
        throw;
      }
    }
  }

  /// Appends an item whatever its key, and tells whether the key was free. Of items with one key the first is found by
  /// it. Raises error 5 for null.
  bool Append(std::shared_ptr<T> value) {
    if (!value) throw MakeRunTimeError(RunTimeError::kInvalidCall);
    items_.push_back(std::move(value));
    if constexpr (kKeyed) {
      try {
        return keys_.Append(Derived::KeyOf(*items_.back()));
      } catch (...) {
        items_.pop_back();
        throw;
      }
    }
    return true;
  }

  /// Removes the item at a position; later ones move up. Raises error 9 when there is none.
  void Remove(int32_t position) { RemoveAt(PlaceOf(position)); }
  /// Removes the item under a key. Raises error 5 when it is unknown.
  void Remove(std::string_view key) { RemoveAt(keys_.Find(key)); }

  /// The item at a position. Raises error 9 when there is none.
  const std::shared_ptr<T>& Item(int32_t position) const { return items_[PlaceOf(position)]; }
  /// The item under a key. Raises error 5 when it is unknown.
  const std::shared_ptr<T>& Item(std::string_view key) const { return items_[keys_.Find(key)]; }

  /// Removes all items.
  void Clear() {
    items_.clear();
    keys_.Clear();
  }

  /// Number of items.
  int32_t Count() const { return static_cast<int32_t>(items_.size()); }

  /// The items in order, as shared pointers that are never null. Adding or removing an item makes
  /// iterators invalid.
  auto begin() const { return items_.begin(); }
  /// The end of `begin`.
  auto end() const { return items_.end(); }

 private:
  static constexpr bool kKeyed = requires(const T& value) { Derived::KeyOf(value); };

  size_t PlaceOf(int32_t position) const {
    if (position < 1 || position > Count()) {
      throw MakeRunTimeError(RunTimeError::kSubscriptOutOfRange, std::to_string(position));
    }
    return static_cast<size_t>(position) - 1;
  }

  void RemoveAt(size_t place) {
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(place));
    keys_.RemoveAt(place);
  }

  std::vector<std::shared_ptr<T>> items_;
  KeyList keys_;
};

}  // namespace zevo

#endif  // ZEVO_MODEL_RECORDCOLLECTION_H_
