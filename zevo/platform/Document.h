// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_DOCUMENT_H_
#define ZEVO_PLATFORM_DOCUMENT_H_

#include <zevo/TextHash.h>
#include <zevo/platform/NameTable.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

class Document;

enum class NodeKind : uint32_t { kDocument, kElement, kText, kCData, kComment, kInstruction, kAttribute };

/// A node as it lies in memory: 24 bytes, linked by 32-bit references that the document resolves. An element whose only
/// content is a text holds it itself.
struct Node {
  struct Children {
    uint32_t first;
    uint32_t last;
  };

  uint32_t parent;
  uint32_t next;
  // One word, not bit-fields: those are stored in pieces, and to read back as a whole what was stored in pieces takes a
  // processor longer than all else that a new node takes.
  uint32_t tag;
  uint32_t length;  // of the text
  union {
    char* text;
    Children children;
  };

  static constexpr uint32_t kNameMask = NameTable::kMostNames;
  static constexpr uint32_t kKindShift = 24;
  static constexpr uint32_t kKindMask = 0xFU << kKindShift;
  static constexpr uint32_t kHoldsText = 1U << 28;
  static constexpr uint32_t kPrefixed = 1U << 29;  // the name has a prefix

  static constexpr uint32_t TagOf(NodeKind kind, uint32_t name) {
    return (name & kNameMask) | static_cast<uint32_t>(kind) << kKindShift;
  }
  uint32_t Name() const { return tag & kNameMask; }
  NodeKind Kind() const { return static_cast<NodeKind>((tag & kKindMask) >> kKindShift); }
  bool HoldsText() const { return (tag & kHoldsText) != 0; }
  bool IsPrefixed() const { return (tag & kPrefixed) != 0; }

  std::string_view Text() const { return HoldsText() ? std::string_view(text, length) : std::string_view(); }
  void Hold(std::string_view held) {
    text = const_cast<char*>(held.data());
    length = static_cast<uint32_t>(held.size());
    tag |= kHoldsText;
  }
  void HoldChildren() {
    length = 0;
    children = {0, 0};
    tag &= ~kHoldsText;
  }
};
static_assert(sizeof(Node) == 24);

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
  /// The local name.
  std::string_view Name() const;
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
  Element AppendElement(Element parent, std::string_view name);
  Element AppendElement(Element parent, uint32_t name);
  /// Appends an attribute. Attributes come before any content.
  void AppendAttribute(Element element, std::string_view qualifiedName, std::string_view value);
  /// The same for one that is no namespace declaration.
  void AppendAttribute(Element element, uint32_t name, std::string_view value);
  /// Appends any other node with its text; an instruction's target is its name.
  void AppendText(Element parent, NodeKind kind, std::string_view text, std::string_view name = {});
  /// Gives an element without content the text `text`, which lies in this document's arena.
  void AdoptText(Element element, std::string_view text);
  /// The same for a text node among other content.
  void AppendAdoptedText(Element parent, std::string_view text);
  /// Replaces the content of an element; its attributes stay.
  void SetText(Element element, std::string_view text);

  /// The first child of a name, or nothing. Asked again, the answer takes no search.
  Element FirstChild(Element parent, std::string_view name) const { return FirstChild(parent, names_.Find(name)); }
  Element FirstChild(Element parent, uint32_t localName) const;
  /// The first child of a name that itself has a child `key` whose whole text is `text`. The first question about a
  /// parent looks at all its children, later ones only at those that came since.
  /// Elements inside a key must not change from the first question on.
  Element FirstChildByKey(Element parent, std::string_view name, std::string_view key, std::string_view text) const;

  /// The node that follows in the order of the file, within the tree under `root`; null after the last. Attributes are
  /// passed over.
  inline Node* Following(const Node* node, const Node* root) const;

  NameTable& Names() { return names_; }
  const NameTable& Names() const { return names_; }
  Node* At(uint32_t reference) const {
    return reference == 0 ? nullptr : chunks_[reference >> kSlotBits]->nodes + (reference & kSlotMask);
  }
  /// The next node under the same parent, or null.
  inline Node* Next(const Node* node) const;
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

 private:
  // A chunk is aligned to its own size, so that the address of a node leads to its chunk and from there to the
  // document.
  static constexpr size_t kChunkSize = size_t{64} * 1024;
  static constexpr uint32_t kSlotBits = 12;
  static constexpr uint32_t kSlotMask = (1U << kSlotBits) - 1;
  struct Chunk {
    Document* document;
    uint32_t first_reference;  // of its first node
    uint32_t padding;
    Node nodes[(kChunkSize - 16) / sizeof(Node)];
  };
  static_assert(sizeof(Chunk) <= kChunkSize);
  static constexpr uint32_t kNodesInChunk = sizeof(Chunk::nodes) / sizeof(Node);
  static_assert(kNodesInChunk <= kSlotMask);

  struct FreeChunk {
    void operator()(Chunk* chunk) const;
  };
  struct TextBlock {
    std::unique_ptr<char[]> bytes;
    size_t size;
  };
  // What FirstChild found after a long search: it stays true, since nothing is ever removed or put in front.
  struct FoundChild {
    uint32_t parent;
    uint32_t name;
    uint32_t child;
  };
  struct KeyIndex {
    uint32_t parent = 0;
    uint32_t name = 0;
    uint32_t key = 0;
    uint32_t last_seen = 0;           // the last child looked at
    std::vector<uint32_t> unsettled;  // children to look at again, because a key was added to them since
    TextMap<uint32_t> first;
  };

  static Chunk* ChunkOf(const Node* node);
  static uint32_t Reference(const Node* node);
  Node* NewNode(NodeKind kind, uint32_t name, uint32_t parent);
  Node* Append(Node* parent, NodeKind kind, uint32_t name);
  void AddChunk();
  void AddBlock(size_t size);
  void MakeRoomForChildren(Node* parent);
  bool IsNamed(const Node* node, uint32_t local) const;
  Node* FirstNamed(const Node* from, uint32_t local) const;
  void IndexKeys(const Node* child) const;
  void ForgetIndexOf(const Node* key);
  void IndexAgain(const Node* parent, uint32_t name);

  NameTable names_;
  std::vector<std::unique_ptr<Chunk, FreeChunk>> chunks_;
  size_t chunks_used_ = 0;
  Node* next_node_ = nullptr;  // in the last chunk in use
  Node* nodes_end_ = nullptr;
  std::vector<TextBlock> blocks_;
  size_t blocks_used_ = 0;
  char* next_text_ = nullptr;  // in the last block in use
  char* texts_end_ = nullptr;
  Node* top_ = nullptr;
  mutable std::array<FoundChild, 16> found_{};
  mutable size_t next_found_ = 0;
  mutable KeyIndex index_;
};

