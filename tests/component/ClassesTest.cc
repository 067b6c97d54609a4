// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Classes.h>

#include <zevo/component/LiveObject.h>

#include "tests/component/Com.h"
#include "tests/component/Slots.h"

namespace zevo::testing {
namespace {

using component::FactoryOf;
using component::LiveObject;

TEST(ClassesTest, EveryClassIsCreatableAsTheTypeLibrarySays) {
  int classes = 0;
  ForEachType(TKIND_COCLASS, [&](const std::wstring& name, const TYPEATTR& type) {
    ++classes;
    SCOPED_TRACE(std::string(name.begin(), name.end()));
    IClassFactory* factory = FactoryOf(type.guid);
    const bool creatable = (type.wTypeFlags & TYPEFLAG_FCANCREATE) != 0;
    ASSERT_EQ(factory != nullptr, creatable);
    if (!creatable) return;
    ComPtr<IDispatch> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(object.GetAddressOf())), S_OK);
    ComPtr<ITypeInfo> interface_type;
    ASSERT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &interface_type), S_OK);
    Bstr interface_name;
    ASSERT_EQ(interface_type->GetDocumentation(MEMBERID_NIL, interface_name.Receive(), nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(interface_name.Text(), L"_" + name);
  });
  EXPECT_EQ(classes, 45);
}

TEST(ClassesTest, OwnedClassesCannotBeCreated) {
  for (const CLSID& id :
       {__uuidof(::DocumentTotals), __uuidof(::AuditException), __uuidof(::LineCollection),
        __uuidof(::InvoiceLineCollection), __uuidof(::CreditNoteCollection), __uuidof(::TaxTableEntryCollection),
        __uuidof(::FilePlace), __uuidof(::ScannedElement), __uuidof(::ScannedElementCollection), __uuidof(::Problem),
        __uuidof(::ProblemCollection), __uuidof(::Finding), __uuidof(::FindingCollection), __uuidof(::RuleInfo),
        __uuidof(::RuleInfoCollection)}) {
    EXPECT_EQ(FactoryOf(id), nullptr);
  }
}

TEST(ClassesTest, OptionsAndConstantsNeedNoObject) {
  int global = 0;
  ForEachType(TKIND_COCLASS, [&](const std::wstring& name, const TYPEATTR& type) {
    const bool expected = name == L"Options" || name == L"SAFTConstants";
    EXPECT_EQ((type.wTypeFlags & TYPEFLAG_FAPPOBJECT) != 0, expected);
    global += expected ? 1 : 0;
  });
  EXPECT_EQ(global, 2);
}

TEST(ClassesTest, FactoriesKeepTheRulesOfCom) {
  IClassFactory* factory = FactoryOf(__uuidof(::Header));
  void* object = factory;
  EXPECT_EQ(factory->CreateInstance(factory, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersist, &object), E_NOINTERFACE);
  EXPECT_EQ(factory->QueryInterface(IID_IPersist, &object), E_NOINTERFACE);
  EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  ComPtr<IClassFactory> again;
  EXPECT_EQ(factory->QueryInterface(IID_IClassFactory, reinterpret_cast<void**>(again.GetAddressOf())), S_OK);
}

TEST(ClassesTest, ALockKeepsTheServer) {
  IClassFactory* factory = FactoryOf(__uuidof(::Header));
  const long before = LiveObject::Count();
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(LiveObject::Count(), before + 1);
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  EXPECT_EQ(LiveObject::Count(), before);
}

}  // namespace
}  // namespace zevo::testing
