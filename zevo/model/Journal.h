// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_JOURNAL_H_
#define ZEVO_MODEL_JOURNAL_H_

#include <zevo/model/Record.h>

namespace zevo {

/// A journal. It does not hold its transactions: a transaction is written together with its journal.
class ZEVO_API Journal : public Record {
  ZEVO_ENTITY(Journal, kJournal);

  /// Unique code of the journal. At most 30 characters.
  ZEVO_TEXT(JournalID);

  /// At most 60 characters.
  ZEVO_TEXT(Description);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_JOURNAL_H_
