#include <zevo/platform/Document.h>

#include <zevo/platform/Text.h>
#include <zevo/platform/Windows1252.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace zevo {
namespace {

constexpr size_t kBlockSize = 64 * 1024;
// Passing over so many children takes no longer than remembering where one of them is.
constexpr size_t kPassedQuickly = 16;

}  // namespace

void Document::FreeChunk::operator()(Chunk* chunk) const { ::operator delete (chunk, std::align_val_t{kChunkSize}); }

Document::Document(std::span<const std::string_view> vocabulary) : names_(vocabulary) { Clear(); }
Document::~Document() = default;

void Document::Clear() {
  chunks_used_ = 0;
  blocks_used_ = 0;
  text_used_ = 0;
  standalone = false;
  needs_unicode = false;
  default_namespaces = 0;
  found_ = {};
  index_ = {};
  top_ = NewNode(NodeKind::kDocument, NameTable::kNone);
}

uint32_t Document::Reference(const Node* node) const {
  const Chunk* chunk = ChunkOf(node);
  return (chunk->number << kSlotBits) | static_cast<uint32_t>(node - chunk->nodes);
}

Node* Document::NewNode(NodeKind kind, uint32_t name) {
  if (chunks_used_ == 0 || chunks_[chunks_used_ - 1]->used == kNodesInChunk) {
    if (chunks_used_ == chunks_.size()) {
      if (chunks_.size() > (UINT32_MAX >> kSlotBits)) throw std::bad_alloc();
      std::unique_ptr<Chunk, FreeChunk> chunk(
          static_cast<Chunk*>(::operator new (kChunkSize, std::align_val_t{kChunkSize})));
      chunk->document = this;
      chunk->number = static_cast<uint32_t>(chunks_.size());
      chunks_.push_back(std::move(chunk));
    }
    // Reference 0 is no node.
    chunks_[chunks_used_]->used = chunks_used_ == 0 ? 1 : 0;
    ++chunks_used_;
  }
  Chunk& chunk = *chunks_[chunks_used_ - 1];
  Node* node = &chunk.nodes[chunk.used++];
  *node = Node{};
  node->children = {0, 0};
  node->kind = kind;
  node->name = name & NameTable::kMostNames;
  node->prefixed = names_.Local(name) != name;
  needs_unicode = needs_unicode || !names_.IsWindows1252(name);
  return node;
}

char* Document::ReserveText(size_t size) {
  if (blocks_used_ == 0 || blocks_[blocks_used_ - 1].size - text_used_ < size) {
    while (blocks_used_ < blocks_.size() && blocks_[blocks_used_].size < size) ++blocks_used_;
    if (blocks_used_ == blocks_.size()) {
      const size_t blockSize = std::max(size, kBlockSize);
      blocks_.push_back({std::unique_ptr<char[]>(new char[blockSize]), blockSize});
    }
    ++blocks_used_;
    text_used_ = 0;
  }
  return blocks_[blocks_used_ - 1].bytes.get() + text_used_;
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
  for (Node* node = At(top_->children.first); node != nullptr; node = At(node->next)) {
    if (node->kind == NodeKind::kElement) return Element(node);
  }
  return Element();
}

// An element that held its text itself gets it as its first child.
void Document::MakeRoomForChildren(Node* parent) {
  if (!parent->holds_text) return;
  char* const text = parent->text;
  const uint32_t length = parent->length;
  parent->holds_text = false;
  parent->length = 0;
  parent->children = {0, 0};
  if (length == 0) return;
  Hold(Append(parent, NodeKind::kText, NameTable::kNone), {text, length});
}

Node* Document::Append(Node* parent, NodeKind kind, uint32_t name) {
  if (IsIndexedKey(parent)) index_ = {};
  MakeRoomForChildren(parent);
  Node* node = NewNode(kind, name);
  const uint32_t reference = Reference(node);
  node->parent = Reference(parent);
  if (parent->children.first == 0) {
    parent->children.first = reference;
  } else {
    At(parent->children.last)->next = reference;
  }
  parent->children.last = reference;
  return node;
}

