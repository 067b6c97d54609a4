// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/NoteList.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace zevo {
namespace {

using Text = ElementNote::NamedText;

std::vector<ElementNote> NotesOf(const NoteList& list) {
  std::vector<ElementNote> notes;
  NoteList::Reader reader(list);
  while (notes.size() < list.Count()) notes.push_back(reader.Next());
  return notes;
}

std::vector<ElementNote> Kept(const std::vector<ElementNote>& notes) {
  NoteList list;
  for (const ElementNote& note : notes) list.Add(note);
  return NotesOf(list);
}

TEST(NoteListTest, EveryFault) {
  std::vector<ElementNote> notes;
  for (size_t fault = 0; fault < kFaults; ++fault) {
    notes.push_back({static_cast<Fault>(fault), 1, {}});
    notes.push_back({static_cast<Fault>(fault), 1, Text{}});
  }
  EXPECT_EQ(Kept(notes), notes);
}

TEST(NoteListTest, ElementsAndTextsNearAndFar) {
  std::vector<ElementNote> notes;
  for (const uint32_t number : {0U, 1U, 63U, 64U, 127U, 128U, 0U, 1U << 21, 1U << 31, 3U, UINT32_MAX, 0U, 5U}) {
    notes.push_back({Fault::kRepeated, number, {}});
    notes.push_back({Fault::kUnknownElement, number, Text{number, 0, 1}});
    notes.push_back({Fault::kUnknownElement, 2, Text{7, number / 2, number / 2}});
  }
  EXPECT_EQ(Kept(notes), notes);
}

TEST(NoteListTest, ClearedItBeginsAnew) {
  NoteList list;
  list.Add({Fault::kInexact, 5, Text{6, 7, 8}});
  list.Clear();
  EXPECT_EQ(list.Count(), 0U);
  const std::vector<ElementNote> notes{{Fault::kRepeated, 1, Text{2, 3, 4}}};
  list.Add(notes[0]);
  EXPECT_EQ(NotesOf(list), notes);
}

TEST(NoteListTest, NotesTakeTwoBytesAndFiveWithAText) {
  constexpr size_t kBytes = size_t{1} << 20;
  NoteList plain;
  for (uint32_t i = 0; i < kBytes / 2; ++i) plain.Add({Fault::kUnknownElement, i, {}});
  EXPECT_EQ(plain.Capacity(), kBytes);
  NoteList named;
  for (uint32_t i = 0; i < kBytes / 5; ++i) named.Add({Fault::kUnknownElement, i, Text{3 * i, 1, 2}});
  EXPECT_EQ(named.Capacity(), kBytes);
}

}  // namespace
}  // namespace zevo
