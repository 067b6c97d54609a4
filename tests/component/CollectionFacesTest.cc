// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>
#include <zevo/component/Faces.h>

#include "tests/component/Com.h"

namespace zevo::testing {
namespace {

using component::FaceFor;
using component::Interface;

constexpr auto kSubscriptOutOfRange = static_cast<HRESULT>(0x800A0009);
constexpr auto kInvalidCall = static_cast<HRESULT>(0x800A0005);
constexpr auto kTypeMismatch = static_cast<HRESULT>(0x800A000D);
constexpr auto kDuplicateKey = static_cast<HRESULT>(0x800A01C9);

class CollectionFacesTest : public ::testing::Test {
 protected:
  ComPtr<_InvoiceLine> Line(int32_t number) {
    const auto line = std::make_shared<zevo::InvoiceLine>();
    line->set_LineNumber(number);
    return FaceFor(line);
  }
  ComPtr<_InvoiceLine> Item(const Variant& index) {
    ComPtr<_InvoiceLine> item;
    result_ = lines_->get_Item(*index, &item);
    return item;
  }
  long Count() {
    LONG count = -1;
    EXPECT_EQ(lines_->get_Count(&count), S_OK);
    return count;
  }

  std::shared_ptr<zevo::Invoice> invoice_ = std::make_shared<zevo::Invoice>();
  ComPtr<_InvoiceLineCollection> lines_ = FaceFor(invoice_->Line());
  HRESULT result_ = S_OK;
};

TEST_F(CollectionFacesTest, ItemsAreFoundByPositionAndByKey) {
  const ComPtr<_InvoiceLine> first = Line(2);
  const ComPtr<_InvoiceLine> second = Line(1);
  ASSERT_EQ(lines_->Add(first.Get()), S_OK);
  ASSERT_EQ(lines_->Add(second.Get()), S_OK);
  EXPECT_EQ(Count(), 2);
  EXPECT_TRUE(SameObject(Item(Variant(2)).Get(), second.Get()));
  EXPECT_TRUE(SameObject(Item(Variant(L"2")).Get(), first.Get()));
  EXPECT_TRUE(SameObject(Item(Variant(1.2)).Get(), first.Get()));
  Variant variable(L"1");
  EXPECT_TRUE(SameObject(Item(Variant::Reference(variable)).Get(), second.Get()));
}

TEST_F(CollectionFacesTest, BadIndexesCarryTheListsErrors) {
  EXPECT_EQ(Item(Variant(1)).Get(), nullptr);
  EXPECT_EQ(result_, kSubscriptOutOfRange);
  ErrorInfo error = TakeErrorInfo();
  EXPECT_EQ(error.source, L"ZevoAdapters11");
  EXPECT_EQ(error.description, L"\x00CDndice fora dos limites (1).");
  Item(Variant(L"x"));
  EXPECT_EQ(result_, kInvalidCall);
  Item(Variant());
  EXPECT_EQ(result_, kTypeMismatch);
  Item(Variant(lines_.Get()));
  EXPECT_EQ(result_, kTypeMismatch);
  EXPECT_EQ(lines_->Remove(*Variant(0)), kSubscriptOutOfRange);
  EXPECT_EQ(lines_->Remove(*Variant(L"x")), kInvalidCall);
}

TEST_F(CollectionFacesTest, ADuplicateKeyLeavesTheListAsItWas) {
  ASSERT_EQ(lines_->Add(Line(1).Get()), S_OK);
  EXPECT_EQ(lines_->Add(Line(1).Get()), kDuplicateKey);
  EXPECT_EQ(Count(), 1);
}

TEST_F(CollectionFacesTest, NothingCannotBeAdded) { EXPECT_EQ(lines_->Add(nullptr), kInvalidCall); }

TEST_F(CollectionFacesTest, ItemsAreRemoved) {
  for (const int number : {1, 2, 3}) ASSERT_EQ(lines_->Add(Line(number).Get()), S_OK);
  EXPECT_EQ(lines_->Remove(*Variant(1)), S_OK);
  EXPECT_EQ(lines_->Remove(*Variant(L"3")), S_OK);
  EXPECT_EQ(Count(), 1);
  EXPECT_EQ(lines_->Clear(), S_OK);
  EXPECT_EQ(Count(), 0);
  EXPECT_EQ(lines_->Clear(), S_OK);
}

TEST_F(CollectionFacesTest, WithoutAPlaceForTheAnswer) {
  EXPECT_EQ(lines_->get_Item(*Variant(1), nullptr), E_POINTER);
  EXPECT_EQ(lines_->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(lines_->NewEnum(nullptr), E_POINTER);
}

TEST_F(CollectionFacesTest, ItemsAreEnumerated) {
  std::vector<ComPtr<_InvoiceLine>> added;
  for (const int number : {5, 6, 7}) {
    added.push_back(Line(number));
    ASSERT_EQ(lines_->Add(added.back().Get()), S_OK);
  }
  // The way of For Each.
  const Outcome found = Invoke(lines_.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET | DISPATCH_METHOD);
  ASSERT_EQ(found.result, S_OK);
  ASSERT_EQ(found.value.Type(), VT_UNKNOWN);
  ComPtr<IEnumVARIANT> items;
  ASSERT_EQ(found.value.Object()->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(items.GetAddressOf())),
            S_OK);

  // Removing as one goes along does no harm.
  ASSERT_EQ(lines_->Clear(), S_OK);
  for (const auto& line : added) {
    Variant item;
    EXPECT_EQ(items->Next(1, &*item, nullptr), S_OK);
    EXPECT_TRUE(SameObject(item.Object(), line.Get()));
  }
  Variant item;
  ULONG fetched = 9;
  EXPECT_EQ(items->Next(1, &*item, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 0U);

  EXPECT_EQ(items->Reset(), S_OK);
  EXPECT_EQ(items->Skip(1), S_OK);
  ComPtr<IEnumVARIANT> clone;
  ASSERT_EQ(items->Clone(&clone), S_OK);
  VARIANT rest[3];
  EXPECT_EQ(clone->Next(3, rest, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 2U);
  EXPECT_TRUE(SameObject(V_DISPATCH(&rest[0]), added[1].Get()));
  VariantClear(&rest[0]);
  VariantClear(&rest[1]);
  EXPECT_EQ(items->Skip(3), S_FALSE);
  EXPECT_EQ(items->Next(1, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(items->Next(2, rest, nullptr), E_POINTER);
  EXPECT_EQ(items->Clone(nullptr), E_POINTER);
  EXPECT_EQ(items->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  void* none = nullptr;
  EXPECT_EQ(items->QueryInterface(IID_IDispatch, &none), E_NOINTERFACE);
}

TEST_F(CollectionFacesTest, EveryCollectionTakesItsItems) {
  const auto adds = [](auto collection, auto item) {
    const auto face = FaceFor(collection);
    EXPECT_EQ(face->Add(FaceFor(item).Get()), S_OK);
    EXPECT_EQ(collection->Count(), 1);
    ComPtr<std::remove_pointer_t<decltype(FaceFor(item).Get())>> found;
    EXPECT_EQ(face->get_Item(*Variant(1), &found), S_OK);
    EXPECT_TRUE(SameObject(found.Get(), FaceFor(item).Get()));
  };
  adds(zevo::TaxTable().TaxTableEntry(), std::make_shared<zevo::TaxTableEntry>());
  adds(zevo::Transaction().Line(), std::make_shared<zevo::TransactionLine>());
  adds(zevo::Invoice().Line(), std::make_shared<zevo::InvoiceLine>());
  adds(zevo::References().CreditNote(), std::make_shared<zevo::CreditNote>());
}

// Entries have no keys.
TEST_F(CollectionFacesTest, ATaxTableHasNoKeys) {
  const ComPtr<_TaxTableEntryCollection> entries = FaceFor(zevo::TaxTable().TaxTableEntry());
  ASSERT_EQ(entries->Add(FaceFor(std::make_shared<zevo::TaxTableEntry>()).Get()), S_OK);
  ComPtr<_TaxTableEntry> entry;
  EXPECT_EQ(entries->get_Item(*Variant(L"1"), &entry), kInvalidCall);
}

TEST_F(CollectionFacesTest, MembersHaveTheNumbersOfAutomation) {
  const ComPtr<_LineCollection> lines = FaceFor(zevo::Transaction().Line());
  EXPECT_EQ(IdOf(lines.Get(), L"Item"), DISPID_VALUE);
  EXPECT_EQ(IdOf(lines.Get(), L"NewEnum"), DISPID_NEWENUM);
}

}  // namespace
}  // namespace zevo::testing
