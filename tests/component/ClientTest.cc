// SPDX-License-Identifier: Apache-2.0
// A host that was compiled with the type library: it creates objects of the registered server by name and calls them
// through their tables of functions. Nothing of the library is linked in.

#include <windows.h>
// After windows.h.
#include <objbase.h>
#include <shlobj.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/component/Com.h"
#include "tests/component/EventSink.h"
#include "tests/support/TemporaryFolder.h"

// As the documentation has it.
namespace {
using Microsoft::WRL::ComPtr;
#include "documented.h"
}  // namespace

namespace zevo::testing {
namespace {

constexpr std::array kCreatable = {L"AddressStructure",
                                   L"AuditFile",
                                   L"AuditFileChecker",
                                   L"AuditFileReader",
                                   L"AuditFileScanner",
                                   L"AuditFileStreamWriter",
                                   L"AuditFileStreamer",
                                   L"CreditNote",
                                   L"CurrencyStructure",
                                   L"Customer",
                                   L"GeneralLedger",
                                   L"GeneralLedgerEntries",
                                   L"Header",
                                   L"Invoice",
                                   L"InvoiceLine",
                                   L"Journal",
                                   L"Options",
                                   L"OrderReferences",
                                   L"Product",
                                   L"References",
                                   L"SAFTConstants",
                                   L"SalesInvoices",
                                   L"Settlement",
                                   L"ShippingPointStructure",
                                   L"Supplier",
                                   L"Tax",
                                   L"TaxTable",
                                   L"TaxTableEntry",
                                   L"Transaction",
                                   L"TransactionLine"};
constexpr std::array kOwned = {L"AuditException",
                               L"CreditNoteCollection",
                               L"DocumentTotals",
                               L"FilePlace",
                               L"Finding",
                               L"FindingCollection",
                               L"InvoiceLineCollection",
                               L"LineCollection",
                               L"Problem",
                               L"ProblemCollection",
                               L"RuleInfo",
                               L"RuleInfoCollection",
                               L"ScannedElement",
                               L"ScannedElementCollection",
                               L"TaxTableEntryCollection"};

class Apartment {
 public:
  Apartment() { EXPECT_EQ(CoInitialize(nullptr), S_OK); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() { CoUninitialize(); }
};

template <class Class, class Interface>
ComPtr<Interface> Create() {
  ComPtr<Interface> object;
  EXPECT_EQ(CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                             reinterpret_cast<void**>(object.GetAddressOf())),
            S_OK);
  return object;
}
#define CREATE(Class) Create<::Class, ::_##Class>()

ComPtr<IDispatch> CreateByName(const std::wstring& name) {
  CLSID id;
  ComPtr<IDispatch> object;
  EXPECT_EQ(CLSIDFromProgID((L"ZevoAdapters11." + name).c_str(), &id), S_OK) << std::string(name.begin(), name.end());
  EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                             reinterpret_cast<void**>(object.GetAddressOf())),
            S_OK);
  return object;
}

HMODULE Server() { return GetModuleHandleW(L"ZevoAdapters11.dll"); }
template <class Function>
Function ServerFunction(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(Server(), name)));
}
long LiveObjects() { return ServerFunction<long(STDAPICALLTYPE*)()>("ZevoLiveObjects")(); }
HRESULT CanUnload() { return ServerFunction<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")(); }

std::wstring CommonSchema() {
  wchar_t folder[MAX_PATH];
  EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_PROGRAM_FILES_COMMON, nullptr, SHGFP_TYPE_CURRENT, folder), S_OK);
  return std::wstring(folder) + L"\\Zevo\\2070\\Zevo.Adapters.11\\SAF-T-PT_1_01.xsd";
}

class ClientTest : public ::testing::Test {
 protected:
  std::wstring Path(const wchar_t* name) {
    const std::string folder = folder_.Path("");
    return std::wstring(folder.begin(), folder.end()) + name;
  }

  Apartment apartment_;
  TemporaryFolder folder_;
};

TEST_F(ClientTest, EveryCreatableClassHasAName) {
  for (const wchar_t* name : kCreatable) {
    const ComPtr<IDispatch> object = CreateByName(name);
    ASSERT_NE(object.Get(), nullptr);
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), S_OK);
    Bstr interface_name;
    ASSERT_EQ(type->GetDocumentation(MEMBERID_NIL, interface_name.Receive(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(interface_name.Text(), std::wstring(L"_") + name);
  }
}

TEST_F(ClientTest, OwnedClassesHaveNone) {
  for (const wchar_t* name : kOwned) {
    CLSID id;
    EXPECT_NE(CLSIDFromProgID((std::wstring(L"ZevoAdapters11.") + name).c_str(), &id), S_OK);
  }
  ComPtr<IUnknown> object;
  EXPECT_EQ(CoCreateInstance(__uuidof(::LineCollection), nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                             reinterpret_cast<void**>(object.GetAddressOf())),
            REGDB_E_CLASSNOTREG);
}

// The type library that an object comes with.
ComPtr<ITypeLib> LibraryOf(const ComPtr<IDispatch>& object) {
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> type;
  UINT index = 0;
  EXPECT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), S_OK);
  EXPECT_EQ(type->GetContainingTypeLib(&library, &index), S_OK);
  return library;
}

