#include <gtest/gtest.h>

#include <string>

#include "tests/tools/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

class ShortenedTextsTest : public testing::ToolTest {};

TEST_F(ShortenedTextsTest, OneIsToldAndTheFileIsWritten) {
  Write("customers.csv", "CustomerID,Telephone\nC1,123456789012345678901\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "saft: 1 text shortened to what the schema allows\n  " + In("customers.csv") +
                             ":2: Telephone: from 21 to 20 characters\n");
  EXPECT_THAT(Texts("Telephone"), ElementsAre("12345678901234567890"));
}

TEST_F(ShortenedTextsTest, LengthsAreOfCharacters) {
  std::string name;
  for (int i = 0; i < 61; ++i) name += "ã";
  Write("customers.csv", "CustomerID,CompanyName\nC1," + name + "\n");
  EXPECT_EQ(Create().err, "saft: 1 text shortened to what the schema allows\n  " + In("customers.csv") +
                              ":2: CompanyName: from 61 to 60 characters\n");
  EXPECT_THAT(Texts("CompanyName"), ElementsAre(std::string(60, '\xE3')));
}

TEST_F(ShortenedTextsTest, TheFirstFiveAreNamedAndAllAreCounted) {
  const std::string fax(25, '1');
  std::string customers = "CustomerID,BillingAddress.PostalCode\n";
  for (int i = 1; i <= 4; ++i) customers += "C" + std::to_string(i) + "," + fax + "\n";
  Write("customers.csv", customers);
  Write("suppliers.csv", "SupplierID,Telephone,Fax,Contact\nF1," + fax + "," + fax + "," + fax + "\n");
  std::string expected = "saft: 6 texts shortened to what the schema allows\n";
  for (int row = 2; row <= 5; ++row) {
    expected += "  " + In("customers.csv") + ":" + std::to_string(row) +
                ": BillingAddress.PostalCode: from 25 to 20 characters\n";
  }
  expected += "  " + In("suppliers.csv") + ":2: Telephone: from 25 to 20 characters\n  and 1 more\n";
  EXPECT_EQ(Create().err, expected);
}

TEST_F(ShortenedTextsTest, NothingIsToldOfTextsOfFullLength) {
  Write("customers.csv", "CustomerID,Telephone\nC1,12345678901234567890\n");
  ExpectCreated();
}

}  // namespace
}  // namespace zevo
