// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <malloc.h>
#include <zevo/check/FileCheck.h>
#include <zevo/check/Rule.h>
#include <zevo/dal/EntityScanner.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <new>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace {

// What this program has allocated, and the most that it had.
int64_t allocated = 0;
int64_t most_allocated = 0;

}  // namespace

void* operator new(size_t size, const std::nothrow_t&) noexcept {
  void* const memory = std::malloc(size);
  if (memory == nullptr) return nullptr;
  allocated += static_cast<int64_t>(malloc_usable_size(memory));
  most_allocated = std::max(most_allocated, allocated);
  return memory;
}

void* operator new(size_t size) {
  void* const memory = operator new(size, std::nothrow);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept {
  if (memory != nullptr) allocated -= static_cast<int64_t>(malloc_usable_size(memory));
  std::free(memory);
}

void operator delete(void* memory, size_t) noexcept { operator delete(memory); }

namespace zevo::testing {
namespace {

using MakeRecord = std::string (*)(int number);

struct Kind {
  const char* name;
  std::string_view basis;
  std::vector<MakeRecord> records;  // as many of each
  int64_t bytes;                    // that one of each may take

  friend std::ostream& operator<<(std::ostream& out, const Kind& kind) { return out << kind.name; }
};

std::string CustomerOf(int number) {
  return "<Customer><CustomerID>C" + std::to_string(number) +
         "</CustomerID><AccountID>Desconhecido</AccountID><CustomerTaxID>999999990</CustomerTaxID>"
         "<CompanyName>Consumidor final</CompanyName></Customer>";
}

std::string TransactionOf(int number) {
  return "<Transaction><TransactionID>2011-05-05 V " + std::to_string(number) +
         "</TransactionID><Period>5</Period><TransactionDate>2011-05-05</TransactionDate><Line><RecordID>1</RecordID>"
         "<DebitAmount>12.30</DebitAmount></Line><Line><RecordID>2</RecordID><CreditAmount>12.30</CreditAmount></Line>"
         "</Transaction>";
}

std::string InvoiceOf(int number, const std::string& transaction) {
  return "<Invoice><InvoiceNo>FT A/" + std::to_string(number) +
         "</InvoiceNo><InvoiceStatus>N</InvoiceStatus><Hash>0</Hash><Period>5</Period>"
         "<InvoiceDate>2011-05-05</InvoiceDate><InvoiceType>FT</InvoiceType>"
         "<SystemEntryDate>2011-05-05T10:00:00</SystemEntryDate>" +
         transaction +
         "<Line><LineNumber>1</LineNumber><Quantity>1</Quantity><UnitPrice>10.00</UnitPrice>"
         "<CreditAmount>10.00</CreditAmount></Line><DocumentTotals><TaxPayable>0</TaxPayable><NetTotal>10.00</NetTotal>"
         "<GrossTotal>10.00</GrossTotal></DocumentTotals></Invoice>";
}

std::string PlainInvoiceOf(int number) { return InvoiceOf(number, ""); }

std::string BookedInvoiceOf(int number) {
  return InvoiceOf(number, "<TransactionID>2011-05-05 V " + std::to_string(number) + "</TransactionID>");
}

class CheckMemoryTest : public ::testing::TestWithParam<Kind> {
 protected:
  // The most bytes that are allocated while the rules judge a file of so many records.
  int64_t MostFor(int records) {
    const std::string path = folder_.Path("file.xml");
    std::ofstream file(path);
    file << "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\"><Header><AuditFileVersion>1.01_01"
            "</AuditFileVersion><TaxAccountingBasis>"
         << GetParam().basis
         << "</TaxAccountingBasis><StartDate>2011-01-01</StartDate><EndDate>2011-12-31</EndDate></Header>";
    for (const MakeRecord make : GetParam().records) {
      for (int i = 1; i <= records; ++i) file << make(i);
    }
    file << "</AuditFile>";
    file.close();

    const int64_t before = allocated;
    most_allocated = before;
    CheckSettings settings;
    for (const RuleInfo& rule : AllRuleInfos()) settings.severities.push_back(rule.severity);
    const Findings::Sink found;
    Findings findings(settings, found, false);
    FileCheck check(settings, findings);
    EntityScanner scanner(path);
    scanner.Open("test");
    while (const ScannedEntity* const entity = scanner.Next("test")) check.Judge(*entity);
    check.End();
    return most_allocated - before;
  }

  TemporaryFolder folder_;
};

TEST_P(CheckMemoryTest, ItIsAsManyBytesARecordAsAreDocumented) {
  constexpr int64_t kWhateverTheFile = 1'000'000;
  // Tables that are three quarters full have just been doubled.
  for (const int records : {20'000, 24'600, 49'200}) {
    EXPECT_LT(MostFor(records), kWhateverTheFile + records * GetParam().bytes) << records << " records";
  }
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, CheckMemoryTest,
    ::testing::Values(Kind{"customers", "F", {CustomerOf}, 64}, Kind{"invoices", "F", {PlainInvoiceOf}, 64},
                      Kind{"transactions", "I", {TransactionOf}, 160},
                      Kind{"invoices of transactions", "I", {TransactionOf, BookedInvoiceOf}, 224}));

}  // namespace
}  // namespace zevo::testing
