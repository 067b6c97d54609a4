// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_DAL_READERCONTRACT_H_
#define ZEVO_TESTS_DAL_READERCONTRACT_H_

#include <gtest/gtest.h>
#include <zevo/Error.h>
#include <zevo/dal/IDALReader.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {

/// What is true of every reader, once it holds the elements of a transaction, whether as part of the whole file or by
/// themselves. An implementation joins with a harness:
///
///     struct SomeReaderHarness {
///       using Reader = SomeReader;                 // constructs by default
///       static constexpr bool kGivesLists = true;  // GetElements gives a list, else none at all
///       // Reads the file, in which a transaction stands, and calls `test` while the reader holds that transaction.
///       static void Read(Reader& reader, const std::function<void(Element transaction)>& test);
///     };
///     INSTANTIATE_TYPED_TEST_SUITE_P(SomeReader, ReaderContract, SomeReaderHarness);
template <class Harness>
class ReaderContract : public ::testing::Test {
 protected:
  /// A file with one transaction of that content.
  void SetFile(std::string_view transaction) {
    reader_.set_AuditFileName(folder_.Write(
        "audit.xml",
        std::string("<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n"
                    "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\">\n<GeneralLedgerEntries>"
                    "<Journal><JournalID>J1</JournalID><Transaction>")
            .append(transaction)
            .append("</Transaction></Journal></GeneralLedgerEntries></AuditFile>")));
  }

  /// Calls `test` while the reader holds a transaction of that content; fails when it is not called.
  void WithTransaction(std::string_view content, const std::function<void(Element transaction)>& test) {
    SetFile(content);
    int calls = 0;
    Harness::Read(reader_, [&](Element transaction) {
      ++calls;
      ASSERT_TRUE(transaction);
      ASSERT_EQ(transaction.Name(), "Transaction");
      test(transaction);
    });
    EXPECT_EQ(calls, 1);
  }

  /// The texts of a child of each element that a walk comes to.
  std::vector<std::string> Walk(ElementName name, Element parent, std::string_view child) {
    std::vector<std::string> texts;
    for (Element at = reader_.GetFirstElement(name, parent); at; at = reader_.GetNextElement(name)) {
      texts.push_back(Text(at, child));
    }
    return texts;
  }

  std::string Text(Element parent, std::string_view child) {
    const Element found = reader_.GetElement(child, parent, {});
    return found ? found.AllText() : "(none)";
  }

  static constexpr std::string_view kThreeLines =
      "<Line><RecordID>1</RecordID></Line><CustomerID>C</CustomerID>"
      "<Line><RecordID>2</RecordID></Line><Line><RecordID>3</RecordID></Line>";

  using Texts = std::vector<std::string>;

  TemporaryFolder folder_;
  typename Harness::Reader reader_;
};

TYPED_TEST_SUITE_P(ReaderContract);

TYPED_TEST_P(ReaderContract, KeepsTheFileNameItIsGiven) {
  EXPECT_EQ(this->reader_.AuditFileName(), "");
  this->reader_.set_AuditFileName("name");
  EXPECT_EQ(this->reader_.AuditFileName(), "name");
}

TYPED_TEST_P(ReaderContract, IsOpenBetweenOpenAndClose) {
  this->SetFile("");
  EXPECT_FALSE(this->reader_.IsOpen());
  this->reader_.OpenFile();
  EXPECT_TRUE(this->reader_.IsOpen());
  this->reader_.ReadFile();
  EXPECT_TRUE(this->reader_.IsOpen());
  this->reader_.CloseFile();
  EXPECT_FALSE(this->reader_.IsOpen());
}

TYPED_TEST_P(ReaderContract, ClosingAClosedReaderDoesNothing) {
  this->reader_.CloseFile();
  EXPECT_FALSE(this->reader_.IsOpen());
}

TYPED_TEST_P(ReaderContract, FileThatIsNotWellFormedCannotBeRead) {
  this->reader_.set_AuditFileName(this->folder_.Write("audit.xml", "<AuditFile><Header></AuditFile>"));
  const Error error = ErrorOf([&] {
    this->reader_.OpenFile();
    this->reader_.ReadFile();
  });
  EXPECT_GT(error.Number(), 0);
  EXPECT_NE(error.Description(), "");
}