// The names above are those of all classes.
TEST_F(ClientTest, TheTypeLibraryHasNoOtherClasses) {
  const ComPtr<ITypeLib> library = LibraryOf(CreateByName(L"Header"));
  std::vector<std::wstring> creatable;
  std::vector<std::wstring> owned;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    ComPtr<ITypeInfo> type;
    TYPEATTR* attributes = nullptr;
    Bstr name;
    ASSERT_EQ(library->GetTypeInfo(i, &type), S_OK);
    ASSERT_EQ(library->GetDocumentation(static_cast<INT>(i), name.Receive(), nullptr, nullptr, nullptr), S_OK);
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    if (attributes->typekind == TKIND_COCLASS) {
      ((attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0 ? creatable : owned).push_back(name.Text());
    }
    type->ReleaseTypeAttr(attributes);
  }
  std::ranges::sort(creatable);
  std::ranges::sort(owned);
  EXPECT_EQ(creatable, std::vector<std::wstring>(kCreatable.begin(), kCreatable.end()));
  EXPECT_EQ(owned, std::vector<std::wstring>(kOwned.begin(), kOwned.end()));
}

TEST_F(ClientTest, TheTypeLibraryIsRegistered) {
  const ComPtr<ITypeLib> library = LibraryOf(CreateByName(L"Header"));
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  const GUID id = attributes->guid;
  EXPECT_EQ(attributes->wMajorVerNum, 11);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  library->ReleaseTLibAttr(attributes);
  ComPtr<ITypeLib> registered;
  ASSERT_EQ(LoadRegTypeLib(id, 11, 0, 0, &registered), S_OK);
  Bstr name;
  ASSERT_EQ(registered->GetDocumentation(-1, name.Receive(), nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(name.Text(), L"ZevoAdapters11");
}

// The schema was laid there when the server was registered.
TEST_F(ClientTest, TheSchemaIsFoundAmongTheCommonFiles) {
  const ComPtr<_Options> options = CREATE(Options);
  Bstr location;
  ASSERT_EQ(options->get_SchemaLocation(location.Receive()), S_OK);
  EXPECT_EQ(location.Text(), CommonSchema());
  EXPECT_TRUE(std::filesystem::exists(CommonSchema()));
  VARIANT_BOOL validates = VARIANT_FALSE;
  ASSERT_EQ(options->get_ValidateOnAssignment(&validates), S_OK);
  EXPECT_EQ(validates, VARIANT_TRUE);
  // The schema is loaded: a name is cut to 60 characters.
  const ComPtr<_Customer> customer = CREATE(Customer);
  ASSERT_EQ(customer->put_CompanyName(Bstr(std::wstring(70, L'\x00E7'))), S_OK);
  Bstr name;
  ASSERT_EQ(customer->get_CompanyName(name.Receive()), S_OK);
  EXPECT_EQ(name.Text(), std::wstring(60, L'\x00E7'));
}

ComPtr<_Header> NewHeader() {
  const ComPtr<_Header> header = CREATE(Header);
  header->put_CompanyID(Bstr(L"500000000"));
  header->put_TaxRegistrationNumber(Bstr(L"500000000"));
  header->put_TaxAccountingBasis(tabF);
  header->put_CompanyName(Bstr(L"Caf\x00E9 Central"));
  header->put_BusinessName(Bstr(L"\x4E2D\x6587 Caf\x00E9"));
  ComPtr<_AddressStructure> address;
  header->get_CompanyAddress(&address);
  address->put_AddressDetail(Bstr(L"Rua Direita, 1"));
  address->put_City(Bstr(L"Lisboa"));
  address->put_PostalCode(Bstr(L"1100-001"));
  header->put_FiscalYear(Bstr(L"2012"));
  header->put_StartDate(Bstr(L"2012-01-01"));
  header->put_EndDate(Bstr(L"2012-12-31"));
  header->put_TaxEntity(Bstr(L"Global"));
  header->put_SoftwareCertificateNumber(Bstr(L"0"));
  header->put_ProductID(Bstr(L"Prova/Prova"));
  header->put_ProductVersion(Bstr(L"1"));
  return header;
}

ComPtr<_Customer> NewCustomer(const wchar_t* id) {
  const ComPtr<_Customer> customer = CREATE(Customer);
  customer->put_CustomerID(Bstr(id));
  customer->put_AccountID(Bstr(L"Desconhecido"));
  customer->put_CustomerTaxID(Bstr(L"999999990"));
  customer->put_CompanyName(Bstr(L"Cliente"));
  ComPtr<_AddressStructure> address;
  customer->get_BillingAddress(&address);
  address->put_AddressDetail(Bstr(L"Rua"));
  address->put_City(Bstr(L"Porto"));
  address->put_PostalCode(Bstr(L"4000-001"));
  return customer;
}

void WriteFile(const std::wstring& path, int customers) {
  const ComPtr<_AuditFile> file = CREATE(AuditFile);
  const auto succeeds = [&](HRESULT (STDMETHODCALLTYPE _AuditFile::*operation)(VARIANT_BOOL*)) {
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ((file.Get()->*operation)(&done), S_OK);
    return done == VARIANT_TRUE;
  };
  ASSERT_EQ(file->put_AuditFileName(Bstr(path)), S_OK);
  EXPECT_TRUE(succeeds(&_AuditFile::CreateAuditFile));
  VARIANT_BOOL done = VARIANT_FALSE;
  EXPECT_EQ(file->CreateHeader(NewHeader().Get(), &done), S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  for (int i = 0; i < customers; ++i) {
    EXPECT_EQ(file->CreateCustomer(NewCustomer((L"C" + std::to_wstring(i)).c_str()).Get(), &done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE);
  }
  EXPECT_TRUE(succeeds(&_AuditFile::UpdateAuditFile));
  EXPECT_TRUE(succeeds(&_AuditFile::CloseAuditFile));
  EXPECT_TRUE(succeeds(&_AuditFile::ValidateAuditFile));
}

TEST_F(ClientTest, AFileIsWrittenReadBackAndStreamed) {
  const std::wstring path = Path(L"Jo\x00E3o \x4E2D\x6587.xml");
  WriteFile(path, 3);
  VARIANT_BOOL done = VARIANT_FALSE;
  const ComPtr<_AuditFileReader> reader = CREATE(AuditFileReader);
  ASSERT_EQ(reader->put_AuditFileName(Bstr(path)), S_OK);
  ASSERT_EQ(reader->OpenAuditFile(&done), S_OK);
  ASSERT_EQ(done, VARIANT_TRUE);
  ComPtr<_Header> header;
  ASSERT_EQ(reader->ReadHeader(header.GetAddressOf(), &done), S_OK);
  Bstr name;
  ASSERT_EQ(header->get_CompanyName(name.Receive()), S_OK);
  EXPECT_EQ(name.Text(), L"Caf\x00E9 Central");
  LONG count = 0;
  ASSERT_EQ(reader->Customers(&count), S_OK);
  EXPECT_EQ(count, 3);
  ComPtr<_Customer> customer;
  int read = 0;
  while (reader->ReadCustomer(customer.GetAddressOf(), &done) == S_OK && customer) ++read;
  EXPECT_EQ(read, 3);

  const ComPtr<_AuditFileStreamer> streamer = CREATE(AuditFileStreamer);
  const ComPtr<EventSink> sink = MakeSink();
  ComPtr<IConnectionPointContainer> container;
  ComPtr<IConnectionPoint> point;
  ASSERT_EQ(streamer.As(&container), S_OK);
  ASSERT_EQ(container->FindConnectionPoint(__uuidof(__AuditFileStreamer), &point), S_OK);
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(sink.Get(), &cookie), S_OK);
  ASSERT_EQ(streamer->put_AuditFileName(Bstr(path)), S_OK);
  ASSERT_EQ(streamer->OpenAuditFile(&done), S_OK);
  ASSERT_EQ(streamer->ReadAuditFile(VARIANT_TRUE, &done), S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  EXPECT_EQ(sink->events, (std::vector<std::wstring>{L"Header _Header", L"Customer _Customer", L"Customer _Customer",
                                                     L"Customer _Customer", L"finished"}));

  const ComPtr<_AuditFileScanner> scanner = CREATE(AuditFileScanner);
  ASSERT_EQ(scanner->put_AuditFileName(Bstr(path)), S_OK);
  ASSERT_EQ(scanner->OpenAuditFile(&done), S_OK);
  ComPtr<IDispatch> record;
  ASSERT_EQ(scanner->ReadNext(record.GetAddressOf(), &done), S_OK);
  ASSERT_EQ(record.As(&header), S_OK);
  ASSERT_EQ(header->get_BusinessName(name.Receive()), S_OK);
  EXPECT_EQ(name.Text(), L"\x4E2D\x6587 Caf\x00E9");
  ASSERT_EQ(scanner->CloseAuditFile(&done), S_OK);

  const ComPtr<_AuditFileChecker> checker = CREATE(AuditFileChecker);
  const ComPtr<FindingSink> findings = MakeFindingSink();
  ASSERT_EQ(checker.As(&container), S_OK);
  ASSERT_EQ(container->FindConnectionPoint(__uuidof(__AuditFileChecker), &point), S_OK);
  ASSERT_EQ(point->Advise(findings.Get(), &cookie), S_OK);
  ASSERT_EQ(checker->put_AuditFileName(Bstr(path)), S_OK);
  ASSERT_EQ(checker->CheckAuditFile(&done), S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  Verdicts verdict{};
  ASSERT_EQ(checker->get_Verdict(&verdict), S_OK);
  EXPECT_EQ(verdict, verdictClean);
  // Each of the three customers has the number of the final consumer, and another name.
  EXPECT_EQ(std::ranges::count(findings->rules, L"CUS-FINAL"), 3);

  const ComPtr<_AuditFile> file = CREATE(AuditFile);
  ASSERT_EQ(file->put_AuditFileName(Bstr(path)), S_OK);
  ASSERT_EQ(file->DeleteAuditFile(&done), S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ClientTest, TheDocumentedReadingCountsOrTellsTheReason) {
  const std::wstring path = Path(L"saft.xml");
  std::wstring reason;
  EXPECT_EQ(CustomersIn(Bstr(path), reason), -1);
  EXPECT_EQ(reason, L"Ficheiro SAFT-PT n\x00E3o encontrado.");
  WriteFile(path, 3);
  reason.clear();
  EXPECT_EQ(CustomersIn(Bstr(path), reason), 3);
  EXPECT_EQ(reason, L"");
  // One that cannot be read, first, in the middle and last.
  const std::string bytes = ReadBytes(folder_.Path("saft.xml"));
  constexpr std::string_view kFlag = "<SelfBillingIndicator>";
  size_t place = 0;
  for (int customer = 0; customer < 3; ++customer) {
    place = bytes.find(kFlag, place) + kFlag.size();
    std::string broken = bytes;
    broken[place] = 'x';
    folder_.Write("saft.xml", broken);
    EXPECT_EQ(CustomersIn(Bstr(path), reason), -1);
    EXPECT_EQ(reason, L"Tipos incompat\x00EDveis (x).");
  }
}

TEST_F(ClientTest, SavingReplacesTheFileAndLeavesNothingElse) {
  const std::wstring path = Path(L"saft.xml");
  WriteFile(path, 1);
  const auto size = std::filesystem::file_size(path);
  VARIANT_BOOL done = VARIANT_FALSE;
  const ComPtr<_AuditFile> file = CREATE(AuditFile);
  ASSERT_EQ(file->put_AuditFileName(Bstr(path)), S_OK);
  ASSERT_EQ(file->OpenAuditFile(&done), S_OK);
  ASSERT_EQ(done, VARIANT_TRUE);
  ASSERT_EQ(file->CreateCustomer(NewCustomer(L"C9").Get(), &done), S_OK);
  ASSERT_EQ(file->UpdateAuditFile(&done), S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  EXPECT_GT(std::filesystem::file_size(path), size);
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"saft.xml"});
}

long FailureOf(const ComPtr<_AuditFile>& file) {
  ComPtr<_AuditException> exception;
  LONG number = 0;
  if (file->get_AuditException(&exception) == S_OK && exception) exception->get_Number(&number);
  return number;
}

TEST_F(ClientTest, WhatTheSystemRefusesIsReported) {
  const std::wstring path = Path(L"saft.xml");
  WriteFile(path, 1);
  const std::string path_text = folder_.Path("saft.xml");
  const std::string before = ReadBytes(path_text);
  VARIANT_BOOL done = VARIANT_FALSE;
  const ComPtr<_AuditFile> file = CREATE(AuditFile);
  ASSERT_EQ(file->put_AuditFileName(Bstr(path)), S_OK);
  ASSERT_EQ(file->OpenAuditFile(&done), S_OK);
  ASSERT_EQ(file->CreateCustomer(NewCustomer(L"C9").Get(), &done), S_OK);
  // A file that may not be written.
  ASSERT_NE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY), 0);
  ASSERT_EQ(file->UpdateAuditFile(&done), S_OK);
  EXPECT_EQ(done, VARIANT_FALSE);
  EXPECT_EQ(FailureOf(file), 70);
  ASSERT_NE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL), 0);
  EXPECT_EQ(ReadBytes(path_text), before);
  // A file that another program holds.
  HANDLE held = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  ASSERT_EQ(file->UpdateAuditFile(&done), S_OK);
  EXPECT_EQ(done, VARIANT_FALSE);
  EXPECT_EQ(FailureOf(file), 70);
  CloseHandle(held);
  EXPECT_EQ(ReadBytes(path_text), before);
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"saft.xml"});
  // A folder that is not there.
  ASSERT_EQ(file->put_AuditFileName(Bstr(Path(L"n\x00E3o h\x00E1\\saft.xml"))), S_OK);
  ASSERT_EQ(file->UpdateAuditFile(&done), S_OK);
  EXPECT_EQ(done, VARIANT_FALSE);
  EXPECT_EQ(FailureOf(file), 76);
}

