// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/ParserPosition.h>

#include <libxml/tree.h>

namespace zevo {

void ParserPosition::Follow() {
  const xmlParserInput* const input = Input();
  if (input == nullptr) return;
  const auto column = static_cast<uint32_t>(input->col);
  if (input->line != line_) {
    line_ = input->line;
    begun_anew_ = 0;
  } else if (column < column_) {
    begun_anew_ += uint64_t{1} << 32;
  }
  column_ = column;
}

FilePlace ParserPosition::Place() {
  if (Input() == nullptr) return {1, 1};
  Follow();
  return {line_, static_cast<int64_t>(begun_anew_ + column_)};
}

FilePlace ParserPosition::PlaceOfMore() {
  FilePlace place = Place();
  const xmlParserInput* const input = Input();
  if (input == nullptr) return place;
  // While the parser asks for bytes, its pointers may still point into a buffer that was replaced by a larger one.
  const xmlChar* const content = xmlBufContent(input->buf->buffer);
  const xmlChar* const end = content + xmlBufUse(input->buf->buffer);
  for (const xmlChar* c = content + (input->cur - input->base); c < end; ++c) {
    if (*c == '\n') {
      ++place.line;
      place.column = 1;
    } else if ((*c & 0xC0U) != 0x80) {
      ++place.column;
    }
  }
  return place;
}

}  // namespace zevo
