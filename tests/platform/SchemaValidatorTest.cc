// SPDX-License-Identifier: Apache-2.0
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <malloc.h>
#include <sys/socket.h>
#include <unistd.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/File.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaValidator.h>
#include <zevo/platform/fastpath/FastPath.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/Parsing.h"
#include "tests/platform/SchemaOf.h"
#include "tests/platform/WatchedFile.h"
#include "tests/platform/fastpath/Telling.h"
#include "tests/support/Errors.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using Fault = XmlProblem::Fault;
using ::testing::HasSubstr;
using testing::Repeated;
using testing::SchemaOf;
using ::testing::StartsWith;

constexpr std::string_view kSource = "Test.Validate";
constexpr int kNone = 0;

// A list of numbered lines, whose numbers differ.
const std::string kLines = SchemaOf(R"(
  <xs:element name="a">
    <xs:complexType>
      <xs:sequence>
        <xs:element name="n" type="xs:int" minOccurs="0" maxOccurs="unbounded"/>
        <xs:element name="end" minOccurs="0"/>
      </xs:sequence>
    </xs:complexType>
    <xs:unique name="numbers"><xs:selector xpath="n"/><xs:field xpath="."/></xs:unique>
  </xs:element>)");

class SchemaValidatorTest : public ::testing::Test {
 protected:
  const CompiledSchema& Compile(std::string_view schema) {
    return schema_.emplace(SchemaSource(folder_.Write("schema.xsd", schema)), std::string_view(), kSource);
  }
  std::optional<XmlProblem> FirstProblem(std::string_view document, std::string_view schema = kLines) {
    return SchemaValidator(Compile(schema)).FirstProblem(folder_.Write("file.xml", document));
  }
  // The number of the first problem, kNone for a valid file.
  int Verdict(std::string_view document, std::string_view schema = kLines) {
    const std::optional<XmlProblem> problem = FirstProblem(document, schema);
    return problem ? problem->number : kNone;
  }

  testing::TemporaryFolder folder_;
  std::optional<CompiledSchema> schema_;
};

TEST_F(SchemaValidatorTest, AValidFilePasses) {
  EXPECT_EQ(Verdict("<a/>"), kNone);
  EXPECT_EQ(Verdict("<a><n>1</n><n>2</n><end/></a>"), kNone);
}

TEST_F(SchemaValidatorTest, TheFirstViolationIsToldWithItsPlace) {
  const std::optional<XmlProblem> problem = FirstProblem("<a>\n <n>1</n>\n <n>x</n>\n <wrong/>\n</a>");
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->number, XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1);
  EXPECT_EQ(problem->fault, Fault::kInvalid);
  EXPECT_THAT(problem->reason, HasSubstr("'n'"));
  EXPECT_EQ(problem->place, (FilePlace{3, 10}));
}

TEST_F(SchemaValidatorTest, AKeyThatOccursTwiceIsAViolation) {
  EXPECT_EQ(Verdict("<a><n>1</n><n>1</n></a>"), XML_SCHEMAV_CVC_IDC);
}

// Violations of every kind, and all that is kept of open elements and of keys with them.
const std::string kManyViolations = "<a k=''>\n <n>1</n>\n <n>x</n>\n <n>1</n>\n <é/><wrong/>\n <n>y</n>\n</a>";

TEST_F(SchemaValidatorTest, ASinkThatGoesOnGetsEveryViolationInItsOrder) {
  SchemaValidator validator(Compile(kLines));
  const std::string file = folder_.Write("file.xml", kManyViolations);
  std::vector<std::string> found;
  validator.Validate(file, [&](const XmlProblem& problem) {
    EXPECT_EQ(problem.fault, Fault::kInvalid);
    EXPECT_EQ(problem.place.offset, 0);
    found.push_back(std::to_string(problem.number) + " " + std::to_string(problem.place.line) + ":" +
                    std::to_string(problem.place.column));
    return true;
  });
  const auto at = [](int number, const char* place) { return std::to_string(number) + " " + place; };
  // An identity is looked at where its element ends; behind an element that has no business there, nothing is.
  EXPECT_THAT(found, ElementsAre(at(XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1, "1:8"),
                                 at(XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "3:10"), at(XML_SCHEMAV_CVC_IDC, "3:10"),
                                 at(XML_SCHEMAV_CVC_IDC, "4:10"), at(XML_SCHEMAV_ELEMENT_CONTENT, "5:4")));
}

