// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/ChildIndex.h>

#include <zevo/platform/Document.h>

#include <algorithm>

namespace zevo {

Node* ChildIndex::First(const Node* parent, Node* from, uint32_t local) {
  const uint32_t reference = Document::Reference(parent);
  for (const FoundChild& found : found_) {
    if (found.parent == reference && found.name == local) return document_.At(found.child);
  }
  Node* const child = document_.FirstNamed(from, local);
  if (child != nullptr) found_[next_found_++ % found_.size()] = {reference, local, Document::Reference(child)};
  return child;
}

Node* ChildIndex::FirstByKey(const Node* parent, uint32_t local, uint32_t key, std::string_view text) {
  const uint32_t reference = Document::Reference(parent);
  if (keys_.parent != reference || keys_.name != local || keys_.key != key) {
    keys_ = {};
    keys_.parent = reference;
    keys_.name = local;
    keys_.key = key;
  }
  while (!keys_.unsettled.empty()) {
    TakeKeysOf(document_.At(keys_.unsettled.back()));
    keys_.unsettled.pop_back();
  }
  const Node* const from =
      keys_.last_seen == 0 ? document_.First(parent) : document_.Next(document_.At(keys_.last_seen));
  for (const Node* child = from; child != nullptr; child = document_.Next(child)) {
    TakeKeysOf(child);
    keys_.last_seen = Document::Reference(child);
  }
  const auto found = keys_.first.find(text);
  return found == keys_.first.end() ? nullptr : document_.At(found->second);
}

void ChildIndex::TakeKeysOf(const Node* child) {
  const NameTable& names = document_.Names();
  if (child->Kind() != NodeKind::kElement || names.Local(child->Name()) != keys_.name || child->HoldsText()) return;
  const uint32_t reference = Document::Reference(child);
  for (Node* node = document_.FirstNamed(document_.First(child), keys_.key); node != nullptr;
       node = document_.FirstNamed(document_.Next(node), keys_.key)) {
    const auto [entry, added] = keys_.first.emplace(Element(node).AllText(), reference);
    // A smaller reference is that of an earlier child.
    if (!added) entry->second = std::min(entry->second, reference);
  }
}

// A child that gets another key has to be looked at again.
void ChildIndex::OnAppend(const Node* parent) {
  if (parent->parent == keys_.parent) keys_.unsettled.push_back(Document::Reference(parent));
}

// Forgets all keys when the element is one of those remembered. It is not remembered yet while its parent waits to be
// looked at again.
void ChildIndex::OnChange(const Node* element) {
  const bool below = document_.At(element->parent)->parent == keys_.parent;
  if (below && (keys_.unsettled.empty() || keys_.unsettled.back() != element->parent)) keys_ = {};
}

}  // namespace zevo
