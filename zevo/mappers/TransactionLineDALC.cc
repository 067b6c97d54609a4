// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TransactionLineDALC.h>

#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kElement = "Line";

using R = TransactionLine;
constexpr Layout kLine(Row("RecordID", kAlways, &R::RecordID, &R::set_RecordID),
                       Row("AccountID", kAlways, &R::AccountID, &R::set_AccountID),
                       Row("SourceDocumentID", kIfNotEmpty, &R::SourceDocumentID, &R::set_SourceDocumentID),
                       Row("SystemEntryDate", kAlways, &R::SystemEntryDate, &R::set_SystemEntryDate),
                       Row("Description", kAlways, &R::Description, &R::set_Description),
                       Either(Row("DebitAmount", kAlways, &R::DebitAmount, &R::set_DebitAmount),
                              Row("CreditAmount", kAlways, &R::CreditAmount, &R::set_CreditAmount)));

}  // namespace

void TransactionLineDALC::CreateTransactionLine(const TransactionLine& value, Element transaction, IDALHelper& helper) {
  kLine.Write(value, helper.CreateElement(kElement.Text(), {}, transaction, true), helper);
  helper.EndElement(kElement.Text());
}

void TransactionLineDALC::ReadTransactionLine(std::shared_ptr<TransactionLine>& value, Element transaction,
                                              IDALReader& helper, bool first) {
  ReadRecord(kLine, FirstOrNext(helper, kElement, transaction, first), value, helper);
}

}  // namespace zevo
