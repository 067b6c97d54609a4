// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>
#include <zevo/component/Faces.h>
#include <zevo/component/LiveObject.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/component/Com.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {
namespace {

using component::FaceFor;
using component::LiveObject;

constexpr auto kInvalidCall = static_cast<HRESULT>(0x800A0005);
constexpr auto kOverflow = static_cast<HRESULT>(0x800A0006);
constexpr auto kSubscriptOutOfRange = static_cast<HRESULT>(0x800A0009);

// A customer with what its record cannot hold, and an invoice with what other readers leave out.
constexpr std::string_view kFile =
    "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\"><MasterFiles>\n"
    "<Customer><CustomerID>C1</CustomerID><CompanyName>Caf\u00E9 \u4E2D</CompanyName><Fax/><Pet>cat</Pet>"
    "<SelfBillingIndicator>maybe</SelfBillingIndicator></Customer></MasterFiles>\n"
    "<SourceDocuments><SalesInvoices><NumberOfEntries>1</NumberOfEntries>"
    "<Invoice><InvoiceNo>FT A/1</InvoiceNo><Hash>qK9=</Hash><HashControl>2</HashControl>"
    "<Line><LineNumber>1</LineNumber></Line><Line><LineNumber>2</LineNumber></Line></Invoice>"
    "</SalesInvoices></SourceDocuments></AuditFile>";

std::wstring Wide(std::string_view text) { return std::wstring(text.begin(), text.end()); }

std::wstring ClassOf(IDispatch* object) {
  if (object == nullptr) return L"Nothing";
  ComPtr<ITypeInfo> type;
  Bstr name;
  EXPECT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), S_OK);
  EXPECT_EQ(type->GetDocumentation(MEMBERID_NIL, name.Receive(), nullptr, nullptr, nullptr), S_OK);
  return name.Text();
}

struct PlaceNumbers {
  LONG line = -1;
  LONG column = -1;
  DOUBLE offset = -1;
  bool operator==(const PlaceNumbers&) const = default;
};
void PrintTo(const PlaceNumbers& place, std::ostream* out) {
  *out << place.line << ":" << place.column << ":" << place.offset;
}

// Where a text of the file stands; it is on the line, and behind it on that line are no others than plain characters.
PlaceNumbers PlaceIn(std::string_view file, std::string_view text) {
  const size_t offset = file.find(text);
  const std::string_view before = file.substr(0, offset);
  LONG column = 1;
  for (const char c : before.substr(before.rfind('\n') + 1)) column += (c & 0xC0) == 0x80 ? 0 : 1;
  return {static_cast<LONG>(1 + std::ranges::count(before, '\n')), column, static_cast<DOUBLE>(offset)};
}

PlaceNumbers NumbersOf(_FilePlace* place) {
  PlaceNumbers numbers;
  EXPECT_EQ(place->get_Line(&numbers.line), S_OK);
  EXPECT_EQ(place->get_Column(&numbers.column), S_OK);
  EXPECT_EQ(place->get_Offset(&numbers.offset), S_OK);
  return numbers;
}

// What a member gives that a host calls through the table of functions.
template <class Object>
std::wstring TextFrom(Object& object, HRESULT (STDMETHODCALLTYPE Object::*get)(BSTR*)) {
  Bstr text;
  EXPECT_EQ((object.*get)(text.Receive()), S_OK);
  return text.Text();
}
template <class Object, class Result>
ComPtr<Result> ObjectFrom(Object& object, HRESULT (STDMETHODCALLTYPE Object::*get)(Result**)) {
  ComPtr<Result> result;
  EXPECT_EQ((object.*get)(result.GetAddressOf()), S_OK);
  return result;
}
template <class Collection>
LONG CountOf(Collection& collection) {
  LONG count = -1;
  EXPECT_EQ(collection.get_Count(&count), S_OK);
  return count;
}

