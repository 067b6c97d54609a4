#include <zevo/mappers/SupplierDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
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

TEST_F(SupplierDALCTest, WritesEveryProperty) {
  SupplierDALC().CreateSupplier(*FullSupplier(), helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <Supplier>
          <SupplierID>S1</SupplierID>
          <AccountID>221</AccountID>
          <SupplierTaxID>508888888</SupplierTaxID>
          <CompanyName>Fornecedor</CompanyName>
          <Contact>Rui</Contact>
          <BillingAddress>
            <BuildingNumber>12</BuildingNumber>
            <StreetName>Rua A</StreetName>
            <AddressDetail>Rua A, 12</AddressDetail>
            <City>Faro</City>
            <PostalCode>1000-001</PostalCode>
            <Region>Lisboa</Region>
            <Country>ES</Country>
          </BillingAddress>
          <ShipFromAddress>
            <BuildingNumber>12</BuildingNumber>
            <StreetName>Rua A</StreetName>
            <AddressDetail>Rua A, 12</AddressDetail>
            <City>Beja</City>
            <PostalCode>1000-001</PostalCode>
            <Region>Lisboa</Region>
            <Country>ES</Country>
          </ShipFromAddress>
          <Telephone>21</Telephone>
          <Fax>22</Fax>
          <Email>a@b</Email>
          <Website>www</Website>
          <SelfBillingIndicator>1</SelfBillingIndicator>
        </Supplier>
      </MasterFiles>)"));
}

TEST_F(SupplierDALCTest, WritesAnEmptySupplierWithItsRequiredElements) {
  SupplierDALC().CreateSupplier(Supplier(), helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <Supplier>
          <SupplierID/>
          <AccountID/>
          <SupplierTaxID/>
          <CompanyName/>
          <BillingAddress>
            <AddressDetail/>
            <City/>
            <PostalCode/>
            <Country>PT</Country>
          </BillingAddress>
          <SelfBillingIndicator>0</SelfBillingIndicator>
        </Supplier>
      </MasterFiles>)"));
}

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
  SupplierDALC().CreateSupplier(*FullSupplier(), helper_);
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

TEST_F(SupplierDALCTest, SecondSupplierReusesMasterFiles) {
  Begin("<MasterFiles/>");
  SupplierDALC().CreateSupplier(Supplier(), helper_);
  SupplierDALC().CreateSupplier(Supplier(), helper_);
  EXPECT_EQ(SupplierDALC().Suppliers(ReadingBack()), 2);
}

TEST_F(SupplierDALCTest, ReadsOneAfterTheOther) {
  IDALReader& reader = Reading(
      "<MasterFiles><Supplier><SupplierID>1</SupplierID></Supplier><Customer/>"
      "<Supplier><SupplierID>2</SupplierID></Supplier></MasterFiles>");
  EXPECT_EQ(Read(reader, true)->SupplierID(), "1");
  EXPECT_EQ(Read(reader, false)->SupplierID(), "2");
  EXPECT_EQ(Read(reader, false), nullptr);
}

TEST_F(SupplierDALCTest, GivesNothingWhereThereIsNone) {
  EXPECT_EQ(Read(Reading("")), nullptr);
  EXPECT_EQ(Read(Reading("<MasterFiles/>")), nullptr);
}

TEST_F(SupplierDALCTest, CountsUnderMasterFiles) {
  EXPECT_EQ(SupplierDALC().Suppliers(Reading("")), 0);
  EXPECT_EQ(SupplierDALC().Suppliers(Reading("<MasterFiles><Supplier/><Customer/></MasterFiles>")), 1);
}

}  // namespace
}  // namespace zevo
