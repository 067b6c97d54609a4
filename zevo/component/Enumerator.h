// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_ENUMERATOR_H_
#define ZEVO_COMPONENT_ENUMERATOR_H_

#include <ocidl.h>
#include <zevo/component/ErrorTranslation.h>
#include <zevo/component/LiveObject.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <utility>
#include <vector>

namespace zevo::component {

/// Walks over what was there when it was made. `Enum` is one of the system's enumerator interfaces, `Element` what it
/// hands out, `Item` what is kept of each; `kCopy` makes an element of an item.
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
    ULONG given = 0;
    for (; given < count && place_ < items_.size(); ++given) kCopy(items_[place_++], elements[given]);
    if (fetched != nullptr) *fetched = given;
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
