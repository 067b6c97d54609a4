// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_BYTESCAN_H_
#define ZEVO_PLATFORM_BYTESCAN_H_

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace zevo {

// Looks at many bytes of a text at once. Most texts are short, so what a scan does before its first byte counts.

/// The bytes that end a scan: those below `kBelow`, which is 0x80 at most, those outside ASCII, and some of ASCII.
template <unsigned char kBelow, bool kBeyondAscii, char... kOthers>
struct StopBytes {
  static constexpr bool Has(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < kBelow || (kBeyondAscii && byte >= 0x80) || ((c == kOthers) || ...);
  }
};

/// Eight bytes in a word of the processor, for any processor.
struct WordBlocks {
  static constexpr size_t kBytes = 8;

  static uint64_t Load(const char* from) {
    uint64_t block = 0;
    std::memcpy(&block, from, sizeof block);
    return block;
  }
  static void Store(uint64_t block, char* to) { std::memcpy(to, &block, sizeof block); }
  /// The first and the last four bytes of a text, one behind the other.
  template <size_t kEach>
  static uint64_t LoadEnds(const char* first, const char* last) {
    static_assert(kEach == 4);
    uint64_t block = 0;
    std::memcpy(&block, first, kEach);
    std::memcpy(reinterpret_cast<char*>(&block) + kEach, last, kEach);
    return block;
  }
  /// Non-zero bits in each byte of the word that is a stop.
  template <unsigned char kBelow, bool kBeyondAscii, char... kOthers>
  static uint64_t Find(uint64_t block, StopBytes<kBelow, kBeyondAscii, kOthers...>) {
    // Each byte by itself: nothing is carried over into the next.
    const auto atLeast = [](uint64_t bytes, unsigned limit) {
      return ((bytes & Repeat(0x7F)) + Repeat(static_cast<unsigned char>(0x80 - limit))) | bytes;
    };
    [[maybe_unused]] const auto isNot = [&](char c) {
      return atLeast(block ^ Repeat(static_cast<unsigned char>(c)), 1);
    };
    uint64_t plain = atLeast(block, kBelow);
    ((plain &= isNot(kOthers)), ...);
    if constexpr (kBeyondAscii) plain &= ~block;
    return ~plain & Repeat(0x80);
  }
  /// Non-zero bits in each byte of the word that is not this one.
  static uint64_t FindOther(uint64_t block, char c) { return block ^ Repeat(static_cast<unsigned char>(c)); }
  /// Which byte of a block is the first stop.
  static size_t First(uint64_t stops) {
    const int bits = std::endian::native == std::endian::little ? std::countr_zero(stops) : std::countl_zero(stops);
    return static_cast<size_t>(bits) / 8;
  }

 private:
  static constexpr uint64_t Repeat(unsigned char byte) { return 0x0101010101010101U * byte; }
};

#ifdef __SSE2__
/// Sixteen bytes in a register.
struct RegisterBlocks {
  static constexpr size_t kBytes = 16;

  static __m128i Load(const char* from) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from)); }
  static void Store(__m128i block, char* to) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), block); }
  /// The first and the last eight bytes of a text, one behind the other, or the first and the last four of it twice.
  /// They are loaded straight into the register, which is quicker than to join them in memory first.
  template <size_t kEach>
  static __m128i LoadEnds(const char* first, const char* last) {
    if constexpr (kEach == 8) {
      return _mm_unpacklo_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(first)),
                                _mm_loadl_epi64(reinterpret_cast<const __m128i*>(last)));
    } else {
      int32_t ends[2];
      std::memcpy(&ends[0], first, sizeof ends[0]);
      std::memcpy(&ends[1], last, sizeof ends[1]);
      const __m128i both = _mm_unpacklo_epi32(_mm_cvtsi32_si128(ends[0]), _mm_cvtsi32_si128(ends[1]));
      return _mm_unpacklo_epi64(both, both);
    }
  }
  template <unsigned char kBelow, bool kBeyondAscii, char... kOthers>
  static unsigned Find(__m128i block, StopBytes<kBelow, kBeyondAscii, kOthers...>) {
    __m128i stops;
    if constexpr (kBeyondAscii) {
      // Signed: what is outside ASCII is below zero.
      stops = _mm_cmplt_epi8(block, _mm_set1_epi8(static_cast<char>(kBelow)));
    } else {
      stops = _mm_cmpeq_epi8(_mm_min_epu8(block, _mm_set1_epi8(static_cast<char>(kBelow - 1))), block);
    }
    ((stops = _mm_or_si128(stops, _mm_cmpeq_epi8(block, _mm_set1_epi8(kOthers)))), ...);
    return static_cast<unsigned>(_mm_movemask_epi8(stops));
  }
  static unsigned FindOther(__m128i block, char c) {
    return 0xFFFFU ^ static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, _mm_set1_epi8(c))));
  }
  static size_t First(unsigned stops) { return static_cast<size_t>(std::countr_zero(stops)); }
};
using Blocks = RegisterBlocks;
#else
using Blocks = WordBlocks;
#endif

