// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Serializer.h>

#include <zevo/platform/ByteScan.h>
#include <zevo/platform/Text.h>
#include <zevo/platform/Windows1252.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

namespace zevo {
namespace {

// The longest that a byte of text can become: &quot; for a quote.
constexpr size_t kGrowth = 6;

std::string_view Reference(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\r':
      return "&#13;";
    case '\n':
      return "&#10;";
    case '\t':
      return "&#9;";
    default:
      return {};
  }
}

std::string_view Escaped(Escapes escapes) {
  switch (escapes) {
    case Escapes::kNone:
      return "";
    case Escapes::kMarkup:
      return "&<>";
    case Escapes::kMarkupAndQuote:
      return "&<>\"";
    case Escapes::kMarkupAndReturn:
      return "&<>\r";
    case Escapes::kMarkupQuoteAndReturn:
      return "&<>\"\r";
    case Escapes::kAttribute:
      return "&<>\"\r\n\t";
  }
  return {};
}

enum class Kind : uint8_t { kPlain, kEscaped, kBeyondAscii };
using Kinds = std::array<Kind, 256>;

Kinds MakeKinds(Escapes escapes) {
  Kinds kinds{};
  std::fill(kinds.begin() + 0x80, kinds.end(), Kind::kBeyondAscii);
  for (const char c : Escaped(escapes)) kinds[Byte(c)] = Kind::kEscaped;
  return kinds;
}

const Kinds& KindsFor(Escapes escapes) {
  static const std::array kAll = {
      MakeKinds(Escapes::kNone),
      MakeKinds(Escapes::kMarkup),
      MakeKinds(Escapes::kMarkupAndQuote),
      MakeKinds(Escapes::kMarkupAndReturn),
      MakeKinds(Escapes::kMarkupQuoteAndReturn),
      MakeKinds(Escapes::kAttribute),
  };
  return kAll[static_cast<size_t>(escapes)];
}

// Bytes that are written as they are, however a text is escaped and encoded.
using PlainBytes = ByteScan<StopBytes<0x20, true, '&', '<', '>', '"'>>;

// Characters of two bytes that Windows-1252 has under their own numbers, such as all letters of Portuguese outside
// ASCII.
constexpr size_t kLatinSize = 2;
bool StartsWithLatin(std::string_view text) {
  if (text.size() < kLatinSize || !IsContinuation(text[1])) return false;
  return Byte(text[0]) == 0xC3 || (Byte(text[0]) == 0xC2 && Byte(text[1]) >= 0xA0);
}
unsigned LatinNumber(std::string_view text) { return (Byte(text[0]) & 3U) << 6 | (Byte(text[1]) & 0x3FU); }

// Room for a tag of a short name, with what is copied behind that.
constexpr size_t kTagRoom = NameTable::kShort + 3;

// Short names are copied with what stands behind them: a copy of a size that is known is a few instructions. Gives the
// end of the tag.
template <size_t kSize>
char* CopyTag(const char (&opening)[kSize], std::string_view name, char* to) {
  std::memcpy(to, opening, kSize - 1);
  to += kSize - 1;
  std::memcpy(to, name.data(), NameTable::kShort);
  to += name.size();
  *to++ = '>';
  return to;
}

class StringSink : public ByteSink {
 public:
  void Write(std::string_view bytes) override { text.append(bytes); }
  std::string text;
};

// Where a piece of at most `size` bytes ends without cutting a character in two.
size_t PieceEnd(std::string_view text, size_t size) {
  if (text.size() <= size) return text.size();
  size_t end = size;
  while (end > size - 4 && (Byte(text[end]) & 0xC0U) == 0x80) --end;
  return end;
}

}  // namespace

Serializer::Serializer(ByteSink& sink, Encoding encoding)
    : sink_(sink), encoding_(encoding), buffer_(new char[kBufferSize]) {}

void Serializer::Flush() {
  const std::string_view bytes(buffer_.get(), used_);
  // The buffer counts as full until the sink has taken it: if the sink throws, the next write calls it again.
  used_ = kBufferSize;
  sink_.Write(bytes);
  used_ = 0;
}

