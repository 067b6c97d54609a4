// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/XmlError.h>

namespace zevo {
namespace {

TEST(XmlErrorTest, CarriesNumberSourceAndTheReasonWithItsPlace) {
  const Error error = XmlError(76, "MSXML2.DOMDocument.Load", "Opening and ending tag mismatch", 12, 34);
  EXPECT_EQ(error.Number(), 76);
  EXPECT_EQ(error.Source(), "MSXML2.DOMDocument.Load");
  EXPECT_EQ(error.Description(), "Opening and ending tag mismatch (linha 12, coluna 34)");
}

TEST(XmlErrorTest, TrimsTheLineEndOffTheReason) {
  EXPECT_EQ(XmlError(1, "", "Extra content \r\n\t", 1, 2).Description(), "Extra content (linha 1, coluna 2)");
}

TEST(XmlErrorTest, TellsThePlaceWhereThereIsNoReason) {
  EXPECT_EQ(XmlError(1, "", "\n", 3, 4).Description(), "(linha 3, coluna 4)");
}

TEST(XmlErrorTest, LeavesAColumnOutThatIsNotKnown) {
  EXPECT_EQ(XmlError(1, "", "Reason", 3, 0).Description(), "Reason (linha 3)");
}

TEST(XmlErrorTest, InitialisingTwiceDoesNoHarm) {
  InitialiseXml();
  InitialiseXml();
}

}  // namespace
}  // namespace zevo
