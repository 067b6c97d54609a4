// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_DOCUMENT_H_
#define ZEVO_PLATFORM_DOCUMENT_H_

#include <zevo/platform/ChildIndex.h>
#include <zevo/platform/NameTable.h>
#include <zevo/platform/Node.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo {

class Document;

class Element;

/// The elements directly under another, in order; attributes and texts are passed over.
class ElementRange {
 public:
  class Iterator;
  explicit ElementRange(const Element& parent);
  Iterator begin() const;
  Iterator end() const;

 private:
  Node* first_ = nullptr;
};

/// A handle to an element of a document, or nothing. It is valid until its document is cleared or destroyed.
class Element {
 public:
  Element() = default;
  explicit Element(Node* node) : node_(node) {}

  explicit operator bool() const { return node_ != nullptr; }
  friend bool operator==(Element, Element) = default;

  Document& Owner() const;
  /// The local name, and its number in the document.
  std::string_view Name() const;
  inline uint32_t LocalNumber() const;
  /// The name with its prefix.
  std::string_view QualifiedName() const;
  /// The text at the front of the content, up to the first markup.
  std::string_view LeadingText() const;
  /// The text of the whole content, markup left out.
  std::string AllText() const;
  std::optional<std::string_view> Attribute(std::string_view qualifiedName) const;
  Element Parent() const;
  Element NextSibling() const;
  ElementRange Children() const { return ElementRange(*this); }

  Node* node() const { return node_; }

 private:
  Node* node_ = nullptr;
};

class ElementRange::Iterator {
 public:
  explicit Iterator(Element at) : at_(at) {}
  Element operator*() const { return at_; }
  Iterator& operator++() {
    at_ = at_.NextSibling();
    return *this;
  }
  friend bool operator==(const Iterator&, const Iterator&) = default;

 private:
  Element at_;
};

inline ElementRange::Iterator ElementRange::begin() const { return Iterator(Element(first_)); }
inline ElementRange::Iterator ElementRange::end() const { return Iterator(Element()); }

/// An XML document as one compact tree. Nodes are only ever appended; their texts lie in one arena. Cleared, it keeps
/// its memory for the next content. Elements are matched by local name. Out of memory raises std::bad_alloc.
class Document {
 public:
  /// `vocabulary` are the names numbered 1, 2 and so on in this document.
  explicit Document(std::span<const std::string_view> vocabulary = {});
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;
  ~Document();

  void Clear();

  /// The document element, or nothing while there is none.
  Element Root() const;

  /// Appends an element as the last child of `parent`, or of the document when that is nothing.
  Element AppendElement(Element parent, std::string_view name) { return AppendElement(parent, names_.Add(name)); }
  Element AppendElement(Element parent, uint32_t name);
  /// Appends an element with a text for its only content, or in that form without a text. It may change like any other.
  void AppendElement(Element parent, uint32_t name, std::string_view text, EmptyForm form = EmptyForm::kOneTag);
  /// Appends an attribute. Attributes come before any content.
  void AppendAttribute(Element element, std::string_view qualifiedName, std::string_view value);
  /// The same for one that is no namespace declaration.
  void AppendAttribute(Element element, uint32_t name, std::string_view value);
  /// Appends any other node with its text; an instruction's target is its name.
  void AppendText(Element parent, NodeKind kind, std::string_view text, std::string_view name = {});
  /// Gives an element that was just appended and has no content the text `text`, which lies in this document's arena.
  void AdoptText(Element element, std::string_view text);
  /// The same for a text node among other content.
  void AppendAdoptedText(Element parent, std::string_view text);
  /// Appends a text node for a text that it has room for itself: see Node.
  void AppendShortText(Element parent, std::string_view text) { AppendShort(parent.node(), NodeKind::kText, 0, text); }
  /// Tells of an element that has ended how it is written, if it has got no content, and takes back the room for that,
  /// if it has no attributes either. Content may come all the same.
  inline void EndElement(Element element, EmptyForm form);
  /// Tells how an element that was just appended is written if it gets no content.
  static void SetEmptyForm(Element element, EmptyForm form) {
    static_cast<FullNode*>(element.node())->length = static_cast<uint32_t>(form);
  }
  /// Replaces the content of an element; its attributes stay.
  void SetText(Element element, std::string_view text);

  /// The first child of a name, or nothing. The answer is remembered.
  Element FirstChild(Element parent, std::string_view name) const { return FirstChild(parent, names_.Find(name)); }
  Element FirstChild(Element parent, uint32_t localName) const;
  /// The first child of a name that itself has a child `key` whose whole text is `text`. The first call for a parent
  /// looks at all its children, later calls only at those that were added since. Elements inside a key must not change
  /// after the first call.
  Element FirstChildByKey(Element parent, std::string_view name, std::string_view key, std::string_view text) const;

  /// Whether an element of a local name may be in the document. False is certain: where it is, nobody need look.
  bool MayHold(uint32_t localName) const { return met_[static_cast<uint8_t>(localName)]; }
  /// Whether comments, CDATA sections or instructions may be in the document. False is certain.
  bool MayHoldOtherMarkup() const { return met_other_markup_; }

