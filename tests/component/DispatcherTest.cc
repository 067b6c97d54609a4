// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>
#include <zevo/component/Dispatcher.h>
#include <zevo/component/Faces.h>

#include <array>

#include "tests/component/Com.h"

namespace zevo::testing {
namespace {

using component::FaceFor;

class DispatcherTest : public ::testing::Test {
 protected:
  ComPtr<_Header> header_ = FaceFor(std::make_shared<zevo::Header>());
  ComPtr<_AuditFile> file_ = FaceFor(std::make_shared<zevo::AuditFile>());
  ComPtr<_AuditFileReader> reader_ = FaceFor(std::make_shared<zevo::AuditFileReader>());
  ComPtr<_AuditFileStreamer> streamer_ = FaceFor(std::make_shared<zevo::AuditFileStreamer>());
};

TEST_F(DispatcherTest, NamesAreFoundWithoutRegardToCase) {
  EXPECT_EQ(IdOf(header_.Get(), L"CompanyID"), 1);
  EXPECT_EQ(IdOf(header_.Get(), L"COMPANYid"), 1);
  auto* unknown = const_cast<LPOLESTR>(L"Company");
  DISPID id = 0;
  EXPECT_EQ(header_->GetIDsOfNames(IID_NULL, &unknown, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
  EXPECT_EQ(header_->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, &id), E_INVALIDARG);
  EXPECT_EQ(header_->GetIDsOfNames(IID_NULL, &unknown, 1, LOCALE_USER_DEFAULT, nullptr), E_INVALIDARG);
}

TEST_F(DispatcherTest, ParametersHaveNames) {
  std::array<LPOLESTR, 4> names{const_cast<LPOLESTR>(L"CreateTransaction"), const_cast<LPOLESTR>(L"journalValue"),
                                const_cast<LPOLESTR>(L"value"), const_cast<LPOLESTR>(L"nothing")};
  std::array<DISPID, 4> ids{};
  EXPECT_EQ(file_->GetIDsOfNames(IID_NULL, names.data(), 3, LOCALE_USER_DEFAULT, ids.data()), S_OK);
  EXPECT_EQ(ids[0], 20);
  EXPECT_EQ(ids[1], 1);
  EXPECT_EQ(ids[2], 0);
  EXPECT_EQ(file_->GetIDsOfNames(IID_NULL, names.data(), 4, LOCALE_USER_DEFAULT, ids.data()), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[1], 1);
  EXPECT_EQ(ids[3], DISPID_UNKNOWN);
}

TEST_F(DispatcherTest, ArgumentsMayBeNamed) {
  // wait:=False, before a file is open.
  VARIANT wait;
  V_VT(&wait) = VT_BOOL;
  V_BOOL(&wait) = VARIANT_FALSE;
  DISPID name = 0;
  DISPPARAMS parameters{&wait, &name, 1, 1};
  Variant result;
  EXPECT_EQ(streamer_->Invoke(IdOf(streamer_.Get(), L"ReadAuditFile"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                              &parameters, &*result, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(result.Type(), VT_BOOL);
  EXPECT_FALSE(result.Flag());
  name = 1;
  EXPECT_EQ(streamer_->Invoke(IdOf(streamer_.Get(), L"ReadAuditFile"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                              &parameters, &*result, nullptr, nullptr),
            DISP_E_PARAMNOTFOUND);
}

TEST_F(DispatcherTest, ArgumentsAreConverted) {
  EXPECT_EQ(Put(header_.Get(), L"FiscalYear", Variant(2025)).result, S_OK);
  EXPECT_EQ(Get(header_.Get(), L"FiscalYear").value.Text(), L"2025");
  EXPECT_EQ(Put(header_.Get(), L"TaxAccountingBasis", Variant(L"93")).result, S_OK);
  EXPECT_EQ(Get(header_.Get(), L"TaxAccountingBasis").value.Number(), tabI);
  EXPECT_EQ(Put(header_.Get(), L"TaxAccountingBasis", Variant(92.0)).result, S_OK);
  Variant text(L"91");
  EXPECT_EQ(Put(header_.Get(), L"TaxAccountingBasis", Variant::Reference(text)).result, S_OK);
  EXPECT_EQ(Get(header_.Get(), L"TaxAccountingBasis").value.Number(), tabC);
  // Nothing at all is the empty text.
  EXPECT_EQ(Put(header_.Get(), L"FiscalYear", Variant()).result, S_OK);
  EXPECT_EQ(Get(header_.Get(), L"FiscalYear").value.Text(), L"");
}

TEST_F(DispatcherTest, ArgumentsThatCannotBeConvertedAreTypeMismatches) {
  const Outcome text = Put(header_.Get(), L"TaxAccountingBasis", Variant(L"all of it"));
  EXPECT_EQ(text.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(text.wrong_argument, 0U);
  const Outcome number = Call(file_.Get(), L"CreateHeader", {Variant(5)});
  EXPECT_EQ(number.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(number.wrong_argument, 0U);
  const Outcome other_class = Call(file_.Get(), L"CreateTransaction", {Variant(header_.Get()), Variant()});
  EXPECT_EQ(other_class.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(other_class.wrong_argument, 1U);
  EXPECT_EQ(Put(header_.Get(), L"TaxAccountingBasis", Variant(1e10)).result, DISP_E_OVERFLOW);
}

TEST_F(DispatcherTest, ArgumentsAreCounted) {
  EXPECT_EQ(Call(file_.Get(), L"CreateHeader").result, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(Call(file_.Get(), L"CreateHeader", {Variant(header_.Get()), Variant()}).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Call(file_.Get(), L"CreateAuditFile", {Variant()}).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Invoke(header_.Get(), IdOf(header_.Get(), L"CompanyID"), DISPATCH_PROPERTYGET, {Variant(1)}).result,
            DISP_E_BADPARAMCOUNT);
}

TEST_F(DispatcherTest, ArgumentsMayBeLeftOut) {
  EXPECT_EQ(Call(reader_.Get(), L"Transactions").value.Number(), -1);
  Variant left_out;
  V_VT(&*left_out) = VT_ERROR;
  V_ERROR(&*left_out) = DISP_E_PARAMNOTFOUND;
  EXPECT_EQ(Call(reader_.Get(), L"Transactions", {left_out}).value.Number(), -1);
  EXPECT_EQ(Call(streamer_.Get(), L"ReadAuditFile", {left_out}).result, S_OK);
}

TEST_F(DispatcherTest, UnknownMembersAndWaysAreNotFound) {
  EXPECT_EQ(Invoke(header_.Get(), 999, DISPATCH_METHOD).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Put(file_.Get(), L"CreateAuditFile", Variant(1)).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(header_->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
            E_INVALIDARG);
}

// Script hosts cannot tell a property from a method without arguments.
TEST_F(DispatcherTest, AMethodIsReadAndAPropertyIsCalled) {
  EXPECT_EQ(Invoke(reader_.Get(), IdOf(reader_.Get(), L"Customers"), DISPATCH_PROPERTYGET).value.Number(), -1);
  EXPECT_EQ(Invoke(header_.Get(), IdOf(header_.Get(), L"CurrencyCode"), DISPATCH_METHOD).value.Text(), L"EUR");
}

TEST_F(DispatcherTest, ArgumentsOfAPropertyGoToItsDefaultMember) {
  const auto invoice = std::make_shared<zevo::Invoice>();
  const auto line = std::make_shared<zevo::InvoiceLine>();
  line->set_LineNumber(7);
  invoice->Line()->Add(line);
  const ComPtr<_Invoice> face = FaceFor(invoice);
  const DISPID member = IdOf(face.Get(), L"Line");
  const Outcome found = Invoke(face.Get(), member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {Variant(L"7")});
  EXPECT_EQ(found.result, S_OK);
  EXPECT_TRUE(SameObject(found.value.Object(), FaceFor(line).Get()));
  const Outcome missing = Invoke(face.Get(), member, DISPATCH_PROPERTYGET, {Variant(2)});
  EXPECT_EQ(missing.result, DISP_E_EXCEPTION);
  EXPECT_EQ(missing.number, static_cast<HRESULT>(0x800A0009));
  // A property that holds no object has no default member.
  EXPECT_EQ(Invoke(face.Get(), IdOf(face.Get(), L"ShipTo"), DISPATCH_PROPERTYGET, {Variant(1)}).result,
            DISP_E_BADPARAMCOUNT);
}

TEST_F(DispatcherTest, ResultsMayBeDropped) {
  DISPPARAMS none{};
  EXPECT_EQ(header_->Invoke(IdOf(header_.Get(), L"CurrencyCode"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                            &none, nullptr, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(header_->Invoke(IdOf(header_.Get(), L"CompanyAddress"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                            &none, nullptr, nullptr, nullptr),
            S_OK);
}

TEST_F(DispatcherTest, FailuresWithoutRoomForThemAreResults) {
  const ComPtr<_Supplier> supplier = FaceFor(std::make_shared<zevo::Supplier>());
  DISPPARAMS none{};
  Variant result;
  EXPECT_EQ(supplier->Invoke(IdOf(supplier.Get(), L"ShipToAddress"), IID_NULL, LOCALE_USER_DEFAULT,
                             DISPATCH_PROPERTYGET, &none, &*result, nullptr, nullptr),
            -1);
  EXPECT_EQ(result.Type(), VT_EMPTY);
}

}  // namespace
}  // namespace zevo::testing
