// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FILEPLACE_H_
#define ZEVO_FILEPLACE_H_

#include <cstdint>

namespace zevo {

/// Where something stands in a file, for people and for programs. Each member is 0 where it is not known, and all of
/// them where there is no such place.
struct FilePlace {
  /// The line, from 1. Lines end at a line feed.
  int64_t line = 0;
  /// The character of the line, from 1; a character is a code point, however many bytes the file has for it.
  int64_t column = 0;
  /// How many bytes of the file, as it lies on the disk, come before it. That of an element is the offset of the "<" of
  /// its start tag.
  int64_t offset = 0;

  friend bool operator==(const FilePlace&, const FilePlace&) = default;
};

}  // namespace zevo

#endif  // ZEVO_FILEPLACE_H_
