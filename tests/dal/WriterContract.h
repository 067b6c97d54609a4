// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_DAL_WRITERCONTRACT_H_
#define ZEVO_TESTS_DAL_WRITERCONTRACT_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/Error.h>
#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/LoadDocument.h>

#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/dal/XmlTree.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {

/// What is true of every writer. An implementation joins with a harness:
///
///     struct SomeWriterHarness {
///       using Writer = SomeWriter;                          // constructs by default
///       static constexpr bool kTrims = true;                // texts lose the spaces at their ends
///       static constexpr bool kUpdatesInPlace = true;       // else an update appends another element
///       static constexpr bool kFindsClosedElements = true;  // else only those still open
///     };
///     INSTANTIATE_TYPED_TEST_SUITE_P(SomeWriter, WriterContract, SomeWriterHarness);
template <class Harness>
class WriterContract : public ::testing::Test {
 protected:
  WriterContract() { writer_.set_AuditFileName(folder_.Path("audit.xml")); }

  /// Completes the document; gives the bytes of its file.
  std::string Finish() {
    writer_.SaveFile();
    writer_.CloseFile();
    return ReadBytes(writer_.AuditFileName());
  }
  /// Completes the document; gives its root.
  XmlNode FinishedRoot() { return ParseXml(Finish()).Child("AuditFile"); }
  /// Completes the document; gives the content of its root.
  std::string FinishedContent() { return Content(FinishedRoot()); }

  Element Container(ElementName name, Element parent = {}) { return writer_.CreateElement(name, {}, parent, true); }
  void Leaf(ElementName name, std::string_view value, Element parent = {}) {
    writer_.CreateElement(name, value, parent, true);
  }

  TemporaryFolder folder_;
  typename Harness::Writer writer_;
};

TYPED_TEST_SUITE_P(WriterContract);

TYPED_TEST_P(WriterContract, KeepsTheFileNameItIsGiven) {
  EXPECT_EQ(this->writer_.AuditFileName(), this->folder_.Path("audit.xml"));
  this->writer_.set_AuditFileName("another");
  EXPECT_EQ(this->writer_.AuditFileName(), "another");
}

TYPED_TEST_P(WriterContract, HasNoFileNameAtFirst) { EXPECT_EQ(typename TypeParam::Writer().AuditFileName(), ""); }

TYPED_TEST_P(WriterContract, IsOpenBetweenCreateAndClose) {
  EXPECT_FALSE(this->writer_.IsOpen());
  this->writer_.CreateFile();
  EXPECT_TRUE(this->writer_.IsOpen());
  this->writer_.SaveFile();
  EXPECT_TRUE(this->writer_.IsOpen());
  this->writer_.CloseFile();
  EXPECT_FALSE(this->writer_.IsOpen());
}

TYPED_TEST_P(WriterContract, ClosingAClosedWriterDoesNothing) {
  this->writer_.CloseFile();
  EXPECT_FALSE(this->writer_.IsOpen());
  EXPECT_TRUE(this->folder_.Names().empty());
}

TYPED_TEST_P(WriterContract, NewDocumentHoldsDeclarationAndEmptyRootWithTwoNamespaces) {
  this->writer_.CreateFile();
  const std::string bytes = this->Finish();
  EXPECT_TRUE(bytes.starts_with("<?xml version=\"1.0\" encoding=\"windows-1252\"?>")) << bytes;
  EXPECT_EQ(Dump(ParseXml(bytes)),
            "document\n"
            "  element AuditFile in urn:OECD:StandardAuditFile-Tax:PT_1.01_01"
            " xmlns:=urn:OECD:StandardAuditFile-Tax:PT_1.01_01"
            " xmlns:xsi=http://www.w3.org/2001/XMLSchema-instance\n");
}

TYPED_TEST_P(WriterContract, OptionalElementWithoutTextIsLeftOut) {
  this->writer_.CreateFile();
  EXPECT_FALSE(this->writer_.CreateElement("Fax", "", {}, false));
  EXPECT_EQ(this->FinishedContent(), "");
}

