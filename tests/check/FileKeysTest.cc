// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <zevo/check/FileKeys.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FileKeysTest : public testing::FactsTest {
 protected:
  // Takes customers of these identifiers; tells of each whether it is repeated: "-R".
  static std::string Customer(std::string_view id) { return "<CustomerID>" + std::string(id) + "</CustomerID>"; }
  std::string TakeCustomers(FileKeys& keys, const std::vector<std::string>& contents) {
    std::string repeated;
    ForEachMaster<PartyFacts>(EntityKind::kCustomer, contents, [&](const PartyFacts& facts) {
      keys.Take(facts);
      repeated += keys.IsRepeated() ? 'R' : '-';
    });
    return repeated;
  }
  void UseCustomers(FileKeys& keys, const std::vector<std::string>& ids) {
    std::vector<std::string> invoices;
    for (const std::string& id : ids) invoices.push_back(Customer(id));
    ForEachInvoice(invoices,
                   [&](const InvoiceFacts& facts) { keys.Add(FileKeys::Use::kCustomer, facts, facts.customer); });
  }
  static std::vector<std::string> Dangling(const FileKeys& keys) {
    std::vector<std::string> texts;
    for (const KeptElement* const kept : keys.DanglingOf(FileKeys::Use::kCustomer).kept) {
      texts.push_back(kept->path + " " + kept->text);
    }
    return texts;
  }

  FileKeys keys_{0};
};

TEST_F(FileKeysTest, KeysAreThoseOfTheirKind) {
  EXPECT_EQ(TakeCustomers(keys_, {Customer("C1"), Customer("C2"), Customer("C1"), Customer("c1"), Customer("C1 ")}),
            "--R--");
  EXPECT_EQ(keys_.CountOf(EntityKind::kCustomer), 4U);
  EXPECT_TRUE(keys_.Has(EntityKind::kCustomer, "C2"));
  EXPECT_FALSE(keys_.Has(EntityKind::kSupplier, "C2"));
  EXPECT_FALSE(keys_.Has(EntityKind::kCustomer, "C3"));
  EXPECT_TRUE(keys_.IsComplete(EntityKind::kCustomer));
}

TEST_F(FileKeysTest, UsesOfKeysThatComeLaterDoNotDangle) {
  UseCustomers(keys_, {"C1", "C2", "C3", "C2"});
  TakeCustomers(keys_, {Customer("C1"), Customer("C3")});
  UseCustomers(keys_, {"C3", "C4"});
  EXPECT_THAT(Dangling(keys_), ElementsAre("CustomerID C2", "CustomerID C2", "CustomerID C4"));
  EXPECT_EQ(keys_.DanglingOf(FileKeys::Use::kCustomer).more, 0U);
  EXPECT_THAT(keys_.DanglingOf(FileKeys::Use::kSupplier).kept, IsEmpty());
}

TEST_F(FileKeysTest, OnlySoManyUsesAreKept) {
  FileKeys keys(2);
  UseCustomers(keys, {"C1", "C2", "C3", "C4", "C5"});
  TakeCustomers(keys, {Customer("C1"), Customer("C5")});
  EXPECT_THAT(Dangling(keys), ElementsAre("CustomerID C2"));
  EXPECT_EQ(keys.DanglingOf(FileKeys::Use::kCustomer).more, 2U);
}

TEST_F(FileKeysTest, WhereAnEntityHasNoKeyAnythingMayMeanIt) {
  UseCustomers(keys_, {"C2"});
  EXPECT_EQ(TakeCustomers(keys_, {Customer("C1"), "<CompanyName>X</CompanyName>"}), "--");
  EXPECT_FALSE(keys_.IsComplete(EntityKind::kCustomer));
  EXPECT_THAT(Dangling(keys_), IsEmpty());
  EXPECT_TRUE(keys_.IsComplete(EntityKind::kSupplier));
}

TEST_F(FileKeysTest, KeysMayBeKeptElsewhere) {
  keys_.TakeKnown(true);
  EXPECT_TRUE(keys_.IsRepeated());
  keys_.TakeKnown(false);
  EXPECT_FALSE(keys_.IsRepeated());
  EXPECT_EQ(keys_.CountOf(EntityKind::kInvoice), 0U);
}

}  // namespace
}  // namespace zevo
