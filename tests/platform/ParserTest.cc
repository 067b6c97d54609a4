// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/globals.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/DocumentBuilder.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/SchemaSource.h>

#include <cstdarg>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/platform/Child.h"
#include "tests/platform/Events.h"
#include "tests/platform/Numbered.h"
#include "tests/platform/Parsing.h"
#include "tests/platform/RichFile.h"
#include "tests/platform/WatchedFile.h"
#include "tests/support/Errors.h"
#include "tests/support/ProcessorTime.h"
#include "tests/support/Sanitizers.h"

namespace zevo {
namespace {

using namespace std::string_literals;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using testing::Parsing;
using testing::ProcessorSeconds;
using testing::Repeated;

std::string Place(int line, int column) {
  return "(linha " + std::to_string(line) + ", coluna " + std::to_string(column) + ")";
}

// What the parser delivers.

TEST(ParserTest, DeliversTheContentInItsOrder) {
  EXPECT_EQ(Parsing().EventsOf("<?xml version='1.0' standalone='yes'?><!--c--><?t d e?><?u?>\n"
                               "<a k='1' l='2'>x<b/><![CDATA[<y>]]><!--z--></a>\n<!--end-->"),
            "[standalone][comment:c][t:d e][u:]<a k=1 l=2>x<b/>[CDATA:<y>][comment:z]</a>[comment:end]");
}

TEST(ParserTest, StandaloneIsToldOnlyForYes) {
  EXPECT_EQ(Parsing().EventsOf("<?xml version='1.0' standalone='no'?><a/>"), "<a/>");
}

TEST(ParserTest, AnEmptyElementIsOneTagOrTwo) {
  EXPECT_EQ(Parsing().EventsOf("<a/>"), "<a/>");
  EXPECT_EQ(Parsing().EventsOf("<a></a>"), "<a></a>");
  EXPECT_EQ(Parsing().EventsOf("<p:a xmlns:p='u' k='/'><p:b l='/'></p:b ><c l='1' />/<c></c\n></p:a>"),
            "<p:a xmlns:p=u k=/><p:b l=/></p:b><c l=1/>/<c></c></p:a>");
}

TEST(ParserTest, ResolvesEntitiesAndCharacterReferences) {
  EXPECT_EQ(
      Parsing().EventsOf("<a k='&lt;&amp;&#10;&#x20AC;'>&lt;&gt;&amp;&apos;&quot;&#65;&#x20AC;&#128512;&#13;</a>"),
      "<a k=<&\n€><>&'\"A€😀\r</a>");
}

TEST(ParserTest, LineEndsAreLineFeedsAndWhiteSpaceInAttributesIsSpaces) {
  EXPECT_EQ(Parsing().EventsOf("<a k='1\r\n2\t3'>x\r\ny\rz\n</a>"), "<a k=1 2 3>x\ny\nz\n</a>");
}

TEST(ParserTest, NamespaceDeclarationsAreAttributes) {
  EXPECT_EQ(Parsing().EventsOf("<a xmlns='urn:a' xmlns:p='urn:p' p:k='1'><p:b xmlns=''/></a>"),
            "<a xmlns=urn:a xmlns:p=urn:p p:k=1><p:b xmlns=/></a>");
}

TEST(ParserTest, ANamespaceMayHaveAnyName) {
  EXPECT_EQ(Parsing().EventsOf("<a xmlns='not a URI' xmlns:p='%zz'><p:b/></a>"),
            "<a xmlns=not a URI xmlns:p=%zz><p:b/></a>");
}

TEST(ParserTest, EqualNamesAreTheSamePointers) {
  struct Pointers : testing::NoEvents {
    void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
      locals.insert(name.local);
      prefixes.insert(name.prefix);
      for (const ParsedAttribute& attribute : attributes) names.insert(attribute.name.local);
    }
    std::set<const char*> locals, prefixes, names;
  } pointers;
  const testing::TemporaryFolder folder;
  const std::string body = Repeated("<p:b k='1'/>", 5000);
  Raise(Parser(folder.Write("file", "<p:b xmlns:p='u' k='1'>" + body + "</p:b>")).Parse(pointers), "");
  EXPECT_EQ(pointers.locals.size(), 1u);
  EXPECT_EQ(pointers.prefixes.size(), 1u);
  EXPECT_EQ(pointers.names.size(), 2u);
}

TEST(ParserTest, NumbersNamesInTheirOrder) {
  struct Numbers : testing::NoEvents {
    void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
      log += std::to_string(name.number);
      for (const ParsedAttribute& attribute : attributes) log += "," + std::to_string(attribute.name.number);
      log += " ";
    }
    void EndElement(const ParsedName& name) override { EXPECT_EQ(name.number, 0u); }
    std::string log;
  } numbers;
  const testing::TemporaryFolder folder;
  const std::string file = folder.Write("file", "<a k='' xmlns:p='p'><p:a k=''/><a p:k=''/><b a='' c=''/></a>");
  Raise(Parser(file).Parse(numbers), "");
  EXPECT_EQ(numbers.log, "2,0,1 3,1 2,4 6,2,5 ");
}

// Encodings.

constexpr std::string_view kBody = "<a k=\"€\">São João, ½ € “ação”</a>";
constexpr std::string_view kBodyEvents = "<a k=€>São João, ½ € “ação”</a>";
constexpr std::string_view kBodyInWindows1252 = "<a k=\"\x80\">S\xE3o Jo\xE3o, \xBD \x80 \x93\x61\xE7\xE3o\x94</a>";

std::string Declared(std::string_view encoding, std::string_view body) {
  return std::string("<?xml version=\"1.0\" encoding=\"").append(encoding).append("\"?>\n").append(body);
}

