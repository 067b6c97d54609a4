// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>
#include <zevo/component/Faces.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/component/Com.h"
#include "tests/component/Slots.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo::testing {
namespace {

using component::FaceFor;

constexpr auto kTypeMismatch = static_cast<HRESULT>(0x800A000D);

std::wstring Wide(const std::string& text) { return std::wstring(text.begin(), text.end()); }

// The members of an interface in slot order: "=Name" is assigned, "Name" read or called.
std::vector<std::wstring> MembersOf(const IID& interfaceId) {
  std::vector<std::wstring> members;
  size_t offset = kFirstOffset;
  for (const Slot& slot : SlotsOf(interfaceId)) {
    EXPECT_EQ(slot.offset, offset);
    offset += sizeof(void*);
    members.push_back((slot.kind == INVOKE_PROPERTYPUT ? L"=" : L"") + slot.name);
  }
  return members;
}

TEST(FileFacesMembersTest, MembersOfAuditFileStandInTheirSlots) {
  EXPECT_EQ(MembersOf(__uuidof(_AuditFile)), (std::vector<std::wstring>{L"AuditException",
                                                                        L"AuditFileName",
                                                                        L"=AuditFileName",
                                                                        L"AuditFileSchema",
                                                                        L"=AuditFileSchema",
                                                                        L"CreateAuditFile",
                                                                        L"OpenAuditFile",
                                                                        L"UpdateAuditFile",
                                                                        L"CloseAuditFile",
                                                                        L"DeleteAuditFile",
                                                                        L"ValidateAuditFile",
                                                                        L"CreateHeader",
                                                                        L"CreateGeneralLedger",
                                                                        L"CreateCustomer",
                                                                        L"CreateSupplier",
                                                                        L"CreateTaxTable",
                                                                        L"CreateTaxTableEntry",
                                                                        L"CreateProduct",
                                                                        L"CreateGeneralLedgerEntries",
                                                                        L"UpdateGeneralLedgerEntries",
                                                                        L"CreateJournal",
                                                                        L"CreateTransaction",
                                                                        L"CreateSalesInvoices",
                                                                        L"UpdateSalesInvoices",
                                                                        L"CreateInvoice"}));
}

TEST(FileFacesMembersTest, MembersOfTheStreamWriterStandInTheirSlots) {
  EXPECT_EQ(MembersOf(__uuidof(_AuditFileStreamWriter)),
            (std::vector<std::wstring>{
                L"AuditException", L"AuditFileName", L"=AuditFileName", L"CreateAuditFile", L"CloseAuditFile",
                L"CreateHeader", L"CreateGeneralLedger", L"CreateCustomer", L"CreateSupplier", L"CreateTaxTable",
                L"CreateProduct", L"BeginGeneralLedgerEntries", L"EndGeneralLedgerEntries", L"BeginJournal",
                L"EndJournal", L"CreateTransaction", L"BeginSalesInvoices", L"EndSalesInvoices", L"CreateInvoice"}));
}

TEST(FileFacesMembersTest, MembersOfTheReaderStandInTheirSlots) {
  EXPECT_EQ(MembersOf(__uuidof(_AuditFileReader)), (std::vector<std::wstring>{L"AuditException",
                                                                              L"AuditFileName",
                                                                              L"=AuditFileName",
                                                                              L"OpenAuditFile",
                                                                              L"CloseAuditFile",
                                                                              L"ReadHeader",
                                                                              L"ReadGeneralLedger",
                                                                              L"ReadCustomer",
                                                                              L"ReadSupplier",
                                                                              L"ReadTaxTable",
                                                                              L"ReadTaxTableEntry",
                                                                              L"ReadProduct",
                                                                              L"ReadGeneralLedgerEntries",
                                                                              L"ReadJournal",
                                                                              L"ReadTransaction",
                                                                              L"ReadSalesInvoices",
                                                                              L"ReadInvoice",
                                                                              L"Customers",
                                                                              L"Suppliers",
                                                                              L"Products",
                                                                              L"GeneralLedgers",
                                                                              L"TaxTableEntrys",
                                                                              L"Invoices",
                                                                              L"Journals",
                                                                              L"Transactions"}));
}

TEST(FileFacesMembersTest, MembersOfTheStreamerStandInTheirSlots) {
  EXPECT_EQ(MembersOf(__uuidof(_AuditFileStreamer)),
            (std::vector<std::wstring>{L"AuditException", L"AuditFileName", L"=AuditFileName", L"OpenAuditFile",
                                       L"ReadAuditFile", L"CloseAuditFile", L"AbortReading"}));
}

TEST(FileFacesMembersTest, MembersOfTheScannerStandInTheirSlots) {
  EXPECT_EQ(MembersOf(__uuidof(_AuditFileScanner)),
            (std::vector<std::wstring>{L"AuditException", L"AuditFileName", L"=AuditFileName", L"OpenAuditFile",
                                       L"ReadNext", L"CloseAuditFile", L"AbortReading", L"BytesRead", L"Kind", L"Place",
                                       L"JournalID", L"Elements", L"TextOf", L"PlaceOf", L"Problems"}));
  EXPECT_EQ(MembersOf(__uuidof(_FilePlace)), (std::vector<std::wstring>{L"Line", L"Column", L"Offset"}));
  EXPECT_EQ(MembersOf(__uuidof(_ScannedElement)), (std::vector<std::wstring>{L"Name", L"Depth", L"Text", L"Place"}));
  EXPECT_EQ(MembersOf(__uuidof(_Problem)),
            (std::vector<std::wstring>{L"Fault", L"Path", L"Place", L"Text", L"Description"}));
  for (const IID& id : {__uuidof(_ScannedElementCollection), __uuidof(_ProblemCollection)}) {
    EXPECT_EQ(MembersOf(id), (std::vector<std::wstring>{L"Item", L"Count", L"NewEnum"}));
  }
}

TEST(FileFacesMembersTest, MembersOfTheCheckerStandInTheirSlots) {
  EXPECT_EQ(MembersOf(__uuidof(_AuditFileChecker)),
            (std::vector<std::wstring>{L"AuditException",   L"AuditFileName", L"=AuditFileName", L"AuditFileSchema",
                                       L"=AuditFileSchema", L"Language",      L"=Language",      L"MostFindings",
                                       L"=MostFindings",    L"AddPublicKey",  L"Severity",       L"=Severity",
                                       L"CheckAuditFile",   L"AbortChecking", L"BytesRead",      L"Verdict",
                                       L"CountOf",          L"Findings",      L"MessageOf",      L"Rules",
                                       L"CountOfSeverity",  L"RecordsOf"}));
  EXPECT_EQ(MembersOf(__uuidof(_Finding)),
            (std::vector<std::wstring>{L"Rule", L"Severity", L"Kind", L"Key", L"Path", L"Line", L"Column", L"Offset",
                                       L"Found", L"Expected", L"Difference", L"Message"}));
  EXPECT_EQ(MembersOf(__uuidof(_RuleInfo)),
            (std::vector<std::wstring>{L"Id", L"Severity", L"Title", L"Explanation", L"Source"}));
  for (const IID& id : {__uuidof(_FindingCollection), __uuidof(_RuleInfoCollection)}) {
    EXPECT_EQ(MembersOf(id), (std::vector<std::wstring>{L"Item", L"Count", L"NewEnum"}));
  }
}

TEST(FileFacesMembersTest, MembersOfTheOtherClassesStandInTheirSlots) {
  EXPECT_EQ(MembersOf(__uuidof(_AuditException)),
            (std::vector<std::wstring>{L"Number", L"=Number", L"Description", L"=Description", L"Source", L"=Source"}));
  EXPECT_EQ(MembersOf(__uuidof(_Options)), (std::vector<std::wstring>{L"ValidateOnAssignment", L"=ValidateOnAssignment",
                                                                      L"SchemaLocation", L"=SchemaLocation"}));
  EXPECT_TRUE(MembersOf(__uuidof(_SAFTConstants)).empty());
  for (const IID& id : {__uuidof(_CreditNoteCollection), __uuidof(_InvoiceLineCollection), __uuidof(_LineCollection),
                        __uuidof(_TaxTableEntryCollection)}) {
    EXPECT_EQ(MembersOf(id), (std::vector<std::wstring>{L"Add", L"Remove", L"Clear", L"Item", L"Count", L"NewEnum"}));
  }
}

// An argument that may be left out, and what early-bound hosts put in its place: nothing without a type.
struct Default {
  std::wstring member;
  VARTYPE type = VT_EMPTY;
  LONG value = 0;
  bool operator==(const Default&) const = default;
};
void PrintTo(const Default& value, std::ostream* out) {
  *out << std::string(value.member.begin(), value.member.end()) << " " << value.type << " " << value.value;
}

TEST(FileFacesMembersTest, ArgumentsThatMayBeLeftOutHaveTheirDefaults) {
  std::vector<Default> defaults;
  ForEachType(TKIND_DISPATCH, [&](const std::wstring&, const TYPEATTR& type) {
    if ((type.wTypeFlags & TYPEFLAG_FDUAL) == 0) return;
    ForEachFunction(type.guid, [&](const std::wstring& name, const FUNCDESC& function) {
      for (SHORT i = 0; i < function.cParams; ++i) {
        const PARAMDESC& parameter = function.lprgelemdescParam[i].paramdesc;
        if ((parameter.wParamFlags & PARAMFLAG_FOPT) == 0) continue;
        defaults.push_back({name});
        if ((parameter.wParamFlags & PARAMFLAG_FHASDEFAULT) == 0) continue;
        const VARIANT& value = parameter.pparamdescex->varDefaultValue;
        defaults.back().type = V_VT(&value);
        defaults.back().value = V_VT(&value) == VT_BOOL ? V_BOOL(&value) : V_I4(&value);
      }
    });
  });
  EXPECT_EQ(defaults, (std::vector<Default>{{L"CreateTransaction"},
                                            {L"CreateInvoice"},
                                            {L"Transactions"},
                                            {L"ReadAuditFile", VT_BOOL, VARIANT_TRUE},
                                            {L"Description", VT_I4, languagePortuguese},
                                            {L"AddPublicKey", VT_I4, 0}}));
}

class FileFacesTest : public ::testing::Test {
 protected:
  static bool Succeeded(const VARIANT_BOOL& result) { return result == VARIANT_TRUE; }

