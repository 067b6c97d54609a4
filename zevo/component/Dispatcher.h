// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_DISPATCHER_H_
#define ZEVO_COMPONENT_DISPATCHER_H_

#include <oaidl.h>

#include <cstddef>
#include <string>
#include <vector>

namespace zevo::component {

/// Calls the members of a dual interface by name and by number, as hosts do that know the interface at run time only.
/// Made from what the type library says of the interface; holds nothing of it afterwards.
///
/// Arguments may be given in any form that Automation can convert. An object passed by reference may come as a variable
/// (VARIANT*), as a pointer to an object, or as the object itself; what the member leaves in its place goes back into
/// the first two.
class Dispatcher {
 public:
  /// Throws `Error` when the type library cannot be read.
  explicit Dispatcher(ITypeInfo& table);

  /// Gives the numbers of a member and of its parameters. All results of both calls are those of IDispatch.
  HRESULT GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const noexcept;

  /// `object` must be of the interface.
  HRESULT Invoke(void* object, DISPID member, WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                 UINT* wrongArgument) const noexcept;

 private:
  enum class Passing { kValue, kObject, kObjectByReference };
  struct Parameter {
    std::wstring name;
    Passing passing = Passing::kValue;
    VARTYPE type = VT_EMPTY;
    IID interface_id = {};  // of an object
    bool optional = false;
    LONG default_value = 0;  // of a number or a flag; an object left out is none
  };
  struct Function {
    std::wstring name;
    MEMBERID id = 0;
    INVOKEKIND kind = INVOKE_FUNC;
    size_t offset = 0;  // in the table of functions
    std::vector<Parameter> parameters;
    VARTYPE result = VT_EMPTY;
  };
  class Call;

  // No member takes more arguments, its result included.
  static constexpr size_t kMostArguments = 4;

  static Function Describe(ITypeInfo& table, const FUNCDESC& description);
  static Parameter DescribeParameter(ITypeInfo& table, const ELEMDESC& element);
  const Function* Find(DISPID member, WORD flags) const;
  static HRESULT InvokeDefaultMember(void* object, const Function& function, DISPPARAMS* arguments, VARIANT* result,
                                     EXCEPINFO* exception, UINT* wrongArgument);

  std::vector<Function> functions_;
};

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_DISPATCHER_H_
