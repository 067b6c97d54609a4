// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Registration.h>

#include <zevo/Error.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/component/Com.h"
#include "tests/support/Errors.h"

namespace zevo::testing {
namespace {

class OpenKey {
 public:
  explicit OpenKey(const std::wstring& path) {
    RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &handle_, nullptr);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;
  ~OpenKey() { RegCloseKey(handle_); }
  HKEY Get() const { return handle_; }

 private:
  HKEY handle_ = nullptr;
};

// Everything under a key: keys end in a backslash, values are name=text.
void List(HKEY key, const std::wstring& path, std::vector<std::wstring>& found) {
  wchar_t name[512];
  DWORD size = 512;
  for (DWORD i = 0; RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
       ++i, size = 512) {
    const std::wstring inner = path + name + L"\\";
    found.push_back(inner);
    HKEY child = nullptr;
    ASSERT_EQ(RegOpenKeyExW(key, name, 0, KEY_READ, &child), ERROR_SUCCESS);
    List(child, inner, found);
    RegCloseKey(child);
  }
  size = 512;
  BYTE text[2048];
  DWORD text_size = sizeof(text);
  for (DWORD i = 0; RegEnumValueW(key, i, name, &size, nullptr, nullptr, text, &text_size) == ERROR_SUCCESS;
       ++i, size = 512, text_size = sizeof(text)) {
    found.push_back(path + name + L"=" + reinterpret_cast<const wchar_t*>(text));
  }
}

// Registers in a registry of the test's own.
class RegistrationTest : public ::testing::Test {
 protected:
  RegistrationTest() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_.Get());
    RegOverridePredefKey(HKEY_CURRENT_USER, user_.Get());
  }
  ~RegistrationTest() override {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, root_.c_str());
  }

  static std::vector<std::wstring> Contents(const OpenKey& key) {
    std::vector<std::wstring> found;
    List(key.Get(), L"", found);
    std::ranges::sort(found);
    return found;
  }
  static bool NothingLeft(const OpenKey& key) {
    return std::ranges::none_of(Contents(key), [](const std::wstring& entry) {
      return entry.find(L"Zevo") != std::wstring::npos || entry.find(L"{") != std::wstring::npos;
    });
  }

  // Puts a text in the place of a value that names a file, under all keys of that name.
  static void Rename(HKEY key, const std::wstring& keyName, const std::wstring& file) {
    wchar_t name[512];
    DWORD size = 512;
    for (DWORD i = 0; RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, size = 512) {
      HKEY child = nullptr;
      ASSERT_EQ(RegOpenKeyExW(key, name, 0, KEY_ALL_ACCESS, &child), ERROR_SUCCESS);
      if (name == keyName) {
        EXPECT_EQ(RegSetValueExW(child, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(file.c_str()),
                                 static_cast<DWORD>((file.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
      }
      Rename(child, keyName, file);
      RegCloseKey(child);
    }
  }
  static void RenameServer(const OpenKey& key, const std::wstring& file) {
    for (const wchar_t* name : {L"InprocServer32", L"win64", L"win32"}) Rename(key.Get(), name, file);
  }
  static std::wstring Program() {
    wchar_t program[1024];
    GetModuleFileNameW(nullptr, program, 1024);
    return program;
  }

  static bool Has(const std::vector<std::wstring>& contents, const std::wstring& entry) {
    return std::ranges::find(contents, entry) != contents.end();
  }

  const std::wstring root_ = L"Software\\ZevoRegistrationTest" + std::to_wstring(GetCurrentProcessId());
  OpenKey machine_{root_ + L"\\machine"};
  OpenKey user_{root_ + L"\\user"};
};

TEST_F(RegistrationTest, TheServerIsFoundByNameAndByNumber) {
  component::Register();
  const auto contents = Contents(machine_);
  wchar_t id[39];
  StringFromGUID2(__uuidof(::AuditFile), id, 39);
  const std::wstring server = std::wstring(L"Software\\Classes\\CLSID\\") + id + L"\\";
  EXPECT_TRUE(Has(contents, std::wstring(L"Software\\Classes\\ZevoAdapters11.AuditFile\\CLSID\\=") + id));
  EXPECT_TRUE(Has(contents, server + L"InprocServer32\\=" + Program()));
  EXPECT_TRUE(Has(contents, server + L"InprocServer32\\ThreadingModel=Apartment"));
  EXPECT_TRUE(Has(contents, server + L"ProgID\\=ZevoAdapters11.AuditFile"));
  EXPECT_FALSE(Has(contents, L"Software\\Classes\\ZevoAdapters11.LineCollection\\"));
  StringFromGUID2(__uuidof(_LineCollection), id, 39);
  const std::wstring lines = std::wstring(L"Software\\Classes\\Interface\\") + id + L"\\";
  EXPECT_TRUE(Has(contents, lines + L"=_LineCollection"));
  EXPECT_TRUE(Has(contents, lines + L"ProxyStubClsid32\\={00020424-0000-0000-C000-000000000046}"));
  StringFromGUID2(__uuidof(__AuditFileStreamer), id, 39);
  EXPECT_TRUE(Has(contents, std::wstring(L"Software\\Classes\\Interface\\") + id +
                                L"\\ProxyStubClsid32\\={00020420-0000-0000-C000-000000000046}"));
  EXPECT_TRUE(Contents(user_).empty());
}

TEST_F(RegistrationTest, RegisteringTwiceIsRegisteringOnce) {
  component::Register();
  const auto once = Contents(machine_);
  component::Register();
  EXPECT_EQ(Contents(machine_), once);
}

TEST_F(RegistrationTest, UnregisteringLeavesWhatOthersHavePutThere) {
  HKEY other = nullptr;
  ASSERT_EQ(RegCreateKeyExW(machine_.Get(), L"Software\\Classes\\CLSID\\{other}", 0, nullptr, 0, KEY_ALL_ACCESS,
                            nullptr, &other, nullptr),
            ERROR_SUCCESS);
  RegCloseKey(other);
  const auto before = Contents(machine_);
  component::Register();
  EXPECT_NE(Contents(machine_), before);
  component::Unregister();
  EXPECT_EQ(Contents(machine_), before);
  component::Unregister();
  EXPECT_EQ(Contents(machine_), before);
}

// Both servers, of 32 and of 64 bits, stand in the same key of the type library.
TEST_F(RegistrationTest, UnregisteringLeavesTheTypeLibraryOfTheOtherProcessor) {
  component::Register();
  const ComPtr<ITypeLib> none;
  const auto contents = Contents(machine_);
  const auto platform = std::ranges::find_if(
      contents, [](const std::wstring& entry) { return entry.find(L"\\0\\win") != std::wstring::npos; });
  ASSERT_NE(platform, contents.end());
  const std::wstring other = platform->substr(0, platform->rfind(L"\\win")) + L"\\win16";
  HKEY key = nullptr;
  ASSERT_EQ(RegCreateKeyExW(machine_.Get(), other.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
            ERROR_SUCCESS);
  RegCloseKey(key);
  component::Unregister();
  const auto left = Contents(machine_);
  EXPECT_TRUE(Has(left, other + L"\\"));
  EXPECT_FALSE(Has(left, *platform));
  EXPECT_TRUE(
      std::ranges::none_of(left, [](const std::wstring& entry) { return entry.find(L"CLSID") != std::wstring::npos; }));
}

TEST_F(RegistrationTest, UnregisteringLeavesACopyThatTookThePlaceOfThisOne) {
  component::Register();
  // One file that is there and one that is not.
  for (const wchar_t* other : {L"C:\\windows\\system32\\oleaut32.dll", L"C:\\Zevo\\ZevoAdapters11.dll"}) {
    RenameServer(machine_, other);
    const auto before = Contents(machine_);
    component::Unregister();
    EXPECT_EQ(Contents(machine_), before);
  }
}

TEST_F(RegistrationTest, UnregisteringLeavesTheCopyOfTheUser) {
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, user_.Get());
  component::Register();
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_.Get());
  RenameServer(user_, L"C:\\Zevo\\ZevoAdapters11.dll");
  const auto before = Contents(user_);
  component::Register();
  component::Unregister();
  EXPECT_EQ(Contents(user_), before);
  EXPECT_TRUE(NothingLeft(machine_));
}

// One class that another copy has keeps what all copies share.
TEST_F(RegistrationTest, WhatCopiesShareGoesWithTheLast) {
  component::Register();
  wchar_t id[39];
  StringFromGUID2(__uuidof(::AuditFile), id, 39);
  const std::wstring key = std::wstring(L"Software\\Classes\\CLSID\\") + id;
  HKEY server = nullptr;
  ASSERT_EQ(RegOpenKeyExW(machine_.Get(), key.c_str(), 0, KEY_ALL_ACCESS, &server), ERROR_SUCCESS);
  Rename(server, L"InprocServer32", L"C:\\Zevo\\ZevoAdapters11.dll");
  component::Unregister();
  auto left = Contents(machine_);
  EXPECT_TRUE(Has(left, key + L"\\InprocServer32\\=C:\\Zevo\\ZevoAdapters11.dll"));
  EXPECT_TRUE(Has(left, L"Software\\Classes\\ZevoAdapters11.Header\\CLSID\\"));
  StringFromGUID2(__uuidof(_Header), id, 39);
  EXPECT_TRUE(Has(left, std::wstring(L"Software\\Classes\\Interface\\") + id + L"\\=_Header"));
  StringFromGUID2(__uuidof(::Header), id, 39);
  EXPECT_FALSE(Has(left, std::wstring(L"Software\\Classes\\CLSID\\") + id + L"\\"));
  Rename(server, L"InprocServer32", Program());
  RegCloseKey(server);
  component::Unregister();
  EXPECT_TRUE(NothingLeft(machine_));
}

TEST_F(RegistrationTest, TheFileIsTheSameHoweverItIsWritten) {
  std::wstring upper = Program();
  CharUpperW(upper.data());
  std::wstring roundabout = Program();
  roundabout.insert(roundabout.rfind(L'\\'), L"\\.");
  wchar_t shortened[1024];
  ASSERT_NE(GetShortPathNameW(Program().c_str(), shortened, 1024), 0U);
  for (const std::wstring& written : {upper, roundabout, std::wstring(shortened)}) {
    component::Register();
    RenameServer(machine_, written);
    component::Unregister();
    EXPECT_TRUE(NothingLeft(machine_)) << std::string(written.begin(), written.end());
  }
}

// A key that is gone takes no keys, as one that is protected does not.
TEST_F(RegistrationTest, WhatTheMachineRefusesIsDoneForTheUser) {
  ASSERT_EQ(RegDeleteTreeW(machine_.Get(), nullptr), ERROR_SUCCESS);
  {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ASSERT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, (root_ + L"\\machine").c_str()), ERROR_SUCCESS);
    RegOverridePredefKey(HKEY_CURRENT_USER, user_.Get());
  }
  component::Register();
  EXPECT_TRUE(Has(Contents(user_), L"Software\\Classes\\ZevoAdapters11.Header\\CLSID\\"));
}

TEST_F(RegistrationTest, UnregisteringForTheUserLeavesNothing) {
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, user_.Get());
  component::Register();
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_.Get());
  EXPECT_FALSE(Contents(user_).empty());
  component::Unregister();
  EXPECT_TRUE(NothingLeft(user_));
}

TEST_F(RegistrationTest, RefusedEverywhereItIsAnError) {
  RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
  ASSERT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, root_.c_str()), ERROR_SUCCESS);
  RegOverridePredefKey(HKEY_CURRENT_USER, user_.Get());
  const Error error = ErrorOf([] { component::Register(); });
  EXPECT_EQ(error.Number(), HRESULT_FROM_WIN32(ERROR_KEY_DELETED));
}

}  // namespace
}  // namespace zevo::testing
