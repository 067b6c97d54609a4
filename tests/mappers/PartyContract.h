// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_MAPPERS_PARTYCONTRACT_H_
#define ZEVO_TESTS_MAPPERS_PARTYCONTRACT_H_

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "tests/mappers/MasterRecordContract.h"

namespace zevo::testing {

/// What is true of the mappers of both parties, beside what MasterRecordContract has of them. The harness is the same,
/// with these besides:
///
///     static constexpr auto kFull = &FullSome;  // makes a record of an identifier, with something in every property
///     static constexpr auto kShipAddress = &Some::ShipAddress;
///     static constexpr std::string_view kShipAddressElement = "ShipAddress";
template <class Harness>
class PartyContract : public MasterRecordContract<Harness> {
 protected:
  /// XML in which the party is called Party and its second address ShipAddress, with the names that they have.
  static std::string Named(std::string_view xml) {
    std::string named = OneLine(xml);
    Replace(named, "ShipAddress", Harness::kShipAddressElement);
    Replace(named, "Party", Harness::kElement);
    return named;
  }

 private:
  static void Replace(std::string& text, std::string_view from, std::string_view to) {
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
      text.replace(at, from.size(), to);
    }
  }
};

TYPED_TEST_SUITE_P(PartyContract);

TYPED_TEST_P(PartyContract, WritesEveryProperty) {
  this->Create(*TypeParam::kFull("P1"));
  EXPECT_EQ(this->Written(), this->Named(R"(
      <MasterFiles>
        <Party>
          <PartyID>P1</PartyID>
          <AccountID>211</AccountID>
          <PartyTaxID>508888888</PartyTaxID>
          <CompanyName>Padaria</CompanyName>
          <Contact>Ana</Contact>
          <BillingAddress>
            <BuildingNumber>12</BuildingNumber>
            <StreetName>Rua A</StreetName>
            <AddressDetail>Rua A, 12</AddressDetail>
            <City>Faro</City>
            <PostalCode>1000-001</PostalCode>
            <Region>Lisboa</Region>
            <Country>ES</Country>
          </BillingAddress>
          <ShipAddress>
            <BuildingNumber>12</BuildingNumber>
            <StreetName>Rua A</StreetName>
            <AddressDetail>Rua A, 12</AddressDetail>
            <City>Beja</City>
            <PostalCode>1000-001</PostalCode>
            <Region>Lisboa</Region>
            <Country>ES</Country>
          </ShipAddress>
          <Telephone>21</Telephone>
          <Fax>22</Fax>
          <Email>a@b</Email>
          <Website>www</Website>
          <SelfBillingIndicator>1</SelfBillingIndicator>
        </Party>
      </MasterFiles>)"));
}

TYPED_TEST_P(PartyContract, WritesAnEmptyPartyWithItsRequiredElements) {
  this->Create({});
  EXPECT_EQ(this->Written(), this->Named(R"(
      <MasterFiles>
        <Party>
          <PartyID></PartyID>
          <AccountID></AccountID>
          <PartyTaxID></PartyTaxID>
          <CompanyName></CompanyName>
          <BillingAddress>
            <AddressDetail></AddressDetail>
            <City></City>
            <PostalCode></PostalCode>
            <Country>PT</Country>
          </BillingAddress>
          <SelfBillingIndicator>0</SelfBillingIndicator>
        </Party>
      </MasterFiles>)"));
}

TYPED_TEST_P(PartyContract, ContactOfBlanksIsLeftOut) {
  typename TypeParam::Record party;
  party.set_Contact("   ");
  this->Create(party);
  EXPECT_EQ(this->Written().find("Contact"), std::string::npos);
}

TYPED_TEST_P(PartyContract, ShipAddressIsNothingWhenTheFileHasNone) {
  const auto party = this->Read(
      this->Reading(this->Named("<MasterFiles><Party><BillingAddress><City>Faro</City></BillingAddress>"
                                "<Address><City>Beja</City></Address><SelfBillingIndicator>0</SelfBillingIndicator>"
                                "</Party></MasterFiles>")));
  EXPECT_EQ(std::invoke(TypeParam::kShipAddress, *party), nullptr);
}

REGISTER_TYPED_TEST_SUITE_P(PartyContract, WritesEveryProperty, WritesAnEmptyPartyWithItsRequiredElements,
                            ContactOfBlanksIsLeftOut, ShipAddressIsNothingWhenTheFileHasNone);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_MAPPERS_PARTYCONTRACT_H_
