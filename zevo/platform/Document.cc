// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Document.h>

#include <zevo/platform/Text.h>
#include <zevo/platform/Windows1252.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace zevo {
namespace {

constexpr size_t kBlockSize = size_t{64} * 1024;
// Passing over so many children takes no longer than remembering where one of them is.
constexpr size_t kPassedQuickly = 16;

}  // namespace

void Document::FreeChunk::operator()(Chunk* chunk) const { ::operator delete (chunk, std::align_val_t{kChunkSize}); }

Document::Document(std::span<const std::string_view> vocabulary) : names_(vocabulary) { Clear(); }
Document::~Document() = default;

void Document::Clear() {
  chunks_used_ = 0;
  next_node_ = nodes_end_ = nullptr;
  blocks_used_ = 0;
  next_text_ = texts_end_ = nullptr;
  standalone = false;
  needs_unicode = false;
  default_namespaces = 0;
  found_ = {};
  index_ = {};
  top_ = NewNode(NodeKind::kDocument, NameTable::kNone, 0);
}

void Document::AddChunk() {
  if (chunks_used_ == chunks_.size()) {
    if (chunks_.size() > (UINT32_MAX >> kSlotBits)) throw std::bad_alloc();
    std::unique_ptr<Chunk, FreeChunk> chunk(
        static_cast<Chunk*>(::operator new (kChunkSize, std::align_val_t{kChunkSize})));
    chunk->document = this;
    chunk->first_reference = static_cast<uint32_t>(chunks_.size()) << kSlotBits;
    chunks_.push_back(std::move(chunk));
  }
  Node* nodes = chunks_[chunks_used_]->nodes;
  // Reference 0 is no node.
  next_node_ = nodes + (chunks_used_ == 0 ? 1 : 0);
  nodes_end_ = nodes + kNodesInChunk;
  ++chunks_used_;
}

void Document::AddBlock(size_t size) {
  while (blocks_used_ < blocks_.size() && blocks_[blocks_used_].size < size) ++blocks_used_;
  if (blocks_used_ == blocks_.size()) {
    const size_t blockSize = std::max(size, kBlockSize);
    blocks_.push_back({std::unique_ptr<char[]>(new char[blockSize]), blockSize});
  }
  const TextBlock& block = blocks_[blocks_used_++];
  next_text_ = block.bytes.get();
  texts_end_ = next_text_ + block.size;
}

std::string_view Document::CopyText(std::string_view text) {
  if (text.empty()) return {};
  if (text.size() > UINT32_MAX) throw std::bad_alloc();
  char* copy = ReserveText(text.size());
  std::memcpy(copy, text.data(), text.size());
  KeepText(text.size());
  return std::string_view(copy, text.size());
}

Element Document::Root() const {
  for (Node* node = At(top_->children.first); node != nullptr; node = Next(node)) {
    if (node->Kind() == NodeKind::kElement) return Element(node);
  }
  return Element();
}

// An element that holds its text itself gets it as its first child.
void Document::MakeRoomForChildren(Node* parent) {
  const std::string_view text = parent->Text();
  // Made first: for want of memory nothing is lost.
  Node* const child = text.empty() ? nullptr : NewNode(NodeKind::kText, NameTable::kNone, Reference(parent));
  parent->HoldChildren();
  if (child == nullptr) return;
  child->Hold(text);
  parent->children = {Reference(child), Reference(child)};
}

Element Document::AppendElement(Element parent, std::string_view name) {
  return AppendElement(parent, names_.Add(name));
}

void Document::AppendAttribute(Element element, std::string_view qualifiedName, std::string_view value) {
  if (qualifiedName == "xmlns") ++default_namespaces;
  AppendAttribute(element, names_.Add(qualifiedName), value);
}

void Document::AppendAttribute(Element element, uint32_t name, std::string_view value) {
  const std::string_view kept = CopyText(value);
  Append(element.node(), NodeKind::kAttribute, name)->Hold(kept);
}

void Document::AppendText(Element parent, NodeKind kind, std::string_view text, std::string_view name) {
  if ((kind == NodeKind::kComment || kind == NodeKind::kInstruction) && !IsWindows1252(text)) {
    needs_unicode = true;
  }
  const std::string_view kept = CopyText(text);
  const uint32_t number = name.empty() ? NameTable::kNone : names_.Add(name);
  Append(parent ? parent.node() : top_, kind, number)->Hold(kept);
}

void Document::AppendAdoptedText(Element parent, std::string_view text) {
  Append(parent.node(), NodeKind::kText, NameTable::kNone)->Hold(text);
}

void Document::SetText(Element element, std::string_view text) {
  Node* node = element.node();
  ForgetIndexOf(node);
  if (node->HoldsText() && text.size() <= node->length) {
    // Text that shrinks or stays as long is written over: totals are brought up to date again and again.
    if (!text.empty()) std::memmove(node->text, text.data(), text.size());
    node->length = static_cast<uint32_t>(text.size());
    return;
  }
  const std::string_view kept = CopyText(text);
  if (node->HoldsText() || node->children.first == 0) {
    node->Hold(kept);
    return;
  }
  Node* lastAttribute = nullptr;
  Node* child = At(node->children.first);
  for (; child != nullptr && child->Kind() == NodeKind::kAttribute; child = Next(child)) lastAttribute = child;
  if (child != nullptr) {
    // Children go away that may be known from earlier questions.
    found_ = {};
    index_ = {};
  }
  if (lastAttribute == nullptr) {
    node->Hold(kept);
    return;
  }
  lastAttribute->next = 0;
  node->children.last = Reference(lastAttribute);
  if (!kept.empty()) AppendAdoptedText(element, kept);
}

