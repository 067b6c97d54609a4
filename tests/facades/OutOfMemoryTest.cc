// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>
#include <zevo/platform/Document.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/model/SchemaText.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

// Allocations of the library's own fail, each of the first thousand of an operation and some of those behind: nothing
// crashes, nothing leaks, the host is told.

namespace {

enum class Shortage { kOneAllocation, kFromThenOn };

[[maybe_unused]] void PrintTo(Shortage kind, std::ostream* out) {
  *out << (kind == Shortage::kOneAllocation ? "one allocation" : "every allocation from then on");
}

// Counts down while armed; zero is the allocation that fails.
thread_local int64_t allocations_left = -1;
thread_local Shortage shortage = Shortage::kOneAllocation;
thread_local bool failed_one = false;
thread_local int64_t living = 0;

bool Fails() {
  if (allocations_left < 0) return false;
  if (allocations_left > 0) {
    --allocations_left;
    return false;
  }
  if (shortage == Shortage::kOneAllocation) allocations_left = -1;
  failed_one = true;
  return true;
}

void* Allocate(std::size_t size, std::size_t alignment) noexcept {
  if (Fails()) return nullptr;
  void* memory = alignment <= alignof(std::max_align_t)
                     ? std::malloc(size == 0 ? 1 : size)
                     : std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
  if (memory != nullptr) ++living;
  return memory;
}

void Free(void* memory) noexcept {
  if (memory == nullptr) return;
  --living;
  std::free(memory);
}

void* AllocateOrThrow(std::size_t size, std::size_t alignment = 1) {
  void* memory = Allocate(size, alignment);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return AllocateOrThrow(size); }
void* operator new[](std::size_t size) { return AllocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size, 1); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size, 1); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return AllocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return AllocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept { Free(memory); }
void operator delete[](void* memory) noexcept { Free(memory); }
void operator delete(void* memory, std::size_t) noexcept { Free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { Free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { Free(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { Free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { Free(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { Free(memory); }

namespace zevo {
namespace {

using namespace zevo::testing;

// Everything that a host hands over, made while there is memory.
struct Records {
  std::shared_ptr<Header> header = SampleHeader();
  std::shared_ptr<Customer> customer = SampleCustomer("C1");
  std::shared_ptr<Product> product = SampleProduct("P1");
  std::shared_ptr<Journal> journal = SampleJournal("D1");
  std::shared_ptr<Transaction> transaction = SampleTransaction(1);
  std::shared_ptr<Invoice> invoice = SampleInvoice(1, "C1", "P1");
};

class OutOfMemoryTest : public ::testing::TestWithParam<Shortage> {
 protected:
  // Runs a scenario with the first, the second, ... allocation failing, until it gets by without a failure, and
  // expects that each time all memory came back. Of a scenario of many thousands, as tables made of a schema take, not
  // every one behind the first thousand fails: with each, the time would grow with their square.
  void ForEveryAllocation(const std::function<void()>& scenario) {
    scenario();
    shortage = GetParam();
    constexpr int64_t kEach = 1'000;
    constexpr int64_t kStep = 211;
    for (int64_t failing = 0; failing < 1'000'000; failing += failing < kEach ? 1 : kStep) {
      countdown_ = failing;
      failed_one = false;
      const int64_t before = living;
      scenario();
      ASSERT_EQ(living, before) << "memory was lost when allocation " << failing << " failed";
      if (HasFatalFailure() || HasNonfatalFailure()) FAIL() << "when allocation " << failing << " failed";
      if (!failed_one) {
        EXPECT_GT(failing, 3) << "hardly anything was allocated";
        return;
      }
    }
    FAIL() << "the scenario never got by";
  }

  // Runs one of the scenario's steps with the countdown going on.
  template <class Step>
  auto Armed(Step&& step) {
    struct Guard {
      explicit Guard(OutOfMemoryTest& test) : owner(test) { allocations_left = owner.countdown_; }
      ~Guard() {
        owner.countdown_ = allocations_left;
        allocations_left = -1;
      }
      OutOfMemoryTest& owner;
    } guard(*this);
    return step();
  }

  // Runs an operation of a façade: it succeeds or tells that there is no memory.
  template <class Facade, class Operation>
  bool Run(Facade& facade, const char* name, Operation&& operation) {
    const bool succeeded = Armed([&] { return operation(facade); });
    const auto exception = facade.AuditException();
    if (succeeded) {
      EXPECT_EQ(exception, nullptr) << name << ": " << Told(exception);
    } else {
      EXPECT_TRUE(failed_one) << name;
      EXPECT_NE(exception, nullptr) << name;
      if (exception == nullptr) return false;
      EXPECT_EQ(exception->Number(), kOutOfMemory) << name << ": " << Told(exception);
      EXPECT_EQ(exception->Source(), "ZevoAdapters11") << name;
      EXPECT_NE(exception->Description(), "") << name;
    }
    return succeeded;
  }

  void Disarm() { countdown_ = -1; }

  UseSchema schema_;
  TemporaryFolder folder_;
  std::string path_ = folder_.Path("saft.xml");
  Records records_;
  int64_t countdown_ = -1;
};

TEST_P(OutOfMemoryTest, WritingTellsEveryFailureAndTheFileStaysWhole) {
  SaveSampleFile(folder_.Path("old.xml"));
  const std::string old_bytes = ReadBytes(folder_.Path("old.xml"));
  ForEveryAllocation([&] {
    std::filesystem::remove(path_);
    AuditFile file;
    file.set_AuditFileName(path_);
    SalesInvoices invoices;
    GeneralLedgerEntries entries;
    const bool created = Run(file, "create", [](AuditFile& f) { return f.CreateAuditFile(); });
    if (created) {
      folder_.Write("saft.xml", old_bytes);
      const bool written =
          Run(file, "header", [&](AuditFile& f) { return f.CreateHeader(*records_.header); }) &&
          Run(file, "customer", [&](AuditFile& f) { return f.CreateCustomer(*records_.customer); }) &&
          Run(file, "product", [&](AuditFile& f) { return f.CreateProduct(*records_.product); }) &&
          Run(file, "entries", [&](AuditFile& f) { return f.CreateGeneralLedgerEntries(entries); }) &&
          Run(file, "journal", [&](AuditFile& f) { return f.CreateJournal(*records_.journal); }) &&
          Run(file, "transaction",
              [&](AuditFile& f) {
                return f.CreateTransaction(*records_.transaction, records_.journal.get(), &entries);
              }) &&
          Run(file, "update entries", [&](AuditFile& f) { return f.UpdateGeneralLedgerEntries(entries); }) &&
          Run(file, "invoices", [&](AuditFile& f) { return f.CreateSalesInvoices(invoices); }) &&
          Run(file, "invoice", [&](AuditFile& f) { return f.CreateInvoice(*records_.invoice, &invoices); }) &&
          Run(file, "update invoices", [&](AuditFile& f) { return f.UpdateSalesInvoices(invoices); });
      Run(file, "save", [](AuditFile& f) { return f.UpdateAuditFile(); });
      Disarm();
      const std::string found = ReadBytes(path_);
      // Whatever failed, the document is one that can be saved and read.
      EXPECT_TRUE(file.UpdateAuditFile()) << Told(file.AuditException());
      EXPECT_TRUE(found == old_bytes || found == ReadBytes(path_)) << "neither the old file nor the new one";
      EXPECT_EQ(folder_.Names().size(), 2U) << "a temporary file was left";
      if (written) {
        EXPECT_TRUE(file.ValidateAuditFile()) << Told(file.AuditException());
      }
      AuditFileReader reader;
      reader.set_AuditFileName(path_);
      EXPECT_TRUE(reader.OpenAuditFile()) << Told(reader.AuditException());
    } else {
      Disarm();
      EXPECT_TRUE(file.CreateAuditFile()) << "a failed create leaves the façade closed";
    }
  });
}

TEST_P(OutOfMemoryTest, OpeningFailsWholeAndSucceedsLater) {
  SaveSampleFile(path_);
  const std::string bytes = ReadBytes(path_);
  ForEveryAllocation([&] {
    AuditFile file;
    file.set_AuditFileName(path_);
    if (!Run(file, "open", [](AuditFile& f) { return f.OpenAuditFile(); })) {
      Disarm();
      EXPECT_TRUE(file.OpenAuditFile()) << Told(file.AuditException());
    }
    Disarm();
    EXPECT_TRUE(file.UpdateAuditFile());
    EXPECT_EQ(ReadBytes(path_), bytes);
  });
}

TEST_P(OutOfMemoryTest, ReadingFailsRecordByRecordAndGoesOn) {
  SaveSampleFile(path_);
  ForEveryAllocation([&] {
    AuditFileReader reader;
    reader.set_AuditFileName(path_);
    if (!Run(reader, "open", [](AuditFileReader& r) { return r.OpenAuditFile(); })) {
      Disarm();
      EXPECT_TRUE(reader.OpenAuditFile()) << Told(reader.AuditException());
      return;
    }
    std::shared_ptr<Header> header;
    std::shared_ptr<Customer> customer;
    std::shared_ptr<Journal> journal;
    std::shared_ptr<Transaction> transaction;
    std::shared_ptr<Invoice> invoice;
    std::shared_ptr<SalesInvoices> invoices;
    if (Run(reader, "header", [&](AuditFileReader& r) { return r.ReadHeader(header); })) {
      EXPECT_EQ(header->CompanyName(), records_.header->CompanyName());
    }
    if (Run(reader, "customer", [&](AuditFileReader& r) { return r.ReadCustomer(customer); })) {
      EXPECT_EQ(customer->CustomerID(), "C1");
    }
    Run(reader, "second customer", [&](AuditFileReader& r) { return r.ReadCustomer(customer); });
    if (Run(reader, "journal", [&](AuditFileReader& r) { return r.ReadJournal(journal); })) {
      EXPECT_EQ(journal->JournalID(), "D1");
    }
    if (Run(reader, "transaction",
            [&](AuditFileReader& r) { return r.ReadTransaction(transaction, *records_.journal); })) {
      EXPECT_EQ(transaction->Line()->Count(), 2);
    }
    if (Run(reader, "invoice", [&](AuditFileReader& r) { return r.ReadInvoice(invoice); })) {
      EXPECT_EQ(invoice->Line()->Count(), 1);
    }
    Run(reader, "totals", [&](AuditFileReader& r) { return r.ReadSalesInvoices(invoices); });
    Run(reader, "count of customers", [](AuditFileReader& r) { return r.Customers() != -1; });
    Run(reader, "count of transactions", [](AuditFileReader& r) { return r.Transactions() != -1; });
    Disarm();

    // A walk that failed is walked on, or anew, and comes to its end.
    int left = 0;
    for (bool more = true; more && left < 10; ++left) {
      EXPECT_TRUE(reader.ReadCustomer(customer)) << Told(reader.AuditException());
      more = customer != nullptr;
    }
    EXPECT_LT(left, 10);
    EXPECT_EQ(reader.Customers(), 2);
  });
}

TEST_P(OutOfMemoryTest, ScanningTellsEveryFailureUntilTheFileIsClosed) {
  // With problems: elements that repeat, are unknown, or have attributes.
  const std::string content =
      "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><Extra>a text that is longer than a few</Extra>"
      "<MasterFiles><Customer a='1'><CustomerID>C1</CustomerID><Fax>1</Fax><Fax>another that is longer than a few</Fax>"
      "<Pet>cat</Pet></Customer></MasterFiles></AuditFile>";
  folder_.Write("saft.xml", content);
  ForEveryAllocation([&] {
    AuditFileScanner scanner;
    scanner.set_AuditFileName(path_);
    if (!Run(scanner, "open", [](AuditFileScanner& s) { return s.OpenAuditFile(); })) {
      Disarm();
      EXPECT_TRUE(scanner.OpenAuditFile()) << Told(scanner.AuditException());
      return;
    }
    std::shared_ptr<Record> record;
    const bool read = Run(scanner, "read", [&](AuditFileScanner& s) { return s.ReadNext(record); });
    if (read) {
      try {
        Armed([&] { scanner.Problems(); });
      } catch (const std::bad_alloc&) {
        EXPECT_TRUE(failed_one);
      }
      Disarm();
      ASSERT_NE(record, nullptr);
      EXPECT_EQ(scanner.Problems().size(), 4u);
      EXPECT_EQ(scanner.Problems()[2].path, "Fax[2]");
      EXPECT_EQ(scanner.Elements().size(), 5u);
    } else {
      Disarm();
      EXPECT_EQ(record, nullptr);
      EXPECT_FALSE(scanner.ReadNext(record));
      EXPECT_EQ(scanner.AuditException()->Number(), kOutOfMemory);
    }
  });
}

TEST_P(OutOfMemoryTest, ValidationFailsWithoutAVerdict) {
  SaveSampleFile(path_);
  ForEveryAllocation([&] {
    AuditFile file;
    file.set_AuditFileName(path_);
    Run(file, "validate", [](AuditFile& f) { return f.ValidateAuditFile(); });
    Disarm();
    EXPECT_TRUE(file.ValidateAuditFile()) << Told(file.AuditException());
  });
}

TEST_P(OutOfMemoryTest, FailuresOfChecksAreToldOrOutOfMemoryIs) {
  ForEveryAllocation([&] {
    AuditFile file;
    const bool succeeded = Armed([&] { return file.UpdateAuditFile(); });
    Disarm();
    EXPECT_FALSE(succeeded);
    const auto exception = file.AuditException();
    ASSERT_NE(exception, nullptr);
    if (exception->Number() == kOutOfMemory) {
      EXPECT_NE(exception->Description(), "");
    } else {
      EXPECT_EQ(exception->Number(), kNotStarted.number);
      EXPECT_EQ(exception->Description(), kNotStarted.text);
    }
  });
}

TEST_P(OutOfMemoryTest, HostThatMakesFacadesAndRecordsMeetsBadAllocAlone) {
  ForEveryAllocation([&] {
    const auto make = [&] {
      AuditFile file;
      file.set_AuditFileName("a name that is longer than what a string holds within itself");
      AuditFileReader reader;
      reader.set_AuditFileName("a name that is longer than what a string holds within itself");
      SampleHeader();
      SampleCustomer("a code that is longer than a few");
      SampleTransaction(1);
      SampleInvoice(1, "C1", "P1");
    };
    try {
      Armed(make);
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(failed_one);
    }
    Disarm();
  });
}

TEST_P(OutOfMemoryTest, StreamedElementsAreClosedWhateverFailed) {
  ForEveryAllocation([&] {
    std::filesystem::remove(path_);
    AuditFileStreamWriter file;
    file.set_AuditFileName(path_);
    SalesInvoices invoices;
    GeneralLedgerEntries entries;
    if (!Run(file, "create", [](AuditFileStreamWriter& f) { return f.CreateAuditFile(); })) {
      Disarm();
      EXPECT_TRUE(file.CreateAuditFile()) << "a failed create leaves the façade closed";
      return;
    }
    Run(file, "header", [&](AuditFileStreamWriter& f) { return f.CreateHeader(*records_.header); });
    Run(file, "customer", [&](AuditFileStreamWriter& f) { return f.CreateCustomer(*records_.customer); });
    Run(file, "product", [&](AuditFileStreamWriter& f) { return f.CreateProduct(*records_.product); });
    Run(file, "entries", [&](AuditFileStreamWriter& f) { return f.BeginGeneralLedgerEntries(entries); });
    Run(file, "journal", [&](AuditFileStreamWriter& f) { return f.BeginJournal(*records_.journal); });
    Run(file, "transaction", [&](AuditFileStreamWriter& f) { return f.CreateTransaction(*records_.transaction); });
    Run(file, "invoices", [&](AuditFileStreamWriter& f) { return f.BeginSalesInvoices(invoices); });
    Run(file, "invoice", [&](AuditFileStreamWriter& f) { return f.CreateInvoice(*records_.invoice); });
    Armed([&] { file.CloseAuditFile(); });
    Disarm();
    AuditFileReader reader;
    reader.set_AuditFileName(path_);
    EXPECT_TRUE(reader.OpenAuditFile()) << Told(reader.AuditException());
  });
}

TEST_P(OutOfMemoryTest, SchemaIsChangedWhollyOrNotAtAll) {
  const std::string schema = folder_.Write("other.xsd", SchemaLimiting({{"/AuditFile/Header/CompanyID", "3"}}));
  ForEveryAllocation([&] {
    bool changed = false;
    try {
      Armed([&] { Options().set_SchemaLocation(schema); });
      changed = true;
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(failed_one);
    }
    Disarm();
    EXPECT_EQ(Options().SchemaLocation(), changed ? schema : ZEVO_SCHEMA_FILE);
    Header header;
    header.set_CompanyID("123456789");
    EXPECT_EQ(header.CompanyID(), changed ? "123" : "123456789");
    header.set_ProductVersion(std::string(40, 'x'));
    EXPECT_EQ(header.ProductVersion().size(), changed ? 40U : 30U);
    Options().set_SchemaLocation(ZEVO_SCHEMA_FILE);
  });
}

TEST_P(OutOfMemoryTest, ElementsAreFoundUnderTheKeysTheyGotMeanwhile) {
  const std::string_view keys[] = {"a key that is longer than a few", "another that is longer than a few",
                                   "one more that is longer than a few"};
  ForEveryAllocation([&] {
    Document document;
    const Element root = document.AppendElement({}, "root");
    std::vector<Element> items;
    for (size_t i = 0; i < std::size(keys); ++i) items.push_back(document.AppendElement(root, "item"));
    document.AppendElement(root, "key");
    EXPECT_FALSE(document.FirstChildByKey(root, "item", "key", "none"));
    for (size_t i = 0; i < std::size(keys); ++i) {
      document.AppendText(document.AppendElement(items[i], "key"), NodeKind::kText, keys[i]);
    }
    try {
      Armed([&] { document.FirstChildByKey(root, "item", "key", keys[0]); });
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(failed_one);
    }
    Disarm();
    for (size_t i = 0; i < std::size(keys); ++i) {
      EXPECT_EQ(document.FirstChildByKey(root, "item", "key", keys[i]), items[i]) << keys[i];
    }
  });
}

TEST_P(OutOfMemoryTest, CollectionThatCannotTakeALineKeepsTheOthersUnderTheirKeys) {
  Options().set_ValidateOnAssignment(false);
  ForEveryAllocation([&] {
    LineCollection lines;
    std::vector<std::shared_ptr<TransactionLine>> added;
    for (int i = 0; i < 24; ++i) {
      auto line = std::make_shared<TransactionLine>();
      line->set_RecordID("a code that is longer than a few, " + std::to_string(i));
      try {
        Armed([&] { lines.Add(line); });
        added.push_back(line);
      } catch (const std::bad_alloc&) {
        EXPECT_TRUE(failed_one);
      }
    }
    Disarm();
    ASSERT_EQ(lines.Count(), added.size());
    for (const auto& line : added) {
      EXPECT_EQ(lines.Item(line->RecordID()), line);
      EXPECT_ERROR(lines.Add(line), 457, "ZevoAdapters11");
    }
  });
}

INSTANTIATE_TEST_SUITE_P(EitherShortage, OutOfMemoryTest,
                         ::testing::Values(Shortage::kOneAllocation, Shortage::kFromThenOn));

}  // namespace
}  // namespace zevo
