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
  /// The parser, which must outlive this. Before, the position is that of the beginning.
  void Watch(const xmlParserCtxt& parser) { parser_ = &parser; }

  /// Bytes that the parser, which must be known by now, has taken in.
  size_t Bytes() const {
    const xmlParserInput* const input = parser_->input;
    return input == nullptr ? 0 : input->consumed + static_cast<size_t>(input->cur - input->base);
  }

  /// libxml2 counts columns in 32 bits, and a file may be one line of many gigabytes. Called whenever the parser asks
  /// for bytes, this sees every time that the count begins anew.
  void Follow();

  /// The line and the column of what the parser looks at.
  FilePlace Place();
  /// Those of what follows on the bytes that the parser holds and has not taken in. To be asked while it asks for more.
  FilePlace PlaceOfMore();

 private:
  const xmlParserInput* Input() const { return parser_ == nullptr ? nullptr : parser_->input; }

  const xmlParserCtxt* parser_ = nullptr;
  int line_ = 0;  // the line of the columns below
  uint32_t column_ = 0;
  uint64_t begun_anew_ = 0;  // columns counted before the count began anew
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_PARSERPOSITION_H_
