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
// A document asks for memory for as many chunks as it has, but for no more than this at once.
constexpr size_t kMostChunksAtOnce = 64;
// Up to so many children are searched at least as fast as one is looked up in the index.
constexpr size_t kPassedQuickly = 16;

}  // namespace

void Document::FreeChunks::operator()(void* chunks) const { ::operator delete (chunks, std::align_val_t{kChunkSize}); }

Document::Document(std::span<const std::string_view> vocabulary) : names_(vocabulary) { Clear(); }
Document::~Document() = default;

void Document::Clear() {
  chunks_used_ = 0;
  next_node_ = nodes_end_ = nullptr;
  grown_.clear();
  blocks_used_ = 0;
  next_text_ = texts_end_ = nullptr;
  standalone = false;
  needs_unicode = false;
  default_namespaces = 0;
  met_.fill(false);
  met_other_markup_ = false;
  children_.Forget();
  top_ = NewFullNode(NodeKind::kDocument, NameTable::kNone, 0);
}

void Document::AddChunk() {
  if (chunks_used_ == chunks_.size()) AddMemory();
  Chunk* const chunk = chunks_[chunks_used_];
  chunk->document = this;
  chunk->first_reference = static_cast<uint32_t>(chunks_used_) << kWordBits;
  ++chunks_used_;
  auto* const words = reinterpret_cast<uint32_t*>(chunk);
  next_node_ = reinterpret_cast<uint32_t*>(chunk + 1);
  nodes_end_ = words + (kWordMask + 2 - kFullNodeWords);
}