Element Document::AppendElement(Element parent, std::string_view name) {
  return AppendElement(parent, names_.Add(name));
}

Element Document::AppendElement(Element parent, uint32_t name) {
  Node* above = parent ? parent.node() : top_;
  if (index_.parent != 0 && names_.Local(name) == index_.key && above->parent == index_.parent) {
    index_.unsettled.push_back(Reference(above));
  }
  return Element(Append(above, NodeKind::kElement, name));
}

void Document::AppendAttribute(Element element, std::string_view qualifiedName, std::string_view value) {
  if (qualifiedName == "xmlns") ++default_namespaces;
  const std::string_view kept = CopyText(value);
  Node* node = Append(element.node(), NodeKind::kAttribute, names_.Add(qualifiedName));
  Hold(node, kept);
}

void Document::AppendText(Element parent, NodeKind kind, std::string_view text, std::string_view name) {
  if ((kind == NodeKind::kComment || kind == NodeKind::kInstruction) && !IsWindows1252(text)) {
    needs_unicode = true;
  }
  const std::string_view kept = CopyText(text);
  const uint32_t number = name.empty() ? NameTable::kNone : names_.Add(name);
  Hold(Append(parent ? parent.node() : top_, kind, number), kept);
}

void Document::Hold(Node* node, std::string_view text) {
  node->text = const_cast<char*>(text.data());
  node->length = static_cast<uint32_t>(text.size());
  node->holds_text = true;
}

void Document::AdoptText(Element element, std::string_view text) {
  if (IsIndexedKey(element.node())) index_ = {};
  Hold(element.node(), text);
}

void Document::AppendAdoptedText(Element parent, std::string_view text) {
  Hold(Append(parent.node(), NodeKind::kText, NameTable::kNone), text);
}

void Document::SetText(Element element, std::string_view text) {
  Node* node = element.node();
  if (IsIndexedKey(node)) index_ = {};
  if (node->holds_text && text.size() <= node->length) {
    // Text that shrinks or stays as long is written over: totals are brought up to date again and again.
    if (!text.empty()) std::memmove(node->text, text.data(), text.size());
    node->length = static_cast<uint32_t>(text.size());
    return;
  }
  const std::string_view kept = CopyText(text);
  if (node->holds_text || node->children.first == 0) {
    Hold(node, kept);
    return;
  }
  Node* lastAttribute = nullptr;
  Node* child = At(node->children.first);
  for (; child != nullptr && child->kind == NodeKind::kAttribute; child = At(child->next)) lastAttribute = child;
  if (child != nullptr) {
    // Children go away that may be known from earlier questions.
    found_ = {};
    index_ = {};
  }
  if (lastAttribute == nullptr) {
    Hold(node, kept);
    return;
  }
  lastAttribute->next = 0;
  node->children.last = Reference(lastAttribute);
  if (!kept.empty()) AppendAdoptedText(element, kept);
}

// Whether the text of a node has gone into the index. A key whose parent is yet to be looked at has not.
bool Document::IsIndexedKey(const Node* node) const {
  if (index_.parent == 0 || names_.Local(node->name) != index_.key) return false;
  const bool below = At(node->parent)->parent == index_.parent;
  return below && (index_.unsettled.empty() || index_.unsettled.back() != node->parent);
}

bool Document::IsNamed(const Node* node, uint32_t local) const {
  const bool named = node->name == local || (node->prefixed && names_.Local(node->name) == local);
  return named && node->kind == NodeKind::kElement;
}

Node* Document::FirstNamed(const Node* from, uint32_t local) const {
  Node* node = const_cast<Node*>(from);
  while (node != nullptr && !IsNamed(node, local)) node = At(node->next);
  return node;
}

