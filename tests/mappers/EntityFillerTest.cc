// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/EntityFiller.h>

#include <gtest/gtest.h>
#include <zevo/adapters.h>
#include <zevo/dal/EntityScanner.h>
#include <zevo/mappers/EntityMapper.h>
#include <zevo/mappers/Layouts.h>

#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/RecordValues.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {

void PrintTo(const Problem& problem, std::ostream* out) {
  *out << static_cast<int>(problem.fault) << " " << problem.path << " \"" << problem.text << '"';
}

namespace {

/// What a record came to hold.
template <class R>
struct Filled {
  std::shared_ptr<R> record;
  std::vector<std::pair<Fault, std::string>> problems;  // with their paths
};

using Told = std::vector<std::pair<Fault, std::string>>;

class EntityFillerTest : public ::testing::Test {
 protected:
  /// The record of the only entity in a file.
  template <class R>
  Filled<R> Fill(std::string_view xml) {
    EntityScanner scanner(
        folder_.Write("file.xml", std::string("<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'>")
                                      .append(xml)
                                      .append("</AuditFile>")));
    scanner.Open("");
    ScannedEntity* const entity = scanner.Next("");
    if (entity == nullptr) throw std::logic_error("no entity");
    Filled<R> filled{std::dynamic_pointer_cast<R>(FillRecord(*entity)), {}};
    for (const Problem& problem : entity->Problems()) {
      // The root is no place for most entities.
      if (problem.path.empty()) continue;
      filled.problems.emplace_back(problem.fault, problem.path);
      const auto element = entity->Find(problem.path);
      if (!element) continue;
      EXPECT_EQ(problem.text, entity->TextOf(*element)) << problem.path;
      EXPECT_EQ(problem.place, entity->PlaceOf(*element)) << problem.path;
    }
    return filled;
  }