TYPED_TEST_P(WriterContract, OptionalElementWithTextIsWritten) {
  this->writer_.CreateFile();
  this->writer_.CreateElement("Fax", "21", {}, false);
  EXPECT_EQ(this->FinishedContent(), "<Fax>21</Fax>");
}

TYPED_TEST_P(WriterContract, RequiredElementWithoutTextIsWrittenEmpty) {
  this->writer_.CreateFile();
  EXPECT_TRUE(this->writer_.CreateElement("Fax", "", {}, true));
  EXPECT_EQ(this->FinishedContent(), "<Fax/>");
}

// So that a reader finds its text, and not that of an element of the same name further in.
TYPED_TEST_P(WriterContract, AnEmptyElementIsTwoTags) {
  this->writer_.CreateFile();
  const Element address = this->Container("Address");
  this->Leaf("City", "", address);
  EXPECT_THAT(this->Finish(), ::testing::HasSubstr("<Address><City></City></Address></AuditFile>"));
}

TYPED_TEST_P(WriterContract, OptionalElementOfSpacesIsLeftOutByAWriterThatTrims) {
  this->writer_.CreateFile();
  this->writer_.CreateElement("Fax", "  ", {}, false);
  EXPECT_EQ(this->FinishedContent(), TypeParam::kTrims ? "" : "<Fax>  </Fax>");
}

TYPED_TEST_P(WriterContract, SpacesAtTheEndsOfATextGoAwayInAWriterThatTrims) {
  this->writer_.CreateFile();
  this->Leaf("City", "  Vila  Real ");
  EXPECT_EQ(this->FinishedContent(), TypeParam::kTrims ? "<City>Vila  Real</City>" : "<City>  Vila  Real </City>");
}

TYPED_TEST_P(WriterContract, ElementsStandInTheOrderOfTheirCreation) {
  this->writer_.CreateFile();
  for (const ElementName name : std::vector<ElementName>{"City", "Address", "City", "Region"}) this->Leaf(name, "x");
  EXPECT_EQ(this->FinishedContent(), "<City>x</City><Address>x</Address><City>x</City><Region>x</Region>");
}

TYPED_TEST_P(WriterContract, ChildrenGoUnderTheParentHandedOut) {
  this->writer_.CreateFile();
  const Element customer = this->Container("Customer", this->Container("MasterFiles"));
  this->Leaf("CustomerID", "1", customer);
  const Element address = this->Container("BillingAddress", customer);
  this->Leaf("City", "Faro", address);
  this->writer_.EndElement("BillingAddress");
  this->Leaf("Fax", "21", customer);
  EXPECT_EQ(this->FinishedContent(),
            "<MasterFiles><Customer><CustomerID>1</CustomerID><BillingAddress><City>Faro</City></BillingAddress>"
            "<Fax>21</Fax></Customer></MasterFiles>");
}

TYPED_TEST_P(WriterContract, ElementUnderAnOuterParentFollowsTheInnerOneThatWasNotEnded) {
  this->writer_.CreateFile();
  const Element customer = this->Container("Customer");
  this->Leaf("City", "Faro", this->Container("BillingAddress", customer));
  this->Leaf("Fax", "21", customer);
  EXPECT_EQ(this->FinishedContent(),
            "<Customer><BillingAddress><City>Faro</City></BillingAddress><Fax>21</Fax></Customer>");
}

TYPED_TEST_P(WriterContract, ElementWithoutParentGoesUnderTheRootHoweverDeepTheLastOneWas) {
  this->writer_.CreateFile();
  this->Leaf("City", "Faro", this->Container("BillingAddress", this->Container("Customer")));
  this->Container("SourceDocuments");
  EXPECT_EQ(this->FinishedContent(),
            "<Customer><BillingAddress><City>Faro</City></BillingAddress></Customer><SourceDocuments/>");
}

TYPED_TEST_P(WriterContract, SecondElementOfANameFollowsTheFirst) {
  this->writer_.CreateFile();
  const Element masterFiles = this->Container("MasterFiles");
  for (const std::string_view id : {"1", "2"}) {
    this->Leaf("CustomerID", id, this->Container("Customer", masterFiles));
    this->writer_.EndElement("Customer");
  }
  EXPECT_EQ(this->FinishedContent(),
            "<MasterFiles><Customer><CustomerID>1</CustomerID></Customer>"
            "<Customer><CustomerID>2</CustomerID></Customer></MasterFiles>");
}