TYPED_TEST_P(ReaderContract, FileThatIsNotThereCannotBeRead) {
  this->reader_.set_AuditFileName(this->folder_.Path("missing.xml"));
  EXPECT_NE(ErrorOf([&] {
              this->reader_.OpenFile();
              this->reader_.ReadFile();
            }).Number(),
            0);
}

TYPED_TEST_P(ReaderContract, GetElementGivesTheFirstChildOfTheName) {
  this->WithTransaction("<Period>1</Period><Line/><Period>2</Period>",
                        [&](Element transaction) { EXPECT_EQ(this->Text(transaction, "Period"), "1"); });
}

TYPED_TEST_P(ReaderContract, GetElementGivesNothingWhereThereIsNone) {
  this->WithTransaction("<Period>1</Period>", [&](Element transaction) {
    EXPECT_FALSE(this->reader_.GetElement("Line", transaction, {}));
    EXPECT_FALSE(this->reader_.GetElement("period", transaction, {}));
    EXPECT_FALSE(this->reader_.GetElement("Peri", transaction, {}));
  });
}

TYPED_TEST_P(ReaderContract, GetElementFindsChildrenOnly) {
  this->WithTransaction("<Line><RecordID>1</RecordID></Line>", [&](Element transaction) {
    EXPECT_FALSE(this->reader_.GetElement("RecordID", transaction, {}));
  });
}

TYPED_TEST_P(ReaderContract, QueryChoosesByTheWholeTextOfAChild) {
  this->WithTransaction(this->kThreeLines, [&](Element transaction) {
    EXPECT_EQ(this->Text(this->reader_.GetElement("Line", transaction, "[RecordID = \"2\"]"), "RecordID"), "2");
    EXPECT_FALSE(this->reader_.GetElement("Line", transaction, "[RecordID = \"23\"]"));
    EXPECT_FALSE(this->reader_.GetElement("Line", transaction, "[RecordID = \"\"]"));
  });
}

TYPED_TEST_P(ReaderContract, QueryFindsTheFirstOfSeveralMatches) {
  this->WithTransaction(
      "<Line><RecordID>1</RecordID><AccountID>a</AccountID></Line><Line><RecordID>1</RecordID>"
      "<AccountID>b</AccountID></Line>",
      [&](Element transaction) {
        EXPECT_EQ(this->Text(this->reader_.GetElement("Line", transaction, "[RecordID = \"1\"]"), "AccountID"), "a");
      });
}

TYPED_TEST_P(ReaderContract, QueryThatIsNoExpressionIsAnError) {
  this->WithTransaction(this->kThreeLines, [&](Element transaction) {
    for (const std::string_view query : {"[RecordID = \"1\" or \"1\"=\"1\"]", "[RecordID = \"a\"b\"]", "[", "]"}) {
      EXPECT_EQ(ErrorOf([&] { this->reader_.GetElement("Line", transaction, query); }).Number(), 1207) << query;
    }
  });
}

TYPED_TEST_P(ReaderContract, WalkGivesTheChildrenOfANameInOrder) {
  this->WithTransaction(this->kThreeLines, [&](Element transaction) {
    EXPECT_EQ(this->Walk("Line", transaction, "RecordID"), (typename TestFixture::Texts{"1", "2", "3"}));
  });
}

TYPED_TEST_P(ReaderContract, WalkWithoutChildrenOfTheNameGivesNothing) {
  this->WithTransaction("<Period>1</Period>",
                        [&](Element transaction) { EXPECT_FALSE(this->reader_.GetFirstElement("Line", transaction)); });
}

TYPED_TEST_P(ReaderContract, WalkBegunAgainStartsFromTheFront) {
  this->WithTransaction(this->kThreeLines, [&](Element transaction) {
    this->reader_.GetFirstElement("Line", transaction);
    this->reader_.GetNextElement("Line");
    EXPECT_EQ(this->Walk("Line", transaction, "RecordID"), (typename TestFixture::Texts{"1", "2", "3"}));
  });
}

