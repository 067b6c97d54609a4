// SPDX-License-Identifier: Apache-2.0
// Files of every kind come to the same with the fast path and without it.
#include <gtest/gtest.h>
#include <zevo/Utf8.h>
#include <zevo/platform/File.h>
#include <zevo/platform/TextDecoder.h>

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/Numbered.h"
#include "tests/platform/Parsing.h"
#include "tests/platform/RichFile.h"
#include "tests/platform/fastpath/Telling.h"

namespace zevo {
namespace {

using namespace std::string_view_literals;
using testing::Telling;
using testing::WithFastPath;

class BothWays {
 public:
  /// Fails the test unless both ways tell the same. Gives what they tell.
  Telling TellWhole(std::string_view bytes) const {
    Telling alone = ToldByParser(bytes, false);
    EXPECT_EQ(alone.broken_rule, "");
    EXPECT_EQ(Difference(ToldByParser(bytes, true), alone), "");
    const std::string file = folder_.Write("file.xml", bytes);
    EXPECT_EQ(Difference(ToldByPulledParse(file, true), ToldByPulledParse(file, false)), "");
    return alone;
  }

  /// The same, also in small pieces.
  Telling Tell(std::string_view bytes) const {
    Telling alone = TellWhole(bytes);
    for (const size_t room : {size_t{16}, size_t{64}}) TellInPieces(bytes, room, alone);
    return alone;
  }

  /// The same of a parse of bytes in memory alone, which takes less time.
  void TellSoon(std::string_view bytes) const {
    const Telling alone = ToldByParser(bytes, false);
    EXPECT_EQ(Difference(ToldByParser(bytes, true), alone), "");
    TellInPieces(bytes, 24, alone);
  }

 private:
  static Telling ToldByParser(std::string_view bytes, bool on) {
    const WithFastPath way(on);
    return testing::ToldByParser(bytes);
  }
  static Telling ToldByPulledParse(const std::string& file, bool on) {
    const WithFastPath way(on);
    return testing::ToldByPulledParse(file);
  }
  // libxml2 reads some way ahead of what it tells: in small pieces more is told before what cannot be decoded.
  static void TellInPieces(std::string_view bytes, size_t room, const Telling& alone) {
    InputBytes input(bytes);
    TextDecoder decoder(input);
    std::array<char, 1024> piece;
    while (decoder.Read(piece.data(), piece.size()) > 0) continue;
    const Telling told = testing::ToldInPieces(bytes, room).told;
    if (decoder.fault() == TextDecoder::Fault::kNone) {
      EXPECT_EQ(Difference(told, alone), "") << room;
    } else {
      EXPECT_EQ(told.problem->number, alone.problem->number) << room;
    }
  }

