// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <zevo/platform/Serializer.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/platform/Numbered.h"
#include "tests/platform/Parsing.h"

namespace zevo {
namespace {

using testing::Parsing;
using testing::Repeated;

class StringSink : public ByteSink {
 public:
  void Write(std::string_view bytes) override {
    text += bytes;
    ++pieces;
  }
  std::string text;
  int pieces = 0;
};

std::string Written(std::string_view text, Escapes escapes,
                    Serializer::Encoding encoding = Serializer::Encoding::kWindows1252) {
  StringSink sink;
  Serializer serializer(sink, encoding);
  serializer.Write(text, escapes);
  serializer.Flush();
  return sink.text;
}

// What each set of escapes makes of a character that it escapes.
struct EscapeSet {
  Escapes escapes;
  std::vector<std::pair<char, std::string_view>> references;
};

class SerializerEscapeSetsTest : public ::testing::TestWithParam<EscapeSet> {};

TEST_P(SerializerEscapeSetsTest, WriteReferencesForTheirCharactersAndForNoOther) {
  for (int c = 1; c < 0x80; ++c) {
    const std::string text(1, static_cast<char>(c));
    std::string expected = text;
    for (const auto& [escaped, reference] : GetParam().references) {
      if (escaped == text[0]) expected = reference;
    }
    EXPECT_EQ(Written(text, GetParam().escapes), expected) << c;
    EXPECT_EQ(Written(text, GetParam().escapes, Serializer::Encoding::kUtf8), expected) << c;
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, SerializerEscapeSetsTest,
    ::testing::Values(
        EscapeSet{Escapes::kNone, {}}, EscapeSet{Escapes::kMarkup, {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}}},
        EscapeSet{Escapes::kMarkupAndQuote, {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}}},
        EscapeSet{Escapes::kMarkupAndReturn, {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'\r', "&#13;"}}},
        EscapeSet{Escapes::kMarkupQuoteAndReturn,
                  {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\r', "&#13;"}}},
        EscapeSet{Escapes::kAttribute,
                  {{'&', "&amp;"},
                   {'<', "&lt;"},
                   {'>', "&gt;"},
                   {'"', "&quot;"},
                   {'\r', "&#13;"},
                   {'\n', "&#10;"},
                   {'\t', "&#9;"}}}),
    testing::Numbered());

constexpr std::string_view kUpperCharacters =
    "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ"
    "\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿"
    "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ";

TEST(SerializerTest, EveryUpperByteOfWindows1252) {
  std::string bytes;
  for (int byte = 0x80; byte < 0x100; ++byte) {
    const bool undefined = byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
    if (!undefined) bytes += static_cast<char>(byte);
  }
  EXPECT_EQ(Written(kUpperCharacters, Escapes::kMarkup), bytes);
  EXPECT_EQ(Written(kUpperCharacters, Escapes::kAttribute), bytes);
  EXPECT_EQ(Written(kUpperCharacters, Escapes::kMarkup, Serializer::Encoding::kUtf8), kUpperCharacters);
}

TEST(SerializerTest, ACharacterThatWindows1252LacksIsADecimalReference) {
  EXPECT_EQ(Written("Ł→😀\u0080\u0081\u0100\uFFFD", Escapes::kMarkup),
            "&#321;&#8594;&#128512;&#128;&#129;&#256;&#65533;");
  EXPECT_EQ(Written("\U0010FFFF", Escapes::kAttribute), "&#1114111;");
  EXPECT_EQ(Written("Ł😀", Escapes::kMarkup, Serializer::Encoding::kUtf8), "Ł😀");
}

TEST(SerializerTest, NothingComesOutBeforeTheBufferIsFullOrFlushed) {
  StringSink sink;
  Serializer serializer(sink, Serializer::Encoding::kWindows1252);
  serializer.Write("abc");
  EXPECT_EQ(sink.text, "");
  serializer.Flush();
  EXPECT_EQ(sink.text, "abc");
  serializer.Flush();
  EXPECT_EQ(sink.text, "abc");
}

TEST(SerializerTest, DestructionDropsWhatIsHeldBack) {
  StringSink sink;
  Serializer(sink, Serializer::Encoding::kUtf8).Write("abc");
  EXPECT_EQ(sink.text, "");
}

// Texts that fill the buffer several times over, their characters on every offset of a piece's end.
class SerializerLongTextTest : public ::testing::TestWithParam<size_t> {};

TEST_P(SerializerLongTextTest, IsWrittenWhole) {
  const std::string pad(GetParam(), 'x');
  constexpr size_t kTimes = 200'000;
  struct Row {
    std::string_view text;
    std::string_view in_windows1252;
    std::string_view in_utf8;
  };
  for (const Row& row : {Row{"\"", "&quot;", "&quot;"}, Row{"é€", "\xE9\x80", "é€"}, Row{"Ł", "&#321;", "Ł"},
                         Row{"😀", "&#128512;", "😀"}, Row{"→é<", "&#8594;\xE9&lt;", "→é&lt;"}}) {
    const std::string text = pad + Repeated(row.text, kTimes);
    EXPECT_TRUE(Written(text, Escapes::kAttribute) == pad + Repeated(row.in_windows1252, kTimes)) << row.text;
    EXPECT_TRUE(Written(text, Escapes::kAttribute, Serializer::Encoding::kUtf8) == pad + Repeated(row.in_utf8, kTimes))
        << row.text;
  }
}

INSTANTIATE_TEST_SUITE_P(All, SerializerLongTextTest, ::testing::Range<size_t>(0, 5));

TEST(SerializerTest, ManySmallTextsComeOutInLargePieces) {
  StringSink sink;
  Serializer serializer(sink, Serializer::Encoding::kWindows1252);
  for (int i = 0; i < 1'000'000; ++i) serializer.Write("ab", Escapes::kMarkup);
  serializer.Flush();
  EXPECT_TRUE(sink.text == Repeated("ab", 1'000'000));
  EXPECT_LT(sink.pieces, 50);
}

// A serializer with some names.
class SerializerElementTest : public ::testing::Test {
 protected:
  uint32_t Name(std::string_view text) { return names_.Add(text); }
  // In whichever way the serializer takes it.
  void Write(uint32_t name, std::string_view text) {
    if (serializer_.WritePlainElement(names_, name, text)) return;
    serializer_.WriteStartTag(names_, name);
    serializer_.Write(text, Escapes::kMarkup);
    serializer_.WriteEndTag(names_, name);
  }
  // All that was written.
  std::string Written() {
    serializer_.Flush();
    return sink_.text;
  }