  /// The node that follows in the order of the file, within the tree under `root`; null after the last. Attributes are
  /// passed over.
  inline Node* Following(const Node* node, const Node* root) const;

  NameTable& Names() { return names_; }
  const NameTable& Names() const { return names_; }
  Node* At(uint32_t reference) const {
    if (reference == 0) return nullptr;
    auto* const chunk = reinterpret_cast<uint32_t*>(chunks_[reference >> kWordBits]);
    return reinterpret_cast<Node*>(chunk + (reference & kWordMask));
  }
  /// The number by which At finds a node.
  static inline uint32_t Reference(const Node* node);
  /// The first node under one that holds no text, attributes included; null when there is none.
  [[gnu::always_inline]] Node* First(const Node* parent) const { return At(ChildrenOf(parent)[0]); }
  [[gnu::always_inline]] Node* Last(const Node* parent) const { return At(ChildrenOf(parent)[1]); }
  /// The next node under the same parent, or null.
  inline Node* Next(const Node* node) const;
  /// The first element of a local name among a node and those that follow it under the same parent, or null. `from` may
  /// be null.
  Node* FirstNamed(const Node* from, uint32_t local) const;
  Node* Top() const { return top_; }
  static Document& Of(const Node* node);

  /// Whether standalone="yes" was declared.
  bool standalone = false;
  /// Whether a name, a comment or an instruction holds a character that Windows-1252 lacks. No character reference can
  /// stand for it there.
  bool needs_unicode = false;
  /// How many default namespaces are declared.
  int default_namespaces = 0;

  /// Room for `size` more characters of a text that is put together at the end of the arena.
  char* ReserveText(size_t size) {
    if (static_cast<size_t>(texts_end_ - next_text_) < size) [[unlikely]] {
      AddBlock(size);
    }
    return next_text_;
  }
  /// Keeps `size` characters written to what ReserveText gave.
  void KeepText(size_t size) { next_text_ += size; }
  std::string_view CopyText(std::string_view text);
  /// The same of a text that may be none of XML: raises error 5, as RequireXmlText does for an element of that name.
  std::string_view CopyXmlText(std::string_view element, std::string_view text);

 private:
  // A chunk is aligned to its own size, so that the address of a node leads to its chunk and from there to the
  // document. References count the words of 4 bytes of all chunks.
  static constexpr size_t kChunkSize = size_t{64} * 1024;
  static constexpr uint32_t kWordBits = 14;
  static constexpr uint32_t kWordMask = (1U << kWordBits) - 1;
  static_assert(kChunkSize == sizeof(uint32_t) << kWordBits);
  struct Chunk {
    Document* document;
    uint32_t first_reference;  // of the chunk itself, which is no node
  };
  static constexpr uint32_t kNodeWords = sizeof(Node) / sizeof(uint32_t);
  static constexpr uint32_t kFullNodeWords = sizeof(FullNode) / sizeof(uint32_t);

  struct FreeChunks {
    void operator()(void* chunks) const;
  };
  struct TextBlock {
    std::unique_ptr<char[]> bytes;
    size_t size;
  };
  static Chunk* ChunkOf(const Node* node);
  Node* NewNode(NodeKind kind, uint32_t name, uint32_t parent, uint32_t words);
  FullNode* NewFullNode(NodeKind kind, uint32_t name, uint32_t parent);
  [[gnu::always_inline]] const uint32_t* ChildrenOf(const Node* parent) const {
    if (parent->IsShort()) [[unlikely]] {
      return GrownChildrenOf(parent);
    }
    return static_cast<const FullNode*>(parent)->content;
  }
  uint32_t* ChildrenOf(Node* parent) { return const_cast<uint32_t*>(std::as_const(*this).ChildrenOf(parent)); }
  [[gnu::cold]] const uint32_t* GrownChildrenOf(const Node* parent) const;
  void RemoveContent(Node* parent);
  void ReportChange(const Node* element);
  void PrepareFor(Node* parent);
  void Link(Node* parent, Node* node);
  FullNode* Append(Node* parent, NodeKind kind, uint32_t name);
  void AppendShort(Node* parent, NodeKind kind, uint32_t name, std::string_view text);
  void AppendLeaf(Node* parent, NodeKind kind, uint32_t name, std::string_view text);
  void AddChunk();
  void AddMemory();
  void AddBlock(size_t size);
  [[gnu::cold]] void MakeRoomForChildren(Node* parent);
  bool IsNamed(const Node* node, uint32_t local) const;