// The properties of an object's class, by their numbers.
std::vector<DISPID> PropertiesOf(IDispatch* object) {
  ComPtr<ITypeInfo> type;
  std::vector<DISPID> properties;
  EXPECT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), S_OK);
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(type->GetTypeAttr(&attributes), S_OK);
  for (UINT i = 0; i < attributes->cFuncs; ++i) {
    FUNCDESC* function = nullptr;
    EXPECT_EQ(type->GetFuncDesc(i, &function), S_OK);
    if (function->invkind == INVOKE_PROPERTYGET && function->cParams == 0) properties.push_back(function->memid);
    type->ReleaseFuncDesc(function);
  }
  type->ReleaseTypeAttr(attributes);
  return properties;
}

// Reads every property of an object, and assigns those that are texts what they are.
void UseObject(IDispatch* object, const std::vector<DISPID>& properties) {
  for (const DISPID property : properties) {
    const Outcome read = Invoke(object, property, DISPATCH_PROPERTYGET);
    if (read.value.Type() != VT_BSTR) continue;
    Invoke(object, property, DISPATCH_PROPERTYPUT, {Variant(L"X")});
    Invoke(object, property, DISPATCH_PROPERTYPUT, {read.value});
  }
}

// Bytes in use of all heaps of the process.
size_t BytesInUse() {
  HANDLE heaps[64];
  const DWORD count = GetProcessHeaps(64, heaps);
  size_t bytes = 0;
  for (DWORD i = 0; i < std::min<DWORD>(count, 64); ++i) {
    PROCESS_HEAP_ENTRY entry{};
    if (HeapLock(heaps[i]) == 0) continue;
    while (HeapWalk(heaps[i], &entry) != 0) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
    }
    HeapUnlock(heaps[i]);
  }
  return bytes;
}

