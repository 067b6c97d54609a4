// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/facades/Expectations.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using testing::kAlreadyStarted;
using testing::kFileExists;
using testing::kNoFileName;
using testing::kNotStarted;
using testing::ReadBytes;
using testing::Recorded;
using testing::RecordedNothing;

constexpr std::string_view kStart =
    R"(<?xml version="1.0" encoding="windows-1252"?><AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01")"
    R"( xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">)";

std::string FileOf(std::string_view elements) { return std::string(kStart).append(elements).append("</AuditFile>"); }

ScannedElement At(int depth, std::string_view name, std::string_view text = {}) {
  return {.name = name, .depth = depth, .text = text, .place = {}};
}

class AuditFileElementWriterTest : public ::testing::Test {
 protected:
  AuditFileElementWriterTest() { file_.set_AuditFileName(folder_.Path("audit.xml")); }
  /// Closes the file and gives what is in it.
  std::string Closed() {
    EXPECT_TRUE(file_.CloseAuditFile());
    return ReadBytes(folder_.Path("audit.xml"));
  }

  testing::TemporaryFolder folder_;
  AuditFileElementWriter file_;
};

using WriterOperation = std::pair<std::string, std::function<bool(AuditFileElementWriter&)>>;
const std::vector<WriterOperation>& Operations() {
  static const std::vector<WriterOperation> kOperations = {
      {"BeginElement", [](auto& file) { return file.BeginElement("Header"); }},
      {"EndElement", [](auto& file) { return file.EndElement(); }},
      {"CreateElement", [](auto& file) { return file.CreateElement("Fax", "1"); }},
      {"CreateElements", [](auto& file) { return file.CreateElements({}); }},
  };
  return kOperations;
}