TYPED_TEST_P(WriterContract, EndingAnElementThatIsNotOpenWritesNothing) {
  this->writer_.CreateFile();
  const Element customer = this->Container("Customer");
  this->writer_.EndElement("Supplier");
  this->Leaf("Fax", "21", customer);
  EXPECT_EQ(this->FinishedContent(), "<Customer><Fax>21</Fax></Customer>");
}

TYPED_TEST_P(WriterContract, ElementsNeedNotBeEnded) {
  this->writer_.CreateFile();
  this->Leaf("City", "Faro", this->Container("BillingAddress", this->Container("Customer")));
  EXPECT_EQ(this->FinishedContent(), "<Customer><BillingAddress><City>Faro</City></BillingAddress></Customer>");
}

TYPED_TEST_P(WriterContract, EveryElementIsInTheNamespaceOfTheFileWithoutPrefix) {
  this->writer_.CreateFile();
  this->Leaf("City", "Faro", this->Container("Customer"));
  const XmlNode root = this->FinishedRoot();
  const XmlNode& customer = root.Child("Customer");
  for (const XmlNode* node : {&root, &customer, &customer.Child("City")}) {
    EXPECT_EQ(node->namespace_uri, kNamespace) << node->name;
    EXPECT_EQ(node->prefix, "") << node->name;
  }
  EXPECT_TRUE(customer.declarations.empty());
}