class ScannerFacesTest : public ::testing::Test {
 protected:
  void Name(const std::string& path) { ASSERT_EQ(scanner_->put_AuditFileName(Bstr(Wide(path))), S_OK); }
  bool Open() {
    VARIANT_BOOL opened = VARIANT_FALSE;
    EXPECT_EQ(scanner_->OpenAuditFile(&opened), S_OK);
    return opened == VARIANT_TRUE;
  }
  void OpenFile(std::string_view bytes = kFile) {
    Name(folder_.Write("saft.xml", bytes));
    ASSERT_TRUE(Open()) << FailureNumber();
  }
  // The record that is read next; fails the test where none can be.
  ComPtr<IDispatch> Next() {
    ComPtr<IDispatch> record;
    VARIANT_BOOL read = VARIANT_FALSE;
    EXPECT_EQ(scanner_->ReadNext(record.GetAddressOf(), &read), S_OK);
    EXPECT_EQ(read, VARIANT_TRUE) << FailureNumber();
    return record;
  }
  void ReadInvoice() {
    for (int i = 0; i < 3; ++i) Next();
    ASSERT_EQ(TextFrom(*scanner_.Get(), &_AuditFileScanner::get_Kind), L"Invoice");
  }
  bool ReadFails() {
    ComPtr<IDispatch> record = FaceFor(std::make_shared<zevo::Header>());
    VARIANT_BOOL read = VARIANT_TRUE;
    EXPECT_EQ(scanner_->ReadNext(record.GetAddressOf(), &read), S_OK);
    EXPECT_EQ(record.Get(), nullptr);
    return read == VARIANT_FALSE;
  }
  ComPtr<_AuditException> Failure() { return ObjectFrom(*scanner_.Get(), &_AuditFileScanner::get_AuditException); }
  LONG FailureNumber() {
    const ComPtr<_AuditException> exception = Failure();
    LONG number = 0;
    if (exception) {
      EXPECT_EQ(exception->get_Number(&number), S_OK);
    }
    return number;
  }
  std::wstring FailureText() { return TextFrom(*Failure().Get(), &_AuditException::get_Description); }
  Variant TextOf(const wchar_t* path) {
    Variant text;
    EXPECT_EQ(scanner_->TextOf(Bstr(path), &*text), S_OK);
    return text;
  }
  PlaceNumbers PlaceOf(const wchar_t* path) {
    ComPtr<_FilePlace> place;
    EXPECT_EQ(scanner_->PlaceOf(Bstr(path), place.GetAddressOf()), S_OK);
    return NumbersOf(place.Get());
  }
  ComPtr<_ScannedElementCollection> Elements() { return ObjectFrom(*scanner_.Get(), &_AuditFileScanner::get_Elements); }
  ComPtr<_ProblemCollection> Problems() { return ObjectFrom(*scanner_.Get(), &_AuditFileScanner::get_Problems); }

  TemporaryFolder folder_;
  ComPtr<_AuditFileScanner> scanner_ = FaceFor(std::make_shared<zevo::AuditFileScanner>());
};

TEST_F(ScannerFacesTest, EveryKindOfRecordIsRead) {
  const std::string path = folder_.Path("saft.xml");
  SaveSampleFile(path, {.customers = 1, .transactions = 1, .invoices = 1});
  Name(path);
  ASSERT_TRUE(Open());
  EXPECT_EQ(TextFrom(*scanner_.Get(), &_AuditFileScanner::get_AuditFileName), Wide(path));
  std::vector<std::wstring> read;
  while (const ComPtr<IDispatch> record = Next()) {
    const std::wstring kind = TextFrom(*scanner_.Get(), &_AuditFileScanner::get_Kind);
    EXPECT_EQ(ClassOf(record.Get()), L"_" + kind);
    const std::wstring journal = TextFrom(*scanner_.Get(), &_AuditFileScanner::get_JournalID);
    read.push_back(journal.empty() ? kind : kind + L"(" + journal + L")");
  }
  EXPECT_EQ(read, (std::vector<std::wstring>{L"Header", L"GeneralLedger", L"Customer", L"Supplier", L"Product",
                                             L"TaxTable", L"GeneralLedgerEntries", L"Journal", L"Transaction(D1)",
                                             L"SalesInvoices", L"Invoice"}));
  EXPECT_EQ(TextFrom(*scanner_.Get(), &_AuditFileScanner::get_Kind), L"");
  EXPECT_EQ(TextFrom(*scanner_.Get(), &_AuditFileScanner::get_JournalID), L"");
  DOUBLE bytes = 0;
  EXPECT_EQ(scanner_->get_BytesRead(&bytes), S_OK);
  EXPECT_EQ(bytes, static_cast<DOUBLE>(ReadBytes(path).size()));
  VARIANT_BOOL closed = VARIANT_FALSE;
  EXPECT_EQ(scanner_->CloseAuditFile(&closed), S_OK);
  EXPECT_EQ(closed, VARIANT_TRUE);
  EXPECT_EQ(scanner_->get_BytesRead(&bytes), S_OK);
  EXPECT_EQ(bytes, 0);
}