void Serializer::Write(std::string_view text, Escapes escapes) {
  constexpr size_t kPiece = kBufferSize / kGrowth - 16;
  while (!text.empty()) {
    const size_t end = PieceEnd(text, kPiece);
    if ((kBufferSize - used_) / kGrowth <= end) Flush();
    WriteEscaped(text.substr(0, end), escapes);
    text.remove_prefix(end);
  }
}

// Writes what the buffer has no room for.
void Serializer::WriteAsciiBeyond(std::string_view text) {
  if (text.size() > kBufferSize) return Write(text);
  Flush();
  WriteAscii(text);
}

void Serializer::WriteName(const NameTable& names, uint32_t name) {
  names.IsAscii(name) ? WriteAscii(names.Text(name)) : Write(names.Text(name));
}

template <size_t kSize>
void Serializer::WriteTag(const char (&opening)[kSize], const NameTable& names, uint32_t name) {
  if (names.IsShort(name) && kBufferSize - used_ >= kTagRoom) {
    used_ = static_cast<size_t>(CopyTag(opening, names.Text(name), buffer_.get() + used_) - buffer_.get());
    return;
  }
  WriteAscii(opening);
  WriteName(names, name);
  WriteAscii(">");
}

void Serializer::WriteStartTag(const NameTable& names, uint32_t name) { WriteTag("<", names, name); }

void Serializer::WriteEndTag(const NameTable& names, uint32_t name) { WriteTag("</", names, name); }

bool Serializer::WritePlainElement(const NameTable& names, uint32_t name, std::string_view text) {
  const size_t room = kBufferSize - used_;
  if (text.empty() || room < 2 * kTagRoom || room - 2 * kTagRoom < text.size() || !names.IsShort(name)) return false;
  char* to = CopyTag("<", names.Text(name), buffer_.get() + used_);
  for (;;) {
    const size_t plain = PlainBytes::CopyRun(text.data(), text.size(), to);
    to += plain;
    text.remove_prefix(plain);
    if (text.empty()) break;
    if (!StartsWithLatin(text)) return false;
    if (encoding_ == Encoding::kUtf8) {
      to = std::copy_n(text.data(), kLatinSize, to);
    } else {
      *to++ = static_cast<char>(LatinNumber(text));
    }
    text.remove_prefix(kLatinSize);
  }
  used_ = static_cast<size_t>(CopyTag("</", names.Text(name), to) - buffer_.get());
  return true;
}

void Serializer::WriteEscaped(std::string_view text, Escapes escapes) {
  const Kinds& kinds = KindsFor(escapes);
  char* to = buffer_.get() + used_;
  const char* from = text.data();
  const char* const end = from + text.size();
  while (from < end) {
    const size_t plain = PlainBytes::CopyRun(from, static_cast<size_t>(end - from), to);
    from += plain;
    to += plain;
    if (from == end) break;
    const Kind kind = kinds[Byte(*from)];
    if (kind == Kind::kPlain || (kind == Kind::kBeyondAscii && encoding_ == Encoding::kUtf8)) {
      *to++ = *from++;
    } else if (kind == Kind::kEscaped) {
      const std::string_view reference = Reference(*from++);
      to = std::copy(reference.begin(), reference.end(), to);
    } else {
      std::string_view rest(from, static_cast<size_t>(end - from));
      const char32_t character = TakeCharacter(rest);
      const int byte = ToWindows1252(character);
      if (byte >= 0) {
        *to++ = static_cast<char>(byte);
      } else {
        const std::string reference = "&#" + std::to_string(static_cast<uint32_t>(character)) + ";";
        to = std::copy(reference.begin(), reference.end(), to);
      }
      from = rest.data();
    }
  }
  used_ = static_cast<size_t>(to - buffer_.get());
}

void Serializer::WriteDocument(const Document& document) {
  WriteAscii(R"(<?xml version="1.0" encoding=")");
  WriteAscii(encoding_ == Encoding::kUtf8 ? "utf-8" : "windows-1252");
  WriteAscii(document.standalone ? "\" standalone=\"yes\"?>\n" : "\"?>\n");
  for (const Node* node = document.First(document.Top()); node != nullptr; node = document.At(node->next)) {
    WriteTree(node);
    WriteAscii("\n");
  }
}

void Serializer::WriteElement(Element element) {
  text_escapes_ = Escapes::kMarkup;
  WriteTree(element.node());
}

