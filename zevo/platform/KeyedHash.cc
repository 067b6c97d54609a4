// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/KeyedHash.h>

#include <sodium/crypto_shorthash_siphash24.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <string>

namespace zevo {
namespace {

using Key = std::array<unsigned char, crypto_shorthash_siphash24_KEYBYTES>;

const Key& ProcessKey() {
  static const Key kKey = [] {
    std::random_device random;
    Key key;
    for (unsigned char& byte : key) byte = static_cast<unsigned char>(random());
    return key;
  }();
  return kKey;
}

}  // namespace

uint64_t KeyedHash(std::string_view text) {
  std::array<unsigned char, crypto_shorthash_siphash24_BYTES> bytes;
  crypto_shorthash_siphash24(bytes.data(), reinterpret_cast<const unsigned char*>(text.data()), text.size(),
                             ProcessKey().data());
  uint64_t hash = 0;
  static_assert(sizeof hash == sizeof bytes);
  std::memcpy(&hash, bytes.data(), sizeof hash);
  return hash;
}

Digest KeyedDigest(std::string_view text) {
  constexpr size_t kMostOnStack = 64;
  if (text.size() >= kMostOnStack) return {KeyedHash(text), KeyedHash(std::string(text) += '1') | 1U};
  std::array<char, kMostOnStack> longer;
  *std::ranges::copy(text, longer.begin()).out = '1';
  return {KeyedHash(text), KeyedHash({longer.data(), text.size() + 1}) | 1U};
}

}  // namespace zevo
