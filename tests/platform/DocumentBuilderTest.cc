// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/DocumentBuilder.h>

#include <cstdint>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>

#include "tests/platform/Parsing.h"
#include "tests/platform/RichFile.h"

namespace zevo {
namespace {

using testing::Parsing;
using testing::Repeated;

std::string Declared(std::string_view encoding, std::string_view content) {
  return std::string("<?xml version=\"1.0\" encoding=\"")
      .append(encoding)
      .append("\"?>\n")
      .append(content)
      .append("\n");
}

// A document as other software writes it, in UTF-8, and the exact bytes with which it is saved after it was opened.
struct Saved {
  std::string_view name;
  std::string read;
  std::string written;
};

void PrintTo(const Saved& row, std::ostream* out) { *out << row.name; }

Saved Unchanged(std::string_view name, std::string_view content) {
  return {name, std::string(content), Declared("windows-1252", content)};
}

Saved Changed(std::string_view name, std::string_view content, std::string_view written) {
  return {name, std::string(content), Declared("windows-1252", written)};
}

Saved InUtf8(std::string_view name, std::string_view content) {
  return {name, std::string(content), Declared("utf-8", content)};
}

class DocumentBuilderSavedTest : public ::testing::TestWithParam<Saved> {};

TEST_P(DocumentBuilderSavedTest, IsWrittenExactly) {
  const Parsing parsing;
  Document document;
  parsing.Load(document, GetParam().read);
  EXPECT_EQ(testing::BytesOf(document), GetParam().written);
}

TEST_P(DocumentBuilderSavedTest, DoesNotChangeAnyMoreWhenOpenedAgain) {
  const Parsing parsing;
  Document document;
  parsing.Load(document, GetParam().written);
  EXPECT_EQ(testing::BytesOf(document), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    All, DocumentBuilderSavedTest,
    ::testing::Values(
        Unchanged("Elements", "<a><b><c/></b><d>x</d></a>"),
        Unchanged("DefaultNamespace", "<a xmlns=\"urn:a\"><b xmlns=\"\"><c xmlns=\"urn:c\"/></b></a>"),
        Unchanged("Prefixes", "<p:a xmlns:p=\"urn:p\" xmlns:q=\"urn:q\" q:k=\"1\" p:k=\"2\" k=\"3\"><q:b/></p:a>"),
        Unchanged("NamespaceDeclaredAgain", "<p:a xmlns:p=\"urn:p\"><p:b xmlns:p=\"urn:p\"/></p:a>"),
        Unchanged("ForeignElements",
                  "<a xmlns=\"urn:a\">\n  <x:b xmlns:x=\"urn:x\" x:k=\"v\"><x:c>1</x:c></x:b>\n</a>"),
        Unchanged("AmpersandInANamespace", "<a xmlns=\"urn:a?b=1&amp;c=2\" xmlns:p=\"urn:p?&amp;amp;\"/>"),
        Unchanged("XmlAttributes", "<a xml:lang=\"pt\" xml:space=\"preserve\"> </a>"),
        Unchanged("SchemaLocation",
                  "<a xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
                  " xsi:schemaLocation=\"urn:a a.xsd\"/>"),
        Unchanged("AttributesInTheirOrder", "<a z=\"1\" y=\"2\" x=\"3\" b=\"4\" a=\"5\"/>"),
        Unchanged("EscapesInAttributes", "<a k=\"&lt;&amp;&gt;&quot;'\"/>"),
        Unchanged("WhiteSpaceReferencesInAttributes", "<a k=\"1&#10;2&#9;3&#13;4\"/>"),
        Changed("WhiteSpaceInAttributes", "<a k=\"1\n2\t3\r\n4\"/>", "<a k=\"1 2 3 4\"/>"),
        Changed("SingleQuotes", "<a k='\"' l='&apos;'/>", "<a k=\"&quot;\" l=\"'\"/>"),
        Changed("EntitiesInText", "<a>&lt;&gt;&amp;&apos;&quot;</a>", "<a>&lt;&gt;&amp;'\"</a>"),
        Changed("CharacterReferences", "<a k='&#65;'>&#x41;&#xE7;</a>", "<a k=\"A\">A\xE7</a>"),
        Unchanged("ReturnInText", "<a>x&#13;y&#13;\n</a>"),
        Changed("LineEnds", "<a>\r\n<b/>\r</a>\r\n", "<a>\n<b/>\n</a>"),
        Unchanged("EmptyElementsOfOneTag", "<a><b/><c k=\"v\"/></a>"),
        Unchanged("EmptyElementsOfTwoTags", "<a><b></b><c k=\"v\"></c></a>"),
        Unchanged("EmptyRootOfTwoTags", "<a xmlns=\"urn:a\"></a>"),
        Changed("BlanksInTags", "<a  k = 'v'\n l='w' ><b ></b ><c /></a >", "<a k=\"v\" l=\"w\"><b></b><c/></a>"),
        Unchanged("WhiteSpaceBetweenElements", "<a>\n\t<b/>\n\t\n  <b/> </a>"),
        Unchanged("WhiteSpaceOnly", "<a>   </a>"), Unchanged("MixedContent", "<a>1<b>2</b>3<b/>4</a>"),
        Unchanged("Comments", "<!-- before -->\n<a><!--inside--><b/><!-- & < > \" --></a>\n<!-- after -->"),
        Changed("CommentsOnOneLine", "<!--1--><!--2--><a/><!--3-->", "<!--1-->\n<!--2-->\n<a/>\n<!--3-->"),
        Unchanged("Instructions", "<?style href=\"a.xsl\"?>\n<a><?t?><?u d ? > ?></a>\n<?end?>"),
        Unchanged("CData", "<a><![CDATA[<x> & \" ]] ]> > ]]]></a>"),
        Unchanged("CDataAmongText", "<a>x<![CDATA[y]]>z<![CDATA[]]></a>"),
        Unchanged("CDataTwice", "<a><![CDATA[x]]]]><![CDATA[>y]]></a>"),
        Changed("CDataBeyondWindows1252", "<a><![CDATA[<x>Łódź</x>]]></a>",
                "<a><![CDATA[<x>]]>&#321;<![CDATA[\xF3"
                "d]]>&#378;<![CDATA[</x>]]></a>"),
        Changed("Windows1252", "<a k=\"€\">São “João” €</a>", "<a k=\"\x80\">S\xE3o \x93Jo\xE3o\x94 \x80</a>"),
        Changed("UndefinedInWindows1252", "<a k=\"\u0081\">\u008D\u008F\u0090\u009D</a>",
                "<a k=\"&#129;\">&#141;&#143;&#144;&#157;</a>"),
        Changed("TextBeyondWindows1252", "<a>Łódź 😀 → \u0080</a>",
                "<a>&#321;\xF3"
                "d&#378; &#128512; &#8594; &#128;</a>"),
        Changed("AttributeBeyondWindows1252", "<a k=\"Łódź\"/>",
                "<a k=\"&#321;\xF3"
                "d&#378;\"/>"),
        InUtf8("CommentBeyondWindows1252", "<a><!-- Łódź -->São €</a>"),
        InUtf8("InstructionBeyondWindows1252", "<a><?t Łódź?>São €</a>"),
        InUtf8("TargetBeyondWindows1252", "<a><?ź?>São €</a>"),
        InUtf8("NameBeyondWindows1252", "<Łódź>São €<![CDATA[Łódź]]></Łódź>"),
        InUtf8("AttributeNameBeyondWindows1252", "<a ź=\"é\"/>"),
        InUtf8("PrefixBeyondWindows1252", "<ź:a xmlns:ź=\"urn:z\"/>"),
        Saved{"Standalone", "<?xml version='1.0' standalone='yes'?><a/>",
              "<?xml version=\"1.0\" encoding=\"windows-1252\" standalone=\"yes\"?>\n<a/>\n"},
        Saved{"NotStandalone", "<?xml version='1.0' standalone='no'?><a/>", Declared("windows-1252", "<a/>")},
        Saved{"OtherEncoding", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE7</a>",
              Declared("windows-1252", "<a>\xE7</a>")},
        Saved{"Utf16", "\xFF\xFE" + testing::InUtf16LittleEndian("<a>ç€</a>"),
              Declared("windows-1252", "<a>\xE7\x80</a>")}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(DocumentBuilderTest, EveryKindOfContentAtOnce) {
  const Parsing parsing;
  Document document;
  parsing.Load(document, testing::kRichFile);
  EXPECT_EQ(testing::BytesOf(document),
            "<?xml version=\"1.0\" encoding=\"windows-1252\" standalone=\"yes\"?>\n"
            "<!-- feito \xE0 m\xE3o -->\n"
            "<?style type=\"a\"?>\n"
            "<a xmlns:p=\"urn:p\" p:k=\"1 &lt; 2 \x80\" l=\"&quot; \">\n"
            "  <p:b>S\xE3o &amp; Jo\xE3o, 12 \x80 A&#128512;</p:b>\n"
            "  <c/><c></c>\n"
            "  <d><![CDATA[<x> & ]] \x80]]>fim<!--no fim--><?alvo?></d>\n"
            "  <e xmlns=\"urn:e\"><f xmlns=\"\" g=\"\"/></e>\n"
            "</a>\n");
}

TEST(DocumentBuilderTest, TheTextOfALeafIsHeldByItsElement) {
  const Parsing parsing;
  Document document;
  parsing.Load(document, "<a><b>x&amp;y</b></a>");
  EXPECT_TRUE(document.FirstChild(document.Root(), "b").node()->HoldsText());
}

TEST(DocumentBuilderTest, TextThatComesInManyPiecesIsOne) {
  const Parsing parsing;
  const std::string piece = "São &amp; João &#8364; ";
  Document document;
  parsing.Load(document, "<a><b>" + Repeated(piece, 50'000) + "</b><c>fim</c></a>");
  EXPECT_TRUE(document.FirstChild(document.Root(), "b").LeadingText() == Repeated("São & João € ", 50'000));
  EXPECT_EQ(document.FirstChild(document.Root(), "c").LeadingText(), "fim");
}

TEST(DocumentBuilderTest, NoCharactersAreNoText) {
  Document document;
  DocumentBuilder builder(document, Indentation::kKept);
  const char* const name = "a";
  builder.StartElement({name, nullptr}, {});
  builder.Characters({});
  builder.EndElement({name, nullptr});
  EXPECT_EQ(testing::BytesOf(document), Declared("windows-1252", "<a></a>"));
}

TEST(DocumentBuilderTest, WhiteSpaceOfEveryLengthAndKindIsKept) {
  const Parsing parsing;
  std::string content = "<a>";
  for (size_t length = 1; length < 100; ++length) {
    content += "<b/>" + std::string(length, ' ') + "<b/>" + "\n" + std::string(length - 1, '\t') + "<b/>" +
               std::string(length, 'x') + "<b/>\n" + std::string(length - 1, ' ');
  }
  content += "</a>";
  Document document;
  parsing.Load(document, content);
  EXPECT_EQ(testing::BytesOf(document), Declared("windows-1252", content));
}

TEST(DocumentBuilderTest, OnlyIndentationBehindAnElementIsLeftOut) {
  struct Row {
    const char* content;
    const char* built;
  };
  const Row kRows[] = {
      {"<a>\n <b>x</b>\n <b/>\n <c>\n  <b/>\n </c>\n</a>", "<a>\n <b>x</b><b/><c>\n  <b/></c></a>"},
      {"<a><b/>\n\t<b/>\r\n</a>", "<a><b/><b/></a>"},
      {"<a><b/>\n <!--x-->\n <?y?>\n <b/>\n <![CDATA[z]]></a>", "<a><b/><!--x-->\n <?y?>\n <b/><![CDATA[z]]></a>"},
      {"<a><b/>\n x<b/> <b/>\n \t<b/>\n\n<b/>\n&#9;</a>", "<a><b/>\n x<b/> <b/>\n \t<b/>\n\n<b/></a>"},
      {"<a k=\"v\">\n <b>\n</b></a>", "<a k=\"v\">\n <b>\n</b></a>"},
  };
  const testing::TemporaryFolder folder;
  for (const Row& row : kRows) {
    Document document;
    DocumentBuilder builder(document, Indentation::kLeftOut);
    Raise(Parser(folder.Write("a.xml", row.content)).Parse(builder), "Test");
    EXPECT_EQ(testing::BytesOf(document), Declared("windows-1252", row.built));
  }
}

TEST(DocumentBuilderTest, SharedWhiteSpaceDoesNotChangeWithOneElement) {
  const Parsing parsing;
  Document document;
  parsing.Load(document, "<a>\n <b k='v'>\n </b>\n <c>\n </c>\n </a>");
  document.SetText(document.FirstChild(document.Root(), "b"), "x");
  document.SetText(document.FirstChild(document.Root(), "c"), "y");
  EXPECT_EQ(testing::BytesOf(document), Declared("windows-1252", "<a>\n <b k=\"v\">x</b>\n <c>y</c>\n </a>"));
}

TEST(DocumentBuilderTest, ATextMayBeginAsIndentationDoes) {
  Document document;
  DocumentBuilder builder(document, Indentation::kKept);
  uint32_t names = 1;
  const auto element = [&](const char* name, std::initializer_list<std::string_view> pieces) {
    const ParsedName parsed{name, nullptr, ++names};
    builder.StartElement(parsed, {});
    for (const std::string_view piece : pieces) builder.Characters(piece);
    builder.EndElement(parsed);
  };
  builder.StartElement({"a", nullptr, 1}, {});
  element("b", {"\n "});
  builder.Characters("\n ");
  element("c", {"\n", " ", "x"});
  builder.Characters("\n");
  builder.Characters(" y");
  element("d", {"x", "\n "});
  builder.Characters("\n ");
  builder.Characters("\n ");
  builder.EndElement({"a", nullptr, 1});
  EXPECT_EQ(testing::BytesOf(document),
            Declared("windows-1252", "<a><b>\n </b>\n <c>\n x</c>\n y<d>x\n </d>\n \n </a>"));
  document.SetText(document.FirstChild(document.Root(), "b"), "x");
  EXPECT_EQ(document.FirstChild(document.Root(), "b").AllText(), "x");
}

// Short texts lie in their nodes, longer ones apart.
TEST(DocumentBuilderTest, TextsOfEveryLengthAreKept) {
  const Parsing parsing;
  std::string content = "<a>";
  for (size_t length = 0; length < 10; ++length) {
    const std::string text = std::string("0123456789").substr(0, length);
    content += "<e k=\"" + text + "\"";
    content += (length == 0 ? "/>" : ">" + text + "</e>") + text + "<e/>" + text + "<!--" + text + "-->";
    content += text + "<?t" + (length == 0 ? "" : " ") + text + "?><![CDATA[" + text + "]]>";
  }
  content += "</a>";
  Document document;
  parsing.Load(document, content);
  EXPECT_EQ(testing::BytesOf(document), Declared("windows-1252", content));
}

// An element that came without content takes what any other does.
TEST(DocumentBuilderTest, AnEmptyElementMayBeFilled) {
  const Parsing parsing;
  Document document;
  parsing.Load(document, "<a><b/><c/><d/><e></e><f/><i></i><j></j></a>");
  const Element root = document.Root();
  const Element b = document.FirstChild(root, "b");
  EXPECT_EQ(b.LeadingText(), "");
  EXPECT_FALSE(b.Attribute("k"));
  for (const std::string_view text : {"", "text", "a longer text", "x", ""}) {
    document.SetText(b, text);
    EXPECT_EQ(b.LeadingText(), text);
    EXPECT_EQ(b.AllText(), text);
  }
  document.SetText(b, "b");
  document.AppendAttribute(document.FirstChild(root, "c"), "k", "a long value");
  const Element d = document.FirstChild(root, "d");
  for (const std::string_view key : {"1", "2"}) {
    const Element child = document.AppendElement(d, "Journal");
    document.SetText(document.AppendElement(child, "JournalID"), key);
    EXPECT_EQ(document.FirstChildByKey(d, "Journal", "JournalID", key), child);
  }
  document.AppendText(document.FirstChild(root, "e"), NodeKind::kComment, "e");
  document.SetText(document.FirstChild(root, "e"), "e");
  document.AppendElement(document.FirstChild(root, "f"), "g");
  document.AppendAttribute(document.FirstChild(root, "i"), "k", "v");
  document.AppendElement(document.FirstChild(root, "j"), "k");
  document.AppendElement(root, "h");
  EXPECT_EQ(testing::BytesOf(document),
            Declared("windows-1252",
                     "<a><b>b</b><c k=\"a long value\"/><d><Journal><JournalID>1</JournalID></Journal>"
                     "<Journal><JournalID>2</JournalID></Journal></d><e>e</e><f><g/></f>"
                     "<i k=\"v\"></i><j><k/></j><h/></a>"));
  document.Clear();
  parsing.Load(document, "<a><b/></a>");
  document.AppendElement(document.FirstChild(document.Root(), "b"), "c");
  EXPECT_EQ(testing::BytesOf(document), Declared("windows-1252", "<a><b><c/></b></a>"));
}

TEST(DocumentBuilderTest, AnEmptyRootMayBeFilled) {
  const Parsing parsing;
  Document document;
  parsing.Load(document, "<a/>");
  for (int i = 0; i < 3; ++i) document.AppendElement(document.Root(), "b");
  EXPECT_EQ(testing::BytesOf(document), Declared("windows-1252", "<a><b/><b/><b/></a>"));
}

TEST(DocumentBuilderTest, ADocumentIsRefilledFileAfterFile) {
  const Parsing parsing;
  Document document;
  for (int i = 0; i < 50; ++i) {
    const std::string number = std::to_string(i);
    const std::string content = "<a>\n <b>" + number + "</b>\n <n" + number + " k=\"" + number + "\"/>\n</a>";
    document.Clear();
    parsing.Load(document, content);
    EXPECT_EQ(testing::BytesOf(document), Declared("windows-1252", content));
  }
}

TEST(DocumentBuilderTest, ClearedItBeginsAnewInTheSameParse) {
  Document document;
  DocumentBuilder builder(document, Indentation::kKept);
  const char* const name = "a";
  for (const std::string_view text : {"\n ", "\n ", "longer text", "\n "}) {
    builder.Clear();
    builder.StartElement({name, nullptr}, {});
    builder.Characters(text);
    builder.StartElement({name, nullptr}, {});
    builder.Characters("begun");
    builder.EndElement({name, nullptr});
    builder.Characters(text);
    builder.EndElement({name, nullptr});
    EXPECT_EQ(document.Root().AllText(), std::string(text).append("begun").append(text));
    builder.StartElement({name, nullptr}, {});
    builder.Characters("left open");
  }
}

}  // namespace
}  // namespace zevo