TEST_F(ClientTest, AThousandObjectsOfEveryClassLeaveNothing) {
  const ComPtr<IDispatch> held = CreateByName(L"Header");
  for (const wchar_t* name : kCreatable) {
    CLSID id;
    ASSERT_EQ(CLSIDFromProgID((std::wstring(L"ZevoAdapters11.") + name).c_str(), &id), S_OK);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                               reinterpret_cast<void**>(factory.GetAddressOf())),
              S_OK);
    const auto use = [&, properties = PropertiesOf(CreateByName(name).Get())](int times) {
      for (int i = 0; i < times; ++i) {
        ComPtr<IDispatch> object;
        ASSERT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(object.GetAddressOf())),
                  S_OK);
        UseObject(object.Get(), properties);
      }
    };
    use(10);
    ASSERT_EQ(LiveObjects(), 1);
    EXPECT_EQ(CanUnload(), S_FALSE);
    const size_t before = BytesInUse();
    use(1000);
    EXPECT_EQ(LiveObjects(), 1);
    // A thousand objects: a few bytes of each would show.
    EXPECT_LT(BytesInUse(), before + 4000) << before;
  }
}

// Reads a file whole, every element of every record.
void Scan(const std::wstring& path) {
  const ComPtr<_AuditFileScanner> scanner = CREATE(AuditFileScanner);
  VARIANT_BOOL done = VARIANT_FALSE;
  scanner->put_AuditFileName(Bstr(path));
  scanner->OpenAuditFile(&done);
  ComPtr<IDispatch> record;
  int texts = 0;
  while (scanner->ReadNext(record.GetAddressOf(), &done) == S_OK && record) {
    ComPtr<_ScannedElementCollection> elements;
    ComPtr<IUnknown> items;
    ComPtr<IEnumVARIANT> each;
    ASSERT_EQ(scanner->get_Elements(elements.GetAddressOf()), S_OK);
    ASSERT_EQ(elements->NewEnum(items.GetAddressOf()), S_OK);
    ASSERT_EQ(items.As(&each), S_OK);
    for (Variant item; each->Next(1, &*item, nullptr) == S_OK; item = Variant()) {
      texts += Get(item.Object(), L"Text").value.Text().empty() ? 0 : 1;
    }
    Variant text;
    ASSERT_EQ(scanner->TextOf(Bstr(L"CompanyName"), &*text), S_OK);
    EXPECT_EQ(text.Type(), VT_BSTR);
  }
  EXPECT_EQ(done, VARIANT_TRUE);
  EXPECT_GT(texts, 30);
}

