// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_CREDITNOTE_H_
#define ZEVO_MODEL_CREDITNOTE_H_

#include <zevo/model/Record.h>

namespace zevo {

/// What a line of a credit note refers to.
class ZEVO_API CreditNote : public Record {
  ZEVO_RECORD(CreditNote, kCreditNote);

  /// Number of the invoice that is corrected. At most 60 characters.
  ZEVO_TEXT(Reference);

  /// Why it is corrected. At most 50 characters.
  ZEVO_TEXT(Reason);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_CREDITNOTE_H_
