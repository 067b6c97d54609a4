// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_MAPPERS_SECTIONTOTALSCONTRACT_H_
#define ZEVO_TESTS_MAPPERS_SECTIONTOTALSCONTRACT_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "tests/mappers/MapperTest.h"

namespace zevo::testing {

/// What is true of every mapper of the three totals at the front of a section. A mapper joins with a harness:
///
///     struct SomeDALCHarness {
///       using Mapper = SomeDALC;
///       using Section = Some;
///       static constexpr auto kCreate = &SomeDALC::CreateSome;
///       static constexpr auto kUpdate = &SomeDALC::UpdateSome;
///       static constexpr auto kRead = &SomeDALC::ReadSome;
///       static constexpr std::string_view kElement = "Some";
///       static constexpr std::string_view kStart = "<Group><Some>";
///       static constexpr std::string_view kEnd = "</Some></Group>";
///       static constexpr std::string_view kWithout[] = {"", "<Group/>", "<Some/>"};  // files without the section
///       static constexpr Message kExists{1};   // what beginning it twice raises
///       static constexpr Message kMissing{2};  // what the others raise without it
///     };
///     INSTANTIATE_TYPED_TEST_SUITE_P(SomeDALC, SectionTotalsContract, SomeDALCHarness);
template <class Harness>
class SectionTotalsContract : public MapperTest {
 protected:
  void Create() { std::invoke(Harness::kCreate, mapper_, totals_, helper_); }
  void Update() { std::invoke(Harness::kUpdate, mapper_, totals_, helper_); }
  std::shared_ptr<typename Harness::Section> Read(IDALReader& reader) {
    std::shared_ptr<typename Harness::Section> totals;
    std::invoke(Harness::kRead, mapper_, totals, reader);
    return totals;
  }

  void SetTotals(int32_t number, std::string_view debit, std::string_view credit) {
    totals_.set_NumberOfEntries(number);
    totals_.set_TotalDebit(Amount::FromText(debit));
    totals_.set_TotalCredit(Amount::FromText(credit));
  }

  /// The section with that content.
  static std::string Section(std::string_view content) {
    return std::string(Harness::kStart).append(content).append(Harness::kEnd);
  }
  /// The source of the errors of an operation.
  static std::string Source(const std::string& operation) {
    const std::string element(Harness::kElement);
    return element + "DALC." + operation + element;
  }

  static constexpr std::string_view kFresh =
      "<NumberOfEntries>0</NumberOfEntries><TotalDebit>.00</TotalDebit><TotalCredit>.00</TotalCredit>";

  typename Harness::Section totals_;

