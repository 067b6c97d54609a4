// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/WorkbookText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace zevo::saft {
namespace {

std::string Put(std::string_view text) {
  std::string cell = "before";
  EXPECT_TRUE(PutWorkbookText(text, cell));
  return cell;
}

TEST(WorkbookTextTest, KeepsTexts) {
  for (const std::string_view text : {"", "Pão 'd\"água' & <b>", "a\tb\nc", "_x_", "_x00_", "=1+1", "😀"}) {
    EXPECT_EQ(Put(text), text);
  }
}

TEST(WorkbookTextTest, EscapesControlCharactersAndWhatLooksLikeOne) {
  EXPECT_EQ(Put("a\x1B[0m\r"), "a_x001B_[0m_x000D_");
  EXPECT_EQ(Put(std::string_view("\0", 1)), "_x0000_");
  EXPECT_EQ(Put("_x0041_"), "_x005F_x0041_");
  EXPECT_EQ(Put("_x00g1_"), "_x00g1_");
}

TEST(WorkbookTextTest, WhatIsNoCharacterIsReplaced) {
  EXPECT_EQ(Put("a\xFF\xEF\xBF\xBF"), "a\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(WorkbookTextTest, EndsWhereACellIsFull) {
  std::string cell;
  EXPECT_TRUE(PutWorkbookText(std::string(32767, 'a'), cell));
  EXPECT_FALSE(PutWorkbookText(std::string(32768, 'a'), cell));
  EXPECT_EQ(cell, std::string(32767, 'a'));
  // A character beyond the first 65,536 counts twice, an escape as it is written.
  EXPECT_FALSE(PutWorkbookText(std::string(32766, 'a') + "😀", cell));
  EXPECT_EQ(cell, std::string(32766, 'a'));
  EXPECT_TRUE(PutWorkbookText(std::string(32766, 'a') + "é", cell));
  EXPECT_TRUE(PutWorkbookText(std::string(32760, 'a') + "\x01", cell));
  EXPECT_FALSE(PutWorkbookText(std::string(32761, 'a') + "\x01", cell));
}

}  // namespace
}  // namespace zevo::saft
