// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Enumerator.h>
#include <zevo/component/Face.h>

#include <vector>

namespace zevo::component {
namespace {

using Microsoft::WRL::ComPtr;

void CopyItem(const ComPtr<IDispatch>& item, VARIANT& element) {
  V_VT(&element) = VT_DISPATCH;
  item.CopyTo(&V_DISPATCH(&element));
}
using ItemEnumerator = Enumerator<IEnumVARIANT, VARIANT, ComPtr<IDispatch>, &CopyItem>;

// A text is a key, a number a position.
template <class Operation>
auto WithIndex(const VARIANT& index, Operation&& operation) {
  VARIANT plain;
  VariantInit(&plain);
  RequireSuccess(CopyPlain(plain, index));
  if (V_VT(&plain) == VT_BSTR) {
    const std::string key = TextOf(V_BSTR(&plain));
    VariantClear(&plain);
    return operation(std::string_view{key});
  }
  const bool number = V_VT(&plain) != VT_EMPTY && SUCCEEDED(VariantChangeType(&plain, &plain, 0, VT_I4));
  const int32_t position = number ? V_I4(&plain) : 0;
  VariantClear(&plain);
  if (!number) throw MakeRunTimeError(RunTimeError::kTypeMismatch);
  return operation(position);
}

template <class Collection>
class CollectionFace final : public Face<Collection> {
 public:
  using Face<Collection>::Face;
  using Item = typename Collection::ItemType;

  STDMETHODIMP Add(Interface<Item>* value) override {
    return this->Do([&] { this->core().Add(CoreOf<Item>(value)); });
  }
  STDMETHODIMP Remove(VARIANT index) override {
    return this->Do([&] { WithIndex(index, [&](auto place) { this->core().Remove(place); }); });
  }
  STDMETHODIMP Clear() override {
    return this->Do([&] { this->core().Clear(); });
  }
  STDMETHODIMP get_Item(VARIANT index, Interface<Item>** value) override {
    return this->Answer(value, [&] { return WithIndex(index, [&](auto place) { return this->core().Item(place); }); });
  }
  STDMETHODIMP get_Count(LONG* value) override {
    return this->Answer(value, [&] { return this->core().Count(); });
  }
  STDMETHODIMP NewEnum(IUnknown** value) override {
    if (value == nullptr) return E_POINTER;
    *value = nullptr;
    return this->Do([&] {
      std::vector<ComPtr<IDispatch>> items;
      for (const auto& item : this->core()) items.emplace_back(FaceFor(item));
      *value = new ItemEnumerator(std::move(items));
    });
  }
};

using CreditNoteCollectionFace = CollectionFace<zevo::CreditNoteCollection>;
using InvoiceLineCollectionFace = CollectionFace<zevo::InvoiceLineCollection>;
using LineCollectionFace = CollectionFace<zevo::LineCollection>;
using TaxTableEntryCollectionFace = CollectionFace<zevo::TaxTableEntryCollection>;

}  // namespace

ZEVO_FACE_OF(CreditNoteCollection);
ZEVO_FACE_OF(InvoiceLineCollection);
ZEVO_FACE_OF(LineCollection);
ZEVO_FACE_OF(TaxTableEntryCollection);

}  // namespace zevo::component
