// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Base64.h>

#include <zevo/platform/Text.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace zevo {
namespace {

constexpr std::string_view kSextets = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr int8_t kNoSextet = -1;

constexpr std::array<int8_t, 256> SextetsOfBytes() {
  std::array<int8_t, 256> sextets{};
  sextets.fill(kNoSextet);
  for (size_t i = 0; i < kSextets.size(); ++i) sextets[Byte(kSextets[i])] = static_cast<int8_t>(i);
  return sextets;
}

constexpr std::array<int8_t, 256> kSextetOf = SextetsOfBytes();

// Whether a character stands for six bits.
constexpr bool IsSextet(char c) {
  const auto byte = static_cast<uint8_t>(c);
  const auto letter = static_cast<uint8_t>((byte | 0x20U) - 'a');
  const auto digit = static_cast<uint8_t>(byte - '0');
  const int is = static_cast<int>(letter < 26) | static_cast<int>(digit < 10) | static_cast<int>(c == '+') |
                 static_cast<int>(c == '/');
  return is != 0;
}

}  // namespace

std::optional<std::string> Base64Decoded(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3 + 3);
  uint32_t bits = 0;
  size_t characters = 0;
  size_t padding = 0;
  for (const char c : text) {
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
    ++characters;
    if (c == '=') {
      ++padding;
      continue;
    }
    const int8_t sextet = kSextetOf[Byte(c)];
    if (sextet == kNoSextet || padding > 0) return std::nullopt;
    bits = (bits << 6U) | static_cast<uint32_t>(sextet);
    if (characters % 4 != 1) {
      const auto shift = static_cast<uint32_t>(6 - 2 * ((characters - 1) % 4));
      bytes.push_back(static_cast<char>((bits >> shift) & 0xFFU));
    }
  }
  if (characters % 4 != 0 || padding > 2) return std::nullopt;
  return bytes;
}

bool IsBase64Of(std::string_view text, size_t bytes) {
  if (text.size() != (bytes + 2) / 3 * 4) return false;
  const size_t padding = (3 - bytes % 3) % 3;
  const std::string_view sextets = text.substr(0, text.size() - padding);
  if (text.substr(sextets.size()) != std::string_view("==").substr(0, padding)) return false;
  // Arithmetic that compilers do for many characters at once.
  uint8_t others = 0;
  for (const char c : sextets) others |= static_cast<uint8_t>(!IsSextet(c));
  if (others != 0) return false;
  // The last one has two bits for each "=" that belong to no byte.
  return padding == 0 || (kSextetOf[Byte(sextets.back())] & ((1 << (2 * padding)) - 1)) == 0;
}

std::string Base64Of(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (size_t at = 0; at < bytes.size(); at += 3) {
    const std::string_view group = bytes.substr(at, 3);
    uint32_t bits = 0;
    for (size_t i = 0; i < 3; ++i) bits = (bits << 8U) | (i < group.size() ? Byte(group[i]) : 0U);
    for (size_t i = 0; i < 4; ++i) text += i > group.size() ? '=' : kSextets[(bits >> (18 - 6 * i)) & 0x3FU];
  }
  return text;
}

}  // namespace zevo