class ParserEncodedFileTest : public ::testing::TestWithParam<std::string> {};

TEST_P(ParserEncodedFileTest, IsReadAlikeInEveryWay) {
  const Parsing parsing;
  EXPECT_EQ(parsing.EventsOf(GetParam()), kBodyEvents);
  parsing.ExpectAccepted(GetParam());
}

INSTANTIATE_TEST_SUITE_P(All, ParserEncodedFileTest,
                         ::testing::Values(std::string(kBody), "\xEF\xBB\xBF" + std::string(kBody),
                                           Declared("utf-8", kBody), "\xEF\xBB\xBF" + Declared("UTF-8", kBody),
                                           Declared("windows-1252", kBodyInWindows1252),
                                           "\xFF\xFE" + testing::InUtf16LittleEndian(kBody),
                                           "\xFE\xFF" + testing::InUtf16BigEndian(kBody),
                                           testing::InUtf16LittleEndian(kBody), testing::InUtf16BigEndian(kBody),
                                           "\xFF\xFE" + testing::InUtf16LittleEndian(Declared("UTF-16", kBody)),
                                           "\xFE\xFF" + testing::InUtf16BigEndian(Declared("utf-16", kBody)),
                                           testing::InUtf16LittleEndian(Declared("UTF-16", kBody)),
                                           testing::InUtf16BigEndian(Declared("UTF-16BE", kBody))),
                         testing::Numbered());

TEST(ParserTest, TheUndefinedBytesOfWindows1252AreControls) {
  EXPECT_EQ(Parsing().EventsOf(Declared("windows-1252", "<a>\x81\x8D\x8F\x90\x9D</a>")),
            "<a>\u0081\u008D\u008F\u0090\u009D</a>");
}

class ParserStraddlingTest : public ::testing::TestWithParam<size_t> {};

