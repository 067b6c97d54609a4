// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/NoteList.h>

namespace zevo {
namespace {

// A note begins with a byte that is its fault and whether it has a text. Numbers have seven bits in each byte, the
// lowest first, and the eighth where more follow; an element is told by its distance, of which the lowest bit is the
// sign, a text by its distance from the end of the text before.
constexpr uint8_t kHasText = 0x80;
constexpr uint8_t kMore = 0x80;
constexpr uint32_t kBits = 7;

static_assert(kFaults <= kHasText);

uint32_t FromSigned(uint32_t distance) { return distance << 1 ^ (distance >> 31 == 0 ? 0 : UINT32_MAX); }
uint32_t ToSigned(uint32_t number) { return number >> 1 ^ ((number & 1) == 0 ? 0 : UINT32_MAX); }

}  // namespace

void NoteList::Add(const ElementNote& note) {
  bytes_.Add(static_cast<uint8_t>(static_cast<uint32_t>(note.fault) | (note.text ? kHasText : 0)));
  AddNumber(FromSigned(note.element - element_));
  element_ = note.element;
  if (note.text) {
    AddNumber(note.text->begin - text_);
    AddNumber(note.text->name_length);
    AddNumber(note.text->length);
    text_ = note.text->begin + note.text->name_length + note.text->length;
  }
  ++count_;
}

void NoteList::Clear() {
  bytes_.Clear();
  count_ = 0;
  element_ = 0;
  text_ = 0;
}

void NoteList::AddNumber(uint32_t number) {
  for (; number >= kMore; number >>= kBits) bytes_.Add(static_cast<uint8_t>(number | kMore));
  bytes_.Add(static_cast<uint8_t>(number));
}

ElementNote NoteList::Reader::Next() {
  const uint8_t head = bytes_[at_++];
  ElementNote note{static_cast<Fault>(head & ~kHasText), element_ += ToSigned(Number()), {}};
  if ((head & kHasText) != 0) {
    const uint32_t begin = text_ + Number();
    const uint32_t name_length = Number();
    const uint32_t length = Number();
    note.text = {begin, name_length, length};
    text_ = begin + name_length + length;
  }
  return note;
}

uint32_t NoteList::Reader::Number() {
  uint32_t number = 0;
  for (uint32_t shift = 0;; shift += kBits) {
    const uint8_t byte = bytes_[at_++];
    number |= static_cast<uint32_t>(byte & ~kMore) << shift;
    if (byte < kMore) return number;
  }
}

}  // namespace zevo
