// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/Windows1252.h"

#include <gtest/gtest.h>
#include <zevo/Utf8.h>

#include <string>

namespace zevo::saft {
namespace {

TEST(Windows1252Test, AsciiAndLatin1KeepTheirCodePoints) {
  EXPECT_EQ(Utf8FromWindows1252("Rua 7\r\n\x7F"), "Rua 7\r\n\x7F");
  EXPECT_EQ(Utf8FromWindows1252("\xA0\xBF\xC0\xE7\xE3o\xFF"), "\u00A0¿Àção\u00FF");
}

TEST(Windows1252Test, TheOthersAreInATable) {
  EXPECT_EQ(Utf8FromWindows1252("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"),
            "\u20AC\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u017D");
  EXPECT_EQ(Utf8FromWindows1252("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"),
            "\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u017E\u0178");
}

TEST(Windows1252Test, AByteThatIsNoCharacterIsNoneInUtf8) {
  for (const std::string byte : {"\x81", "\x8D", "\x8F", "\x90", "\x9D"}) {
    EXPECT_EQ(Utf8FromWindows1252("\xC3" + byte), "Ã" + byte);
    EXPECT_FALSE(IsUtf8(Utf8FromWindows1252("\xC3" + byte)));
  }
}

}  // namespace
}  // namespace zevo::saft