  NameTable names_;
  std::vector<std::unique_ptr<void, FreeChunks>> memory_;  // of several chunks each
  std::vector<Chunk*> chunks_;
  size_t chunks_used_ = 0;
  uint32_t* next_node_ = nullptr;  // in the last chunk in use
  uint32_t* nodes_end_ = nullptr;  // from here on there is no room for a node
  // The first and the last child of short nodes that got content after all.
  std::map<const Node*, std::array<uint32_t, 2>> grown_;
  std::vector<TextBlock> blocks_;
  size_t blocks_used_ = 0;
  char* next_text_ = nullptr;  // in the last block in use
  char* texts_end_ = nullptr;
  Node* top_ = nullptr;
  std::array<bool, 256> met_{};  // by the last byte of a name's number, which tells those of the vocabulary apart
  bool met_other_markup_ = false;
  mutable ChildIndex children_{*this};
};

inline Document::Chunk* Document::ChunkOf(const Node* node) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): what this costs is what having the chunk's address in the node saves.
  return reinterpret_cast<Chunk*>(reinterpret_cast<uintptr_t>(node) & ~(kChunkSize - 1));
}
inline Document& Document::Of(const Node* node) { return *ChunkOf(node)->document; }
inline Document& Element::Owner() const { return Document::Of(node_); }

inline uint32_t Element::LocalNumber() const { return Owner().Names().Local(node_->Name()); }

inline uint32_t Document::Reference(const Node* node) {
  const auto within = reinterpret_cast<uintptr_t>(node) & (kChunkSize - 1);
  return ChunkOf(node)->first_reference + static_cast<uint32_t>(within / sizeof(uint32_t));
}

// Leaves that follow each other are mostly neighbours in memory. Testing for that lets the processor predict the branch
// and go on with the neighbour before it has read the reference: a walk over children takes half the time.
inline Node* Document::Next(const Node* node) const {
  if (node->next == Reference(node) + kFullNodeWords) return static_cast<FullNode*>(const_cast<Node*>(node)) + 1;
  return At(node->next);
}

// What is done for every node that is read is defined here, so that it is inlined.

inline Node* Document::NewNode(NodeKind kind, uint32_t name, uint32_t parent, uint32_t words) {
  if (next_node_ >= nodes_end_) [[unlikely]] {
    AddChunk();
  }
  uint32_t tag = Node::TagOf(kind, name);
  met_[static_cast<uint8_t>(name)] = true;
  if (!names_.IsPlain(name)) [[unlikely]] {
    const uint32_t local = names_.Local(name);
    if (local != name) tag |= Node::kPrefixed;
    met_[static_cast<uint8_t>(local)] = true;
    if (!names_.IsWindows1252(name)) needs_unicode = true;
  }
  auto* node = reinterpret_cast<Node*>(next_node_);
  next_node_ += words;
  node->parent = parent;
  node->next = 0;
  node->tag = tag;
  return node;
}

inline FullNode* Document::NewFullNode(NodeKind kind, uint32_t name, uint32_t parent) {
  auto* node = static_cast<FullNode*>(NewNode(kind, name, parent, kFullNodeWords));
  node->length = 0;
  node->content[0] = node->content[1] = 0;
  return node;
}

inline void Document::ReportChange(const Node* element) {
  if (children_.KnowsKeysIn(names_.Local(element->Name()))) [[unlikely]] {
    children_.OnChange(element);
  }
}

inline void Document::PrepareFor(Node* parent) {
  ReportChange(parent);
  if (parent->HoldsText()) [[unlikely]] {
    MakeRoomForChildren(parent);
  }
}

inline void Document::Link(Node* parent, Node* node) {
  const uint32_t reference = Reference(node);
  uint32_t* const children = ChildrenOf(parent);
  if (children[0] == 0) {
    children[0] = reference;
  } else {
    At(children[1])->next = reference;
  }
  children[1] = reference;
}

inline FullNode* Document::Append(Node* parent, NodeKind kind, uint32_t name) {
  PrepareFor(parent);
  FullNode* node = NewFullNode(kind, name, Reference(parent));
  Link(parent, node);
  return node;
}

inline Element Document::AppendElement(Element parent, uint32_t name) {
  Node* above = parent ? parent.node() : top_;
  if (children_.KnowsKeysIn(names_.Local(name))) [[unlikely]] {
    children_.OnAppend(above);
  }
  return Element(Append(above, NodeKind::kElement, name));
}

inline void Document::AdoptText(Element element, std::string_view text) {
  ReportChange(element.node());
  static_cast<FullNode*>(element.node())->Hold(text);
}

inline void Document::EndElement(Element element, EmptyForm form) {
  auto* const node = static_cast<FullNode*>(element.node());
  if (reinterpret_cast<uint32_t*>(node + 1) == next_node_) {
    next_node_ -= kFullNodeWords - kNodeWords;
    node->HoldNothing(form);
  } else if (Last(node)->Kind() == NodeKind::kAttribute) {
    SetEmptyForm(element, form);
  }
}

inline Node* Document::Following(const Node* node, const Node* root) const {
  Node* next = node->HoldsText() ? nullptr : First(node);
  while (next != nullptr && next->Kind() == NodeKind::kAttribute) next = Next(next);
  while (next == nullptr && node != root) {
    next = Next(node);
    node = At(node->parent);
  }
  return next;
}

}  // namespace zevo

#endif  // ZEVO_PLATFORM_DOCUMENT_H_
