// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TaxTableDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::OneLine;

class TaxTableDALCTest : public testing::MapperTest {
 protected:
  std::shared_ptr<TaxTable> Read(IDALReader& reader) {
    std::shared_ptr<TaxTable> table;
    TaxTableDALC().ReadTaxTable(table, reader);
    return table;
  }
};

TEST_F(TaxTableDALCTest, WritesItsEntriesInOrder) {
  TaxTable table;
  for (const char* code : {"b", "a"}) {
    auto entry = std::make_shared<TaxTableEntry>();
    entry->set_TaxCode(code);
    entry->set_TaxPercentage(5);
    table.TaxTableEntry()->Add(entry);
  }
  TaxTableDALC().CreateTaxTable(table, helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <TaxTable>
          <TaxTableEntry>
            <TaxType>IVA</TaxType>
            <TaxCountryRegion></TaxCountryRegion>
            <TaxCode>b</TaxCode>
            <Description></Description>
            <TaxPercentage>5</TaxPercentage>
          </TaxTableEntry>
          <TaxTableEntry>
            <TaxType>IVA</TaxType>
            <TaxCountryRegion></TaxCountryRegion>
            <TaxCode>a</TaxCode>
            <Description></Description>
            <TaxPercentage>5</TaxPercentage>
          </TaxTableEntry>
        </TaxTable>
      </MasterFiles>)"));
}

TEST_F(TaxTableDALCTest, TableWithoutEntriesLeavesNothingInTheFile) {
  TaxTableDALC().CreateTaxTable(TaxTable(), helper_);
  EXPECT_EQ(Written(), "");
}

TEST_F(TaxTableDALCTest, ReadsAllEntriesInOrder) {
  const auto table = Read(Reading(OneLine(R"(
      <MasterFiles><TaxTable>
        <TaxTableEntry><TaxCode>b</TaxCode><TaxPercentage>5</TaxPercentage><TaxAmount>0</TaxAmount></TaxTableEntry>
        <TaxTableEntry><TaxCode>a</TaxCode><TaxPercentage>0</TaxPercentage><TaxAmount>2</TaxAmount></TaxTableEntry>
        <TaxTableEntry><TaxCode>b</TaxCode><TaxPercentage>6</TaxPercentage><TaxAmount>0</TaxAmount></TaxTableEntry>
      </TaxTable></MasterFiles>)")));
  ASSERT_TRUE(table);
  EXPECT_EQ(Describe(*table),
            "TaxTableEntry[1].TaxCode=b\nTaxTableEntry[1].TaxPercentage=5\nTaxTableEntry[1].TaxType=IVA\n"
            "TaxTableEntry[2].TaxCode=a\nTaxTableEntry[2].TaxAmount=2\nTaxTableEntry[2].TaxType=IVA\n"
            "TaxTableEntry[3].TaxCode=b\nTaxTableEntry[3].TaxPercentage=6\nTaxTableEntry[3].TaxType=IVA\n");
}

TEST_F(TaxTableDALCTest, FileWithoutTaxTableReadsAsATableWithoutEntries) {
  for (const std::string_view content : {"", "<MasterFiles/>", "<MasterFiles><TaxTable/></MasterFiles>"}) {
    const auto table = Read(Reading(content));
    ASSERT_TRUE(table) << content;
    EXPECT_EQ(table->TaxTableEntry()->Count(), 0) << content;
  }
}

TEST_F(TaxTableDALCTest, TableAsTheLibraryWritesItFailsToReadWithATypeMismatch) {
  TaxTable table;
  table.TaxTableEntry()->Add(testing::FullTaxTableEntry());
  TaxTableDALC().CreateTaxTable(table, helper_);
  IDALReader& reader = ReadingBack();
  EXPECT_ERROR(Read(reader), RunTimeError::kTypeMismatch, kRunTimeSource);
}

}  // namespace
}  // namespace zevo
