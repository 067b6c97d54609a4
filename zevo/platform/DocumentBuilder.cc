// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/DocumentBuilder.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace zevo {

void DocumentBuilder::Clear() {
  document_.Clear();
  open_.clear();
  text_ = nullptr;
  length_ = room_ = 0;
}

void DocumentBuilder::StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) {
  if (length_ > 0) EndText();
  open_.push_back(document_.AppendElement(Open(), document_.Names().AddParsed(name.number, name.local, name.prefix)));
  if (!attributes.empty()) AppendAttributes(attributes);
}

void DocumentBuilder::Leaf(const ParsedName& name, std::string_view text) {
  if (length_ > 0) EndText();
  document_.AppendElement(Open(), document_.Names().AddParsed(name.number, name.local, name.prefix), text,
                          EmptyForm::kTwoTags);
}

void DocumentBuilder::AppendAttributes(std::span<const ParsedAttribute> attributes) {
  for (const ParsedAttribute& attribute : attributes) {
    const ParsedName& name = attribute.name;
    if (name.number != 0) {
      document_.AppendAttribute(Open(), document_.Names().AddParsed(name.number, name.local, name.prefix),
                                attribute.value);
    } else if (name.prefix == nullptr) {
      document_.AppendAttribute(Open(), name.local, attribute.value);
    } else {
      document_.AppendAttribute(Open(), std::string(name.prefix).append(":").append(name.local), attribute.value);
    }
  }
}

bool DocumentBuilder::IsBehindElement() const {
  const auto* const open = static_cast<const FullNode*>(Open().node());
  return open->HasChildren() && document_.Last(open)->Kind() == NodeKind::kElement;
}

void DocumentBuilder::EndElement(const ParsedName&) {
  if (length_ > 0) {
    if (!static_cast<const FullNode*>(Open().node())->HasChildren()) {
      std::string_view text(text_, length_);
      if (room_ == 0) {
        text = document_.CopyText(text);
      } else {
        document_.KeepText(length_);
      }
      document_.AdoptText(Open(), text);
      length_ = room_ = 0;
    } else {
      EndText();
    }
  } else {
    document_.EndElement(Open(), EmptyForm::kTwoTags);
  }
  open_.pop_back();
}

void DocumentBuilder::EndEmptyTag(const ParsedName&) {
  document_.EndElement(Open(), EmptyForm::kOneTag);
  open_.pop_back();
}

void DocumentBuilder::Characters(std::string_view text) {
  // An empty CDATA section comes as an empty text.
  if (text.empty()) return;
  if (length_ == 0) {
    text_ = Node::Indentation(text);
    if (text_ != nullptr) {
      length_ = text.size();
      return;
    }
  }
  if (length_ + text.size() > room_) room_ = std::max(length_ + text.size(), 2 * room_);
  char* const arena = document_.ReserveText(room_);
  if (length_ > 0 && arena != text_) std::memcpy(arena, text_, length_);
  std::memcpy(arena + length_, text.data(), text.size());
  text_ = arena;
  length_ += text.size();
}

void DocumentBuilder::EndText() {
  const std::string_view text(text_, length_);
  // What came in pieces lies in the arena, whatever it is.
  const bool indents = room_ == 0 || Node::Indentation(text) != nullptr;
  if (indentation_ == Indentation::kLeftOut && indents && IsBehindElement()) {
    length_ = room_ = 0;
    return;
  }
  const bool isShort = room_ == 0 || text.size() <= Node::kShortest;
  length_ = room_ = 0;
  if (isShort) return document_.AppendShortText(Open(), text);
  document_.KeepText(text.size());
  document_.AppendAdoptedText(Open(), text);
}

void DocumentBuilder::CData(std::string_view text) {
  if (length_ > 0) EndText();
  document_.AppendText(Open(), NodeKind::kCData, text);
}

void DocumentBuilder::Comment(std::string_view text) {
  if (length_ > 0) EndText();
  document_.AppendText(Open(), NodeKind::kComment, text);
}

void DocumentBuilder::Instruction(std::string_view target, std::string_view data) {
  if (length_ > 0) EndText();
  document_.AppendText(Open(), NodeKind::kInstruction, data, target);
}

void DocumentBuilder::Standalone() { document_.standalone = true; }

}  // namespace zevo