// The text is longer than every buffer, and its characters fall on every offset of their ends.
TEST_P(ParserStraddlingTest, NoCharacterIsLostAtTheEndOfABuffer) {
  const std::string pad(GetParam(), 'x');
  const std::string text = pad + Repeated("é€ç“", 60'000);
  const std::string inWindows1252 = pad + Repeated("\xE9\x80\xE7\x93", 60'000);
  const std::string events = "<a>" + text + "</a>";
  const Parsing parsing;
  EXPECT_TRUE(parsing.EventsOf("<a>" + text + "</a>") == events);
  EXPECT_TRUE(parsing.EventsOf(Declared("windows-1252", "<a>" + inWindows1252 + "</a>")) == events);
  const std::string beyond = "<a>" + pad + Repeated("😀é€", 60'000) + "</a>";
  EXPECT_TRUE(parsing.EventsOf(beyond) == beyond);
  EXPECT_TRUE(parsing.EventsOf("\xFF\xFE" + testing::InUtf16LittleEndian(beyond)) == beyond);
}

INSTANTIATE_TEST_SUITE_P(All, ParserStraddlingTest, ::testing::Range<size_t>(0, 5));

// Refusals. Each is the same number, line and column in every way of parsing.

struct Refusal {
  const char* name;
  std::string bytes;
  int number;
  int line;
  int column;
};

class ParserRefusedFileTest : public ::testing::TestWithParam<Refusal> {};

TEST_P(ParserRefusedFileTest, HasOneVerdictWithItsPlace) {
  const Error error = Parsing().VerdictOn(GetParam().bytes);
  EXPECT_EQ(error.Number(), GetParam().number);
  EXPECT_THAT(error.Description(), EndsWith(" " + Place(GetParam().line, GetParam().column)));
}

INSTANTIATE_TEST_SUITE_P(
    All, ParserRefusedFileTest,
    ::testing::Values(
        Refusal{"NulInText", "<a>x\0</a>"s, XML_ERR_INVALID_CHAR, 1, 5},
        Refusal{"NulOnTheThirdLine", "<a>\n\nxy\0</a>"s, XML_ERR_INVALID_CHAR, 3, 3},
        Refusal{"NulAtTheFront", "\0 <a/>"s, XML_ERR_INVALID_CHAR, 1, 1},
        Refusal{"NulInATag", "<a\0/>"s, XML_ERR_INVALID_CHAR, 1, 3},
        Refusal{"NulInAnAttribute", "<a k='\0'/>"s, XML_ERR_INVALID_CHAR, 1, 7},
        Refusal{"NulInAComment", "<a><!--\0--></a>"s, XML_ERR_INVALID_CHAR, 1, 8},
        Refusal{"NulInCData", "<a><![CDATA[\0]]></a>"s, XML_ERR_INVALID_CHAR, 1, 13},
        Refusal{"NulAfterTheRoot", "<a/>\n\0"s, XML_ERR_INVALID_CHAR, 2, 1},
        Refusal{"NulInWindows1252", Declared("windows-1252", "<a>\0</a>"s), XML_ERR_INVALID_CHAR, 2, 4},
        Refusal{"NulBehindAccents", "<a>éé€\0</a>"s, XML_ERR_INVALID_CHAR, 1, 7},
        // The parser has given up and let its bytes go when the file is found not to be well-formed either.
        Refusal{"NulBehindAByteThatIsNotUtf8", "<a>\xFF\0"s, XML_ERR_INVALID_CHAR, 1, 5},
        Refusal{"NulInADocumentType", "<!DOCTYPE a [<!ENTITY e \"x\"\0"s, XML_ERR_INVALID_CHAR, 1, 28},
        Refusal{"NulInUtf16", testing::InUtf16LittleEndian("<a>\n") + "\0\0"s + testing::InUtf16LittleEndian("</a>"),
                XML_ERR_INVALID_CHAR, 2, 1},
        Refusal{"UpperByteInAscii", Declared("US-ASCII", "<a>xy\xE9</a>"), XML_ERR_INVALID_ENCODING, 2, 6},
        Refusal{"OddByteCount", testing::InUtf16LittleEndian("<a>\n</a>") + "\n", XML_ERR_INVALID_ENCODING, 2, 5},
        Refusal{"LoneHighSurrogate",
                testing::InUtf16LittleEndian("<a>x") + "\x3D\xD8"s + testing::InUtf16LittleEndian("</a>"),
                XML_ERR_INVALID_ENCODING, 1, 5},
        Refusal{"LoneLowSurrogate",
                testing::InUtf16LittleEndian("<a>\nx") + "\x00\xDE"s + testing::InUtf16LittleEndian("</a>"),
                XML_ERR_INVALID_ENCODING, 2, 2}),
    [](const auto& row) { return row.param.name; });

TEST(ParserTest, GivesWhatStoppedItWithItsFaultAndItsPlace) {
  using Fault = XmlProblem::Fault;
  const testing::TemporaryFolder folder;
  const auto problemWith = [&](const std::string& file) {
    testing::NoEvents events;
    return Parser(file).Parse(events);
  };
  EXPECT_EQ(problemWith(folder.Write("good", "<a/>")), std::nullopt);
  const auto expect = [&](const std::string& file, int number, Fault fault, const FilePlace& place) {
    const std::optional<XmlProblem> problem = problemWith(file);
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->number, number);
    EXPECT_EQ(problem->fault, fault);
    EXPECT_EQ(problem->place.line, place.line);
    EXPECT_EQ(problem->place.column, place.column);
    EXPECT_EQ(problem->place.offset, 0);
    EXPECT_EQ(problem->reason.find("linha"), std::string::npos) << problem->reason;
  };
  const int missing = static_cast<int>(RunTimeError::kFileNotFound);
  expect(folder.Path("none"), missing, Fault::kUnreadable, {});
  expect(folder.Write("bad", "<a>\né</b>"), XML_ERR_TAG_NAME_MISMATCH, Fault::kNotWellFormed, {2, 6});
  expect(folder.Write("nul", "<a>\né\0"s), XML_ERR_INVALID_CHAR, Fault::kNotWellFormed, {2, 2});
  expect(folder.Write("type", "\n<!DOCTYPE a>\n<a/>"), XML_ERR_USER_STOP, Fault::kRefused, {2, 12});
  expect(folder.Write("deep", Repeated("<a>", 300)), XML_ERR_USER_STOP, Fault::kRefused, {1, 257 * 3});
}

TEST(ParserTest, ANulFarFromTheFrontIsFoundAtItsPlace) {
  const Error error = Parsing().VerdictOn("<a>" + Repeated("<b>texto</b>\n", 70'000) + "xyz\0</a>"s);
  EXPECT_EQ(error.Number(), XML_ERR_INVALID_CHAR);
  EXPECT_THAT(error.Description(), EndsWith(Place(70'001, 4)));
}

struct Encoding {
  const char* name;
  std::string bytes;
};

class ParserRefusedEncodingTest : public ::testing::TestWithParam<Encoding> {};

TEST_P(ParserRefusedEncodingTest, IsUnsupportedInEveryWay) {
  const Error error = Parsing().VerdictOn(GetParam().bytes);
  EXPECT_EQ(error.Number(), XML_ERR_UNSUPPORTED_ENCODING);
  EXPECT_THAT(error.Description(), HasSubstr("(linha 1, "));
}

INSTANTIATE_TEST_SUITE_P(
    All, ParserRefusedEncodingTest,
    ::testing::Values(
        Encoding{"Unknown", Declared("ISO-8859-15", "<a/>")}, Encoding{"Empty", Declared("", "<a/>")},
        Encoding{"Utf16InBytes", Declared("UTF-16", "<a/>")},
        Encoding{"MarkAgainstWindows1252", "\xEF\xBB\xBF" + Declared("windows-1252", "<a/>")},
        Encoding{"MarkAgainstUtf16", "\xEF\xBB\xBF" + Declared("UTF-16", "<a/>")},
        Encoding{"Utf16MarkAgainstUtf8", "\xFF\xFE" + testing::InUtf16LittleEndian(Declared("UTF-8", "<a/>"))},
        Encoding{"Utf16MarkAgainstItsOrder", "\xFE\xFF" + testing::InUtf16BigEndian(Declared("UTF-16LE", "<a/>"))}),
    [](const auto& row) { return row.param.name; });

TEST(ParserTest, AnEncodingThatOnlyTheParserKnowsIsRefused) {
  // <?xml version="1.0" encoding="ebcdic-cp-us"?><a>A</a> in EBCDIC.
  Parsing().VerdictOn(
      "\x4C\x6F\xA7\x94\x93\x40\xA5\x85\x99\xA2\x89\x96\x95\x7E\x7F\xF1\x4B\xF0\x7F\x40\x85\x95\x83\x96\x84\x89\x95\x87"
      "\x7E\x7F\x85\x82\x83\x84\x89\x83\x60\x83\x97\x60\xA4\xA2\x7F\x6F\x6E\x4C\x81\x6E\xC1\x4C\x61\x81\x6E");
}

class ParserNotUtf8Test : public ::testing::TestWithParam<std::string_view> {};

TEST_P(ParserNotUtf8Test, IsRefusedWhereverItStands) {
  const Parsing parsing;
  const std::string bytes(GetParam());
  const Error error = parsing.VerdictOn("<a>\n\nxy" + bytes + "z</a>");
  EXPECT_THAT(error.Description(), EndsWith(Place(3, 3)));
  parsing.VerdictOn("<a k='" + bytes + "'/>");
  parsing.VerdictOn("<a><b" + bytes + "/></a>");
  parsing.VerdictOn("<a><!--" + bytes + "--></a>");
  parsing.VerdictOn("<a><![CDATA[" + bytes + "]]></a>");
  parsing.VerdictOn("<a><?t " + bytes + "?></a>");
  parsing.VerdictOn("<a>" + std::string(256 * 1024 - 4, 'x') + bytes + "</a>");
}

INSTANTIATE_TEST_SUITE_P(All, ParserNotUtf8Test,
                         ::testing::Values("\x80", "\xC0\x80", "\xC1\x81", "\xC3(", "\xE0\x80\xBC", "\xE0\x9F\xBF",
                                           "\xE2\x82(", "\xED\xA0\x80", "\xF0\x80\x80\xBC", "\xF0\x8F\xBF\xBF",
                                           "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF", "\x01", "\x1F",
                                           "\xEF\xBF\xBE"),
                         testing::Numbered());

struct IllFormed {
  const char* name;
  std::string bytes;
  int number;
};

class ParserIllFormedFileTest : public ::testing::TestWithParam<IllFormed> {};

TEST_P(ParserIllFormedFileTest, HasTheNumberOfTheParser) {
  EXPECT_EQ(Parsing().VerdictOn(GetParam().bytes).Number(), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(All, ParserIllFormedFileTest,
                         ::testing::Values(IllFormed{"Empty", "", XML_ERR_DOCUMENT_EMPTY},
                                           IllFormed{"NoMarkup", "texto", XML_ERR_DOCUMENT_EMPTY},
                                           IllFormed{"Mismatch", "<a></b>", XML_ERR_TAG_NAME_MISMATCH},
                                           IllFormed{"TwoRoots", "<a/><a/>", XML_ERR_DOCUMENT_END},
                                           IllFormed{"Unfinished", "<a>", XML_ERR_TAG_NOT_FINISHED},
                                           IllFormed{"UnknownEntity", "<a>&euro;</a>", XML_ERR_UNDECLARED_ENTITY},
                                           IllFormed{"AttributeTwice", "<a k='1' k='2'/>", XML_ERR_ATTRIBUTE_REDEFINED},
                                           IllFormed{"CDataEnd", "<a>]]></a>", XML_ERR_MISPLACED_CDATA_END},
                                           IllFormed{"NulReference", "<a>&#0;</a>", XML_ERR_INVALID_CHAR},
                                           IllFormed{"UnknownPrefix", "<a><p:b/></a>", XML_NS_ERR_UNDEFINED_NAMESPACE}),
                         [](const auto& row) { return row.param.name; });

TEST(ParserTest, LinesBeyondSixteenBitsAreToldRight) {
  const Error error = Parsing().VerdictOn("<a>" + std::string(150'000, '\n') + "<b></c></a>");
  EXPECT_EQ(error.Number(), XML_ERR_TAG_NAME_MISMATCH);
  EXPECT_THAT(error.Description(), HasSubstr("(linha 150001, coluna "));
}

TEST(ParserTest, AFileThatCannotBeReadIsARunTimeErrorWithTheSourceOfParsing) {
  const testing::TemporaryFolder folder;
  testing::NoEvents events;
  EXPECT_ERROR(Raise(Parser(folder.Path("none")).Parse(events), "S"), RunTimeError::kFileNotFound, "S");
  EXPECT_ERROR(Raise(Parser(folder.Path("")).Parse(events), "S"), RunTimeError::kPathFileAccess, "S");
}

TEST(ParserTest, AFileCutOffAtAnyByteIsRefused) {
  const Parsing parsing;
  parsing.ExpectAccepted(testing::kRichFile);
  for (size_t size = 0; size < testing::kRichFile.size(); ++size) {
    SCOPED_TRACE(size);
    parsing.VerdictOn(testing::kRichFile.substr(0, size));
  }
}

TEST(ParserTest, AnyByteMayTurnIntoAnotherWithoutHarm) {
  const Parsing parsing;
  const std::string utf16 = "\xFF\xFE" + testing::InUtf16LittleEndian(kBody);
  int accepted = 0;
  int refused = 0;
  for (const std::string& original : {std::string(testing::kRichFile), utf16}) {
    for (size_t at = 0; at < original.size(); ++at) {
      for (const char hostile : "\x01<&\"]\xFF") {
        std::string bytes = original;
        bytes[at] = hostile;
        SCOPED_TRACE(at);
        try {
          Document document;
          parsing.Load(document, bytes);
          ++accepted;
        } catch (const Error& error) {
          ++refused;
          EXPECT_GT(error.Number(), 0);
        }
      }
    }
  }
  EXPECT_GT(accepted, 0);
  EXPECT_GT(refused, 0);
}

// Document type declarations.

struct Declaration {
  const char* name;
  std::string type;
};

class ParserDocumentTypeTest : public ::testing::TestWithParam<Declaration> {};

TEST_P(ParserDocumentTypeTest, IsRefusedInEveryWayAndNothingItNamesIsRead) {
  const Parsing parsing;
  testing::WatchedFile secret(parsing.Folder(), "secret", "<!ENTITY e 'secret'>");
  std::string type = GetParam().type;
  for (size_t at; (at = type.find("SECRET")) != std::string::npos;) type.replace(at, 6, secret.Path());
  for (const std::string& bytes :
       {type + "<a>&e;</a>", type + "<a/>", "<!--c-->\n" + type + "\n<a/>", Declared("windows-1252", type + "<a/>")}) {
    const Error error = parsing.VerdictOn(bytes);
    EXPECT_EQ(error.Number(), XML_ERR_USER_STOP);
    EXPECT_THAT(error.Description(), HasSubstr("DOCTYPE"));
  }
  EXPECT_FALSE(secret.WasOpened());
}

INSTANTIATE_TEST_SUITE_P(
    All, ParserDocumentTypeTest,
    ::testing::Values(
        Declaration{"Bare", "<!DOCTYPE a>"}, Declaration{"EmptySubset", "<!DOCTYPE a []>"},
        Declaration{"InternalSubset", "<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e 'x'>]>"},
        Declaration{"External", "<!DOCTYPE a SYSTEM 'file://SECRET'>"},
        Declaration{"ExternalPath", "<!DOCTYPE a SYSTEM 'SECRET'>"},
        Declaration{"Public", "<!DOCTYPE a PUBLIC '-//x//y' 'file://SECRET'>"},
        Declaration{"ExternalEntity", "<!DOCTYPE a [<!ENTITY e SYSTEM 'file://SECRET'>]>"},
        Declaration{"ParameterEntity", "<!DOCTYPE a [<!ENTITY % p SYSTEM 'file://SECRET'> %p;]>"},
        Declaration{"DefaultAttribute", "<!DOCTYPE a [<!ATTLIST a k CDATA 'v'><!ENTITY e ''>]>"},
        Declaration{"Bomb",
                    "<!DOCTYPE a [<!ENTITY x0 'xxxxxxxxxx'><!ENTITY x1 '&x0;&x0;&x0;&x0;&x0;&x0;&x0;&x0;&x0;&x0;'>"
                    "<!ENTITY x2 '&x1;&x1;&x1;&x1;&x1;&x1;&x1;&x1;'><!ENTITY x3 '&x2;&x2;&x2;&x2;&x2;&x2;&x2;&x2;'>"
                    "<!ENTITY x4 '&x3;&x3;&x3;&x3;&x3;&x3;&x3;&x3;'><!ENTITY x5 '&x4;&x4;&x4;&x4;&x4;&x4;&x4;&x4;'>"
                    "<!ENTITY x6 '&x5;&x5;&x5;&x5;&x5;&x5;&x5;&x5;'><!ENTITY e '&x6;&x6;&x6;&x6;&x6;&x6;&x6;&x6;'>]>"}),
    [](const auto& row) { return row.param.name; });

TEST(ParserTest, NoEventComesFromBehindADocumentType) {
  const testing::TemporaryFolder folder;
  testing::Events events;
  const std::string file = folder.Write("file", "<!--c--><!DOCTYPE a [<!ENTITY e 'x'><!--d-->]><!--e--><a>&e;</a>");
  EXPECT_ERROR(Raise(Parser(file).Parse(events), "S"), XML_ERR_USER_STOP, "S");
  EXPECT_EQ(events.log, "[comment:c]");
}

// Limits.

void ExpectBeyondLimit(const Parsing& parsing, const std::string& bytes) {
  EXPECT_EQ(parsing.VerdictOn(bytes).Number(), XML_ERR_USER_STOP);
}

std::string Nested(size_t depth) { return Repeated("<a>", depth) + Repeated("</a>", depth); }

TEST(ParserTest, DepthOf256PassesAndOneMoreFails) {
  const Parsing parsing;
  parsing.ExpectAccepted(Nested(256));
  parsing.ExpectAccepted("<a>" + Repeated(Nested(255), 3) + "</a>");
  ExpectBeyondLimit(parsing, Nested(257));
}

TEST(ParserTest, HostileNestingIsRefusedAtOnce) {
  const Parsing parsing;
  const std::string opened = Repeated("<a>", 3'000'000);
  EXPECT_LT(ProcessorSeconds([&] { ExpectBeyondLimit(parsing, opened); }), 2);
}

constexpr size_t kMostText = 10'000'000;

TEST(ParserTest, TextOfTenMillionBytesPassesAndOneMoreFails) {
  const Parsing parsing;
  const std::string most(kMostText, 'x');
  parsing.ExpectAccepted("<a>" + most + "</a>");
  ExpectBeyondLimit(parsing, "<a>" + most + "x</a>");
}

TEST(ParserTest, TextSplitByReferencesCountsAsOne) {
  const Parsing parsing;
  const std::string piece = std::string(998, 'x') + "&amp;&#65;";
  parsing.ExpectAccepted("<a>" + Repeated(piece, kMostText / 1000) + "</a>");
  ExpectBeyondLimit(parsing, "<a>" + Repeated(piece, kMostText / 1000) + "&lt;</a>");
}

TEST(ParserTest, CDataIsLimitedLikeText) {
  const Parsing parsing;
  const std::string most(kMostText, 'x');
  parsing.ExpectAccepted("<a><![CDATA[" + most + "]]></a>");
  parsing.VerdictOn("<a><![CDATA[" + most + "x]]></a>");
  ExpectBeyondLimit(parsing, "<a>x<![CDATA[" + most + "]]></a>");
  parsing.VerdictOn("<a><![CDATA[" + Repeated(most, 3) + "]]></a>");
}

TEST(ParserTest, TheLimitOfATextIsNotThatOfAFile) {
  const std::string element = "<b>" + std::string(6'000'000, 'x') + "</b>";
  Parsing().ExpectAccepted("<a>" + element + element + element + "</a>");
}

std::string TagOf(size_t size) { return "<a k=\"" + std::string(size - 9, 'x') + "\"/>"; }

TEST(ParserTest, AStartTagOf64KibPassesAndALongerOneFails) {
  const Parsing parsing;
  parsing.ExpectAccepted(TagOf(64 * 1024));
  parsing.ExpectAccepted("<a>" + Repeated(TagOf(64 * 1024), 5) + "</a>");
  ExpectBeyondLimit(parsing, TagOf(64 * 1024 + 8));
  ExpectBeyondLimit(parsing, "<a>\n" + TagOf(64 * 1024 + 8) + "</a>");
  ExpectBeyondLimit(parsing, TagOf(kMostText + 1));
}

TEST(ParserTest, WhatStandsBeforeATagIsNotPartOfIt) {
  const Parsing parsing;
  const std::string blanks(100'000, '\n');
  const std::string filling(100'000, 'x');
  parsing.ExpectAccepted("<?xml version='1.0'?>" + blanks + "<a/>");
  parsing.ExpectAccepted("<!--" + filling + "--><a/>");
  parsing.ExpectAccepted("<a>" + blanks + "<b/>" + filling + "<b/></a>" + blanks);
  parsing.ExpectAccepted("<a><!--" + filling + "--><b/><?t " + filling + "?><b/></a>");
  parsing.ExpectAccepted("<a><![CDATA[" + filling + "]]><b/>" + Repeated("&amp;", 20'000) + "<b/></a>");
}

TEST(ParserTest, ATagWith200000AttributesIsRefusedInTimeProportionalToWhatIsRead) {
  const Parsing parsing;
  std::string tag = "<a";
  for (int i = 0; i < 200'000; ++i) tag += " k" + std::to_string(i) + "='v'";
  for (const std::string& bytes : {tag + "/>", "<a>" + tag + "/></a>"}) {
    // Three runs and the writing of their files.
    EXPECT_LT(ProcessorSeconds([&] { ExpectBeyondLimit(parsing, bytes); }), 1);
  }
}

TEST(ParserTest, AnAttributeThatNeverEndsIsRefusedAtOnce) {
  const Parsing parsing;
  const std::string open = "<a><b k='" + std::string(50'000'000, 'x');
  EXPECT_LT(ProcessorSeconds([&] { ExpectBeyondLimit(parsing, open); }), 2);
}

TEST(ParserTest, AHugeCommentIsReadOrRefusedInTimeProportionalToItsSize) {
  const Parsing parsing;
  parsing.ExpectAccepted("<a><!--" + std::string(9'000'000, 'x') + "--></a>");
  EXPECT_LT(ProcessorSeconds([&] { parsing.VerdictOn("<a><!--" + std::string(50'000'000, 'x') + "--></a>"); }), 5);
}

std::string ManyNames(int count) {
  std::string elements;
  for (int i = 2; i < count; i += 2) elements += "<e" + std::to_string(i) + " k" + std::to_string(i) + "=''/>";
  return "<a>\n" + elements + (count % 2 == 0 ? "<e/></a>" : "</a>");
}

TEST(ParserTest, TenThousandNamesPassAndOneMoreFails) {
  const Parsing parsing;
  parsing.ExpectAccepted(ManyNames(10'000));
  const std::string many = ManyNames(10'000);
  const std::string tooMany = many.substr(0, many.size() - 4);
  EXPECT_EQ(
      parsing.VerdictOn(tooMany + "<n/></a>").Description(),
      "O ficheiro tem mais de 10 000 nomes de elementos e atributos " + Place(2, static_cast<int>(tooMany.size()) - 1));
  ExpectBeyondLimit(parsing, tooMany + "<a n=''/></a>");
  // A name with a prefix is another; the namespaces and what is in them are not counted here.
  parsing.ExpectAccepted(tooMany + "<e xmlns:p='u' xmlns='v'/><?n ?></a>");
  ExpectBeyondLimit(parsing, tooMany + "<p:e xmlns:p='u'/></a>");
  ExpectBeyondLimit(parsing, tooMany + "<e xmlns:p='u' p:k2=''/></a>");
}

TEST(ParserTest, TenThousandOtherNamesPassAndOneMoreFails) {
  const Parsing parsing;
  std::string content = "<a>";
  for (int i = 0; i < 5'000; ++i) content += "<?t" + std::to_string(i) + "?>";
  for (int i = 0; i < 2'500; ++i) content += "<b xmlns:p" + std::to_string(i) + "='u" + std::to_string(i) + "'/>";
  parsing.ExpectAccepted(content + "</a>");
  parsing.ExpectAccepted(content + "<c/><c k=''/><?t0?><b xmlns:u0='p0'/></a>");
  EXPECT_EQ(parsing.VerdictOn(content + "<?n?></a>").Description(),
            "O ficheiro tem mais de 10 000 nomes de instruções, prefixos e espaços de nomes " +
                Place(1, static_cast<int>(content.size()) + 6));
  ExpectBeyondLimit(parsing, content + "<b xmlns='n'/></a>");
  ExpectBeyondLimit(parsing, content + "<b xmlns:n='u1'/></a>");
  ExpectBeyondLimit(parsing, content + "</a><?n?>");
}

std::string Declarations(int from, int count) {
  std::string declarations;
  for (int i = from; i < from + count; ++i) declarations += " xmlns:p" + std::to_string(i) + "='u'";
  return declarations;
}

TEST(ParserTest, SixtyFourDeclarationsInScopePassAndOneMoreFails) {
  const Parsing parsing;
  parsing.ExpectAccepted("<a" + Declarations(0, 64) + "/>");
  parsing.ExpectAccepted("<a xmlns=''" + Declarations(0, 32) + "><b" + Declarations(0, 31) + "/><b" +
                         Declarations(40, 31) + "/></a>");
  const std::string tag = "<a" + Declarations(0, 65);
  EXPECT_EQ(
      parsing.VerdictOn(tag + "></a>").Description(),
      "Mais de 64 declarações de espaços de nomes valem ao mesmo tempo " + Place(1, static_cast<int>(tag.size()) + 1));
  ExpectBeyondLimit(parsing, "<a" + Declarations(0, 64) + "><b xmlns='u'/></a>");
  ExpectBeyondLimit(parsing, "<a" + Declarations(0, 63) + "><b><c xmlns='u'><d xmlns='u'/></c></b></a>");
  ExpectBeyondLimit(parsing, "<a" + Declarations(0, 4'000) + "/>");
}

std::string Attributes(int count) {
  std::string attributes;
  for (int i = 0; i < count; ++i) attributes += " k" + std::to_string(i) + "=''";
  return attributes;
}

TEST(ParserTest, TwoHundredAndFiftySixAttributesPassAndOneMoreFails) {
  const Parsing parsing;
  parsing.ExpectAccepted("<a" + Attributes(256) + "/>");
  parsing.ExpectAccepted("<a" + Declarations(0, 64) + Attributes(256) + "><b" + Attributes(256) + "/></a>");
  const std::string tag = "<b" + Attributes(257);
  EXPECT_EQ(parsing.VerdictOn("<a>" + tag + "/></a>").Description(),
            "Uma etiqueta tem mais de 256 atributos " + Place(1, static_cast<int>(tag.size()) + 4));
  ExpectBeyondLimit(parsing, "<a" + Attributes(257) + "/>");
}

// Handlers and the host.

// Throws at its nth event, and takes no other after it.
class ThrowingHandler : public ParserHandler {
 public:
  struct Thrown {
    int event;
    std::shared_ptr<int> payload;
  };

  explicit ThrowingHandler(int at) : at_(at) {}
  void StartElement(const ParsedName&, std::span<const ParsedAttribute>) override { Next(); }
  void EndElement(const ParsedName&) override { Next(); }
  void Characters(std::string_view) override { Next(); }
  void CData(std::string_view) override { Next(); }
  void Comment(std::string_view) override { Next(); }
  void Instruction(std::string_view, std::string_view) override { Next(); }
  void Standalone() override { Next(); }

  int seen = 0;
  std::shared_ptr<int> payload = std::make_shared<int>(0);

 private:
  void Next() {
    if (++seen == at_) throw Thrown{seen, payload};
  }
  int at_;
};

int EventsIn(const std::string& file) {
  ThrowingHandler counter(-1);
  Raise(Parser(file).Parse(counter), "S");
  return counter.seen;
}

TEST(ParserTest, WhatAHandlerThrowsComesOutUnchangedAndNoEventFollows) {
  const testing::TemporaryFolder folder;
  // An error behind the throw does not hide it.
  const std::string file = folder.Write("file", testing::kRichFile);
  const std::string broken = folder.Write("broken", std::string(testing::kRichFile) + "<");
  const int count = EventsIn(file);
  ASSERT_GT(count, 25);
  for (int at = 1; at <= count; ++at) {
    for (const std::string& each : {file, broken}) {
      ThrowingHandler handler(at);
      try {
        Raise(Parser(each).Parse(handler), "S");
        ADD_FAILURE() << "nothing was thrown at " << at;
      } catch (const ThrowingHandler::Thrown& thrown) {
        EXPECT_EQ(thrown.event, at);
        EXPECT_EQ(thrown.payload, handler.payload);
      }
      EXPECT_EQ(handler.seen, at);
      EXPECT_EQ(handler.payload.use_count(), 1);
    }
  }
}

TEST(ParserTest, NothingLeaksWhenAHandlerThrowsOrAFileIsRefused) {
  if (testing::kSanitized) GTEST_SKIP() << "the sanitizer looks for leaks itself";
  const testing::TemporaryFolder folder;
  const std::string file = folder.Write("file", testing::kRichFile);
  const std::string broken = folder.Write("broken", testing::kRichFile.substr(0, 200));
  const std::string type = folder.Write("type", "<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>");
  const int count = EventsIn(file);
  const auto round = [&] {
    for (int at = 1; at <= count; ++at) {
      ThrowingHandler handler(at);
      EXPECT_THROW(Raise(Parser(file).Parse(handler), "S"), ThrowingHandler::Thrown);
    }
    testing::NoEvents events;
    EXPECT_THROW(Raise(Parser(broken).Parse(events), "S"), Error);
    EXPECT_THROW(Raise(Parser(type).Parse(events), "S"), Error);
  };
  round();
  const size_t before = mallinfo2().uordblks;
  for (int i = 0; i < 20; ++i) round();
  EXPECT_LE(mallinfo2().uordblks, before + 4096);
}

// Does something to the file at the first event.
template <class Action>
class AtTheFirstEvent : public testing::NoEvents {
 public:
  explicit AtTheFirstEvent(Action action) : action_(action) {}
  void StartElement(const ParsedName&, std::span<const ParsedAttribute>) override {
    if (!std::exchange(done_, true)) action_();
    ++elements;
  }
  int elements = 0;

 private:
  Action action_;
  bool done_ = false;
};

TEST(ParserTest, AFileRemovedWhileItIsReadIsReadToItsEnd) {
  const testing::TemporaryFolder folder;
  const std::string file = folder.Write("file", "<a>" + Repeated("<b>texto</b>", 100'000) + "</a>");
  AtTheFirstEvent handler([&] { std::filesystem::remove(file); });
  Raise(Parser(file).Parse(handler), "S");
  EXPECT_EQ(handler.elements, 100'001);
}

TEST(ParserTest, AByteThatStopsDecodingHasItsPlaceHoweverFullTheBufferIs) {
  const Parsing parsing;
  for (int length = 0; length < 9000; length += 83) {
    const std::string content = "<a>" + std::string(static_cast<size_t>(length), 'x') + "\0</a>"s;
    Document document;
    EXPECT_THAT(testing::ErrorOf([&] { parsing.Load(document, content); }).Description(),
                EndsWith(" " + Place(1, 4 + length)));
  }
}

TEST(ParserTest, AFileCutShortWhileItIsReadIsRefused) {
  const testing::TemporaryFolder folder;
  const std::string file = folder.Write("file", "<a>" + Repeated("<b>texto</b>", 100'000) + "</a>");
  AtTheFirstEvent handler([&] { std::filesystem::resize_file(file, 600'000); });
  EXPECT_THROW(Raise(Parser(file).Parse(handler), "S"), Error);
  EXPECT_LT(handler.elements, 100'001);
}

// What libxml2 keeps for the whole process.
auto GlobalState() {
  return std::tuple(xmlGetExternalEntityLoader(), xmlGenericError, xmlGenericErrorContext, xmlStructuredError,
                    xmlStructuredErrorContext, xmlGetWarningsDefaultValue, xmlSubstituteEntitiesDefaultValue,
                    xmlKeepBlanksDefaultValue, xmlLineNumbersDefaultValue, xmlLoadExtDtdDefaultValue,
                    xmlDoValidityCheckingDefaultValue, xmlPedanticParserDefaultValue, xmlMalloc, xmlFree);
}

int g_host_calls = 0;

void CountGenericError(void*, const char*, ...) { ++g_host_calls; }

TEST(ParserTest, TheHostsOwnUseOfTheParserIsLeftAlone) {
  const Parsing parsing;
  xmlSetGenericErrorFunc(&g_host_calls, CountGenericError);
  xmlSetStructuredErrorFunc(&g_host_calls, [](void*, xmlErrorPtr) { ++g_host_calls; });
  const xmlExternalEntityLoader loader = xmlGetExternalEntityLoader();
  xmlSetExternalEntityLoader([](const char*, const char*, xmlParserCtxtPtr) -> xmlParserInputPtr {
    ++g_host_calls;
    return nullptr;
  });
  const auto before = GlobalState();

  parsing.ExpectAccepted(testing::kRichFile);
  parsing.VerdictOn("<a><b></a>");
  parsing.VerdictOn("<!DOCTYPE a SYSTEM 'file:///etc/hostname'><a/>");
  EXPECT_ERROR(parsing.Validate("<unknown/>"), XML_SCHEMAV_CVC_ELT_1, testing::kParseSource);
  const std::string bad = parsing.Folder().Write(
      "bad.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element/></xs:schema>");
  EXPECT_THROW(CompiledSchema(SchemaSource(bad), {}, "S"), Error);

  EXPECT_EQ(GlobalState(), before);
  EXPECT_EQ(g_host_calls, 0);
  xmlSetExternalEntityLoader(loader);
  xmlSetStructuredErrorFunc(nullptr, nullptr);
  xmlSetGenericErrorFunc(nullptr, nullptr);
}

TEST(ParserTest, MemoryDoesNotGrowWithTheFile) {
  if (testing::kSanitized) GTEST_SKIP() << "the sanitizer's own memory grows";
  const testing::TemporaryFolder folder;
  const std::string name = folder.Path("file");
  {
    std::ofstream file(name, std::ios::binary);
    const std::string block =
        Repeated("<Line><RecordID>1</RecordID><Description>São João</Description></Line>\n", 1000);
    file << "<AuditFile>";
    for (size_t written = 0; written < 50'000'000; written += block.size()) file << block;
    file << "</AuditFile>";
  }
  const testing::ChildResult result = testing::RunInChild([&] {
    const auto peak = [] {
      rusage usage{};
      getrusage(RUSAGE_SELF, &usage);
      return usage.ru_maxrss;
    };
    const int64_t before = peak();
    testing::NoEvents events;
    Raise(Parser(name).Parse(events), "S");
    return std::to_string(peak() - before);
  });
  ASSERT_EQ(result.status, 0) << result.text;
  EXPECT_LT(std::stol(result.text), 8 * 1024) << "KiB";
}

TEST(ParserTest, TellsHowManyBytesOfTheFileItHasTakenIn) {
  const testing::TemporaryFolder folder;
  // A byte each in the file, two in UTF-8.
  const std::string bytes = "<?xml version='1.0' encoding='windows-1252'?><a>" + std::string(100'000, '\xE9') + "</a>";
  Parser parser(folder.Write("a.xml", bytes));
  EXPECT_EQ(parser.BytesRead(), 0U);
  testing::NoEvents events;
  Raise(parser.Parse(events), "Test");
  EXPECT_EQ(parser.BytesRead(), bytes.size());
}

// A pipe stands for the file: nobody wants one of that size on the disk.
TEST(ParserTest, PositionsAndCountsAreRightBeyondFourGigabytesOnOneLine) {
  if (testing::kSanitized) GTEST_SKIP() << "a sanitizer makes it take minutes";
  struct Counting : testing::NoEvents {
    void EndElement(const ParsedName&) override { ++elements; }
    int64_t elements = 0;
  };
  constexpr int64_t kPieces = 4'400;
  const testing::TemporaryFolder folder;
  const std::string pipe = folder.Path("pipe.xml");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const pid_t writer = fork();
  if (writer == 0) {
    std::ofstream file(pipe, std::ios::binary);
    const std::string piece = "<b/>" + std::string(999'996, ' ');
    file << "<a>";
    for (int64_t i = 0; i < kPieces; ++i) file << piece;
    file << "<b></c>";
    file.close();
    _exit(0);
  }
  Parser parser(pipe);
  Counting counting;
  const Error error = testing::ErrorOf([&] { Raise(parser.Parse(counting), "Test"); });
  waitpid(writer, nullptr, 0);
  EXPECT_THAT(error.Description(), EndsWith("(linha 1, coluna 4400000011)"));
  EXPECT_EQ(counting.elements, kPieces);
  EXPECT_EQ(parser.BytesRead(), 4'400'000'010U);
}

}  // namespace
}  // namespace zevo