// Checks a file, every finding and every rule.
void CheckWhole(const std::wstring& path) {
  const ComPtr<_AuditFileChecker> checker = CREATE(AuditFileChecker);
  const ComPtr<FindingSink> sink = MakeFindingSink();
  ComPtr<IConnectionPointContainer> container;
  ComPtr<IConnectionPoint> point;
  DWORD cookie = 0;
  ASSERT_EQ(checker.As(&container), S_OK);
  ASSERT_EQ(container->FindConnectionPoint(__uuidof(__AuditFileChecker), &point), S_OK);
  ASSERT_EQ(point->Advise(sink.Get(), &cookie), S_OK);
  VARIANT_BOOL done = VARIANT_FALSE;
  checker->put_AuditFileName(Bstr(path));
  checker->CheckAuditFile(&done);
  EXPECT_EQ(done, VARIANT_TRUE);
  ASSERT_EQ(point->Unadvise(cookie), S_OK);
  ComPtr<_FindingCollection> findings;
  ComPtr<_RuleInfoCollection> rules;
  ASSERT_EQ(checker->get_Findings(findings.GetAddressOf()), S_OK);
  ASSERT_EQ(checker->get_Rules(rules.GetAddressOf()), S_OK);
  LONG count = 0;
  ASSERT_EQ(findings->get_Count(&count), S_OK);
  EXPECT_EQ(static_cast<size_t>(count), sink->rules.size());
  EXPECT_GT(count, 0);
  for (const auto& [collection, text] : {std::pair<IDispatch*, const wchar_t*>(findings.Get(), L"Message"),
                                         std::pair<IDispatch*, const wchar_t*>(rules.Get(), L"Title")}) {
    const Variant items = Invoke(collection, DISPID_NEWENUM, DISPATCH_PROPERTYGET).value;
    ComPtr<IEnumVARIANT> each;
    ASSERT_EQ(V_UNKNOWN(&*items)->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(each.GetAddressOf())),
              S_OK);
    for (Variant item; each->Next(1, &*item, nullptr) == S_OK; item = Variant()) {
      EXPECT_FALSE(Get(item.Object(), text).value.Text().empty());
    }
  }
}

