// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_PARSERLIMITS_H_
#define ZEVO_PLATFORM_PARSERLIMITS_H_

#include <zevo/platform/NameNumbers.h>

#include <cstddef>
#include <cstdint>

namespace zevo {

/// How far a parse may go, and how far it has come. Beyond a limit the file is refused: every member throws Passed.
class ParserLimits {
 public:
  static constexpr int kDepth = 256;
  static constexpr size_t kText = 10'000'000;
  static constexpr size_t kStartTag = size_t{64} * 1024;
  static constexpr int kAttributes = 256;   // of an element, apart from namespace declarations
  static constexpr int kDeclarations = 64;  // of namespaces, in scope at once
  /// Different names of elements and attributes in a file.
  static constexpr uint32_t kNames = 10'000;
  /// Different names of instructions, prefixes and namespaces in a file.
  static constexpr uint32_t kOtherNames = 10'000;

  struct Passed {
    /// Portuguese, without a place.
    const char* reason;
  };

  /// `tag` are the bytes since the last event.
  void StartElement(size_t tag) {
    text_ = 0;
    if (tag > kStartTag) RefuseTag();
    if (++depth_ > kDepth) RefuseDepth();
  }
  void EndElement() {
    text_ = 0;
    --depth_;
  }
  /// A piece of a text. Pieces between two tags are one text.
  void AddText(size_t length) {
    text_ += length;
    if (text_ > kText) RefuseText();
  }
  /// `given` are the bytes that the parser got since the last event, while it is in a tag. It reads ahead, so they may
  /// be more than belong to the tag.
  static void CheckUnfinishedTag(size_t given) {
    if (given > kStartTag + kReadAhead) RefuseTag();
  }
  /// How many a tag has.
  static void CheckAttributes(int count);
  /// How many are in scope.
  static void CheckDeclarations(int count);

  /// The number of the name of an element or attribute: see NameNumbers.
  uint32_t NumberOf(const char* local, const char* prefix) {
    const uint32_t number = names_.Of(local, prefix);
    if (number > kNames) RefuseNames();
    return number;
  }
  void CountOtherName(const char* name);

 private:
  static constexpr size_t kReadAhead = size_t{16} * 1024;

  [[noreturn, gnu::cold]] static void RefuseTag();
  [[noreturn, gnu::cold]] static void RefuseDepth();
  [[noreturn, gnu::cold]] static void RefuseText();
  [[noreturn, gnu::cold]] static void RefuseNames();

  int depth_ = 0;
  size_t text_ = 0;
  NameNumbers names_;
  NameNumbers other_names_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_PARSERLIMITS_H_
