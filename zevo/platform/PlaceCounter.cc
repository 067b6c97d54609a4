// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/PlaceCounter.h>

#include <bit>
#include <cstddef>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace zevo {
namespace {

#ifdef __SSE2__
// Of sixteen. Not every processor of this kind has an instruction for it, and std::popcount would be a call.
constexpr int SetBits(unsigned bits) {
  bits -= bits >> 1 & 0x5555U;
  bits = (bits & 0x3333U) + (bits >> 2 & 0x3333U);
  bits = (bits + (bits >> 4)) & 0x0F0FU;
  return static_cast<int>((bits + (bits >> 8)) & 0x1FU);
}
#endif

}  // namespace

void PlaceCounter::Advance(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  int64_t lines = 0;
  int64_t continuations = 0;
  int64_t beyond = 0;                // characters of four bytes
  const char* line_begin = nullptr;  // of the last line that begins here
  int64_t before_line = 0;           // continuations up to there
#ifdef __SSE2__
  const __m128i newline = _mm_set1_epi8('\n');
  const __m128i first_lead = _mm_set1_epi8(static_cast<char>(0xC0));
  const __m128i last_of_three = _mm_set1_epi8(static_cast<char>(0xEF));
  // Of sixteen bytes those whose bits are set.
  const auto count = [&](const char* from, unsigned counted) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    const unsigned newlines = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, newline))) & counted;
    const unsigned high = static_cast<unsigned>(_mm_movemask_epi8(block)) & counted;
    unsigned tails = 0;
    if (high != 0) {
      // Signed: of the bytes outside ASCII, 80 to BF are below C0, and F0 to F7 above EF.
      tails = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmplt_epi8(block, first_lead))) & high;
      beyond += SetBits(static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpgt_epi8(block, last_of_three))) & high);
    }
    if (newlines != 0) {
      lines += SetBits(newlines);
      const auto last = static_cast<unsigned>(std::bit_width(newlines)) - 1;
      line_begin = from + last + 1;
      before_line = continuations + SetBits(tails & ((1U << last) - 1));
    }
    continuations += SetBits(tails);
  };
  for (; end - at >= 16; at += 16) count(at, 0xFFFF);
  if (at != end && text.size() >= 16) {
    // The last sixteen, without those that were counted.
    count(end - 16, 0xFFFFU & (0xFFFFU << (16 - (end - at))));
    at = end;
  }
#endif
  for (; at != end; ++at) {
    const auto byte = static_cast<unsigned char>(*at);
    if (byte == '\n') {
      ++lines;
      line_begin = at + 1;
      before_line = continuations;
    } else if ((byte & 0xC0U) == 0x80) {
      ++continuations;
    } else if (byte >= 0xF0) {
      ++beyond;
    }
  }
  const auto size = static_cast<int64_t>(text.size());
  if (line_begin == nullptr) {
    place_.column += size - continuations;
  } else {
    place_.line += lines;
    place_.column = 1 + (end - line_begin) - (continuations - before_line);
  }
  switch (width_) {
    case CharacterWidth::kAsUtf8:
      place_.offset += size;
      return;
    case CharacterWidth::kOne:
      place_.offset += size - continuations;
      return;
    case CharacterWidth::kUtf16:
      place_.offset += 2 * (size - continuations + beyond);
      return;
  }
}

}  // namespace zevo
