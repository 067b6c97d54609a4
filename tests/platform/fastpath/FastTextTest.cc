// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastText.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/Text.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace zevo {
namespace {

using namespace std::string_view_literals;

/// A text as it lies in the buffer: something before it, "<" and more behind.
class InBuffer {
 public:
  explicit InBuffer(std::string_view text)
      : bytes_("a>" + std::string(text) + "<" + std::string(kReadableBehind, '\0')) {}

  const char* Begin() const { return bytes_.data() + 2; }
  std::string_view Before(const char* at) const { return {Begin(), static_cast<size_t>(at - Begin())}; }

 private:
  std::string bytes_;
};

/// How much of a text SkipText takes, whatever the processor has; -1 where it gives up.
int Skipped(std::string_view text) {
  const InBuffer buffer(text);
  const char* const at = SkipText(buffer.Begin());
  EXPECT_EQ(SkipText<WordBlocks>(buffer.Begin()), at);
  return at == nullptr ? -1 : static_cast<int>(at - buffer.Begin());
}

std::string Utf8(uint32_t code) {
  std::string text;
  AppendCharacter(code, text);
  return text;
}

/// How much of it SkipIndentation takes, whatever the processor has.
size_t Indentation(std::string_view text) {
  const InBuffer buffer(text);
  const char* const at = SkipIndentation(buffer.Begin());
  EXPECT_EQ(SkipIndentation<WordBlocks>(buffer.Begin()), at);
  return static_cast<size_t>(at - buffer.Begin());
}

TEST(FastTextTest, AnIndentationIsBlanksAndTabs) {
  for (size_t size = 0; size < 70; ++size) {
    EXPECT_EQ(Indentation(std::string(size, ' ')), size);
    EXPECT_EQ(Indentation(std::string(size, '\t')), size);
    for (int byte = 1; byte < 256; ++byte) {
      const char c = static_cast<char>(byte);
      const bool belongs = c == ' ' || c == '\t';
      EXPECT_EQ(Indentation(std::string(size, ' ') + c + "  "), belongs ? size + 3 : size) << byte;
    }
  }
}

// At every place in a block.
TEST(FastTextTest, StopsAtMarkupAndLineEnds) {
  for (int before = 0; before < 40; ++before) {
    const std::string text(static_cast<size_t>(before), 'x');
    for (const std::string_view stop : {"", "&x", "\rx", "<"}) {
      EXPECT_EQ(Skipped(text + std::string(stop)), before) << stop;
    }
    EXPECT_EQ(Skipped(text + "\n\t>~ \x7F"), before + 6);
    EXPECT_EQ(Skipped(text + "\x1F"), -1);
    EXPECT_EQ(Skipped(text + "\xFF"), -1);
    EXPECT_EQ(Skipped(text + "\xC3\xA9" + "x"), before + 3);
    EXPECT_EQ(Skipped(text + "]]>"), -1);
    EXPECT_EQ(Skipped(text + "]>]x>"), before + 5);
  }
  EXPECT_EQ(Skipped(">"), 1);
  EXPECT_EQ(Skipped("]>"), 2);
}

TEST(FastTextTest, TakesEachByteThatIsACharacter) {
  for (int byte = 1; byte < 0x80; ++byte) {
    const char c = static_cast<char>(byte);
    const bool stops = c == '&' || c == '\r' || c == '<';
    const bool fails = byte < 0x20 && c != '\t' && c != '\n' && c != '\r';
    EXPECT_EQ(Skipped(std::string(1, c)), fails ? -1 : stops ? 0 : 1) << byte;
  }
}

// All of Unicode, and what is beyond and between.
TEST(FastTextTest, TakesEachCharacterThatXmlAllows) {
  for (uint32_t code = 0x80; code < 0x110000; ++code) {
    const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (is_surrogate) continue;
    const std::string text = Utf8(code) + "zzz";
    const bool allowed = code != 0xFFFE && code != 0xFFFF;
    ASSERT_EQ(CharacterBytes(text.data()), allowed ? text.size() - 3 : 0) << code;
  }
}

TEST(FastTextTest, GivesUpWhatIsNoUtf8) {
  for (const std::string_view bytes : {"\x80"sv,
                                       "\xBF"sv,
                                       "\xC0\x80"sv,
                                       "\xC1\xBF"sv,
                                       "\xC2"sv,
                                       "\xC2z"sv,
                                       "\xC2\xC0"sv,
                                       "\xDF\x7F"sv,
                                       "\xE0\x9F\xBF"sv,
                                       "\xE2\x82"sv,
                                       "\xE2z\xAC"sv,
                                       "\xE2\x82z"sv,
                                       "\xED\xA0\x80"sv,
                                       "\xED\xBF\xBF"sv,
                                       "\xEF\xBF\xBE"sv,
                                       "\xEF\xBF\xBF"sv,
                                       "\xF0\x8F\xBF\xBF"sv,
                                       "\xF0\x9F\x98"sv,
                                       "\xF0z\x98\x80"sv,
                                       "\xF0\x9Fz\x80"sv,
                                       "\xF0\x9F\x98z"sv,
                                       "\xF4\x90\x80\x80"sv,
                                       "\xF5\x80\x80\x80"sv,
                                       "\xF8\x88\x80\x80\x80"sv,
                                       "\xFE"sv,
                                       "\xFF"sv}) {
    EXPECT_EQ(Skipped(bytes), -1) << ::testing::PrintToString(bytes);
  }
}

TEST(FastTextTest, SkipsLinesOnToMarkup) {
  const InBuffer sound("\r\nx\r\r\n\xC3\xA9");
  EXPECT_EQ(sound.Before(SkipLines(sound.Begin())), "\r\nx\r\r\n\xC3\xA9");
  const InBuffer reference("\rx&y");
  EXPECT_EQ(reference.Before(SkipLines(reference.Begin())), "\rx");
  EXPECT_EQ(SkipLines(InBuffer("\rx\r]]>").Begin()), nullptr);
}

/// What a reference stands for, with how long it is; nothing where it is given up.
std::pair<std::string, int> Character(std::string_view reference) {
  const InBuffer buffer(reference);
  std::array<char, 4> to{};
  size_t length = 0;
  const char* const end = ParseReference(buffer.Begin(), to.data(), length);
  if (end == nullptr) return {"", 0};
  return {std::string(to.data(), length), static_cast<int>(end - buffer.Begin())};
}

TEST(FastTextTest, TakesReferences) {
  using Taken = std::pair<std::string, int>;
  EXPECT_EQ(Character("&lt;x"), Taken("<", 4));
  EXPECT_EQ(Character("&gt;x"), Taken(">", 4));
  EXPECT_EQ(Character("&amp;x"), Taken("&", 5));
  EXPECT_EQ(Character("&quot;x"), Taken("\"", 6));
  EXPECT_EQ(Character("&apos;x"), Taken("'", 6));
  EXPECT_EQ(Character("&#65;"), Taken("A", 5));
  EXPECT_EQ(Character("&#x41;"), Taken("A", 6));
  EXPECT_EQ(Character("&#xe9;"), Taken("\xC3\xA9", 6));
  EXPECT_EQ(Character("&#xE9;"), Taken("\xC3\xA9", 6));
  EXPECT_EQ(Character("&#8364;"), Taken("\xE2\x82\xAC", 7));
  EXPECT_EQ(Character("&#x1F600;"), Taken("\xF0\x9F\x98\x80", 9));
  EXPECT_EQ(Character("&#x10FFFF;"), Taken("\xF4\x8F\xBF\xBF", 10));
  EXPECT_EQ(Character("&#9;"), Taken("\t", 4));
  EXPECT_EQ(Character("&#10;"), Taken("\n", 5));
  EXPECT_EQ(Character("&#13;"), Taken("\r", 5));
  EXPECT_EQ(Character("&#x0000041;"), Taken("A", 11));
}

TEST(FastTextTest, GivesUpOtherReferences) {
  for (const std::string_view reference :
       {"&",        "&;",       "&x;",        "&lt",           "&lt<;",         "&LT;",
        "&ltt;",    "&l t;",    "& lt;",      "&#;",           "&#x;",          "&#X41;",
        "&#-65;",   "&#+65;",   "&# 65;",     "&#65 ;",        "&#x-41;",       "&#x 41;",
        "&#0x41;",  "&#A;",     "&#xG;",      "&#0;",          "&#1;",          "&#8;",
        "&#11;",    "&#12;",    "&#14;",      "&#31;",         "&#xD800;",      "&#xDFFF;",
        "&#xFFFE;", "&#xFFFF;", "&#x110000;", "&#4294967361;", "&#x100000041;", "&#00000000065;"}) {
    EXPECT_EQ(Character(reference).second, 0) << reference;
  }
}

/// The text of a comment that stands in the buffer.
std::optional<std::string> Comment(std::string_view text) {
  const InBuffer buffer(std::string(text) + "-->");
  return CommentText({buffer.Begin(), text.size()});
}

TEST(FastTextTest, TakesTheTextOfAComment) {
  EXPECT_EQ(Comment(""), "");
  EXPECT_EQ(Comment(" a & <b> ]]> \t\n \x7F \xC3\xA9 \xF0\x9F\x98\x80 "),
            " a & <b> ]]> \t\n \x7F \xC3\xA9 \xF0\x9F\x98\x80 ");
  EXPECT_EQ(Comment("\r\n\r\r\n\n\ra\r"), "\n\n\n\n\na\n");
  for (const std::string_view text : {"\x01", "\x1F", "a\xFF", "\xC3", "\xED\xA0\x80", "\xEF\xBF\xBE", "\xE2\x82"}) {
    EXPECT_EQ(Comment(text), std::nullopt) << ::testing::PrintToString(text);
  }
}

TEST(FastTextTest, BlanksAreThoseOfXml) {
  for (int byte = 0; byte < 0x100; ++byte) {
    const char c = static_cast<char>(byte);
    EXPECT_EQ(IsWhiteSpace(c), c == ' ' || c == '\t' || c == '\n' || c == '\r') << byte;
  }
  const InBuffer buffer(" \t\r\n\n x");
  EXPECT_EQ(buffer.Before(SkipBlanks(buffer.Begin())), " \t\r\n\n ");
}

}  // namespace
}  // namespace zevo
