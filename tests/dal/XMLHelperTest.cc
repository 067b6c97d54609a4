// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <zevo/dal/ElementName.h>
#include <zevo/dal/LoadDocument.h>
#include <zevo/dal/XMLHelper.h>
#include <zevo/platform/Document.h>
#include <zevo/platform/Serializer.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using testing::TemporaryFolder;

struct Row {
  std::string_view xml;
  std::string_view text;
};

class XMLHelperTest : public ::testing::Test {
 protected:
  Element Parse(std::string_view xml) {
    document_ = LoadDocument(folder_.Write("document.xml", xml), Indentation::kKept);
    return document_->Root();
  }
  // Both ways of reading a City must agree with the row.
  void ExpectCity(std::string_view xml, std::string_view text) {
    const Element root = Parse(xml);
    EXPECT_EQ(ElementText("City", root), text) << xml;
    EXPECT_EQ(ElementTexts(root)["City"], text) << xml;
  }

  TemporaryFolder folder_;
  std::unique_ptr<Document> document_;
};

TEST_F(XMLHelperTest, ReadsTheTextOfAnElement) {
  constexpr Row kRows[] = {
      {"<Header><City>Porto</City></Header>", "Porto"},
      {"<Header><City>a&amp;b</City></Header>", "a&b"},
      {"<Header><City>&lt;b&gt; &quot;c&quot; &apos;d&apos;</City></Header>", "<b> \"c\" 'd'"},
      {"<Header><City>&amp;lt;</City></Header>", "&lt;"},
      {"<Header><City>&amp;amp;</City></Header>", "&amp;"},
      {"<Header><City>&amp;quot;</City></Header>", "\""},
      {"<Header><City>&#233;&#8364;</City></Header>", "é€"},
      {"<City>Porto</City>", "Porto"},
  };
  for (const Row& row : kRows) ExpectCity(row.xml, row.text);
}

TEST_F(XMLHelperTest, WithoutSuchATagTheTextIsEmpty) {
  constexpr Row kRows[] = {
      {"<Header/>", ""},
      {"<Header>Porto</Header>", ""},
      {"<Header><CITY>Porto</CITY></Header>", ""},
      {"<Header><CityName>Porto</CityName></Header>", ""},
      {"<Header><City/></Header>", ""},
      {"<Header><City></City></Header>", ""},
      {"<Header><City a='1'>Porto</City></Header>", ""},
      {"<Header xmlns:p='urn:p'><p:City>Porto</p:City></Header>", ""},
      {"<Header><City xmlns='urn:x'>Porto</City></Header>", ""},
      {"<Header>&lt;City&gt;Porto&lt;/City&gt;</Header>", ""},
      {"<Header a='&lt;City>Porto'/>", ""},
  };
  for (const Row& row : kRows) ExpectCity(row.xml, row.text);
}

TEST_F(XMLHelperTest, TheFirstPlainStartTagWinsWhateverItsDepth) {
  constexpr Row kRows[] = {
      {"<Header><Address><City>deep</City></Address><City>shallow</City></Header>", "deep"},
      {"<Header><City>first</City><City>second</City></Header>", "first"},
      {"<Header><City/><City>second</City></Header>", "second"},
      {"<Header><City></City><City>second</City></Header>", ""},
      {"<Header><City><!----></City><City>second</City></Header>", ""},
      {"<Header><City a='1'></City><City>second</City></Header>", "second"},
      {"<Header xmlns:p='urn:p'><p:City></p:City><City>second</City></Header>", "second"},
      {"<Header><City\n></City ><!-- c --><City>second</City></Header>", ""},
      {"<Header><City/><!-- c --><City>second</City></Header>", "second"},
      {"<Header><City a='1'>first</City><City>second</City></Header>", "second"},
      {"<Header><City a='1'><City>inner</City></City></Header>", "inner"},
      {"<City><City>inner</City></City>", ""},
      {"<City>outer<City>inner</City></City>", "outer"},
  };
  for (const Row& row : kRows) ExpectCity(row.xml, row.text);
}

TEST_F(XMLHelperTest, TheTextEndsAtTheNextMarkup) {
  constexpr Row kRows[] = {
      {"<Header><City><Region>x</Region>late</City></Header>", ""},
      {"<Header><City>early<Region>x</Region>late</City></Header>", "early"},
      {"<Header><City>early<!-- c -->late</City></Header>", "early"},
      {"<Header><City>early<![CDATA[c]]>late</City></Header>", "early"},
      {"<Header><City><![CDATA[c]]></City></Header>", ""},
      {"<Header><City>early<?p i?>late</City></Header>", "early"},
  };
  for (const Row& row : kRows) ExpectCity(row.xml, row.text);
}

