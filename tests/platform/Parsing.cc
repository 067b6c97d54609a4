// SPDX-License-Identifier: Apache-2.0
#include "tests/platform/Parsing.h"

#include <gtest/gtest.h>
#include <iconv.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/DocumentBuilder.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/PulledParse.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaValidator.h>
#include <zevo/platform/Serializer.h>
#include <zevo/platform/Text.h>

#include "tests/platform/Events.h"
#include "tests/support/Errors.h"

namespace zevo::testing {
namespace {

constexpr std::string_view kAnyContent =
    R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema"><xs:element name="a"/></xs:schema>)";

class StringSink : public ByteSink {
 public:
  void Write(std::string_view bytes) override { text += bytes; }
  std::string text;
};

// The system converts, so that nothing is held against the library's own conversions but itself.
std::string Converted(std::string_view utf8, const char* encoding) {
  iconv_t conversion = iconv_open(encoding, "UTF-8");
  std::string from(utf8);
  std::string to(2 * from.size(), '\0');
  char* in = from.data();
  char* out = to.data();
  size_t inLeft = from.size();
  size_t outLeft = to.size();
  EXPECT_EQ(iconv(conversion, &in, &inLeft, &out, &outLeft), 0u);
  iconv_close(conversion);
  to.resize(to.size() - outLeft);
  return to;
}

}  // namespace

Parsing::Parsing() : schema_(folder_.Write("any.xsd", kAnyContent)) {}

std::string Parsing::EventsOf(std::string_view bytes) const {
  Events events;
  Raise(Parser(FileOf(bytes)).Parse(events), kParseSource);
  return events.log;
}

void Parsing::Load(Document& document, std::string_view bytes) const {
  DocumentBuilder builder(document, Indentation::kKept);
  Raise(Parser(FileOf(bytes)).Parse(builder), kParseSource);
}

void Parsing::Validate(std::string_view bytes) const {
  const CompiledSchema schema(SchemaSource(schema_), {}, kParseSource);
  Raise(SchemaValidator(schema).FirstProblem(FileOf(bytes)), kParseSource);
}

std::string Parsing::PulledEventsOf(std::string_view bytes) const {
  Events events;
  PulledParse parse(FileOf(bytes), events);
  while (parse.Feed()) continue;
  Raise(parse.Problem(), kParseSource);
  return events.log;
}

namespace {

// In pieces, a long section comes as several.
std::string WithWholeSections(const std::string& events) { return ReplaceAll(events, "][CDATA:", ""); }

}  // namespace

Error Parsing::VerdictOn(std::string_view bytes) const {
  const Error plain = ErrorOf([&] { EventsOf(bytes); });
  const Error built = ErrorOf([&] {
    Document document;
    Load(document, bytes);
  });
  const Error validated = ErrorOf([&] { Validate(bytes); });
  const Error pulled = ErrorOf([&] { PulledEventsOf(bytes); });
  for (const Error* other : {&built, &validated, &pulled}) {
    EXPECT_EQ(other->Number(), plain.Number());
    EXPECT_EQ(other->Source(), plain.Source());
    EXPECT_EQ(other->Description(), plain.Description());
  }
  EXPECT_EQ(plain.Source(), kParseSource);
  EXPECT_GT(plain.Number(), 0);
  return plain;
}

void Parsing::ExpectAccepted(std::string_view bytes) const {
  Document document;
  std::string events;
  EXPECT_NO_THROW(events = EventsOf(bytes));
  EXPECT_NO_THROW(EXPECT_EQ(WithWholeSections(PulledEventsOf(bytes)), WithWholeSections(events)));
  EXPECT_NO_THROW(Load(document, bytes));
  EXPECT_NO_THROW(Validate(bytes));
}

std::string BytesOf(const Document& document) {
  StringSink sink;
  WriteDocumentTo(sink, document);
  return sink.text;
}

std::string InUtf16LittleEndian(std::string_view utf8) { return Converted(utf8, "UTF-16LE"); }
std::string InUtf16BigEndian(std::string_view utf8) { return Converted(utf8, "UTF-16BE"); }

std::string Repeated(std::string_view text, size_t times) {
  std::string repeated;
  repeated.reserve(text.size() * times);
  for (size_t i = 0; i < times; ++i) repeated += text;
  return repeated;
}

}  // namespace zevo::testing
