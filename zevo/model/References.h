// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_REFERENCES_H_
#define ZEVO_MODEL_REFERENCES_H_

#include <zevo/model/CreditNoteCollection.h>
#include <zevo/model/Record.h>

namespace zevo {

/// References of an invoice line to other documents.
class ZEVO_API References : public Record {
  ZEVO_RECORD(References, kReferences);

  /// The invoices corrected, in order; each is also found by the `Reference` it had when it was added.
  /// The schema takes one for a line.
  ZEVO_OWNED(CreditNoteCollection, CreditNote);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_REFERENCES_H_