TEST_F(SchemaValidatorTest, ASinkGetsNothingMoreOnceItHasEnough) {
  SchemaValidator validator(Compile(kLines));
  for (size_t wanted = 1; wanted <= 3; ++wanted) {
    std::vector<int64_t> lines;
    validator.Validate(folder_.Write("file.xml", kManyViolations), [&](const XmlProblem& problem) {
      lines.push_back(problem.place.line);
      return lines.size() < wanted;
    });
    EXPECT_EQ(lines.size(), wanted);
  }
}

TEST_F(SchemaValidatorTest, WhatStopsTheParseComesLast) {
  SchemaValidator validator(Compile(kLines));
  std::vector<Fault> faults;
  validator.Validate(folder_.Write("file.xml", "<a><wrong/></b>"), [&](const XmlProblem& problem) {
    faults.push_back(problem.fault);
    return true;
  });
  EXPECT_THAT(faults, ElementsAre(Fault::kInvalid, Fault::kNotWellFormed));
}

TEST_F(SchemaValidatorTest, WhatASinkThrowsComesOut) {
  struct Thrown {};
  SchemaValidator validator(Compile(kLines));
  const std::string file = folder_.Write("file.xml", kManyViolations);
  int calls = 0;
  EXPECT_THROW(validator.Validate(file,
                                  [&](const XmlProblem&) -> bool {
                                    ++calls;
                                    throw Thrown();
                                  }),
               Thrown);
  EXPECT_EQ(calls, 1);
}

TEST_F(SchemaValidatorTest, NothingIsKeptOfAFileHoweverItsValidationEnds) {
  if (testing::kSanitized) GTEST_SKIP() << "the sanitizer looks for leaks itself";
  const CompiledSchema& schema = Compile(kLines);
  const std::string invalid = folder_.Write("invalid.xml", kManyViolations);
  const std::string broken = folder_.Write("broken.xml", kManyViolations.substr(0, kManyViolations.size() - 2));
  const auto round = [&] {
    for (const std::string& file : {invalid, broken}) {
      for (size_t wanted = 1; wanted <= 10; ++wanted) {
        size_t calls = 0;
        SchemaValidator(schema).Validate(file, [&](const XmlProblem&) { return ++calls < wanted; });
      }
      EXPECT_THROW(SchemaValidator(schema).Validate(file, [](const XmlProblem&) -> bool { throw 1; }), int);
    }
  };
  // The C library counts what it holds ready as used: let it have its fill first.
  for (int i = 0; i < 20; ++i) round();
  const size_t before = mallinfo2().uordblks;
  for (int i = 0; i < 20; ++i) round();
  EXPECT_LE(mallinfo2().uordblks, before + 4096);
}

