// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_JOURNALDALC_H_
#define ZEVO_MAPPERS_JOURNALDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/Journal.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes, reads and counts journals.
class JournalDALC {
 public:
  /// Begins a journal; its transactions are written into it later. Raises message 201 when the section is missing.
  void CreateJournal(const Journal& value, IDALHelper& writer);
  /// Fills the slot with the first or the next one, or with nothing when there is none left. Raises message 201 when
  /// the section is missing.
  void ReadJournal(std::shared_ptr<Journal>& value, IDALReader& reader, bool first);
  int32_t Journals(IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_JOURNALDALC_H_
