// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_FASTTEXT_H_
#define ZEVO_PLATFORM_FASTPATH_FASTTEXT_H_

#include <zevo/Utf8.h>
#include <zevo/platform/ByteScan.h>
#include <zevo/platform/Text.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {

// The texts of a file, looked at in a buffer in which a "<" stands behind every text, with kReadableBehind bytes of the
// buffer behind the last one: nothing here looks for an end of the buffer.

inline constexpr size_t kReadableBehind = 64;

/// Goes on to the first byte that is no printable ASCII character, and to "<", "&" and ">".
template <class B = Blocks>
const char* SkipPlain(const char* at) {
  using Special = StopBytes<0x20, true, '<', '&', '>'>;
  for (;; at += B::kBytes) {
    const auto stops = B::Find(B::Load(at), Special());
    if (stops != 0) return at + B::First(stops);
  }
}

/// How many bytes the character beyond ASCII takes that begins here; 0 where none does that XML allows.
inline size_t CharacterBytes(const char* at) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(at[i]); };
  if (byte(0) < 0xE0) return byte(0) >= 0xC2 && IsContinuation(at[1]) ? 2 : 0;
  if (byte(0) < 0xF0) {
    if (!IsContinuation(at[1]) || !IsContinuation(at[2])) return 0;
    const unsigned code = (byte(0) & 0x0FU) << 12 | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU);
    return code >= 0x800 && (code < 0xD800 || code > 0xDFFF) && code < 0xFFFE ? 3 : 0;
  }
  if (byte(0) > 0xF4 || !IsContinuation(at[1]) || !IsContinuation(at[2]) || !IsContinuation(at[3])) return 0;
  const unsigned upper = (byte(0) & 0x07U) << 6 | (byte(1) & 0x3FU);
  return upper >= 0x10 && upper < 0x110 ? 4 : 0;
}

/// Goes on to the first "<", "&" or carriage return. Null where something comes before that a text may not have.
template <class B = Blocks>
const char* SkipText(const char* at) {
  for (;;) {
    at = SkipPlain<B>(at);
    switch (*at) {
      case '<':
      case '&':
      case '\r':
        return at;
      case '\n':
      case '\t':
        ++at;
        break;
      case '>':
        // What stands before a text is no bracket, so this does not look at what comes before it.
        if (at[-1] == ']' && at[-2] == ']') return nullptr;
        ++at;
        break;
      default:
        const size_t bytes = static_cast<unsigned char>(*at) < 0x80 ? 0 : CharacterBytes(at);
        if (bytes == 0) return nullptr;
        at += bytes;
    }
  }
}

/// From a carriage return on to the first "<" or "&". Null as SkipText.
inline const char* SkipLines(const char* at) {
  while (at != nullptr && *at == '\r') at = SkipText(at + 1);
  return at;
}

/// The blanks and tabs with which a line begins.
template <class B = Blocks>
const char* SkipIndentation(const char* at) {
  for (;;) {
    const auto others = B::FindOther(B::Load(at), ' ');
    if (others == 0) {
      at += B::kBytes;
      continue;
    }
    at += B::First(others);
    if (*at != '\t') return at;
    ++at;
  }
}

inline const char* SkipBlanks(const char* at) {
  while (IsWhiteSpace(*at)) ++at;
  return at;
}

/// Reads a reference to a character or to one of the five entities of XML itself, and writes the character, of at most
/// four bytes, to `to`. Gives where it ends, null for any other.
const char* ParseReference(const char* at, char* to, size_t& length);

/// The text of a comment with its lines ended by LF. Nothing where it has what XML does not allow.
std::optional<std::string> CommentText(std::string_view comment);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_FASTTEXT_H_