TEST_F(ScannerFacesTest, RecordsHoldWhatOtherReadersLeaveOut) {
  OpenFile();
  Next();
  Next();
  const ComPtr<IDispatch> record = Next();
  ComPtr<_Invoice> invoice;
  ASSERT_EQ(record.As(&invoice), S_OK);
  EXPECT_EQ(TextFrom(*invoice.Get(), &_Invoice::get_Hash), L"qK9=");
  EXPECT_EQ(TextFrom(*invoice.Get(), &_Invoice::get_HashControl), L"2");
  EXPECT_EQ(NumbersOf(ObjectFrom(*scanner_.Get(), &_AuditFileScanner::get_Place).Get()), PlaceIn(kFile, "<Invoice>"));
  EXPECT_EQ(Next().Get(), nullptr);
  EXPECT_EQ(NumbersOf(ObjectFrom(*scanner_.Get(), &_AuditFileScanner::get_Place).Get()), (PlaceNumbers{0, 0, 0}));
}

TEST_F(ScannerFacesTest, AnElementThatIsNotThereHasNoTextAndOneThatIsEmptyHas) {
  EXPECT_EQ(TextOf(L"Fax").Type(), VT_NULL);
  OpenFile();
  EXPECT_EQ(TextOf(L"").Type(), VT_NULL);
  Next();
  EXPECT_EQ(TextOf(L"CompanyName").Text(), L"Caf\x00E9 \x4E2D");
  EXPECT_EQ(TextOf(L"Fax").Type(), VT_BSTR);
  EXPECT_EQ(TextOf(L"Fax").Text(), L"");
  EXPECT_EQ(TextOf(L"Telephone").Type(), VT_NULL);
  EXPECT_EQ(TextOf(L"").Type(), VT_BSTR);
  EXPECT_EQ(PlaceOf(L"Fax"), PlaceIn(kFile, "<Fax/>"));
  EXPECT_EQ(PlaceOf(L""), PlaceIn(kFile, "<Customer>"));
  EXPECT_EQ(PlaceOf(L"Telephone"), (PlaceNumbers{0, 0, 0}));
  Next();
  Next();
  EXPECT_EQ(TextOf(L"Line[2]/LineNumber").Text(), L"2");
  // The null string is the empty path.
  Variant text;
  EXPECT_EQ(scanner_->TextOf(nullptr, &*text), S_OK);
  EXPECT_EQ(text.Type(), VT_BSTR);
}

TEST_F(ScannerFacesTest, ElementsComeInTheOrderOfTheFile) {
  OpenFile();
  ReadInvoice();
  const ComPtr<_ScannedElementCollection> elements = Elements();
  struct Expected {
    const wchar_t* name;
    LONG depth;
    const wchar_t* text;
    const char* tag;
  };
  const Expected expected[] = {{L"Invoice", 0, L"", "<Invoice>"},        {L"InvoiceNo", 1, L"FT A/1", "<InvoiceNo>"},
                               {L"Hash", 1, L"qK9=", "<Hash>"},          {L"HashControl", 1, L"2", "<HashControl>"},
                               {L"Line", 1, L"", "<Line><LineNumber>1"}, {L"LineNumber", 2, L"1", "<LineNumber>1"},
                               {L"Line", 1, L"", "<Line><LineNumber>2"}, {L"LineNumber", 2, L"2", "<LineNumber>2"}};
  ASSERT_EQ(CountOf(*elements.Get()), 8);
  int position = 0;
  for (const Expected& one : expected) {
    ComPtr<_ScannedElement> element;
    ASSERT_EQ(elements->get_Item(*Variant(++position), element.GetAddressOf()), S_OK);
    EXPECT_EQ(TextFrom(*element.Get(), &_ScannedElement::get_Name), one.name);
    LONG depth = -1;
    EXPECT_EQ(element->get_Depth(&depth), S_OK);
    EXPECT_EQ(depth, one.depth);
    EXPECT_EQ(TextFrom(*element.Get(), &_ScannedElement::get_Text), one.text);
    EXPECT_EQ(NumbersOf(ObjectFrom(*element.Get(), &_ScannedElement::get_Place).Get()), PlaceIn(kFile, one.tag));
  }
}

TEST_F(ScannerFacesTest, WithoutARecordThereIsNothing) {
  const auto expect_nothing = [&] {
    EXPECT_EQ(CountOf(*Elements().Get()), 0);
    EXPECT_EQ(CountOf(*Problems().Get()), 0);
    EXPECT_EQ(TextFrom(*scanner_.Get(), &_AuditFileScanner::get_Kind), L"");
    EXPECT_EQ(PlaceOf(L""), (PlaceNumbers{0, 0, 0}));
  };
  expect_nothing();
  OpenFile();
  expect_nothing();
  Next();
  EXPECT_EQ(CountOf(*Elements().Get()), 6);
  Next();
  Next();
  Next();
  expect_nothing();
  VARIANT_BOOL closed = VARIANT_FALSE;
  EXPECT_EQ(scanner_->CloseAuditFile(&closed), S_OK);
  expect_nothing();
  OpenFile();
  Next();
  EXPECT_EQ(CountOf(*Elements().Get()), 6);
}