TYPED_TEST_P(WriterContract, TextsReadBackAsTheyWereWritten) {
  const std::vector<std::string> texts = {
      R"(<&">')",
      "]]>",
      "&amp;",
      "&#65;",
      "<City>",
      "a\tb",
      "a\nb",
      "S\u00e3o Jo\u00e3o d\u00e0 \u00c9vora",
      "10 \u20ac",
      "\u0152uvre \u2013 \u2018x\u2019",
      "\u03a9 \u6f22 \U0001F600",
      std::string(300'000, 'x'),
  };
  this->writer_.CreateFile();
  const Element parent = this->Container("Customer");
  for (const std::string& text : texts) this->Leaf("City", text, parent);
  const XmlNode root = this->FinishedRoot();
  const XmlNode& customer = root.Child("Customer");
  ASSERT_EQ(customer.children.size(), texts.size());
  for (size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(customer.children[i].Text(), texts[i]);
}

TYPED_TEST_P(WriterContract, ACharacterThatIsNotPlainMayStandAnywhereInATextOfAnyLength) {
  this->writer_.CreateFile();
  const Element parent = this->Container("Customer");
  std::vector<std::string> texts;
  for (size_t length = 0; length <= 33; ++length) {
    for (size_t at = 0; at <= length; ++at) {
      for (const std::string_view other : {"", "&", "\"", "\t", "\u00e9", "\u20ac", "\u03a9"}) {
        texts.push_back(std::string(at, 'x').append(other).append(length - at, 'x'));
        if (texts.back().empty()) texts.pop_back();
      }
    }
  }
  for (const std::string& text : texts) this->Leaf("City", text, parent);
  const XmlNode root = this->FinishedRoot();
  const XmlNode& customer = root.Child("Customer");
  ASSERT_EQ(customer.children.size(), texts.size());
  for (size_t i = 0; i < texts.size(); ++i) ASSERT_EQ(customer.children[i].Text(), texts[i]);
}

TYPED_TEST_P(WriterContract, CharactersOfTheCodePageAreOneByteEach) {
  this->writer_.CreateFile();
  this->Leaf("City", "\u00c9vora \u20ac");
  EXPECT_NE(this->Finish().find("<City>\xC9vora \x80</City>"), std::string::npos);
}

TYPED_TEST_P(WriterContract, CharactersThatTheCodePageLacksAreNumericReferences) {
  this->writer_.CreateFile();
  this->Leaf("City", "\u03a9\U0001F600");
  EXPECT_NE(this->Finish().find("<City>&#937;&#128512;</City>"), std::string::npos);
}

TYPED_TEST_P(WriterContract, ControlsThatTheCodePageLeavesUndefinedReadBack) {
  this->writer_.CreateFile();
  this->Leaf("City", "\u0081\u008d\u008f\u0090\u009d");
  EXPECT_EQ(this->FinishedRoot().Child("City").Text(), "\u0081\u008d\u008f\u0090\u009d");
}

TYPED_TEST_P(WriterContract, ForbiddenCharacterIsAnErrorBeforeAnyByteOfItsElement) {
  const std::vector<std::string> forbidden = {
      std::string("a\0b", 3), "a\x01",    "\x1f", "\xEF\xBF\xBE", "\xEF\xBF\xBF", "a\xC3", "\x80",
      "\xED\xA0\x80",         "\xC0\x80",
  };
  this->writer_.CreateFile();
  const Element customer = this->Container("Customer");
  this->Leaf("City", "Faro", customer);
  for (const std::string& text : forbidden) {
    EXPECT_ERROR(this->writer_.CreateElement("Fax", text, customer, false), RunTimeError::kInvalidCall, kRunTimeSource);
    EXPECT_ERROR(this->writer_.CreateElement("Fax", text, customer, true), RunTimeError::kInvalidCall, kRunTimeSource);
    EXPECT_ERROR(this->writer_.UpdateElement("Fax", text, customer, true), RunTimeError::kInvalidCall, kRunTimeSource);
  }
  this->Leaf("Email", "a@b", customer);
  EXPECT_EQ(this->FinishedContent(), "<Customer><City>Faro</City><Email>a@b</Email></Customer>");
}

TYPED_TEST_P(WriterContract, UpdateOfAnAbsentElementCreatesIt) {
  this->writer_.CreateFile();
  const Element section = this->Container("GeneralLedgerEntries");
  this->writer_.UpdateElement("NumberOfEntries", "1", section, true);
  this->writer_.UpdateElement("TotalDebit", ".00", section, false);
  EXPECT_EQ(this->FinishedContent(),
            "<GeneralLedgerEntries><NumberOfEntries>1</NumberOfEntries><TotalDebit>.00</TotalDebit>"
            "</GeneralLedgerEntries>");
}

TYPED_TEST_P(WriterContract, UpdateOfAnAbsentElementWithNoTextAndNotRequiredCreatesNothing) {
  this->writer_.CreateFile();
  this->writer_.UpdateElement("Fax", "", this->Container("Customer"), false);
  EXPECT_EQ(this->FinishedContent(), "<Customer/>");
}

TYPED_TEST_P(WriterContract, UpdateReplacesTheTextOrAppendsAnElement) {
  this->writer_.CreateFile();
  const Element section = this->Container("SalesInvoices");
  this->Leaf("TotalDebit", ".00", section);
  this->Leaf("TotalCredit", ".00", section);
  this->writer_.UpdateElement("TotalDebit", "12.50", section, true);
  EXPECT_EQ(this->FinishedContent(),
            TypeParam::kUpdatesInPlace
                ? "<SalesInvoices><TotalDebit>12.50</TotalDebit><TotalCredit>.00</TotalCredit></SalesInvoices>"
                : "<SalesInvoices><TotalDebit>.00</TotalDebit><TotalCredit>.00</TotalCredit>"
                  "<TotalDebit>12.50</TotalDebit></SalesInvoices>");
}

TYPED_TEST_P(WriterContract, FindsAnOpenContainer) {
  this->writer_.CreateFile();
  this->Container("MasterFiles");
  const Element found = this->writer_.GetElement("MasterFiles", {}, {});
  ASSERT_TRUE(found);
  EXPECT_EQ(found.Name(), "MasterFiles");
  this->Leaf("City", "Faro", found);
  EXPECT_EQ(this->FinishedContent(), "<MasterFiles><City>Faro</City></MasterFiles>");
}

TYPED_TEST_P(WriterContract, FindsTheInnerOneOfTwoNestedContainers) {
  this->writer_.CreateFile();
  this->Container("SalesInvoices", this->Container("SourceDocuments"));
  const Element outer = this->writer_.GetElement("SourceDocuments", {}, {});
  ASSERT_TRUE(outer);
  const Element inner = this->writer_.GetElement("SalesInvoices", outer, {});
  ASSERT_TRUE(inner);
  this->Leaf("City", "Faro", inner);
  EXPECT_EQ(this->FinishedContent(),
            "<SourceDocuments><SalesInvoices><City>Faro</City></SalesInvoices></SourceDocuments>");
}

TYPED_TEST_P(WriterContract, FindsNothingThatWasNeverCreated) {
  this->writer_.CreateFile();
  EXPECT_FALSE(this->writer_.GetElement("MasterFiles", {}, {}));
  this->Container("MasterFiles");
  EXPECT_FALSE(this->writer_.GetElement("Header", {}, {}));
}

TYPED_TEST_P(WriterContract, FindsAnElementThatWasEndedWhenItKeepsTheDocument) {
  this->writer_.CreateFile();
  this->Container("Header");
  this->writer_.EndElement("Header");
  EXPECT_EQ(static_cast<bool>(this->writer_.GetElement("Header", {}, {})), TypeParam::kFindsClosedElements);
}

TYPED_TEST_P(WriterContract, BeginsAnewAfterClose) {
  this->writer_.CreateFile();
  this->Leaf("City", "Faro");
  this->Finish();
  this->writer_.CreateFile();
  EXPECT_FALSE(this->writer_.GetElement("City", {}, {}));
  this->Leaf("Fax", "21");
  EXPECT_EQ(this->FinishedContent(), "<Fax>21</Fax>");
}

TYPED_TEST_P(WriterContract, AFileInAFolderThatIsNotThereIsAnError) {
  this->writer_.set_AuditFileName(this->folder_.Path("missing/audit.xml"));
  const Error error = ErrorOf([&] {
    this->writer_.CreateFile();
    this->writer_.SaveFile();
  });
  EXPECT_EQ(error.Number(), static_cast<int32_t>(RunTimeError::kPathNotFound));
}

REGISTER_TYPED_TEST_SUITE_P(
    WriterContract, KeepsTheFileNameItIsGiven, HasNoFileNameAtFirst, IsOpenBetweenCreateAndClose,
    ClosingAClosedWriterDoesNothing, NewDocumentHoldsDeclarationAndEmptyRootWithTwoNamespaces,
    OptionalElementWithoutTextIsLeftOut, OptionalElementWithTextIsWritten, RequiredElementWithoutTextIsWrittenEmpty,
    AnEmptyElementIsTwoTags, OptionalElementOfSpacesIsLeftOutByAWriterThatTrims,
    SpacesAtTheEndsOfATextGoAwayInAWriterThatTrims, ElementsStandInTheOrderOfTheirCreation,
    ChildrenGoUnderTheParentHandedOut, ElementUnderAnOuterParentFollowsTheInnerOneThatWasNotEnded,
    ElementWithoutParentGoesUnderTheRootHoweverDeepTheLastOneWas, SecondElementOfANameFollowsTheFirst,
    EndingAnElementThatIsNotOpenWritesNothing, ElementsNeedNotBeEnded,
    EveryElementIsInTheNamespaceOfTheFileWithoutPrefix, TextsReadBackAsTheyWereWritten,
    ACharacterThatIsNotPlainMayStandAnywhereInATextOfAnyLength, CharactersOfTheCodePageAreOneByteEach,
    CharactersThatTheCodePageLacksAreNumericReferences, ControlsThatTheCodePageLeavesUndefinedReadBack,
    ForbiddenCharacterIsAnErrorBeforeAnyByteOfItsElement, UpdateOfAnAbsentElementCreatesIt,
    UpdateOfAnAbsentElementWithNoTextAndNotRequiredCreatesNothing, UpdateReplacesTheTextOrAppendsAnElement,
    FindsAnOpenContainer, FindsTheInnerOneOfTwoNestedContainers, FindsNothingThatWasNeverCreated,
    FindsAnElementThatWasEndedWhenItKeepsTheDocument, BeginsAnewAfterClose, AFileInAFolderThatIsNotThereIsAnError);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_DAL_WRITERCONTRACT_H_
