// SPDX-License-Identifier: Apache-2.0
#include "tests/support/ChosenKeys.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <string_view>

namespace zevo::testing {
namespace {

// What std::hash of GCC's library does with 16 bytes, two words of 8: hash = (hash ^ Mixed(word)) * kMultiplier for
// each, then a mix of the result. All of it can be undone, so that for any first word there is one second word that
// leads to a given result; whether its bytes are characters is a matter of luck.
constexpr uint64_t kMultiplier = 0xC6A4A7935BD1E995;
constexpr uint64_t kStart = 0xC70F6907 ^ (16 * kMultiplier);

// The number whose product with `odd` is 1: each step doubles the bits that are right, of which there are three at
// first.
constexpr uint64_t Inverse(uint64_t odd) {
  uint64_t inverse = odd;
  for (int step = 0; step < 5; ++step) inverse *= 2 - odd * inverse;
  return inverse;
}

constexpr uint64_t kInverse = Inverse(kMultiplier);
static_assert(kMultiplier * kInverse == 1);

uint64_t Mixed(uint64_t word) {
  word *= kMultiplier;
  return (word ^ word >> 47) * kMultiplier;
}

uint64_t Unmixed(uint64_t mixed) {
  mixed *= kInverse;
  return (mixed ^ mixed >> 47) * kInverse;
}

bool IsText(uint64_t word, Capitals capitals) {
  for (int i = 0; i < 8; ++i, word >>= 8) {
    const auto c = static_cast<char>(word & 0xFF);
    if (c <= ' ' || c > '~' || std::string_view("\"'&,;<>").find(c) != std::string_view::npos) return false;
    if (capitals == Capitals::kNo && c >= 'A' && c <= 'Z') return false;
  }
  return true;
}

// Eight letters from "a" to "p", one for each four bits.
uint64_t LettersOf(uint64_t bits) {
  bits = (bits | bits << 16) & 0x0000FFFF0000FFFF;
  bits = (bits | bits << 8) & 0x00FF00FF00FF00FF;
  bits = (bits | bits << 4) & 0x0F0F0F0F0F0F0F0F;
  return bits + 0x6161616161616161;
}

std::string TextOf(uint64_t word) {
  std::string text(sizeof word, '\0');
  std::memcpy(text.data(), &word, sizeof word);
  return text;
}

}  // namespace

std::vector<std::string> KeysOfOneHash(size_t count, Capitals capitals) {
  constexpr uint64_t kResult = 0x5A46542D50542121;  // any
  std::vector<std::string> keys;
  for (uint32_t number = 0; keys.size() < count; ++number) {
    const uint64_t first = LettersOf(number);
    const uint64_t second = Unmixed(((kStart ^ Mixed(first)) * kMultiplier) ^ kResult);
    if ((second & 0x8080808080808080) != 0 || !IsText(second, capitals)) continue;
    keys.push_back(TextOf(first) + TextOf(second));
  }
  for (const std::string& key : keys) {
    EXPECT_EQ(std::hash<std::string>()(key), std::hash<std::string>()(keys.front())) << "std::hash is another one";
  }
  return keys;
}

}  // namespace zevo::testing
