// SPDX-License-Identifier: Apache-2.0
// Memory runs out, and records raise, in every kind of method: a result tells the host, and no exception leaves.

#include <zevo/adapters.h>
#include <zevo/component/Classes.h>
#include <zevo/component/Dispatcher.h>
#include <zevo/component/ErrorTranslation.h>
#include <zevo/component/Faces.h>
#include <zevo/component/LiveObject.h>
#include <zevo/component/TypeLibrary.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <new>
#include <utility>

#include "tests/check/CheckTest.h"
#include "tests/component/Com.h"
#include "tests/component/EventSink.h"
#include "tests/facades/SampleFile.h"
#include "tests/model/SchemaText.h"
#include "tests/support/TemporaryFolder.h"

namespace {

// How many allocations succeed before one fails; negative while none is to fail.
thread_local int allocations_left = -1;

void* Allocate(size_t size) {
  if (allocations_left == 0) throw std::bad_alloc();
  if (allocations_left > 0) --allocations_left;
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(size_t size) { return Allocate(size); }
void* operator new[](size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, size_t) noexcept { std::free(memory); }

namespace zevo::testing {
namespace {

using component::FaceFor;
using component::Guarded;
using component::LiveObject;

constexpr std::wstring_view kLongText = L"A text that is too long to be held without memory of its own";

// Lets each allocation of an operation fail in turn. It must say so, until it needs no more than it gets.
void RunOutOfMemoryIn(const std::function<HRESULT()>& operation) {
  for (int allowed = 0;; ++allowed) {
    ASSERT_LT(allowed, 10000);
    allocations_left = allowed;
    const HRESULT result = operation();
    const bool exhausted = allocations_left == 0;
    allocations_left = -1;
    if (SUCCEEDED(result)) {
      EXPECT_GT(allowed, 0) << "nothing was allocated";
      return;
    }
    EXPECT_TRUE(exhausted);
    EXPECT_EQ(result, E_OUTOFMEMORY);
  }
}

class FailureTest : public ::testing::Test {
 protected:
  ~FailureTest() override { EXPECT_EQ(LiveObject::Count(), live_before_); }

  long live_before_ = LiveObject::Count();
};

TEST_F(FailureTest, OutOfMemoryWhenAnObjectIsCreated) {
  for (const CLSID& id : {__uuidof(::Header), __uuidof(::Invoice), __uuidof(::AuditFile), __uuidof(::AuditFileReader),
                          __uuidof(::AuditFileChecker), __uuidof(::AuditFileScanner), __uuidof(::AuditFileStreamWriter),
                          __uuidof(::AuditFileStreamer), __uuidof(::Options)}) {
    IClassFactory* factory = component::FactoryOf(id);
    RunOutOfMemoryIn([&] {
      ComPtr<IUnknown> object;
      return factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(object.GetAddressOf()));
    });
  }
}

TEST_F(FailureTest, OutOfMemoryWhenATextIsAssigned) {
  const ComPtr<_Journal> journal = FaceFor(std::make_shared<zevo::Journal>());
  const Bstr text(kLongText);
  RunOutOfMemoryIn([&] { return journal->put_Description(text); });
}

TEST_F(FailureTest, OutOfMemoryWhenATextIsRead) {
  const auto record = std::make_shared<zevo::Journal>();
  record->set_Description(std::string(kLongText.begin(), kLongText.end()));
  const ComPtr<_Journal> journal = FaceFor(record);
  RunOutOfMemoryIn([&] {
    Bstr text;
    return journal->get_Description(text.Receive());
  });
}

TEST_F(FailureTest, OutOfMemoryWhenAnObjectIsRead) {
  const ComPtr<_Customer> customer = FaceFor(std::make_shared<zevo::Customer>());
  RunOutOfMemoryIn([&] {
    ComPtr<_AddressStructure> address;
    return customer->get_BillingAddress(&address);
  });
}

TEST_F(FailureTest, OutOfMemoryInACollection) {
  const ComPtr<_InvoiceLineCollection> lines = FaceFor(zevo::Invoice().Line());
  const ComPtr<_InvoiceLine> line = FaceFor(std::make_shared<zevo::InvoiceLine>());
  RunOutOfMemoryIn([&] { return lines->Add(line.Get()); });
  const Variant key(kLongText);
  allocations_left = 0;
  EXPECT_EQ(lines->Remove(*key), E_OUTOFMEMORY);
  allocations_left = -1;
  RunOutOfMemoryIn([&] {
    ComPtr<IUnknown> items;
    return lines->NewEnum(&items);
  });
  ComPtr<IUnknown> items;
  ASSERT_EQ(lines->NewEnum(&items), S_OK);
  ComPtr<IEnumVARIANT> enumeration;
  ASSERT_EQ(items.As(&enumeration), S_OK);
  RunOutOfMemoryIn([&] {
    ComPtr<IEnumVARIANT> clone;
    return enumeration->Clone(&clone);
  });
}

// None of the items at hand is lost: the next call gives them all.
TEST_F(FailureTest, OutOfMemoryWhenItemsAreEnumerated) {
  const auto collection = zevo::Invoice().Line();
  for (const int number : {1, 2, 3}) {
    const auto line = std::make_shared<zevo::InvoiceLine>();
    line->set_LineNumber(number);
    collection->Add(line);
  }
  const ComPtr<_InvoiceLineCollection> lines = FaceFor(collection);
  ComPtr<IUnknown> items;
  ASSERT_EQ(lines->NewEnum(&items), S_OK);
  ComPtr<IEnumVARIANT> enumeration;
  ASSERT_EQ(items.As(&enumeration), S_OK);
  const long live = LiveObject::Count();
  VARIANT given[3];
  ULONG fetched = 0;
  RunOutOfMemoryIn([&] {
    EXPECT_EQ(LiveObject::Count(), live);
    return enumeration->Next(3, given, &fetched);
  });
  EXPECT_EQ(fetched, 3U);
  int number = 0;
  for (VARIANT& item : given) {
    EXPECT_EQ(Get(V_DISPATCH(&item), L"LineNumber").value.Number(), ++number);
    VariantClear(&item);
  }
}

TEST_F(FailureTest, OutOfMemoryWhenAnItemIsRead) {
  const auto collection = zevo::Invoice().Line();
  collection->Add(std::make_shared<zevo::InvoiceLine>());
  const ComPtr<_InvoiceLineCollection> lines = FaceFor(collection);
  RunOutOfMemoryIn([&] {
    ComPtr<_InvoiceLine> line;
    return lines->get_Item(*Variant(1), &line);
  });
}

TEST_F(FailureTest, OutOfMemoryWhenTheFileNameIsAssigned) {
  const ComPtr<_AuditFile> file = FaceFor(std::make_shared<zevo::AuditFile>());
  const Bstr name(kLongText);
  RunOutOfMemoryIn([&] { return file->put_AuditFileName(name); });
}

// The operations of a file keep the failure, as they keep any other.
TEST_F(FailureTest, OutOfMemoryInAnOperationIsKept) {
  TemporaryFolder folder;
  const auto file = std::make_shared<zevo::AuditFile>();
  file->set_AuditFileName(folder.Path("saft.xml"));
  const ComPtr<_AuditFile> face = FaceFor(file);
  VARIANT_BOOL done = VARIANT_TRUE;
  allocations_left = 0;
  EXPECT_EQ(face->CreateAuditFile(&done), S_OK);
  allocations_left = -1;
  EXPECT_EQ(done, VARIANT_FALSE);
  ASSERT_NE(file->AuditException(), nullptr);
  EXPECT_EQ(file->AuditException()->Number(), static_cast<int32_t>(RunTimeError::kOutOfMemory));
}

TEST_F(FailureTest, OutOfMemoryWhenTheFailureIsRead) {
  const auto file = std::make_shared<zevo::AuditFile>();
  EXPECT_FALSE(file->OpenAuditFile());
  const ComPtr<_AuditFile> face = FaceFor(file);
  RunOutOfMemoryIn([&] {
    ComPtr<_AuditException> exception;
    return face->get_AuditException(&exception);
  });
}

TEST_F(FailureTest, OutOfMemoryInAnEventEndsTheReading) {
  TemporaryFolder folder;
  const std::string path = folder.Path("saft.xml");
  SaveSampleFile(path);
  const auto streamer = std::make_shared<zevo::AuditFileStreamer>();
  streamer->set_AuditFileName(path);
  ASSERT_TRUE(streamer->OpenAuditFile());
  const ComPtr<_AuditFileStreamer> face = FaceFor(streamer);
  ComPtr<IConnectionPointContainer> container;
  ComPtr<IConnectionPoint> point;
  ASSERT_EQ(face.As(&container), S_OK);
  ASSERT_EQ(container->FindConnectionPoint(__uuidof(__AuditFileStreamer), &point), S_OK);
  const ComPtr<EventSink> sink = MakeSink();
  DWORD cookie = 0;
  RunOutOfMemoryIn([&] { return point->Advise(sink.Get(), &cookie); });
  int events = 0;
  sink->on_entity = [&](const std::wstring&, IDispatch**) {
    // The next one fails.
    if (++events == 2) allocations_left = 0;
    return S_OK;
  };
  sink->events.reserve(1000);
  VARIANT_BOOL read = VARIANT_TRUE;
  EXPECT_EQ(face->ReadAuditFile(VARIANT_TRUE, &read), S_OK);
  allocations_left = -1;
  EXPECT_EQ(read, VARIANT_FALSE);
  EXPECT_EQ(events, 2);
  ASSERT_NE(streamer->AuditException(), nullptr);
  EXPECT_EQ(streamer->AuditException()->Number(), static_cast<int32_t>(RunTimeError::kOutOfMemory));
  ASSERT_EQ(point->Unadvise(cookie), S_OK);
  RunOutOfMemoryIn([&] {
    ComPtr<IEnumConnections> connections;
    return point->EnumConnections(&connections);
  });
  RunOutOfMemoryIn([&] {
    ComPtr<IEnumConnectionPoints> points;
    return container->EnumConnectionPoints(&points);
  });
}

class ScanningFailureTest : public FailureTest {
 protected:
  // A scanner at the first record of a file, which has a problem.
  ComPtr<_AuditFileScanner> NewScanner() {
    const auto scanner = std::make_shared<zevo::AuditFileScanner>();
    scanner->set_AuditFileName(path_);
    EXPECT_TRUE(scanner->OpenAuditFile());
    return FaceFor(scanner);
  }
  ComPtr<_AuditFileScanner> NewScannerAtRecord() {
    const ComPtr<_AuditFileScanner> scanner = NewScanner();
    ComPtr<IDispatch> record;
    VARIANT_BOOL read = VARIANT_FALSE;
    EXPECT_EQ(scanner->ReadNext(record.GetAddressOf(), &read), S_OK);
    EXPECT_NE(record.Get(), nullptr);
    return scanner;
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.Write(
      "saft.xml",
      "<AuditFile><MasterFiles><Customer><CustomerID>A text that is too long to be held without memory of its own"
      "</CustomerID><Pet/></Customer></MasterFiles></AuditFile>");
};

// Where the reading fails, it is kept; where the record's object cannot be made, it is raised.
TEST_F(ScanningFailureTest, OutOfMemoryWhenTheNextRecordIsRead) {
  // What the library allocates once only is there then.
  NewScannerAtRecord();
  int kept = 0;
  int raised = 0;
  for (int allowed = 0;; ++allowed) {
    ASSERT_LT(allowed, 10000);
    const ComPtr<_AuditFileScanner> scanner = NewScanner();
    ComPtr<IDispatch> record;
    VARIANT_BOOL read = VARIANT_TRUE;
    allocations_left = allowed;
    const HRESULT result = scanner->ReadNext(record.GetAddressOf(), &read);
    allocations_left = -1;
    if (record) break;
    EXPECT_EQ(read, VARIANT_FALSE);
    if (FAILED(result)) {
      EXPECT_EQ(result, E_OUTOFMEMORY);
      ++raised;
      continue;
    }
    ComPtr<_AuditException> exception;
    LONG number = 0;
    ASSERT_EQ(scanner->get_AuditException(exception.GetAddressOf()), S_OK);
    ASSERT_NE(exception.Get(), nullptr);
    EXPECT_EQ(exception->get_Number(&number), S_OK);
    EXPECT_EQ(number, static_cast<LONG>(RunTimeError::kOutOfMemory));
    ++kept;
  }
  EXPECT_GT(kept, 0);
  EXPECT_GT(raised, 0);
}

// Each time from an object that has not been asked before: what was asked for is kept.
TEST_F(ScanningFailureTest, OutOfMemoryInEachMemberOfTheScanner) {
  const auto fails = [&]<class Result>(HRESULT (STDMETHODCALLTYPE _AuditFileScanner::*get)(Result**)) {
    const ComPtr<_AuditFileScanner> scanner = NewScannerAtRecord();
    RunOutOfMemoryIn([&] {
      ComPtr<Result> result;
      return (scanner.Get()->*get)(result.GetAddressOf());
    });
  };
  fails(&_AuditFileScanner::get_Elements);
  fails(&_AuditFileScanner::get_Problems);
  fails(&_AuditFileScanner::get_Place);
  const ComPtr<_AuditFileScanner> scanner = NewScannerAtRecord();
  const Bstr path(L"A path that is too long to be held without memory of its own");
  RunOutOfMemoryIn([&] {
    Variant text;
    return scanner->TextOf(path, &*text);
  });
  RunOutOfMemoryIn([&] {
    ComPtr<_FilePlace> place;
    return scanner->PlaceOf(path, place.GetAddressOf());
  });
}

TEST_F(ScanningFailureTest, OutOfMemoryInEachMemberOfTheValues) {
  const ComPtr<_AuditFileScanner> scanner = NewScannerAtRecord();
  ComPtr<_ScannedElementCollection> elements;
  ComPtr<_ProblemCollection> problems;
  ASSERT_EQ(scanner->get_Elements(elements.GetAddressOf()), S_OK);
  ASSERT_EQ(scanner->get_Problems(problems.GetAddressOf()), S_OK);
  RunOutOfMemoryIn([&] {
    ComPtr<_ScannedElement> element;
    return elements->get_Item(*Variant(2), element.GetAddressOf());
  });
  RunOutOfMemoryIn([&] {
    ComPtr<IUnknown> each;
    return elements->NewEnum(each.GetAddressOf());
  });
  ComPtr<_ScannedElement> element;
  ASSERT_EQ(elements->get_Item(*Variant(2), element.GetAddressOf()), S_OK);
  RunOutOfMemoryIn([&] {
    Bstr text;
    return element->get_Text(text.Receive());
  });
  RunOutOfMemoryIn([&] {
    ComPtr<_FilePlace> place;
    return element->get_Place(place.GetAddressOf());
  });
  ComPtr<_Problem> problem;
  ASSERT_EQ(problems->get_Item(*Variant(1), problem.GetAddressOf()), S_OK);
  RunOutOfMemoryIn([&] {
    Bstr text;
    return problem->get_Description(languageEnglish, text.Receive());
  });
}

// Where a finding cannot be told, the check fails; that it does is kept.
TEST_F(FailureTest, OutOfMemoryWhenAFindingIsTold) {
  TemporaryFolder folder;
  const std::string path = folder.Write("saft.xml", CleanFile().With("Header/FiscalYear", "2011").Text());
  const auto checker = std::make_shared<zevo::AuditFileChecker>();
  checker->set_AuditFileName(path);
  const ComPtr<_AuditFileChecker> face = FaceFor(checker);
  const auto tell = std::exchange(checker->Found, nullptr);
  for (int allowed = 0;; ++allowed) {
    ASSERT_LT(allowed, 100);
    checker->Found = [&](const Finding& finding) {
      const std::shared_ptr<void> after(nullptr, [](void*) { allocations_left = -1; });
      allocations_left = allowed;
      tell(finding);
    };
    VARIANT_BOOL judged = VARIANT_TRUE;
    EXPECT_EQ(face->CheckAuditFile(&judged), S_OK);
    if (judged == VARIANT_TRUE) {
      EXPECT_GT(allowed, 2);
      break;
    }
    ASSERT_NE(checker->AuditException(), nullptr);
    EXPECT_EQ(checker->AuditException()->Number(), static_cast<int32_t>(RunTimeError::kOutOfMemory));
    EXPECT_EQ(checker->Verdict(), CheckVerdict::kNotJudged);
  }
}

TEST_F(FailureTest, OutOfMemoryInEachMemberOfTheChecker) {
  TemporaryFolder folder;
  const auto checker = std::make_shared<zevo::AuditFileChecker>();
  checker->set_AuditFileName(folder.Write("saft.xml", CleanFile().With("Header/FiscalYear", "2011").Text()));
  const ComPtr<_AuditFileChecker> face = FaceFor(checker);
  ASSERT_TRUE(checker->CheckAuditFile());
  RunOutOfMemoryIn([&] {
    ComPtr<_RuleInfoCollection> rules;
    return face->get_Rules(rules.GetAddressOf());
  });
  RunOutOfMemoryIn([&] {
    ComPtr<_FindingCollection> findings;
    return face->get_Findings(findings.GetAddressOf());
  });
  const Bstr pem(kLongText);
  allocations_left = 0;
  EXPECT_EQ(face->AddPublicKey(pem, 0), E_OUTOFMEMORY);
  EXPECT_EQ(face->put_Severity(pem, severityOff), E_OUTOFMEMORY);
  allocations_left = -1;

  ComPtr<_FindingCollection> findings;
  ASSERT_EQ(face->get_Findings(findings.GetAddressOf()), S_OK);
  RunOutOfMemoryIn([&] {
    ComPtr<_Finding> finding;
    return findings->get_Item(*Variant(1), finding.GetAddressOf());
  });
  RunOutOfMemoryIn([&] {
    ComPtr<IUnknown> each;
    return findings->NewEnum(each.GetAddressOf());
  });
  ComPtr<_Finding> finding;
  ASSERT_EQ(findings->get_Item(*Variant(1), finding.GetAddressOf()), S_OK);
  RunOutOfMemoryIn([&] {
    Bstr text;
    return finding->get_Message(text.Receive());
  });
  RunOutOfMemoryIn([&] {
    Bstr text;
    return face->MessageOf(finding.Get(), text.Receive());
  });
  ComPtr<_RuleInfoCollection> rules;
  ASSERT_EQ(face->get_Rules(rules.GetAddressOf()), S_OK);
  ComPtr<_RuleInfo> rule;
  ASSERT_EQ(rules->get_Item(*Variant(1), rule.GetAddressOf()), S_OK);
  RunOutOfMemoryIn([&] {
    Bstr text;
    return rule->get_Explanation(text.Receive());
  });
}

TEST_F(FailureTest, OutOfMemoryWhenTypesAreTold) {
  const ComPtr<_Tax> tax = FaceFor(std::make_shared<zevo::Tax>());
  RunOutOfMemoryIn([&] {
    ComPtr<ITypeInfo> type;
    return tax->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type);
  });
  ComPtr<IProvideClassInfo> information;
  ASSERT_EQ(tax.As(&information), S_OK);
  RunOutOfMemoryIn([&] {
    ComPtr<ITypeInfo> type;
    return information->GetClassInfo(&type);
  });
}

// At the first call of a class by name.
TEST_F(FailureTest, OutOfMemoryWhenMembersAreGathered) {
  const ComPtr<ITypeInfo> table = component::TableTypeOf(__uuidof(_AuditFile));
  RunOutOfMemoryIn([&] { return Guarded(IID_NULL, [&] { const component::Dispatcher members(*table.Get()); }); });
}

// A schema whose limit is no number makes every assignment under it raise.
TEST_F(FailureTest, AnErrorOfARecordIsRaisedFromEveryKindOfProperty) {
  const UseSchemaText schema(SchemaLimiting({{"/Description", "many"},
                                             {"/TotalDebit", "many"},
                                             {"/NumberOfEntries", "many"},
                                             {"/SelfBillingIndicator", "many"},
                                             {"/TaxPercentage", "many"}}));
  const auto raises = [](const std::function<HRESULT()>& assign) {
    const HRESULT result = assign();
    EXPECT_EQ(result, static_cast<HRESULT>(0x800A000D));
    EXPECT_EQ(TakeErrorInfo().source, L"ZevoAdapters11");
  };
  const ComPtr<_Journal> journal = FaceFor(std::make_shared<zevo::Journal>());
  const Bstr text(L"text");
  raises([&] { return journal->put_Description(text); });
  const ComPtr<_SalesInvoices> totals = FaceFor(std::make_shared<zevo::SalesInvoices>());
  CURRENCY amount;
  amount.int64 = 1;
  raises([&] { return totals->put_TotalDebit(amount); });
  raises([&] { return totals->put_NumberOfEntries(1); });
  const ComPtr<_Customer> customer = FaceFor(std::make_shared<zevo::Customer>());
  raises([&] { return customer->put_SelfBillingIndicator(VARIANT_TRUE); });
  const ComPtr<_Tax> tax = FaceFor(std::make_shared<zevo::Tax>());
  raises([&] { return tax->put_TaxPercentage(1); });
}

}  // namespace
}  // namespace zevo::testing