TEST_F(ScannerFacesTest, BadIndexesAreRaised) {
  OpenFile();
  Next();
  const auto expect_errors = [](const ComPtr<IDispatch>& collection, LONG count) {
    const auto get = [&](const Variant& index) {
      const Outcome outcome = Invoke(collection.Get(), DISPID_VALUE, DISPATCH_PROPERTYGET, {index});
      EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
      EXPECT_EQ(outcome.source, L"ZevoAdapters11");
      return outcome.number;
    };
    EXPECT_EQ(get(Variant(0)), kSubscriptOutOfRange);
    EXPECT_EQ(get(Variant(count + 1)), kSubscriptOutOfRange);
    EXPECT_EQ(get(Variant(L"1")), kInvalidCall);
    EXPECT_EQ(get(Variant()), static_cast<HRESULT>(0x800A000D));
  };
  expect_errors(Elements(), 6);
  expect_errors(Problems(), 2);
}

TEST_F(ScannerFacesTest, ProblemsTellWhatTheRecordCannotHold) {
  OpenFile();
  Next();
  const ComPtr<_ProblemCollection> problems = Problems();
  ASSERT_EQ(CountOf(*problems.Get()), 2);
  ComPtr<_Problem> problem;
  ASSERT_EQ(problems->get_Item(*Variant(1), problem.GetAddressOf()), S_OK);
  Faults fault{};
  EXPECT_EQ(problem->get_Fault(&fault), S_OK);
  EXPECT_EQ(fault, faultUnknownElement);
  EXPECT_EQ(TextFrom(*problem.Get(), &_Problem::get_Path), L"Pet");
  EXPECT_EQ(TextFrom(*problem.Get(), &_Problem::get_Text), L"cat");
  const PlaceNumbers place = PlaceIn(kFile, "<Pet>");
  EXPECT_EQ(NumbersOf(ObjectFrom(*problem.Get(), &_Problem::get_Place).Get()), place);

  ComPtr<_Problem> second;
  ASSERT_EQ(problems->get_Item(*Variant(2), second.GetAddressOf()), S_OK);
  EXPECT_EQ(second->get_Fault(&fault), S_OK);
  EXPECT_EQ(fault, faultUnreadable);
  EXPECT_EQ(TextFrom(*second.Get(), &_Problem::get_Path), L"SelfBillingIndicator");
}

TEST_F(ScannerFacesTest, AProblemIsDescribedInPortugueseUnlessAsked) {
  const auto problem = std::make_shared<zevo::Problem>(zevo::Problem{Fault::kUnknownElement, "Pet", {2, 7, 99}, "cat"});
  const ComPtr<_Problem> face = FaceFor(problem);
  const std::wstring portuguese = L"Pet, \"cat\": n\x00E3o \x00E9 conhecido neste s\x00EDtio (linha 2, coluna 7).";
  const std::wstring english = L"Pet, \"cat\": is not known here (line 2, column 7).";
  Bstr text;
  EXPECT_EQ(face->get_Description(languagePortuguese, text.Receive()), S_OK);
  EXPECT_EQ(text.Text(), portuguese);
  EXPECT_EQ(face->get_Description(languageEnglish, text.Receive()), S_OK);
  EXPECT_EQ(text.Text(), english);
  EXPECT_EQ(Get(face.Get(), L"Description").value.Text(), portuguese);
  const DISPID member = IdOf(face.Get(), L"Description");
  EXPECT_EQ(Invoke(face.Get(), member, DISPATCH_PROPERTYGET, {Variant(languageEnglish)}).value.Text(), english);
  const Outcome other = Invoke(face.Get(), member, DISPATCH_PROPERTYGET, {Variant(2)});
  EXPECT_EQ(other.result, DISP_E_EXCEPTION);
  EXPECT_EQ(other.number, kInvalidCall);
  EXPECT_EQ(other.description, L"Chamada ou argumento inv\x00E1lido (2).");
}

