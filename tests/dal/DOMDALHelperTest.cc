// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/dal/DOMDALHelper.h>

#include <ostream>
#include <string>
#include <string_view>

#include "tests/dal/WriterContract.h"
#include "tests/dal/XmlTree.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace testing {
namespace {

struct DOMDALHelperHarness {
  using Writer = DOMDALHelper;
  static constexpr bool kTrims = true;
  static constexpr bool kUpdatesInPlace = true;
  static constexpr bool kFindsClosedElements = true;
};

INSTANTIATE_TYPED_TEST_SUITE_P(DOMDALHelper, WriterContract, DOMDALHelperHarness);

}  // namespace
}  // namespace testing

namespace {

using testing::Content;
using testing::Dump;
using testing::ErrorOf;
using testing::ParseXml;
using testing::ReadBytes;
using testing::TemporaryFolder;
using testing::XmlNode;

class DOMDALHelperTest : public ::testing::Test {
 protected:
  DOMDALHelperTest() { writer_.set_AuditFileName(folder_.Path("audit.xml")); }

  void Open(std::string_view bytes) {
    folder_.Write("audit.xml", bytes);
    writer_.OpenFile();
  }
  std::string Saved() {
    writer_.SaveFile();
    return ReadBytes(writer_.AuditFileName());
  }
  std::string SavedContent() { return Content(ParseXml(Saved()).Child("AuditFile")); }

