// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_SCANNEDENTITY_H_
#define ZEVO_DAL_SCANNEDENTITY_H_

#include <zevo/FilePlace.h>
#include <zevo/dal/ChunkedList.h>
#include <zevo/dal/NoteList.h>
#include <zevo/dal/PlaceTrail.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Problem.h>
#include <zevo/model/ScannedElement.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo {

/// The name of an element as a scan knows it, once for all elements of that name.
struct ScannedName {
  std::string_view text;
  uint16_t number = 0;  ///< in the scan, from 1 on, the same for equal texts
  uint8_t element = 0;  ///< among kElementNames, from 1 on; 0 is none of them
};
/// Those of a scan, by their numbers.
using ScannedNames = std::vector<const ScannedName*>;

/// An entity as a file has it: its elements in their order, each with its text and place. Put together from front to
/// back; begun anew, it keeps its memory. Elements are counted from 0, which is the entity itself.
class ScannedEntity {
 public:
  EntityKind Kind() const { return kind_; }
  /// The journal in which a transaction stands; empty for other kinds.
  const std::string& JournalID() const { return journal_id_; }

  size_t Count() const { return nodes_.Size(); }
  const ScannedName& NameOf(size_t element) const { return *(*names_)[nodes_[element].name]; }
  std::string_view TextOf(size_t element) const { return TextAt(nodes_[element].text); }
  FilePlace PlaceOf(size_t element) const { return places_.At(element); }
  int DepthOf(size_t element) const { return nodes_[element].depth; }
  /// From the entity down, such as "Line[2]/CreditAmount". The number is there where the parent has several of a name.
  std::string PathOf(size_t element) const;
  /// The element at such a path, of which a step without a number is the first of its name.
  std::optional<size_t> Find(std::string_view path) const;
  /// All of them. Valid until the entity is begun anew.
  std::span<const ScannedElement> Elements() const;

  /// What Add was given, then what was noted.
  const std::vector<Problem>& Problems() const;
  void Add(Problem problem) { problems_.push_back(std::move(problem)); }
  /// Notes a problem of an element.
  void Note(Fault fault, size_t element) { noted_.Add({fault, static_cast<uint32_t>(element), {}}); }

  // How it is put together.

  /// The names must outlive the entity; more may come.
  void Begin(EntityKind kind, std::string_view journalId, const ScannedNames& names);
  /// An element begins inside the one that is open. Its name is among those names.
  void BeginElement(const ScannedName& name, const FilePlace& place);
  /// Notes an attribute of the element that has just begun. `step` is that of a path, such as "@id".
  void NoteAttribute(std::string_view step, std::string_view value);
  void EndElement();
  /// An element inside the one that is open, with nothing but a text.
  void AddLeaf(const ScannedName& name, const FilePlace& place, std::string_view text);
  void AppendText(std::string_view text) { texts_.append(text); }
  /// How many elements are open.
  size_t Depth() const { return open_.size(); }
  /// Those, from the outside in.
  std::vector<size_t> OpenElements() const;
  /// Ends what is open, where an element begins that is not taken in.
  void Cut();

  /// About how many bytes of memory it keeps.
  size_t Capacity() const { return nodes_.Capacity() + places_.Capacity() + texts_.capacity() + noted_.Capacity(); }

 private:
  // A piece of the texts.
  struct Extent {
    uint32_t begin = 0;
    uint32_t length = 0;
  };
  // Files have many: it is as small as it can be. What is inside what is told by the depths.
  struct Node {
    Extent text;
    uint16_t name;
    uint16_t depth;
  };
  struct Open {
    uint32_t element;
    size_t text;  // where the text begins that has come since the last tag
    bool has_children;
  };

  std::string_view TextAt(Extent extent) const { return {texts_.data() + extent.begin, extent.length}; }
  [[gnu::noinline]] void NoteText(uint32_t element, size_t begin, size_t stepLength);
  Extent ExtentFrom(size_t begin) const;
  void AddElement(const ScannedName& name, const FilePlace& place);
  void EndText(const Open& open) {
    if (texts_.size() > open.text) TakeText(open);
  }
  void TakeText(const Open& open);
  void NumberSiblings() const;
  std::optional<size_t> ChildOf(size_t element, std::string_view name, uint32_t ordinal) const;

  EntityKind kind_{};
  std::string journal_id_;
  const ScannedNames* names_ = nullptr;
  ChunkedList<Node> nodes_;
  PlaceTrail places_;
  std::string texts_;
  std::vector<Open> open_;

  // Made when somebody asks.
  mutable NoteList noted_;
  mutable std::vector<Problem> problems_;
  mutable std::vector<ScannedElement> elements_;
  mutable std::vector<uint32_t> parents_;
  mutable std::vector<uint32_t> ordinals_;  // among those of a name in a parent, from 1 on; 0 for the only one
};

}  // namespace zevo

#endif  // ZEVO_DAL_SCANNEDENTITY_H_
