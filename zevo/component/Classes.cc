// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Classes.h>

#include <zevo/component/ErrorTranslation.h>
#include <zevo/component/Faces.h>
#include <zevo/component/LiveObject.h>

#include <algorithm>
#include <array>
#include <memory>

namespace zevo::component {
namespace {

using Microsoft::WRL::ComPtr;

/// Makes objects of one class. There is one of each, which lives as long as the server is loaded.
class Factory final : public IClassFactory {
 public:
  constexpr Factory(const CLSID& id, ComPtr<IUnknown> (*create)()) : id_(id), create_(create) {}

  bool Makes(const CLSID& id) const { return id_ == id; }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = id == IID_IUnknown || id == IID_IClassFactory ? static_cast<IClassFactory*>(this) : nullptr;
    return *object == nullptr ? E_NOINTERFACE : S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 1; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    ComPtr<IUnknown> created;
    const HRESULT made = Guarded(id, [&] { created = create_(); });
    return FAILED(made) ? made : created->QueryInterface(id, object);
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    if (lock != FALSE) {
      LiveObject::Lock();
    } else {
      LiveObject::Unlock();
    }
    return S_OK;
  }

 private:
  const CLSID& id_;
  ComPtr<IUnknown> (*create_)();
};

template <class Core>
Factory FactoryFor() {
  return Factory(
      __uuidof(typename FaceOf<Core>::ComClass),
      +[]() -> ComPtr<IUnknown> { return FaceOf<Core>::Make(std::make_shared<Core>()); });
}

template <class... Cores>
auto FactoriesFor() {
  return std::array{FactoryFor<Cores>()...};
}

}  // namespace

IClassFactory* FactoryOf(const CLSID& classId) {
  static auto factories =
      FactoriesFor<zevo::AddressStructure, zevo::AuditFile, zevo::AuditFileChecker, zevo::AuditFileReader,
                   zevo::AuditFileScanner, zevo::AuditFileStreamWriter, zevo::AuditFileStreamer, zevo::CreditNote,
                   zevo::CurrencyStructure, zevo::Customer, zevo::GeneralLedger, zevo::GeneralLedgerEntries,
                   zevo::Header, zevo::Invoice, zevo::InvoiceLine, zevo::Journal, zevo::Options, zevo::OrderReferences,
                   zevo::Product, zevo::References, zevo::SAFTConstants, zevo::SalesInvoices, zevo::Settlement,
                   zevo::ShippingPointStructure, zevo::Supplier, zevo::Tax, zevo::TaxTable, zevo::TaxTableEntry,
                   zevo::Transaction, zevo::TransactionLine>();
  const auto found = std::ranges::find_if(factories, [&](const Factory& factory) { return factory.Makes(classId); });
  return found == factories.end() ? nullptr : &*found;
}

}  // namespace zevo::component
