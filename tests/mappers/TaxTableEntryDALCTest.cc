// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TaxTableEntryDALC.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::FullTaxTableEntry;
using testing::OneLine;

class TaxTableEntryDALCTest : public testing::MapperTest {
 protected:
  void Create(const TaxTableEntry& entry) { TaxTableEntryDALC().CreateTaxTableEntry(entry, helper_); }
  std::shared_ptr<TaxTableEntry> Read(IDALReader& reader, bool first = true) {
    std::shared_ptr<TaxTableEntry> entry;
    TaxTableEntryDALC().ReadTaxTableEntry(entry, reader, first);
    return entry;
  }
  IDALReader& ReadingEntry(std::string_view content) {
    return Reading(std::string("<MasterFiles><TaxTable><TaxTableEntry>")
                       .append(content)
                       .append("</TaxTableEntry></TaxTable></MasterFiles>"));
  }
};

TEST_F(TaxTableEntryDALCTest, EntryWithAPercentageWritesNoAmountEvenWhenItIsSet) {
  Create(*FullTaxTableEntry());
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <TaxTable>
          <TaxTableEntry>
            <TaxType>IVA</TaxType>
            <TaxCountryRegion>PT-MA</TaxCountryRegion>
            <TaxCode>NOR</TaxCode>
            <Description>Normal</Description>
            <TaxExpirationDate>2008-06-30</TaxExpirationDate>
            <TaxPercentage>14.5</TaxPercentage>
          </TaxTableEntry>
        </TaxTable>
      </MasterFiles>)"));
}

TEST_F(TaxTableEntryDALCTest, EntryWithoutPercentageWritesItsAmount) {
  TaxTableEntry entry;
  entry.set_TaxAmount(5);
  Create(entry);
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <TaxTable>
          <TaxTableEntry>
            <TaxType>IVA</TaxType>
            <TaxCountryRegion></TaxCountryRegion>
            <TaxCode></TaxCode>
            <Description></Description>
            <TaxAmount>5</TaxAmount>
          </TaxTableEntry>
        </TaxTable>
      </MasterFiles>)"));
}

TEST_F(TaxTableEntryDALCTest, EmptyEntryWritesAnAmountOfZero) {
  Create(TaxTableEntry());
  EXPECT_NE(Written().find("<Description></Description><TaxAmount>0</TaxAmount></TaxTableEntry>"), std::string::npos);
}

TEST_F(TaxTableEntryDALCTest, NegativePercentageIsAPercentage) {
  TaxTableEntry entry;
  entry.set_TaxPercentage(Amount::FromText("-0.0001"));
  Create(entry);
  EXPECT_NE(Written().find("<TaxPercentage>-0.0001</TaxPercentage></TaxTableEntry>"), std::string::npos);
}

TEST_F(TaxTableEntryDALCTest, ExpirationDateIsBroughtToYearMonthDay) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"2008-06-30", "<TaxExpirationDate>2008-06-30</TaxExpirationDate>"},
      {"30-06-2008", "<TaxExpirationDate>2008-06-30</TaxExpirationDate>"},
      {"30/06/2008", "<TaxExpirationDate>2008-06-30</TaxExpirationDate>"},
      {"2008/06/30", "<TaxExpirationDate>2008-06-30</TaxExpirationDate>"},
      {"2008-06-30T10:00:00", "<TaxExpirationDate>2008-06-30</TaxExpirationDate>"},
      {"someday", "<TaxExpirationDate>someday</TaxExpirationDate>"},
      {"2008-02-30", "<TaxExpirationDate>2008-02-30</TaxExpirationDate>"},
      {"", ""},
      {"  ", ""},
  };
  for (const auto& [date, element] : cases) {
    Begin("");
    TaxTableEntry entry;
    entry.set_TaxExpirationDate(date);
    Create(entry);
    EXPECT_NE(Written().find("<Description></Description>" + element + "<TaxAmount>"), std::string::npos) << Written();
  }
}