  testing::TemporaryFolder folder_;
};

constexpr std::string_view kPlainDocument =
    "<?xml version='1.0'?>\r\n<!--é--><p:a xmlns:p='u' b=\"c\"><d>x &lt;\r\ny€</d>\n<d/><e><d >]] ></d></e ></p:a>\n";

/// What becomes of a document.
enum class Fate {
  kFast,     // taken on the fast path to its end
  kRight,    // well-formed, and left to libxml2
  kWrong,    // not well-formed
  kRefused,  // beyond what is taken at all
};

struct FatedDocument {
  Fate fate;
  std::string_view text;
};

// Each production of XML 1.0 and of Namespaces in XML 1.0, kept and broken.
constexpr FatedDocument kDocuments[] = {
    // Documents, prolog and what is behind the root.
    {Fate::kFast, "<a/>"},
    {Fate::kFast, "<!--b--><a/><!--c-->"},
    {Fate::kFast, " \t\r\n<a/>\n"},
    {Fate::kRight, "<?b?><a/><?c?>"},
    {Fate::kRight, "<?b c='d'>?><a e='f' g='h'/>"},
    {Fate::kRight, "<?b c='d' xmlns:e='f'/>?><a g='h'><i/></a>"},
    {Fate::kWrong, ""},
    {Fate::kWrong, " "},
    {Fate::kWrong, "x"},
    {Fate::kWrong, "<!--b-->"},
    {Fate::kWrong, "<?b?>"},
    {Fate::kWrong, "x<a/>"},
    {Fate::kWrong, "&#32;<a/>"},
    {Fate::kWrong, "<a/>x"},
    {Fate::kWrong, "<a/>&#32;"},
    {Fate::kWrong, "<a/><b/>"},
    {Fate::kWrong, "<a/><![CDATA[]]>"},
    {Fate::kWrong, "<a/></a>"},
    {Fate::kWrong, "<![CDATA[]]><a/>"},
    {Fate::kWrong, "</a>"},
    {Fate::kWrong, "<a/>\xC2\xA0"},
    // The declaration.
    {Fate::kFast, "<?xml version='1.0'?><a/>"},
    {Fate::kFast, "<?xml version=\"1.0\" ?>\n<a/>"},
    {Fate::kFast, "<?xml version='1.0' standalone='yes'?><a/>"},
    {Fate::kFast, "<?xml version='1.0' standalone='no'?><a/>"},
    {Fate::kFast, "<?xml version = '1.0' standalone = 'yes' ?><a/>"},
    {Fate::kRight, "<?xml version='1.1'?><a/>"},
    {Fate::kRight, "<?xml version='1.9'?><a/>"},
    {Fate::kWrong, "<?xml version='2.0'?><a/>"},
    {Fate::kWrong, "<?xml version='1'?><a/>"},
    {Fate::kWrong, "<?xml?><a/>"},
    {Fate::kWrong, "<?xml ?><a/>"},
    {Fate::kWrong, "<?xml standalone='yes'?><a/>"},
    {Fate::kWrong, "<?xml version='1.0' standalone='YES'?><a/>"},
    {Fate::kWrong, "<?xml version='1.0' standalone='yes' version='1.0'?><a/>"},
    {Fate::kWrong, "<?xml version='1.0'standalone='yes'?><a/>"},
    {Fate::kWrong, "<?xml version='1.0'><a/>"},
    {Fate::kWrong, "<?xml version='1.0' a='b'?><a/>"},
    {Fate::kWrong, "<?xml version=1.0?><a/>"},
    {Fate::kWrong, "<?XML version='1.0'?><a/>"},
    {Fate::kWrong, "\n<?xml version='1.0'?><a/>"},
    {Fate::kWrong, "<!--b--><?xml version='1.0'?><a/>"},
    {Fate::kWrong, "<a><?xml version='1.0'?></a>"},
    {Fate::kWrong, "<a/><?xml version='1.0'?>"},
    {Fate::kWrong, "<?xml version='1.0'"},
    {Fate::kWrong, "<?xml version='1.0'?>"},
    // Document types, none of which are accepted.
    {Fate::kRefused, "<!DOCTYPE a><a/>"},
    {Fate::kRefused, "<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>"},
    {Fate::kRefused, "<!DOCTYPE a SYSTEM 'b'><a/>"},
    {Fate::kRefused, "<!DOCTYPE a [<!ELEMENT a ANY><!ATTLIST a b CDATA 'c'>]><a/>"},
    {Fate::kWrong, "<!doctype a><a/>"},
    {Fate::kWrong, "<a><!DOCTYPE a></a>"},
    {Fate::kWrong, "<!ENTITY a 'b'><a/>"},
    // Elements.
    {Fate::kFast, "<a></a>"},
    {Fate::kFast, "<a ></a >"},
    {Fate::kFast, "<a\n/>"},
    {Fate::kFast, "<a><b/><b></b><b>c</b></a>"},
    {Fate::kFast, "<a>b<c>d</c>e</a>"},
    {Fate::kFast, "<a>\n<b\t>\r\n</b\r></a>"},
    {Fate::kWrong, "<a>"},
    {Fate::kWrong, "<a"},
    {Fate::kWrong, "<a><b></a>"},
    {Fate::kWrong, "<a><b></a></b>"},
    {Fate::kWrong, "<a></b>"},
    {Fate::kWrong, "<a></A>"},
    {Fate::kWrong, "<a></ab>"},
    {Fate::kWrong, "<ab></a>"},
    {Fate::kWrong, "<a></a"},
    {Fate::kWrong, "<a></"},
    {Fate::kWrong, "<a></a b>"},
    {Fate::kWrong, "<a></a b='c'>"},
    {Fate::kWrong, "<a></ a>"},
    {Fate::kWrong, "< a/>"},
    {Fate::kWrong, "<a / >"},
    {Fate::kWrong, "<a/ >"},
    {Fate::kWrong, "<a><b<c/></a>"},
    {Fate::kWrong, "<a><></></a>"},
    {Fate::kWrong, "<a><b/</a>"},
    {Fate::kWrong, "<a><b//></a>"},
    {Fate::kWrong, "<a><b></b/></a>"},
    {Fate::kWrong, "<<a/>"},
    {Fate::kWrong, "<a/>>"},
    {Fate::kWrong, "<a><</a>"},
    {Fate::kWrong, "<a>< /a>"},
    // Names.
    {Fate::kFast, "<_a-1.b><C_/></_a-1.b>"},
    {Fate::kFast, "<xml/>"},
    {Fate::kRight, "<é/>"},
    {Fate::kRight, "<a><bé/></a>"},
    {Fate::kRight, "<a><b·\xCC\x80/></a>"},
    {Fate::kRight, "<a>\n<\xF0\x90\x80\x80/></a>"},
    {Fate::kWrong, "<a><1/></a>"},
    {Fate::kWrong, "<a><-b/></a>"},
    {Fate::kWrong, "<a><.b/></a>"},
    {Fate::kWrong, "<a><b×/></a>"},
    {Fate::kWrong, "<a><b!/></a>"},
    {Fate::kWrong, "<a><b\x7F/></a>"},
    {Fate::kWrong, "<a><b,/></a>"},
    {Fate::kWrong, "<a><·b/></a>"},
    {Fate::kFast,
     "<a><nomecomsessentaedoiscaracteresaotodoqueaindaelevadodepressaxxx>b</"
     "nomecomsessentaedoiscaracteresaotodoqueaindaelevadodepressaxxx></a>"},
    {Fate::kRight,
     "<a><nomecomsessentaetrescaracteresoqueumamaisdoqueelevadodepressaxx>b</"
     "nomecomsessentaetrescaracteresoqueumamaisdoqueelevadodepressaxx></a>"},
    // Attributes.
    {Fate::kFast, "<a b='c'/>"},
    {Fate::kFast, "<a b=\"c\" d = 'e'\n f='\"g>' ></a>"},
    {Fate::kFast, "<a b=''/>"},
    {Fate::kRight, "<a><b c='d'/></a>"},
    {Fate::kRight, "<a><b c='d'>e</b></a>"},
    {Fate::kRight, "<a b='&lt;&#10;&amp;'/>"},
    {Fate::kRight, "<a b='\nc\td'/>"},
    {Fate::kRight, "<a b='\r\nc'/>"},
    {Fate::kRight, "<a b='é'/>"},
    {Fate::kRight, "<a><b c='>/>'/></a>"},
    {Fate::kRight, "<a b='c' d='e'><f/><g h='i'/></a>"},
    {Fate::kWrong, "<a b='c' b='d'/>"},
    {Fate::kWrong, "<a b/>"},
    {Fate::kWrong, "<a b=/>"},
    {Fate::kWrong, "<a b=c/>"},
    {Fate::kWrong, "<a b='c/>"},
    {Fate::kWrong, "<a b='c\"/>"},
    {Fate::kWrong, "<a b='c'd='e'/>"},
    {Fate::kWrong, "<a ='b'/>"},
    {Fate::kWrong, "<a b=='c'/>"},
    {Fate::kWrong, "<a b='<'/>"},
    {Fate::kWrong, "<a b='&'/>"},
    {Fate::kWrong, "<a b='&c;'/>"},
    {Fate::kWrong, "<a b='&lt'/>"},
    {Fate::kWrong, "<a 1='b'/>"},
    {Fate::kWrong, "<a b='\x01'/>"},
    {Fate::kWrong, "<a b='&#0;'/>"},
    {Fate::kWrong, "<a, b='c'/>"},
    {Fate::kWrong, "<a><b c='d' c='d'/></a>"},
    {Fate::kRight, "<a xml:space='preserve' xml:lang='pt'/>"},
    {Fate::kWrong, "<a xml:space='x' b/>"},
    // Character data.
    {Fate::kFast, "<a>b ]] > ]&gt; ]]&gt; '\"</a>"},
    {Fate::kFast, "<a>]</a>"},
    {Fate::kFast, "<a>]]</a>"},
    {Fate::kFast, "<a>]><b>]]</b>></a>"},
    {Fate::kFast, "<a>é€😀</a>"},
    {Fate::kFast, "<a><b>é\t\n</b></a>"},
    {Fate::kWrong, "<a>]]></a>"},
    {Fate::kWrong, "<a>b]]>c</a>"},
    {Fate::kWrong, "<a>é]]>c</a>"},
    {Fate::kWrong, "<a>b\r]]></a>"},
    {Fate::kWrong, "<a>é\rb]]></a>"},
    {Fate::kWrong, "<a>b\r\nc\r\nd]]></a>"},
    {Fate::kWrong, "<a>é&lt;\r\nb]]></a>"},
    {Fate::kWrong, "<a><b>]]></b></a>"},
    {Fate::kWrong, "<a>]]]></a>"},
    {Fate::kWrong, "<a>&amp;]]></a>"},
    // Characters.
    {Fate::kFast, "<a>\x7F\xC2\x80\xC2\x85\xC2\x9F</a>"},
    {Fate::kFast, "<a>\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD</a>"},
    {Fate::kFast, "<a>\xEF\xBB\xBF\xE2\x80\xA8</a>"},
    {Fate::kFast, "<a>\xF0\x90\x80\x80\xF4\x8F\xBF\xBF</a>"},
    {Fate::kFast, "<a>\xEF\xB7\x90\xF0\x9F\xBF\xBF</a>"},
    {Fate::kWrong, "<a>\x01</a>"},
    {Fate::kWrong, "<a>b\x0B</a>"},
    {Fate::kWrong, "<a>b\x0C</a>"},
    {Fate::kWrong, "<a>b\x1F</a>"},
    {Fate::kWrong, "<a>b\0</a>"sv},
    {Fate::kWrong, "\0<a/>"sv},
    {Fate::kWrong, "<a/>\0"sv},
    {Fate::kWrong, "<a>\xEF\xBF\xBE</a>"},
    {Fate::kWrong, "<a>\xEF\xBF\xBF</a>"},
    {Fate::kWrong, "<a>\xED\xA0\x80</a>"},
    {Fate::kWrong, "<a>\xED\xBF\xBF</a>"},
    {Fate::kWrong, "<a>\xC0\x80</a>"},
    {Fate::kWrong, "<a>\xC1\xBF</a>"},
    {Fate::kWrong, "<a>\xE0\x9F\xBF</a>"},
    {Fate::kWrong, "<a>\xF0\x8F\xBF\xBF</a>"},
    {Fate::kWrong, "<a>\xF4\x90\x80\x80</a>"},
    {Fate::kWrong, "<a>\xF8\x88\x80\x80\x80</a>"},
    {Fate::kWrong, "<a>\x80</a>"},
    {Fate::kWrong, "<a>\xC3</a>"},
    {Fate::kWrong, "<a>\xE2\x82</a>"},
    {Fate::kWrong, "<a>\xF0\x9F\x98</a>"},
    {Fate::kWrong, "<a>\xFF</a>"},
    {Fate::kWrong, "<a>\xC3\xA9\r\n\xFF</a>"},
    {Fate::kWrong, "\xFF<a/>"},
    {Fate::kWrong, "<a/>\xFF"},
    {Fate::kWrong, "<a\x01/>"},
    // Line ends.
    {Fate::kFast, "<a>\r\n</a>"},
    {Fate::kFast, "<a>\r</a>"},
    {Fate::kFast, "<a>\n\r</a>"},
    {Fate::kFast, "<a>b\r\r\n\nc\r</a>\r"},
    {Fate::kFast, "<a>&#13;&#10;\r\n&#xD;</a>"},
    {Fate::kFast, "<a\r\n>\r<b\r/>\r\n</a\r>"},
    {Fate::kFast, "<a>é\ré\r\né</a>"},
    {Fate::kFast, "<a><b>\r\n</b><b>c\rd</b></a>"},
    // References.
    {Fate::kFast, "<a>&lt;&gt;&amp;&quot;&apos;</a>"},
    {Fate::kFast, "<a>&#65;&#x41;&#x1f600;&#9;</a>"},
    {Fate::kFast, "<a>&#x10FFFF;&#xE000;</a>"},
    {Fate::kFast, "<a><b>&amp;</b>&amp;<b>c&amp;d</b></a>"},
    {Fate::kRight, "<a>&#00000000000065;</a>"},
    {Fate::kFast, "<a>&lt;b/&gt;</a>"},
    {Fate::kWrong, "<a>&</a>"},
    {Fate::kWrong, "<a>&;</a>"},
    {Fate::kWrong, "<a>& lt;</a>"},
    {Fate::kWrong, "<a>&lt</a>"},
    {Fate::kWrong, "<a>&LT;</a>"},
    {Fate::kWrong, "<a>&b;</a>"},
    {Fate::kWrong, "<a>&nbsp;</a>"},
    {Fate::kWrong, "<a>&#;</a>"},
    {Fate::kWrong, "<a>&#x;</a>"},
    {Fate::kWrong, "<a>&#X41;</a>"},
    {Fate::kWrong, "<a>&#0;</a>"},
    {Fate::kWrong, "<a>&#1;</a>"},
    {Fate::kWrong, "<a>&#xB;</a>"},
    {Fate::kWrong, "<a>&#xD800;</a>"},
    {Fate::kWrong, "<a>&#xDFFF;</a>"},
    {Fate::kWrong, "<a>&#xFFFE;</a>"},
    {Fate::kWrong, "<a>&#xFFFF;</a>"},
    {Fate::kWrong, "<a>&#x110000;</a>"},
    {Fate::kWrong, "<a>&#4294967361;</a>"},
    {Fate::kWrong, "<a>&#-65;</a>"},
    {Fate::kWrong, "<a>&#6 5;</a>"},
    {Fate::kWrong, "<a>&#xZ;</a>"},
    {Fate::kWrong, "<a>&%b;</a>"},
    {Fate::kWrong, "<a>b&amp;\r&c;d</a>"},
    {Fate::kWrong, "&lt;a/>"},
    {Fate::kWrong, "<a>&#"},
    {Fate::kWrong, "<a>&am"},
    // Comments.
    {Fate::kFast, "<a><!----></a>"},
    {Fate::kFast, "<a>b<!-- c - d -->e</a>"},
    {Fate::kFast, "<a><!-- <b> &c; ]]> é --></a>"},
    {Fate::kFast, "<a><!--\r\n\r--></a>"},
    {Fate::kFast, "<a><!-- > -> --></a>"},
    {Fate::kFast, "<a><b>c<!--d--></b></a>"},
    {Fate::kWrong, "<a><!-- -- --></a>"},
    {Fate::kWrong, "<a><!-- ---></a>"},
    {Fate::kWrong, "<a><!---></a>"},
    {Fate::kWrong, "<a><!--></a>"},
    {Fate::kWrong, "<a><!-></a>"},
    {Fate::kWrong, "<a><!- -- --></a>"},
    {Fate::kWrong, "<a><! -- --></a>"},
    {Fate::kWrong, "<a><!--</a>"},
    {Fate::kWrong, "<a><!-- \x01 --></a>"},
    {Fate::kWrong, "<a><!-- \xFF --></a>"},
    {Fate::kWrong, "<!--"},
    {Fate::kWrong, "<a/><!--"},
    {Fate::kWrong, "<a <!--b--> />"},
    {Fate::kWrong, "<a><!--b--"},
    {Fate::kWrong, "<a><!--\xEF\xBF\xBE--></a>"},
    // Instructions.
    {Fate::kRight, "<a><?b?></a>"},
    {Fate::kRight, "<a>c<?b d='e' ?\?>f</a>"},
    {Fate::kRight, "<?xml-stylesheet href='b'?><a/>"},
    {Fate::kRight, "<a/>\n<?b c?>\n"},
    {Fate::kRight, "<a><?b\r\nc\r?></a>"},
    {Fate::kWrong, "<a><?\?></a>"},
    {Fate::kWrong, "<a><? b?></a>"},
    {Fate::kWrong, "<a><?b></a>"},
    {Fate::kWrong, "<a><?1?></a>"},
    {Fate::kWrong, "<a><?xml?></a>"},
    {Fate::kWrong, "<a><?b"},
    {Fate::kWrong, "<a><?b c\x01?></a>"},
    // CDATA sections.
    {Fate::kRight, "<a><![CDATA[]]></a>"},
    {Fate::kRight, "<a>b<![CDATA[<c>&d;]]]]>e</a>"},
    {Fate::kRight, "<a><![CDATA[\r\né\r]]></a>"},
    {Fate::kRight, "<a><b>c</b><b><![CDATA[c]]>d</b></a>"},
    {Fate::kRight, "<a><![CDATA[b]]><![CDATA[c]]></a>"},
    {Fate::kWrong, "<a><![CDATA[</a>"},
    {Fate::kWrong, "<a><![CDATA[]]</a>"},
    {Fate::kWrong, "<a><![cdata[]]></a>"},
    {Fate::kWrong, "<a><![CDATA []]></a>"},
    {Fate::kWrong, "<a><![CDATA[\x01]]></a>"},
    {Fate::kWrong, "<a><![CDATA[]]>]]></a>"},
    {Fate::kWrong, "<a><![INCLUDE[]]></a>"},
    {Fate::kWrong, "<a>b<![CDATA[c]]>d]]></a>"},
    // Namespaces.
    {Fate::kFast, "<a xmlns='u'/>"},
    {Fate::kFast, "<p:a xmlns:p='u'><p:b/><c/><p:b>d</p:b></p:a>"},
    {Fate::kFast, "<a xmlns:p='u' xmlns:q='v' p:b='c' d='e'/>"},
    {Fate::kFast, "<a xmlns='u' xmlns:p='u'><p:a/><a/></a>"},
    {Fate::kFast, "<a xmlns:a='a' a='a'><a:a/></a>"},
    {Fate::kFast, "<a xmlns='a b'/>"},
    {Fate::kFast, "<a xmlns:p='%'><p:b/></a>"},
    {Fate::kFast, "<a xmlns='relative/uri'/>"},
    {Fate::kRight, "<a xmlns=''/>"},
    {Fate::kRight, "<a xmlns='u'><b xmlns='v'><c/></b><d xmlns=''/></a>"},
    {Fate::kRight, "<a><p:b xmlns:p='u'/></a>"},
    {Fate::kRight, "<a xmlns:p='u'><b/><p:b xmlns:p='v'/><p:b/></a>"},
    {Fate::kRight, "<a xmlns:p='u' p:b='c' b='d'/>"},
    {Fate::kRight, "<a xmlns='u' xmlns:p='u' p:b='c' b='d'/>"},
    {Fate::kRight, "<a xmlns:xml='http://www.w3.org/XML/1998/namespace'/>"},
    {Fate::kRight, "<a xmlns:p='u'><b>c</b><q:d xmlns:q='u'><q:b/><p:b/><b/></q:d><b/></a>"},
    {Fate::kRight, "<a><b xmlns:é='u'/></a>"},
    {Fate::kWrong, "<p:a/>"},
    {Fate::kWrong, "<a><p:b/></a>"},
    {Fate::kWrong, "<a p:b='c'/>"},
    {Fate::kWrong, "<a xmlns:p=''/>"},
    {Fate::kWrong, "<a xmlns:p='u'><b xmlns:p=''/></a>"},
    {Fate::kWrong, "<a xmlns:p='u' xmlns:p='v'/>"},
    {Fate::kWrong, "<a xmlns='u' xmlns='v'/>"},
    {Fate::kWrong, "<a xmlns:p='u' xmlns:q='u' p:b='c' q:b='d'/>"},
    {Fate::kWrong, "<a xmlns:xmlns='u'/>"},
    {Fate::kWrong, "<a xmlns:xml='u'/>"},
    {Fate::kWrong, "<a xmlns:p='http://www.w3.org/XML/1998/namespace'/>"},
    {Fate::kWrong, "<a xmlns='http://www.w3.org/XML/1998/namespace'/>"},
    {Fate::kWrong, "<a xmlns='http://www.w3.org/2000/xmlns/'/>"},
    {Fate::kWrong, "<xmlns:a/>"},
    {Fate::kWrong, "<:a/>"},
    {Fate::kWrong, "<a:/>"},
    {Fate::kWrong, "<a xmlns:p='u'><p:b:c/></a>"},
    {Fate::kWrong, "<a xmlns:p='u'><p:/></a>"},
    {Fate::kWrong, "<a xmlns:p='u'><p:1/></a>"},
    {Fate::kWrong, "<a xmlns:='u'/>"},
    {Fate::kWrong, "<a xmlns:p='u'><p:b></b></a>"},
    {Fate::kWrong, "<a xmlns:p='u'><b></p:b></a>"},
    {Fate::kWrong, "<a xmlns:p='u' xmlns:q='u'><p:b></q:b></a>"},
    {Fate::kWrong, "<a><b xmlns:p='u'/><p:c/></a>"},
    {Fate::kWrong, "<a :b='c'/>"},
};

/// How a document is written. The declaration is put before a document that has none.
struct Writing {
  std::string_view name;
  std::string_view mark;
  std::string_view encoding;
  std::string (*convert)(std::string_view utf8);  // none: the bytes are left as they are
};

constexpr Writing kWritings[] = {
    {"Utf8Undeclared", "", "", nullptr},
    {"Utf8", "", "UTF-8", nullptr},
    {"Utf8Marked", "\xEF\xBB\xBF", "utf-8", nullptr},
    {"Utf8MarkedUndeclared", "\xEF\xBB\xBF", "", nullptr},
    {"Utf16LittleEndian", "\xFF\xFE", "", &testing::InUtf16LittleEndian},
    {"Utf16LittleEndianDeclared", "\xFF\xFE", "UTF-16", &testing::InUtf16LittleEndian},
    {"Utf16LittleEndianUnmarked", "", "UTF-16LE", &testing::InUtf16LittleEndian},
    {"Utf16BigEndian", "\xFE\xFF", "", &testing::InUtf16BigEndian},
    {"Utf16BigEndianUnmarked", "", "UTF-16", &testing::InUtf16BigEndian},
    // What is UTF-8 is taken for other characters, or is undecodable.
    {"Windows1252", "", "windows-1252", nullptr},
    {"Latin1", "", "ISO-8859-1", nullptr},
    {"Ascii", "", "US-ASCII", nullptr},
    {"Contradictory", "\xEF\xBB\xBF", "ISO-8859-1", nullptr},
    {"ContradictoryUtf16", "", "UTF-16", nullptr},
    {"Unknown", "", "EBCDIC-PT", nullptr},
};

class BothWaysTest : public ::testing::TestWithParam<Writing> {
 protected:
  // Empty where the document cannot be written so.
  static std::string Written(std::string_view text) {
    const Writing& writing = GetParam();
    std::string document(text);
    if (!writing.encoding.empty()) {
      if (text.find("<?xml ") != std::string_view::npos) return {};
      document.insert(0, "<?xml version='1.0' encoding='" + std::string(writing.encoding) + "'?>");
    }
    if (writing.convert == nullptr) return std::string(writing.mark) + document;
    return IsUtf8(document) ? std::string(writing.mark) + writing.convert(document) : std::string();
  }
};

INSTANTIATE_TEST_SUITE_P(, BothWaysTest, ::testing::ValuesIn(kWritings),
                         [](const auto& writing) { return std::string(writing.param.name); });

TEST_P(BothWaysTest, EveryProductionComesToTheSame) {
  const BothWays both;
  const bool is_utf8 = GetParam().name.starts_with("Utf8");
  size_t written = 0;
  for (const auto& [fate, text] : kDocuments) {
    SCOPED_TRACE(text);
    const std::string bytes = Written(text);
    if (bytes.empty() && !text.empty()) continue;
    ++written;
    const Telling told = both.Tell(bytes);
    if (!is_utf8) continue;
    // The table is right about them.
    const bool taken = testing::ToldInPieces(bytes, size_t{128} * 1024).taken;
    EXPECT_EQ(taken, fate == Fate::kFast);
    EXPECT_EQ(!told.problem, fate == Fate::kFast || fate == Fate::kRight) << (told.problem ? told.problem->reason : "");
    const bool is_refused = told.problem && told.problem->fault == XmlProblem::Fault::kRefused;
    EXPECT_EQ(is_refused, fate == Fate::kRefused);
  }
  EXPECT_GT(written, 200u);
}

class CutFileTest : public ::testing::TestWithParam<std::string_view> {};

INSTANTIATE_TEST_SUITE_P(, CutFileTest, ::testing::Values(kPlainDocument, testing::kRichFile), testing::Numbered());

TEST_P(CutFileTest, AFileThatEndsAnywhereComesToTheSame) {
  const BothWays both;
  for (size_t length = 0; length <= GetParam().size(); ++length) {
    SCOPED_TRACE(length);
    both.Tell(GetParam().substr(0, length));
  }
}

TEST_P(CutFileTest, AFileThatLacksAnyByteComesToTheSame) {
  const BothWays both;
  for (size_t at = 0; at < GetParam().size(); ++at) {
    SCOPED_TRACE(at);
    both.Tell(std::string(GetParam()).erase(at, 1));
  }
}

TEST(ChangedFileTest, AFileWithAnyByteAnywhereComesToTheSame) {
  const BothWays both;
  for (size_t at = 0; at < kPlainDocument.size(); ++at) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string file(kPlainDocument);
      file[at] = static_cast<char>(byte);
      both.TellSoon(file);
      ASSERT_FALSE(::testing::Test::HasFailure()) << at << " " << byte;
    }
  }
}