// Forgets the index when what is about to change has gone into it. A key whose parent is yet to be looked at has not.
void Document::ForgetIndexOf(const Node* key) {
  if (index_.parent == 0 || names_.Local(key->Name()) != index_.key) return;
  const bool below = At(key->parent)->parent == index_.parent;
  if (below && (index_.unsettled.empty() || index_.unsettled.back() != key->parent)) index_ = {};
}

// Has a parent that is about to get a key looked at again.
void Document::IndexAgain(const Node* parent, uint32_t name) {
  const bool asked = names_.Local(name) == index_.key && parent->parent == index_.parent;
  if (asked) index_.unsettled.push_back(Reference(parent));
}

bool Document::IsNamed(const Node* node, uint32_t local) const {
  constexpr uint32_t kMask = Node::kKindMask | Node::kNameMask | Node::kPrefixed;
  if ((node->tag & kMask) == Node::TagOf(NodeKind::kElement, local)) return true;
  return node->IsPrefixed() && node->Kind() == NodeKind::kElement && names_.Local(node->Name()) == local;
}

Node* Document::FirstNamed(const Node* from, uint32_t local) const {
  Node* node = const_cast<Node*>(from);
  while (node != nullptr && !IsNamed(node, local)) node = Next(node);
  return node;
}

Element Document::FirstChild(Element parent, uint32_t local) const {
  const Node* above = parent.node();
  if (local == NameTable::kNone || above->HoldsText()) return Element();
  Node* node = At(above->children.first);
  for (size_t passed = 0; node != nullptr && passed < kPassedQuickly; ++passed, node = Next(node)) {
    if (IsNamed(node, local)) return Element(node);
  }
  if (node == nullptr) return Element();
  const uint32_t reference = Reference(above);
  for (const FoundChild& found : found_) {
    if (found.parent == reference && found.name == local) return Element(At(found.child));
  }
  node = FirstNamed(node, local);
  if (node != nullptr) found_[next_found_++ % found_.size()] = {reference, local, Reference(node)};
  return Element(node);
}

Element Document::FirstChildByKey(Element parent, std::string_view name, std::string_view key,
                                  std::string_view text) const {
  const uint32_t local = names_.Find(name);
  const uint32_t keyLocal = names_.Find(key);
  if (local == NameTable::kNone || keyLocal == NameTable::kNone || parent.node()->HoldsText()) return Element();
  const uint32_t reference = Reference(parent.node());
  if (index_.parent != reference || index_.name != local || index_.key != keyLocal) {
    index_ = {};
    index_.parent = reference;
    index_.name = local;
    index_.key = keyLocal;
  }
  while (!index_.unsettled.empty()) {
    IndexKeys(At(index_.unsettled.back()));
    index_.unsettled.pop_back();
  }
  const uint32_t from = index_.last_seen == 0 ? parent.node()->children.first : At(index_.last_seen)->next;
  for (const Node* child = At(from); child != nullptr; child = Next(child)) {
    IndexKeys(child);
    index_.last_seen = Reference(child);
  }
  const auto found = index_.first.find(text);
  return found == index_.first.end() ? Element() : Element(At(found->second));
}

void Document::IndexKeys(const Node* child) const {
  if (child->Kind() != NodeKind::kElement || names_.Local(child->Name()) != index_.name || child->HoldsText()) return;
  const uint32_t reference = Reference(child);
  for (Node* node = FirstNamed(At(child->children.first), index_.key); node != nullptr;
       node = FirstNamed(Next(node), index_.key)) {
    const auto [entry, added] = index_.first.emplace(Element(node).AllText(), reference);
    // Children are numbered in their order.
    if (!added) entry->second = std::min(entry->second, reference);
  }
}

ElementRange::ElementRange(const Element& parent) {
  const Node* node = parent.node();
  if (node == nullptr || node->HoldsText()) return;
  const Document& document = Document::Of(node);
  first_ = document.At(node->children.first);
  while (first_ != nullptr && first_->Kind() != NodeKind::kElement) first_ = document.Next(first_);
}

std::string_view Element::Name() const {
  const NameTable& names = Owner().Names();
  return names.Text(names.Local(node_->Name()));
}

std::string_view Element::QualifiedName() const { return Owner().Names().Text(node_->Name()); }

std::string_view Element::LeadingText() const {
  if (node_->HoldsText()) return node_->Text();
  const Document& document = Owner();
  const Node* child = document.At(node_->children.first);
  while (child != nullptr && child->Kind() == NodeKind::kAttribute) child = document.Next(child);
  return child != nullptr && child->Kind() == NodeKind::kText ? child->Text() : std::string_view();
}

std::string Element::AllText() const {
  if (node_->HoldsText()) return std::string(node_->Text());
  std::string text;
  const Document& document = Owner();
  for (const Node* node = document.Following(node_, node_); node != nullptr; node = document.Following(node, node_)) {
    if (node->Kind() != NodeKind::kComment && node->Kind() != NodeKind::kInstruction) text += node->Text();
  }
  return text;
}

std::optional<std::string_view> Element::Attribute(std::string_view qualifiedName) const {
  if (node_->HoldsText()) return std::nullopt;
  const Document& document = Owner();
  for (const Node* node = document.At(node_->children.first); node != nullptr && node->Kind() == NodeKind::kAttribute;
       node = document.Next(node)) {
    if (document.Names().Text(node->Name()) == qualifiedName) return node->Text();
  }
  return std::nullopt;
}

Element Element::Parent() const {
  Node* parent = Owner().At(node_->parent);
  return parent != nullptr && parent->Kind() == NodeKind::kElement ? Element(parent) : Element();
}

Element Element::NextSibling() const {
  const Document& document = Owner();
  Node* next = document.Next(node_);
  while (next != nullptr && next->Kind() != NodeKind::kElement) next = document.Next(next);
  return Element(next);
}

}  // namespace zevo
