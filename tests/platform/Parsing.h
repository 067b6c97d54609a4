// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_PARSING_H_
#define ZEVO_TESTS_PLATFORM_PARSING_H_

#include <zevo/Error.h>
#include <zevo/platform/Document.h>

#include <string>
#include <string_view>

#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {

inline constexpr std::string_view kParseSource = "Test.Parse";

/// Files given by their bytes, parsed in each of the ways that there are.
class Parsing {
 public:
  Parsing();

  /// What the parser delivers of a file, as Events takes it down.
  std::string EventsOf(std::string_view bytes) const;
  /// The same of a parse in pieces.
  std::string PulledEventsOf(std::string_view bytes) const;
  /// The error that all ways raise alike: a plain handler, whole and in pieces, the document builder and the schema
  /// validator, whose schema takes any content of the root `a`. Fails the test when one raises none or they differ.
  Error VerdictOn(std::string_view bytes) const;
  /// Fails the test unless all ways take the file, and the parse in pieces gives the same events.
  void ExpectAccepted(std::string_view bytes) const;

  void Load(Document& document, std::string_view bytes) const;
  void Validate(std::string_view bytes) const;

  const TemporaryFolder& Folder() const { return folder_; }

 private:
  std::string FileOf(std::string_view bytes) const { return folder_.Write("file.xml", bytes); }

  TemporaryFolder folder_;
  std::string schema_;
};

/// The bytes of a document as an exact save writes them.
std::string BytesOf(const Document& document);

/// UTF-8 text in UTF-16, without a byte order mark.
std::string InUtf16LittleEndian(std::string_view utf8);
std::string InUtf16BigEndian(std::string_view utf8);

/// A text `times` over.
std::string Repeated(std::string_view text, size_t times);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_PARSING_H_
