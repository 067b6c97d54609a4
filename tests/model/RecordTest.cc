// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <limits>
#include <string>
#include <thread>
#include <type_traits>

#include "tests/model/SchemaText.h"
#include "tests/support/Errors.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using testing::ElementAt;
using testing::LimitedType;
using testing::SchemaLimiting;
using testing::SchemaOf;
using testing::UseSchema;
using testing::UseSchemaText;

static_assert(std::is_polymorphic_v<Record> && std::has_virtual_destructor_v<Record>);
static_assert(!std::is_copy_constructible_v<Customer> && !std::is_copy_assignable_v<Customer>);
// The path of an address is its owner's business.
template <class T>
concept ShowsItsPath = requires(T& record) {
  record.set_BasePath(BasePath::kHeader);
};
static_assert(!ShowsItsPath<AddressStructure> && !ShowsItsPath<ShippingPointStructure>);

std::string Times(size_t count, std::string_view piece) {
  std::string text;
  while (count-- > 0) text.append(piece);
  return text;
}

TEST(RecordTest, ACharacterCountsOnceWhateverItsBytes) {
  const UseSchema schema;
  for (const std::string_view character : {"a", "é", "€", "😀"}) {
    Customer customer;
    customer.set_CompanyName(Times(61, character));
    EXPECT_EQ(customer.CompanyName(), Times(60, character));
    customer.set_Fax(Times(20, character));
    EXPECT_EQ(customer.Fax(), Times(20, character));
  }
}

TEST(RecordTest, TheCutFallsBetweenCharactersOfDifferentWidths) {
  const UseSchemaText schema(SchemaLimiting({{"/AuditFile/GeneralLedgerEntries/Journal/JournalID", "4"}}));
  Journal journal;
  journal.set_JournalID("a€😀ção");
  EXPECT_EQ(journal.JournalID(), "a€😀ç");
}

TEST(RecordTest, ALongValueIsStoredWholeWhileValidationIsOff) {
  const UseSchema schema;
  Options().set_ValidateOnAssignment(false);
  Header header;
  header.set_CompanyName(Times(500, "x"));
  EXPECT_EQ(header.CompanyName(), Times(500, "x"));
}

TEST(RecordTest, ValidationWorksAgainOnceSwitchedOn) {
  const UseSchema schema;
  Header header;
  Options().set_ValidateOnAssignment(false);
  Options().set_ValidateOnAssignment(true);
  header.set_CompanyName(Times(500, "x"));
  EXPECT_EQ(header.CompanyName(), Times(60, "x"));
}

TEST(RecordTest, TheStoredValueIsComparedAndNotTheOneAssigned) {
  const UseSchema schema;
  Header header;
  header.set_CompanyName(Times(61, "x"));
  header.set_CompanyName(Times(61, "x"));
  EXPECT_EQ(header.CompanyName(), Times(60, "x"));
}

TEST(RecordTest, TextsAreComparedExactly) {
  Journal journal;
  journal.set_JournalID("vendas");
  journal.set_JournalID("VENDAS");
  EXPECT_EQ(journal.JournalID(), "VENDAS");
}

TEST(RecordTest, APartOfItsOwnValueCanBeAssigned) {
  const UseSchema schema;
  Journal journal;
  journal.set_JournalID("0123456789abcdefghijklmnopqrstuv");
  journal.set_JournalID(std::string_view(journal.JournalID()).substr(10));
  EXPECT_EQ(journal.JournalID(), "abcdefghijklmnopqrst");
}

// The two classes share a path, and each has its own elements under it.
TEST(RecordTest, RecordsOfOnePathAreLimitedEachByItsOwnElements) {
  const UseSchema schema;
  GeneralLedgerEntries entries;
  entries.set_NumberOfEntries(1);
  entries.set_TotalDebit(5);
  entries.set_TotalCredit(5);
  GeneralLedger account;
  account.set_AccountID(Times(100, "1"));
  account.set_AccountDescription(Times(100, "x"));
  EXPECT_EQ(account.AccountID(), Times(100, "1"));
  EXPECT_EQ(account.AccountDescription(), Times(60, "x"));
}

TEST(RecordTest, UnattachedRecordsAreLimitedEachByItsOwnElements) {
  const UseSchema schema;
  ShippingPointStructure point;
  point.set_DeliveryID(Times(100, "x"));
  point.set_DeliveryDate(Times(100, "x"));
  AddressStructure address;
  address.set_BuildingNumber(Times(100, "x"));
  address.set_StreetName(Times(100, "x"));
  EXPECT_EQ(point.DeliveryID(), Times(30, "x"));
  EXPECT_EQ(point.DeliveryDate(), Times(100, "x"));
  EXPECT_EQ(address.BuildingNumber(), Times(10, "x"));
  EXPECT_EQ(address.StreetName(), Times(50, "x"));
}

