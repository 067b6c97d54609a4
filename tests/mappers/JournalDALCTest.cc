// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/JournalDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::JournalOf;
using testing::NumberOf;

class JournalDALCTest : public testing::MapperTest {
 protected:
  std::shared_ptr<Journal> Read(IDALReader& reader, bool first = true) {
    std::shared_ptr<Journal> journal;
    JournalDALC().ReadJournal(journal, reader, first);
    return journal;
  }
};

TEST_F(JournalDALCTest, WritesEveryPropertyUnderTheSection) {
  Begin("<GeneralLedgerEntries><NumberOfEntries>0</NumberOfEntries></GeneralLedgerEntries>");
  JournalDALC().CreateJournal(*JournalOf("J1"), helper_);
  EXPECT_EQ(Written(),
            "<GeneralLedgerEntries><NumberOfEntries>0</NumberOfEntries>"
            "<Journal><JournalID>J1</JournalID><Description>Diario J1</Description></Journal></GeneralLedgerEntries>");
}

TEST_F(JournalDALCTest, WritesAnEmptyJournalWithBothElements) {
  Begin("<GeneralLedgerEntries/>");
  JournalDALC().CreateJournal(Journal(), helper_);
  EXPECT_EQ(Written(),
            "<GeneralLedgerEntries><Journal><JournalID></JournalID><Description></Description></Journal>"
            "</GeneralLedgerEntries>");
}

TEST_F(JournalDALCTest, CreateWithoutSectionRaises201AndWritesNothing) {
  EXPECT_ERROR(JournalDALC().CreateJournal(*JournalOf("J1"), helper_), NumberOf(Message{201}),
               "JournalDALC.CreateJournal");
  EXPECT_EQ(Written(), "");
}

TEST_F(JournalDALCTest, ReadsOneAfterTheOther) {
  IDALReader& reader = Reading(
      "<GeneralLedgerEntries><Journal><JournalID>a</JournalID><Description>b</Description></Journal>"
      "<Journal><JournalID>c</JournalID></Journal></GeneralLedgerEntries>");
  EXPECT_EQ(Describe(*Read(reader, true)), "JournalID=a\nDescription=b\n");
  EXPECT_EQ(Describe(*Read(reader, false)), "JournalID=c\n");
  EXPECT_EQ(Read(reader, false), nullptr);
}

TEST_F(JournalDALCTest, DescriptionThatIsMissingIsThatOfTheFirstTransaction) {
  // The text of an element is looked for in the whole of its parent.
  const auto journal = Read(Reading(
      "<GeneralLedgerEntries><Journal><JournalID>a</JournalID><Transaction><Description>t</Description></Transaction>"
      "</Journal></GeneralLedgerEntries>"));
  EXPECT_EQ(journal->Description(), "t");
}

TEST_F(JournalDALCTest, GivesNothingInASectionWithoutJournals) {
  EXPECT_EQ(Read(Reading("<GeneralLedgerEntries/>")), nullptr);
}

TEST_F(JournalDALCTest, ReadWithoutSectionRaises201ForTheFirstAndForTheNext) {
  IDALReader& reader = Reading("<Journal/>");
  EXPECT_ERROR(Read(reader, true), NumberOf(Message{201}), "JournalDALC.ReadJournal");
  EXPECT_ERROR(Read(reader, false), NumberOf(Message{201}), "JournalDALC.ReadJournal");
}

TEST_F(JournalDALCTest, CountsInTheSection) {
  EXPECT_EQ(JournalDALC().Journals(Reading("")), 0);
  EXPECT_EQ(JournalDALC().Journals(Reading("<GeneralLedgerEntries/>")), 0);
  EXPECT_EQ(JournalDALC().Journals(Reading("<GeneralLedgerEntries><Journal/><Journal/></GeneralLedgerEntries>")), 2);
}

}  // namespace
}  // namespace zevo