 private:
  typename Harness::Mapper mapper_;
};

TYPED_TEST_SUITE_P(SectionTotalsContract);

TYPED_TEST_P(SectionTotalsContract, FreshSectionHoldsZeroAndTotalsWithoutAWholePart) {
  this->Create();
  EXPECT_EQ(this->Written(), this->Section(this->kFresh));
}

TYPED_TEST_P(SectionTotalsContract, WritesTheTotalsWithTwoDecimals) {
  this->SetTotals(12, "1234567.895", "-0.5");
  this->Create();
  EXPECT_EQ(this->Written(), this->Section("<NumberOfEntries>12</NumberOfEntries><TotalDebit>1234567.90</TotalDebit>"
                                           "<TotalCredit>-.50</TotalCredit>"));
  this->SetTotals(-3, "0.5", "1234.567");
  this->Update();
  EXPECT_EQ(this->Written(), this->Section("<NumberOfEntries>-3</NumberOfEntries><TotalDebit>.50</TotalDebit>"
                                           "<TotalCredit>1234.57</TotalCredit>"));
}

TYPED_TEST_P(SectionTotalsContract, SecondSectionIsAnErrorAndWritesNothing) {
  this->Create();
  this->SetTotals(5, "1", "2");
  EXPECT_ERROR(this->Create(), NumberOf(TypeParam::kExists), this->Source("Create"));
  EXPECT_EQ(this->Written(), this->Section(this->kFresh));
}

TYPED_TEST_P(SectionTotalsContract, UpdateReplacesTheTotalsInTheirPlace) {
  this->Begin(this->Section(std::string(this->kFresh) + "<Journal/>"));
  this->SetTotals(2, "10", "20.5");
  this->Update();
  EXPECT_EQ(this->Written(), this->Section("<NumberOfEntries>2</NumberOfEntries><TotalDebit>10.00</TotalDebit>"
                                           "<TotalCredit>20.50</TotalCredit><Journal/>"));
}

TYPED_TEST_P(SectionTotalsContract, UpdateAddsTheTotalsThatAreMissing) {
  this->Begin(this->Section("<Journal/><TotalCredit>1</TotalCredit>"));
  this->Update();
  EXPECT_EQ(this->Written(),
            this->Section("<Journal/><TotalCredit>.00</TotalCredit><NumberOfEntries>0</NumberOfEntries>"
                          "<TotalDebit>.00</TotalDebit>"));
}

TYPED_TEST_P(SectionTotalsContract, UpdateWithoutSectionIsAnErrorAndWritesNothing) {
  for (const std::string_view content : TypeParam::kWithout) {
    this->Begin(content);
    EXPECT_ERROR(this->Update(), NumberOf(TypeParam::kMissing), this->Source("Update"));
    EXPECT_EQ(this->Written(), content);
  }
}

TYPED_TEST_P(SectionTotalsContract, ReadsTheTotals) {
  const auto totals =
      this->Read(this->Reading(this->Section("<NumberOfEntries>12</NumberOfEntries><TotalDebit>.50</TotalDebit>"
                                             "<TotalCredit>-7.25</TotalCredit>")));
  EXPECT_EQ(Describe(*totals), "NumberOfEntries=12\nTotalDebit=0.5\nTotalCredit=-7.25\n");
}

TYPED_TEST_P(SectionTotalsContract, ReadsBackWhatItWrote) {
  this->SetTotals(3, "10.25", "0");
  this->Create();
  EXPECT_EQ(Describe(*this->Read(this->ReadingBack())), Describe(this->totals_));
}

TYPED_TEST_P(SectionTotalsContract, AmountsThatAreMissingReadAsZero) {
  const auto totals = this->Read(this->Reading(this->Section("<NumberOfEntries>1</NumberOfEntries>")));
  EXPECT_EQ(Describe(*totals), "NumberOfEntries=1\n");
}

TYPED_TEST_P(SectionTotalsContract, NumberOfEntriesThatIsMissingOrNoNumberIsATypeMismatch) {
  for (const std::string_view content : {"", "<NumberOfEntries/>", "<NumberOfEntries>x</NumberOfEntries>"}) {
    IDALReader& reader = this->Reading(this->Section(content));
    EXPECT_ERROR(this->Read(reader), RunTimeError::kTypeMismatch, kRunTimeSource);
  }
}

TYPED_TEST_P(SectionTotalsContract, ReadWithoutSectionIsAnError) {
  for (const std::string_view content : TypeParam::kWithout) {
    IDALReader& reader = this->Reading(content);
    EXPECT_ERROR(this->Read(reader), NumberOf(TypeParam::kMissing), this->Source("Read"));
  }
}

TYPED_TEST_P(SectionTotalsContract, ErrorsCarryNoDescriptionOfTheirOwn) {
  EXPECT_EQ(ErrorOf([this] { this->Update(); }).Description(), "");
}

REGISTER_TYPED_TEST_SUITE_P(SectionTotalsContract, FreshSectionHoldsZeroAndTotalsWithoutAWholePart,
                            WritesTheTotalsWithTwoDecimals, SecondSectionIsAnErrorAndWritesNothing,
                            UpdateReplacesTheTotalsInTheirPlace, UpdateAddsTheTotalsThatAreMissing,
                            UpdateWithoutSectionIsAnErrorAndWritesNothing, ReadsTheTotals, ReadsBackWhatItWrote,
                            AmountsThatAreMissingReadAsZero, NumberOfEntriesThatIsMissingOrNoNumberIsATypeMismatch,
                            ReadWithoutSectionIsAnError, ErrorsCarryNoDescriptionOfTheirOwn);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_MAPPERS_SECTIONTOTALSCONTRACT_H_
