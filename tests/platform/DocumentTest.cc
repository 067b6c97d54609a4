// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/Document.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/Parsing.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

constexpr std::array<std::string_view, 3> kDocumentNames = {"AuditFile", "Journal", "JournalID"};

class DocumentTest : public ::testing::Test {
 protected:
  Element AddJournal(std::string_view id) {
    const Element journal = document_.AppendElement(root_, "Journal");
    document_.SetText(document_.AppendElement(journal, "JournalID"), id);
    return journal;
  }
  Element JournalOf(std::string_view id) { return document_.FirstChildByKey(root_, "Journal", "JournalID", id); }
  Element Add(Element parent, std::string_view name, std::string_view text = {}) {
    const Element element = document_.AppendElement(parent, name);
    if (!text.empty()) document_.SetText(element, text);
    return element;
  }
  static std::vector<std::string> NamesOf(const ElementRange& elements) {
    std::vector<std::string> names;
    for (const Element element : elements) names.emplace_back(element.Name());
    return names;
  }

  Document document_;
  Element root_ = document_.AppendElement(Element(), "AuditFile");
};

TEST_F(DocumentTest, AnElementIsOneWordAndNothingByDefault) {
  EXPECT_EQ(sizeof(Element), sizeof(void*));
  EXPECT_FALSE(Element());
}

TEST_F(DocumentTest, IsEmptyAtFirst) {
  const Document document;
  EXPECT_FALSE(document.Root());
}

TEST_F(DocumentTest, NumbersItsVocabularyFromOne) {
  Document document(kDocumentNames);
  EXPECT_EQ(document.AppendElement(Element(), 2).Name(), "Journal");
  EXPECT_EQ(document.Names().Find("JournalID"), 3u);
}

TEST_F(DocumentTest, ElementsStandInTheOrderInWhichTheyWereAppended) {
  Add(root_, "Header");
  const Element files = Add(root_, "MasterFiles");
  Add(root_, "Entries");
  Add(files, "Customer");
  EXPECT_EQ(document_.Root(), root_);
  EXPECT_THAT(NamesOf(root_.Children()), ElementsAre("Header", "MasterFiles", "Entries"));
  EXPECT_THAT(NamesOf(files.Children()), ElementsAre("Customer"));
  EXPECT_EQ(files.Parent(), root_);
  EXPECT_FALSE(root_.Parent());
  EXPECT_EQ(files.NextSibling().Name(), "Entries");
  EXPECT_FALSE(files.NextSibling().NextSibling());
  EXPECT_EQ(&files.Owner(), &document_);
}

TEST_F(DocumentTest, ChildrenPassOverEverythingThatIsNoElement) {
  document_.AppendAttribute(root_, "k", "v");
  document_.AppendText(root_, NodeKind::kText, "\n");
  Add(root_, "a");
  document_.AppendText(root_, NodeKind::kComment, "c");
  document_.AppendText(root_, NodeKind::kInstruction, "d", "t");
  Add(root_, "b");
  document_.AppendText(root_, NodeKind::kCData, "x");
  EXPECT_THAT(NamesOf(root_.Children()), ElementsAre("a", "b"));
  EXPECT_THAT(NamesOf(Element().Children()), ElementsAre());
}

TEST_F(DocumentTest, ElementsAreFoundByTheirLocalName) {
  Add(root_, "n1:Header");
  EXPECT_EQ(document_.FirstChild(root_, "Header").QualifiedName(), "n1:Header");
  EXPECT_EQ(document_.FirstChild(root_, "Header").Name(), "Header");
  EXPECT_FALSE(document_.FirstChild(root_, "n1"));
  EXPECT_TRUE(document_.MayHold(document_.Names().Find("Header")));
}

// Texts.

TEST_F(DocumentTest, SetTextReplacesTheTextOfALeaf) {
  const Element leaf = Add(root_, "leaf");
  for (const std::string_view text : {"one", "a longer text", "", "x", "two"}) {
    document_.SetText(leaf, text);
    EXPECT_EQ(leaf.LeadingText(), text);
    EXPECT_EQ(leaf.AllText(), text);
  }
}

