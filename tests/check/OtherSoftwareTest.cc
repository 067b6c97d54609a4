// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/check/CheckTest.h"

// Files as other programs write them, each with its habits, and all of them right.

namespace zevo::testing {
namespace {

struct Information {
  std::string_view file;
  std::vector<std::string> findings;
};

// What is told of some of them, none of it a fault.
const std::vector<Information>& KnownInformation() {
  static const std::vector<Information> kInformation{
      {"ledger-only", {"GL-PERIOD I Transaction 2010-09-30 02 REC1/Period [10] [9] [1]"}},
      {"lines-in-tens",
       {"LINE-NO I Invoice FT 1/1/Line[1]/LineNumber [10] [1] []", "TAX-TABLE I Invoice FT 1/1/Line[1]/Tax [] [] []"}},
      {"old-rate-on-the-first-day", {"TAX-RATE I Invoice VD N/901/Line[1]/Tax/TaxPercentage [20] [21% (NOR PT)] []"}},
      {"opening-of-movement-accounts", {"GL-PERIOD I Transaction 2009-02-28 CAIXA 3/Period [3] [2] [1]"}},
  };
  return kInformation;
}

class OtherSoftwareTest : public CheckTest {
 protected:
  OtherSoftwareTest() {
    checker_.AddPublicKey(ReadBytes(ZEVO_SIGNED_KEY));
    for (const auto& entry : std::filesystem::directory_iterator(ZEVO_OTHER_FILES)) {
      names_.push_back(entry.path().stem().string());
    }
    std::ranges::sort(names_);
  }

  static std::vector<std::string> InformationOn(std::string_view file) {
    const auto found = std::ranges::find(KnownInformation(), file, &Information::file);
    return found == KnownInformation().end() ? std::vector<std::string>() : found->findings;
  }

  std::vector<std::string> names_;
};

TEST_F(OtherSoftwareTest, NoFileIsBlamed) {
  for (const std::string& name : names_) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Findings(ReadBytes(ZEVO_OTHER_FILES "/" + name + ".xml")), InformationOn(name));
    EXPECT_EQ(checker_.Verdict(), CheckVerdict::kClean);
  }
}

// Older programs cancel a document by its TransactionID, which the schema does not allow.
TEST_F(OtherSoftwareTest, OnlyTheSchemaMindsADocumentThatItsTransactionCancels) {
  const CleanFile file =
      CleanFile().With("Invoice[2]/TransactionID", "Anulado").With("SalesInvoices/TotalCredit", "30");
  EXPECT_THAT(Findings(file),
              ::testing::ElementsAre(::testing::StartsWith("SCHEMA E Invoice FT A/2/TransactionID [Anulado] ")));
  const CleanFile counted = file.With("SalesInvoices/NumberOfEntries", "2");
  EXPECT_THAT(Findings(counted),
              ::testing::ElementsAre(::testing::StartsWith("SCHEMA E Invoice FT A/2/TransactionID [Anulado] "),
                                     ::testing::StartsWith("SI-COUNT I SalesInvoices/NumberOfEntries [2] ")));
}

TEST_F(OtherSoftwareTest, WhatIsToldIsToldOfAFile) {
  for (const Information& information : KnownInformation()) {
    EXPECT_THAT(names_, ::testing::Contains(information.file));
    EXPECT_THAT(information.findings, ::testing::Not(::testing::IsEmpty()));
  }
}

}  // namespace
}  // namespace zevo::testing