  // The path has an accent, a space and a character that no code page of Europe has.
  std::wstring NewPath(const wchar_t* name) {
    const std::string folder = folder_.Path("");
    return Wide(folder) + L"Jo\x00E3o \x4E2D " + name;
  }

  long FailureOf(IDispatch* file) {
    const Variant exception = Get(file, L"AuditException").value;
    return exception.Object() == nullptr ? 0 : Get(exception.Object(), L"Number").value.Number();
  }

  UseSchema schema_;
  TemporaryFolder folder_;
};

TEST_F(FileFacesTest, AFileIsWrittenValidatedAndReadBack) {
  const ComPtr<_AuditFile> file = FaceFor(std::make_shared<zevo::AuditFile>());
  const std::wstring path = NewPath(L"saft.xml");
  VARIANT_BOOL done = VARIANT_FALSE;
  ASSERT_EQ(file->put_AuditFileName(Bstr(path)), S_OK);
  Bstr name;
  ASSERT_EQ(file->get_AuditFileName(name.Receive()), S_OK);
  EXPECT_EQ(name.Text(), path);
  ASSERT_EQ(file->CreateAuditFile(&done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  ASSERT_EQ(file->CreateHeader(FaceFor(SampleHeader()).Get(), &done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  ASSERT_EQ(file->CreateCustomer(FaceFor(SampleCustomer("C1")).Get(), &done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  ASSERT_EQ(file->CreateProduct(FaceFor(SampleProduct("P1")).Get(), &done), S_OK);

  const ComPtr<_GeneralLedgerEntries> entries = FaceFor(std::make_shared<zevo::GeneralLedgerEntries>());
  const ComPtr<_Journal> journal = FaceFor(SampleJournal("J1"));
  ASSERT_EQ(file->CreateGeneralLedgerEntries(entries.Get(), &done), S_OK);
  ASSERT_EQ(file->CreateJournal(journal.Get(), &done), S_OK);
  ComPtr<_GeneralLedgerEntries> totals = entries;
  ASSERT_EQ(file->CreateTransaction(FaceFor(SampleTransaction(1)).Get(), journal.Get(), totals.GetAddressOf(), &done),
            S_OK);
  EXPECT_TRUE(Succeeded(done));
  EXPECT_TRUE(SameObject(totals.Get(), entries.Get()));
  LONG count = 0;
  ASSERT_EQ(entries->get_NumberOfEntries(&count), S_OK);
  EXPECT_EQ(count, 1);
  // Without totals, by either way of leaving them out.
  ASSERT_EQ(file->CreateTransaction(FaceFor(SampleTransaction(2)).Get(), journal.Get(), nullptr, &done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  _GeneralLedgerEntries* none = nullptr;
  ASSERT_EQ(file->CreateTransaction(FaceFor(SampleTransaction(3)).Get(), nullptr, &none, &done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  ASSERT_EQ(entries->put_NumberOfEntries(3), S_OK);
  CURRENCY sum;
  sum.int64 = 300000;
  ASSERT_EQ(entries->put_TotalDebit(sum), S_OK);
  ASSERT_EQ(entries->put_TotalCredit(sum), S_OK);
  ASSERT_EQ(file->UpdateGeneralLedgerEntries(entries.Get(), &done), S_OK);

  ComPtr<_SalesInvoices> sales = FaceFor(std::make_shared<zevo::SalesInvoices>());
  ASSERT_EQ(file->CreateSalesInvoices(sales.Get(), &done), S_OK);
  ASSERT_EQ(file->CreateInvoice(FaceFor(SampleInvoice(1, "C1", "P1")).Get(), sales.GetAddressOf(), &done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  ASSERT_EQ(file->UpdateSalesInvoices(sales.Get(), &done), S_OK);
  ASSERT_EQ(file->UpdateAuditFile(&done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  ASSERT_EQ(file->CloseAuditFile(&done), S_OK);
  EXPECT_TRUE(Succeeded(done));

  const ComPtr<_AuditFileReader> reader = FaceFor(std::make_shared<zevo::AuditFileReader>());
  ASSERT_EQ(reader->put_AuditFileName(Bstr(path)), S_OK);
  ASSERT_EQ(reader->OpenAuditFile(&done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  LONG number = 0;
  EXPECT_EQ(reader->Customers(&number), S_OK);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(reader->Invoices(&number), S_OK);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(reader->Transactions(nullptr, &number), S_OK);
  EXPECT_EQ(number, 3);
  ComPtr<_Journal> read_journal;
  EXPECT_EQ(reader->ReadJournal(read_journal.GetAddressOf(), &done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  ASSERT_NE(read_journal.Get(), nullptr);
  EXPECT_EQ(reader->Transactions(read_journal.GetAddressOf(), &number), S_OK);
  EXPECT_EQ(number, 3);
  ComPtr<_Transaction> transaction;
  for (int i = 0; i < 3; ++i) {
    const ComPtr<_Transaction> before = transaction;
    EXPECT_EQ(reader->ReadTransaction(transaction.GetAddressOf(), read_journal.GetAddressOf(), &done), S_OK);
    ASSERT_NE(transaction.Get(), nullptr);
    EXPECT_FALSE(SameObject(transaction.Get(), before.Get()));
    if (before) {
      EXPECT_EQ(References(before.Get()), 1U);
    }
  }
  EXPECT_EQ(reader->ReadTransaction(transaction.GetAddressOf(), read_journal.GetAddressOf(), &done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  EXPECT_EQ(transaction.Get(), nullptr);
  ComPtr<_Customer> customer;
  EXPECT_EQ(reader->ReadCustomer(customer.GetAddressOf(), &done), S_OK);
  Bstr id;
  EXPECT_EQ(customer->get_CustomerID(id.Receive()), S_OK);
  EXPECT_EQ(id.Text(), L"C1");
  ASSERT_EQ(reader->CloseAuditFile(&done), S_OK);

  ASSERT_EQ(file->ValidateAuditFile(&done), S_OK);
  EXPECT_TRUE(Succeeded(done)) << FailureOf(file.Get());
  ASSERT_EQ(file->DeleteAuditFile(&done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(FileFacesTest, AFileIsWrittenFrontToBack) {
  const ComPtr<_AuditFileStreamWriter> file = FaceFor(std::make_shared<zevo::AuditFileStreamWriter>());
  const std::wstring path = NewPath(L"stream.xml");
  VARIANT_BOOL done = VARIANT_FALSE;
  ASSERT_EQ(file->put_AuditFileName(Bstr(path)), S_OK);
  ASSERT_EQ(file->CreateAuditFile(&done), S_OK);
  ASSERT_TRUE(Succeeded(done));
  ComPtr<_Header> header = FaceFor(SampleHeader());
  const ComPtr<_Header> same = header;
  ASSERT_EQ(file->CreateHeader(header.GetAddressOf(), &done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  EXPECT_EQ(header.Get(), same.Get());
  ComPtr<_SalesInvoices> totals = FaceFor(std::make_shared<zevo::SalesInvoices>());
  ASSERT_EQ(file->BeginSalesInvoices(totals.GetAddressOf(), &done), S_OK);
  ComPtr<_Invoice> invoice = FaceFor(SampleInvoice(1, "C1", "P1"));
  ASSERT_EQ(file->CreateInvoice(invoice.GetAddressOf(), &done), S_OK);
  EXPECT_TRUE(Succeeded(done));
  ASSERT_EQ(file->EndSalesInvoices(&done), S_OK);
  ASSERT_EQ(file->CloseAuditFile(&done), S_OK);
  EXPECT_TRUE(Succeeded(done));

  const ComPtr<_AuditFileReader> reader = FaceFor(std::make_shared<zevo::AuditFileReader>());
  ASSERT_EQ(reader->put_AuditFileName(Bstr(path)), S_OK);
  ASSERT_EQ(reader->OpenAuditFile(&done), S_OK);
  LONG number = 0;
  EXPECT_EQ(reader->Invoices(&number), S_OK);
  EXPECT_EQ(number, 1);
}

// The way of VBScript, where every variable goes as VARIANT*.
TEST_F(FileFacesTest, VariablesOfScriptsAreReadAndAssigned) {
  const std::string path = folder_.Path("saft.xml");
  SaveSampleFile(path);
  const ComPtr<_AuditFileReader> reader = FaceFor(std::make_shared<zevo::AuditFileReader>());
  ASSERT_EQ(reader->put_AuditFileName(Bstr(Wide(path))), S_OK);
  EXPECT_TRUE(Call(reader.Get(), L"OpenAuditFile").value.Flag());
  Variant customer;
  int read = 0;
  for (;; ++read) {
    const Variant before = customer;
    EXPECT_TRUE(Call(reader.Get(), L"ReadCustomer", {Variant::Reference(customer)}).value.Flag());
    ASSERT_EQ(customer.Type(), VT_DISPATCH);
    if (customer.Object() == nullptr) break;
    EXPECT_FALSE(before.Type() == VT_DISPATCH && SameObject(before.Object(), customer.Object()));
  }
  EXPECT_EQ(read, 2);

  // An object that comes by value is read, and nothing can be assigned.
  EXPECT_TRUE(Call(reader.Get(), L"ReadHeader", {Variant()}).value.Flag());
  // A typed variable of an early-bound host that calls by name.
  ComPtr<IDispatch> typed = FaceFor(std::make_shared<zevo::Supplier>());
  Variant reference;
  V_VT(&*reference) = VT_BYREF | VT_DISPATCH;
  V_DISPATCHREF(&*reference) = typed.GetAddressOf();
  const IDispatch* before = typed.Get();
  EXPECT_TRUE(Call(reader.Get(), L"ReadSupplier", {reference}).value.Flag());
  EXPECT_NE(typed.Get(), before);

  // Something else in the variable.
  Variant text(L"customer");
  EXPECT_EQ(Call(reader.Get(), L"ReadCustomer", {Variant::Reference(text)}).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(text.Text(), L"customer");
  Variant journal(FaceFor(std::make_shared<zevo::Journal>()).Get());
  EXPECT_EQ(Call(reader.Get(), L"ReadCustomer", {Variant::Reference(journal)}).result, DISP_E_TYPEMISMATCH);
}

// What a script sees of a customer that cannot be read: there is an object in its variable all the same.
TEST_F(FileFacesTest, ARecordThatCannotBeReadIsFollowedByTheNextUnlessItIsTheFirst) {
  const std::string path = folder_.Path("saft.xml");
  SaveSampleFile(path, {.customers = 3});
  const std::string bytes = ReadBytes(path);
  constexpr std::string_view kFlag = "<SelfBillingIndicator>";
  const size_t first = bytes.find(kFlag) + kFlag.size();
  const size_t second = bytes.find(kFlag, first) + kFlag.size();
  const auto read_all = [&](size_t broken) {
    std::string changed = bytes;
    changed[broken] = 'x';
    folder_.Write("saft.xml", changed);
    const ComPtr<_AuditFileReader> reader = FaceFor(std::make_shared<zevo::AuditFileReader>());
    EXPECT_EQ(reader->put_AuditFileName(Bstr(Wide(path))), S_OK);
    EXPECT_TRUE(Call(reader.Get(), L"OpenAuditFile").value.Flag());
    std::vector<std::wstring> read;
    Variant customer;
    for (int i = 0; i < 4; ++i) {
      const bool succeeded = Call(reader.Get(), L"ReadCustomer", {Variant::Reference(customer)}).value.Flag();
      EXPECT_EQ(customer.Type(), VT_DISPATCH);
      read.push_back(!succeeded                     ? L"failed"
                     : customer.Object() == nullptr ? L"none"
                                                    : Get(customer.Object(), L"CustomerID").value.Text());
      EXPECT_TRUE(succeeded || customer.Object() != nullptr);
    }
    return read;
  };
  EXPECT_EQ(read_all(second), (std::vector<std::wstring>{L"C1", L"failed", L"C3", L"none"}));
  EXPECT_EQ(read_all(first), (std::vector<std::wstring>{L"failed", L"failed", L"failed", L"failed"}));
}

TEST_F(FileFacesTest, TotalsOfScriptsAreAddedTo) {
  const auto file = std::make_shared<zevo::AuditFile>();
  file->set_AuditFileName(folder_.Path("saft.xml"));
  ASSERT_TRUE(file->CreateAuditFile());
  ASSERT_TRUE(file->CreateSalesInvoices(zevo::SalesInvoices()));
  const ComPtr<_AuditFile> face = FaceFor(file);
  const auto totals = std::make_shared<zevo::SalesInvoices>();
  Variant invoice(FaceFor(SampleInvoice(1, "C", "P")).Get());
  Variant variable(FaceFor(totals).Get());
  EXPECT_TRUE(
      Call(face.Get(), L"CreateInvoice", {Variant::Reference(invoice), Variant::Reference(variable)}).value.Flag());
  EXPECT_EQ(totals->NumberOfEntries(), 1);
  EXPECT_TRUE(SameObject(variable.Object(), FaceFor(totals).Get()));
  EXPECT_TRUE(Call(face.Get(), L"CreateInvoice", {invoice}).value.Flag());
  EXPECT_EQ(totals->NumberOfEntries(), 1);
}

TEST_F(FileFacesTest, FailuresAreKeptAndNotRaised) {
  const ComPtr<_AuditFile> file = FaceFor(std::make_shared<zevo::AuditFile>());
  VARIANT_BOOL done = VARIANT_TRUE;
  EXPECT_EQ(file->CreateAuditFile(&done), S_OK);
  EXPECT_EQ(done, VARIANT_FALSE);
  ComPtr<_AuditException> exception;
  ASSERT_EQ(file->get_AuditException(&exception), S_OK);
  LONG number = 0;
  Bstr source;
  Bstr description;
  EXPECT_EQ(exception->get_Number(&number), S_OK);
  EXPECT_EQ(number, -2147221503);
  EXPECT_EQ(exception->get_Source(source.Receive()), S_OK);
  EXPECT_EQ(source.Text(), L"AuditFile.CreateAuditFile");
  EXPECT_EQ(exception->get_Description(description.Receive()), S_OK);
  EXPECT_EQ(description.Text(), L"N\x00E3o foi indicado o nome do ficheiro SAFT-PT.");
  ComPtr<_AuditException> again;
  ASSERT_EQ(file->get_AuditException(&again), S_OK);
  EXPECT_TRUE(SameObject(exception.Get(), again.Get()));
  EXPECT_EQ(exception->put_Number(5), S_OK);
  EXPECT_EQ(again->get_Number(&number), S_OK);
  EXPECT_EQ(number, 5);

  EXPECT_EQ(file->CloseAuditFile(&done), S_OK);
  ASSERT_EQ(file->get_AuditException(&again), S_OK);
  EXPECT_EQ(again.Get(), nullptr);
}

TEST_F(FileFacesTest, CountsOfAClosedReaderAreMinusOne) {
  const ComPtr<_AuditFileReader> reader = FaceFor(std::make_shared<zevo::AuditFileReader>());
  for (const wchar_t* count : {L"Customers", L"Suppliers", L"Products", L"GeneralLedgers", L"TaxTableEntrys",
                               L"Invoices", L"Journals", L"Transactions"}) {
    EXPECT_EQ(Call(reader.Get(), count).value.Number(), -1);
    EXPECT_EQ(FailureOf(reader.Get()), -2147221499);
  }
}

TEST_F(FileFacesTest, WrongRecordsAreRaised) {
  const ComPtr<_AuditFile> file = FaceFor(std::make_shared<zevo::AuditFile>());
  VARIANT_BOOL done = VARIANT_TRUE;
  // An object of another class behind the pointer, and one that is no part of the server.
  const ComPtr<_Journal> journal = FaceFor(std::make_shared<zevo::Journal>());
  EXPECT_EQ(file->CreateHeader(reinterpret_cast<_Header*>(journal.Get()), &done), kTypeMismatch);
  EXPECT_EQ(done, VARIANT_FALSE);
  EXPECT_EQ(TakeErrorInfo().source, L"ZevoAdapters11");
}

TEST_F(FileFacesTest, CallsWithoutAPlaceForTheAnswerAreRefused) {
  const ComPtr<_AuditFile> file = FaceFor(std::make_shared<zevo::AuditFile>());
  const ComPtr<_AuditFileStreamWriter> writer = FaceFor(std::make_shared<zevo::AuditFileStreamWriter>());
  const ComPtr<_AuditFileReader> reader = FaceFor(std::make_shared<zevo::AuditFileReader>());
  VARIANT_BOOL done = VARIANT_TRUE;
  _Header* none = nullptr;
  EXPECT_EQ(writer->CreateHeader(nullptr, &done), E_POINTER);
  EXPECT_EQ(reader->ReadHeader(nullptr, &done), E_POINTER);
  EXPECT_EQ(reader->ReadHeader(&none, nullptr), E_POINTER);
  _Transaction* transaction = nullptr;
  _Journal* no_journal = nullptr;
  EXPECT_EQ(reader->ReadTransaction(&transaction, nullptr, &done), E_POINTER);
  EXPECT_EQ(reader->ReadTransaction(nullptr, &no_journal, &done), E_POINTER);
  EXPECT_EQ(reader->Customers(nullptr), E_POINTER);
  EXPECT_EQ(file->CreateAuditFile(nullptr), E_POINTER);
}

// An operation that takes a record, called without one by a host that knows the interface. It fails with `number` while
// a file is open.
template <class File>
struct Recordless {
  const wchar_t* name;
  std::function<HRESULT(File&, VARIANT_BOOL*)> call;
  long number = 91;
};

template <class File, class R>
Recordless<File> By(const wchar_t* name, HRESULT (STDMETHODCALLTYPE File::*member)(R*, VARIANT_BOOL*),
                    long number = 91) {
  return {name, [member](File& file, VARIANT_BOOL* done) { return (file.*member)(nullptr, done); }, number};
}
template <class File, class R>
Recordless<File> By(const wchar_t* name, HRESULT (STDMETHODCALLTYPE File::*member)(R**, VARIANT_BOOL*),
                    long number = 91) {
  return {name,
          [member](File& file, VARIANT_BOOL* done) {
            R* none = nullptr;
            return (file.*member)(&none, done);
          },
          number};
}

// The ways in which hosts that call by name say that there is no object.
std::vector<Variant> WaysToSayNothing() {
  Variant null;
  V_VT(&*null) = VT_NULL;
  static Variant nothing(static_cast<IDispatch*>(nullptr));
  static Variant empty;
  return {nothing, empty, null, Variant::Reference(nothing), Variant::Reference(empty)};
}

// The operations of an interface that take a record and tell whether they succeeded.
std::vector<std::wstring> OperationsWithRecord(const IID& interfaceId) {
  std::vector<std::wstring> names;
  ForEachFunction(interfaceId, [&](const std::wstring& name, const FUNCDESC& function) {
    // The result is a parameter too.
    if (function.invkind == INVOKE_FUNC && function.cParams > 1) names.push_back(name);
  });
  return names;
}

class FileFacesRecordlessTest : public FileFacesTest {
 protected:
  static constexpr long kNotStarted = -2147221499;

  template <class File>
  void ExpectFailures(File& file, const std::vector<Recordless<File>>& operations, bool open) {
    for (const Recordless<File>& operation : operations) {
      SCOPED_TRACE(std::string(operation.name, operation.name + wcslen(operation.name)));
      const long number = open ? operation.number : kNotStarted;
      VARIANT_BOOL done = VARIANT_TRUE;
      EXPECT_EQ(operation.call(file, &done), S_OK);
      EXPECT_EQ(done, VARIANT_FALSE);
      EXPECT_EQ(FailureOf(&file), number);
      for (const Variant& nothing : WaysToSayNothing()) {
        const std::vector<Variant> arguments(
            operation.name == std::wstring(L"CreateTransaction") ? transaction_arguments_ : 1, nothing);
        const Outcome outcome = Call(&file, operation.name, arguments);
        EXPECT_EQ(outcome.result, S_OK) << nothing.Type();
        EXPECT_EQ(outcome.value.Type(), VT_BOOL);
        EXPECT_FALSE(outcome.value.Flag());
        EXPECT_EQ(FailureOf(&file), number) << nothing.Type();
      }
    }
  }

  template <class File>
  static std::vector<std::wstring> NamesOf(const std::vector<Recordless<File>>& operations) {
    std::vector<std::wstring> names;
    for (const Recordless<File>& operation : operations) names.emplace_back(operation.name);
    return names;
  }

  size_t transaction_arguments_ = 1;
};

TEST_F(FileFacesRecordlessTest, EveryOperationOfAuditFileFailsWithoutOne) {
  using File = _AuditFile;
  const std::vector<Recordless<File>> operations = {
      By(L"CreateHeader", &File::CreateHeader),
      By(L"CreateGeneralLedger", &File::CreateGeneralLedger),
      By(L"CreateCustomer", &File::CreateCustomer),
      By(L"CreateSupplier", &File::CreateSupplier),
      By(L"CreateTaxTable", &File::CreateTaxTable),
      By(L"CreateTaxTableEntry", &File::CreateTaxTableEntry),
      By(L"CreateProduct", &File::CreateProduct),
      By(L"CreateGeneralLedgerEntries", &File::CreateGeneralLedgerEntries, -2147221303),
      By(L"UpdateGeneralLedgerEntries", &File::UpdateGeneralLedgerEntries),
      By(L"CreateJournal", &File::CreateJournal),
      {L"CreateTransaction",
       [](File& file, VARIANT_BOOL* done) { return file.CreateTransaction(nullptr, nullptr, nullptr, done); }},
      By(L"CreateSalesInvoices", &File::CreateSalesInvoices, -2147221202),
      By(L"UpdateSalesInvoices", &File::UpdateSalesInvoices),
      {L"CreateInvoice", [](File& file, VARIANT_BOOL* done) { return file.CreateInvoice(nullptr, nullptr, done); }},
  };
  transaction_arguments_ = 2;
  ASSERT_EQ(NamesOf(operations), OperationsWithRecord(__uuidof(File)));
  const auto core = std::make_shared<zevo::AuditFile>();
  const ComPtr<File> file = FaceFor(core);
  ExpectFailures(*file.Get(), operations, false);
  core->set_AuditFileName(folder_.Path("saft.xml"));
  ASSERT_TRUE(core->CreateAuditFile());
  ASSERT_TRUE(core->CreateGeneralLedgerEntries(zevo::GeneralLedgerEntries()));
  ASSERT_TRUE(core->CreateJournal(*SampleJournal("J1")));
  ASSERT_TRUE(core->CreateSalesInvoices(zevo::SalesInvoices()));
  ASSERT_TRUE(core->UpdateAuditFile());
  const std::string before = ReadBytes(folder_.Path("saft.xml"));
  ExpectFailures(*file.Get(), operations, true);
  ASSERT_TRUE(core->UpdateAuditFile());
  EXPECT_EQ(ReadBytes(folder_.Path("saft.xml")), before);
}

TEST_F(FileFacesRecordlessTest, EveryOperationOfTheStreamWriterFailsWithoutOne) {
  using File = _AuditFileStreamWriter;
  const std::vector<Recordless<File>> operations = {
      By(L"CreateHeader", &File::CreateHeader),
      By(L"CreateGeneralLedger", &File::CreateGeneralLedger),
      By(L"CreateCustomer", &File::CreateCustomer),
      By(L"CreateSupplier", &File::CreateSupplier),
      By(L"CreateTaxTable", &File::CreateTaxTable),
      By(L"CreateProduct", &File::CreateProduct),
      By(L"BeginGeneralLedgerEntries", &File::BeginGeneralLedgerEntries, -2147221303),
      By(L"BeginJournal", &File::BeginJournal),
      By(L"CreateTransaction", &File::CreateTransaction),
      By(L"BeginSalesInvoices", &File::BeginSalesInvoices),
      By(L"CreateInvoice", &File::CreateInvoice, -2147221203),
  };
  ASSERT_EQ(NamesOf(operations), OperationsWithRecord(__uuidof(File)));
  const auto core = std::make_shared<zevo::AuditFileStreamWriter>();
  const ComPtr<File> file = FaceFor(core);
  ExpectFailures(*file.Get(), operations, false);
  core->set_AuditFileName(folder_.Path("saft.xml"));
  ASSERT_TRUE(core->CreateAuditFile());
  ASSERT_TRUE(core->BeginGeneralLedgerEntries(zevo::GeneralLedgerEntries()));
  ASSERT_TRUE(core->BeginJournal(*SampleJournal("J1")));
  ExpectFailures(*file.Get(), operations, true);
  ASSERT_TRUE(core->CloseAuditFile());
  EXPECT_TRUE(ReadBytes(folder_.Path("saft.xml"))
                  .ends_with("<Journal><JournalID>J1</JournalID><Description>Di\xE1rio</Description></Journal>"
                             "</GeneralLedgerEntries></AuditFile>"));
}

TEST_F(FileFacesRecordlessTest, TransactionsAreNotReadWithoutAJournal) {
  const std::string path = folder_.Path("saft.xml");
  SaveSampleFile(path);
  const ComPtr<_AuditFileReader> reader = FaceFor(std::make_shared<zevo::AuditFileReader>());
  VARIANT_BOOL done = VARIANT_TRUE;
  const ComPtr<_Transaction> held = FaceFor(std::make_shared<zevo::Transaction>());
  ComPtr<_Transaction> transaction = held;
  _Journal* no_journal = nullptr;
  const auto expect_failure = [&](long number) {
    EXPECT_EQ(reader->ReadTransaction(transaction.GetAddressOf(), &no_journal, &done), S_OK);
    EXPECT_EQ(done, VARIANT_FALSE);
    EXPECT_EQ(FailureOf(reader.Get()), number);
    EXPECT_EQ(transaction.Get(), held.Get());
    for (const Variant& nothing : WaysToSayNothing()) {
      Variant variable(held.Get());
      const Outcome outcome = Call(reader.Get(), L"ReadTransaction", {Variant::Reference(variable), nothing});
      EXPECT_EQ(outcome.result, S_OK);
      EXPECT_FALSE(outcome.value.Flag());
      EXPECT_EQ(FailureOf(reader.Get()), number);
      EXPECT_TRUE(SameObject(variable.Object(), held.Get()));
    }
  };
  expect_failure(kNotStarted);
  ASSERT_EQ(reader->put_AuditFileName(Bstr(Wide(path))), S_OK);
  ASSERT_EQ(reader->OpenAuditFile(&done), S_OK);
  expect_failure(91);
}

TEST_F(FileFacesTest, OptionsAreSharedByAllObjects) {
  const ComPtr<_Options> one = FaceFor(std::make_shared<zevo::Options>());
  const ComPtr<_Options> other = FaceFor(std::make_shared<zevo::Options>());
  const ComPtr<_AuditFile> file = FaceFor(std::make_shared<zevo::AuditFile>());
  EXPECT_EQ(one->put_ValidateOnAssignment(VARIANT_FALSE), S_OK);
  VARIANT_BOOL validate = VARIANT_TRUE;
  EXPECT_EQ(other->get_ValidateOnAssignment(&validate), S_OK);
  EXPECT_EQ(validate, VARIANT_FALSE);
  EXPECT_EQ(file->put_AuditFileSchema(Bstr(L"C:\\n\x00E3o h\x00E1.xsd")), S_OK);
  Bstr location;
  EXPECT_EQ(other->get_SchemaLocation(location.Receive()), S_OK);
  EXPECT_EQ(location.Text(), L"C:\\n\x00E3o h\x00E1.xsd");
}

}  // namespace
}  // namespace zevo::testing