TEST_F(DocumentTest, SetTextTakesAPartOfTheTextItReplaces) {
  const Element leaf = Add(root_, "leaf", "0123456789");
  document_.SetText(leaf, leaf.LeadingText().substr(3, 4));
  EXPECT_EQ(leaf.LeadingText(), "3456");
}

TEST_F(DocumentTest, SetTextKeepsAttributes) {
  const Element element = Add(root_, "e");
  document_.AppendAttribute(element, "k", "1");
  document_.AppendAttribute(element, "l", "2");
  for (const std::string_view text : {"one", "another", ""}) {
    document_.SetText(element, text);
    EXPECT_EQ(element.Attribute("k"), "1");
    EXPECT_EQ(element.Attribute("l"), "2");
    EXPECT_EQ(element.AllText(), text);
  }
  EXPECT_EQ(testing::BytesOf(document_),
            "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n"
            "<AuditFile><e k=\"1\" l=\"2\"/></AuditFile>\n");
}

TEST_F(DocumentTest, SetTextReplacesAllContent) {
  const Element element = Add(root_, "e");
  Add(element, "child", "x");
  document_.AppendText(element, NodeKind::kComment, "c");
  document_.SetText(element, "text");
  EXPECT_EQ(element.AllText(), "text");
  EXPECT_THAT(NamesOf(element.Children()), ElementsAre());
}

TEST_F(DocumentTest, TheTextOfALeafStaysInFrontOfWhatIsAppended) {
  const Element element = Add(root_, "e", "text");
  Add(element, "child", "x");
  EXPECT_EQ(element.LeadingText(), "text");
  EXPECT_EQ(element.AllText(), "textx");
  EXPECT_THAT(NamesOf(element.Children()), ElementsAre("child"));
}

TEST_F(DocumentTest, LeadingTextEndsAtTheFirstMarkup) {
  const testing::Parsing parsing;
  struct Row {
    std::string_view content;
    std::string_view leading;
    std::string_view all;
  };
  for (const Row& row : {
           Row{"", "", ""},
           Row{"x", "x", "x"},
           Row{"x &lt; y", "x < y", "x < y"},
           Row{" x ", " x ", " x "},
           Row{"x<b>y</b>z", "x", "xyz"},
           Row{"<b>y</b>z", "", "yz"},
           Row{"x<!--c-->y", "x", "xy"},
           Row{"<!--c-->y", "", "y"},
           Row{"x<?t d?>y", "x", "xy"},
           Row{"<![CDATA[y]]>z", "", "yz"},
           Row{"x<![CDATA[<y>]]>", "x", "x<y>"},
           Row{"<b><c>1</c><c k='9'>2</c></b>3", "", "123"},
       }) {
    for (const std::string attribute : {"", " k='v'"}) {
      Document document;
      parsing.Load(document, "<a><e" + attribute + ">" + std::string(row.content) + "</e><f>behind</f></a>");
      const Element element = document.FirstChild(document.Root(), "e");
      EXPECT_EQ(element.LeadingText(), row.leading) << row.content;
      EXPECT_EQ(element.AllText(), row.all) << row.content;
    }
  }
}

TEST_F(DocumentTest, AttributesAreAskedByTheirQualifiedName) {
  document_.AppendAttribute(root_, "p:k", "1");
  document_.AppendAttribute(root_, "l", "");
  EXPECT_EQ(root_.Attribute("p:k"), "1");
  EXPECT_EQ(root_.Attribute("l"), "");
  EXPECT_EQ(root_.Attribute("k"), std::nullopt);
  EXPECT_EQ(Add(root_, "leaf", "text").Attribute("l"), std::nullopt);
}

