// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <zevo/adapters.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

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

/// A file that is scanned, and how large its largest entity is.
struct ScannedFile {
  const char* name;
  std::function<std::string()> entity;
  int times = 1;
  std::string_view between = {};  // many of them stand before each
  int many = 0;
};

void PrintTo(const ScannedFile& file, std::ostream* out) { *out << file.name; }

std::string Repeated(std::string_view text, int times) {
  std::string repeated;
  for (int i = 0; i < times; ++i) repeated += text;
  return repeated;
}

std::string Invoice50000() {
  std::string invoice = "<Invoice><InvoiceNo>F A/1</InvoiceNo>";
  for (int i = 1; i <= 50'000; ++i) {
    invoice.append("<Line><LineNumber>").append(std::to_string(i)).append("</LineNumber>");
    invoice +=
        "<ProductCode>P</ProductCode><ProductDescription>Parafusos</ProductDescription><Quantity>2</Quantity>"
        "<UnitOfMeasure>UN</UnitOfMeasure><UnitPrice>1.25</UnitPrice><TaxPointDate>2010-05-04</TaxPointDate>"
        "<Description>Parafusos</Description><CreditAmount>2.5</CreditAmount><Tax><TaxType>IVA</TaxType>"
        "<TaxCountryRegion>PT</TaxCountryRegion><TaxCode>NOR</TaxCode><TaxPercentage>20</TaxPercentage></Tax></Line>";
  }
  return invoice + "</Invoice>";
}

class ScaleScanTest : public ::testing::TestWithParam<ScannedFile> {};

// Whatever comes before it and how often it comes.
TEST_P(ScaleScanTest, MemoryIsThatOfTheLargestEntity) {
  if (kSanitized) GTEST_SKIP() << "a sanitizer distorts memory";
  const TemporaryFolder folder;
  const std::string path = folder.Path("saft.xml");
  // This process stays small, because the one that scans begins as a copy of it.
  const int64_t size = std::stoll(InChildProcess([&] {
    const std::string entity = GetParam().entity();
    std::ofstream file(path);
    file << "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><MasterFiles>";
    for (int i = 0; i < GetParam().times; ++i) {
      for (int j = 0; j < GetParam().many; ++j) file << GetParam().between;
      file << entity;
    }
    file << "</MasterFiles></AuditFile>";
    return std::to_string(entity.size());
  }));
  const int64_t scanning = PeakOf([&] {
    AuditFileScanner scanner;
    scanner.set_AuditFileName(path);
    std::shared_ptr<Record> record;
    if (!scanner.OpenAuditFile()) throw std::runtime_error("not opened");
    do {
      if (!scanner.ReadNext(record)) throw std::runtime_error("not scanned");
    } while (record != nullptr);
  });
  EXPECT_LT(scanning, 16'000 + 5 * size / 1'000);
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, ScaleScanTest,
    ::testing::Values(
        ScannedFile{"an invoice of 50,000 lines", Invoice50000},
        ScannedFile{"a tax table of 100,000 entries",
                    [] {
                      return "<TaxTable>" +
                             Repeated(
                                 "<TaxTableEntry><TaxType>IVA</TaxType><TaxCountryRegion>PT</TaxCountryRegion>"
                                 "<TaxCode>NOR</TaxCode><Description>Normal</Description>"
                                 "<TaxPercentage>20</TaxPercentage></TaxTableEntry>",
                                 100'000) +
                             "</TaxTable>";
                    }},
        ScannedFile{"a text of ten million bytes",
                    [] { return "<Header><Fax>" + std::string(9'999'999, 'x') + "</Fax></Header>"; }},
        ScannedFile{"a problem in every element",
                    [] { return "<Header>" + Repeated("<Mobile>912345678</Mobile>", 400'000) + "</Header>"; }},
        ScannedFile{"an attribute in every element",
                    [] { return "<Header>" + Repeated("<Pet name='A'>cat</Pet>", 400'000) + "</Header>"; }},
        ScannedFile{"elements that are nothing but tags",
                    [] { return "<Header>" + Repeated("<a/>", 5'000'000) + "</Header>"; }},
        // Lists that double have just done so.
        ScannedFile{"single characters between empty elements",
                    [] { return "<Header>" + Repeated("x<a/>", 4'300'000) + "</Header>"; }},
        ScannedFile{"single characters between more empty elements",
                    [] { return "<Header>" + Repeated("x<a/>", 5'600'000) + "</Header>"; }},
        ScannedFile{"an attribute in every empty element",
                    [] { return "<Header>" + Repeated("x<a b=''/>", 2'000'000) + "</Header>"; }},
        ScannedFile{"much that is no entity", [] { return "<Header/>"; }, 2, "<Extra>text</Extra>", 300'000},
        ScannedFile{"many small entities", [] { return "<Customer><Fax>1</Fax></Customer>"; }, 100'000},
        ScannedFile{"small entities that are deep",
                    [] { return "<Invoice><Line><Tax><TaxCode>1</TaxCode></Tax></Line></Invoice>"; }, 60'000},
        ScannedFile{
            "large entities behind many small ones",
            [] { return "<Product>" + Repeated("<ProductGroup>abc def</ProductGroup>", 25'000) + "</Product>"; }, 20,
            "<Product><ProductCode>1</ProductCode></Product>", 20'000}));

}  // namespace
}  // namespace zevo