// Several chunks are allocated together: aligned one by one, each would waste as much memory as it uses.
void Document::AddMemory() {
  const size_t count = std::clamp(chunks_.size(), size_t{1}, kMostChunksAtOnce);
  if (chunks_.size() + count > size_t{1} << (32 - kWordBits)) throw std::bad_alloc();
  memory_.emplace_back();
  memory_.back().reset(::operator new (count* kChunkSize, std::align_val_t{kChunkSize}));
  auto* const first = static_cast<char*>(memory_.back().get());
  for (size_t i = 0; i < count; ++i) chunks_.push_back(reinterpret_cast<Chunk*>(first + i * kChunkSize));
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

std::string_view Document::CopyXmlText(std::string_view element, std::string_view text) {
  if (text.size() > UINT32_MAX) throw std::bad_alloc();
  char* const copy = ReserveText(text.size());
  // Most texts are printable ASCII, which is seen while they are copied.
  if (PrintableAscii::CopyRun(text.data(), text.size(), copy) < text.size()) {
    RequireXmlText(element, text);
    std::memcpy(copy, text.data(), text.size());
  }
  KeepText(text.size());
  return std::string_view(copy, text.size());
}

Element Document::Root() const {
  for (Node* node = First(top_); node != nullptr; node = Next(node)) {
    if (node->Kind() == NodeKind::kElement) return Element(node);
  }
  return Element();
}

// Turns the text that an element holds itself into its first child.
void Document::MakeRoomForChildren(Node* parent) {
  if (parent->IsShort()) {
    grown_.insert({parent, {0, 0}});
    parent->tag &= ~Node::kHoldsText;
    return;
  }
  auto* const full = static_cast<FullNode*>(parent);
  const std::string_view text = full->Text();
  // The child is made before anything changes: if memory runs out here, the text is still where it was.
  FullNode* const child = text.empty() ? nullptr : NewFullNode(NodeKind::kText, NameTable::kNone, Reference(parent));
  full->HoldChildren();
  if (child == nullptr) return;
  child->Hold(text);
  Link(parent, child);
}

const uint32_t* Document::GrownChildrenOf(const Node* parent) const { return grown_.find(parent)->second.data(); }

void Document::AppendAttribute(Element element, std::string_view qualifiedName, std::string_view value) {
  if (qualifiedName == "xmlns") ++default_namespaces;
  AppendAttribute(element, names_.Add(qualifiedName), value);
}

void Document::AppendAttribute(Element element, uint32_t name, std::string_view value) {
  AppendLeaf(element.node(), NodeKind::kAttribute, name, value);
}

void Document::AppendText(Element parent, NodeKind kind, std::string_view text, std::string_view name) {
  if (kind != NodeKind::kText) met_other_markup_ = true;
  if ((kind == NodeKind::kComment || kind == NodeKind::kInstruction) && !IsWindows1252(text)) {
    needs_unicode = true;
  }
  AppendLeaf(parent ? parent.node() : top_, kind, name.empty() ? NameTable::kNone : names_.Add(name), text);
}

void Document::AppendElement(Element parent, uint32_t name, std::string_view text, EmptyForm form) {
  if (text.empty()) return EndElement(AppendElement(parent, name), form);
  const std::string_view kept = CopyText(text);
  static_cast<FullNode*>(AppendElement(parent, name).node())->Hold(kept);
}

void Document::AppendLeaf(Node* parent, NodeKind kind, uint32_t name, std::string_view text) {
  if (Node::HasRoomFor(kind, text)) return AppendShort(parent, kind, name, text);
  const std::string_view kept = CopyText(text);
  Append(parent, kind, name)->Hold(kept);
}

void Document::AppendShort(Node* parent, NodeKind kind, uint32_t name, std::string_view text) {
  PrepareFor(parent);
  Node* node = NewNode(kind, name, Reference(parent), kNodeWords + Node::WordsBehind(kind, text));
  node->HoldShort(text);
  Link(parent, node);
}

void Document::AppendAdoptedText(Element parent, std::string_view text) {
  Append(parent.node(), NodeKind::kText, NameTable::kNone)->Hold(text);
}

void Document::SetText(Element element, std::string_view text) {
  Node* node = element.node();
  ReportChange(node);
  if (node->HoldsText() && text.size() <= node->Text().size()) {
    if (node->IsShort()) return;
    // A text that does not grow is overwritten in place: totals are updated again and again, and the arena must not
    // grow each time.
    auto* const full = static_cast<FullNode*>(node);
    if (!text.empty()) std::memmove(full->Address(), text.data(), text.size());
    full->length = static_cast<uint32_t>(text.size());
    return;
  }
  const std::string_view kept = CopyText(text);
  if (!node->HoldsText() && First(node) != nullptr) RemoveContent(node);
  if (!node->IsShort() && (node->HoldsText() || First(node) == nullptr)) {
    static_cast<FullNode*>(node)->Hold(kept);
  } else if (!kept.empty()) {
    AppendAdoptedText(element, kept);
  }
}

// Removes all children but the attributes.
void Document::RemoveContent(Node* parent) {
  Node* lastAttribute = nullptr;
  Node* child = First(parent);
  for (; child != nullptr && child->Kind() == NodeKind::kAttribute; child = Next(child)) lastAttribute = child;
  if (child != nullptr) {
    // The index may remember children that go away.
    children_.Forget();
  }
  uint32_t* const children = ChildrenOf(parent);
  if (lastAttribute == nullptr) {
    children[0] = children[1] = 0;
  } else {
    lastAttribute->next = 0;
    children[1] = Reference(lastAttribute);
  }
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
  if (local == NameTable::kNone || !MayHold(local) || above->HoldsText()) return Element();
  Node* node = First(above);
  for (size_t passed = 0; node != nullptr && passed < kPassedQuickly; ++passed, node = Next(node)) {
    if (IsNamed(node, local)) return Element(node);
  }
  return Element(node == nullptr ? nullptr : children_.First(above, node, local));
}

Element Document::FirstChildByKey(Element parent, std::string_view name, std::string_view key,
                                  std::string_view text) const {
  const uint32_t local = names_.Find(name);
  const uint32_t keyLocal = names_.Find(key);
  if (local == NameTable::kNone || keyLocal == NameTable::kNone || parent.node()->HoldsText()) return Element();
  return Element(children_.FirstByKey(parent.node(), local, keyLocal, text));
}

ElementRange::ElementRange(const Element& parent) {
  const Node* node = parent.node();
  if (node == nullptr || node->HoldsText()) return;
  const Document& document = Document::Of(node);
  first_ = document.First(node);
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
  const Node* child = document.First(node_);
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
  for (const Node* node = document.First(node_); node != nullptr && node->Kind() == NodeKind::kAttribute;
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
