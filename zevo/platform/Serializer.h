// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SERIALIZER_H_
#define ZEVO_PLATFORM_SERIALIZER_H_

#include <zevo/platform/Document.h>
#include <zevo/platform/File.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace zevo {

/// Which characters of a text are written as references.
enum class Escapes {
  kNone,
  kMarkup,           // & < >
  kMarkupAndQuote,   // & < > "
  kMarkupAndReturn,  // & < > and CR, which a parser would otherwise take for a line end
  kMarkupQuoteAndReturn,
  kAttribute,  // & < > " and the white space that a parser would otherwise turn into spaces
};

/// Escapes and encodes text in one pass and hands it to a sink in large pieces. Once the sink has failed, every later
/// write goes to the sink at once and fails as the sink does.
class Serializer {
 public:
  enum class Encoding { kWindows1252, kUtf8 };

  Serializer(ByteSink& sink, Encoding encoding);

  /// Writes UTF-8 text. Into Windows-1252, a character that it lacks goes as a numeric reference.
  void Write(std::string_view text, Escapes escapes);
  void Write(std::string_view text) { Write(text, Escapes::kNone); }
  /// Writes ASCII as it is.
  void WriteAscii(std::string_view text) {
    if (kBufferSize - used_ < text.size()) [[unlikely]] {
      return WriteAsciiBeyond(text);
    }
    std::memcpy(buffer_.get() + used_, text.data(), text.size());
    used_ += text.size();
  }

  /// Writes a start tag without attributes.
  void WriteStartTag(const NameTable& names, uint32_t name);
  void WriteEndTag(const NameTable& names, uint32_t name);
  /// Writes an element that has nothing but a text of XML. Most texts are of printable ASCII that is never escaped and
  /// of Portuguese letters; where this one is not, is empty or is too long, gives false and has written nothing.
  bool WritePlainElement(const NameTable& names, uint32_t name, std::string_view text);

  void WriteDocument(const Document& document);
  void WriteElement(Element element);

  /// Hands over what is still held back; destruction drops it.
  void Flush();

 private:
  static constexpr size_t kBufferSize = size_t{256} * 1024;

  void WriteAsciiBeyond(std::string_view text);
  template <size_t kSize>
  void WriteTag(const char (&opening)[kSize], const NameTable& names, uint32_t name);
  void WriteTree(const Node* root);
  void Open(const Document& document, const Node* node);
  void Close(const Document& document, const Node* node);
  void WriteTextElement(const NameTable& names, const Node& element);
  void WriteCData(std::string_view text);
  void WriteName(const NameTable& names, uint32_t name);
  void WriteEscaped(std::string_view text, Escapes escapes);

  ByteSink& sink_;
  Encoding encoding_;
  Escapes text_escapes_ = Escapes::kMarkupAndReturn;
  std::unique_ptr<char[]> buffer_;
  size_t used_ = 0;
};

/// Writes a document as a file holds it: in Windows-1252, or in UTF-8 where that would lose a character.
void WriteDocumentTo(ByteSink& sink, const Document& document);

/// The serialised XML of an element, as UTF-8 text in which nothing but & < > is escaped.
std::string SerializedXml(Element element);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SERIALIZER_H_
