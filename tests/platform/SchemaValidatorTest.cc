// SPDX-License-Identifier: Apache-2.0
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <sys/socket.h>
#include <unistd.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaValidator.h>

#include <string>
#include <string_view>

#include "tests/platform/Numbered.h"
#include "tests/platform/Parsing.h"
#include "tests/platform/WatchedFile.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using ::testing::HasSubstr;
using testing::Repeated;
using ::testing::StartsWith;

constexpr std::string_view kSource = "Test.Validate";

std::string Schema(std::string_view content) {
  return std::string("<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">")
      .append(content)
      .append("</xs:schema>");
}

// A list of numbered lines, whose numbers differ.
const std::string kLines = Schema(R"(
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
  void Compile(std::string_view schema) { validator_.Compile(SchemaSource(folder_.Write("schema.xsd", schema))); }
  Error ErrorOfSchema(std::string_view schema) {
    const Error error = testing::ErrorOf([&] { Compile(schema); });
    EXPECT_TRUE(validator_.IsSchemaAtFault());
    EXPECT_EQ(error.Source(), kSource);
    EXPECT_THAT(error.Description(), StartsWith(folder_.Path("schema.xsd") + ": "));
    return error;
  }
  void Validate(std::string_view document, std::string_view schema = kLines) {
    Compile(schema);
    validator_.Validate(folder_.Write("file.xml", document));
  }
  Error ErrorOfDocument(std::string_view document, std::string_view schema = kLines) {
    const Error error = testing::ErrorOf([&] { Validate(document, schema); });
    EXPECT_FALSE(validator_.IsSchemaAtFault());
    return error;
  }

  testing::TemporaryFolder folder_;
  SchemaValidator validator_{kSource, {}};
};

TEST_F(SchemaValidatorTest, AValidFilePasses) {
  Validate("<a/>");
  Validate("<a><n>1</n><n>2</n><end/></a>");
}

TEST_F(SchemaValidatorTest, TheFirstViolationIsToldWithItsPlace) {
  const Error error = ErrorOfDocument("<a>\n <n>1</n>\n <n>x</n>\n <wrong/>\n</a>");
  EXPECT_EQ(error.Number(), XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1);
  EXPECT_EQ(error.Source(), kSource);
  EXPECT_THAT(error.Description(), HasSubstr("'n'"));
  EXPECT_THAT(error.Description(), HasSubstr("(linha 3, coluna "));
}

TEST_F(SchemaValidatorTest, AKeyThatOccursTwiceIsAViolation) {
  EXPECT_EQ(ErrorOfDocument("<a><n>1</n><n>1</n></a>").Number(), XML_SCHEMAV_CVC_IDC);
}

TEST_F(SchemaValidatorTest, LinesBeyondSixteenBitsAreToldRight) {
  std::string document = "<a>\n";
  for (int i = 0; i < 150'000; ++i) document += "<n>" + std::to_string(i) + "</n>\n";
  EXPECT_THAT(ErrorOfDocument(document + "<wrong/></a>").Description(), HasSubstr("(linha 150002, coluna "));
}

TEST_F(SchemaValidatorTest, AFileThatIsNotWellFormedIsRefusedWithTheNumberOfTheParser) {
  EXPECT_EQ(ErrorOfDocument("<a><n>1</n>").Number(), XML_ERR_TAG_NOT_FINISHED);
  EXPECT_EQ(ErrorOfDocument("").Number(), XML_ERR_DOCUMENT_EMPTY);
}

TEST_F(SchemaValidatorTest, OneValidatorTakesFileAfterFile) {
  Compile(kLines);
  const std::string good = folder_.Write("good.xml", "<a><n>1</n></a>");
  const std::string bad = folder_.Write("bad.xml", "<a><n/></a>");
  for (int i = 0; i < 3; ++i) {
    EXPECT_NO_THROW(validator_.Validate(good));
    EXPECT_ERROR(validator_.Validate(bad), XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, kSource);
  }
}

TEST_F(SchemaValidatorTest, FilesThatAreMissingAreRunTimeErrorsWithTheSourceOfValidation) {
  EXPECT_ERROR(validator_.Compile(SchemaSource(folder_.Path("none.xsd"))), RunTimeError::kFileNotFound, kSource);
  EXPECT_TRUE(validator_.IsSchemaAtFault());
  Compile(kLines);
  EXPECT_ERROR(validator_.Validate(folder_.Path("none.xml")), RunTimeError::kFileNotFound, kSource);
  EXPECT_FALSE(validator_.IsSchemaAtFault());
}

TEST_F(SchemaValidatorTest, AFileInWindows1252IsValidatedByItsCharacters) {
  const std::string schema = Schema(R"(<xs:element name="a"><xs:simpleType><xs:restriction base="xs:string">
      <xs:maxLength value="3"/></xs:restriction></xs:simpleType></xs:element>)");
  EXPECT_NO_THROW(Validate("<?xml version='1.0' encoding='windows-1252'?><a>\x80\xE7\xE3</a>", schema));
  EXPECT_EQ(ErrorOfDocument("<?xml version='1.0' encoding='windows-1252'?><a>\x80\xE7\xE3o</a>", schema).Number(),
            XML_SCHEMAV_CVC_MAXLENGTH_VALID);
}

TEST_F(SchemaValidatorTest, ASchemaMayBeInAnyEncoding) {
  const std::string schema = Schema("<xs:element name='descrição'/>");
  for (const std::string& bytes :
       {schema, "\xEF\xBB\xBF" + schema, "\xFF\xFE" + testing::InUtf16LittleEndian(schema),
        "<?xml version='1.0' encoding='ISO-8859-1'?>" + Schema("<xs:element name='descri\xE7\xE3o'/>")}) {
    EXPECT_NO_THROW(Validate("<descrição/>", bytes));
    EXPECT_EQ(ErrorOfDocument("<descricao/>", bytes).Number(), XML_SCHEMAV_CVC_ELT_1);
  }
}

TEST_F(SchemaValidatorTest, ASchemaThatIsNoneIsRefused) {
  EXPECT_EQ(ErrorOfSchema("<xs:schema").Source(), kSource);
  EXPECT_GT(ErrorOfSchema("<a/>").Number(), 0);
  EXPECT_GT(ErrorOfSchema("").Number(), 0);
  const Error error = ErrorOfSchema(Schema("\n<xs:element name='a' type='none'/>"));
  EXPECT_EQ(error.Number(), XML_SCHEMAP_SRC_RESOLVE);
  EXPECT_THAT(error.Description(), HasSubstr("(linha 2"));
}

TEST_F(SchemaValidatorTest, ASchemaWithADocumentTypeIsRefusedAndNothingItNamesIsRead) {
  testing::WatchedFile secret(folder_, "secret", "<!ENTITY e 'x'>");
  for (const std::string& type :
       {std::string("<!DOCTYPE xs:schema>"), "<!DOCTYPE xs:schema SYSTEM 'file://" + secret.Path() + "'>",
        "<!DOCTYPE xs:schema [<!ENTITY % p SYSTEM '" + secret.Path() + "'> %p;]>"}) {
    EXPECT_EQ(ErrorOfSchema(type + kLines).Number(), XML_ERR_USER_STOP);
  }
  EXPECT_FALSE(secret.WasOpened());
}

class SchemaValidatorReferenceTest : public SchemaValidatorTest,
                                     public ::testing::WithParamInterface<std::string_view> {};

TEST_P(SchemaValidatorReferenceTest, ToAnotherSchemaIsRefusedAndTheOtherIsNotRead) {
  testing::WatchedFile other(folder_, "other.xsd", Schema("<xs:element name='b'/>"));
  for (const std::string& location : {other.Path(), "file://" + other.Path(), std::string("other.xsd")}) {
    std::string reference(GetParam());
    reference.replace(reference.find("OTHER"), 5, location);
    const Error error = ErrorOfSchema(Schema(reference + "<xs:element name='a'/>"));
    EXPECT_GT(error.Number(), 0);
    EXPECT_EQ(error.Source(), kSource);
  }
  EXPECT_FALSE(other.WasOpened());
}

INSTANTIATE_TEST_SUITE_P(All, SchemaValidatorReferenceTest,
                         ::testing::Values("<xs:include schemaLocation='OTHER'/>",
                                           "<xs:import namespace='urn:o' schemaLocation='OTHER'/>",
                                           "<xs:import schemaLocation='OTHER'/>",
                                           "<xs:redefine schemaLocation='OTHER'/>",
                                           "<xs:annotation/><xs:include schemaLocation='OTHER'/>"),
                         testing::Numbered());

TEST_F(SchemaValidatorTest, AnImportWithoutALocationReadsNothing) {
  testing::WatchedFile other(folder_, "other.xsd", Schema("<xs:element name='b'/>"));
  for (const std::string& name : {other.Path(), "file://" + other.Path()}) {
    try {
      Validate("<a/>", Schema("<xs:import namespace='" + name + "'/><xs:element name='a'/>"));
    } catch (const Error& error) {
      EXPECT_EQ(error.Source(), kSource);
    }
  }
  EXPECT_FALSE(other.WasOpened());
}

TEST_F(SchemaValidatorTest, ASchemaThatTheDocumentNamesIsNotRead) {
  testing::WatchedFile other(folder_, "other.xsd", Schema("<xs:element name='b'/>"));
  const std::string instance = "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' ";
  for (const std::string& location : {other.Path(), "file://" + other.Path()}) {
    Validate("<a " + instance + "xsi:noNamespaceSchemaLocation='" + location + "'/>");
    Validate("<a " + instance + "xsi:schemaLocation='urn:o " + location + "'/>");
    EXPECT_GT(ErrorOfDocument("<b " + instance + "xsi:noNamespaceSchemaLocation='" + location + "'/>").Number(), 0);
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
  EXPECT_GT(ErrorOfSchema("<!DOCTYPE xs:schema SYSTEM '" + url + "'>" + kLines).Number(), 0);
  EXPECT_GT(ErrorOfSchema(Schema("<xs:include schemaLocation='" + url + "'/>")).Number(), 0);
  EXPECT_GT(ErrorOfSchema(Schema("<xs:import namespace='urn:o' schemaLocation='" + url + "'/>")).Number(), 0);
  Validate("<a/>", Schema("<xs:import namespace='" + url + "'/><xs:element name='a'/>"));
  EXPECT_GT(ErrorOfDocument("<!DOCTYPE a SYSTEM '" + url + "'><a/>").Number(), 0);
  Validate("<a xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:noNamespaceSchemaLocation='" + url + "'/>");
  EXPECT_FALSE(server.WasCalled());
}

TEST_F(SchemaValidatorTest, TheShippedSchemaCompiles) {
  SchemaValidator validator(kSource, "urn:OECD:StandardAuditFile-Tax:PT_1.01_01");
  EXPECT_NO_THROW(validator.Compile(SchemaSource(ZEVO_SCHEMA_FILE)));
  EXPECT_NO_THROW(validator.Compile(SchemaSource::BuiltIn()));
}

TEST_F(SchemaValidatorTest, ASchemaOfAnotherNamespaceIsRefusedWithBothNames) {
  SchemaValidator validator(kSource, "urn:wanted");
  const auto errorOf = [&](std::string_view attribute) {
    const std::string path = folder_.Write("own.xsd", std::string("<xs:schema xmlns:xs='http://www.w3.org/2001/"
                                                                  "XMLSchema' ")
                                                          .append(attribute)
                                                          .append("><xs:element name='a'/></xs:schema>"));
    return testing::ErrorOf([&] { validator.Compile(SchemaSource(path)); });
  };
  for (const std::string_view attribute : {"targetNamespace='urn:other'", "targetNamespace='urn:wanted '"}) {
    const Error error = errorOf(attribute);
    EXPECT_TRUE(validator.IsSchemaAtFault());
    EXPECT_EQ(error.Number(), XML_ERR_USER_STOP);
    EXPECT_THAT(error.Description(), HasSubstr("do espaço de nomes «urn:"));
    EXPECT_THAT(error.Description(), HasSubstr("tem de ser do espaço de nomes «urn:wanted»"));
  }
  EXPECT_THAT(errorOf("").Description(), HasSubstr("de nenhum espaço de nomes"));
  EXPECT_THAT(errorOf("xmlns:o='urn:o' o:targetNamespace='urn:wanted'").Description(),
              HasSubstr("de nenhum espaço de nomes"));
  EXPECT_THAT(
      ErrorOfSchema("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:x'/>").Description(),
      HasSubstr("não pode ter espaço de nomes"));
}

// What goes wrong in regular expressions libxml2 prints, unless somebody takes it.
TEST_F(SchemaValidatorTest, NothingIsPrinted) {
  const auto withPattern = [](std::string_view pattern) {
    return Schema("<xs:element name='a'><xs:simpleType><xs:restriction base='xs:string'><xs:pattern value='" +
                  std::string(pattern) + "'/></xs:restriction></xs:simpleType></xs:element>");
  };
  ::testing::internal::CaptureStderr();
  for (const std::string_view pattern : {"[", "(a", "\\y"}) {
    EXPECT_EQ(ErrorOfSchema(withPattern(pattern)).Number(), XML_SCHEMAP_REGEXP_INVALID) << pattern;
  }
  ErrorOfSchema(Schema("<xs:element name='a' substitutionGroup='none' default='x' fixed='y'/>"));
  Compile(withPattern("(a|aa)*b"));
  EXPECT_THROW(validator_.Validate(folder_.Write("file.xml", "<a>" + std::string(100, 'a') + "</a>")), Error);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

// libxml2 gives up on a pattern that it could try in too many ways. That says nothing of the file.
TEST_F(SchemaValidatorTest, AValidationThatBreaksDownIsTheSchemasFault) {
  Compile(
      Schema("<xs:element name='a'><xs:simpleType><xs:restriction base='xs:string'><xs:pattern value='(a|aa)*b'/>"
             "</xs:restriction></xs:simpleType></xs:element>"));
  const Error error =
      testing::ErrorOf([&] { validator_.Validate(folder_.Write("file.xml", "<a>" + std::string(100, 'a') + "</a>")); });
  EXPECT_EQ(error.Number(), XML_SCHEMAV_INTERNAL);
  EXPECT_TRUE(validator_.IsSchemaAtFault());
  EXPECT_THAT(error.Description(), StartsWith(folder_.Path("schema.xsd") + ": "));
}

// The settings that a host may have made for its own use of libxml2 change no verdict.
TEST_F(SchemaValidatorTest, TheHostsDefaultsDoNotCount) {
  const int blanks = xmlKeepBlanksDefault(0);
  const int entities = xmlSubstituteEntitiesDefault(1);
  const int pedantic = xmlPedanticParserDefault(1);
  const int lines = xmlLineNumbersDefault(0);
  Validate("<a> <n>1</n><end/></a>");
  EXPECT_THAT(ErrorOfSchema(Schema("\n<xs:element name='a' type='none'/>")).Description(), HasSubstr("(linha 2"));
  EXPECT_THAT(ErrorOfDocument("<a>\n<wrong/></a>").Description(), HasSubstr("(linha 2, "));
  xmlKeepBlanksDefault(blanks);
  xmlSubstituteEntitiesDefault(entities);
  xmlPedanticParserDefault(pedantic);
  xmlLineNumbersDefault(lines);
}

}  // namespace
}  // namespace zevo
