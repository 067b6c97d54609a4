// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TransactionLineDALC.h>

#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr auto kTransactionLineLayout = LayoutFor<TransactionLine>(Rows{
    ZEVO_ROW(RecordID, kAlways),
    ZEVO_ROW(AccountID, kAlways),
    ZEVO_ROW(SourceDocumentID, kIfNotEmpty),
    ZEVO_ROW(SystemEntryDate, kAlways),
    ZEVO_ROW(Description, kAlways),
    Either{
        ZEVO_ROW(DebitAmount, kAlways),
        ZEVO_ROW(CreditAmount, kAlways),
    },
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<TransactionLine>() {
  return DataOf<kTransactionLineLayout>();
}

void TransactionLineDALC::CreateTransactionLine(const TransactionLine& value, Element transaction, IDALHelper& writer) {
  kTransactionLineLayout.Write(value, writer.CreateElement(kLine, {}, transaction, true), writer);
  writer.EndElement(kLine);
}

void TransactionLineDALC::ReadTransactionLine(std::shared_ptr<TransactionLine>& value, Element transaction,
                                              IDALReader& reader, bool first) {
  ReadRecord(kTransactionLineLayout, FirstOrNext(reader, kLine, transaction, first), value, reader);
}

}  // namespace zevo
