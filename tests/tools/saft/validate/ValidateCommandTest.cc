// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class ValidateCommandTest : public testing::ToolTest {
 protected:
  // A schema of the namespace whose root element holds nothing.
  static constexpr std::string_view kEmptyFileSchema =
      R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" elementFormDefault="qualified")"
      R"( targetNamespace="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"><xs:element name="AuditFile">)"
      R"(<xs:complexType/></xs:element></xs:schema>)";
  static constexpr std::string_view kEmptyFile = R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"/>)";
};

TEST_F(ValidateCommandTest, AValidFileIsToldInOneLine) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  const testing::Outcome outcome = Run({"validate", Output()});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, Output() + ": valid\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(ValidateCommandTest, AViolationIsToldWithLineAndColumn) {
  const std::string file = folder_.Write("bad.xml", std::string("<?xml version=\"1.0\"?>\n\n").append(kEmptyFile));
  const testing::Outcome outcome = Run({"validate", file});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "saft: " + file + ": /AuditFile has no Header, which is required (line 3, column 1).\n");
}

TEST_F(ValidateCommandTest, AFileThatIsNotWellFormedIsInvalid) {
  const std::string file = folder_.Write("bad.xml", "<?xml version=\"1.0\"?>\n\n<AuditFile <");
  const testing::Outcome outcome = Run({"validate", file});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, AllOf(StartsWith("saft: " + file + ": "), HasSubstr("(line 3, column ")));
}

TEST_F(ValidateCommandTest, AnEmptyFileIsInvalid) {
  EXPECT_EQ(Run({"validate", folder_.Write("empty.xml", "")}).code, 1);
}

TEST_F(ValidateCommandTest, AnotherSchemaMayBeGiven) {
  const std::string schema = folder_.Write("own.xsd", kEmptyFileSchema);
  const std::string file = folder_.Write("empty.xml", kEmptyFile);
  EXPECT_EQ(Run({"validate", file}).code, 1);
  const testing::Outcome outcome = Run({"validate", file, "--schema", schema});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, file + ": valid\n");
}

TEST_F(ValidateCommandTest, AMissingFileIsAnError) {
  const std::string file = folder_.Path("none.xml");
  const testing::Outcome outcome = Run({"validate", file});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + file + ": There is no such SAFT-PT file.\n");
}

TEST_F(ValidateCommandTest, AllViolationsAreListed) {
  const testing::Outcome outcome = Run({"validate", "--all", folder_.Write("bad.xml", kEmptyFile)});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.out,
            "/AuditFile has no Header, which is required (line 1, column 1).\n"
            "/AuditFile has no MasterFiles, which is required (line 1, column 1).\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(ValidateCommandTest, AllViolationsAreListedForPrograms) {
  const std::string file =
      folder_.Write("bad.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"><Header/>
  <MasterFiles><Product><ProductType>X</ProductType><ProductCode>A"1</ProductCode><ProductDescription>b</ProductDescription>
  <ProductNumberCode>1</ProductNumberCode></Product></MasterFiles></AuditFile>)");
  const testing::Outcome outcome = Run({"validate", file, "--all", "--json"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err, "");
  const size_t last = outcome.out.rfind('\n', outcome.out.size() - 2) + 1;
  EXPECT_EQ(outcome.out.substr(last),
            R"({"number":1840,"kind":"Product","key":"A\"1","path":"ProductType","line":2,"column":25,"offset":95,)"
            R"("value":"X","allowed":"P, S, O, I",)"
            R"("message":"Product A\"1: ProductType, \"X\", must be one of: P, S, O, I (line 2, column 25)."})"
            "\n");
  EXPECT_EQ(Run({"validate", file, "--json"}).code, 2);
}

TEST_F(ValidateCommandTest, OfAValidFileAProgramGetsNothing) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  const testing::Outcome outcome = Run({"validate", Output(), "--all", "--json"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "");
}

TEST_F(ValidateCommandTest, ViolationsAreListedUpToWhatIsNotWellFormed) {
  std::string file(kEmptyFile);
  file.replace(file.size() - 2, 2, "><Header id='1'><");
  const testing::Outcome outcome = Run({"validate", "--all", folder_.Write("bad.xml", file)});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.out, "The header: @id, \"1\", is an attribute that may not be there (line 1, column 62).\n");
  EXPECT_THAT(outcome.err, HasSubstr("(line 1, column "));
}

TEST_F(ValidateCommandTest, TheStandardInputIsToldLikeAFile) {
  const std::string file = folder_.Write("bad.xml", kEmptyFile);
  for (const std::string& script : std::vector<std::string>{"saft validate - --all < '" + file + "'",
                                                            "cat '" + file + "' | saft validate - --all"}) {
    const testing::Outcome outcome = RunInShell(script);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, Run({"validate", "--all", file}).out);
  }
}

TEST_F(ValidateCommandTest, WithoutRoomForACopyOfAPipeTheParserTells) {
  const testing::Outcome outcome =
      RunInShell("cat '" + folder_.Write("bad.xml", kEmptyFile) + "' | TMPDIR=/none " SAFT_PROGRAM " validate - --all");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_THAT(outcome.out,
              AllOf(HasSubstr("AuditFile has no Header, which is required"), HasSubstr("(line 1, column ")));
}

TEST_F(ValidateCommandTest, WhatAFileHoldsIsMadeVisible) {
  const std::string file = folder_.Write("bad.xml", "<AuditFile><\u202E\u009B/></AuditFile>");
  EXPECT_THAT(Run({"validate", file}).err,
              AllOf(::testing::Not(HasSubstr("\u202E")), ::testing::Not(HasSubstr("\u009B"))));
}

}  // namespace
}  // namespace zevo