TEST_F(ScannerFacesTest, FaultsAndLanguagesAreThoseOfTheLibrary) {
  constexpr std::pair<Faults, Fault> kPairs[] = {{faultUnreadable, Fault::kUnreadable},
                                                 {faultUnknownCode, Fault::kUnknownCode},
                                                 {faultInexact, Fault::kInexact},
                                                 {faultRepeated, Fault::kRepeated},
                                                 {faultUnknownElement, Fault::kUnknownElement},
                                                 {faultOutOfOrder, Fault::kOutOfOrder},
                                                 {faultKeyTaken, Fault::kKeyTaken},
                                                 {faultConstant, Fault::kConstant}};
  EXPECT_EQ(std::size(kPairs), kFaults);
  for (const auto& [in_type_library, in_library] : kPairs) {
    EXPECT_EQ(static_cast<int>(in_type_library), static_cast<int>(in_library));
    const ComPtr<_Problem> face = FaceFor(std::make_shared<zevo::Problem>(zevo::Problem{in_library, {}, {}, {}}));
    EXPECT_EQ(Get(face.Get(), L"Fault").value.Number(), in_type_library);
  }
  EXPECT_EQ(static_cast<int>(languagePortuguese), static_cast<int>(Language::kPortuguese));
  EXPECT_EQ(static_cast<int>(languageEnglish), static_cast<int>(Language::kEnglish));
}

TEST_F(ScannerFacesTest, ValuesStayWhatTheyAre) {
  OpenFile();
  Next();
  const ComPtr<_ScannedElementCollection> elements = Elements();
  ComPtr<_ScannedElement> name;
  ASSERT_EQ(elements->get_Item(*Variant(3), name.GetAddressOf()), S_OK);
  ComPtr<_Problem> problem;
  ASSERT_EQ(Problems()->get_Item(*Variant(1), problem.GetAddressOf()), S_OK);
  const ComPtr<_FilePlace> place = ObjectFrom(*problem.Get(), &_Problem::get_Place);
  const auto expect_values = [&] {
    EXPECT_EQ(CountOf(*elements.Get()), 6);
    EXPECT_EQ(TextFrom(*name.Get(), &_ScannedElement::get_Name), L"CompanyName");
    EXPECT_EQ(TextFrom(*name.Get(), &_ScannedElement::get_Text), L"Caf\x00E9 \x4E2D");
    EXPECT_EQ(NumbersOf(place.Get()), PlaceIn(kFile, "<Pet>"));
  };
  Next();
  expect_values();
  Next();
  expect_values();
  VARIANT_BOOL closed = VARIANT_FALSE;
  EXPECT_EQ(scanner_->CloseAuditFile(&closed), S_OK);
  scanner_.Reset();
  problem.Reset();
  expect_values();
}

TEST_F(ScannerFacesTest, TheSameValueIsTheSameObjectUntilTheNextReading) {
  OpenFile();
  Next();
  const ComPtr<_ScannedElementCollection> elements = Elements();
  const ComPtr<_ProblemCollection> problems = Problems();
  const ComPtr<_FilePlace> place = ObjectFrom(*scanner_.Get(), &_AuditFileScanner::get_Place);
  EXPECT_TRUE(SameObject(elements.Get(), Elements().Get()));
  EXPECT_TRUE(SameObject(problems.Get(), Problems().Get()));
  EXPECT_TRUE(SameObject(place.Get(), ObjectFrom(*scanner_.Get(), &_AuditFileScanner::get_Place).Get()));
  ComPtr<_ScannedElement> one;
  ComPtr<_ScannedElement> again;
  ASSERT_EQ(elements->get_Item(*Variant(2), one.GetAddressOf()), S_OK);
  ASSERT_EQ(elements->get_Item(*Variant(2), again.GetAddressOf()), S_OK);
  EXPECT_TRUE(SameObject(one.Get(), again.Get()));
  EXPECT_TRUE(SameObject(ObjectFrom(*one.Get(), &_ScannedElement::get_Place).Get(),
                         ObjectFrom(*again.Get(), &_ScannedElement::get_Place).Get()));
  Next();
  EXPECT_FALSE(SameObject(elements.Get(), Elements().Get()));
  EXPECT_FALSE(SameObject(problems.Get(), Problems().Get()));
}

