// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_ENUMERATOR_H_
#define ZEVO_COMPONENT_ENUMERATOR_H_

#include <ocidl.h>
#include <oleauto.h>
#include <zevo/component/ErrorTranslation.h>
#include <zevo/component/LiveObject.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace zevo::component {

/// Walks over what was there when it was made. `Enum` is one of the system's enumerator interfaces, `Element` what it
/// hands out, `Item` what is kept of each; `kCopy` makes an element of an item when it is asked for, and may throw
/// where elements are VARIANTs.
template <class Enum, class Element, class Item, void (*kCopy)(const Item&, Element&)>
class Enumerator final : public Enum {
 public:
  explicit Enumerator(std::vector<Item> items, size_t place = 0) : items_(std::move(items)), place_(place) {}
  Enumerator(const Enumerator&) = delete;
  Enumerator& operator=(const Enumerator&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = id == IID_IUnknown || id == __uuidof(Enum) ? static_cast<Enum*>(this) : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP Next(ULONG count, Element* elements, ULONG* fetched) override {
    if (elements == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
    if (fetched != nullptr) *fetched = 0;
    const size_t given = std::min<size_t>(count, items_.size() - place_);
    size_t copied = 0;
    const HRESULT result = Guarded(__uuidof(Enum), [&] {
      for (; copied < given; ++copied) kCopy(items_[place_ + copied], elements[copied]);
    });
    if (FAILED(result)) {
      if constexpr (std::is_same_v<Element, VARIANT>) {
        std::for_each(elements, elements + copied, [](VARIANT& element) { VariantClear(&element); });
      }
      return result;
    }
    place_ += given;
    if (fetched != nullptr) *fetched = static_cast<ULONG>(given);
    return given == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override {
    const size_t passed = std::min<size_t>(count, items_.size() - place_);
    place_ += passed;
    return passed == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    place_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(Enum** clone) override {
    if (clone == nullptr) return E_POINTER;
    *clone = nullptr;
    return Guarded(__uuidof(Enum), [&] { *clone = new Enumerator(items_, place_); });
  }

 private:
  ~Enumerator() = default;

  std::vector<Item> items_;
  size_t place_;
  std::atomic<ULONG> references_ = 1;
  LiveObject live_;
};

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_ENUMERATOR_H_