  NameTable names_{{}};
  StringSink sink_;
  Serializer serializer_{sink_, Serializer::Encoding::kWindows1252};
};

TEST_F(SerializerElementTest, TextsOfAnyLengthAreWrittenAtOnceWhereAllOfThemIsPlain) {
  std::string expected;
  for (size_t length = 1; length <= 40; ++length) {
    const std::string plain(length, '~');
    EXPECT_TRUE(serializer_.WritePlainElement(names_, Name("City"), plain)) << length;
    expected += "<City>" + plain + "</City>";
    for (size_t at = 0; at < length; ++at) {
      for (const char other : {'&', '<', '>', '"', '\t', '\r', '\0', '\x1F', '\x80', '\xC3'}) {
        std::string text = plain;
        text[at] = other;
        EXPECT_FALSE(serializer_.WritePlainElement(names_, Name("City"), text)) << length << " " << at;
      }
    }
  }
  EXPECT_FALSE(serializer_.WritePlainElement(names_, Name("City"), ""));
  EXPECT_EQ(Written(), expected);
}

TEST_F(SerializerElementTest, CharactersThatHaveTheirOwnNumbersInWindows1252ArePlainWhereverTheyStand) {
  StringSink utf8_sink;
  Serializer utf8(utf8_sink, Serializer::Encoding::kUtf8);
  std::string expected;
  std::string expected_utf8;
  for (char32_t character = 0xA0; character <= 0xFF; ++character) {
    std::string letter;
    AppendCharacter(character, letter);
    for (size_t length = 0; length <= 20; ++length) {
      for (size_t at = 0; at <= length; ++at) {
        const std::string before(at, 'x');
        const std::string behind(length - at, 'y');
        const std::string text = before + letter + behind + letter;
        EXPECT_TRUE(serializer_.WritePlainElement(names_, Name("City"), text)) << text;
        EXPECT_TRUE(utf8.WritePlainElement(names_, Name("City"), text)) << text;
        const char byte = static_cast<char>(character);
        expected += "<City>" + before + byte + behind + byte + "</City>";
        expected_utf8 += "<City>" + text + "</City>";
      }
    }
    serializer_.Flush();
    utf8.Flush();
  }
  EXPECT_TRUE(sink_.text == expected);
  EXPECT_TRUE(utf8_sink.text == expected_utf8);
}

TEST_F(SerializerElementTest, OtherCharactersAndWhatIsNotUtf8AreNotPlain) {
  for (const std::string_view other : {"\xC2\x80", "\xC2\x9F", "\xC4\x80", "\xC1\xBF", "\xC3", "\xC3\xC3", "\xC2 ",
                                       "\xC3\x7F", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xA0", "\xE9"}) {
    for (size_t before = 0; before <= 20; ++before) {
      EXPECT_FALSE(serializer_.WritePlainElement(names_, Name("City"), std::string(before, 'x').append(other)))
          << before;
      EXPECT_FALSE(serializer_.WritePlainElement(names_, Name("City"), std::string(before, 'x').append(other) + "xyz"))
          << before;
    }
  }
  EXPECT_EQ(Written(), "");
}

TEST_F(SerializerElementTest, NamesMayBeOfAnyLengthAndOutsideAscii) {
  std::string expected;
  for (const std::string_view name : {"a", "SoftwareCertificateNumber", "n:Line"}) {
    Write(Name(name), "x");
    expected.append("<").append(name).append(">x</").append(name).append(">");
  }
  for (const size_t length : {NameTable::kShort - 1, NameTable::kShort, NameTable::kShort + 1, size_t{300}}) {
    const std::string name(length, 'n');
    Write(Name(name), "x");
    expected += "<" + name + ">x</" + name + ">";
  }
  Write(Name("Preço€"), "x");
  EXPECT_EQ(Written(), expected + "<Pre\xE7o\x80>x</Pre\xE7o\x80>");
}

TEST_F(SerializerElementTest, ElementsComeOutWholeWhereverTheyMeetTheEndOfTheBuffer) {
  constexpr std::string_view kElement = "<NetTotal>2667.75</NetTotal>";
  constexpr size_t kElements = 20'000;  // more than two buffers full
  const std::string expected = Repeated(kElement, kElements);
  for (size_t pad = 0; pad < kElement.size(); ++pad) {
    serializer_.Write(std::string(pad, 'x'));
    for (size_t i = 0; i < kElements; ++i) Write(Name("NetTotal"), "2667.75");
    EXPECT_TRUE(Written() == std::string(pad, 'x') + expected) << pad;
    sink_.text.clear();
  }
}

TEST_F(SerializerElementTest, ATextLongerThanTheBufferIsWrittenInPieces) {
  const std::string text(1'000'000, 'x');
  EXPECT_FALSE(serializer_.WritePlainElement(names_, Name("City"), text));
  Write(Name("City"), text);
  EXPECT_TRUE(Written() == "<City>" + text + "</City>");
}

TEST(SerializerTest, AnElementAloneEscapesNothingButMarkup) {
  const Parsing parsing;
  Document document;
  parsing.Load(document, "<a><b k='&quot;&#10;'>x&#13;\"<c/>&lt;&gt;&amp; Ł<!--é--></b>behind</a>");
  EXPECT_EQ(SerializedXml(document.FirstChild(document.Root(), "b")),
            "<b k=\"&quot;&#10;\">x\r\"<c/>&lt;&gt;&amp; Ł<!--é--></b>");
}

TEST(SerializerTest, AnElementAloneEndsBeforeItsSiblings) {
  const Parsing parsing;
  Document document;
  parsing.Load(document, "<a><b>x</b><c>y</c><d/>z</a>");
  const auto child = [&](std::string_view name) { return document.FirstChild(document.Root(), name); };
  EXPECT_EQ(SerializedXml(child("b")), "<b>x</b>");
  EXPECT_EQ(SerializedXml(child("c")), "<c>y</c>");
  EXPECT_EQ(SerializedXml(child("d")), "<d/>");
}

TEST(SerializerTest, AnEmptyDocumentIsItsDeclaration) {
  EXPECT_EQ(testing::BytesOf(Document()), "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n");
}

TEST(SerializerTest, WhatTheSinkThrowsComesThrough) {
  struct FullSink : ByteSink {
    void Write(std::string_view) override { throw std::string("full"); }
  } sink;
  Document document;
  document.AppendElement(Element(), "a");
  EXPECT_THROW(WriteDocumentTo(sink, document), std::string);
}

// Any tree that a file can hold comes back from its file as it was.

struct Tree {
  NodeKind kind = NodeKind::kElement;
  std::string name;
  std::string text;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<Tree> children;

  friend bool operator==(const Tree&, const Tree&) = default;
};

void showValue(const Tree& tree, std::ostream& out) {
  out << "{" << static_cast<int>(tree.kind) << " " << tree.name;
  for (const auto& [name, value] : tree.attributes) out << " " << name << "='" << value << "'";
  out << " '" << tree.text << "'";
  for (const Tree& child : tree.children) showValue(child, out);
  out << "}";
}

void Append(Document& document, Element parent, const Tree& tree) {
  if (tree.kind != NodeKind::kElement) {
    document.AppendText(parent, tree.kind, tree.text, tree.name);
    return;
  }
  const Element element = document.AppendElement(parent, tree.name);
  for (const auto& [name, value] : tree.attributes) document.AppendAttribute(element, name, value);
  for (const Tree& child : tree.children) Append(document, element, child);
}

Tree ReadTree(const Document& document, const Node* node) {
  Tree tree;
  tree.kind = node->Kind();
  if (node->Kind() != NodeKind::kText) tree.name = document.Names().Text(node->Name());
  if (node->Kind() != NodeKind::kElement) {
    tree.text = node->Text();
    return tree;
  }
  if (node->HoldsText()) {
    if (!node->Text().empty()) tree.children.push_back({NodeKind::kText, "", std::string(node->Text()), {}, {}});
    return tree;
  }
  for (const Node* child = document.First(node); child != nullptr; child = document.At(child->next)) {
    if (child->Kind() == NodeKind::kAttribute) {
      tree.attributes.emplace_back(document.Names().Text(child->Name()), child->Text());
    } else {
      tree.children.push_back(ReadTree(document, child));
    }
  }
  return tree;
}

rc::Gen<std::string> AnyText(const std::vector<std::string>& characters) {
  return rc::gen::map(rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(characters)),
                      [](const std::vector<std::string>& parts) {
                        std::string text;
                        for (const std::string& part : parts) text += part;
                        return text;
                      });
}

// Parts that a wrong escape, encoding or cut would show on.
const std::vector<std::string> kTextParts = {"a",      " ",      "\t", "\n",  "\r",   "&",     "<",         ">",
                                             "\"",     "'",      "]]", "]]>", "é",    "€",     "Ł",         "😀",
                                             "\u0081", "\u0080", "--", "?>",  "&lt;", "&#10;", "<![CDATA[", "\uFFFD"};
const std::vector<std::string> kCDataParts = {"a", " ", "\n", "&", "<", "é", "Ł", "😀", "]]", "--", "&#10;"};
const std::vector<std::string> kCommentParts = {"a", " ", "\n", "&", "<", ">", "é", "€", "]]>", "?>"};
const std::vector<std::string> kInstructionParts = {"a", "=", "\"", "&", "<", "é", "]]>", "--"};
const std::vector<std::string> kNames = {"a", "b", "Journal", "ação", "x-1", "p:b", "p:Journal", "_"};
const std::vector<std::string> kAttributeNames = {"k", "l", "p:k", "xml:lang", "é"};

Tree AnyTree(int depth);

Tree AnyChild(int depth) {
  const int kind = *rc::gen::inRange(0, depth > 0 ? 8 : 5);
  switch (kind) {
    case 0:
    case 1:
      return {NodeKind::kText, "", *AnyText(kTextParts), {}, {}};
    case 2:
      return {NodeKind::kCData, "", *AnyText(kCDataParts), {}, {}};
    case 3:
      return {NodeKind::kComment, "", *AnyText(kCommentParts), {}, {}};
    case 4:
      return {NodeKind::kInstruction, *rc::gen::elementOf(kNames), *AnyText(kInstructionParts), {}, {}};
    default:
      return AnyTree(depth - 1);
  }
}

Tree AnyTree(int depth) {
  Tree tree;
  tree.name = *rc::gen::elementOf(kNames);
  for (const std::string& name : kAttributeNames) {
    if (*rc::gen::inRange(0, 3) == 0) tree.attributes.emplace_back(name, *AnyText(kTextParts));
  }
  const int count = *rc::gen::inRange(0, 5);
  for (int i = 0; i < count; ++i) {
    Tree child = AnyChild(depth);
    // A file cannot tell a text from two, nor none from an empty one.
    const bool afterText = !tree.children.empty() && tree.children.back().kind == NodeKind::kText;
    if (child.kind == NodeKind::kText && (child.text.empty() || afterText)) continue;
    // An instruction's name cannot have a prefix.
    if (child.kind == NodeKind::kInstruction) std::erase(child.name, ':');
    tree.children.push_back(std::move(child));
  }
  return tree;
}

// A section is interrupted for a character that the code page lacks, so it comes back as several.
Tree WithoutSections(Tree tree) {
  std::vector<Tree> children;
  for (Tree& child : tree.children) {
    Tree plain = WithoutSections(std::move(child));
    if (plain.kind == NodeKind::kCData) plain.kind = NodeKind::kText;
    if (plain.kind == NodeKind::kText && plain.text.empty()) continue;
    if (plain.kind == NodeKind::kText && !children.empty() && children.back().kind == NodeKind::kText) {
      children.back().text += plain.text;
    } else {
      children.push_back(std::move(plain));
    }
  }
  tree.children = std::move(children);
  return tree;
}

void ExpectSurvives(bool utf8) {
  const Parsing parsing;
  const bool holds = rc::check([&] {
    Tree tree = AnyTree(3);
    tree.attributes.insert(tree.attributes.begin(), {"xmlns:p", "urn:p"});
    if (utf8) tree.children.push_back({NodeKind::kComment, "", "Ł", {}, {}});
    Document document;
    Append(document, Element(), tree);
    const std::string bytes = testing::BytesOf(document);

    Document back;
    parsing.Load(back, bytes);
    const Tree read = ReadTree(back, back.Root().node());
    if (utf8) {
      RC_ASSERT(read == tree);
    } else {
      RC_ASSERT(WithoutSections(read) == WithoutSections(tree));
    }
    RC_ASSERT(testing::BytesOf(back) == bytes);
  });
  EXPECT_TRUE(holds);
}

TEST(SerializerTest, AnyTreeSurvivesAFileInUtf8) { ExpectSurvives(true); }
TEST(SerializerTest, AnyTreeSurvivesAFileInWindows1252) { ExpectSurvives(false); }

}  // namespace
}  // namespace zevo
