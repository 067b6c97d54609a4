// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_SCANNEDELEMENT_H_
#define ZEVO_MODEL_SCANNEDELEMENT_H_

#include <zevo/FilePlace.h>

#include <string_view>

namespace zevo {

/// An element of an entity, as the file has it.
struct ScannedElement {
  /// The local name.
  std::string_view name;
  /// 0 is the entity itself, 1 what stands directly in it.
  int depth = 0;
  /// UTF-8, references resolved, line ends LF, nothing trimmed or cut. Of an element with others inside: its first
  /// text that is more than white space; empty where there is none, as usual.
  std::string_view text;
  /// Of the "<" of its start tag.
  FilePlace place;
};

}  // namespace zevo

#endif  // ZEVO_MODEL_SCANNEDELEMENT_H_
