// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_VALUECOLLECTION_H_
#define ZEVO_COMPONENT_VALUECOLLECTION_H_

#include <zevo/Error.h>
#include <zevo/model/Problem.h>
#include <zevo/model/ScannedElement.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo::component {

/// The place in a vector of so many items that hosts know under a position, which they count from 1. Raises error 9
/// when there is none.
inline size_t IndexOf(int32_t position, size_t count) {
  if (position < 1 || static_cast<size_t>(position) > count) {
    throw MakeRunTimeError(RunTimeError::kSubscriptOutOfRange, std::to_string(position));
  }
  return static_cast<size_t>(position) - 1;
}

/// Values, copied for a host: they stay what they are when the reading goes on. Lives in a shared pointer.
template <class T>
class ValueCollection : public std::enable_shared_from_this<ValueCollection<T>> {
 public:
  using ItemType = T;

  ValueCollection(const ValueCollection&) = delete;
  ValueCollection& operator=(const ValueCollection&) = delete;

  int64_t Count() const { return static_cast<int64_t>(values_.size()); }
  /// The value at a position, counted from 1; it keeps the collection alive. Raises error 9 when there is none.
  std::shared_ptr<T> Item(int32_t position) {
    return {this->shared_from_this(), &values_[IndexOf(position, values_.size())]};
  }
  /// Values have no keys: raises error 5.
  std::shared_ptr<T> Item(std::string_view key) { throw MakeRunTimeError(RunTimeError::kInvalidCall, key); }

 protected:
  explicit ValueCollection(std::vector<T> values = {}) : values_(std::move(values)) {}
  ~ValueCollection() = default;

  std::vector<T>& values() { return values_; }

 private:
  std::vector<T> values_;
};

class ProblemCollection final : public ValueCollection<Problem> {
 public:
  explicit ProblemCollection(std::vector<Problem> problems) : ValueCollection(std::move(problems)) {}
};

/// Holds the texts of its elements too.
class ScannedElementCollection final : public ValueCollection<ScannedElement> {
 public:
  explicit ScannedElementCollection(std::span<const ScannedElement> elements) {
    size_t size = 0;
    for (const ScannedElement& element : elements) size += element.name.size() + element.text.size();
    texts_.reserve(size);
    values().assign(elements.begin(), elements.end());
    for (ScannedElement& element : values()) {
      element.name = Keep(element.name);
      element.text = Keep(element.text);
    }
  }

 private:
  std::string_view Keep(std::string_view text) {
    const size_t place = texts_.size();
    texts_.append(text);
    return std::string_view{texts_}.substr(place);
  }

  std::string texts_;  // of all, one behind the other; never grows beyond what is reserved
};

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_VALUECOLLECTION_H_