TEST_F(AuditFileElementWriterTest, EveryOperationNeedsAFileBegun) {
  for (const auto& [name, call] : Operations()) {
    EXPECT_FALSE(call(file_));
    EXPECT_THAT(file_, Recorded(kNotStarted, "AuditFileElementWriter." + name));
  }
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(AuditFileElementWriterTest, AFileIsBegunOnceAndNeverReplaced) {
  const std::string member = "AuditFileElementWriter.CreateAuditFile";
  AuditFileElementWriter nameless;
  EXPECT_FALSE(nameless.CreateAuditFile());
  EXPECT_THAT(nameless, Recorded(kNoFileName, member));
  EXPECT_TRUE(file_.CreateAuditFile());
  EXPECT_FALSE(file_.CreateAuditFile());
  EXPECT_THAT(file_, Recorded(kAlreadyStarted, member));
  EXPECT_EQ(Closed(), FileOf(""));
  EXPECT_FALSE(file_.CreateAuditFile());
  EXPECT_THAT(file_, Recorded(kFileExists, member));
}

TEST_F(AuditFileElementWriterTest, ElementsStandWhereTheyAreBegun) {
  ASSERT_TRUE(file_.CreateAuditFile());
  EXPECT_TRUE(file_.BeginElement("MasterFiles"));
  EXPECT_TRUE(file_.BeginElement("Description"));
  EXPECT_TRUE(file_.BeginElement("Description"));
  EXPECT_TRUE(file_.CreateElement("City", ""));
  EXPECT_TRUE(file_.EndElement());
  EXPECT_TRUE(file_.CreateElement("City", "b"));
  EXPECT_TRUE(file_.EndElement());
  EXPECT_TRUE(file_.EndElement());
  EXPECT_TRUE(file_.CreateElement("Fax", "1"));
  EXPECT_TRUE(file_.BeginElement("SourceDocuments"));
  EXPECT_THAT(file_, RecordedNothing());
  EXPECT_EQ(Closed(), FileOf("<MasterFiles><Description><Description><City></City></Description><City>b</City>"
                             "</Description></MasterFiles><Fax>1</Fax><SourceDocuments></SourceDocuments>"));
}

TEST_F(AuditFileElementWriterTest, AListIsWrittenAsItsDepthsSay) {
  ASSERT_TRUE(file_.CreateAuditFile());
  const std::vector<ScannedElement> elements = {At(3, "Line"),     At(4, "Tax"),     At(5, "TaxCode", "NOR"),
                                                At(4, "Tax", "t"), At(5, "TaxType"), At(3, "Line", "x")};
  EXPECT_TRUE(file_.CreateElements(elements));
  EXPECT_TRUE(file_.CreateElements({}));
  EXPECT_EQ(Closed(), FileOf("<Line><Tax><TaxCode>NOR</TaxCode></Tax><Tax>t<TaxType></TaxType></Tax></Line>"
                             "<Line>x</Line>"));
}

TEST_F(AuditFileElementWriterTest, DepthsThatMakeNoTreeStillMakeAFile) {
  ASSERT_TRUE(file_.CreateAuditFile());
  const std::vector<ScannedElement> elements = {At(2, "a"), At(9, "b"), At(5, "c"), At(-1, "d"), At(7, "e")};
  EXPECT_TRUE(file_.CreateElements(elements));
  EXPECT_EQ(Closed(), FileOf("<a><b></b><c></c></a><d><e></e></d>"));
}

TEST_F(AuditFileElementWriterTest, NothingEndsButWhatIsBegun) {
  ASSERT_TRUE(file_.CreateAuditFile());
  EXPECT_FALSE(file_.EndElement());
  ASSERT_NE(file_.AuditException(), nullptr);
  EXPECT_EQ(file_.AuditException()->Number(), 5);
  EXPECT_EQ(Closed(), FileOf(""));
}

TEST_F(AuditFileElementWriterTest, ATextReadsBackAsItIs) {
  const std::string text = " <&>\"'\r\r\n\n\t€ \u4E2D  ";
  ASSERT_TRUE(file_.CreateAuditFile());
  EXPECT_TRUE(file_.BeginElement("Header"));
  EXPECT_TRUE(file_.CreateElement("HeaderComment", text));
  const std::string written =
      FileOf("<Header><HeaderComment> &lt;&amp;&gt;&quot;'&#13;&#13;\n\n\t\x80 &#20013;  </HeaderComment></Header>");
  EXPECT_EQ(Closed(), written);
  AuditFileScanner scanner;
  scanner.set_AuditFileName(folder_.Path("audit.xml"));
  std::shared_ptr<Record> record;
  ASSERT_TRUE(scanner.OpenAuditFile() && scanner.ReadNext(record));
  EXPECT_EQ(scanner.TextOf("HeaderComment"), text);
}

TEST_F(AuditFileElementWriterTest, WhatXmlForbidsIsRefusedBeforeAnythingIsWritten) {
  ASSERT_TRUE(file_.CreateAuditFile());
  EXPECT_TRUE(file_.CreateElement("Preço", "1"));
  for (const std::string_view text : {"a\x01", "\xFF", "\xED\xA0\x80"}) {
    EXPECT_FALSE(file_.CreateElements(std::vector{At(0, "Header"), At(1, "Fax", text)}));
    EXPECT_EQ(file_.AuditException()->Number(), 5);
    EXPECT_THAT(file_.AuditException()->Description(), ::testing::HasSubstr("Fax: carácter não permitido em XML"));
  }
  for (const std::string_view name :
       {"", "1", "-a", "a b", "a>", "x:a", "a\n", "\u4E2D", "a\u0153", "a\xFF", "a\u00D7"}) {
    for (const bool begins : {true, false}) {
      EXPECT_FALSE(begins ? file_.BeginElement(name) : file_.CreateElement(name, "")) << name;
      EXPECT_EQ(file_.AuditException()->Number(), 5);
    }
  }
  EXPECT_EQ(Closed(), FileOf("<Pre\xE7o>1</Pre\xE7o>"));
}

// What the scanner reads of the file that the stream writer makes, is that file.
TEST_F(AuditFileElementWriterTest, TheLayoutIsThatOfTheStreamWriter) {
  const std::string original = folder_.Path("original.xml");
  AuditFileStreamWriter stream;
  stream.set_AuditFileName(original);
  Header header;
  header.set_CompanyName("A \"B\" & Filhos");
  ASSERT_TRUE(stream.CreateAuditFile() && stream.CreateHeader(header) && stream.CloseAuditFile());
  AuditFileScanner scanner;
  scanner.set_AuditFileName(original);
  std::shared_ptr<Record> record;
  ASSERT_TRUE(scanner.OpenAuditFile() && scanner.ReadNext(record));
  ASSERT_TRUE(file_.CreateAuditFile() && file_.CreateElements(scanner.Elements()));
  EXPECT_EQ(Closed(), ReadBytes(original));
}

TEST_F(AuditFileElementWriterTest, AnElementInTheListThatFailsDoesNotStopTheNext) {
  ASSERT_TRUE(file_.CreateAuditFile());
  EXPECT_TRUE(file_.BeginElement("Header"));
  EXPECT_FALSE(file_.CreateElement("Fax", "\x01"));
  EXPECT_TRUE(file_.CreateElement("Fax", "2"));
  EXPECT_THAT(file_, RecordedNothing());
  EXPECT_EQ(Closed(), FileOf("<Header><Fax>2</Fax></Header>"));
}

#ifdef __linux__
TEST_F(AuditFileElementWriterTest, AFullDiskFailsEveryWriteUntilTheClose) {
  file_.set_AuditFileName("/dev/full");
  ASSERT_TRUE(file_.CreateAuditFile());
  const std::string text(10'000, 'x');
  int written = 0;
  while (written < 1000 && file_.CreateElement("HeaderComment", text)) ++written;
  ASSERT_LT(written, 1000);
  for (const auto& [name, call] : Operations()) {
    if (name == "CreateElements") continue;  // of nothing writes nothing
    EXPECT_FALSE(call(file_)) << name;
    EXPECT_EQ(file_.AuditException()->Number(), 61) << name;
  }
  EXPECT_THROW(file_.CloseAuditFile(), Error);
  EXPECT_FALSE(file_.EndElement());
  EXPECT_THAT(file_, Recorded(kNotStarted, "AuditFileElementWriter.EndElement"));
}
#endif

}  // namespace
}  // namespace zevo
