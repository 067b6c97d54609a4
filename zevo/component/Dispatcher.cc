// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Dispatcher.h>

#include <oleauto.h>
#include <wrl/client.h>
#include <zevo/component/Conversions.h>
#include <zevo/component/ErrorTranslation.h>
#include <zevo/component/TypeLibrary.h>

#include <algorithm>
#include <cwchar>
#include <functional>
#include <memory>
#include <utility>

namespace zevo::component {
namespace {

using Microsoft::WRL::ComPtr;

bool SameName(const std::wstring& name, const OLECHAR* other) { return _wcsicmp(name.c_str(), other) == 0; }

// The built-in type behind a type, which may be an alias or an enumeration of the type library.
VARTYPE ValueType(ITypeInfo& table, const TYPEDESC& type) {
  if (type.vt != VT_USERDEFINED) return type.vt;
  ComPtr<ITypeInfo> named;
  RequireSuccess(table.GetRefTypeInfo(type.hreftype, &named));
  TYPEATTR* attributes = nullptr;
  RequireSuccess(named->GetTypeAttr(&attributes));
  const TYPEKIND kind = attributes->typekind;
  named->ReleaseTypeAttr(attributes);
  return kind == TKIND_ENUM ? VT_I4 : VT_DISPATCH;
}

IID InterfaceId(ITypeInfo& table, const TYPEDESC& type) {
  if (type.vt != VT_USERDEFINED) return type.vt == VT_UNKNOWN ? IID_IUnknown : IID_IDispatch;
  ComPtr<ITypeInfo> named;
  RequireSuccess(table.GetRefTypeInfo(type.hreftype, &named));
  TYPEATTR* attributes = nullptr;
  RequireSuccess(named->GetTypeAttr(&attributes));
  const IID id = attributes->guid;
  named->ReleaseTypeAttr(attributes);
  return id;
}

// Whether an object can be put into what the host gave.
bool IsVariable(const VARIANT& given) {
  const VARTYPE type = V_VT(&given);
  return type == (VT_BYREF | VT_VARIANT) || type == (VT_BYREF | VT_DISPATCH) || type == (VT_BYREF | VT_UNKNOWN);
}

// Puts an object into a variable of the host in the place of what is there.
void Store(const VARIANT& variable, IDispatch* object) {
  if (object != nullptr) object->AddRef();
  if (V_VT(&variable) == (VT_BYREF | VT_VARIANT)) {
    VARIANT* target = V_VARIANTREF(&variable);
    VariantClear(target);
    V_VT(target) = VT_DISPATCH;
    V_DISPATCH(target) = object;
    return;
  }
  IDispatch* before = *V_DISPATCHREF(&variable);
  *V_DISPATCHREF(&variable) = object;
  if (before != nullptr) before->Release();
}

HRESULT Fail(HRESULT result, EXCEPINFO* exception) {
  ComPtr<IErrorInfo> info;
  if (exception == nullptr || GetErrorInfo(0, &info) != S_OK) return result;
  *exception = {};
  exception->scode = result;
  info->GetSource(&exception->bstrSource);
  info->GetDescription(&exception->bstrDescription);
  return DISP_E_EXCEPTION;
}

}  // namespace

// The arguments of one call in the form that the member takes them.
class Dispatcher::Call {
 public:
  explicit Call(const Function& function) : function_(function) {}
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;
  ~Call() {
    for (Argument& argument : arguments_) VariantClear(&argument.value);
  }

