// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_CHUNKEDLIST_H_
#define ZEVO_DAL_CHUNKEDLIST_H_

#include <algorithm>
#include <bit>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace zevo {

/// A list for millions of items, or for a few. Once it has a chunk of them it never moves them: it does not take the
/// memory of two copies, as a std::vector does when it is full.
template <class T>
requires std::is_trivially_copyable_v<T>
class ChunkedList {
 public:
  ChunkedList() = default;
  ChunkedList(const ChunkedList& other) { *this = other; }
  ChunkedList& operator=(const ChunkedList& other) {
    if (this == &other) return *this;
    Clear();
    for (size_t i = 0; i < other.size_; ++i) Add(other[i]);
    return *this;
  }
  ~ChunkedList() = default;

  void Add(const T& item) {
    if (next_ == end_) [[unlikely]] {
      MakeRoom();
    }
    *next_++ = item;
    ++size_;
  }
  /// Keeps its memory.
  void Clear() {
    size_ = 0;
    next_ = nullptr;
    end_ = nullptr;
  }

  size_t Size() const { return size_; }
  T& operator[](size_t index) { return chunks_[index / kChunk][index % kChunk]; }
  const T& operator[](size_t index) const { return chunks_[index / kChunk][index % kChunk]; }
  /// The one that was added last.
  T& Last() { return next_[-1]; }
  /// In bytes.
  size_t Capacity() const { return (chunks_.empty() ? 0 : first_ + (chunks_.size() - 1) * kChunk) * sizeof(T); }

 private:
  static constexpr size_t kChunk = std::bit_floor(4096 / sizeof(T));
  static constexpr size_t kFewest = 8;

  [[gnu::noinline]] void MakeRoom() {
    if (size_ == first_ && first_ < kChunk) {
      GrowFirst();
    } else if (size_ == chunks_.size() * kChunk) {
      chunks_.push_back(std::make_unique_for_overwrite<T[]>(kChunk));
    }
    const size_t chunk = size_ / kChunk;
    next_ = &chunks_[chunk][size_ % kChunk];
    end_ = &chunks_[chunk][0] + (chunk == 0 ? first_ : kChunk);
  }

  void GrowFirst() {
    const size_t grown = std::max(kFewest, 2 * first_);
    std::unique_ptr<T[]> items = std::make_unique_for_overwrite<T[]>(grown);
    if (chunks_.empty()) chunks_.emplace_back();
    std::copy_n(chunks_[0].get(), first_, items.get());
    chunks_[0] = std::move(items);
    first_ = grown;
  }

  std::vector<std::unique_ptr<T[]>> chunks_;
  size_t first_ = 0;  // how many items the first chunk has room for; others have room for kChunk
  size_t size_ = 0;
  T* next_ = nullptr;  // the place of the next item, where its chunk has one
  T* end_ = nullptr;   // of that chunk
};

}  // namespace zevo

#endif  // ZEVO_DAL_CHUNKEDLIST_H_