TEST_F(XMLHelperTest, TagsInCommentsSectionsAndInstructionsAreFoundToo) {
  constexpr Row kRows[] = {
      {"<Header><!--<City>hidden</City>--><City>Porto</City></Header>", "hidden"},
      {"<Header><![CDATA[<City>hidden</City>]]><City>Porto</City></Header>", "hidden"},
      {"<Header><?p <City>hidden</City>?><City>Porto</City></Header>", "hidden"},
      {"<Header><City>Porto</City><!--<City>hidden</City>--></Header>", "Porto"},
      {"<Header><!--<City>--><Region>x</Region></Header>", "-->"},
  };
  for (const Row& row : kRows) ExpectCity(row.xml, row.text);
}

TEST_F(XMLHelperTest, LineBreaksAndTabsBecomeSpacesAndSpacesAtTheEndsGoAway) {
  constexpr Row kRows[] = {
      {"<Header><City>  Vila  Real  </City></Header>", "Vila  Real"},
      {"<Header><City>\tVila\tReal\t</City></Header>", "Vila Real"},
      {"<Header><City>a&#13;&#10;b</City></Header>", "a b"},
      {"<Header><City>&#13;&#10;a&#13;&#10;</City></Header>", "a"},
      {"<Header><City>a\r\nb\r\n</City></Header>", "a b"},
      {"<Header><City>a&#13;b&#13;</City></Header>", "a b"},
      {"<Header><City>\ra\rb</City></Header>", "a b"},
      {"<Header><City>a&#10;b</City></Header>", "a b"},
      {"<Header><City>\n a\nb\n</City></Header>", "a b"},
      {"<Header><City>a&#13;\nb</City></Header>", "a b"},
      {"<Header><City>a\r&#10;b</City></Header>", "a  b"},
      {"<Header><City>a&#13;&#13;&#10;b</City></Header>", "a  b"},
      {"<Header><City>a\r\r\nb</City></Header>", "a  b"},
      {"<Header><City>a\n\rb</City></Header>", "a  b"},
      {"<Header><City>a&#10;&#13;b</City></Header>", "a  b"},
      {"<Header><City>a\n\t\nb</City></Header>", "a   b"},
      {"<Header><City>a longer text\nof &amp;quot;two&amp;quot; lines</City></Header>",
       "a longer text of \"two\" lines"},
      {"<Header><City>   </City></Header>", ""},
      {"<Header><City>&#160;a</City></Header>", "\u00A0a"},
  };
  for (const Row& row : kRows) ExpectCity(row.xml, row.text);
}

TEST_F(XMLHelperTest, NothingHasNoText) { EXPECT_EQ(ElementText("City", Element()), ""); }

TEST_F(XMLHelperTest, OnlyTheNodeIsSearchedAndNotWhatStandsAroundIt) {
  const Element root =
      Parse("<Header><City>before</City><Address><Region>Norte</Region></Address><City>x</City></Header>");
  const Element address = root.Owner().FirstChild(root, "Address");
  EXPECT_EQ(ElementText("City", address), "");
  ElementTexts texts(address);
  EXPECT_EQ(texts["City"], "");
  EXPECT_EQ(texts["Region"], "Norte");
}

TEST_F(XMLHelperTest, NamesMayBeAskedForInAnyOrderAndAgain) {
  ElementTexts texts(Parse("<Header><City>Porto</City><Region>a&#9;b</Region><Country>PT</Country></Header>"));
  EXPECT_EQ(texts["Country"], "PT");
  EXPECT_EQ(texts["City"], "Porto");
  EXPECT_EQ(texts["Email"], "");
  EXPECT_EQ(texts["Region"], "a b");
  EXPECT_EQ(texts["City"], "Porto");
}

constexpr std::array kNames = {ElementName("City"),    ElementName("Region"), ElementName("Country"),
                               ElementName("Address"), ElementName("Line"),   ElementName("Website")};

constexpr std::array<std::string_view, 26> kTexts = {
    "\n  ",   "\n\t",    "a",         "ção",        "€", " ",     "  ",     "\t",    "\n",
    "\r\n",   "\r",      "&",         "<",          ">", "\"",    "&quot;", "&amp;", "&lt;",
    "<City>", "</City>", "<Region>x", "&amp;quot;", "'", "&quot", "quot;",  "-"};
constexpr std::array<std::string_view, 8> kHidden = {
    "<City>h</City>", "<Region>", "</Region>", "<Country a='1'>", " ", "x", "> <", "<Line>&quot;\t</Line>"};

/// Lays a tree out as a tape of numbers tells.
class RandomTree {
 public:
  RandomTree(const std::vector<uint8_t>& tape, bool withHiddenTags) : tape_(tape) {
    open_.push_back(document_->AppendElement(Element(), kNames[0].Number()));
    written_.push_back(false);
    lastWasText_.push_back(false);
    while (at_ < tape_.size()) {
      const uint8_t step = Next();
      if (step % 16 < 5) {
        Open();
      } else if (step % 16 < 9) {
        Text();
      } else if (step % 16 < 12 || !withHiddenTags) {
        if (open_.size() > 1) Close(step % 2 == 0 ? EmptyForm::kOneTag : EmptyForm::kTwoTags);
      } else {
        Hide(step % 3);
      }
    }
  }