TYPED_TEST_P(ReaderContract, WalkBegunUnderAnotherParentReplacesTheUnfinishedOne) {
  this->WithTransaction(
      "<References><CreditNote><Reason>a</Reason></CreditNote><CreditNote><Reason>b</Reason></CreditNote></References>"
      "<Tax><CreditNote><Reason>c</Reason></CreditNote></Tax>",
      [&](Element transaction) {
        this->reader_.GetFirstElement("CreditNote", this->reader_.GetElement("References", transaction, {}));
        EXPECT_EQ(this->Walk("CreditNote", this->reader_.GetElement("Tax", transaction, {}), "Reason"),
                  (typename TestFixture::Texts{"c"}));
      });
}

TYPED_TEST_P(ReaderContract, WalksOfDifferentNamesAreIndependent) {
  this->WithTransaction(
      "<Line><RecordID>1</RecordID><CreditNote><Reason>a</Reason></CreditNote><CreditNote><Reason>b</Reason>"
      "</CreditNote></Line><Line><RecordID>2</RecordID></Line>",
      [&](Element transaction) {
        const Element line = this->reader_.GetFirstElement("Line", transaction);
        EXPECT_EQ(this->Walk("CreditNote", line, "Reason"), (typename TestFixture::Texts{"a", "b"}));
        EXPECT_EQ(this->Text(this->reader_.GetNextElement("Line"), "RecordID"), "2");
      });
}

TYPED_TEST_P(ReaderContract, LookUpsLeaveAWalkWhereItIs) {
  this->WithTransaction(this->kThreeLines, [&](Element transaction) {
    this->reader_.GetFirstElement("Line", transaction);
    this->reader_.GetElement("Line", transaction, {});
    this->reader_.GetElements("Line", transaction, {});
    EXPECT_EQ(this->Text(this->reader_.GetNextElement("Line"), "RecordID"), "2");
  });
}

TYPED_TEST_P(ReaderContract, ListHoldsAllMatchesInOrderWhereTheReaderGivesLists) {
  this->WithTransaction(this->kThreeLines, [&](Element transaction) {
    const auto lines = this->reader_.GetElements("Line", transaction, {});
    ASSERT_EQ(lines.has_value(), TypeParam::kGivesLists);
    if (!lines) return;
    typename TestFixture::Texts ids;
    for (const Element line : *lines) ids.push_back(this->Text(line, "RecordID"));
    EXPECT_EQ(ids, (typename TestFixture::Texts{"1", "2", "3"}));
    EXPECT_EQ(this->reader_.GetElements("Line", transaction, "[RecordID = \"2\"]")->size(), 1U);
    EXPECT_EQ(this->reader_.GetElements("Tax", transaction, {})->size(), 0U);
  });
}

TYPED_TEST_P(ReaderContract, TextsAreDecodedFromTheCodePageOfTheFile) {
  this->WithTransaction("<Description>S\xE3o &amp; \x80 &#937;</Description>", [&](Element transaction) {
    EXPECT_EQ(this->Text(transaction, "Description"), "S\u00e3o & \u20ac \u03a9");
  });
}

REGISTER_TYPED_TEST_SUITE_P(ReaderContract, KeepsTheFileNameItIsGiven, IsOpenBetweenOpenAndClose,
                            ClosingAClosedReaderDoesNothing, FileThatIsNotWellFormedCannotBeRead,
                            FileThatIsNotThereCannotBeRead, GetElementGivesTheFirstChildOfTheName,
                            GetElementGivesNothingWhereThereIsNone, GetElementFindsChildrenOnly,
                            QueryChoosesByTheWholeTextOfAChild, QueryFindsTheFirstOfSeveralMatches,
                            QueryThatIsNoExpressionIsAnError, WalkGivesTheChildrenOfANameInOrder,
                            WalkWithoutChildrenOfTheNameGivesNothing, WalkBegunAgainStartsFromTheFront,
                            WalkBegunUnderAnotherParentReplacesTheUnfinishedOne, WalksOfDifferentNamesAreIndependent,
                            LookUpsLeaveAWalkWhereItIs, ListHoldsAllMatchesInOrderWhereTheReaderGivesLists,
                            TextsAreDecodedFromTheCodePageOfTheFile);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_DAL_READERCONTRACT_H_