TEST_F(SchemaValidatorTest, LinesBeyondSixteenBitsAreToldRight) {
  std::string document = "<a>\n";
  for (int i = 0; i < 150'000; ++i) document += "<n>" + std::to_string(i) + "</n>\n";
  const std::optional<XmlProblem> problem = FirstProblem(document + "<wrong/></a>");
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->place, (FilePlace{150'002, 7}));
}

TEST_F(SchemaValidatorTest, AFileThatIsNotWellFormedIsRefusedWithTheNumberOfTheParser) {
  EXPECT_EQ(Verdict("<a><n>1</n>"), XML_ERR_TAG_NOT_FINISHED);
  EXPECT_EQ(Verdict(""), XML_ERR_DOCUMENT_EMPTY);
}

TEST_F(SchemaValidatorTest, OneValidatorTakesFileAfterFile) {
  SchemaValidator validator(Compile(kLines));
  const std::string good = folder_.Write("good.xml", "<a><n>1</n></a>");
  const std::string bad = folder_.Write("bad.xml", "<a><n/></a>");
  const std::string broken = folder_.Write("broken.xml", "<a><n>1</n><n>");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(validator.FirstProblem(good), std::nullopt);
    EXPECT_EQ(validator.FirstProblem(bad).value().number, XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1);
    EXPECT_EQ(validator.FirstProblem(broken).value().fault, Fault::kNotWellFormed);
  }
}

TEST_F(SchemaValidatorTest, AFileThatIsMissingIsUnreadable) {
  const std::optional<XmlProblem> problem = SchemaValidator(Compile(kLines)).FirstProblem(folder_.Path("none.xml"));
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->number, static_cast<int>(RunTimeError::kFileNotFound));
  EXPECT_EQ(problem->fault, Fault::kUnreadable);
  EXPECT_EQ(problem->place, FilePlace());
}

TEST_F(SchemaValidatorTest, AFileInWindows1252IsValidatedByItsCharacters) {
  const std::string schema = SchemaOf(R"(<xs:element name="a"><xs:simpleType><xs:restriction base="xs:string">
      <xs:maxLength value="3"/></xs:restriction></xs:simpleType></xs:element>)");
  EXPECT_EQ(Verdict("<?xml version='1.0' encoding='windows-1252'?><a>\x80\xE7\xE3</a>", schema), kNone);
  EXPECT_EQ(Verdict("<?xml version='1.0' encoding='windows-1252'?><a>\x80\xE7\xE3o</a>", schema),
            XML_SCHEMAV_CVC_MAXLENGTH_VALID);
}

TEST_F(SchemaValidatorTest, ASchemaMayBeInAnyEncoding) {
  const std::string schema = SchemaOf("<xs:element name='descrição'/>");
  for (const std::string& bytes :
       {schema, "\xEF\xBB\xBF" + schema, "\xFF\xFE" + testing::InUtf16LittleEndian(schema),
        "<?xml version='1.0' encoding='ISO-8859-1'?>" + SchemaOf("<xs:element name='descri\xE7\xE3o'/>")}) {
    EXPECT_EQ(Verdict("<descrição/>", bytes), kNone);
    EXPECT_EQ(Verdict("<descricao/>", bytes), XML_SCHEMAV_CVC_ELT_1);
  }
}

TEST_F(SchemaValidatorTest, ASchemaThatTheDocumentNamesIsNotRead) {
  testing::WatchedFile other(folder_, "other.xsd", SchemaOf("<xs:element name='b'/>"));
  const std::string instance = "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' ";
  for (const std::string& location : {other.Path(), "file://" + other.Path()}) {
    EXPECT_EQ(Verdict("<a " + instance + "xsi:noNamespaceSchemaLocation='" + location + "'/>"), kNone);
    EXPECT_EQ(Verdict("<a " + instance + "xsi:schemaLocation='urn:o " + location + "'/>"), kNone);
    EXPECT_NE(Verdict("<b " + instance + "xsi:noNamespaceSchemaLocation='" + location + "'/>"), kNone);
  }
  EXPECT_FALSE(other.WasOpened());
}

// Listens on a port of this machine; tells whether anybody called.
class Listener {
 public:
  Listener() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), size), 0);
    EXPECT_EQ(listen(socket_, 4), 0);
    EXPECT_EQ(getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size), 0);
    url = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/x";
  }
  ~Listener() { close(socket_); }
  bool WasCalled() const { return accept(socket_, nullptr, nullptr) >= 0; }

  std::string url;

 private:
  int socket_;
};

TEST_F(SchemaValidatorTest, NothingIsFetchedFromTheNetwork) {
  const Listener server;
  const std::string& url = server.url;
  EXPECT_THROW(Compile("<!DOCTYPE xs:schema SYSTEM '" + url + "'>" + kLines), Error);
  EXPECT_THROW(Compile(SchemaOf("<xs:include schemaLocation='" + url + "'/>")), Error);
  EXPECT_THROW(Compile(SchemaOf("<xs:import namespace='urn:o' schemaLocation='" + url + "'/>")), Error);
  EXPECT_EQ(Verdict("<a/>", SchemaOf("<xs:import namespace='" + url + "'/><xs:element name='a'/>")), kNone);
  EXPECT_NE(Verdict("<!DOCTYPE a SYSTEM '" + url + "'><a/>"), kNone);
  EXPECT_EQ(
      Verdict("<a xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:noNamespaceSchemaLocation='" + url + "'/>"),
      kNone);
  EXPECT_FALSE(server.WasCalled());
}