TEST_F(TaxTableEntryDALCTest, SecondEntryReusesMasterFilesAndTaxTable) {
  Begin("<MasterFiles><TaxTable/><Customer/></MasterFiles>");
  Create(TaxTableEntry());
  Create(TaxTableEntry());
  const std::string one =
      "<TaxTableEntry><TaxType>IVA</TaxType><TaxCountryRegion></TaxCountryRegion><TaxCode></TaxCode>"
      "<Description></Description><TaxAmount>0</TaxAmount>"
      "</TaxTableEntry>";
  EXPECT_EQ(Written(), "<MasterFiles><TaxTable>" + one + one + "</TaxTable><Customer/></MasterFiles>");
}

TEST_F(TaxTableEntryDALCTest, ReadsEveryProperty) {
  const auto entry =
      Read(ReadingEntry("<TaxType>IS</TaxType><TaxCountryRegion>PT</TaxCountryRegion><TaxCode>a</TaxCode>"
                        "<Description>b</Description><TaxExpirationDate>30-06-2008</TaxExpirationDate>"
                        "<TaxPercentage>12.5</TaxPercentage><TaxAmount>0.75</TaxAmount>"));
  ASSERT_TRUE(entry);
  EXPECT_EQ(Describe(*entry),
            "TaxCountryRegion=PT\nTaxCode=a\nDescription=b\nTaxExpirationDate=30-06-2008\nTaxPercentage=12.5\n"
            "TaxAmount=0.75\nTaxType=IVA\n");
}

TEST_F(TaxTableEntryDALCTest, EntryAsTheLibraryWritesItFailsToReadWithATypeMismatch) {
  for (const int percentage : {23, 0}) {
    Begin("");
    TaxTableEntry entry;
    entry.set_TaxPercentage(percentage);
    entry.set_TaxAmount(5);
    Create(entry);
    IDALReader& reader = ReadingBack();
    EXPECT_ERROR(Read(reader), RunTimeError::kTypeMismatch, kRunTimeSource);
  }
}

TEST_F(TaxTableEntryDALCTest, PercentageOrAmountThatIsEmptyOrNoNumberIsATypeMismatch) {
  for (const std::string_view content :
       {"<TaxPercentage/><TaxAmount>1</TaxAmount>", "<TaxPercentage>1</TaxPercentage><TaxAmount/>",
        "<TaxPercentage>1%</TaxPercentage><TaxAmount>1</TaxAmount>",
        "<TaxPercentage>1</TaxPercentage><TaxAmount>x</TaxAmount>"}) {
    IDALReader& reader = ReadingEntry(content);
    EXPECT_ERROR(Read(reader), RunTimeError::kTypeMismatch, kRunTimeSource);
  }
}

TEST_F(TaxTableEntryDALCTest, ReadsOneAfterTheOther) {
  IDALReader& reader = Reading(OneLine(R"(
      <MasterFiles><TaxTable>
        <TaxTableEntry><TaxCode>1</TaxCode><TaxPercentage>1</TaxPercentage><TaxAmount>0</TaxAmount></TaxTableEntry>
        <TaxTableEntry><TaxCode>2</TaxCode><TaxPercentage>1</TaxPercentage><TaxAmount>0</TaxAmount></TaxTableEntry>
      </TaxTable></MasterFiles>)"));
  EXPECT_EQ(Read(reader, true)->TaxCode(), "1");
  EXPECT_EQ(Read(reader, false)->TaxCode(), "2");
  EXPECT_EQ(Read(reader, false), nullptr);
}

TEST_F(TaxTableEntryDALCTest, GivesNothingWhereThereIsNone) {
  for (const std::string_view content : {"", "<MasterFiles/>", "<MasterFiles><TaxTable/></MasterFiles>",
                                         "<MasterFiles><TaxTableEntry/></MasterFiles>"}) {
    EXPECT_EQ(Read(Reading(content)), nullptr) << content;
    EXPECT_EQ(TaxTableEntryDALC().TaxTableEntrys(Reading(content)), 0) << content;
  }
}

TEST_F(TaxTableEntryDALCTest, CountsInTheTaxTable) {
  EXPECT_EQ(TaxTableEntryDALC().TaxTableEntrys(
                Reading("<MasterFiles><TaxTable><TaxTableEntry/><TaxTableEntry/></TaxTable></MasterFiles>")),
            2);
}

}  // namespace
}  // namespace zevo