inline Document::Chunk* Document::ChunkOf(const Node* node) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): what this costs is what having the chunk's address in the node saves.
  return reinterpret_cast<Chunk*>(reinterpret_cast<uintptr_t>(node) & ~(kChunkSize - 1));
}
inline Document& Document::Of(const Node* node) { return *ChunkOf(node)->document; }
inline Document& Element::Owner() const { return Document::Of(node_); }

inline uint32_t Document::Reference(const Node* node) {
  const Chunk* chunk = ChunkOf(node);
  return chunk->first_reference + static_cast<uint32_t>(node - chunk->nodes);
}

// Leaves one after the other are neighbours in memory. The processor guesses so, and goes on to the neighbour before it
// has followed the reference: a walk over children takes half the time.
inline Node* Document::Next(const Node* node) const {
  if (node->next == Reference(node) + 1) return const_cast<Node*>(node) + 1;
  return At(node->next);
}

// What is done for every node that is read stands here, so that it becomes one piece of code with its callers.

inline Node* Document::NewNode(NodeKind kind, uint32_t name, uint32_t parent) {
  if (next_node_ == nodes_end_) [[unlikely]] {
    AddChunk();
  }
  uint32_t tag = Node::TagOf(kind, name);
  if (!names_.IsPlain(name)) [[unlikely]] {
    if (names_.Local(name) != name) tag |= Node::kPrefixed;
    if (!names_.IsWindows1252(name)) needs_unicode = true;
  }
  Node* node = next_node_++;
  node->parent = parent;
  node->next = 0;
  node->tag = tag;
  node->length = 0;
  node->children = {0, 0};
  return node;
}

inline Node* Document::Append(Node* parent, NodeKind kind, uint32_t name) {
  if (index_.parent != 0) [[unlikely]] {
    ForgetIndexOf(parent);
  }
  if (parent->HoldsText()) [[unlikely]] {
    MakeRoomForChildren(parent);
  }
  Node* node = NewNode(kind, name, Reference(parent));
  const uint32_t reference = Reference(node);
  if (parent->children.first == 0) {
    parent->children.first = reference;
  } else {
    At(parent->children.last)->next = reference;
  }
  parent->children.last = reference;
  return node;
}

inline Element Document::AppendElement(Element parent, uint32_t name) {
  Node* above = parent ? parent.node() : top_;
  if (index_.parent != 0) [[unlikely]] {
    IndexAgain(above, name);
  }
  return Element(Append(above, NodeKind::kElement, name));
}

inline void Document::AdoptText(Element element, std::string_view text) {
  if (index_.parent != 0) [[unlikely]] {
    ForgetIndexOf(element.node());
  }
  element.node()->Hold(text);
}

inline Node* Document::Following(const Node* node, const Node* root) const {
  Node* next = node->HoldsText() ? nullptr : At(node->children.first);
  while (next != nullptr && next->Kind() == NodeKind::kAttribute) next = Next(next);
  while (next == nullptr && node != root) {
    next = Next(node);
    node = At(node->parent);
  }
  return next;
}

}  // namespace zevo

#endif  // ZEVO_PLATFORM_DOCUMENT_H_
