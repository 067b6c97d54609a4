// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_NOTELIST_H_
#define ZEVO_DAL_NOTELIST_H_

#include <zevo/dal/ChunkedList.h>
#include <zevo/model/Problem.h>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace zevo {

/// A problem of an element.
struct ElementNote {
  /// A text of its own, with a name before it, in the texts of the entity.
  struct NamedText {
    uint32_t begin;
    uint32_t name_length;
    uint32_t length;

    friend bool operator==(const NamedText&, const NamedText&) = default;
  };
  Fault fault{};
  uint32_t element = 0;
  std::optional<NamedText> text;  ///< without one, the element's text is meant

  friend bool operator==(const ElementNote&, const ElementNote&) = default;
};

/// Notes in their order, in two bytes each where they are of elements that follow each other, and in five with a text.
class NoteList {
 public:
  void Add(const ElementNote& note);
  /// Keeps its memory.
  void Clear();
  size_t Count() const { return count_; }
  /// How many bytes of memory it keeps.
  size_t Capacity() const { return bytes_.Capacity(); }

  /// Goes through a list.
  class Reader {
   public:
    /// The list must outlive it and stay as it is.
    explicit Reader(const NoteList& list) : bytes_(list.bytes_) {}
    /// There must be one left.
    ElementNote Next();

   private:
    uint32_t Number();

    const ChunkedList<uint8_t>& bytes_;
    size_t at_ = 0;
    uint32_t element_ = 0;
    uint32_t text_ = 0;
  };

 private:
  void AddNumber(uint32_t number);

  ChunkedList<uint8_t> bytes_;
  size_t count_ = 0;
  uint32_t element_ = 0;  // of the last note
  uint32_t text_ = 0;     // where the last text ends
};

}  // namespace zevo

#endif  // ZEVO_DAL_NOTELIST_H_
