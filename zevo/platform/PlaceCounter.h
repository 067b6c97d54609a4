// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_PLACECOUNTER_H_
#define ZEVO_PLATFORM_PLACECOUNTER_H_

#include <zevo/FilePlace.h>

#include <cstdint>
#include <string_view>

namespace zevo {

/// How many bytes of a file a character takes.
enum class CharacterWidth : uint8_t {
  kAsUtf8,  ///< as many as in UTF-8
  kOne,
  kUtf16,  ///< two, or four beyond U+FFFF
};

/// Counts lines, columns and bytes of a file along its text in UTF-8.
class PlaceCounter {
 public:
  /// `offset` is where the text begins in the file.
  PlaceCounter(CharacterWidth width, int64_t offset) : width_(width), place_{1, 1, offset} {}

  /// Goes on over what stands next, which ends with a whole character.
  void Advance(std::string_view text);
  const FilePlace& Place() const { return place_; }

 private:
  CharacterWidth width_;
  FilePlace place_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_PLACECOUNTER_H_
