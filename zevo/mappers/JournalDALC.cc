// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/JournalDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kElement = "Journal";

using R = Journal;
constexpr Layout kJournal(Row("JournalID", kAlways, &R::JournalID, &R::set_JournalID),
                          Row("Description", kAlways, &R::Description, &R::set_Description));

}  // namespace

void JournalDALC::CreateJournal(const Journal& value, IDALHelper& helper) {
  const Element section = helper.GetElement(kGeneralLedgerEntries.Text(), {}, {});
  if (!section) throw LibraryError(Message::kEntriesMissingText, "JournalDALC.CreateJournal");
  kJournal.Write(value, helper.CreateElement(kElement.Text(), {}, section, true), helper);
}

void JournalDALC::ReadJournal(std::shared_ptr<Journal>& value, IDALReader& helper, bool first) {
  const Element section = helper.GetElement(kGeneralLedgerEntries.Text(), {}, {});
  if (!section) throw LibraryError(Message::kEntriesMissingText, "JournalDALC.ReadJournal");
  ReadRecord(kJournal, FirstOrNext(helper, kElement, section, first), value, helper);
}

int32_t JournalDALC::Journals(IDALReader& helper) {
  const Element section = helper.GetElement(kGeneralLedgerEntries.Text(), {}, {});
  return section ? CountOf(helper, kElement, section) : 0;
}

}  // namespace zevo