  HRESULT Take(const DISPPARAMS& given, UINT* wrongArgument) {
    const size_t count = function_.parameters.size();
    if (given.cArgs > count) return DISP_E_BADPARAMCOUNT;
    for (UINT i = 0; i < given.cArgs; ++i) {
      const size_t place = PlaceOf(given, i);
      if (place >= count) return DISP_E_PARAMNOTFOUND;
      VARIANT& argument = given.rgvarg[i];
      const bool left_out = V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
      if (!left_out) arguments_[place].given = &argument;
    }
    for (size_t place = 0; place < count; ++place) {
      Argument& argument = arguments_[place];
      const HRESULT taken = Take(function_.parameters[place], argument);
      if (SUCCEEDED(taken)) continue;
      if (wrongArgument != nullptr && argument.given != nullptr) {
        *wrongArgument = static_cast<UINT>(argument.given - given.rgvarg);
      }
      return taken;
    }
    return S_OK;
  }

  HRESULT Make(void* object) {
    size_t count = function_.parameters.size();
    if (function_.result != VT_EMPTY) {
      Argument& result = arguments_[count++];
      result.type = VT_BYREF | function_.result;
      V_VT(&result.value) = result.type;
      V_BYREF(&result.value) = function_.result == VT_VARIANT ? static_cast<void*>(&answer_) : &V_NONE(&answer_);
    }
    VARTYPE types[kMostArguments];
    VARIANT* values[kMostArguments];
    for (size_t i = 0; i < count; ++i) {
      types[i] = arguments_[i].type;
      values[i] = &arguments_[i].value;
    }
    VARIANT outcome;
    VariantInit(&outcome);
    const HRESULT reached =
        DispCallFunc(object, function_.offset, CC_STDCALL, VT_I4, static_cast<UINT>(count), types, values, &outcome);
    return FAILED(reached) ? reached : V_I4(&outcome);
  }

  /// What a call that succeeded leaves to the host.
  void GiveBack(VARIANT* result) {
    for (size_t i = 0; i < function_.parameters.size(); ++i) {
      const Argument& argument = arguments_[i];
      if (function_.parameters[i].passing != Passing::kObjectByReference || argument.given == nullptr) continue;
      // Without an object the variable is set to a null object, even if it was empty before.
      const bool unchanged = argument.object != nullptr && argument.object.Get() == argument.before;
      if (!unchanged && IsVariable(*argument.given)) Store(*argument.given, argument.object.Get());
    }
    if (function_.result != VT_VARIANT) V_VT(&answer_) = function_.result;
    if (result != nullptr) {
      *result = answer_;
    } else {
      VariantClear(&answer_);
    }
  }

 private:
  struct Argument {
    const VARIANT* given = nullptr;  // by the host; null when left out
    VARIANT value = {};
    VARTYPE type = VT_EMPTY;
    ComPtr<IDispatch> object;  // passed by reference
    IDispatch* before = nullptr;
  };

  // Arguments come in reverse order, named ones in front. The value of an assignment is for the last parameter.
  size_t PlaceOf(const DISPPARAMS& given, UINT i) const {
    if (i >= given.cNamedArgs) return given.cArgs - 1 - i;
    const DISPID name = given.rgdispidNamedArgs[i];
    return name == DISPID_PROPERTYPUT ? function_.parameters.size() - 1 : static_cast<size_t>(name);
  }

  static HRESULT Take(const Parameter& parameter, Argument& argument) {
    if (argument.given == nullptr) {
      if (!parameter.optional) return DISP_E_PARAMNOTOPTIONAL;
      V_VT(&argument.value) = VT_I4;
      V_I4(&argument.value) = parameter.default_value;
    } else {
      const HRESULT copied = CopyPlain(argument.value, *argument.given);
      if (FAILED(copied)) return copied;
    }
    switch (parameter.passing) {
      case Passing::kValue:
        argument.type = parameter.type;
        if (parameter.type == VT_VARIANT) return S_OK;
        return VariantChangeType(&argument.value, &argument.value, 0, parameter.type);
      case Passing::kObject:
        argument.type = VT_DISPATCH;
        return TakeObject(parameter, argument);
      case Passing::kObjectByReference:
        const HRESULT taken = TakeObject(parameter, argument);
        if (FAILED(taken)) return taken;
        *argument.object.GetAddressOf() = V_DISPATCH(&argument.value);
        argument.before = argument.object.Get();
        argument.type = VT_BYREF | VT_DISPATCH;
        V_VT(&argument.value) = argument.type;
        V_DISPATCHREF(&argument.value) = argument.object.GetAddressOf();
        return S_OK;
    }
    return E_UNEXPECTED;
  }

