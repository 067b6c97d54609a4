// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/SupplierDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/PartyContract.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace testing {
namespace {

struct SupplierDALCHarness {
  using Mapper = SupplierDALC;
  using Record = Supplier;
  static constexpr auto kCreate = &Mapper::CreateSupplier;
  static constexpr auto kRead = &Mapper::ReadSupplier;
  static constexpr auto kCount = &Mapper::Suppliers;
  static constexpr std::string_view kElement = "Supplier";
  static constexpr std::string_view kIdentifier = "SupplierID";
  static constexpr std::string_view kFlag = {};
  static constexpr auto kFull = &FullSupplier;
  static constexpr auto kShipAddress = &Record::ShipFromAddress;
  static constexpr std::string_view kShipAddressElement = "ShipFromAddress";
};

INSTANTIATE_TYPED_TEST_SUITE_P(SupplierDALC, MasterRecordContract, SupplierDALCHarness);
INSTANTIATE_TYPED_TEST_SUITE_P(SupplierDALC, PartyContract, SupplierDALCHarness);

}  // namespace
}  // namespace testing

namespace {

using testing::Describe;
using testing::FullSupplier;
using testing::OneLine;

class SupplierDALCTest : public testing::MapperTest {
 protected:
  std::shared_ptr<Supplier> Read(IDALReader& reader, bool first = true) {
    std::shared_ptr<Supplier> supplier;
    SupplierDALC().ReadSupplier(supplier, reader, first);
    return supplier;
  }
};

// The obsolete ShipToAddress raises when it is touched, so that writing and reading leave it alone shows by itself.

TEST_F(SupplierDALCTest, ReadsEveryPropertyButThoseThatAreWrittenOnly) {
  const auto supplier = Read(Reading(OneLine(R"(
      <MasterFiles>
        <Supplier>
          <SupplierID>a</SupplierID>
          <AccountID>no</AccountID>
          <SupplierTaxID>b</SupplierTaxID>
          <CompanyName>c</CompanyName>
          <Contact>d</Contact>
          <BillingAddress><City>e</City><Country>PT</Country></BillingAddress>
          <ShipFromAddress><City>f</City><Country>ES</Country></ShipFromAddress>
          <Telephone>g</Telephone>
          <Fax>h</Fax>
          <Email>i</Email>
          <Website>j</Website>
          <SelfBillingIndicator>1</SelfBillingIndicator>
        </Supplier>
      </MasterFiles>)")));
  ASSERT_TRUE(supplier);
  EXPECT_EQ(Describe(*supplier),
            "SupplierID=a\nSupplierTaxID=b\nCompanyName=c\nContact=d\nTelephone=g\nFax=h\nEmail=i\nWebsite=j\n"
            "BillingAddress.City=e\nBillingAddress.Country=PT\nShipFromAddress.City=f\nShipFromAddress.Country=ES\n");
}

TEST_F(SupplierDALCTest, AccountIDIsNotRead) {
  SupplierDALC().CreateSupplier(*FullSupplier("S1"), helper_);
  EXPECT_EQ(Read(ReadingBack())->AccountID(), "");
}

TEST_F(SupplierDALCTest, SelfBillingIndicatorIsNotReadWhateverTheFileSays) {
  for (const std::string_view text : {"1", "0", "x", ""}) {
    const auto supplier = Read(Reading(std::string("<MasterFiles><Supplier><SelfBillingIndicator>")
                                           .append(text)
                                           .append("</SelfBillingIndicator></Supplier></MasterFiles>")));
    EXPECT_FALSE(supplier->SelfBillingIndicator()) << text;
  }
}

TEST_F(SupplierDALCTest, ShipFromAddressIsNothingWhenTheFileHasNone) {
  EXPECT_EQ(Read(Reading("<MasterFiles><Supplier><ShipToAddress><City>f</City></ShipToAddress></Supplier>"
                         "</MasterFiles>"))
                ->ShipFromAddress(),
            nullptr);
}

}  // namespace
}  // namespace zevo