/// The scans, by blocks of one kind or the other.
template <class Stops, class B = Blocks>
class ByteScan {
 public:
  /// How many bytes at the front are no stops.
  static size_t Run(std::string_view text) { return Scan<false>(text.data(), text.size(), nullptr); }
  /// Whether there is a stop. Always looks at words, even where blocks are larger: that takes fewer branches for short
  /// texts, which counts for more than the number of instructions.
  static bool Finds(std::string_view text) {
    uint64_t word = 0;
    if (text.size() < sizeof word) {
      if (text.size() >= sizeof word / 2) {
        word = WordBlocks::LoadEnds<sizeof word / 2>(text.data(), text.data() + (text.size() - sizeof word / 2));
        return WordBlocks::Find(word, Stops()) != 0;
      }
      for (size_t i = 0; i < sizeof word; ++i) word = word << 8 | static_cast<unsigned char>(kPlain);
      for (const char c : text) word = word << 8 | static_cast<unsigned char>(c);
      return WordBlocks::Find(word, Stops()) != 0;
    }
    const char* at = text.data();
    const char* const last = at + (text.size() - sizeof word);
    for (; at < last; at += sizeof word) {
      if (WordBlocks::Find(WordBlocks::Load(at), Stops()) != 0) return true;
    }
    return WordBlocks::Find(WordBlocks::Load(last), Stops()) != 0;
  }
  /// Copies them too. `to` has room for `size` bytes; those behind the run may be anything afterwards.
  static size_t CopyRun(const char* from, size_t size, char* to) { return Scan<true>(from, size, to); }

 private:
  // No scan stops at it.
  static constexpr char kPlain = ' ';
  static_assert(!Stops::Has(kPlain));

  template <bool kCopy>
  static size_t Scan(const char* from, size_t size, char* to) {
    size_t at = 0;
    for (; at + B::kBytes <= size; at += B::kBytes) {
      if (const auto stops = Look<kCopy>(from, at, to)) return at + B::First(stops);
    }
    if (at == size) return size;
    if (at > 0) {
      // The last block overlaps the one before it.
      at = size - B::kBytes;
      const auto stops = Look<kCopy>(from, at, to);
      return stops == 0 ? size : at + B::First(stops);
    }
    if constexpr (B::kBytes > 8) {
      if (size >= 8) return LookAtEnds<kCopy, 8>(from, size, to);
    }
    if (size >= 4) return LookAtEnds<kCopy, 4>(from, size, to);
    for (; at < size && !Stops::Has(from[at]); ++at) {
      if constexpr (kCopy) to[at] = from[at];
    }
    return at;
  }

  template <bool kCopy>
  static auto Look(const char* from, size_t at, [[maybe_unused]] char* to) {
    const auto block = B::Load(from + at);
    if constexpr (kCopy) B::Store(block, to + at);
    return B::Find(block, Stops());
  }

  // A text of kEach bytes or more, and less than twice as many: its ends, which may overlap, are all of it.
  template <bool kCopy, size_t kEach>
  static size_t LookAtEnds(const char* from, size_t size, [[maybe_unused]] char* to) {
    const size_t last = size - kEach;
    if constexpr (kCopy) {
      std::memcpy(to, from, kEach);
      std::memcpy(to + last, from + last, kEach);
    }
    const auto stops = B::Find(B::template LoadEnds<kEach>(from, from + last), Stops());
    if (stops == 0) return size;
    const size_t first = B::First(stops);
    return first < kEach ? first : last + first - kEach;
  }
};

/// Calls an action with each eight bytes of a text as a number, the last eight once more where they overlap; with the
/// bytes of a shorter text as one.
template <class Action>
void ForEachWord(std::string_view text, Action&& action) {
  uint64_t word = 0;
  if (text.size() < sizeof word) {
    for (const char c : text) word = word << 8 | static_cast<unsigned char>(c);
    return action(word);
  }
  for (size_t i = 0; i + sizeof word < text.size(); i += sizeof word) {
    std::memcpy(&word, text.data() + i, sizeof word);
    action(word);
  }
  std::memcpy(&word, text.data() + text.size() - sizeof word, sizeof word);
  action(word);
}

}  // namespace zevo

#endif  // ZEVO_PLATFORM_BYTESCAN_H_
