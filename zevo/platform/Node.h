// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_NODE_H_
#define ZEVO_PLATFORM_NODE_H_

#include <zevo/platform/NameTable.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zevo {

enum class NodeKind : uint32_t { kDocument, kElement, kText, kCData, kComment, kInstruction, kAttribute };

/// How an element without content is written: `<X/>` or `<X></X>`.
enum class EmptyForm : uint8_t { kOneTag, kTwoTags };

/// A node of a document as it lies in memory, linked by 32-bit references that the document resolves. This is all that
/// a short node has: one that came without content, or with a text that is an indentation or lies in the node itself.
struct Node {
  uint32_t parent;
  uint32_t next;
  // One word, not bit-fields: those are stored in pieces, and a processor that reads a word just stored in pieces
  // stalls for longer than all else takes that is done for a new node.
  uint32_t tag;

  static constexpr uint32_t kNameMask = NameTable::kMostNames;
  static constexpr uint32_t kKindShift = 24;
  static constexpr uint32_t kKindMask = 0x7U << kKindShift;
  static constexpr uint32_t kHoldsText = 1U << 27;
  static constexpr uint32_t kPrefixed = 1U << 28;  // the name has a prefix
  static constexpr uint32_t kShortShift = 29;      // one more than the length of a short node's text
  // The greatest lengths of a text that lies in the bits for the name, as a text node has no name, and of one that lies
  // behind the node.
  static constexpr size_t kShortest = 3;
  static constexpr size_t kShortText = 4;

  // An indentation is a line feed and spaces, or a line feed and tabs, and no longer than this. Every second node of
  // many files is one. The bits for the name have its length and what it is made of, those for a length this mark.
  static constexpr size_t kMostIndentation = 64;
  static constexpr uint32_t kTabs = 1U << 8;
  static constexpr uint32_t kIndentation = 7;
  // In the same bits, the mark of an element of two tags with nothing between them.
  static constexpr uint32_t kNothingBetween = 6;
  static_assert(kShortText + 1 < kNothingBetween);

  static constexpr uint32_t TagOf(NodeKind kind, uint32_t name) {
    return (name & kNameMask) | static_cast<uint32_t>(kind) << kKindShift;
  }
  /// A text node has none.
  uint32_t Name() const { return tag & kNameMask; }
  NodeKind Kind() const { return static_cast<NodeKind>((tag & kKindMask) >> kKindShift); }
  /// Whether it holds a text itself; if not, it may have children.
  bool HoldsText() const { return (tag & kHoldsText) != 0; }
  bool IsPrefixed() const { return (tag & kPrefixed) != 0; }
  bool IsShort() const { return (tag >> kShortShift) != 0; }
  /// Of an element without content.
  inline EmptyForm Form() const;

  /// The text that it holds; lies in the node where that is short.
  [[gnu::always_inline]] inline std::string_view Text() const;

  /// Whether a short node has room for a text.
  static bool HasRoomFor(NodeKind kind, std::string_view text) {
    if (kind != NodeKind::kText) return text.size() <= kShortText;
    return text.size() <= kShortest || Indentation(text) != nullptr;
  }
  /// The same text where it is kept for all nodes; null for one that is no indentation.
  static const char* Indentation(std::string_view text) {
    if (text.empty() || text.front() != '\n' || text.size() > kMostIndentation) return nullptr;
    const char* const kept = KeptIndentation(text.back() == '\t' ? kTabs : 0);
    return std::memcmp(text.data(), kept, text.size()) == 0 ? kept : nullptr;
  }
  /// How many words the text of a short node takes behind it.
  static constexpr uint32_t WordsBehind(NodeKind kind, std::string_view text) {
    return kind == NodeKind::kText || text.empty() ? 0 : 1;
  }
  /// Makes it a short node, which it stays.
  void HoldShort(std::string_view text) {
    if (Kind() == NodeKind::kText && text.size() > kShortest) {
      const auto size = static_cast<uint32_t>(text.size());
      tag |= (text.back() == '\t' ? size | kTabs : size) | kHoldsText | kIndentation << kShortShift;
      return;
    }
    if (!text.empty()) std::memcpy(const_cast<char*>(ShortText()), text.data(), text.size());
    tag |= kHoldsText | static_cast<uint32_t>(text.size() + 1) << kShortShift;
  }
  /// The same for an element without content.
  void HoldNothing(EmptyForm form) {
    tag |= kHoldsText | (form == EmptyForm::kTwoTags ? kNothingBetween : 1) << kShortShift;
  }

 private:
  const char* ShortText() const {
    if (Kind() != NodeKind::kText) return reinterpret_cast<const char*>(this + 1);
    return reinterpret_cast<const char*>(&tag) + (std::endian::native == std::endian::little ? 0 : 1);
  }
  static const char* KeptIndentation(uint32_t tabs) {
    static constexpr auto kKept = [] {
      std::array<std::array<char, kMostIndentation>, 2> kept{};
      kept[0].fill(' ');
      kept[1].fill('\t');
      kept[0][0] = kept[1][0] = '\n';
      return kept;
    }();
    return kKept[tabs == 0 ? 0 : 1].data();
  }
  // The text of any node but a full one that holds it.
  std::string_view TextOfShort() const;
};

/// A node with room for a text of any length, or for children. An element whose only content is a text holds it itself.
struct FullNode : Node {
  uint32_t length;      // of the text; of an element without content, its EmptyForm
  uint32_t content[2];  // the address of the text, or the first and the last child

  char* Address() const {
    char* address = nullptr;
    std::memcpy(&address, content, sizeof address);
    return address;
  }
  void Hold(std::string_view text) {
    const char* const address = text.data();
    std::memcpy(content, &address, sizeof address);
    length = static_cast<uint32_t>(text.size());
    tag |= kHoldsText;
  }
  bool HasChildren() const { return content[0] != 0 && !HoldsText(); }
  void HoldChildren() {
    length = 0;
    content[0] = content[1] = 0;
    tag &= ~kHoldsText;
  }
};
static_assert(sizeof(Node) == 12 && sizeof(FullNode) == 24 && alignof(FullNode) == 4);

inline EmptyForm Node::Form() const {
  if (IsShort()) return tag >> kShortShift == kNothingBetween ? EmptyForm::kTwoTags : EmptyForm::kOneTag;
  return static_cast<EmptyForm>(static_cast<const FullNode*>(this)->length);
}

inline std::string_view Node::Text() const {
  constexpr uint32_t kMask = kHoldsText | ~0U << kShortShift;
  if ((tag & kMask) != kHoldsText) return TextOfShort();
  const auto* const full = static_cast<const FullNode*>(this);
  return std::string_view(full->Address(), full->length);
}

}  // namespace zevo

#endif  // ZEVO_PLATFORM_NODE_H_
