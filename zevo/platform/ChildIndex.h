// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_CHILDINDEX_H_
#define ZEVO_PLATFORM_CHILDINDEX_H_

#include <zevo/TextHash.h>
#include <zevo/platform/Node.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace zevo {

class Document;

/// Remembers the children that were searched for in a document, so that each is searched for only once. What was found
/// stays true while nodes are only appended; the document reports every other change.
class ChildIndex {
 public:
  explicit ChildIndex(const Document& document) : document_(document) {}

  /// The first child of a local name, or null. The search begins at the child `from`, before which there is none of
  /// that name.
  Node* First(const Node* parent, Node* from, uint32_t local);

  /// The first child of a local name that itself has a child `key` whose whole text is `text`, or null. The first call
  /// for a parent and these names looks at all its children, later calls only at those that were added since.
  Node* FirstByKey(const Node* parent, uint32_t local, uint32_t key, std::string_view text);

  /// Whether keys are remembered that elements of a local name hold, so that these have to be reported by OnAppend and
  /// OnChange.
  bool KnowsKeysIn(uint32_t local) const { return keys_.parent != 0 && keys_.key == local; }
  /// An element of such a name is about to be appended under `parent`.
  void OnAppend(const Node* parent);
  /// The content of such an element is about to change.
  void OnChange(const Node* element);

  void Forget() {
    found_ = {};
    keys_ = {};
  }

 private:
  struct FoundChild {
    uint32_t parent;
    uint32_t name;
    uint32_t child;
  };
  struct Keys {
    uint32_t parent = 0;
    uint32_t name = 0;
    uint32_t key = 0;
    uint32_t last_seen = 0;           // the last child looked at
    std::vector<uint32_t> unsettled;  // children to look at again, because a key was added to them since
    TextMap<uint32_t> first;
  };

  void TakeKeysOf(const Node* child);

  const Document& document_;
  std::array<FoundChild, 16> found_{};
  size_t next_found_ = 0;
  Keys keys_;  // of the parent that was asked about last
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_CHILDINDEX_H_