TEST_F(ScannerFacesTest, ElementsBecomeObjectsWhenTheyAreAskedFor) {
  constexpr int kLines = 100'000;
  std::string bytes = "<AuditFile><SourceDocuments><SalesInvoices><Invoice>";
  for (int i = 0; i < kLines; ++i) bytes += "<Note>x</Note>";
  OpenFile(bytes += "</Invoice></SalesInvoices></SourceDocuments></AuditFile>");
  Next();
  const ComPtr<IDispatch> invoice = Next();
  const int before = LiveObject::Count();
  const ComPtr<_ScannedElementCollection> elements = Elements();
  EXPECT_EQ(CountOf(*elements.Get()), kLines + 1);
  EXPECT_EQ(LiveObject::Count(), before + 1);
  ComPtr<_ScannedElement> last;
  ASSERT_EQ(elements->get_Item(*Variant(kLines + 1), last.GetAddressOf()), S_OK);
  EXPECT_EQ(TextFrom(*last.Get(), &_ScannedElement::get_Text), L"x");
  EXPECT_EQ(LiveObject::Count(), before + 2);

  ComPtr<IUnknown> started;
  ASSERT_EQ(elements->NewEnum(started.GetAddressOf()), S_OK);
  ComPtr<IEnumVARIANT> each;
  ASSERT_EQ(started.As(&each), S_OK);
  int walked = 0;
  for (;; ++walked) {
    Variant item;
    if (each->Next(1, &*item, nullptr) != S_OK) break;
    ASSERT_EQ(item.Type(), VT_DISPATCH);
    // The scanned elements, the last of them, the enumerator and the one at hand, which may be the last.
    ASSERT_LE(LiveObject::Count(), before + 4);
  }
  EXPECT_EQ(walked, kLines + 1);
}

