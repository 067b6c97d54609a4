#include <zevo/model/XMLHelper.h>

#include <zevo/model/HelperTransformations.h>
#include <zevo/platform/Serializer.h>
#include <zevo/platform/Text.h>

namespace zevo {
namespace {

std::string OnOneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\t') {
      line += ' ';
    } else if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
      line += ' ';
      ++i;
    } else {
      line += text[i];
    }
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
  const size_t tagEnd = xml.find('>', tag + 1);
  const size_t next = xml.find('<', tag + 1);
  if (tagEnd == std::string::npos || next == std::string::npos || next < tagEnd) return {};
  const std::string_view text = std::string_view(xml).substr(tagEnd + 1, next - tagEnd - 1);
  return OnOneLine(Unescape(text));
}

void ElementTexts::Note(const Node* node) {
  if (node == nullptr) return;
  if (node->kind == NodeKind::kElement) {
    // Start tags with attributes and empty-element tags are not what is looked for.
    const bool plain = node->holds_text ? node->length > 0 : node->children.first != 0;
    if (node->name >= first_.size() || first_[node->name] != nullptr || !plain) return;
    if (!node->holds_text && Document::Of(node).At(node->children.first)->kind == NodeKind::kAttribute) return;
    first_[node->name] = node;
  } else if (node->kind != NodeKind::kText) {
    hides_tags_ = true;
  }
}

std::string_view ElementTexts::operator[](ElementName name) {
  const Node*& found = first_[name.Number()];
  while (found == nullptr && walked_ != nullptr && !hides_tags_) {
    walked_ = node_.Owner().Following(walked_, node_.node());
    Note(walked_);
  }
  if (found != nullptr) return Cleaned(Element(const_cast<Node*>(found)).LeadingText());
  if (!hides_tags_) return {};
  cleaned_ = ElementText(name.Text(), node_);
  return cleaned_;
}

std::string_view ElementTexts::Cleaned(std::string_view text) {
  bool plain = true;
  for (const char c : text) plain = plain && c != '\t' && c != '\r' && c != '&';
  if (plain) return TrimSpaces(text);
  // What was escaped once is unescaped by the parser; only a quote written as a reference in the text itself is left.
  cleaned_ = OnOneLine(ReplaceAll(text, "&quot;", "\""));
  return cleaned_;
}

}  // namespace zevo
