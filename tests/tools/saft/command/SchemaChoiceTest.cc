// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "tests/support/UseSchema.h"
#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::Contains;

class SchemaChoiceTest : public testing::ToolTest {
 protected:
  // A schema of the namespace that lets a customer have a name of four characters.
  static constexpr std::string_view kNarrowSchema =
      R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" elementFormDefault="qualified")"
      R"( targetNamespace="urn:OECD:StandardAuditFile-Tax:PT_1.01_01")"
      R"( xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"><xs:element name="AuditFile"><xs:complexType><xs:sequence>)"
      R"(<xs:element name="MasterFiles"><xs:complexType><xs:sequence><xs:element name="Customer"><xs:complexType>)"
      R"(<xs:sequence><xs:element name="CompanyName" type="Four"/></xs:sequence></xs:complexType></xs:element>)"
      R"(</xs:sequence></xs:complexType></xs:element></xs:sequence></xs:complexType></xs:element>)"
      R"(<xs:simpleType name="Four"><xs:restriction base="xs:string"><xs:maxLength value="4"/></xs:restriction>)"
      R"(</xs:simpleType></xs:schema>)";

  void SetUp() override { Write("customers.csv", "CustomerID,CompanyName\nC1," + std::string(61, 'x') + "\n"); }

  /// Runs a command with a copy of the library that has no schema beside it but those that the test lays there.
  testing::Outcome RunMoved(const std::string& command) const {
    std::filesystem::create_directory(folder_.Path("moved"));
    std::filesystem::copy_file(ADAPTERS_LIBRARY, folder_.Path("moved/" ADAPTERS_NAME),
                               std::filesystem::copy_options::skip_existing);
    return RunInShell("export LD_LIBRARY_PATH='" + folder_.Path("moved") + "'; saft " + command);
  }
  std::string Arguments() const { return " '" + folder_.Path(kDataset) + "' '" + Output() + "'"; }
};

TEST_F(SchemaChoiceTest, WithoutAFileTheOneInTheLibraryIsUsed) {
  const testing::Outcome created = RunMoved("create --no-validate" + Arguments());
  EXPECT_EQ(created.code, 0);
  EXPECT_EQ(created.err, "saft: 1 text shortened to what the schema allows\n  " + In("customers.csv") +
                             ":2: CompanyName: from 61 to 60 characters\n");
  EXPECT_EQ(RunMoved("validate '" + Output() + "'").code, 1);
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, folder_.Path("company.xml")}).code, 0);
  const testing::Outcome valid = RunMoved("validate '" + folder_.Path("company.xml") + "'");
  EXPECT_EQ(valid.code, 0);
  EXPECT_EQ(valid.err, "");
}

TEST_F(SchemaChoiceTest, TheFileAtTheDefaultPlaceComesFirst) {
  const std::string schema = folder_.Path("moved") + testing::kDefaultSchema;
  std::filesystem::create_directories(std::filesystem::path(schema).parent_path());
  folder_.Write("moved" + std::string(testing::kDefaultSchema), kNarrowSchema);
  EXPECT_EQ(RunMoved("create --no-validate" + Arguments()).code, 0);
  EXPECT_THAT(Texts("CompanyName"), Contains("xxxx"));
}

TEST_F(SchemaChoiceTest, AFaultOfTheOneAtTheDefaultPlaceIsToldWithItsNameOnce) {
  const std::string schema = folder_.Path("moved") + testing::kDefaultSchema;
  std::filesystem::create_directories(std::filesystem::path(schema).parent_path());
  folder_.Write("moved" + std::string(testing::kDefaultSchema), std::string(300000, ' '));
  const testing::Outcome outcome = RunMoved("columns");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "saft: " + schema + ": The schema is larger than 256 KiB.\n");
}

TEST_F(SchemaChoiceTest, TheOneThatIsNamedComesBeforeAll) {
  const std::string schema = folder_.Write("narrow.xsd", kNarrowSchema);
  for (const auto& options : {std::vector<std::string>{"--schema", schema}, {"--stream", "--schema", schema}}) {
    EXPECT_EQ(Create(options).code, 0);
    EXPECT_THAT(Texts("CompanyName"), Contains("xxxx"));
    std::filesystem::remove(Output());
  }
}

struct BadSchema {
  const char* path;
  const char* message;
};

class SchemaChoiceBadSchemaTest : public SchemaChoiceTest, public ::testing::WithParamInterface<BadSchema> {
 protected:
  void SetUp() override {
    SchemaChoiceTest::SetUp();
    std::filesystem::create_directory(folder_.Path("folder"));
    ASSERT_EQ(mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
    folder_.Write("malformed", "<xs:schema>");
    folder_.Write("file.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"/>)");
    folder_.Write("faulty", std::string(kNarrowSchema).replace(kNarrowSchema.find("\"Four\""), 6, "\"Five\""));
  }
  std::string Path() const { return *GetParam().path == '/' ? GetParam().path : folder_.Path(GetParam().path); }
};

TEST_F(SchemaChoiceTest, ANameThatIsEmptyIsNoChoice) {
  EXPECT_EQ(Run({"validate", "--schema", "", Output()}).err, "saft: --schema: names no file\n");
}

TEST_P(SchemaChoiceBadSchemaTest, IsToldAndNotBlamedOnTheFile) {
  for (const testing::Outcome& outcome :
       {Run({"validate", folder_.Path("file.xml"), "--schema", Path()}),
        Run({"create", folder_.Path(kDataset), Output(), "--schema", Path()}),
        Run({"create", "--stream", folder_.Path(kDataset), Output(), "--schema", Path()})}) {
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, ::testing::StartsWith("saft: " + Path() + ": " + GetParam().message));
    EXPECT_THAT(outcome.err, ::testing::Not(::testing::HasSubstr(Path() + ": " + Path())));
    EXPECT_FALSE(std::filesystem::exists(Output()));
  }
}

INSTANTIATE_TEST_SUITE_P(All, SchemaChoiceBadSchemaTest,
                         ::testing::Values(BadSchema{"folder", "is a folder\n"}, BadSchema{"pipe", "is a pipe\n"},
                                           BadSchema{"/dev/zero", "is a device\n"}, BadSchema{"none", "no such file\n"},
                                           BadSchema{"malformed", ""}, BadSchema{"file.xml", ""},
                                           BadSchema{"faulty", ""}));

}  // namespace
}  // namespace zevo