  // Puts the object into the argument under the interface that the parameter wants, or null where the host gave none.
  static HRESULT TakeObject(const Parameter& parameter, Argument& argument) {
    VARIANT& value = argument.value;
    void* object = nullptr;
    const VARTYPE type = V_VT(&value);
    if (type == VT_DISPATCH || type == VT_UNKNOWN) {
      if (V_UNKNOWN(&value) != nullptr && FAILED(V_UNKNOWN(&value)->QueryInterface(parameter.interface_id, &object))) {
        return DISP_E_TYPEMISMATCH;
      }
    } else if (type != VT_EMPTY && type != VT_NULL && argument.given != nullptr) {
      return DISP_E_TYPEMISMATCH;
    }
    VariantClear(&value);
    V_VT(&value) = VT_DISPATCH;
    V_DISPATCH(&value) = static_cast<IDispatch*>(object);
    return S_OK;
  }

  const Function& function_;
  Argument arguments_[kMostArguments];
  VARIANT answer_ = {};
};

Dispatcher::Dispatcher(ITypeInfo& table) {
  TYPEATTR* attributes = nullptr;
  RequireSuccess(table.GetTypeAttr(&attributes));
  const std::unique_ptr<TYPEATTR, std::function<void(TYPEATTR*)>> attributes_owner(
      attributes, [&](TYPEATTR* owned) { table.ReleaseTypeAttr(owned); });
  for (UINT i = 0; i < attributes->cFuncs; ++i) {
    FUNCDESC* description = nullptr;
    RequireSuccess(table.GetFuncDesc(i, &description));
    const std::unique_ptr<FUNCDESC, std::function<void(FUNCDESC*)>> owner(
        description, [&](FUNCDESC* owned) { table.ReleaseFuncDesc(owned); });
    functions_.push_back(Describe(table, *description));
  }
}

Dispatcher::Function Dispatcher::Describe(ITypeInfo& table, const FUNCDESC& description) {
  Function function;
  function.id = description.memid;
  function.kind = description.invkind;
  function.offset = static_cast<size_t>(description.oVft);
  struct Names {
    BSTR texts[1 + kMostArguments] = {};
    ~Names() {
      for (BSTR text : texts) SysFreeString(text);
    }
  } names;
  UINT named = 0;
  RequireSuccess(table.GetNames(description.memid, names.texts, 1 + kMostArguments, &named));
  function.name = names.texts[0];
  for (SHORT i = 0; i < description.cParams; ++i) {
    const ELEMDESC& element = description.lprgelemdescParam[i];
    if ((element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
      const TYPEDESC& result = *element.tdesc.lptdesc;
      function.result = result.vt == VT_PTR ? ValueType(table, *result.lptdesc) : ValueType(table, result);
      continue;
    }
    Parameter parameter = DescribeParameter(table, element);
    const auto place = static_cast<UINT>(i) + 1;
    if (place < named) parameter.name = names.texts[place];
    function.parameters.push_back(std::move(parameter));
  }
  return function;
}

Dispatcher::Parameter Dispatcher::DescribeParameter(ITypeInfo& table, const ELEMDESC& element) {
  Parameter parameter;
  const TYPEDESC* type = &element.tdesc;
  int pointers = 0;
  for (; type->vt == VT_PTR; type = type->lptdesc) ++pointers;
  // These are pointers themselves.
  if (type->vt == VT_DISPATCH || type->vt == VT_UNKNOWN) ++pointers;
  if (pointers == 0) {
    parameter.type = ValueType(table, *type);
  } else {
    parameter.passing = pointers == 1 ? Passing::kObject : Passing::kObjectByReference;
    parameter.interface_id = InterfaceId(table, *type);
  }
  parameter.optional = (element.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
  if ((element.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0 && pointers == 0) {
    VARIANT number;
    VariantInit(&number);
    RequireSuccess(VariantChangeType(&number, &element.paramdesc.pparamdescex->varDefaultValue, 0, VT_I4));
    parameter.default_value = V_I4(&number);
  }
  return parameter;
}

HRESULT Dispatcher::GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const noexcept {
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  std::fill(ids, ids + count, DISPID_UNKNOWN);
  // A property's getter comes before its setter, and only the setter's parameters include the value: a function that
  // lacks one of the names is passed over.
  HRESULT result = DISP_E_UNKNOWNNAME;
  for (const Function& function : functions_) {
    if (!SameName(function.name, names[0])) continue;
    ids[0] = function.id;
    result = S_OK;
    for (UINT i = 1; i < count; ++i) {
      const auto& parameters = function.parameters;
      const auto found = std::ranges::find_if(
          parameters, [&](const Parameter& parameter) { return SameName(parameter.name, names[i]); });
      if (found == parameters.end()) {
        result = DISP_E_UNKNOWNNAME;
      } else {
        ids[i] = static_cast<DISPID>(found - parameters.begin());
      }
    }
    if (result == S_OK) break;
  }
  return result;
}

// Assignments by value and by reference find each other's member: some hosts know only the first, even for objects.
const Dispatcher::Function* Dispatcher::Find(DISPID member, WORD flags) const {
  constexpr WORD kAssignment = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
  if ((flags & kAssignment) != 0) flags |= kAssignment;
  // Calls and reads find each other's member too: in many languages they look alike.
  if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0) flags |= DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  const auto found = std::ranges::find_if(functions_, [&](const Function& function) {
    return function.id == member && (static_cast<WORD>(function.kind) & flags) != 0;
  });
  return found == functions_.end() ? nullptr : &*found;
}

HRESULT Dispatcher::Invoke(void* object, DISPID member, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                           EXCEPINFO* exception, UINT* wrongArgument) const noexcept {
  const Function* function = Find(member, flags);
  if (function == nullptr) return DISP_E_MEMBERNOTFOUND;
  if (arguments == nullptr) return E_INVALIDARG;
  if (result != nullptr) VariantInit(result);
  if (function->kind == INVOKE_PROPERTYGET && function->parameters.empty() && function->result == VT_DISPATCH &&
      arguments->cArgs > 0) {
    return InvokeDefaultMember(object, *function, arguments, result, exception, wrongArgument);
  }
  Call call(*function);
  const HRESULT taken = call.Take(*arguments, wrongArgument);
  if (FAILED(taken)) return taken;
  SetErrorInfo(0, nullptr);
  const HRESULT made = call.Make(object);
  if (FAILED(made)) return Fail(made, exception);
  call.GiveBack(result);
  return S_OK;
}

// invoice.Line(1) means invoice.Line.Item(1).
HRESULT Dispatcher::InvokeDefaultMember(void* object, const Function& function, DISPPARAMS* arguments, VARIANT* result,
                                        EXCEPINFO* exception, UINT* wrongArgument) {
  DISPPARAMS none{};
  VARIANT collection;
  VariantInit(&collection);
  Call call(function);
  HRESULT invoked = call.Take(none, nullptr);
  if (SUCCEEDED(invoked)) invoked = call.Make(object);
  if (FAILED(invoked)) return Fail(invoked, exception);
  call.GiveBack(&collection);
  if (V_DISPATCH(&collection) == nullptr) return DISP_E_BADPARAMCOUNT;
  invoked = V_DISPATCH(&collection)
                ->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, arguments, result,
                         exception, wrongArgument);
  VariantClear(&collection);
  return invoked;
}

}  // namespace zevo::component