// libxml2 gives up on a pattern that it could try in too many ways, and would print so. That says nothing of the file,
// and does no harm to the next one.
TEST_F(SchemaValidatorTest, AValidationThatBreaksDownIsTheSchemasFault) {
  SchemaValidator validator(Compile(testing::SchemaOfPattern("(a|aa)*b")));
  const std::string hard = folder_.Write("hard.xml", "<a>" + std::string(100, 'a') + "</a>");
  const std::string easy = folder_.Write("easy.xml", "<a>aab</a>");
  ::testing::internal::CaptureStderr();
  for (int i = 0; i < 3; ++i) {
    std::vector<XmlProblem> problems;
    validator.Validate(hard, [&](const XmlProblem& problem) {
      problems.push_back(problem);
      return true;
    });
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].number, XML_SCHEMAV_INTERNAL);
    EXPECT_EQ(problems[0].fault, Fault::kSchema);
    EXPECT_THAT(problems[0].reason, StartsWith(folder_.Path("schema.xsd") + ": "));
    EXPECT_EQ(validator.FirstProblem(easy), std::nullopt);
  }
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

// The settings that a host may have made for its own use of libxml2 change no verdict.
TEST_F(SchemaValidatorTest, TheHostsDefaultsDoNotCount) {
  const int blanks = xmlKeepBlanksDefault(0);
  const int entities = xmlSubstituteEntitiesDefault(1);
  const int pedantic = xmlPedanticParserDefault(1);
  const int lines = xmlLineNumbersDefault(0);
  EXPECT_EQ(Verdict("<a> <n>1</n><end/></a>"), kNone);
  EXPECT_THAT(testing::ErrorOf([&] { Compile(SchemaOf("\n<xs:element name='a' type='none'/>")); }).Description(),
              HasSubstr("(linha 2"));
  EXPECT_EQ(FirstProblem("<a>\n<wrong/></a>").value().place.line, 2);
  xmlKeepBlanksDefault(blanks);
  xmlSubstituteEntitiesDefault(entities);
  xmlPedanticParserDefault(pedantic);
  xmlLineNumbersDefault(lines);
}

// A source that takes down how often it is read again.
class CountedBytes : public InputBytes {
 public:
  using InputBytes::InputBytes;
  void Restart() override {
    ++restarts;
    InputBytes::Restart();
  }
  int restarts = 0;
};

TEST_F(SchemaValidatorTest, AValidFileIsReadOnceAndAnotherAgainByLibxml2) {
  const testing::WithFastPath on(true);
  if (!IsFastPathOn()) GTEST_SKIP() << "built without the fast path";
  const CompiledSchema& schema = Compile(kLines);
  const auto read = [&](std::string_view document, bool valid) {
    CountedBytes bytes(document);
    int problems = 0;
    SchemaValidator(schema).Validate(bytes, [&](const XmlProblem&) { return ++problems < 0; });
    EXPECT_EQ(problems == 0, valid) << document;
    return bytes.restarts;
  };
  EXPECT_EQ(read("<a><n>1</n><n>2</n></a>", true), 0);
  EXPECT_EQ(read("<a xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:noNamespaceSchemaLocation='a.xsd'>"
                 "<n>1</n></a>",
                 true),
            0);
  EXPECT_EQ(read("<a><n>1</n><n>1</n></a>", false), 1);
  EXPECT_EQ(read("<a><n>1</n><n></a>", false), 1);
  EXPECT_EQ(read("<a><n>1</n><?i?></a>", true), 1);
  const testing::WithFastPath off(false);
  EXPECT_EQ(read("<a><n>1</n><n>2</n></a>", true), 0);
  EXPECT_EQ(read("<a><n>1</n><n>1</n></a>", false), 0);
}

TEST_F(SchemaValidatorTest, ASchemaThatTheFastPathDoesNotTakeIsLibxml2sAlone) {
  const std::string recursive = SchemaOf(R"(<xs:element name="a" type="t"/><xs:complexType name="t"><xs:sequence>
      <xs:element name="a" type="t" minOccurs="0"/></xs:sequence></xs:complexType>)");
  EXPECT_EQ(Compile(recursive).Fast(), nullptr);
  EXPECT_EQ(Verdict("<a><a/></a>", recursive), kNone);
  EXPECT_NE(Verdict("<a><b/></a>", recursive), kNone);
}

}  // namespace
}  // namespace zevo
