// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_SCANNEDENTITY_H_
#define ZEVO_DAL_SCANNEDENTITY_H_

#include <zevo/FilePlace.h>
#include <zevo/dal/ElementName.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Problem.h>
#include <zevo/model/ScannedElement.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
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
  uint32_t number = 0;  ///< in the scan, from 1 on
  uint8_t element = 0;  ///< among kElementNames, from 1 on; 0 is none of them
};

/// An entity as a file has it: its elements in their order, each with its text and place. Put together from front to
/// back; begun anew, it keeps its memory. Elements are counted from 0, which is the entity itself.
class ScannedEntity {
 public:
  EntityKind Kind() const { return kind_; }
  /// The journal in which a transaction stands; empty for other kinds.
  const std::string& JournalID() const { return journal_id_; }

  size_t Count() const { return nodes_.size(); }
  const ScannedName& NameOf(size_t element) const { return *nodes_[element].name; }
  std::string_view TextOf(size_t element) const {
    return std::string_view{texts_}.substr(nodes_[element].text, nodes_[element].length);
  }
  const FilePlace& PlaceOf(size_t element) const { return nodes_[element].place; }
  int DepthOf(size_t element) const { return nodes_[element].depth; }
  /// From the entity down, such as "Line[2]/CreditAmount". The number is there where the parent has several of a name.
  std::string PathOf(size_t element) const;
  /// The element at such a path, of which a step without a number is the first of its name.
  std::optional<size_t> Find(std::string_view path) const;
  /// All of them. Valid until the entity is begun anew.
  std::span<const ScannedElement> Elements() const;

  const std::vector<Problem>& Problems() const { return problems_; }
  void Add(Problem problem) { problems_.push_back(std::move(problem)); }
  void Add(Fault fault, size_t element) {
    Add({fault, PathOf(element), PlaceOf(element), std::string(TextOf(element))});
  }

  // How it is put together.

  void Begin(EntityKind kind, std::string_view journalId);
  /// An element begins inside the one that is open. Its name must outlive the entity.
  void BeginElement(const ScannedName& name, const FilePlace& place);
  void EndElement();
  void AppendText(std::string_view text) { texts_.append(text); }
  /// How many elements are open.
  size_t Depth() const { return open_.size(); }
  /// Those, from the outside in.
  std::vector<size_t> OpenElements() const;
  /// Ends what is open, where an element begins that is not taken in.
  void Cut();

 private:
  struct Node {
    FilePlace place;
    const ScannedName* name;
    uint32_t parent;
    uint32_t ordinal;  // among those of its name in its parent, from 1 on; 0 where it is the only one
    uint32_t text;
    uint32_t length;
    int depth;
  };
  struct Open {
    uint32_t element;
    size_t text;  // where the text begins that has come since the last tag
    bool has_children;
  };
  // The elements of one name in the parent that is open.
  struct Siblings {
    uint64_t parent = 0;
    uint32_t first = 0;
    uint32_t count = 0;
  };

  void EndText(Open& open);
  uint32_t Number(const ScannedName& name);
  std::optional<size_t> ChildOf(size_t element, std::string_view name, uint32_t ordinal) const;
  Siblings& SiblingsOf(const ScannedName& name);

  EntityKind kind_{};
  std::string journal_id_;
  std::vector<Node> nodes_;
  std::string texts_;
  std::vector<Open> open_;
  // By depth, then by the name's number among kElementNames.
  std::vector<std::array<Siblings, kElementNames.size() + 1>> siblings_;
  std::map<std::pair<uint32_t, uint32_t>, Siblings> other_siblings_;  // by parent and name
  uint64_t begun_before_ = 1;                                         // elements of all entities before this one
  std::vector<Problem> problems_;
  mutable std::vector<ScannedElement> elements_;  // made when they are asked for
};

}  // namespace zevo

#endif  // ZEVO_DAL_SCANNEDENTITY_H_
