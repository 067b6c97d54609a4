// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/CompactKey.h>

#include <zevo/platform/KeyedHash.h>

#include <cstring>

namespace zevo {
namespace {

constexpr size_t kWordBytes = sizeof(uint64_t);

uint64_t WordFrom(const char* bytes) {
  uint64_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

}  // namespace

// Whole words are read, not single bytes: what is written in pieces takes long to be read in one.
CompactKey::CompactKey(std::string_view key) {
  if (key.size() > kMostShort) {
    const Digest digest = KeyedDigest(key);
    words_ = {digest[0], digest[1], kLong << kFormShift};
    return;
  }
  const size_t whole = key.size() / kWordBytes;
  const size_t rest = key.size() % kWordBytes;
  for (size_t word = 0; word < whole; ++word) words_[word] = WordFrom(key.data() + word * kWordBytes);
  if (whole == 0) {
    for (const char c : key) words_[0] = words_[0] << 8U | static_cast<unsigned char>(c);
  } else if (rest > 0) {
    words_[whole] = WordFrom(key.data() + key.size() - kWordBytes) >> 8U * (kWordBytes - rest);
  }
  words_.back() |= uint64_t{key.size()} << kFormShift;
}

uint64_t CompactKey::Hash() const {
  const uint64_t form = words_.back() >> kFormShift;
  if (form == kLong) return words_[0];
  return KeyedHash(
      {reinterpret_cast<const char*>(words_.data()), static_cast<size_t>(form / kWordBytes + 1) * kWordBytes});
}

}  // namespace zevo