  TemporaryFolder folder_;
  DOMDALHelper writer_;
};

TEST_F(DOMDALHelperTest, ValueOfSpacesCreatesNoElementUnlessRequired) {
  writer_.CreateFile();
  EXPECT_FALSE(writer_.CreateElement("Fax", "   ", {}, false));
  EXPECT_TRUE(writer_.CreateElement("Email", "   ", {}, true));
  EXPECT_EQ(SavedContent(), "<Email/>");
}

TEST_F(DOMDALHelperTest, CreateTrimsSpacesAndUpdateOfAnExistingElementDoesNot) {
  writer_.CreateFile();
  writer_.CreateElement("City", "  Faro ", {}, false);
  EXPECT_EQ(SavedContent(), "<City>Faro</City>");
  writer_.UpdateElement("City", "  Faro ", {}, false);
  EXPECT_EQ(SavedContent(), "<City>  Faro </City>");
}

TEST_F(DOMDALHelperTest, UpdateThatCreatesTrims) {
  writer_.CreateFile();
  writer_.UpdateElement("City", "  Faro ", {}, false);
  EXPECT_EQ(SavedContent(), "<City>Faro</City>");
}

TEST_F(DOMDALHelperTest, UpdateOfAnAbsentElementWithEmptyValueAndNotRequiredCreatesNothing) {
  writer_.CreateFile();
  writer_.UpdateElement("City", "", {}, false);
  writer_.UpdateElement("City", "  ", {}, false);
  EXPECT_EQ(SavedContent(), "");
}

TEST_F(DOMDALHelperTest, UpdateEmptiesAnExistingElementWhetherRequiredOrNot) {
  writer_.CreateFile();
  writer_.CreateElement("City", "Faro", {}, true);
  writer_.CreateElement("Fax", "21", {}, true);
  writer_.UpdateElement("City", "", {}, false);
  writer_.UpdateElement("Fax", "", {}, true);
  EXPECT_EQ(SavedContent(), "<City/><Fax/>");
}

TEST_F(DOMDALHelperTest, UpdateWorksOnTheFirstOfSeveralElements) {
  writer_.CreateFile();
  writer_.CreateElement("City", "a", {}, true);
  writer_.CreateElement("City", "b", {}, true);
  writer_.UpdateElement("City", "new", {}, true);
  EXPECT_EQ(SavedContent(), "<City>new</City><City>b</City>");
}

TEST_F(DOMDALHelperTest, UpdateWithAForbiddenCharacterLeavesTheTextAsItWas) {
  writer_.CreateFile();
  writer_.CreateElement("City", "Faro", {}, true);
  EXPECT_ERROR(writer_.UpdateElement("City", "F\x02", {}, true), RunTimeError::kInvalidCall, kRunTimeSource);
  EXPECT_EQ(SavedContent(), "<City>Faro</City>");
}

TEST_F(DOMDALHelperTest, TextsOfManyUpdatesDoNotMixUp) {
  writer_.CreateFile();
  writer_.CreateElement("TotalDebit", ".00", {}, true);
  writer_.CreateElement("TotalCredit", ".00", {}, true);
  for (const std::string_view text : {"1000.25", "9.5", "", "123456789.01", "7"}) {
    writer_.UpdateElement("TotalDebit", text, {}, true);
    const std::string expected = text.empty() ? "<TotalDebit/>" : "<TotalDebit>" + std::string(text) + "</TotalDebit>";
    EXPECT_EQ(SavedContent(), expected + "<TotalCredit>.00</TotalCredit>");
  }
}

TEST_F(DOMDALHelperTest, WithoutParentFindsOnlyChildrenOfTheRoot) {
  writer_.CreateFile();
  const Element masterFiles = writer_.CreateElement("MasterFiles", {}, {}, true);
  writer_.CreateElement("Customer", {}, masterFiles, true);
  EXPECT_EQ(writer_.GetElement("MasterFiles", {}, {}), masterFiles);
  EXPECT_FALSE(writer_.GetElement("Customer", {}, {}));
  EXPECT_FALSE(writer_.GetElement("AuditFile", {}, {}));
}

TEST_F(DOMDALHelperTest, FindsUnderTheParentAndNowhereElse) {
  writer_.CreateFile();
  const Element a = writer_.CreateElement("Customer", {}, {}, true);
  const Element b = writer_.CreateElement("Customer", {}, {}, true);
  const Element address = writer_.CreateElement("BillingAddress", {}, b, true);
  EXPECT_FALSE(writer_.GetElement("BillingAddress", a, {}));
  EXPECT_EQ(writer_.GetElement("BillingAddress", b, {}), address);
}

TEST_F(DOMDALHelperTest, QueryFindsTheFirstElementWithAChildOfThatText) {
  writer_.CreateFile();
  Element journals[3];
  for (int i = 0; i < 3; ++i) {
    journals[i] = writer_.CreateElement("Journal", {}, {}, true);
    writer_.CreateElement("JournalID", i == 0 ? "A" : "B", journals[i], true);
  }
  EXPECT_EQ(writer_.GetElement("Journal", {}, "[JournalID = \"A\"]"), journals[0]);
  EXPECT_EQ(writer_.GetElement("Journal", {}, "[JournalID = \"B\"]"), journals[1]);
  EXPECT_FALSE(writer_.GetElement("Journal", {}, "[JournalID = \"AB\"]"));
}

TEST_F(DOMDALHelperTest, QueryFindsWhatCameSinceTheLastOne) {
  writer_.CreateFile();
  EXPECT_FALSE(writer_.GetElement("Journal", {}, "[JournalID = \"A\"]"));
  const Element journal = writer_.CreateElement("Journal", {}, {}, true);
  EXPECT_FALSE(writer_.GetElement("Journal", {}, "[JournalID = \"A\"]"));
  writer_.CreateElement("JournalID", "A", journal, true);
  EXPECT_EQ(writer_.GetElement("Journal", {}, "[JournalID = \"A\"]"), journal);
  writer_.UpdateElement("JournalID", "B", journal, true);
  EXPECT_FALSE(writer_.GetElement("Journal", {}, "[JournalID = \"A\"]"));
  EXPECT_EQ(writer_.GetElement("Journal", {}, "[JournalID = \"B\"]"), journal);
}

TEST_F(DOMDALHelperTest, GivesTheElementOfALeaf) {
  writer_.CreateFile();
  const Element leaf = writer_.CreateElement("City", "Faro", {}, false);
  ASSERT_TRUE(leaf);
  EXPECT_EQ(leaf.AllText(), "Faro");
}

TEST_F(DOMDALHelperTest, EndElementDoesNothing) {
  writer_.CreateFile();
  const Element customer = writer_.CreateElement("Customer", {}, {}, true);
  writer_.EndElement("AuditFile");
  writer_.EndElement("Customer");
  writer_.CreateElement("Fax", "21", customer, true);
  EXPECT_EQ(SavedContent(), "<Customer><Fax>21</Fax></Customer>");
}

TEST_F(DOMDALHelperTest, CarriageReturnInATextSurvivesTheFile) {
  writer_.CreateFile();
  writer_.CreateElement("City", "a\r\nb", {}, true);
  EXPECT_EQ(ParseXml(Saved()).Child("AuditFile").Child("City").Text(), "a\r\nb");
}

TEST_F(DOMDALHelperTest, NothingIsOnDiskBeforeTheFirstSave) {
  writer_.CreateFile();
  writer_.CreateElement("City", "Faro", {}, true);
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(DOMDALHelperTest, CloseWithoutSaveLeavesTheFileOnDiskUntouched) {
  const std::string bytes = "<AuditFile  xmlns='urn:x'>\n</AuditFile >";
  Open(bytes);
  writer_.CreateElement("City", "Faro", {}, true);
  writer_.CloseFile();
  EXPECT_EQ(ReadBytes(writer_.AuditFileName()), bytes);
}

TEST_F(DOMDALHelperTest, DestructionSavesNothing) {
  {
    DOMDALHelper writer;
    writer.set_AuditFileName(folder_.Path("lost.xml"));
    writer.CreateFile();
  }
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(DOMDALHelperTest, SavesAgainWhatCameSinceTheLastSave) {
  writer_.CreateFile();
  writer_.CreateElement("City", "Faro", {}, true);
  EXPECT_EQ(SavedContent(), "<City>Faro</City>");
  writer_.CreateElement("Fax", "21", {}, true);
  EXPECT_EQ(SavedContent(), "<City>Faro</City><Fax>21</Fax>");
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"audit.xml"});
}

TEST_F(DOMDALHelperTest, SavesUnderTheNameItHasThen) {
  Open("<AuditFile/>");
  writer_.set_AuditFileName(folder_.Path("copy.xml"));
  writer_.SaveFile();
  EXPECT_EQ(folder_.Names(), (std::vector<std::string>{"audit.xml", "copy.xml"}));
}

TEST_F(DOMDALHelperTest, FailedSaveKeepsTheDocument) {
  writer_.CreateFile();
  writer_.CreateElement("City", "Faro", {}, true);
  writer_.set_AuditFileName(folder_.Path("missing/audit.xml"));
  EXPECT_EQ(ErrorOf([&] { writer_.SaveFile(); }).Number(), static_cast<int32_t>(RunTimeError::kPathNotFound));
  EXPECT_TRUE(writer_.IsOpen());
  writer_.set_AuditFileName(folder_.Path("audit.xml"));
  EXPECT_EQ(SavedContent(), "<City>Faro</City>");
}

TEST_F(DOMDALHelperTest, CreateDropsTheDocumentHeldBefore) {
  Open("<AuditFile><Header/></AuditFile>");
  writer_.CreateFile();
  EXPECT_EQ(SavedContent(), "");
}

TEST_F(DOMDALHelperTest, FileThatIsNotWellFormedFailsToOpenWithTheParsersCodeAndLeavesTheWriterClosed) {
  const Error error = ErrorOf([&] { Open("<AuditFile><Header></AuditFile>"); });
  EXPECT_EQ(error.Number(), 76);  // XML_ERR_TAG_NAME_MISMATCH
  EXPECT_EQ(error.Source(), "MSXML2.DOMDocument.Load");
  EXPECT_NE(error.Description(), "");
  EXPECT_FALSE(writer_.IsOpen());
}

TEST_F(DOMDALHelperTest, FileThatIsNotThereFailsToLoad) {
  const Error error = ErrorOf([&] { writer_.OpenFile(); });
  EXPECT_GT(error.Number(), 0);
  EXPECT_EQ(error.Source(), "MSXML2.DOMDocument.Load");
  EXPECT_FALSE(writer_.IsOpen());
}

TEST_F(DOMDALHelperTest, FailedOpenDropsTheDocumentHeldBefore) {
  writer_.CreateFile();
  ErrorOf([&] { Open("<AuditFile>"); });
  EXPECT_FALSE(writer_.IsOpen());
}

TEST_F(DOMDALHelperTest, FileIsNotValidatedOnOpen) {
  Open("<Anything/>");
  EXPECT_TRUE(writer_.IsOpen());
}

TEST_F(DOMDALHelperTest, SectionsOfAnOpenedFileAreExtended) {
  Open(
      "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'>\n  <MasterFiles>\n    <Customer/>\n"
      "  </MasterFiles>\n</AuditFile>");
  writer_.CreateElement("Supplier", {}, writer_.GetElement("MasterFiles", {}, {}), true);
  EXPECT_EQ(SavedContent(), "<MasterFiles><Customer/><Supplier/></MasterFiles>");
}

// Files of other software, saved as they were opened.

struct Foreign {
  const char* what;
  std::string bytes;
};
void PrintTo(const Foreign& foreign, std::ostream* out) { *out << foreign.what; }

class DOMDALHelperForeignFileTest : public DOMDALHelperTest, public ::testing::WithParamInterface<Foreign> {};

TEST_P(DOMDALHelperForeignFileTest, LosesNothingWhenOpenedAndSaved) {
  Open(GetParam().bytes);
  const std::string before = Dump(ParseXml(GetParam().bytes));
  EXPECT_EQ(Dump(ParseXml(Saved())), before);
  writer_.OpenFile();
  EXPECT_EQ(Dump(ParseXml(Saved())), before) << "after the second time";
}

INSTANTIATE_TEST_SUITE_P(
    Files, DOMDALHelperForeignFileTest,
    ::testing::Values(
        Foreign{"Prefixes",
                "<s:AuditFile xmlns:s='urn:OECD:StandardAuditFile-Tax:PT_1.01_01' xmlns:x='urn:x'>"
                "<s:Header x:note='1'><x:Extra/><s:City>Faro</s:City></s:Header></s:AuditFile>"},
        Foreign{"DefaultNamespacesInside", "<a xmlns='urn:a'><b xmlns='urn:b'><c xmlns=''/></b><d/></a>"},
        Foreign{"Utf8", "<?xml version='1.0' encoding='UTF-8'?><a b='\u03a9'>S\u00e3o \u03a9 \u6f22 \U0001F600</a>"},
        Foreign{"Utf8WithByteOrderMark", "\xEF\xBB\xBF<a>S\u00e3o</a>"},
        Foreign{"Windows1252", "<?xml version='1.0' encoding='windows-1252'?><a>S\xE3o \x80 \x93x\x94</a>"},
        Foreign{"Latin1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>S\xE3o &#8364;</a>"},
        Foreign{"Utf16", std::string("\xFF\xFE<\0a\0>\0\xA9\x03<\0/\0a\0>\0", 18)},
        Foreign{"CommentsAndInstructions",
                "<!-- before --><?app one two?><a><!--in--><b/><?empty?>x<!-- & < --></a><!-- after -->"},
        Foreign{"CommentThatTheCodePageLacks", "<a><!-- \u03a9 --><?app \u03a9?></a>"},
        Foreign{"NameThatTheCodePageLacks", "<a><\u03a9 \u03c9='1'/></a>"},
        Foreign{"CData", "<a><b><![CDATA[<x> & ]] ]]></b><c>1<![CDATA[2]]>3</c><d><![CDATA[]]>x</d></a>"},
        Foreign{"RootAttributes",
                "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01' "
                "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                "xsi:schemaLocation='urn:x  saft.xsd' id=\"a'b\"/>"},
        Foreign{"AttributeValues", "<a b='&lt;&amp;&gt;\"&apos;' c='&#9;&#10;&#13; x ' d=''/>"},
        Foreign{"WhiteSpace", "<a>\n\t<b>  </b>\r\n  <c> x </c>\n\n</a>"},
        Foreign{"CharacterReferences", "<a>&#13;&#10;&#9;&#233;&#x3A9;</a>"},
        Foreign{"MixedContent", "<a>one<b>two</b>three<b/>four</a>"}),
    [](const auto& test) { return test.param.what; });

TEST_F(DOMDALHelperTest, CDataThatTheCodePageLacksKeepsItsText) {
  Open("<a><![CDATA[<\u03a9>&\u20ac]]></a>");
  EXPECT_EQ(ParseXml(Saved()).Child("a").Text(), "<\u03a9>&\u20ac");
}

TEST_F(DOMDALHelperTest, StandaloneDeclarationIsKept) {
  Open("<?xml version='1.0' standalone='yes'?><a/>");
  EXPECT_NE(Saved().find("standalone=\"yes\""), std::string::npos);
}

TEST_F(DOMDALHelperTest, SavedFileDeclaresTheCodePageWhateverItWasBefore) {
  Open("<?xml version='1.0' encoding='UTF-8'?><a>\u00e9</a>");
  const std::string saved = Saved();
  EXPECT_TRUE(saved.starts_with("<?xml version=\"1.0\" encoding=\"windows-1252\"?>")) << saved;
  EXPECT_NE(saved.find("<a>\xE9</a>"), std::string::npos);
}

TEST_F(DOMDALHelperTest, UpdateKeepsTheAttributesOfAnElement) {
  Open("<AuditFile><City code='8'>Faro<!-- x --></City></AuditFile>");
  writer_.UpdateElement("City", "Porto", {}, true);
  EXPECT_NE(Saved().find("<City code=\"8\">Porto</City>"), std::string::npos);
}

// Records added to files of other software.

class DOMDALHelperForeignRootTest : public DOMDALHelperTest, public ::testing::WithParamInterface<Foreign> {};

void ExpectNamespaceOfTheFile(const XmlNode& node) {
  EXPECT_EQ(node.namespace_uri, "urn:OECD:StandardAuditFile-Tax:PT_1.01_01") << node.name;
}

TEST_P(DOMDALHelperForeignRootTest, RecordsAddedLandInTheNamespaceOfTheFile) {
  Open(GetParam().bytes);
  const Element customer = writer_.CreateElement("Customer", {}, writer_.GetElement("MasterFiles", {}, {}), true);
  writer_.CreateElement("CustomerID", "1", customer, true);
  writer_.CreateElement("City", "Faro", writer_.CreateElement("BillingAddress", {}, customer, true), true);
  writer_.CreateElement("SourceDocuments", {}, {}, true);
  const XmlNode document = ParseXml(Saved());
  const XmlNode& root = document.Child("AuditFile");
  const XmlNode& added = root.Child("MasterFiles").Child("Customer");
  ExpectNamespaceOfTheFile(added);
  ExpectNamespaceOfTheFile(added.Child("CustomerID"));
  ExpectNamespaceOfTheFile(added.Child("BillingAddress"));
  ExpectNamespaceOfTheFile(added.Child("BillingAddress").Child("City"));
  ExpectNamespaceOfTheFile(root.Child("SourceDocuments"));
  EXPECT_EQ(added.Child("CustomerID").Text(), "1");
}

TEST_P(DOMDALHelperForeignRootTest, RecordsAddedLeaveTheRestInItsNamespace) {
  Open(GetParam().bytes);
  const XmlNode before = ParseXml(GetParam().bytes);
  writer_.CreateElement("SourceDocuments", {}, {}, true);
  writer_.CreateElement("Customer", {}, writer_.GetElement("MasterFiles", {}, {}), true);
  const XmlNode after = ParseXml(Saved());
  EXPECT_EQ(after.Child("AuditFile").namespace_uri, before.Child("AuditFile").namespace_uri);
  EXPECT_EQ(after.Child("AuditFile").Child("MasterFiles").namespace_uri,
            before.Child("AuditFile").Child("MasterFiles").namespace_uri);
}

INSTANTIATE_TEST_SUITE_P(
    Roots, DOMDALHelperForeignRootTest,
    ::testing::Values(
        Foreign{"Default", "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><MasterFiles/></AuditFile>"},
        Foreign{"Prefixed",
                "<s:AuditFile xmlns:s='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><s:MasterFiles/>"
                "</s:AuditFile>"},
        Foreign{"PrefixedBesideAnotherDefault",
                "<s:AuditFile xmlns:s='urn:OECD:StandardAuditFile-Tax:PT_1.01_01' xmlns='urn:x'>"
                "<s:MasterFiles/></s:AuditFile>"},
        Foreign{"WithoutNamespace", "<AuditFile><MasterFiles/></AuditFile>"},
        Foreign{"OfAnotherVersion", "<AuditFile xmlns='urn:other'><MasterFiles/></AuditFile>"},
        Foreign{"AnotherDefaultAtTheSection",
                "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><MasterFiles xmlns='urn:x'/>"
                "</AuditFile>"},
        Foreign{"NoDefaultAtTheSection",
                "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><MasterFiles xmlns=''/>"
                "</AuditFile>"},
        Foreign{"DefaultAtTheSectionOnly",
                "<AuditFile><MasterFiles xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'/>"
                "</AuditFile>"}),
    [](const auto& test) { return test.param.what; });

}  // namespace
}  // namespace zevo
