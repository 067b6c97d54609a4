// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/ErrorTranslation.h>

#include <zevo/Error.h>

#include <new>
#include <stdexcept>

#include "tests/component/Com.h"

namespace zevo::testing {
namespace {

using component::ErrorNumber;
using component::Guarded;

template <class Thrown>
HRESULT ResultOf(const Thrown& thrown) {
  return Guarded(IID_IUnknown, [&] { throw thrown; });
}

TEST(ErrorTranslationTest, LibraryErrorsKeepTheirNumberAndFindTheirMessage) {
  EXPECT_EQ(ResultOf(LibraryError(Message::kReadingAborted, "SAXDALReader.StartElement")),
            static_cast<HRESULT>(0x800401F5));
  const ErrorInfo error = TakeErrorInfo();
  EXPECT_EQ(error.source, L"SAXDALReader.StartElement");
  EXPECT_EQ(error.description, L"Leitura do ficheiro abortada pelo utilizador.");
}

TEST(ErrorTranslationTest, RunTimeErrorsHaveTheFacilityOfScripts) {
  EXPECT_EQ(ResultOf(MakeRunTimeError(RunTimeError::kDiskFull, "C:\\saft.xml")), static_cast<HRESULT>(0x800A003D));
  EXPECT_EQ(TakeErrorInfo().source, L"ZevoAdapters11");
}

TEST(ErrorTranslationTest, ANumberOfItsOwnStaysWhatItIs) {
  EXPECT_EQ(ResultOf(Error(-1, "Supplier", "texto")), -1);
  EXPECT_EQ(TakeErrorInfo().description, L"texto");
  EXPECT_EQ(ResultOf(Error(0, "nothing")), E_FAIL);
}

TEST(ErrorTranslationTest, OtherExceptionsAreTranslatedToo) {
  EXPECT_EQ(ResultOf(std::bad_alloc()), E_OUTOFMEMORY);
  EXPECT_EQ(ResultOf(std::length_error("")), E_OUTOFMEMORY);
  EXPECT_EQ(TakeErrorInfo().description, L"");
  EXPECT_EQ(ResultOf(std::runtime_error("unexpected")), static_cast<HRESULT>(0x800A0005));
  EXPECT_NE(TakeErrorInfo().description.find(L"unexpected"), std::wstring::npos);
  EXPECT_EQ(ResultOf(5), E_UNEXPECTED);
}

TEST(ErrorTranslationTest, SuccessIsSuccess) {
  EXPECT_EQ(Guarded(IID_IUnknown, [] {}), S_OK);
}

TEST(ErrorTranslationTest, NumbersComeBack) {
  EXPECT_EQ(ErrorNumber(static_cast<HRESULT>(0x800A000D)), 13);
  EXPECT_EQ(ErrorNumber(static_cast<HRESULT>(0x800401F5)), -2147221003);
  EXPECT_EQ(ErrorNumber(-1), -1);
}

}  // namespace
}  // namespace zevo::testing
