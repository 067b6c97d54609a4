// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <zevo/adapters.h>

#include <filesystem>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>

#include "tests/facades/ChildProcess.h"
#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/TemporaryFolder.h"

// Memory grows in proportion to the file, or not at all where it is streamed.

namespace zevo {
namespace {

using namespace zevo::testing;

constexpr int kRecords = 20'000;

struct Kind {
  const char* name;
  int SampleSize::*count;
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

// Kilobytes that a process reaches with a job, told by the process.
template <class Job>
int64_t PeakOf(Job&& job) {
  const std::string report = InChildProcess([&] {
    job();
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return std::to_string(usage.ru_maxrss);
  });
  return std::stoll(report);
}

class ScaleTest : public ::testing::TestWithParam<Kind> {
 protected:
  void SetUp() override {
    if (kSanitized) GTEST_SKIP() << "a sanitizer distorts memory";
  }

  static SampleSize Size(int records) {
    SampleSize size{.customers = 1, .transactions = 1, .invoices = 1};
    size.*GetParam().count = records;
    return size;
  }

  TemporaryFolder folder_;
};

TEST_P(ScaleTest, MemoryGrowsByNoMoreThanThreeTimesTheFile) {
  const std::string once = folder_.Path("once.xml");
  const std::string twice = folder_.Path("twice.xml");
  const int64_t building_once = PeakOf([&] { SaveSampleFile(once, Size(kRecords)); });
  const int64_t building_twice = PeakOf([&] { SaveSampleFile(twice, Size(2 * kRecords)); });
  const int64_t reading_once = PeakOf([&] { ReadEveryRecord(once); });
  const int64_t reading_twice = PeakOf([&] { ReadEveryRecord(twice); });

  const auto growth = static_cast<int64_t>(std::filesystem::file_size(twice) - std::filesystem::file_size(once)) / 1024;
  ASSERT_GT(growth, 5'000);
  EXPECT_LT(building_twice - building_once, 3 * growth);
  EXPECT_LT(reading_twice - reading_once, 3 * growth);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, ScaleTest,
                         ::testing::Values(Kind{"customers", &SampleSize::customers},
                                           Kind{"transactions", &SampleSize::transactions},
                                           Kind{"invoices", &SampleSize::invoices}));

TEST(ScaleStreamTest, MemoryDoesNotGrowWithAFileThatIsStreamed) {
  if (kSanitized) GTEST_SKIP() << "a sanitizer distorts memory";
  constexpr int kInvoices = 50'000;
  constexpr int64_t kMostKilobytes = 16'000;
  const TemporaryFolder folder;
  const std::string path = folder.Path("saft.xml");
  const int64_t writing = PeakOf([&] {
    AuditFileStreamWriter file;
    file.set_AuditFileName(path);
    file.CreateAuditFile();
    file.BeginSalesInvoices(SalesInvoices());
    for (int i = 0; i < kInvoices; ++i) file.CreateInvoice(*SampleInvoice(i, "C1", "P1"));
    file.CloseAuditFile();
  });
  ASSERT_GT(std::filesystem::file_size(path), 30'000'000U);
  int64_t read = 0;
  const int64_t reading = PeakOf([&] {
    AuditFileStreamer file;
    file.set_AuditFileName(path);
    file.ReadEntity = [&](const std::string&, const std::shared_ptr<Record>& record) { read += record ? 1 : 0; };
    file.OpenAuditFile();
    if (!file.ReadAuditFile() || read != kInvoices + 1) throw std::runtime_error("not read");
  });
  EXPECT_LT(writing, kMostKilobytes);
  EXPECT_LT(reading, kMostKilobytes);
}

}  // namespace
}  // namespace zevo
