// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_FACE_H_
#define ZEVO_COMPONENT_FACE_H_

#include <ocidl.h>
#include <zevo/component/Adopt.h>
#include <zevo/component/Dispatcher.h>
#include <zevo/component/ErrorTranslation.h>
#include <zevo/component/Faces.h>
#include <zevo/component/Identities.h>
#include <zevo/component/LiveObject.h>
#include <zevo/component/TypeLibrary.h>

#include <atomic>
#include <memory>
#include <type_traits>
#include <utility>

namespace zevo::component {

/// What all faces have in common: the count of references, late binding, errors, class information. A face holds one
/// object of the library and passes its members on, one line each (below).
template <class T>
class Face : public Interface<T>, public ISupportErrorInfo, public IProvideClassInfo2, public CoreAccess {
 public:
  explicit Face(std::shared_ptr<T> core) : core_(std::move(core)) {
    Identities::OfThisProcess().Add(core_.get(), static_cast<Interface<T>*>(this));
  }
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = Find(id);
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

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** type) override {
    if (type == nullptr) return E_POINTER;
    *type = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return Guarded(InterfaceId(), [&] { *type = TypeOf(InterfaceId()).Detach(); });
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    HRESULT result = S_OK;
    const HRESULT ready = Guarded(InterfaceId(), [&] { result = Members().GetIDsOfNames(names, count, ids); });
    return FAILED(ready) ? ready : result;
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                      EXCEPINFO* exception, UINT* wrongArgument) override {
    HRESULT invoked = S_OK;
    const HRESULT ready = Guarded(InterfaceId(), [&] {
      invoked = Members().Invoke(static_cast<Interface<T>*>(this), member, flags, arguments, result, exception,
                                 wrongArgument);
    });
    return FAILED(ready) ? ready : invoked;
  }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override { return id == InterfaceId() ? S_OK : S_FALSE; }

  STDMETHODIMP GetClassInfo(ITypeInfo** type) override {
    if (type == nullptr) return E_POINTER;
    *type = nullptr;
    return Guarded(InterfaceId(), [&] { *type = TypeOf(__uuidof(typename FaceOf<T>::ComClass)).Detach(); });
  }
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) override {
    if (id == nullptr) return E_POINTER;
    *id = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? EventInterfaceId() : GUID{};
    return *id == GUID{} ? E_INVALIDARG : S_OK;
  }

  std::shared_ptr<void> Behind(const IID& interfaceId) override {
    return interfaceId == InterfaceId() ? core_ : nullptr;
  }

 protected:
  using Core = T;

  virtual ~Face() { Identities::OfThisProcess().Remove(core_.get()); }

  T& core() const { return *core_; }
  const std::shared_ptr<T>& shared_core() const { return core_; }

  /// The face as that interface; null when it does not have it.
  virtual void* Find(const IID& id) {
    if (id == IID_IUnknown || id == IID_IDispatch || id == InterfaceId()) return static_cast<Interface<T>*>(this);
    if (id == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
    if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2) return static_cast<IProvideClassInfo2*>(this);
    if (id == kCoreAccessId) return static_cast<CoreAccess*>(this);
    return nullptr;
  }
  virtual GUID EventInterfaceId() const { return {}; }

  static const IID& InterfaceId() { return __uuidof(Interface<T>); }

  template <class Operation>
  HRESULT Do(Operation&& operation) {
    return Guarded(InterfaceId(), std::forward<Operation>(operation));
  }

  /// Puts what `get` gives into the result of a method; on failure the result is 0, empty or null.
  template <class ComType, class Get>
  HRESULT Answer(ComType* value, Get&& get) {
    if (value == nullptr) return E_POINTER;
    *value = {};
    return Do([&] { *value = ConversionOf<decltype(get())>::To(get()); });
  }

 private:
  static const Dispatcher& Members() {
    static const Dispatcher members(*TableTypeOf(InterfaceId()).Get());
    return members;
  }

  std::shared_ptr<T> core_;
  std::atomic<ULONG> references_ = 1;
  LiveObject live_;
};

}  // namespace zevo::component

// How the class of a face declares the members it passes on: one line each. They stand in slot order, as in the
// interface definition, and take their types from the getters of the library.

/// Follows the class of a face: lets the server make it.
#define ZEVO_FACE_OF(Class)                                                                   \
  Microsoft::WRL::ComPtr<Interface<Class>> FaceOf<Class>::Make(std::shared_ptr<Class> core) { \
    return Adopt<Interface>(new Class##Face(std::move(core)));                                \
  }                                                                                           \
  static_assert(true)

#define ZEVO_TYPE(Name) zevo::component::ConversionOf<decltype(std::declval<const Core&>().Name())>

#define ZEVO_READ_ONLY(Name)                                                    \
  STDMETHODIMP get_##Name(ZEVO_TYPE(Name)::Type* value) override {              \
    return Answer(value, [this]() -> decltype(auto) { return core().Name(); }); \
  }
#define ZEVO_ASSIGNED(put, Name)                                         \
  STDMETHODIMP put##_##Name(ZEVO_TYPE(Name)::Type value) override {      \
    return Do([&] { core().set_##Name(ZEVO_TYPE(Name)::From(value)); }); \
  }

/// What a value holds.
#define ZEVO_VALUE(Name, member)                                                        \
  STDMETHODIMP get_##Name(ConversionOf<decltype(Core::member)>::Type* value) override { \
    return Answer(value, [this]() -> decltype(auto) { return (core().member); });       \
  }
/// Bytes are beyond what a Long holds, but not beyond what a Double does.
#define ZEVO_BYTES(Name, member)                                                 \
  STDMETHODIMP get_##Name(DOUBLE* value) override {                              \
    return Answer(value, [this] { return static_cast<double>(core().member); }); \
  }

#define ZEVO_PROPERTY(Name) ZEVO_READ_ONLY(Name) ZEVO_ASSIGNED(put, Name)
#define ZEVO_REFERENCE(Name) ZEVO_READ_ONLY(Name) ZEVO_ASSIGNED(putref, Name)

#define ZEVO_PROCEDURE(Name)              \
  STDMETHODIMP Name() override {          \
    return Do([this] { core().Name(); }); \
  }

#endif  // ZEVO_COMPONENT_FACE_H_
