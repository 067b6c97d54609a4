// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_PARSER_H_
#define ZEVO_PLATFORM_PARSER_H_

#include <zevo/platform/XmlProblem.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

struct _xmlSchemaValidCtxt;  // NOLINT(bugprone-reserved-identifier): libxml2's name

namespace zevo {

class ByteSource;
class TextDecoder;

/// The name of an element or attribute. Equal names of one parse are the same pointers. `prefix` is null without one.
struct ParsedName {
  const char* local;
  const char* prefix;
  /// Of an element that starts and of an attribute: from 1 on without gaps, the same for equal names of one parse. 0
  /// where an element ends and for a namespace declaration.
  uint32_t number = 0;
};

/// An attribute, or a namespace declaration: those are named "xmlns" or prefixed by it.
struct ParsedAttribute {
  ParsedName name;
  std::string_view value;
};

/// Receives the content of a file in its order. Texts are UTF-8, entities are resolved, line ends are LF, and a long
/// text may come in pieces. What a handler throws stops the parse and comes out of Parse unchanged.
class ParserHandler {
 public:
  virtual ~ParserHandler() = default;
  virtual void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) = 0;
  virtual void EndElement(const ParsedName& name) = 0;
  /// The same of an element that is one tag, `<X/>`.
  virtual void EndEmptyTag(const ParsedName& name) { EndElement(name); }
  virtual void Characters(std::string_view text) = 0;
  /// An element of two tags without attributes, with this text, which may be empty, and nothing else in it. May come in
  /// place of a start, a text and an end.
  virtual void Leaf(const ParsedName& name, std::string_view text) {
    StartElement(name, {});
    if (!text.empty()) Characters(text);
    EndElement({name.local, name.prefix});
  }
  virtual void CData(std::string_view text) { Characters(text); }
  virtual void Comment(std::string_view) {}
  virtual void Instruction(std::string_view /*target*/, std::string_view /*data*/) {}
  /// The declaration said standalone="yes".
  virtual void Standalone() {}
};

/// Parses a file and hands its content over as events.
class Parser {
 public:
  explicit Parser(std::string file) : file_(std::move(file)) {}
  /// Parses, once, what comes from elsewhere than a file. `input` must outlive the parser.
  explicit Parser(ByteSource& input) : input_(&input) {}

  /// Gives what stopped the parse before the end, nothing when the whole file was parsed: a file that cannot be read,
  /// is not well-formed or is refused, because it has a document type declaration or goes beyond ParserLimits. Raises
  /// error 7 when libxml2 has no memory, and what the handler raises.
  [[nodiscard]] std::optional<XmlProblem> Parse(ParserHandler& handler);
  /// The same without the fast path.
  [[nodiscard]] std::optional<XmlProblem> ParseWithLibxml2(ParserHandler& handler) {
    return Parse(handler, nullptr, {});
  }

  /// The same with a libxml2 schema validation listening in. Violations go to `violated`, which may end the parse: then
  /// there is no other problem. Where the validation breaks down, that is what stopped the parse.
  [[nodiscard]] std::optional<XmlProblem> Parse(ParserHandler& handler, _xmlSchemaValidCtxt* validation,
                                                const ProblemSink& violated);

  /// How many bytes of the file the running or the last parse has taken in.
  uint64_t BytesRead() const { return bytes_read_; }

 private:
  std::optional<XmlProblem> Run(TextDecoder& decoder, ParserHandler& handler, _xmlSchemaValidCtxt* validation,
                                const ProblemSink& violated);

  ByteSource* input_ = nullptr;  // none: the file is opened for each parse
  std::string file_;
  uint64_t bytes_read_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_PARSER_H_
