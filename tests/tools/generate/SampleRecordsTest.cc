// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestKeys.h"
#include "tests/support/UseSchema.h"
#include "tools/generate/SampleRecords.h"

namespace zevo::generate {
namespace {

using testing::ReadBytes;
using testing::TemporaryFolder;

template <class File>
std::string Written(const TemporaryFolder& folder, const std::string& name, int64_t invoices, uint64_t seed) {
  File file;
  file.set_AuditFileName(folder.Path(name));
  WriteTo(file, SampleRecords(invoices, seed));
  return folder.Path(name);
}

TEST(SampleRecordsTest, BothWritersGiveAValidFileForAnyNumber) {
  const testing::UseSchema schema;
  const TemporaryFolder folder;
  for (const int64_t invoices : {1, 2, 11, 12, 13, 100}) {
    const std::string number = std::to_string(invoices);
    for (const std::string& name : {Written<AuditFileStreamWriter>(folder, "streamed" + number, invoices, 1),
                                    Written<AuditFile>(folder, "built" + number, invoices, 1)}) {
      AuditFile file;
      file.set_AuditFileName(name);
      EXPECT_TRUE(file.ValidateAuditFile()) << name << ": " << file.AuditException()->Description();
    }
  }
}

TEST(SampleRecordsTest, TheTotalsAreThoseThatTheLibraryAddsUp) {
  const TemporaryFolder folder;
  const auto totals = [](const std::string& name) {
    AuditFileReader reader;
    reader.set_AuditFileName(name);
    EXPECT_TRUE(reader.OpenAuditFile());
    std::shared_ptr<GeneralLedgerEntries> entries;
    std::shared_ptr<SalesInvoices> invoices;
    EXPECT_TRUE(reader.ReadGeneralLedgerEntries(entries) && reader.ReadSalesInvoices(invoices));
    return std::vector{Amount(entries->NumberOfEntries()),  entries->TotalDebit(),  entries->TotalCredit(),
                       Amount(invoices->NumberOfEntries()), invoices->TotalDebit(), invoices->TotalCredit()};
  };
  EXPECT_EQ(totals(Written<AuditFileStreamWriter>(folder, "streamed", 50, 7)),
            totals(Written<AuditFile>(folder, "built", 50, 7)));
}

TEST(SampleRecordsTest, EveryMonthIsAValidFileOfItsPeriod) {
  const testing::UseSchema schema;
  const TemporaryFolder folder;
  // Of 20 invoices each month has one, of 5 some have none.
  for (const int64_t invoices : {5, 20}) {
    int64_t transactions = 0;
    for (int month = 0; month < SampleRecords::kMonths; ++month) {
      const std::string name = folder.Path(std::to_string(invoices) + "-" + std::to_string(month));
      AuditFileStreamWriter writer;
      writer.set_AuditFileName(name);
      WriteTo(writer, SampleRecords(invoices, 1), {.first = month, .end = month + 1});
      AuditFile file;
      file.set_AuditFileName(name);
      EXPECT_TRUE(file.ValidateAuditFile()) << name << ": " << file.AuditException()->Description();
      AuditFileReader reader;
      reader.set_AuditFileName(name);
      ASSERT_TRUE(reader.OpenAuditFile());
      std::shared_ptr<Header> header;
      EXPECT_TRUE(reader.ReadHeader(header));
      EXPECT_EQ(header->StartDate().substr(0, 8), header->EndDate().substr(0, 8));
      transactions += reader.Transactions();
    }
    EXPECT_EQ(transactions, invoices);
  }
}

TEST(SampleRecordsTest, ASeedGivesTheSameBytesAndAnotherOneOthers) {
  const TemporaryFolder folder;
  const auto bytes = [&](const char* name, uint64_t seed) {
    return ReadBytes(Written<AuditFileStreamWriter>(folder, name, 20, seed));
  };
  const std::string first = bytes("a", 1);
  EXPECT_EQ(bytes("b", 1), first);
  EXPECT_NE(bytes("c", 2), first);
}

TEST(SampleRecordsTest, TheSignaturesOfASignedFileAreRight) {
  const testing::UseSchema schema;
  const TemporaryFolder folder;
  DocumentSigner signer(testing::kPrivateKey);
  AuditFileStreamWriter file;
  file.set_AuditFileName(folder.Path("signed"));
  WriteTo(file, SampleRecords(20, 1), {}, &signer);
  AuditFileChecker checker;
  checker.AddPublicKey(testing::kPublicKey);
  const auto findings = [&](const std::string& name) {
    checker.set_AuditFileName(name);
    EXPECT_TRUE(checker.CheckAuditFile());
    return std::vector{checker.CountOf("HASH-FORM"), checker.CountOf("HASH-CTRL"), checker.CountOf("HASH-CHAIN")};
  };
  EXPECT_EQ(findings(folder.Path("signed")), (std::vector<int64_t>{0, 0, 0}));
  // Of 20 none is right, which is told once.
  EXPECT_EQ(findings(Written<AuditFileStreamWriter>(folder, "unsigned", 20, 1)), (std::vector<int64_t>{0, 0, 1}));
}

}  // namespace
}  // namespace zevo::generate