Element Document::FirstChild(Element parent, std::string_view name) const {
  const uint32_t local = names_.Find(name);
  const Node* above = parent.node();
  if (local == NameTable::kNone || above->holds_text) return Element();
  Node* node = At(above->children.first);
  for (size_t passed = 0; node != nullptr && passed < kPassedQuickly; ++passed, node = At(node->next)) {
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
  if (local == NameTable::kNone || keyLocal == NameTable::kNone || parent.node()->holds_text) return Element();
  const uint32_t reference = Reference(parent.node());
  if (index_.parent != reference || index_.name != local || index_.key != keyLocal) {
    index_ = {};
    index_.parent = reference;
    index_.name = local;
    index_.key = keyLocal;
  }
  for (const uint32_t child : std::exchange(index_.unsettled, {})) IndexKeys(At(child));
  const uint32_t from = index_.last_seen == 0 ? parent.node()->children.first : At(index_.last_seen)->next;
  for (const Node* child = At(from); child != nullptr; child = At(child->next)) {
    IndexKeys(child);
    index_.last_seen = Reference(child);
  }
  const auto found = index_.first.find(std::string(text));
  return found == index_.first.end() ? Element() : Element(At(found->second));
}

void Document::IndexKeys(const Node* child) const {
  if (child->kind != NodeKind::kElement || names_.Local(child->name) != index_.name || child->holds_text) return;
  const uint32_t reference = Reference(child);
  for (Node* node = FirstNamed(At(child->children.first), index_.key); node != nullptr;
       node = FirstNamed(At(node->next), index_.key)) {
    const auto [entry, added] = index_.first.emplace(Element(node).AllText(), reference);
    // Children are numbered in their order.
    if (!added) entry->second = std::min(entry->second, reference);
  }
}

Node* Document::Following(const Node* node, const Node* root) const {
  Node* next = node->holds_text ? nullptr : At(node->children.first);
  while (next != nullptr && next->kind == NodeKind::kAttribute) next = At(next->next);
  while (next == nullptr && node != root) {
    next = At(node->next);
    node = At(node->parent);
  }
  return next;
}

ElementRange::ElementRange(const Element& parent) : first_(nullptr) {
  const Node* node = parent.node();
  if (node == nullptr || node->holds_text) return;
  const Document& document = Document::Of(node);
  first_ = document.At(node->children.first);
  while (first_ != nullptr && first_->kind != NodeKind::kElement) first_ = document.At(first_->next);
}

std::string_view Element::Name() const {
  const NameTable& names = Owner().Names();
  return names.Text(names.Local(node_->name));
}

std::string_view Element::QualifiedName() const { return Owner().Names().Text(node_->name); }

std::string_view Element::LeadingText() const {
  if (node_->holds_text) return node_->Text();
  const Document& document = Owner();
  const Node* child = document.At(node_->children.first);
  while (child != nullptr && child->kind == NodeKind::kAttribute) child = document.At(child->next);
  return child != nullptr && child->kind == NodeKind::kText ? child->Text() : std::string_view();
}

std::string Element::AllText() const {
  if (node_->holds_text) return std::string(node_->Text());
  std::string text;
  const Document& document = Owner();
  for (const Node* node = document.Following(node_, node_); node != nullptr; node = document.Following(node, node_)) {
    if (node->kind != NodeKind::kComment && node->kind != NodeKind::kInstruction) text += node->Text();
  }
  return text;
}

std::optional<std::string_view> Element::Attribute(std::string_view qualifiedName) const {
  if (node_->holds_text) return std::nullopt;
  const Document& document = Owner();
  for (const Node* node = document.At(node_->children.first); node != nullptr && node->kind == NodeKind::kAttribute;
       node = document.At(node->next)) {
    if (document.Names().Text(node->name) == qualifiedName) return node->Text();
  }
  return std::nullopt;
}

Element Element::Parent() const {
  Node* parent = Owner().At(node_->parent);
  return parent != nullptr && parent->kind == NodeKind::kElement ? Element(parent) : Element();
}

Element Element::NextSibling() const {
  const Document& document = Owner();
  Node* next = document.At(node_->next);
  while (next != nullptr && next->kind != NodeKind::kElement) next = document.At(next->next);
  return Element(next);
}

}  // namespace zevo
