// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/JournalDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr auto kJournalLayout = LayoutFor<Journal>(Rows{
    ZEVO_ROW(JournalID, kAlways),
    ZEVO_ROW(Description, kAlways),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<Journal>() {
  return DataOf<kJournalLayout>();
}

void JournalDALC::CreateJournal(const Journal& value, IDALHelper& writer) {
  const Element section = writer.GetElement(kGeneralLedgerEntries, {}, {});
  if (!section) throw LibraryError(Message::kEntriesMissingText, "JournalDALC.CreateJournal");
  kJournalLayout.Write(value, writer.CreateElement(kJournal, {}, section, true), writer);
}

void JournalDALC::ReadJournal(std::shared_ptr<Journal>& value, IDALReader& reader, bool first) {
  const Element section = reader.GetElement(kGeneralLedgerEntries, {});
  if (!section) throw LibraryError(Message::kEntriesMissingText, "JournalDALC.ReadJournal");
  ReadRecord(kJournalLayout, FirstOrNext(reader, kJournal, section, first), value, reader);
}

int32_t JournalDALC::Journals(IDALReader& reader) {
  const Element section = reader.GetElement(kGeneralLedgerEntries, {});
  return section ? CountOf(reader, kJournal, section) : 0;
}

}  // namespace zevo
