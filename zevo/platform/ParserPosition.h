// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_PARSERPOSITION_H_
#define ZEVO_PLATFORM_PARSERPOSITION_H_

#include <libxml/parser.h>
#include <zevo/FilePlace.h>

#include <cstddef>
#include <cstdint>

namespace zevo {

/// How far a libxml2 parser has come in the UTF-8 that it is given, however long a file or a line of it is.
class ParserPosition {
 public:
  /// The parser, which must outlive this. Before this call the position is that of the beginning.
  void Watch(const xmlParserCtxt& parser) { parser_ = &parser; }

  /// Bytes that the parser, which must be known by now, has taken in.
  size_t Bytes() const {
    const xmlParserInput* const input = parser_->input;
    return input == nullptr ? 0 : input->consumed + static_cast<size_t>(input->cur - input->base);
  }

  /// To be called whenever the parser asks for bytes: libxml2 counts columns in 32 bits, a file may be one line of many
  /// gigabytes, and this notices each time that the count overflows.
  void Follow();

  /// The line and the column of what the parser looks at.
  FilePlace Place();
  /// The line and the column of the next byte that the parser will be given: behind those that it holds but has not
  /// taken in. To be called only while it asks for more.
  FilePlace PlaceOfMore();

 private:
  const xmlParserInput* Input() const { return parser_ == nullptr ? nullptr : parser_->input; }

  const xmlParserCtxt* parser_ = nullptr;
  int line_ = 0;  // the line of the columns below
  uint32_t column_ = 0;
  uint64_t begun_anew_ = 0;  // columns counted before the count overflowed
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_PARSERPOSITION_H_