TEST_F(DocumentTest, TextsLargerThanABlockOfTheArenaAreKeptWhole) {
  std::vector<std::string> texts;
  for (const size_t size : {1u, 65'535u, 65'536u, 65'537u, 1'000'000u, 10u}) {
    texts.emplace_back(size, static_cast<char>('a' + texts.size()));
    Add(root_, "e", texts.back());
  }
  size_t at = 0;
  for (const Element element : root_.Children()) EXPECT_TRUE(element.LeadingText() == texts[at++]);
}

TEST_F(DocumentTest, ATextOfXmlIsCopiedWholeAndNoOtherText) {
  std::vector<std::string> texts;
  std::vector<std::string_view> copies;
  for (size_t length = 0; length <= 40; ++length) {
    for (const std::string_view last : {"~", "\t", "é", "€", "😀"}) {
      texts.push_back(std::string(length, 'x').append(last));
      copies.push_back(document_.CopyXmlText("City", texts.back()));
    }
    for (const std::string_view last : {std::string_view("\0", 1), {"\x1F"}, {"\xC3"}, {"\xEF\xBF\xBE"}}) {
      EXPECT_ERROR(document_.CopyXmlText("City", std::string(length, 'x').append(last)), RunTimeError::kInvalidCall,
                   "ZevoAdapters11");
    }
  }
  texts.emplace_back(100'000, 'x');
  copies.push_back(document_.CopyXmlText("City", texts.back()));
  EXPECT_TRUE(std::ranges::equal(copies, texts));
}

// The order of the file.

TEST_F(DocumentTest, FollowingWalksTheSubtreeInTheOrderOfTheFile) {
  const testing::Parsing parsing;
  Document document;
  parsing.Load(document, "<!--0--><a k='v'>1<b><c/>2</b><!--3--><d>4</d></a><!--5-->");
  const auto walk = [&](const Node* root) {
    std::string order;
    for (const Node* node = document.Following(root, root); node; node = document.Following(node, root)) {
      order += node->Kind() == NodeKind::kElement ? document.Names().Text(node->Name()) : node->Text();
    }
    return order;
  };
  EXPECT_EQ(walk(document.Top()), "0a1bc23d5");
  EXPECT_EQ(walk(document.Root().node()), "1bc23d");
  EXPECT_EQ(walk(document.FirstChild(document.Root(), "b").node()), "c2");
  EXPECT_EQ(walk(document.FirstChild(document.Root(), "d").node()), "");
}

// Clearing.

TEST_F(DocumentTest, ClearedItIsAsNewAndCanBeFilledAgain) {
  for (int round = 0; round < 5; ++round) {
    document_.Clear();
    EXPECT_FALSE(document_.Root());
    document_.standalone = true;
    root_ = document_.AppendElement(Element(), "AuditFile");
    EXPECT_FALSE(JournalOf("A"));
    EXPECT_FALSE(document_.FirstChild(root_, "Journal"));
    for (int i = 0; i < 10'000; ++i) AddJournal(std::to_string(round * 10'000 + i));
    EXPECT_EQ(JournalOf(std::to_string(round * 10'000 + 9'999)).Parent(), root_);
    EXPECT_FALSE(JournalOf(std::to_string(round * 10'000 - 1)));
    EXPECT_EQ(document_.FirstChild(root_, "Journal").AllText(), std::to_string(round * 10'000));
  }
  document_.Clear();
  EXPECT_FALSE(document_.standalone);
}

TEST_F(DocumentTest, WhatWasNotWindows1252IsForgottenWhenCleared) {
  document_.AppendText(root_, NodeKind::kComment, "Łódź");
  Add(root_, "Ulica_Łódź");
  document_.Clear();
  document_.AppendElement(Element(), "a");
  EXPECT_EQ(testing::BytesOf(document_), "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n<a/>\n");
}

TEST_F(DocumentTest, KnowsWhichNamesItCannotHold) {
  const uint32_t journal = document_.Names().Add("Journal");
  EXPECT_FALSE(document_.MayHold(journal));
  document_.AppendElement(root_, journal, "text");
  EXPECT_TRUE(document_.MayHold(journal));
  document_.Clear();
  EXPECT_FALSE(document_.MayHold(journal));
}

TEST_F(DocumentTest, KnowsWhetherThereIsOtherMarkup) {
  for (const NodeKind kind : {NodeKind::kText, NodeKind::kCData, NodeKind::kComment, NodeKind::kInstruction}) {
    EXPECT_FALSE(document_.MayHoldOtherMarkup());
    document_.AppendText(root_, kind, "text", kind == NodeKind::kInstruction ? "target" : "");
    EXPECT_EQ(document_.MayHoldOtherMarkup(), kind != NodeKind::kText);
    document_.Clear();
    root_ = document_.AppendElement({}, "root");
  }
}

}  // namespace
}  // namespace zevo
