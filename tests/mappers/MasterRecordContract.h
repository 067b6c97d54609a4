// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_MAPPERS_MASTERRECORDCONTRACT_H_
#define ZEVO_TESTS_MAPPERS_MASTERRECORDCONTRACT_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "tests/mappers/MapperTest.h"

namespace zevo::testing {

/// What is true of every mapper of records that stand under MasterFiles, one beside the other. A mapper joins with a
/// harness:
///
///     struct SomeDALCHarness {
///       using Mapper = SomeDALC;
///       using Record = Some;
///       static constexpr auto kCreate = &SomeDALC::CreateSome;
///       static constexpr auto kRead = &SomeDALC::ReadSome;
///       static constexpr auto kCount = &SomeDALC::Somes;
///       static constexpr std::string_view kElement = "Some";
///       static constexpr std::string_view kIdentifier = "SomeID";    // a child, and the property that it is read to
///       static constexpr std::string_view kFlag = "<Flag>0</Flag>";  // what the element cannot be read without
///     };
///     INSTANTIATE_TYPED_TEST_SUITE_P(SomeDALC, MasterRecordContract, SomeDALCHarness);
template <class Harness>
class MasterRecordContract : public MapperTest {
 protected:
  using Record = typename Harness::Record;

  void Create(const Record& record) { std::invoke(Harness::kCreate, mapper_, record, helper_); }
  std::shared_ptr<Record> Read(IDALReader& reader, bool first = true) {
    auto record = std::make_shared<Record>();
    std::invoke(Harness::kRead, mapper_, record, reader, first);
    return record;
  }
  int32_t Count(const std::string& content) { return std::invoke(Harness::kCount, mapper_, Reading(content)); }

  std::string Start() const { return "<" + std::string(Harness::kElement) + ">"; }
  std::string End() const { return "</" + std::string(Harness::kElement) + ">"; }
  /// An element of that identifier.
  std::string Identified(const std::string& identifier) const {
    const std::string child(Harness::kIdentifier);
    return Start() + "<" + child + ">" + identifier + "</" + child + ">" + std::string(Harness::kFlag) + End();
  }
  /// What its description begins with when it is read.
  std::string Identifier(const std::string& identifier) const {
    return std::string(Harness::kIdentifier) + "=" + identifier + "\n";
  }

 private:
  typename Harness::Mapper mapper_;
};

TYPED_TEST_SUITE_P(MasterRecordContract);

TYPED_TEST_P(MasterRecordContract, SecondRecordStandsBehindTheFirst) {
  const std::string start = "<MasterFiles>";
  const std::string end = "</MasterFiles>";
  this->Create({});
  const std::string one = this->Written();
  ASSERT_TRUE(one.starts_with(start + this->Start())) << one;
  ASSERT_TRUE(one.ends_with(this->End() + end)) << one;
  this->Create({});
  EXPECT_EQ(this->Written(), one.substr(0, one.size() - end.size()) + one.substr(start.size()));
}

TYPED_TEST_P(MasterRecordContract, RecordIsAddedToTheMasterFilesThatAreThere) {
  this->Begin("<MasterFiles><TaxTable/></MasterFiles><GeneralLedgerEntries/>");
  this->Create({});
  const std::string written = this->Written();
  EXPECT_TRUE(written.starts_with("<MasterFiles><TaxTable/>" + this->Start())) << written;
  EXPECT_TRUE(written.ends_with(this->End() + "</MasterFiles><GeneralLedgerEntries/>")) << written;
}

TYPED_TEST_P(MasterRecordContract, ReadsOneAfterTheOther) {
  IDALReader& reader =
      this->Reading("<MasterFiles>" + this->Identified("1") + "<TaxTable/>" + this->Identified("2") + "</MasterFiles>");
  EXPECT_THAT(Describe(*this->Read(reader, true)), ::testing::StartsWith(this->Identifier("1")));
  EXPECT_THAT(Describe(*this->Read(reader, false)), ::testing::StartsWith(this->Identifier("2")));
  EXPECT_EQ(this->Read(reader, false), nullptr);
  EXPECT_EQ(this->Read(reader, false), nullptr);
  EXPECT_THAT(Describe(*this->Read(reader, true)), ::testing::StartsWith(this->Identifier("1")));
}

TYPED_TEST_P(MasterRecordContract, GivesNothingWhereThereIsNone) {
  EXPECT_EQ(this->Read(this->Reading("")), nullptr);
  EXPECT_EQ(this->Read(this->Reading("<MasterFiles/>")), nullptr);
  EXPECT_EQ(this->Read(this->Reading(this->Identified("1"))), nullptr);
}

TYPED_TEST_P(MasterRecordContract, CountsUnderMasterFiles) {
  EXPECT_EQ(this->Count(""), 0);
  EXPECT_EQ(this->Count("<MasterFiles/>"), 0);
  EXPECT_EQ(this->Count(this->Identified("1")), 0);
  EXPECT_EQ(this->Count("<MasterFiles>" + this->Identified("1") + "<TaxTable/>" + this->Start() + this->End() +
                        "</MasterFiles>"),
            2);
}

REGISTER_TYPED_TEST_SUITE_P(MasterRecordContract, SecondRecordStandsBehindTheFirst,
                            RecordIsAddedToTheMasterFilesThatAreThere, ReadsOneAfterTheOther,
                            GivesNothingWhereThereIsNone, CountsUnderMasterFiles);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_MAPPERS_MASTERRECORDCONTRACT_H_
