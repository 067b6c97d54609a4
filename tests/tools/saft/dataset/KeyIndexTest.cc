// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/KeyIndex.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/ChosenKeys.h"
#include "tests/support/Sanitizers.h"
#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

struct UniqueKey {
  const char* file;
  const char* key;
  const char* parent = "";  ///< parent column, whose cell is always P
};

class KeyIndexUniqueKeyTest : public testing::ToolTest, public ::testing::WithParamInterface<UniqueKey> {
 protected:
  void WriteKeys(const std::string& first, const std::string& second) const {
    const std::string parent = GetParam().parent;
    const std::string cell = parent.empty() ? "" : "P,";
    Write("journals.csv", "JournalID\nP\n");
    Write("transactions.csv", "JournalID,TransactionID\n");
    Write(GetParam().file,
          (parent.empty() ? "" : parent + ",") + GetParam().key + "\n" + cell + first + "\n" + cell + second + "\n");
  }
};

TEST_P(KeyIndexUniqueKeyTest, ADuplicateIsRefused) {
  WriteKeys("K", "K");
  ExpectRefused(In(GetParam().file) + ":3: " + GetParam().key + ": \"K\": duplicate, row 2 has it already");
}

TEST_P(KeyIndexUniqueKeyTest, KeysDifferInLetterCase) {
  WriteKeys("k", "K");
  ExpectCreated();
}

INSTANTIATE_TEST_SUITE_P(All, KeyIndexUniqueKeyTest,
                         ::testing::Values(UniqueKey{"general_ledger.csv", "AccountID"},
                                           UniqueKey{"customers.csv", "CustomerID"},
                                           UniqueKey{"suppliers.csv", "SupplierID"},
                                           UniqueKey{"products.csv", "ProductCode"},
                                           UniqueKey{"journals.csv", "JournalID"},
                                           UniqueKey{"transactions.csv", "TransactionID", "JournalID"},
                                           UniqueKey{"invoices.csv", "InvoiceNo"}));

TEST(KeyIndex, FindsTheRowOfEachKey) {
  constexpr uint32_t kRows = 100'000;
  saft::KeyIndex index;
  for (uint32_t row = 1; row <= kRows; ++row) ASSERT_EQ(index.Add("K" + std::to_string(row), row), std::nullopt);
  EXPECT_EQ(index.Add("K7", kRows + 1), 7U);
  for (uint32_t row = 1; row <= kRows; ++row) ASSERT_EQ(index.Find("K" + std::to_string(row)), row);
  EXPECT_EQ(index.Find("K0"), std::nullopt);
  EXPECT_EQ(index.Find("K7#"), std::nullopt);
  EXPECT_EQ(saft::KeyIndex().Find("K7"), std::nullopt);
}

class KeyIndexTest : public testing::ToolTest {};

TEST_F(KeyIndexTest, KeysThatTheSchemaMakesEqualAreDuplicates) {
  const std::string long_key(30, 'K');
  Write("customers.csv", "CustomerID\n" + long_key + "a\n" + long_key + "b\n");
  ExpectRefused(In("customers.csv") + ":3: CustomerID: \"" + long_key + "b\": duplicate, row 2 has it already");
}

TEST_F(KeyIndexTest, TaxRatesHaveNoKey) {
  Write("tax_table.csv", "TaxCountryRegion,TaxCode,TaxPercentage\nPT,NOR,21\nPT,NOR,23\n");
  ExpectCreated();
  EXPECT_THAT(Texts("TaxPercentage"), ElementsAre("21", "23"));
}

// Somebody may choose the keys: they take no longer than any others.
TEST_F(KeyIndexTest, ChosenKeysTakeNoLongerThanOthers) {
  if (testing::kSanitized) GTEST_SKIP() << "a sanitizer distorts time";
  const std::vector<std::string> keys = testing::KeysOfOneHash(20'000);
  std::string journals = "JournalID\n";
  std::string transactions = "JournalID,TransactionID\n";
  for (const std::string& key : keys) {
    journals.append(key).append("\n");
    transactions.append(key).append(",").append(key).append("\n");
  }
  Write("journals.csv", journals);
  Write("transactions.csv", transactions);
  const testing::Outcome created = Create();
  EXPECT_EQ(created.code, 0) << created.err;
  EXPECT_LT(created.seconds, 2);
  EXPECT_EQ(Texts("TransactionID").size(), keys.size());
}

TEST_F(KeyIndexTest, ARowIsToldByTheLineOnWhichItBegins) {
  Write("customers.csv", "CustomerID,Contact\nC1,\"a\n\nb\"\nC2,\nC1,\n");
  ExpectRefused(In("customers.csv") + ":6: CustomerID: \"C1\": duplicate, row 2 has it already");
}

}  // namespace
}  // namespace zevo
