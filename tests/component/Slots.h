// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_COMPONENT_SLOTS_H_
#define ZEVO_TESTS_COMPONENT_SLOTS_H_

#include <zevo/component/TypeLibrary.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "tests/component/Com.h"

namespace zevo::testing {

/// Where the members of an interface begin in its table of functions: after those of IUnknown and IDispatch.
inline constexpr size_t kFirstOffset = 7 * sizeof(void*);

/// A function of an interface as the type library has it.
struct Slot {
  std::wstring name;
  INVOKEKIND kind;
  size_t offset;
  bool operator==(const Slot&) const = default;
};
inline void PrintTo(const Slot& slot, std::ostream* out) {
  *out << std::string(slot.name.begin(), slot.name.end()) << " " << slot.kind << " @" << slot.offset;
}

/// Calls `visit` with each function of an interface, in slot order, and its name.
template <class Visit>
void ForEachFunction(const IID& interfaceId, Visit&& visit) {
  const ComPtr<ITypeInfo> type = component::TableTypeOf(interfaceId);
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(type->GetTypeAttr(&attributes), S_OK);
  const UINT count = attributes->cFuncs;
  type->ReleaseTypeAttr(attributes);
  for (UINT i = 0; i < count; ++i) {
    FUNCDESC* function = nullptr;
    ASSERT_EQ(type->GetFuncDesc(i, &function), S_OK);
    Bstr name;
    UINT named = 0;
    type->GetNames(function->memid, name.Receive(), 1, &named);
    visit(name.Text(), *function);
    type->ReleaseFuncDesc(function);
  }
}

/// Calls `visit` with each type of a kind that the type library has: its name and its attributes.
template <class Visit>
void ForEachType(TYPEKIND kind, Visit&& visit) {
  const ComPtr<ITypeLib> library = component::LoadTypeLibrary();
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(library->GetTypeInfo(i, &type), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    if (attributes->typekind == kind) {
      Bstr name;
      ASSERT_EQ(type->GetDocumentation(MEMBERID_NIL, name.Receive(), nullptr, nullptr, nullptr), S_OK);
      visit(name.Text(), *attributes);
    }
    type->ReleaseTypeAttr(attributes);
  }
}

inline std::vector<Slot> SlotsOf(const IID& interfaceId) {
  std::vector<Slot> slots;
  ForEachFunction(interfaceId, [&](const std::wstring& name, const FUNCDESC& function) {
    slots.push_back({name, function.invkind, static_cast<size_t>(function.oVft)});
  });
  return slots;
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_COMPONENT_SLOTS_H_
