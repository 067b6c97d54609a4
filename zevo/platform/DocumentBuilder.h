// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_DOCUMENTBUILDER_H_
#define ZEVO_PLATFORM_DOCUMENTBUILDER_H_

#include <zevo/platform/Document.h>
#include <zevo/platform/Parser.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace zevo {

/// What becomes of an indentation (Node) that stands behind an element. Whoever only reads texts and elements never
/// comes to one: an element's text ends before the first element inside.
enum class Indentation : uint8_t { kKept, kLeftOut };

/// Fills a document with what a parser delivers in one parse. Nothing else is left out: attributes, comments, CDATA
/// sections, instructions and other white space between elements are kept.
class DocumentBuilder final : public ParserHandler {
 public:
  DocumentBuilder(Document& document, Indentation indentation) : document_(document), indentation_(indentation) {
    document.Names().ForgetParsed();
  }

  /// Clears the document too, for what comes next in the same parse.
  void Clear();

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override;
  void EndElement(const ParsedName& name) override;
  void EndEmptyTag(const ParsedName& name) override;
  void Characters(std::string_view text) override;
  void Leaf(const ParsedName& name, std::string_view text) override;
  void CData(std::string_view text) override;
  void Comment(std::string_view text) override;
  void Instruction(std::string_view target, std::string_view data) override;
  void Standalone() override;

 private:
  Element Open() const { return open_.empty() ? Element() : open_.back(); }
  // Kept apart from the code that every element runs through.
  [[gnu::noinline]] void AppendAttributes(std::span<const ParsedAttribute> attributes);
  bool IsBehindElement() const;
  void EndText();

  Document& document_;
  const Indentation indentation_;
  std::vector<Element> open_;
  // The text that has come so far: an indentation that Node keeps, or at the end of the document's arena.
  const char* text_ = nullptr;
  size_t length_ = 0;
  size_t room_ = 0;  // in the arena
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_DOCUMENTBUILDER_H_