  testing::TemporaryFolder folder_;
};

// An entity with nothing inside: whatever a new record has of its own is not in the file.
template <class R>
class EmptyEntityTest : public EntityFillerTest {};
using Entities = ::testing::Types<Header, GeneralLedger, Customer, Supplier, Product, TaxTable, GeneralLedgerEntries,
                                  Journal, Transaction, SalesInvoices, Invoice>;
TYPED_TEST_SUITE(EmptyEntityTest, Entities);

TYPED_TEST(EmptyEntityTest, GivesARecordWithoutAnyValue) {
  const std::string name(NameOf(*TypeParam().Kind()));
  const Filled<TypeParam> filled = this->template Fill<TypeParam>("<" + name + "/>");
  ASSERT_NE(filled.record, nullptr);
  EXPECT_EQ(filled.problems, Told());
  WalkProperties(*filled.record, [](std::string_view path, const Property& property, const Record& owner) {
    if (property.type == PropertyType::kCollection) {
      EXPECT_EQ(property.count(owner), 0) << path;
    } else if (property.set != nullptr) {
      const std::string value = testing::TextOf(property.get(owner));
      EXPECT_TRUE(value.empty() || value == "0" || value == "false" || value == "null") << path << " " << value;
    }
  });
}

TEST_F(EntityFillerTest, AnAddressWithoutACountryHasNone) {
  const auto filled =
      Fill<Customer>("<Customer><BillingAddress><City>Faro</City></BillingAddress><ShipToAddress/></Customer>");
  EXPECT_EQ(filled.record->BillingAddress()->City(), "Faro");
  EXPECT_EQ(filled.record->BillingAddress()->Country(), "");
  ASSERT_NE(filled.record->ShipToAddress(), nullptr);
  EXPECT_EQ(filled.record->ShipToAddress()->Country(), "");
}

TEST_F(EntityFillerTest, TextsAreWholeAndAsTheyStandWhateverTheSchema) {
  const testing::UseSchema schema;
  const std::string text = " \t\n" + std::string(600, 'x') + "&quot; ";
  const auto filled = Fill<Customer>("<Customer><CompanyName>" + text + "</CompanyName></Customer>");
  EXPECT_EQ(filled.record->CompanyName(), " \t\n" + std::string(600, 'x') + "\" ");
  EXPECT_EQ(filled.problems, Told());
}

TEST_F(EntityFillerTest, WhatTheOtherReadersLeaveOutIsSetToo) {
  const auto header = Fill<Header>(
      "<Header><BusinessName>B</BusinessName><TaxEntity>Sede</TaxEntity>"
      "<SoftwareCertificateNumber>7</SoftwareCertificateNumber><Website>w</Website></Header>");
  EXPECT_EQ(header.record->BusinessName(), "B");
  EXPECT_EQ(header.record->TaxEntity(), "Sede");
  EXPECT_EQ(header.record->SoftwareCertificateNumber(), "7");
  EXPECT_EQ(header.record->Website(), "w");
  EXPECT_EQ(header.problems, Told());
  const auto invoice = Fill<Invoice>(
      "<Invoice><Hash>h</Hash><HashControl>1</HashControl><SelfBillingIndicator>1</SelfBillingIndicator></Invoice>");
  EXPECT_EQ(invoice.record->Hash(), "h");
  EXPECT_EQ(invoice.record->HashControl(), "1");
  EXPECT_TRUE(invoice.record->SelfBillingIndicator());
}

TEST_F(EntityFillerTest, OfARepeatedElementTheFirstCountsEvenIfItIsEmpty) {
  const auto filled = Fill<Customer>(
      "<Customer><Fax/><Fax>2</Fax><BillingAddress/><BillingAddress><City>Faro</City></BillingAddress></Customer>");
  EXPECT_EQ(filled.record->Fax(), "");
  EXPECT_EQ(filled.record->BillingAddress()->City(), "");
  EXPECT_EQ(filled.problems, (Told{{Fault::kRepeated, "Fax[2]"},
                                   {Fault::kOutOfOrder, "BillingAddress[1]"},
                                   {Fault::kRepeated, "BillingAddress[2]"}}));
}

TEST_F(EntityFillerTest, ATextIsItsOwnElementsAndNoneFromFurtherInside) {
  const auto filled = Fill<Transaction>(
      "<Transaction><Extra><Description>no</Description></Extra><Line><Description>line</Description></Line>"
      "</Transaction>");
  EXPECT_EQ(filled.record->Description(), "");
  EXPECT_EQ(filled.record->Line()->Item(1)->Description(), "line");
  EXPECT_EQ(filled.problems, (Told{{Fault::kUnknownElement, "Extra"}}));
}

TEST_F(EntityFillerTest, ElementsInsideATextAreToldOnce) {
  const auto filled = Fill<Product>("<Product><ProductCode>A<b><c/></b>B</ProductCode></Product>");
  EXPECT_EQ(filled.record->ProductCode(), "A");
  EXPECT_EQ(filled.problems, (Told{{Fault::kUnknownElement, "ProductCode/text()"},
                                   {Fault::kUnknownElement, "ProductCode/text()"},
                                   {Fault::kUnknownElement, "ProductCode/b"}}));
}

TEST_F(EntityFillerTest, ANumberThatIsTooLargeIsLeftOutAndToldAsOne) {
  const auto filled = Fill<Invoice>(
      "<Invoice><Line><LineNumber>99999999999</LineNumber><CreditAmount>99999999999999999999.5</CreditAmount></Line>"
      "</Invoice>");
  EXPECT_EQ(filled.record->Line()->Item(1)->CreditAmount(), Amount());
  EXPECT_EQ(filled.problems, (Told{{Fault::kInexact, "Line/LineNumber"}, {Fault::kInexact, "Line/CreditAmount"}}));
  const auto none =
      Fill<Invoice>("<Invoice><Line><LineNumber>1.5</LineNumber><CreditAmount>1e5</CreditAmount></Line></Invoice>");
  EXPECT_EQ(none.problems, (Told{{Fault::kUnreadable, "Line/LineNumber"}, {Fault::kUnreadable, "Line/CreditAmount"}}));
}

TEST_F(EntityFillerTest, NumbersAreReadByTheSchemaAndToldWhereTheyAreNone) {
  const auto filled = Fill<TaxTable>(
      "<TaxTable>"
      "<TaxTableEntry><TaxPercentage>23</TaxPercentage></TaxTableEntry>"
      "<TaxTableEntry><TaxPercentage> +6.5000 </TaxPercentage></TaxTableEntry>"
      "<TaxTableEntry><TaxPercentage>6.00001</TaxPercentage></TaxTableEntry>"
      "<TaxTableEntry><TaxPercentage>1,5</TaxPercentage></TaxTableEntry>"
      "<TaxTableEntry><TaxPercentage/></TaxTableEntry>"
      "<TaxTableEntry><TaxType>IS</TaxType><TaxAmount>1</TaxAmount></TaxTableEntry>"
      "</TaxTable>");
  const auto& entries = *filled.record->TaxTableEntry();
  ASSERT_EQ(entries.Count(), 6);
  EXPECT_EQ(entries.Item(1)->TaxPercentage(), Amount(23));
  EXPECT_EQ(entries.Item(2)->TaxPercentage(), Amount::FromScaled(65'000));
  EXPECT_EQ(entries.Item(3)->TaxPercentage(), Amount(6));
  EXPECT_EQ(entries.Item(4)->TaxPercentage(), Amount());
  EXPECT_EQ(entries.Item(6)->TaxAmount(), Amount(1));
  EXPECT_EQ(filled.problems, (Told{{Fault::kInexact, "TaxTableEntry[3]/TaxPercentage"},
                                   {Fault::kUnreadable, "TaxTableEntry[4]/TaxPercentage"},
                                   {Fault::kUnreadable, "TaxTableEntry[5]/TaxPercentage"},
                                   {Fault::kConstant, "TaxTableEntry[6]/TaxType"}}));
}

TEST_F(EntityFillerTest, ACodeIsOneOfTheListToTheLetter) {
  const auto filled = Fill<Product>("<Product><ProductType> P</ProductType></Product>");
  EXPECT_EQ(static_cast<int>(filled.record->ProductType()), 0);
  EXPECT_EQ(filled.problems, (Told{{Fault::kUnknownCode, "ProductType"}}));
}

TEST_F(EntityFillerTest, LinesWithATakenKeyStayInTheirOrder) {
  const auto filled = Fill<Transaction>(
      "<Transaction><Line><RecordID>a</RecordID></Line><Line><RecordID>A</RecordID><AccountID>2</AccountID></Line>"
      "<Line/><Line><AccountID>4</AccountID></Line></Transaction>");
  const auto& lines = *filled.record->Line();
  ASSERT_EQ(lines.Count(), 4);
  EXPECT_EQ(lines.Item("a"), lines.Item(1));
  EXPECT_EQ(lines.Item(2)->AccountID(), "2");
  EXPECT_EQ(lines.Item(4)->AccountID(), "4");
  EXPECT_EQ(filled.problems, (Told{{Fault::kKeyTaken, "Line[2]/RecordID"}, {Fault::kKeyTaken, "Line[4]"}}));
}

// Every row of a layout is told to be out of place where it stands before the one that comes before it.
TEST_F(EntityFillerTest, ElementsInAnyOrderAreSetAndTold) {
  const auto filled = Fill<Product>(
      "<Product><ProductNumberCode>n</ProductNumberCode><ProductDescription>d</ProductDescription>"
      "<ProductCode>c</ProductCode></Product>");
  EXPECT_EQ(filled.record->ProductNumberCode(), "n");
  EXPECT_EQ(filled.record->ProductDescription(), "d");
  EXPECT_EQ(filled.record->ProductCode(), "c");
  EXPECT_EQ(filled.problems, (Told{{Fault::kOutOfOrder, "ProductDescription"}, {Fault::kOutOfOrder, "ProductCode"}}));
}

// The filler marks the rows that it has seen by the bits of a number.
TEST_F(EntityFillerTest, NoLayoutHasMoreRowsThanTheFillerCanMark) {
  for (const EntityKind kind : EntityKinds()) EXPECT_LE(LayoutOf(*NewRecord(kind)).size(), 64u);
}

}  // namespace
}  // namespace zevo
