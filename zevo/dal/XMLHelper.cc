// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/XMLHelper.h>

#include <zevo/model/internal/HelperTransformations.h>
#include <zevo/platform/Serializer.h>
#include <zevo/platform/Text.h>

namespace zevo {
namespace {

// A line break is CR LF, CR or LF: the parser makes LF of all three, unless they were written as references.
std::string OnOneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  char before = '\0';
  for (const char c : text) {
    const bool endsPair = before == '\r' && c == '\n';
    if (!endsPair) line += c == '\t' || c == '\r' || c == '\n' ? ' ' : c;
    before = c;
  }
  return std::string(TrimSpaces(line));
}

}  // namespace

std::string ElementText(std::string_view name, Element node) {
  if (!node) return {};
  const std::string xml = SerializedXml(node);
  std::string startTag = "<";
  startTag.append(name).append(">");
  const size_t tag = xml.find(startTag);
  if (tag == std::string::npos) return {};
  const size_t text = tag + startTag.size();
  return OnOneLine(Unescape(std::string_view{xml}.substr(text, xml.find('<', text) - text)));
}

ElementTexts::ElementTexts(Element node) : node_(node), walked_(node.node()) {
  if (walked_ != nullptr) Note(*walked_);
}

// Notes an element if it is the first of its name whose start tag has no attributes and is not all of it. Returns its
// name, or none when it was not noted.
inline uint32_t ElementTexts::Note(const Node& node) {
  if (node.Kind() != NodeKind::kElement) {
    if (node.Kind() != NodeKind::kText) hides_tags_ = true;
    return NameTable::kNone;
  }
  if (node.HoldsText()) {
    if (node.Text().empty() && node.Form() == EmptyForm::kOneTag) return NameTable::kNone;
  } else {
    const Node* child = Document::Of(&node).First(&node);
    if (child == nullptr ? node.Form() == EmptyForm::kOneTag : child->Kind() == NodeKind::kAttribute) {
      return NameTable::kNone;
    }
  }
  const uint32_t name = node.Name();
  if (name >= kNames || noted_[name]) return NameTable::kNone;
  noted_[name] = true;
  first_[name] = &node;
  return name;
}

// Goes on with the walk until an element of that name is noted, the tree ends or something is met that may hide tags.
// Returns the element, or null.
inline const Node* ElementTexts::WalkTo(uint32_t name) {
  if (walked_ == nullptr) return nullptr;
  const Document& document = node_.Owner();
  if (!document.MayHold(name) && !document.MayHoldOtherMarkup()) return nullptr;
  while (!hides_tags_) {
    // Most are leaves, and so are those behind them.
    const Node* next = walked_->HoldsText() && walked_ != node_.node() ? document.Next(walked_) : nullptr;
    walked_ = next != nullptr ? next : document.Following(walked_, node_.node());
    if (walked_ == nullptr) return nullptr;
    if (Note(*walked_) == name) return walked_;
  }
  return nullptr;
}

std::string_view ElementTexts::operator[](ElementName name) {
  const uint32_t number = name.Number();
  const Node* const first = noted_[number] ? first_[number] : WalkTo(number);
  if (first == nullptr) return hides_tags_ ? Searched(name) : std::string_view();
  const std::string_view text = first->HoldsText() ? first->Text() : Element(const_cast<Node*>(first)).LeadingText();
  return HoldsControlOrAnyOf<'&'>(text) ? Cleaned(text) : TrimSpaces(text);
}

[[gnu::noinline]] std::string_view ElementTexts::Cleaned(std::string_view text) {
  // Serialised and unescaped, a text comes back as it was, but for a "&quot;" in the text itself, which becomes a
  // quote.
  cleaned_ = OnOneLine(ReplaceAll(text, "&quot;", "\""));
  return cleaned_;
}

[[gnu::noinline]] std::string_view ElementTexts::Searched(ElementName name) {
  cleaned_ = ElementText(name.Text(), node_);
  return cleaned_;
}

}  // namespace zevo
