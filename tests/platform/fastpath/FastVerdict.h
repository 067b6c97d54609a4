// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_FASTPATH_FASTVERDICT_H_
#define ZEVO_TESTS_PLATFORM_FASTPATH_FASTVERDICT_H_

#include <zevo/platform/File.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/fastpath/FastSchema.h>
#include <zevo/platform/fastpath/FastValidation.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zevo::testing {

/// Has a FastValidation follow what libxml2 parses: elements with nothing but a text come as one.
class FastVerdict : private ParserHandler {
 public:
  /// Whether a file is valid for certain.
  static bool IsValid(const FastSchema& schema, std::string_view document) {
    FastVerdict verdict(schema);
    InputBytes input(document);
    return !Parser(input).Parse(verdict) && verdict.going_ && verdict.validation_.IsValid();
  }

 private:
  explicit FastVerdict(const FastSchema& schema) : validation_(schema) {}

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
    Settle();
    if (attributes.empty()) {
      leaf_ = name;
    } else {
      Go(validation_.StartElement(name, attributes));
    }
  }
  void EndElement(const ParsedName&) override {
    if (leaf_) {
      Go(validation_.Leaf(*leaf_, text_));
      leaf_.reset();
      text_.clear();
    } else {
      Settle();
      Go(going_ && validation_.EndElement());
    }
  }
  void Characters(std::string_view text) override { text_ += text; }
  void CData(std::string_view) override { going_ = false; }
  void Comment(std::string_view text) override {
    Settle();
    Go(validation_.Comment(text));
  }
  void Instruction(std::string_view, std::string_view) override { going_ = false; }

  void Settle() {
    if (leaf_) Go(going_ && validation_.StartElement(*leaf_, {}));
    leaf_.reset();
    // In two pieces.
    const size_t half = text_.size() / 2;
    for (const std::string_view piece :
         {std::string_view(text_).substr(0, half), std::string_view(text_).substr(half)}) {
      if (!piece.empty() && going_) Go(validation_.Characters(piece));
    }
    text_.clear();
  }
  void Go(bool on) { going_ = going_ && on; }

  FastValidation validation_;
  bool going_ = true;
  std::optional<ParsedName> leaf_;
  std::string text_;
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_FASTPATH_FASTVERDICT_H_
