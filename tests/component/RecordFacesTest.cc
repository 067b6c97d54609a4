// SPDX-License-Identifier: Apache-2.0
// Every record and every property of it, both ways of binding, against the library's own tables of properties.

#include <zevo/adapters.h>
#include <zevo/component/Faces.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tests/component/Com.h"
#include "tests/component/Slots.h"

namespace zevo::testing {
namespace {

using component::FaceFor;
using component::FaceOf;
using component::Interface;

std::wstring Wide(std::string_view text) { return std::wstring(text.begin(), text.end()); }

template <class Record>
std::vector<Slot> ExpectedSlots(std::initializer_list<const wchar_t*> procedures) {
  std::vector<Slot> slots;
  size_t offset = kFirstOffset;
  const auto add = [&](const std::wstring& name, INVOKEKIND kind) {
    slots.push_back({name, kind, offset});
    offset += sizeof(void*);
  };
  for (const Property& property : PropertiesOf<Record>()) {
    const std::wstring name = Wide(property.name);
    // The obsolete property is no part of the table; it comes before the one that took its place.
    if (name == L"ShipFromAddress" && std::is_same_v<Record, zevo::Supplier>) {
      add(L"ShipToAddress", INVOKE_PROPERTYGET);
      add(L"ShipToAddress", INVOKE_PROPERTYPUTREF);
    }
    add(name, INVOKE_PROPERTYGET);
    if (property.set != nullptr) {
      add(name, property.type == PropertyType::kRecord ? INVOKE_PROPERTYPUTREF : INVOKE_PROPERTYPUT);
    }
  }
  for (const wchar_t* procedure : procedures) add(procedure, INVOKE_FUNC);
  return slots;
}

template <class Record>
class RecordFacesContract : public ::testing::Test {
 protected:
  std::shared_ptr<Record> record_ = std::make_shared<Record>();
  ComPtr<Interface<Record>> face_ = FaceFor(record_);
};

using Records =
    ::testing::Types<zevo::AddressStructure, zevo::CreditNote, zevo::CurrencyStructure, zevo::Customer,
                     zevo::DocumentTotals, zevo::GeneralLedger, zevo::GeneralLedgerEntries, zevo::Header, zevo::Invoice,
                     zevo::InvoiceLine, zevo::Journal, zevo::OrderReferences, zevo::Product, zevo::References,
                     zevo::SalesInvoices, zevo::Settlement, zevo::ShippingPointStructure, zevo::Supplier, zevo::Tax,
                     zevo::TaxTable, zevo::TaxTableEntry, zevo::Transaction, zevo::TransactionLine>;
TYPED_TEST_SUITE(RecordFacesContract, Records);

TYPED_TEST(RecordFacesContract, MembersStandInTheOrderOfTheRecord) {
  constexpr bool kTotals =
      std::is_same_v<TypeParam, zevo::SalesInvoices> || std::is_same_v<TypeParam, zevo::GeneralLedgerEntries>;
  const auto expected = kTotals ? ExpectedSlots<TypeParam>({L"Reset", L"Refresh"}) : ExpectedSlots<TypeParam>({});
  EXPECT_EQ(SlotsOf(__uuidof(Interface<TypeParam>)), expected);
}

// Calls an accessor through the table of functions, the way that a host does that was compiled with the library.
HRESULT CallSlot(IDispatch* object, size_t offset, VARTYPE type, VARIANT* value) {
  VARIANT outcome;
  VariantInit(&outcome);
  const HRESULT called = DispCallFunc(object, offset, CC_STDCALL, VT_I4, 1, &type, &value, &outcome);
  EXPECT_EQ(called, S_OK);
  return V_I4(&outcome);
}

struct Sample {
  PropertyType type;
  Variant given;        // by a host that knows names only
  PropertyValue value;  // as the record has it
  VARTYPE com_type;
};

Sample SampleOf(PropertyType type) {
  Variant currency;
  V_VT(&*currency) = VT_CY;
  V_CY(&*currency).int64 = -123456;
  Variant single;
  V_VT(&*single) = VT_R4;
  V_R4(&*single) = 23.5F;
  switch (type) {
    case PropertyType::kText:
      return {type, Variant(L"a\x00E7\x20AC"), std::string("a\u00E7\u20AC"), VT_BSTR};
    case PropertyType::kAmount:
      return {type, currency, Amount::FromScaled(-123456), VT_CY};
    case PropertyType::kFlag:
      return {type, Variant(true), true, VT_BOOL};
    case PropertyType::kCount:
      return {type, Variant(-7), int32_t{-7}, VT_I4};
    case PropertyType::kCode:
      return {type, Variant(1234567), int32_t{1234567}, VT_I4};
    case PropertyType::kSingle:
      return {type, single, 23.5F, VT_R4};
    default:
      ADD_FAILURE();
      return {type, {}, {}, VT_EMPTY};
  }
}

bool IsObject(const Property& property) {
  return property.type == PropertyType::kRecord || property.type == PropertyType::kCollection;
}

TYPED_TEST(RecordFacesContract, ValuesAreAssignedAndReadByName) {
  for (const Property& property : PropertiesOf<TypeParam>()) {
    if (property.set == nullptr || IsObject(property)) continue;
    SCOPED_TRACE(std::string(property.name));
    const Sample sample = SampleOf(property.type);
    const std::wstring name = Wide(property.name);
    EXPECT_EQ(Put(this->face_.Get(), name.c_str(), sample.given).result, S_OK);
    EXPECT_EQ(property.get(*this->record_), sample.value);
    const Outcome read = Get(this->face_.Get(), name.c_str());
    EXPECT_EQ(read.result, S_OK);
    EXPECT_EQ(read.value.Type(), sample.com_type);
    EXPECT_EQ(VarCmp(const_cast<VARIANT*>(&*read.value), const_cast<VARIANT*>(&*sample.given), LOCALE_USER_DEFAULT, 0),
              static_cast<HRESULT>(VARCMP_EQ));
  }
}

TYPED_TEST(RecordFacesContract, ValuesAreAssignedAndReadBySlot) {
  const std::vector<Slot> slots = SlotsOf(__uuidof(Interface<TypeParam>));
  for (const Property& property : PropertiesOf<TypeParam>()) {
    if (property.set == nullptr || IsObject(property)) continue;
    SCOPED_TRACE(std::string(property.name));
    Sample sample = SampleOf(property.type);
    const auto getter = std::ranges::find_if(slots, [&](const Slot& slot) { return slot.name == Wide(property.name); });
    ASSERT_NE(getter, slots.end());
    EXPECT_EQ(CallSlot(this->face_.Get(), getter->offset + sizeof(void*), sample.com_type, &*sample.given), S_OK);
    EXPECT_EQ(property.get(*this->record_), sample.value);

    Variant read;
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | sample.com_type;
    V_BYREF(&reference) = &V_NONE(&*read);
    EXPECT_EQ(CallSlot(this->face_.Get(), getter->offset, V_VT(&reference), &reference), S_OK);
    V_VT(&*read) = sample.com_type;
    EXPECT_EQ(VarCmp(&*read, &*sample.given, LOCALE_USER_DEFAULT, 0), static_cast<HRESULT>(VARCMP_EQ));

    // Without a place for the value.
    V_BYREF(&reference) = nullptr;
    EXPECT_EQ(CallSlot(this->face_.Get(), getter->offset, V_VT(&reference), &reference), E_POINTER);
  }
}

TYPED_TEST(RecordFacesContract, ConstantsCannotBeAssigned) {
  for (const Property& property : PropertiesOf<TypeParam>()) {
    if (property.set != nullptr || IsObject(property)) continue;
    SCOPED_TRACE(std::string(property.name));
    const std::wstring name = Wide(property.name);
    EXPECT_EQ(Get(this->face_.Get(), name.c_str()).value.Text(),
              Wide(std::get<std::string>(property.get(*this->record_))));
    EXPECT_EQ(Put(this->face_.Get(), name.c_str(), Variant(L"x")).result, DISP_E_MEMBERNOTFOUND);
  }
}

TYPED_TEST(RecordFacesContract, OwnedObjectsAreTheSameEveryTime) {
  for (const Property& property : PropertiesOf<TypeParam>()) {
    if (property.set != nullptr || !IsObject(property)) continue;
    SCOPED_TRACE(std::string(property.name));
    const std::wstring name = Wide(property.name);
    const Outcome first = Get(this->face_.Get(), name.c_str());
    ASSERT_NE(first.value.Object(), nullptr);
    const Outcome second = Get(this->face_.Get(), name.c_str());
    EXPECT_TRUE(SameObject(first.value.Object(), second.value.Object()));
    EXPECT_EQ(PutReference(this->face_.Get(), name.c_str(), first.value.Object()).result, DISP_E_MEMBERNOTFOUND);
  }
}

TYPED_TEST(RecordFacesContract, ReferencesAreAssignedAndCleared) {
  for (const Property& property : PropertiesOf<TypeParam>()) {
    if (property.set == nullptr || !IsObject(property)) continue;
    SCOPED_TRACE(std::string(property.name));
    const std::wstring name = Wide(property.name);
    Outcome read = Get(this->face_.Get(), name.c_str());
    EXPECT_EQ(read.value.Type(), VT_DISPATCH);
    EXPECT_EQ(read.value.Object(), nullptr);

    // Made through the record, since a face of any class will do.
    property.set(*this->record_, property.make());
    const Variant value = Get(this->face_.Get(), name.c_str()).value;
    ASSERT_NE(value.Object(), nullptr);
    EXPECT_EQ(PutReference(this->face_.Get(), name.c_str(), nullptr).result, S_OK);
    EXPECT_EQ(std::get<std::shared_ptr<Record>>(property.get(*this->record_)), nullptr);
    EXPECT_EQ(PutReference(this->face_.Get(), name.c_str(), value.Object()).result, S_OK);
    read = Get(this->face_.Get(), name.c_str());
    EXPECT_TRUE(SameObject(read.value.Object(), value.Object()));

    // Some hosts assign objects as they do values.
    EXPECT_EQ(Put(this->face_.Get(), name.c_str(), Variant(static_cast<IDispatch*>(nullptr))).result, S_OK);
    EXPECT_EQ(Put(this->face_.Get(), name.c_str(), value).result, S_OK);
    EXPECT_NE(std::get<std::shared_ptr<Record>>(property.get(*this->record_)), nullptr);

    // A record of another class.
    const Outcome wrong = PutReference(this->face_.Get(), name.c_str(), this->face_.Get());
    EXPECT_EQ(wrong.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(wrong.wrong_argument, 0U);
    EXPECT_TRUE(SameObject(Get(this->face_.Get(), name.c_str()).value.Object(), value.Object()));
  }
}

TYPED_TEST(RecordFacesContract, AnswersToItsInterfaces) {
  IUnknown* face = this->face_.Get();
  for (const IID& id : {IID_IUnknown, IID_IDispatch, __uuidof(Interface<TypeParam>), IID_ISupportErrorInfo,
                        IID_IProvideClassInfo, IID_IProvideClassInfo2}) {
    ComPtr<IUnknown> found;
    EXPECT_EQ(face->QueryInterface(id, reinterpret_cast<void**>(found.GetAddressOf())), S_OK);
    EXPECT_TRUE(SameObject(face, found.Get()));
  }
  void* none = face;
  EXPECT_EQ(face->QueryInterface(IID_IPersist, &none), E_NOINTERFACE);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(face->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TYPED_TEST(RecordFacesContract, TellsItsTypes) {
  UINT count = 0;
  EXPECT_EQ(this->face_->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(this->face_->GetTypeInfoCount(nullptr), E_POINTER);
  const auto guid_of = [](ITypeInfo* type) {
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(type->GetTypeAttr(&attributes), S_OK);
    const GUID id = attributes->guid;
    type->ReleaseTypeAttr(attributes);
    return id;
  };
  ComPtr<ITypeInfo> type;
  ASSERT_EQ(this->face_->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), S_OK);
  EXPECT_EQ(guid_of(type.Get()), __uuidof(Interface<TypeParam>));
  EXPECT_EQ(this->face_->GetTypeInfo(1, LOCALE_USER_DEFAULT, &type), DISP_E_BADINDEX);
  EXPECT_EQ(this->face_->GetTypeInfo(0, LOCALE_USER_DEFAULT, nullptr), E_POINTER);

  ComPtr<IProvideClassInfo2> information;
  ASSERT_EQ(this->face_.As(&information), S_OK);
  ASSERT_EQ(information->GetClassInfo(&type), S_OK);
  EXPECT_EQ(guid_of(type.Get()), __uuidof(typename FaceOf<TypeParam>::ComClass));
  GUID events;
  EXPECT_EQ(information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), E_INVALIDARG);
  EXPECT_EQ(information->GetClassInfo(nullptr), E_POINTER);
  EXPECT_EQ(information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr), E_POINTER);

  ComPtr<ISupportErrorInfo> errors;
  ASSERT_EQ(this->face_.As(&errors), S_OK);
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(__uuidof(Interface<TypeParam>)), S_OK);
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);
}

TEST(RecordFacesTest, ObsoletePropertyOfASupplierRaises) {
  const ComPtr<_Supplier> supplier = FaceFor(std::make_shared<zevo::Supplier>());
  ComPtr<_AddressStructure> address = FaceFor(std::make_shared<zevo::AddressStructure>());
  _AddressStructure* read = address.Get();
  EXPECT_EQ(supplier->get_ShipToAddress(&read), -1);
  EXPECT_EQ(read, nullptr);
  ErrorInfo error = TakeErrorInfo();
  EXPECT_EQ(error.source, L"Supplier");
  EXPECT_EQ(error.description, L"Propriedade obsoleta, ser\x00E1 removida na pr\x00F3xima vers\x00E3o");
  EXPECT_EQ(supplier->putref_ShipToAddress(address.Get()), -1);
  EXPECT_EQ(TakeErrorInfo().source, L"Supplier");

  const Outcome late = Get(supplier.Get(), L"ShipToAddress");
  EXPECT_EQ(late.result, DISP_E_EXCEPTION);
  EXPECT_EQ(late.number, -1);
  EXPECT_EQ(late.source, L"Supplier");
  EXPECT_EQ(late.description, error.description);
}

TEST(RecordFacesTest, TotalsAreResetAndRefreshed) {
  const auto totals = std::make_shared<zevo::SalesInvoices>();
  const ComPtr<_SalesInvoices> face = FaceFor(totals);
  totals->set_NumberOfEntries(3);
  EXPECT_EQ(face->Refresh(), S_OK);
  EXPECT_EQ(totals->NumberOfEntries(), 3);
  EXPECT_EQ(face->Reset(), S_OK);
  EXPECT_EQ(totals->NumberOfEntries(), 0);
}

TEST(RecordFacesTest, TextsPassUnharmed) {
  const ComPtr<_Journal> journal = FaceFor(std::make_shared<zevo::Journal>());
  for (const std::wstring text :
       {L"", L"S\x00E3o Jo\x00E3o \x20AC", L"\x4E2D\x6587 \xD83D\xDE00", L" \t\r\n ", L"\x0085\x2028"}) {
    ASSERT_EQ(journal->put_Description(Bstr(text)), S_OK);
    Bstr read;
    ASSERT_EQ(journal->get_Description(read.Receive()), S_OK);
    EXPECT_EQ(read.Text(), text);
  }
  // The null string is the empty one.
  ASSERT_EQ(journal->put_Description(nullptr), S_OK);
  Bstr read;
  ASSERT_EQ(journal->get_Description(read.Receive()), S_OK);
  EXPECT_EQ(read.Text(), L"");
}

TEST(RecordFacesTest, AmountsKeepEveryDigit) {
  const ComPtr<_GeneralLedger> account = FaceFor(std::make_shared<zevo::GeneralLedger>());
  for (const LONGLONG scaled : {LONGLONG{0}, LONGLONG{1}, LONGLONG{-1}, INT64_MAX, INT64_MIN}) {
    CURRENCY given;
    given.int64 = scaled;
    ASSERT_EQ(account->put_OpeningDebitBalance(given), S_OK);
    CURRENCY read;
    ASSERT_EQ(account->get_OpeningDebitBalance(&read), S_OK);
    EXPECT_EQ(read.int64, scaled);
  }
}

TEST(RecordFacesTest, AFaceLivesAsLongAsItIsHeldAndTheRecordWithIt) {
  ComPtr<_AddressStructure> address;
  {
    const ComPtr<_Customer> customer = FaceFor(std::make_shared<zevo::Customer>());
    ASSERT_EQ(customer->get_BillingAddress(&address), S_OK);
    ASSERT_EQ(address->put_City(Bstr(L"Porto")), S_OK);
  }
  Bstr city;
  EXPECT_EQ(address->get_City(city.Receive()), S_OK);
  EXPECT_EQ(city.Text(), L"Porto");
  EXPECT_EQ(References(address.Get()), 1U);
}

TEST(RecordFacesTest, TheSameAddressOfTwoCustomersIsOneObject) {
  const ComPtr<_Customer> one = FaceFor(std::make_shared<zevo::Customer>());
  const ComPtr<_Customer> other = FaceFor(std::make_shared<zevo::Customer>());
  const ComPtr<_AddressStructure> address = FaceFor(std::make_shared<zevo::AddressStructure>());
  ASSERT_EQ(one->putref_ShipToAddress(address.Get()), S_OK);
  ASSERT_EQ(other->putref_ShipToAddress(address.Get()), S_OK);
  ComPtr<_AddressStructure> read;
  ASSERT_EQ(other->get_ShipToAddress(&read), S_OK);
  EXPECT_TRUE(SameObject(read.Get(), address.Get()));
}

}  // namespace
}  // namespace zevo::testing