TEST_F(ClientTest, FilesThatAreWrittenAndReadLeaveNothing) {
  const auto cycle = [&] {
    const std::wstring path = Path(L"saft.xml");
    WriteFile(path, 2);
    const ComPtr<_AuditFileReader> reader = CREATE(AuditFileReader);
    VARIANT_BOOL done = VARIANT_FALSE;
    reader->put_AuditFileName(Bstr(path));
    reader->OpenAuditFile(&done);
    ComPtr<_Customer> customer;
    while (reader->ReadCustomer(customer.GetAddressOf(), &done) == S_OK && customer) {
    }
    const ComPtr<_AuditFileStreamer> streamer = CREATE(AuditFileStreamer);
    streamer->put_AuditFileName(Bstr(path));
    streamer->OpenAuditFile(&done);
    streamer->ReadAuditFile(VARIANT_TRUE, &done);
    Scan(path);
    CheckWhole(path);
    std::filesystem::remove(path);
  };
  cycle();
  cycle();
  ASSERT_EQ(LiveObjects(), 0);
  const size_t before = BytesInUse();
  for (int i = 0; i < 50; ++i) cycle();
  EXPECT_EQ(LiveObjects(), 0);
  EXPECT_LT(BytesInUse(), before + 5'000) << before;
}

TEST_F(ClientTest, TheServerIsUnloadedWhenNothingIsHeld) {
  {
    const ComPtr<IDispatch> object = CreateByName(L"Customer");
    ASSERT_NE(Server(), nullptr);
    EXPECT_EQ(CanUnload(), S_FALSE);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_NE(Server(), nullptr);
  }
  EXPECT_EQ(CanUnload(), S_OK);
  for (int i = 0; i < 10; ++i) {
    WriteFile(Path((std::to_wstring(i) + L".xml").c_str()), 1);
    // What is to be unloaded is noted in one call and done in the next.
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(Server(), nullptr);
  }
}

DWORD WINAPI UseACustomer(void*) {
  const Apartment apartment;
  const ComPtr<_Customer> customer = CREATE(Customer);
  EXPECT_EQ(customer->put_CompanyName(Bstr(L"name")), S_OK);
  return 0;
}

// A thread that ends after its use of the server, when nothing else keeps it loaded.
TEST(ClientThreadsTest, TheServerIsUnloadedBeforeAfterAndWhileThreadsEnd) {
  for (int i = 0; i < 20; ++i) {
    std::array<HANDLE, 3> threads{};
    for (HANDLE& thread : threads) thread = CreateThread(nullptr, 0, &UseACustomer, nullptr, 0, nullptr);
    EXPECT_EQ(WaitForMultipleObjects(threads.size(), threads.data(), TRUE, 60'000), WAIT_OBJECT_0);
    for (HANDLE thread : threads) CloseHandle(thread);
    EXPECT_EQ(Server(), nullptr);
  }
}

DWORD WINAPI TellWhetherFreshOptionsValidate(void*) {
  const Apartment apartment;
  const ComPtr<_Options> fresh = CREATE(Options);
  VARIANT_BOOL validates = VARIANT_FALSE;
  EXPECT_EQ(fresh->get_ValidateOnAssignment(&validates), S_OK);
  return validates == VARIANT_TRUE ? 1 : 0;
}

TEST_F(ClientTest, OtherApartmentsHaveObjectsOfTheirOwn) {
  const ComPtr<_Options> options = CREATE(Options);
  ASSERT_EQ(options->put_ValidateOnAssignment(VARIANT_FALSE), S_OK);
  HANDLE thread = CreateThread(nullptr, 0, &TellWhetherFreshOptionsValidate, nullptr, 0, nullptr);
  WaitForSingleObject(thread, INFINITE);
  DWORD validates = 0;
  GetExitCodeThread(thread, &validates);
  CloseHandle(thread);
  EXPECT_EQ(validates, 1U);
  ASSERT_EQ(options->put_ValidateOnAssignment(VARIANT_TRUE), S_OK);
}

// An interface on its way into another apartment.
template <class Interface>
class Parcel {
 public:
  explicit Parcel(const ComPtr<Interface>& object) {
    EXPECT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(Interface), object.Get(), stream_.GetAddressOf()), S_OK);
  }
  ComPtr<Interface> Unpack() {
    ComPtr<Interface> object;
    EXPECT_EQ(CoGetInterfaceAndReleaseStream(stream_.Detach(), __uuidof(Interface),
                                             reinterpret_cast<void**>(object.GetAddressOf())),
              S_OK);
    return object;
  }

 private:
  ComPtr<IStream> stream_;
};

DWORD WINAPI RunInTheCommonApartment(void* work) {
  EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
  (*static_cast<const std::function<void()>*>(work))();
  CoUninitialize();
  return 0;
}

// Does a work in the apartment of threads without one of their own, while this thread answers calls to its objects.
void InTheCommonApartment(const std::function<void()>& work) {
  HANDLE thread =
      CreateThread(nullptr, 0, &RunInTheCommonApartment, const_cast<std::function<void()>*>(&work), 0, nullptr);
  DWORD index = 0;
  EXPECT_EQ(CoWaitForMultipleHandles(0, 60'000, 1, &thread, &index), S_OK);
  CloseHandle(thread);
}

TEST_F(ClientTest, AnotherApartmentCallsThroughTheSystemsMarshaller) {
  const ComPtr<_AuditFile> file = CREATE(AuditFile);
  const ComPtr<_Customer> customer = NewCustomer(L"C1");
  const ComPtr<_Options> options = CREATE(Options);
  ASSERT_EQ(options->put_ValidateOnAssignment(VARIANT_FALSE), S_OK);
  Parcel file_parcel(file);
  Parcel customer_parcel(customer);
  Parcel options_parcel(options);
  const std::wstring path = Path(L"Jo\x00E3o \x4E2D.xml");
  InTheCommonApartment([&] {
    const ComPtr<_AuditFile> far_file = file_parcel.Unpack();
    const ComPtr<_Customer> far_customer = customer_parcel.Unpack();
    const ComPtr<_Options> far_options = options_parcel.Unpack();
    EXPECT_NE(far_file.Get(), file.Get());
    // Properties of each type, both ways.
    EXPECT_EQ(far_file->put_AuditFileName(Bstr(path)), S_OK);
    Bstr name;
    EXPECT_EQ(far_file->get_AuditFileName(name.Receive()), S_OK);
    EXPECT_EQ(name.Text(), path);
    EXPECT_EQ(far_customer->put_SelfBillingIndicator(VARIANT_TRUE), S_OK);
    ComPtr<_AddressStructure> address;
    EXPECT_EQ(far_customer->get_BillingAddress(address.GetAddressOf()), S_OK);
    EXPECT_EQ(address->put_City(Bstr(L"\x00C9vora")), S_OK);
    // Each apartment has options of its own: these are those of the objects.
    VARIANT_BOOL validates = VARIANT_TRUE;
    EXPECT_EQ(far_options->get_ValidateOnAssignment(&validates), S_OK);
    EXPECT_EQ(validates, VARIANT_FALSE);
    // Operations, with an object, without one, and by name.
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(far_file->CreateAuditFile(&done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE);
    EXPECT_EQ(far_file->CreateCustomer(far_customer.Get(), &done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE);
    EXPECT_EQ(far_file->CreateCustomer(nullptr, &done), S_OK);
    EXPECT_EQ(done, VARIANT_FALSE);
    EXPECT_EQ(FailureOf(far_file), 91);
    EXPECT_TRUE(Call(far_file.Get(), L"UpdateAuditFile").value.Flag());
    // An object of a third apartment is none that this one can hold.
    const ComPtr<_Customer> not_here = CREATE(Customer);
    EXPECT_EQ(far_file->CreateCustomer(not_here.Get(), &done), static_cast<HRESULT>(0x800A000D));
  });
  EXPECT_TRUE(std::filesystem::exists(path));
  VARIANT_BOOL indicator = VARIANT_FALSE;
  EXPECT_EQ(customer->get_SelfBillingIndicator(&indicator), S_OK);
  EXPECT_EQ(indicator, VARIANT_TRUE);
  ASSERT_EQ(options->put_ValidateOnAssignment(VARIANT_TRUE), S_OK);

  // A variable is filled from afar.
  const ComPtr<_AuditFileReader> reader = CREATE(AuditFileReader);
  Parcel reader_parcel(reader);
  InTheCommonApartment([&] {
    const ComPtr<_AuditFileReader> far_reader = reader_parcel.Unpack();
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(far_reader->put_AuditFileName(Bstr(path)), S_OK);
    EXPECT_EQ(far_reader->OpenAuditFile(&done), S_OK);
    ComPtr<_Customer> read;
    EXPECT_EQ(far_reader->ReadCustomer(read.GetAddressOf(), &done), S_OK);
    ASSERT_NE(read.Get(), nullptr);
    ComPtr<_AddressStructure> address;
    Bstr city;
    EXPECT_EQ(read->get_BillingAddress(address.GetAddressOf()), S_OK);
    EXPECT_EQ(address->get_City(city.Receive()), S_OK);
    EXPECT_EQ(city.Text(), L"\x00C9vora");
    EXPECT_EQ(far_reader->ReadCustomer(read.GetAddressOf(), &done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE);
    EXPECT_EQ(read.Get(), nullptr);
  });

  // And with an object of whatever class, with values that may be none, and with collections.
  const ComPtr<_AuditFileScanner> scanner = CREATE(AuditFileScanner);
  Parcel scanner_parcel(scanner);
  InTheCommonApartment([&] {
    const ComPtr<_AuditFileScanner> far_scanner = scanner_parcel.Unpack();
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(far_scanner->put_AuditFileName(Bstr(path)), S_OK);
    EXPECT_EQ(far_scanner->OpenAuditFile(&done), S_OK);
    ComPtr<IDispatch> read;
    EXPECT_EQ(far_scanner->ReadNext(read.GetAddressOf(), &done), S_OK);
    ComPtr<_Customer> read_customer;
    ASSERT_EQ(read.As(&read_customer), S_OK);
    Bstr id;
    EXPECT_EQ(read_customer->get_CustomerID(id.Receive()), S_OK);
    EXPECT_EQ(id.Text(), L"C1");
    Variant text;
    EXPECT_EQ(far_scanner->TextOf(Bstr(L"BillingAddress/City"), &*text), S_OK);
    EXPECT_EQ(text.Text(), L"\x00C9vora");
    Variant none;
    EXPECT_EQ(far_scanner->TextOf(Bstr(L"Fax"), &*none), S_OK);
    EXPECT_EQ(none.Type(), VT_NULL);
    ComPtr<_ScannedElementCollection> elements;
    ComPtr<_ScannedElement> element;
    ComPtr<_FilePlace> place;
    LONG line = 0;
    ASSERT_EQ(far_scanner->get_Elements(elements.GetAddressOf()), S_OK);
    ASSERT_EQ(elements->get_Item(*Variant(1), element.GetAddressOf()), S_OK);
    ASSERT_EQ(element->get_Place(place.GetAddressOf()), S_OK);
    EXPECT_EQ(place->get_Line(&line), S_OK);
    EXPECT_GT(line, 0);
    EXPECT_EQ(far_scanner->ReadNext(read.GetAddressOf(), &done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE);
    EXPECT_EQ(read.Get(), nullptr);
  });
}

TEST_F(ClientTest, EventsGoIntoAnotherApartment) {
  const std::wstring path = Path(L"saft.xml");
  WriteFile(path, 2);
  const ComPtr<_AuditFileStreamer> streamer = CREATE(AuditFileStreamer);
  Parcel parcel(streamer);
  const ComPtr<EventSink> sink = MakeSink();
  InTheCommonApartment([&] {
    const ComPtr<_AuditFileStreamer> far_streamer = parcel.Unpack();
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(far_streamer->put_AuditFileName(Bstr(path)), S_OK);
    EXPECT_EQ(far_streamer->OpenAuditFile(&done), S_OK);
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(far_streamer.As(&container), S_OK);
    ASSERT_EQ(container->FindConnectionPoint(__uuidof(__AuditFileStreamer), point.GetAddressOf()), S_OK);
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(sink.Get(), &cookie), S_OK);
    EXPECT_EQ(far_streamer->ReadAuditFile(VARIANT_TRUE, &done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE);
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
  });
  EXPECT_EQ(sink->events,
            (std::vector<std::wstring>{L"Header _Header", L"Customer _Customer", L"Customer _Customer", L"finished"}));
}

TEST_F(ClientTest, ACheckerIsUsedFromAnotherApartment) {
  const std::wstring path = Path(L"saft.xml");
  WriteFile(path, 2);
  const ComPtr<_AuditFileChecker> checker = CREATE(AuditFileChecker);
  Parcel parcel(checker);
  const ComPtr<FindingSink> sink = MakeFindingSink();
  InTheCommonApartment([&] {
    const ComPtr<_AuditFileChecker> far_checker = parcel.Unpack();
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(far_checker->put_AuditFileName(Bstr(path)), S_OK);
    EXPECT_EQ(far_checker->put_Language(languageEnglish), S_OK);
    EXPECT_EQ(far_checker->put_Severity(Bstr(L"HDR-PERIOD"), severityInformation), S_OK);
    Severities severity{};
    EXPECT_EQ(far_checker->get_Severity(Bstr(L"HDR-PERIOD"), &severity), S_OK);
    EXPECT_EQ(severity, severityInformation);
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(far_checker.As(&container), S_OK);
    ASSERT_EQ(container->FindConnectionPoint(__uuidof(__AuditFileChecker), point.GetAddressOf()), S_OK);
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(sink.Get(), &cookie), S_OK);
    EXPECT_EQ(far_checker->CheckAuditFile(&done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE);
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
    ComPtr<_FindingCollection> findings;
    ComPtr<_Finding> finding;
    Bstr rule;
    Bstr message;
    Bstr again;
    ASSERT_EQ(far_checker->get_Findings(findings.GetAddressOf()), S_OK);
    ASSERT_EQ(findings->get_Item(*Variant(1), finding.GetAddressOf()), S_OK);
    EXPECT_EQ(finding->get_Rule(rule.Receive()), S_OK);
    EXPECT_EQ(rule.Text(), sink->rules.at(0));
    EXPECT_EQ(finding->get_Message(message.Receive()), S_OK);
    EXPECT_EQ(far_checker->MessageOf(finding.Get(), again.Receive()), S_OK);
    EXPECT_EQ(again.Text(), message.Text());
  });
}

// A program with a manifest of its own that names the server's needs no registration.
TEST_F(ClientTest, WithAManifestTheServerIsUsedFromWhereItLies) {
  const std::filesystem::path package = ZEVO_PACKAGE_FOLDER;
  const std::filesystem::path folder = Path(L"program");
  std::filesystem::create_directory(folder);
  for (const wchar_t* name : {L"ZevoAdapters11.dll", L"ZevoAdapters11.manifest"}) {
    std::filesystem::copy_file(package / name, folder / name);
  }
  const std::filesystem::path manifest = folder / L"program.manifest";
  std::ofstream(manifest) << R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="Program" version="1.0.0.0"/>
  <dependency>
    <dependentAssembly>
      <assemblyIdentity type="win32" name="ZevoAdapters11" version="11.0.0.0" processorArchitecture=")"
                          << ZEVO_MANIFEST_PROCESSOR << R"("/>
    </dependentAssembly>
  </dependency>
</assembly>)";
  ACTCTXW description{};
  description.cbSize = sizeof(description);
  description.lpSource = manifest.c_str();
  HANDLE context = CreateActCtxW(&description);
  ASSERT_NE(context, INVALID_HANDLE_VALUE) << GetLastError();
  ULONG_PTR cookie = 0;
  ASSERT_NE(ActivateActCtx(context, &cookie), 0);
  {
    std::vector<ComPtr<IDispatch>> objects;
    for (const wchar_t* name : kCreatable) objects.push_back(CreateByName(name));
    wchar_t loaded[1024];
    ASSERT_NE(GetModuleFileNameW(Server(), loaded, 1024), 0U);
    EXPECT_TRUE(std::filesystem::equivalent(loaded, folder / L"ZevoAdapters11.dll"));
    EXPECT_EQ(Get(CreateByName(L"Header").Get(), L"CurrencyCode").value.Text(), L"EUR");
  }
  DeactivateActCtx(0, cookie);
  ReleaseActCtx(context);
  CoFreeUnusedLibrariesEx(0, 0);
  CoFreeUnusedLibrariesEx(0, 0);
}

}  // namespace
}  // namespace zevo::testing