  Element Root() const { return document_->Root(); }

 private:
  uint8_t Next() { return at_ < tape_.size() ? tape_[at_++] : uint8_t{0}; }

  void Open() {
    if (open_.size() > 20) return;
    const std::string_view name = kNames[Next() % kNames.size()].Text();
    const bool prefixed = Next() % 8 == 0;
    const Element element =
        document_->AppendElement(open_.back(), prefixed ? "p:" + std::string(name) : std::string(name));
    if (Next() % 6 == 0) document_->AppendAttribute(element, "a", kTexts[Next() % kTexts.size()]);
    lastWasText_.back() = false;
    written_.push_back(Next() % 3 == 0);
    if (written_.back()) Document::SetEmptyForm(element, EmptyForm::kTwoTags);
    open_.push_back(element);
    lastWasText_.push_back(false);
  }

  void Close(EmptyForm form) {
    if (!written_.back()) document_->EndElement(open_.back(), form);
    written_.pop_back();
    open_.pop_back();
    lastWasText_.pop_back();
  }

  // Texts that follow each other are one text, as they are after parsing.
  void Text() {
    std::string text;
    for (int pieces = Next() % 4; pieces >= 0; --pieces) text += kTexts[Next() % kTexts.size()];
    if (lastWasText_.back()) return;
    document_->AppendText(open_.back(), NodeKind::kText, text);
    lastWasText_.back() = true;
  }

  void Hide(int kind) {
    const std::string_view text = kHidden[Next() % kHidden.size()];
    if (kind == 0) document_->AppendText(open_.back(), NodeKind::kComment, text);
    if (kind == 1) document_->AppendText(open_.back(), NodeKind::kCData, text);
    if (kind == 2) document_->AppendText(open_.back(), NodeKind::kInstruction, text, "target");
    lastWasText_.back() = false;
  }

  const std::vector<uint8_t>& tape_;
  size_t at_ = 0;
  std::unique_ptr<Document> document_ = NewDocument();
  std::vector<Element> open_;
  // Whether they are as the writer makes them, who tells the form at once, or as a parser does, who tells it at the
  // end.
  std::vector<bool> written_;
  std::vector<bool> lastWasText_;
};

void ExpectBothAgree(Element node, uint8_t firstAsked) {
  ElementTexts texts(node);
  for (size_t i = 0; i < kNames.size() * 2; ++i) {
    const ElementName name = kNames[(firstAsked + i * 5) % kNames.size()];
    RC_ASSERT(std::string(texts[name]) == ElementText(name.Text(), node));
  }
}

void ExpectBothAgreeInEveryNode(const std::vector<uint8_t>& tape, bool withHiddenTags, uint8_t firstAsked) {
  const RandomTree tree(tape, withHiddenTags);
  ExpectBothAgree(tree.Root(), firstAsked);
  for (const Element child : tree.Root().Children()) ExpectBothAgree(child, firstAsked);
}

std::vector<uint8_t> Tape() {
  return *rc::gen::scale(3, rc::gen::container<std::vector<uint8_t>>(rc::gen::arbitrary<uint8_t>()));
}

RC_GTEST_PROP(ElementTextsTest, ReadsWhatTheSerialisedXmlHolds, (uint8_t firstAsked)) {
  ExpectBothAgreeInEveryNode(Tape(), false, firstAsked);
}

RC_GTEST_PROP(ElementTextsTest, ReadsWhatTheSerialisedXmlHoldsWithTagsInCommentsSectionsAndInstructions,
              (uint8_t firstAsked)) {
  ExpectBothAgreeInEveryNode(Tape(), true, firstAsked);
}

std::vector<Element> ChildrenOf(Element parent) {
  std::vector<Element> children;
  for (const Element child : parent.Children()) children.push_back(child);
  return children;
}

void ExpectSameTexts(Element whole, Element lean) {
  for (const ElementName name : kNames) RC_ASSERT(ElementText(name.Text(), whole) == ElementText(name.Text(), lean));
  const std::vector<Element> inWhole = ChildrenOf(whole);
  const std::vector<Element> inLean = ChildrenOf(lean);
  RC_ASSERT(inWhole.size() == inLean.size());
  for (size_t i = 0; i < inWhole.size(); ++i) ExpectSameTexts(inWhole[i], inLean[i]);
}

RC_GTEST_PROP(ElementTextsTest, IndentationBehindAnElementIsPartOfNoText, ()) {
  const RandomTree tree(Tape(), true);
  std::string xml = SerializedXml(tree.Root());
  xml.insert(std::string_view("<City").size(), " xmlns:p='urn:p'");
  const TemporaryFolder folder;
  const std::string file = folder.Write("document.xml", "<?xml version='1.0' encoding='windows-1252'?>" + xml);
  const auto whole = LoadDocument(file, Indentation::kKept);
  const auto lean = LoadDocument(file, Indentation::kLeftOut);
  ExpectSameTexts(whole->Root(), lean->Root());
}

}  // namespace
}  // namespace zevo