void Serializer::WriteTree(const Node* root) {
  const Document& document = Document::Of(root);
  const Node* node = root;
  for (;;) {
    if (node->Kind() == NodeKind::kElement && node->HoldsText()) {
      WriteTextElement(document.Names(), *node);
      // Most are followed by a sibling: then nothing ends but this one.
      if (node != root && node->next != 0) {
        node = document.Next(node);
        continue;
      }
    } else {
      Open(document, node);
    }
    const Node* next = document.Following(node, root);
    // Close what ends before the next node begins.
    const Node* const parent = next == nullptr ? document.At(root->parent) : document.At(next->parent);
    for (; node != parent; node = document.At(node->parent)) Close(document, node);
    if (next == nullptr) return;
    node = next;
  }
}

void Serializer::Open(const Document& document, const Node* node) {
  switch (node->Kind()) {
    case NodeKind::kElement: {
      WriteAscii("<");
      WriteName(document.Names(), node->Name());
      const Node* child = document.First(node);
      for (; child != nullptr && child->Kind() == NodeKind::kAttribute; child = document.At(child->next)) {
        WriteAscii(" ");
        WriteName(document.Names(), child->Name());
        WriteAscii("=\"");
        Write(child->Text(), Escapes::kAttribute);
        WriteAscii("\"");
      }
      WriteAscii(child == nullptr && node->Form() == EmptyForm::kOneTag ? "/>" : ">");
      return;
    }
    case NodeKind::kText:
      return Write(node->Text(), text_escapes_);
    case NodeKind::kCData:
      return WriteCData(node->Text());
    case NodeKind::kComment:
      WriteAscii("<!--");
      Write(node->Text());
      return WriteAscii("-->");
    case NodeKind::kInstruction:
      WriteAscii("<?");
      WriteName(document.Names(), node->Name());
      if (!node->Text().empty()) WriteAscii(" ");
      Write(node->Text());
      return WriteAscii("?>");
    case NodeKind::kDocument:
    case NodeKind::kAttribute:
      return;
  }
}

void Serializer::Close(const Document& document, const Node* node) {
  if (node->Kind() != NodeKind::kElement || node->HoldsText()) return;
  const Node* last = document.Last(node);
  const bool empty = last == nullptr || last->Kind() == NodeKind::kAttribute;
  if (empty && node->Form() == EmptyForm::kOneTag) return;
  WriteEndTag(document.Names(), node->Name());
}

// Writes an element that holds its text itself, end tag included.
void Serializer::WriteTextElement(const NameTable& names, const Node& element) {
  const uint32_t name = element.Name();
  const std::string_view text = element.Text();
  if (WritePlainElement(names, name, text)) return;
  if (text.empty() && element.Form() == EmptyForm::kOneTag) {
    WriteAscii("<");
    WriteName(names, name);
    return WriteAscii("/>");
  }
  WriteStartTag(names, name);
  Write(text, text_escapes_);
  WriteEndTag(names, name);
}

// A character that Windows-1252 lacks is written as a reference, which means nothing inside a CDATA section: the
// section is closed before it and begun again after it.
void Serializer::WriteCData(std::string_view text) {
  constexpr std::string_view kStart = "<![CDATA[";
  constexpr std::string_view kEnd = "]]>";
  WriteAscii(kStart);
  while (encoding_ == Encoding::kWindows1252 && !text.empty()) {
    std::string_view rest = text;
    size_t plain = 0;
    while (!rest.empty() && ToWindows1252(TakeCharacter(rest)) >= 0) plain = text.size() - rest.size();
    Write(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty()) break;
    rest = text;
    TakeCharacter(rest);
    WriteAscii(kEnd);
    Write(text.substr(0, text.size() - rest.size()), text_escapes_);
    WriteAscii(kStart);
    text = rest;
  }
  Write(text);
  WriteAscii(kEnd);
}

void WriteDocumentTo(ByteSink& sink, const Document& document) {
  Serializer serializer(sink,
                        document.needs_unicode ? Serializer::Encoding::kUtf8 : Serializer::Encoding::kWindows1252);
  serializer.WriteDocument(document);
  serializer.Flush();
}

std::string SerializedXml(Element element) {
  StringSink sink;
  Serializer serializer(sink, Serializer::Encoding::kUtf8);
  serializer.WriteElement(element);
  serializer.Flush();
  return std::move(sink.text);
}

}  // namespace zevo