std::string Nested(size_t depth, std::string_view innermost) {
  return testing::Repeated("<a>", depth) + std::string(innermost) + testing::Repeated("</a>", depth);
}

// About each limit of the fast path and of ParserLimits.
TEST(LimitsTest, FilesAboutALimitComeToTheSame) {
  const BothWays both;
  const auto tell = [&](const std::string& what, size_t number, const std::string& file) {
    SCOPED_TRACE(what + " " + std::to_string(number));
    return !both.TellWhole(file).problem;
  };
  for (size_t depth = 248; depth <= 258; ++depth) {
    EXPECT_EQ(tell("depth", depth, Nested(depth, "x")), depth <= 256);
    EXPECT_EQ(tell("depth", depth, Nested(depth - 1, "<b/>")), depth <= 256);
    EXPECT_EQ(tell("depth", depth, Nested(depth - 1, "<b c=''>x</b>")), depth <= 256);
  }
  for (const size_t count : std::initializer_list<size_t>{9'998, 9'999, 10'000, 10'001}) {
    std::string names;
    for (size_t i = 1; i < count; ++i) names += "<n" + std::to_string(i) + "/>";
    EXPECT_EQ(tell("names", count, "<a>" + names + "</a>"), count <= 10'000);
    EXPECT_EQ(tell("names left early", count, "<a><n1 a=''/>" + names + "</a>"), count <= 10'000);
    EXPECT_EQ(tell("names left late", count, "<a>" + names + "<n1 a=''/><b/></a>"), count < 10'000);
  }
  for (const size_t count : std::initializer_list<size_t>{15, 16, 17, 255, 256, 257}) {
    std::string attributes;
    for (size_t i = 0; i < count; ++i) attributes += " b" + std::to_string(i) + "='c'";
    EXPECT_EQ(tell("attributes", count, "<a" + attributes + "><d>x</d></a>"), count <= 256);
  }
  for (const size_t count : std::initializer_list<size_t>{15, 16, 17, 63, 64, 65}) {
    std::string declarations;
    for (size_t i = 0; i < count; ++i) declarations += " xmlns:b" + std::to_string(i) + "='c'";
    EXPECT_EQ(tell("declarations", count, "<a" + declarations + "><b1:d>x</b1:d></a>"), count <= 64);
  }
  for (const size_t blanks : std::initializer_list<size_t>{8'180, 8'190, 8'191, 8'192, 8'193, 65'000, 66'000}) {
    const std::string gap(blanks, ' ');
    const bool right = blanks < 65'536;
    EXPECT_EQ(tell("blanks", blanks, "<a><b" + gap + ">x</b><c" + gap + "/><b>y</b" + gap + "></a>"), right);
    EXPECT_EQ(tell("blanks", blanks, "<a" + gap + "/>"), right);
    // Those before the root count as its tag.
    EXPECT_EQ(tell("blanks", blanks, gap + "<a/>"), right);
    EXPECT_EQ(tell("blanks", blanks, "<!--b-->" + gap + "<a/>"), right);
    EXPECT_TRUE(tell("blanks", blanks, "<a/>" + gap));
  }
  for (const size_t length : std::initializer_list<size_t>{130'900, 131'000, 131'060, 131'066, 131'068, 131'069,
                                                           131'070, 131'072, 131'080, 300'000}) {
    for (const std::string_view fill : {"x", " ", "\r", "]"}) {
      const std::string text = testing::Repeated(fill, length);
      EXPECT_TRUE(tell("text", length, "<a>" + text + "<b>" + text + "</b><c/></a>"));
      EXPECT_TRUE(tell("comment", length, "<a><!--" + text + "--><b/></a>"));
    }
    EXPECT_TRUE(tell("text of two bytes", length, "<a>" + testing::Repeated("é", length / 2) + "<b/></a>"));
  }
  for (const size_t length : std::initializer_list<size_t>{9'990'000, 10'000'000, 10'000'001}) {
    const std::string comment = "x<!--" + std::string(100'000, 'y') + "-->";
    std::string text = testing::Repeated(std::string(99'999, 'z') + "<!--c-->", length / 99'999);
    text += std::string(length % 99'999, 'z');
    EXPECT_EQ(tell("text with comments", length, "<a>" + text + "<b/></a>"), length <= 10'000'000);
    EXPECT_TRUE(tell("comments", length, "<a>" + testing::Repeated(comment, 20) + "<b/></a>"));
  }
}

// Before tags of each kind, and before what makes it an ordinary text.
TEST(IndentationTest, WhateverItIsMadeOfAndHoweverLongComesToTheSame) {
  const BothWays both;
  for (const std::string_view line : {"\n", "\r\n", "\r", "\n\n", "\r\r\n"}) {
    for (const std::string_view fill : {" ", "\t", "  \t"}) {
      for (size_t count = 0; count < 40; ++count) {
        const std::string gap = std::string(line) + testing::Repeated(fill, count);
        SCOPED_TRACE(::testing::PrintToString(gap));
        both.Tell("<a>" + gap + "<b>" + gap + "<c>" + gap + "</c>" + gap + "<!--d-->" + gap + "<e/></b>" + gap + "x" +
                  gap + "<f>" + gap + "&lt;" + gap + "</f>" + gap + "é" + gap + "</a>" + gap);
        both.Tell("<a>" + gap + "]]></a>");
        both.Tell("<a>" + gap + "\x01</a>");
        both.Tell("<a>" + gap);
      }
    }
  }
}

// Of a file that is fed in many pieces, with something at its end that the fast path leaves.
TEST(ManyPiecesTest, ALargeFileComesToTheSame) {
  const BothWays both;
  const std::string lines = testing::Repeated("<b>São</b>\r\n<c> 1 <d/><!--e--></c>\n", 6'000);
  for (const std::string_view end : {"", "<f g='h'/>", "<![CDATA[i]]>", "<é/>", "</j>", "]]>", "<k", "\x01"}) {
    SCOPED_TRACE(end);
    const std::string file = "<a>" + lines + std::string(end) + lines + "</a>";
    ASSERT_GT(file.size(), 400'000u);
    both.TellWhole(file);
  }
}

}  // namespace
}  // namespace zevo