TEST(RecordTest, ALimitOfAnElementHoldsOnlyUnderItsPath) {
  const UseSchemaText schema(SchemaLimiting({{"/AuditFile/Header/CompanyName", "3"},
                                             {"/AuditFile/MasterFiles/Customer/CompanyName", "4"},
                                             {"/CompanyName", "5"}}));
  Header header;
  Customer customer;
  Supplier supplier;
  header.set_CompanyName("abcdefgh");
  customer.set_CompanyName("abcdefgh");
  supplier.set_CompanyName("abcdefgh");
  EXPECT_EQ(header.CompanyName(), "abc");
  EXPECT_EQ(customer.CompanyName(), "abcd");
  EXPECT_EQ(supplier.CompanyName(), "abcde");
}

TEST(RecordTest, LimitsAreThoseOfTheSchemaInUseNow) {
  Customer customer;
  {
    const UseSchemaText schema(SchemaLimiting({{"/CompanyName", "3"}}));
    customer.set_CompanyName("abcdefgh");
    EXPECT_EQ(customer.CompanyName(), "abc");
    const UseSchemaText other(SchemaLimiting({{"/CompanyName", "5"}}));
    customer.set_CompanyName("abcdefgh");
    EXPECT_EQ(customer.CompanyName(), "abcde");
    Options().set_SchemaLocation("/nowhere.xsd");
    customer.set_CompanyName("abcdefgh");
    EXPECT_EQ(customer.CompanyName(), "abcdefgh");
  }
}

TEST(RecordTest, ALengthThatIsNoNumberFailsTheAssignmentAndKeepsTheValue) {
  Journal journal;
  journal.set_JournalID("old");
  for (const std::string_view length : {"", "many", "1O", "10 characters"}) {
    const UseSchemaText schema(SchemaLimiting({{"/JournalID", length}}));
    EXPECT_ERROR(journal.set_JournalID("new"), 13, "ZevoAdapters11");
    EXPECT_EQ(journal.JournalID(), "old");
    Options().set_ValidateOnAssignment(false);
    journal.set_JournalID("unchecked");
    EXPECT_EQ(journal.JournalID(), "unchecked");
    journal.set_JournalID("old");
  }
}

TEST(RecordTest, ALengthBeyondSixteenBitsFailsTheAssignmentAndKeepsTheValue) {
  Journal journal;
  journal.set_JournalID("old");
  for (const std::string_view length : {"32768", "99999", "-32769", "9999999999999999999999"}) {
    const UseSchemaText schema(SchemaLimiting({{"/JournalID", length}}));
    EXPECT_ERROR(journal.set_JournalID("new"), 6, "ZevoAdapters11");
    EXPECT_EQ(journal.JournalID(), "old");
  }
}

TEST(RecordTest, LengthsReachFromZeroToTheGreatestOfSixteenBits) {
  Journal journal;
  {
    const UseSchemaText schema(SchemaLimiting({{"/JournalID", "32767"}}));
    journal.set_JournalID(Times(32768, "x"));
    EXPECT_EQ(journal.JournalID(), Times(32767, "x"));
  }
  const UseSchemaText schema(SchemaLimiting({{"/JournalID", "0"}}));
  journal.set_JournalID("anything");
  EXPECT_EQ(journal.JournalID(), "");
}

TEST(RecordTest, ABrokenLengthFailsAmountsCountsAndFlagsToo) {
  const UseSchemaText schema(
      SchemaLimiting({{"/DebitAmount", "many"}, {"/LineNumber", "some"}, {"/SelfBillingIndicator", "few"}}));
  InvoiceLine line;
  EXPECT_ERROR(line.set_DebitAmount(5), 13, "ZevoAdapters11");
  EXPECT_ERROR(line.set_LineNumber(1), 13, "ZevoAdapters11");
  EXPECT_EQ(line.DebitAmount(), 0);
  EXPECT_EQ(line.LineNumber(), 0);
  Customer customer;
  EXPECT_ERROR(customer.set_SelfBillingIndicator(true), 13, "ZevoAdapters11");
  EXPECT_FALSE(customer.SelfBillingIndicator());
}

TEST(RecordTest, DefaultsPassThroughValidation) {
  const UseSchemaText schema(SchemaLimiting(
      {{"/Country", "1"}, {"/AuditFile/Header/CurrencyCode", "2"}, {"/AuditFile/Header/DateCreated", "4"}}));
  const Header header;
  EXPECT_EQ(header.CompanyAddress()->Country(), "P");
  EXPECT_EQ(header.CurrencyCode(), "EU");
  EXPECT_EQ(header.DateCreated().size(), 4U);
}

TEST(RecordTest, EachThreadHasItsOwnLimits) {
  const UseSchemaText schema(SchemaLimiting({{"/CompanyName", "3"}}));
  Customer customer;
  std::thread([&] {
    const UseSchemaText other(SchemaLimiting({{"/CompanyName", "5"}}));
    customer.set_CompanyName("abcdefgh");
  }).join();
  EXPECT_EQ(customer.CompanyName(), "abcde");
  customer.set_CompanyName("abcdefgh");
  EXPECT_EQ(customer.CompanyName(), "abc");
}

}  // namespace
}  // namespace zevo
