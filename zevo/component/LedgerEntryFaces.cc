// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Face.h>

namespace zevo::component {
namespace {

class GeneralLedgerEntriesFace final : public Face<zevo::GeneralLedgerEntries> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(NumberOfEntries)
  ZEVO_PROPERTY(TotalDebit)
  ZEVO_PROPERTY(TotalCredit)
  ZEVO_PROCEDURE(Reset)
  ZEVO_PROCEDURE(Refresh)
};

class JournalFace final : public Face<zevo::Journal> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(JournalID)
  ZEVO_PROPERTY(Description)
};

class TransactionLineFace final : public Face<zevo::TransactionLine> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(RecordID)
  ZEVO_PROPERTY(AccountID)
  ZEVO_PROPERTY(SourceDocumentID)
  ZEVO_PROPERTY(SystemEntryDate)
  ZEVO_PROPERTY(Description)
  ZEVO_PROPERTY(DebitAmount)
  ZEVO_PROPERTY(CreditAmount)
};

class TransactionFace final : public Face<zevo::Transaction> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(TransactionID)
  ZEVO_PROPERTY(Period)
  ZEVO_PROPERTY(TransactionDate)
  ZEVO_PROPERTY(SourceID)
  ZEVO_PROPERTY(Description)
  ZEVO_PROPERTY(DocArchivalNumber)
  ZEVO_PROPERTY(TransactionType)
  ZEVO_PROPERTY(GLPostingDate)
  ZEVO_PROPERTY(CustomerID)
  ZEVO_PROPERTY(SupplierID)
  ZEVO_READ_ONLY(Line)
};

}  // namespace

ZEVO_FACE_OF(GeneralLedgerEntries);
ZEVO_FACE_OF(Journal);
ZEVO_FACE_OF(TransactionLine);
ZEVO_FACE_OF(Transaction);

}  // namespace zevo::component