// The way of scripts, where every variable goes as VARIANT*.
TEST_F(ScannerFacesTest, VariablesOfScriptsAreAssigned) {
  EXPECT_EQ(Put(scanner_.Get(), L"AuditFileName", Variant(Wide(folder_.Write("saft.xml", kFile)).c_str())).result,
            S_OK);
  EXPECT_TRUE(Call(scanner_.Get(), L"OpenAuditFile").value.Flag());
  Variant record;
  const auto read = [&] {
    const Outcome outcome = Call(scanner_.Get(), L"ReadNext", {Variant::Reference(record)});
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_TRUE(outcome.value.Flag());
    EXPECT_EQ(record.Type(), VT_DISPATCH);
    return ClassOf(record.Object());
  };
  EXPECT_EQ(read(), L"_Customer");
  EXPECT_EQ(Get(record.Object(), L"CustomerID").value.Text(), L"C1");
  const Variant customer = record;

  // Members by name.
  EXPECT_EQ(Get(scanner_.Get(), L"Kind").value.Text(), L"Customer");
  EXPECT_EQ(Get(scanner_.Get(), L"BytesRead").value.Type(), VT_R8);
  EXPECT_EQ(Get(scanner_.Get(), L"JournalID").value.Text(), L"");
  EXPECT_EQ(Call(scanner_.Get(), L"TextOf", {Variant(L"CustomerID")}).value.Text(), L"C1");
  EXPECT_EQ(Call(scanner_.Get(), L"TextOf", {Variant(L"Fax")}).value.Text(), L"");
  EXPECT_EQ(Call(scanner_.Get(), L"TextOf", {Variant(L"Telephone")}).value.Type(), VT_NULL);
  Variant path(L"CustomerID");
  EXPECT_EQ(Call(scanner_.Get(), L"TextOf", {Variant::Reference(path)}).value.Text(), L"C1");
  const Variant place = Call(scanner_.Get(), L"PlaceOf", {path}).value;
  EXPECT_EQ(Get(place.Object(), L"Line").value.Number(), 2);
  EXPECT_EQ(Get(place.Object(), L"Column").value.Number(), 11);
  EXPECT_EQ(V_R8(&*Get(place.Object(), L"Offset").value), PlaceIn(kFile, "<CustomerID>").offset);
  EXPECT_EQ(Get(Get(scanner_.Get(), L"Place").value.Object(), L"Column").value.Number(), 1);
  const DISPID elements = IdOf(scanner_.Get(), L"Elements");
  const Variant element = Invoke(scanner_.Get(), elements, DISPATCH_PROPERTYGET, {Variant(2)}).value;
  EXPECT_EQ(Get(element.Object(), L"Name").value.Text(), L"CustomerID");
  EXPECT_EQ(Get(element.Object(), L"Text").value.Text(), L"C1");
  EXPECT_EQ(Get(element.Object(), L"Depth").value.Number(), 1);
  EXPECT_EQ(Get(Get(element.Object(), L"Place").value.Object(), L"Column").value.Number(), 11);
  const Variant problems = Get(scanner_.Get(), L"Problems").value;
  EXPECT_EQ(Get(problems.Object(), L"Count").value.Number(), 2);
  const Variant problem = Invoke(problems.Object(), DISPID_VALUE, DISPATCH_PROPERTYGET, {Variant(1)}).value;
  EXPECT_EQ(Get(problem.Object(), L"Path").value.Text(), L"Pet");
  EXPECT_EQ(Get(problem.Object(), L"Text").value.Text(), L"cat");
  EXPECT_EQ(Get(Get(problem.Object(), L"Place").value.Object(), L"Line").value.Number(), 2);
  EXPECT_EQ(Invoke(problems.Object(), DISPID_NEWENUM, DISPATCH_PROPERTYGET).value.Type(), VT_UNKNOWN);

  EXPECT_EQ(read(), L"_SalesInvoices");
  EXPECT_EQ(References(customer.Object()), 1U);

  // Other ways to give a place for the record, or none: without, as from JScript, there is the rest.
  ComPtr<IDispatch> typed;
  Variant reference;
  V_VT(&*reference) = VT_BYREF | VT_DISPATCH;
  V_DISPATCHREF(&*reference) = typed.GetAddressOf();
  EXPECT_TRUE(Call(scanner_.Get(), L"ReadNext", {reference}).value.Flag());
  EXPECT_EQ(ClassOf(typed.Get()), L"_Invoice");
  EXPECT_EQ(Call(scanner_.Get(), L"TextOf", {Variant(L"Hash")}).value.Text(), L"qK9=");
  Variant null;
  V_VT(&*null) = VT_NULL;
  EXPECT_TRUE(Call(scanner_.Get(), L"ReadNext", {null}).value.Flag());
  EXPECT_EQ(Get(scanner_.Get(), L"Kind").value.Text(), L"");
  EXPECT_EQ(read(), L"Nothing");
  Variant text(L"record");
  EXPECT_EQ(Call(scanner_.Get(), L"ReadNext", {Variant::Reference(text)}).result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(Call(scanner_.Get(), L"ReadNext").result, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(Call(scanner_.Get(), L"TextOf").result, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(Call(scanner_.Get(), L"AbortReading").result, S_OK);
  EXPECT_TRUE(Call(scanner_.Get(), L"CloseAuditFile").value.Flag());
}

// A record is the one object, wherever it is reached, and its parts are.
TEST_F(ScannerFacesTest, ARecordIsOneObject) {
  OpenFile();
  Next();
  Next();
  ComPtr<IDispatch> record = Next();
  ComPtr<_Invoice> invoice;
  ASSERT_EQ(record.As(&invoice), S_OK);
  EXPECT_TRUE(SameObject(invoice.Get(), record.Get()));
  const auto lines = ObjectFrom(*invoice.Get(), &_Invoice::get_Line);
  EXPECT_TRUE(SameObject(lines.Get(), ObjectFrom(*invoice.Get(), &_Invoice::get_Line).Get()));
  invoice.Reset();
  EXPECT_EQ(References(record.Get()), 1U);
}

TEST_F(ScannerFacesTest, FailuresAreKeptAndNotRaised) {
  EXPECT_TRUE(ReadFails());
  EXPECT_EQ(FailureNumber(), -2147221499);
  EXPECT_FALSE(Open());
  EXPECT_EQ(FailureNumber(), -2147221503);
  EXPECT_EQ(TextFrom(*Failure().Get(), &_AuditException::get_Source), L"AuditFileScanner.OpenAuditFile");
  Name(folder_.Path("none.xml"));
  EXPECT_FALSE(Open());
  EXPECT_EQ(FailureNumber(), -2147221502);

  Name(folder_.Write("other.xml", "<html/>"));
  EXPECT_FALSE(Open());
  EXPECT_EQ(FailureNumber(), -2147220902);
  EXPECT_EQ(FailureText(), L"O ficheiro n\x00E3o \x00E9 um ficheiro de auditoria");
  Name(folder_.Write("later.xml", "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.04_01\"/>"));
  EXPECT_FALSE(Open());
  EXPECT_EQ(FailureNumber(), -2147220903);
  EXPECT_EQ(FailureText(), L"O ficheiro \x00E9 da vers\x00E3o 1.04_01; s\x00F3 a vers\x00E3o 1.01_01 \x00E9 lida");

  OpenFile();
  EXPECT_EQ(Failure().Get(), nullptr);
  EXPECT_FALSE(Open());
  EXPECT_EQ(FailureNumber(), -2147221500);
  Next();
  EXPECT_EQ(Failure().Get(), nullptr);
  EXPECT_EQ(scanner_->AbortReading(), S_OK);
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(ReadFails());
    EXPECT_EQ(FailureNumber(), ReadingAborted);
  }
}

TEST_F(ScannerFacesTest, AFileThatIsCutShortFailsAfterItsRecords) {
  OpenFile(kFile.substr(0, kFile.find("<Line>")));
  Next();
  Next();
  EXPECT_TRUE(ReadFails());
  EXPECT_GT(FailureNumber(), 0);
  EXPECT_NE(FailureText(), L"");
  EXPECT_EQ(TextFrom(*scanner_.Get(), &_AuditFileScanner::get_Kind), L"");
}

TEST_F(ScannerFacesTest, APlaceBeyondALongIsAnOverflow) {
  constexpr int64_t kFar = INT64_C(1) << 40;
  const ComPtr<_FilePlace> place = FaceFor(std::make_shared<zevo::FilePlace>(zevo::FilePlace{kFar, kFar, kFar}));
  LONG number = 5;
  EXPECT_EQ(place->get_Line(&number), kOverflow);
  EXPECT_EQ(number, 0);
  const ErrorInfo error = TakeErrorInfo();
  EXPECT_EQ(error.source, L"ZevoAdapters11");
  EXPECT_EQ(error.description, L"Capacidade excedida (1099511627776).");
  EXPECT_EQ(place->get_Column(&number), kOverflow);
  const Outcome late = Get(place.Get(), L"Line");
  EXPECT_EQ(late.result, DISP_E_EXCEPTION);
  EXPECT_EQ(late.number, kOverflow);
  DOUBLE offset = 0;
  EXPECT_EQ(place->get_Offset(&offset), S_OK);
  EXPECT_EQ(offset, static_cast<DOUBLE>(kFar));
  const ComPtr<_FilePlace> last = FaceFor(std::make_shared<zevo::FilePlace>(zevo::FilePlace{INT32_MAX, INT32_MAX, 0}));
  EXPECT_EQ(NumbersOf(last.Get()), (PlaceNumbers{INT32_MAX, INT32_MAX, 0}));
}

TEST_F(ScannerFacesTest, CallsWithoutAPlaceForTheAnswerAreRefused) {
  OpenFile();
  Next();
  VARIANT_BOOL done = VARIANT_TRUE;
  ComPtr<IDispatch> record;
  EXPECT_EQ(scanner_->ReadNext(nullptr, &done), E_POINTER);
  EXPECT_EQ(scanner_->ReadNext(record.GetAddressOf(), nullptr), E_POINTER);
  EXPECT_EQ(scanner_->OpenAuditFile(nullptr), E_POINTER);
  EXPECT_EQ(scanner_->CloseAuditFile(nullptr), E_POINTER);
  EXPECT_EQ(scanner_->get_BytesRead(nullptr), E_POINTER);
  EXPECT_EQ(scanner_->get_Kind(nullptr), E_POINTER);
  EXPECT_EQ(scanner_->get_Place(nullptr), E_POINTER);
  EXPECT_EQ(scanner_->get_JournalID(nullptr), E_POINTER);
  EXPECT_EQ(scanner_->get_Elements(nullptr), E_POINTER);
  EXPECT_EQ(scanner_->TextOf(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(scanner_->PlaceOf(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(scanner_->get_Problems(nullptr), E_POINTER);
  EXPECT_EQ(Elements()->get_Item(*Variant(1), nullptr), E_POINTER);
  EXPECT_EQ(Elements()->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(Elements()->NewEnum(nullptr), E_POINTER);
  ComPtr<_ScannedElement> element;
  ASSERT_EQ(Elements()->get_Item(*Variant(1), element.GetAddressOf()), S_OK);
  EXPECT_EQ(element->get_Name(nullptr), E_POINTER);
  EXPECT_EQ(element->get_Depth(nullptr), E_POINTER);
  EXPECT_EQ(element->get_Text(nullptr), E_POINTER);
  EXPECT_EQ(element->get_Place(nullptr), E_POINTER);
  ComPtr<_Problem> problem;
  ASSERT_EQ(Problems()->get_Item(*Variant(1), problem.GetAddressOf()), S_OK);
  EXPECT_EQ(problem->get_Fault(nullptr), E_POINTER);
  EXPECT_EQ(problem->get_Path(nullptr), E_POINTER);
  EXPECT_EQ(problem->get_Place(nullptr), E_POINTER);
  EXPECT_EQ(problem->get_Text(nullptr), E_POINTER);
  EXPECT_EQ(problem->get_Description(languageEnglish, nullptr), E_POINTER);
  const ComPtr<_FilePlace> place = ObjectFrom(*scanner_.Get(), &_AuditFileScanner::get_Place);
  EXPECT_EQ(place->get_Line(nullptr), E_POINTER);
  EXPECT_EQ(place->get_Column(nullptr), E_POINTER);
  EXPECT_EQ(place->get_Offset(nullptr), E_POINTER);
  // None of these calls read on.
  EXPECT_EQ(TextFrom(*scanner_.Get(), &_AuditFileScanner::get_Kind), L"Customer");
}

}  // namespace
}  // namespace zevo::testing
