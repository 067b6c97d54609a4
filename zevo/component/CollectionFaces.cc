// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Enumerator.h>
#include <zevo/component/Face.h>

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace zevo::component {
namespace {

// A collection may have very many items: their faces are made as a host goes along.
template <class Item>
void CopyItem(const std::shared_ptr<Item>& item, VARIANT& element) {
  V_DISPATCH(&element) = FaceFor(item).Detach();
  V_VT(&element) = VT_DISPATCH;
}
template <class Item>
using ItemEnumerator = Enumerator<IEnumVARIANT, VARIANT, std::shared_ptr<Item>, &CopyItem<Item>>;

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

// What every collection can: give its items.
template <class Collection>
class ListFace : public Face<Collection> {
 public:
  using Face<Collection>::Face;
  using Item = typename Collection::ItemType;

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
      const auto count = static_cast<int32_t>(this->core().Count());
      std::vector<std::shared_ptr<Item>> items;
      items.reserve(static_cast<size_t>(count));
      for (int32_t i = 1; i <= count; ++i) items.push_back(this->core().Item(i));
      *value = new ItemEnumerator<Item>(std::move(items));
    });
  }
};

// Hosts may change the collections of records too.
template <class Collection>
class CollectionFace final : public ListFace<Collection> {
 public:
  using ListFace<Collection>::ListFace;
  using typename ListFace<Collection>::Item;

  STDMETHODIMP Add(Interface<Item>* value) override {
    return this->Do([&] { this->core().Add(CoreOf<Item>(value)); });
  }
  STDMETHODIMP Remove(VARIANT index) override {
    return this->Do([&] { WithIndex(index, [&](auto place) { this->core().Remove(place); }); });
  }
  STDMETHODIMP Clear() override {
    return this->Do([&] { this->core().Clear(); });
  }
};

using CreditNoteCollectionFace = CollectionFace<zevo::CreditNoteCollection>;
using InvoiceLineCollectionFace = CollectionFace<zevo::InvoiceLineCollection>;
using LineCollectionFace = CollectionFace<zevo::LineCollection>;
using TaxTableEntryCollectionFace = CollectionFace<zevo::TaxTableEntryCollection>;

// Those of values stay as they are.
class ScannedElementCollectionFace final : public ListFace<ScannedElementCollection> {
 public:
  using ListFace::ListFace;
};
class ProblemCollectionFace final : public ListFace<ProblemCollection> {
 public:
  using ListFace::ListFace;
};
class FindingCollectionFace final : public ListFace<FindingCollection> {
 public:
  using ListFace::ListFace;
};
class RuleInfoCollectionFace final : public ListFace<RuleInfoCollection> {
 public:
  using ListFace::ListFace;
};

}  // namespace

ZEVO_FACE_OF(CreditNoteCollection);
ZEVO_FACE_OF(InvoiceLineCollection);
ZEVO_FACE_OF(LineCollection);
ZEVO_FACE_OF(TaxTableEntryCollection);
ZEVO_FACE_OF(ScannedElementCollection);
ZEVO_FACE_OF(ProblemCollection);
ZEVO_FACE_OF(FindingCollection);
ZEVO_FACE_OF(RuleInfoCollection);

}  // namespace zevo::component
