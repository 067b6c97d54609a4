// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastValidation.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaValidator.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "tests/platform/SchemaOf.h"
#include "tests/platform/SchemaPieces.h"
#include "tests/platform/fastpath/FastVerdict.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using testing::SchemaOf;
using testing::SchemaOfUrnT;

enum class Verdict { kValid, kGivenUp, kInvalid };
constexpr Verdict kValid = Verdict::kValid;
constexpr Verdict kGivenUp = Verdict::kGivenUp;  // for libxml2, which finds it valid
constexpr Verdict kInvalid = Verdict::kInvalid;

class FastValidationTest : public ::testing::Test {
 protected:
  void Use(const std::string& schema, std::string_view targetNamespace = {}) {
    const SchemaSource source(folder_.Write("schema.xsd", schema));
    compiled_.emplace(source, targetNamespace, "Test");
    tables_ = SchemaTables::Of(schema);
    ASSERT_NE(tables_, nullptr);
    schema_ = FastSchema::Of(*tables_);
    ASSERT_NE(schema_, nullptr);
  }

  // Fails the test where a document that libxml2 refuses is said to be valid.
  Verdict Of(const std::string& document) {
    const bool valid = !SchemaValidator(*compiled_).FirstProblem(folder_.Write("file.xml", document));
    const bool fast = testing::FastVerdict::IsValid(*schema_, document);
    EXPECT_TRUE(valid || !fast) << document;
    if (!valid) return kInvalid;
    return fast ? kValid : kGivenUp;
  }

  testing::TemporaryFolder folder_;
  std::optional<CompiledSchema> compiled_;
  std::unique_ptr<const SchemaTables> tables_;
  std::unique_ptr<const FastSchema> schema_;
};

// Keys, unique values and references to them, of one field and of two.
constexpr std::string_view kList = R"(
  <xs:element name="f"><xs:complexType><xs:sequence><xs:element ref="l" maxOccurs="unbounded"/></xs:sequence></xs:complexType></xs:element>
  <xs:element name="l">
    <xs:complexType><xs:choice minOccurs="0" maxOccurs="unbounded">
      <xs:element name="k"><xs:complexType><xs:choice minOccurs="0" maxOccurs="unbounded">
        <xs:element name="a" type="xs:string"/><xs:element name="b" type="xs:integer"/>
      </xs:choice></xs:complexType></xs:element>
      <xs:element name="u"><xs:complexType><xs:choice minOccurs="0" maxOccurs="unbounded">
        <xs:element name="a" type="xs:string"/><xs:element name="b" type="xs:integer"/>
      </xs:choice></xs:complexType></xs:element>
      <xs:element name="r"><xs:complexType><xs:choice minOccurs="0" maxOccurs="unbounded">
        <xs:element name="a" type="xs:string"/><xs:element name="b" type="xs:decimal"/>
      </xs:choice></xs:complexType></xs:element>
      <xs:element name="one" type="xs:decimal"/><xs:element name="of" type="xs:decimal"/><xs:element name="text" type="xs:token"/>
    </xs:choice></xs:complexType>
    <xs:key name="key"><xs:selector xpath="k"/><xs:field xpath="a"/><xs:field xpath="b"/></xs:key>
    <xs:unique name="unique"><xs:selector xpath="u"/><xs:field xpath="a"/><xs:field xpath="b"/></xs:unique>
    <xs:keyref name="ref" refer="key"><xs:selector xpath="r"/><xs:field xpath="a"/><xs:field xpath="b"/></xs:keyref>
    <xs:key name="ones"><xs:selector xpath="one"/><xs:field xpath="."/></xs:key>
    <xs:keyref name="ofs" refer="ones"><xs:selector xpath="of"/><xs:field xpath="."/></xs:keyref>
    <xs:unique name="texts"><xs:selector xpath="text"/><xs:field xpath="."/></xs:unique>
  </xs:element>)";

TEST_F(FastValidationTest, ElementsComeInTheirOrder) {
  Use(SchemaOf(R"(<xs:element name="r"><xs:complexType><xs:sequence>
    <xs:element name="a" type="xs:int"/><xs:element name="b" type="xs:string" minOccurs="0" maxOccurs="unbounded"/>
    <xs:choice><xs:element name="c" type="xs:string"/><xs:element name="d"><xs:complexType/></xs:element></xs:choice>
    </xs:sequence></xs:complexType></xs:element>)"));
  EXPECT_EQ(Of("<r><a>1</a><c/></r>"), kValid);
  EXPECT_EQ(Of("<r><a>1</a><b>x</b><b></b><c>x</c></r>"), kValid);
  EXPECT_EQ(Of("<r><a>1</a><d/></r>"), kValid);
  EXPECT_EQ(Of("<r>\n  <a>1</a>\t\r\n <!-- c --> <d></d>\n</r>"), kValid);
  for (size_t width = 0; width < 40; ++width) {
    const std::string gap = "\n" + std::string(width, ' ');
    EXPECT_EQ(Of("<r>" + gap + "<a>1</a>" + gap + "<d/>" + gap + "</r>"), kValid) << width;
    EXPECT_EQ(Of("<r>" + gap + "x<a>1</a>" + gap + "<d/>" + gap + "</r>"), kInvalid) << width;
    EXPECT_EQ(Of("<r>" + gap + "<a>1</a>" + gap + "<d>" + gap + "</d></r>"), kInvalid) << width;
  }
  EXPECT_EQ(Of("<r><a>1</a></r>"), kInvalid);
  EXPECT_EQ(Of("<r/>"), kInvalid);
  EXPECT_EQ(Of("<r><c/><a>1</a></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a>1</a><c/><d/></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a>1</a><x/><c/></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a>x</a><c/></r>"), kInvalid);
  EXPECT_EQ(Of("<a>1</a>"), kInvalid);
  EXPECT_EQ(Of("<x/>"), kInvalid);
}

TEST_F(FastValidationTest, ContentIsWhatTheTypeSays) {
  Use(SchemaOf(R"(<xs:element name="r"><xs:complexType><xs:sequence>
    <xs:element name="a" type="xs:string"/><xs:element name="b"><xs:complexType/></xs:element><xs:element name="c"/>
    </xs:sequence></xs:complexType></xs:element><xs:element name="n" type="xs:date"/>)"));
  EXPECT_EQ(Of("<r><a> x </a><b/><c/></r>"), kValid);
  EXPECT_EQ(Of("<r><a>x<!-- in two -->y</a><b/><c>text</c></r>"), kValid);
  EXPECT_EQ(Of("<r><a>x</a><b/><c>te<!-- in two -->xt</c></r>"), kValid);
  EXPECT_EQ(Of("<n>2008-<!-- in two -->02-29</n>"), kValid);
  EXPECT_EQ(Of("<n>2009-<!-- in two -->02-29</n>"), kInvalid);
  EXPECT_EQ(Of("<n/>"), kInvalid);
  EXPECT_EQ(Of("<r>x<a/><b/><c/></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a/><b/><c/>x</r>"), kInvalid);
  EXPECT_EQ(Of("<r>\u00A0<a/><b/><c/></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a><x/></a><b/><c/></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a/><b>x</b><c/></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a/><b><x/></b><c/></r>"), kInvalid);
  EXPECT_NE(Of("<r><a/><b> </b><c/></r>"), kValid);
  // Whatever stands in an element of any content.
  EXPECT_EQ(Of("<r><a/><b/><c><x/></c></r>"), kGivenUp);
}

TEST_F(FastValidationTest, AFixedTextIsThatText) {
  Use(SchemaOf(R"(<xs:element name="r"><xs:complexType><xs:sequence>
    <xs:element name="a" fixed="PT"/><xs:element name="b" type="xs:string" fixed="x y"/>
    </xs:sequence></xs:complexType></xs:element>)"));
  EXPECT_EQ(Of("<r><a>PT</a><b>x y</b></r>"), kValid);
  EXPECT_EQ(Of("<r><a>P<!-- in two -->T</a><b>x y</b></r>"), kValid);
  EXPECT_EQ(Of("<r><a>ES</a><b>x y</b></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a> PT</a><b>x y</b></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a>PT</a><b>x  y</b></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a/><b>x y</b></r>"), kValid);
  EXPECT_EQ(Of("<r><a>PT</a><b/></r>"), kGivenUp);
}

TEST_F(FastValidationTest, NamesAreInTheNamespaceOfTheSchema) {
  const std::string content = R"(<xs:element name="r"><xs:complexType><xs:sequence><xs:element ref="a"/>
    <xs:element name="b" type="xs:string" minOccurs="0"/></xs:sequence></xs:complexType></xs:element>
    <xs:element name="a" type="xs:string"/>)";
  Use(SchemaOfUrnT(content), "urn:t");
  EXPECT_EQ(Of("<p:r xmlns:p='urn:t'><p:a/></p:r>"), kValid);
  EXPECT_EQ(Of("<p:r xmlns:p='urn:t'><p:a/><b/></p:r>"), kValid);
  EXPECT_EQ(Of("<p:r xmlns:p='urn:t' xmlns:q='urn:t' xmlns:o='urn:o'><q:a/></p:r>"), kValid);
  EXPECT_EQ(Of("<r xmlns='urn:t'><a/></r>"), kValid);
  EXPECT_EQ(Of("<r xmlns='urn:t'><a/><b/></r>"), kInvalid);
  EXPECT_EQ(Of("<p:r xmlns:p='urn:t'><a/></p:r>"), kInvalid);
  EXPECT_EQ(Of("<p:r xmlns:p='urn:t'><p:a/><p:b/></p:r>"), kInvalid);
  EXPECT_EQ(Of("<r xmlns='urn:o'><a/></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a/></r>"), kInvalid);
  EXPECT_EQ(Of("<p:r xmlns:p='urn:t' xmlns:o='urn:o'><o:a/></p:r>"), kInvalid);
  Use(SchemaOf(content));
  EXPECT_EQ(Of("<r><a/></r>"), kValid);
  EXPECT_EQ(Of("<r xmlns='' xmlns:o='urn:o'><a/></r>"), kValid);
  EXPECT_EQ(Of("<r xmlns='urn:t'><a/></r>"), kInvalid);
}

TEST_F(FastValidationTest, AttributesAreLeftToLibxml2) {
  Use(SchemaOf(
      R"(<xs:element name="r"><xs:complexType><xs:sequence><xs:element name="a" type="xs:string"/></xs:sequence>
    </xs:complexType></xs:element>)"));
  EXPECT_EQ(Of("<r x='1'><a/></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a x='1'/></r>"), kInvalid);
  EXPECT_EQ(Of("<r><a xmlns='urn:o'/></r>"), kInvalid);
  EXPECT_EQ(Of("<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'><a/></r>"), kValid);
  EXPECT_EQ(Of("<r><a xmlns:p='urn:o'/></r>"), kGivenUp);
}

// A root with some content, empty in the document, and with attributes; the prefix xsi is declared.
struct Root {
  const char* name;
  std::string_view content;
};
constexpr Root kRoots[] = {
    {"WithElements",
     "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' type='xs:int' "
     "minOccurs='0'/></xs:sequence>"
     "</xs:complexType></xs:element>"},
    {"WithAText", "<xs:element name='r' type='xs:string'/>"},
    {"WithAnything", "<xs:element name='r'/>"},
    {"WithNothing", "<xs:element name='r'><xs:complexType/></xs:element>"},
    {"WithAType", "<xs:element name='r' type='t'/><xs:complexType name='t'><xs:sequence/></xs:complexType>"},
};

class RootAttributeTest : public FastValidationTest, public ::testing::WithParamInterface<Root> {
 protected:
  Verdict With(const std::string& attributes) {
    return Of("<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' " + attributes + "/>");
  }
};

INSTANTIATE_TEST_SUITE_P(, RootAttributeTest, ::testing::ValuesIn(kRoots),
                         [](const auto& instance) { return instance.param.name; });

TEST_P(RootAttributeTest, WhereSchemasMayBeFoundIsPassedOver) {
  Use(SchemaOf(GetParam().content));
  const std::string other =
      folder_.Write("other.xsd",
                    "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:o'>"
                    "<xs:element name='o'/></xs:schema>");
  const std::string unlike = folder_.Write("unlike.xsd", SchemaOf("<xs:element name='other'/>"));
  for (const std::string& value :
       {std::string("urn:o ") + other, std::string("urn:o ") + unlike, other, unlike, "file://" + other,
        std::string("urn:a a.xsd urn:b b.xsd"), std::string("urn:a"), std::string("urn:a a.xsd urn:b"), std::string(),
        std::string("  "), std::string("\n urn:a\t a.xsd "), std::string("%% [x] &lt; &#38; \""),
        std::string("urn:a http://127.0.0.1:9/x"), std::string(4'000, 'x')}) {
    EXPECT_EQ(With("xsi:schemaLocation='" + value + "'"), kValid) << value;
    EXPECT_EQ(With("xsi:noNamespaceSchemaLocation='" + value + "'"), kValid) << value;
    EXPECT_EQ(With("xsi:noNamespaceSchemaLocation='" + value + "' xsi:schemaLocation='" + value + "'"), kValid)
        << value;
  }
  EXPECT_EQ(With("p:schemaLocation='urn:a a.xsd' xmlns:p='http://www.w3.org/2001/XMLSchema-instance'"), kValid);
  EXPECT_EQ(Of("<x xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:schemaLocation='urn:a a.xsd'/>"),
            kInvalid);
}

TEST_P(RootAttributeTest, AnyOtherIsLeftToLibxml2) {
  Use(SchemaOf(GetParam().content));
  for (const char* const attributes :
       {"xsi:type='t'", "xsi:type='r'", "xsi:type=''", "xsi:type='xsi:t'", "xsi:nil='false'", "xsi:nil='0'",
        "xsi:nil='true'", "xsi:nil='x'", "xsi:schemalocation='urn:a a.xsd'", "xsi:location='urn:a a.xsd'",
        "schemaLocation='urn:a a.xsd'", "noNamespaceSchemaLocation='a.xsd'", "xml:lang='pt'",
        "xmlns:p='urn:p' p:schemaLocation='urn:a a.xsd'",
        "xmlns:p='http://www.w3.org/2001/XMLSchema-instance/' p:schemaLocation='urn:a a.xsd'",
        "xmlns:p='http://www.w3.org/1999/XMLSchema-instance' p:schemaLocation='urn:a a.xsd'",
        "xmlns:p='HTTP://www.w3.org/2001/XMLSchema-instance' p:schemaLocation='urn:a a.xsd'",
        "xsi:schemaLocation='urn:a a.xsd' xsi:type='t'", "xsi:schemaLocation='urn:a a.xsd' b='c'"}) {
    EXPECT_NE(With(attributes), kValid) << attributes;
  }
}

TEST_F(FastValidationTest, KeysAreThereOnceAndWhole) {
  Use(SchemaOf(kList));
  EXPECT_EQ(Of("<l><k><a>x</a><b>1</b></k><k><a>x</a><b>2</b></k><k><a>y</a><b>1</b></k></l>"), kValid);
  EXPECT_EQ(Of("<l><k><a>x</a><b>1</b></k><k><b>01</b><a>x</a></k></l>"), kInvalid);
  EXPECT_EQ(Of("<l><k><a>x</a></k></l>"), kInvalid);
  EXPECT_EQ(Of("<l><k/></l>"), kInvalid);
  EXPECT_EQ(Of("<l><k><a>x</a><b>1</b><b>2</b></k></l>"), kInvalid);
  EXPECT_EQ(Of("<l><one>1</one><one>2</one></l>"), kValid);
  EXPECT_EQ(Of("<l><one>1</one><one>1.0</one></l>"), kInvalid);
  EXPECT_EQ(Of("<l><one>1</one><one>+2</one></l>"), kGivenUp);
}

TEST_F(FastValidationTest, WithoutAFieldUniqueValuesAndReferencesAreNone) {
  Use(SchemaOf(kList));
  EXPECT_EQ(Of("<l><u><a>x</a></u><u><a>x</a></u><u/><u/><r><a>x</a></r><r/></l>"), kValid);
  EXPECT_EQ(Of("<l><u><a>x</a><b>1</b></u><u><a>x</a></u><u><a>x</a><b>2</b></u></l>"), kValid);
  EXPECT_EQ(Of("<l><u><a>x</a><b>1</b></u><u><a>x</a><b>1</b></u></l>"), kInvalid);
  EXPECT_EQ(Of("<l><text>x</text><text>y</text></l>"), kValid);
  EXPECT_EQ(Of("<l><text>x</text><text> x </text></l>"), kInvalid);
  EXPECT_EQ(Of("<l><text> x </text></l>"), kGivenUp);
  EXPECT_EQ(Of("<l><text/></l>"), kGivenUp);
}

TEST_F(FastValidationTest, AReferenceNeedsItsKeyBeforeItOrBehindIt) {
  Use(SchemaOf(kList));
  EXPECT_EQ(Of("<l><k><a>x</a><b>1</b></k><r><a>x</a><b>1.0</b></r><r><a>x</a><b>1</b></r></l>"), kValid);
  EXPECT_EQ(Of("<l><r><a>x</a><b>01</b></r><k><a>x</a><b>1</b></k></l>"), kValid);
  EXPECT_EQ(Of("<l><of>1</of><one>1</one><of>1.00</of></l>"), kValid);
  EXPECT_EQ(Of("<l><r><a>x</a><b>2</b></r><k><a>x</a><b>1</b></k></l>"), kInvalid);
  EXPECT_EQ(Of("<l><r><a>1</a><b>1</b></r></l>"), kInvalid);
  EXPECT_EQ(Of("<l><of>2</of><one>1</one></l>"), kInvalid);
}

TEST_F(FastValidationTest, KeysEndWithTheElementThatHasThem) {
  Use(SchemaOf(kList));
  EXPECT_EQ(Of("<f><l><one>1</one></l><l><one>1</one><of>1</of></l></f>"), kValid);
  EXPECT_EQ(Of("<f><l><one>1</one></l><l><of>1</of></l></f>"), kInvalid);
  EXPECT_EQ(Of("<f><l><of>1</of></l><l><one>1</one></l></f>"), kInvalid);
}

TEST_F(FastValidationTest, KeysAndReferencesOfOtherTypesAreNeverTakenForEqualWrongly) {
  const std::vector<std::string> types{"string", "token", "normalizedString", "integer", "decimal", "int"};
  for (const std::string& key : types) {
    for (const std::string& reference : types) {
      SCOPED_TRACE(key + " " + reference);
      Use(SchemaOf(R"(<xs:element name="r"><xs:complexType><xs:sequence>
        <xs:element name="k" type="xs:)" +
                   key + R"("/><xs:element name="o" type="xs:)" + reference + R"("/>
        </xs:sequence></xs:complexType><xs:key name="key"><xs:selector xpath="k"/><xs:field xpath="."/></xs:key>
        <xs:keyref name="of" refer="key"><xs:selector xpath="o"/><xs:field xpath="."/></xs:keyref></xs:element>)"));
      const Verdict verdict = Of("<r><k>7</k><o>7</o></r>");
      EXPECT_TRUE(key != reference || verdict == kValid);
      Of("<r><k>7</k><o>07</o></r>");
      Of("<r><k>7</k><o>8</o></r>");
    }
  }
}

// In a file libxml2 may judge a text otherwise than by itself.
TEST_F(FastValidationTest, ATextIsNeverTakenThatLibxml2RefusesInAFile) {
  const std::vector<std::string> texts{"",
                                       " ",
                                       "0",
                                       "1",
                                       "-1",
                                       "+1",
                                       "-0",
                                       "+0",
                                       "01",
                                       "1.",
                                       ".5",
                                       "1.50",
                                       "-1.5",
                                       "1e3",
                                       "INF",
                                       "NaN",
                                       " 1 ",
                                       "1 2",
                                       "127",
                                       "128",
                                       "255",
                                       "256",
                                       "-129",
                                       "123456789012345678",
                                       "1234567890123456789012",
                                       "12345678901234567890123456789",
                                       "true",
                                       "TRUE",
                                       "a",
                                       " a",
                                       "a ",
                                       "a  b",
                                       "a b",
                                       "A",
                                       "N",
                                       "a:b",
                                       "a\tb",
                                       "a\nb",
                                       "\u00E7",
                                       "pt-PT",
                                       "2008",
                                       "02008",
                                       "0000",
                                       "2008-02-29",
                                       "2009-02-29",
                                       " 2008-02-29 ",
                                       "2008-02-29Z",
                                       "2008-02-29+01:00",
                                       "2008-02-29T12:00:00",
                                       "2008-02-29T24:00:00",
                                       "2008-02-29T23:59:60",
                                       "2008-02-29T12:00:00.5Z",
                                       "12:00:00",
                                       "P1Y",
                                       "--02-29",
                                       "2008-02",
                                       "00FF",
                                       "AAAA",
                                       "AA==",
                                       "http://a/b c"};
  const std::vector<std::string> bases{"string",
                                       "normalizedString",
                                       "token",
                                       "language",
                                       "Name",
                                       "NCName",
                                       "NMTOKEN",
                                       "anyURI",
                                       "boolean",
                                       "decimal",
                                       "integer",
                                       "nonPositiveInteger",
                                       "negativeInteger",
                                       "nonNegativeInteger",
                                       "positiveInteger",
                                       "long",
                                       "int",
                                       "short",
                                       "byte",
                                       "unsignedLong",
                                       "unsignedInt",
                                       "unsignedShort",
                                       "unsignedByte",
                                       "float",
                                       "double",
                                       "duration",
                                       "date",
                                       "dateTime",
                                       "time",
                                       "gYear",
                                       "gYearMonth",
                                       "gMonthDay",
                                       "hexBinary",
                                       "base64Binary"};
  const std::vector<std::string> facets{
      "",
      "<xs:enumeration value='1'/><xs:enumeration value='1.5'/><xs:enumeration value='a b'/>",
      "<xs:pattern value='[0-9a ]*'/>",
      "<xs:maxLength value='3'/>",
      "<xs:length value='1'/>",
      "<xs:minInclusive value='1'/>",
      "<xs:maxExclusive value='128'/>",
      "<xs:maxInclusive value='2008-02-29'/>",
      "<xs:totalDigits value='2'/>",
      "<xs:fractionDigits value='1'/>"};
  size_t valid = 0;
  for (const std::string& base : bases) {
    for (const std::string& facet : facets) {
      const std::string schema =
          SchemaOf("<xs:element name='a' type='t'/>" + testing::Restriction("t", "xs:" + base, facet));
      const auto tables = [&]() -> std::unique_ptr<const SchemaTables> {
        try {
          compiled_.emplace(SchemaSource(folder_.Write("schema.xsd", schema)), std::string_view(), "Test");
        } catch (const Error&) {
          return nullptr;
        }
        return SchemaTables::Of(schema);
      }();
      if (!tables) continue;
      schema_ = FastSchema::Of(*tables);
      SCOPED_TRACE(base + " " + facet);
      for (const std::string& text : texts) valid += Of("<a>" + text + "</a>") == kValid ? 1U : 0U;
      schema_.reset();
    }
  }
  EXPECT_GT(valid, 1'000U);
}

TEST_F(FastValidationTest, AFileThatIsNotThroughIsNotValid) {
  Use(SchemaOf(R"(<xs:element name="r"><xs:complexType/></xs:element>)"));
  FastValidation validation(*schema_);
  EXPECT_FALSE(validation.IsValid());
  ASSERT_TRUE(validation.StartElement({"r", nullptr, 1}, {}));
  EXPECT_FALSE(validation.IsValid());
  ASSERT_TRUE(validation.EndElement());
  EXPECT_TRUE(validation.IsValid());
}

// What elements of a file are made of, at random.
rc::Gen<std::string> GenParticle(int depth) {
  const auto occurs = rc::gen::elementOf(std::vector<std::string>{
      "", "", "", " minOccurs='0'", " maxOccurs='unbounded'", " minOccurs='0' maxOccurs='unbounded'",
      " minOccurs='0' maxOccurs='2'", " minOccurs='2' maxOccurs='3'", " minOccurs='2' maxOccurs='2'"});
  auto element =
      rc::gen::map(rc::gen::tuple(rc::gen::elementOf(std::vector<std::string>{"a", "b", "c"}), occurs),
                   [](const std::tuple<std::string, std::string>& parts) {
                     return "<xs:element name='" + std::get<0>(parts) + "' type='xs:int'" + std::get<1>(parts) + "/>";
                   });
  if (depth == 0) return element;
  const auto group = rc::gen::map(
      rc::gen::tuple(
          rc::gen::elementOf(std::vector<std::string>{"sequence", "choice"}), occurs,
          rc::gen::resize(4, rc::gen::nonEmpty(rc::gen::container<std::vector<std::string>>(GenParticle(depth - 1))))),
      [](const std::tuple<std::string, std::string, std::vector<std::string>>& parts) {
        const auto& [kind, times, inside] = parts;
        std::string text = "<xs:" + kind + times + ">";
        for (const std::string& each : inside) text += each;
        return text + "</xs:" + kind + ">";
      });
  return rc::gen::oneOf(element, group);
}

RC_GTEST_FIXTURE_PROP(FastValidationTest, NoModelIsReadWiderThanByLibxml2, ()) {
  const std::string schema = SchemaOf("<xs:element name='r'><xs:complexType><xs:sequence>" + *GenParticle(2) +
                                      *GenParticle(2) + "</xs:sequence></xs:complexType></xs:element>");
  const auto tables = SchemaTables::Of(schema);
  if (!tables) RC_DISCARD("not followed");
  std::optional<CompiledSchema> compiled;
  try {
    compiled.emplace(SchemaSource(folder_.Write("schema.xsd", schema)), std::string_view(), "Test");
  } catch (const Error&) {
    RC_DISCARD("ambiguous");
  }
  const auto fast = FastSchema::Of(*tables);
  for (int i = 0; i < 20; ++i) {
    std::string document = "<r>";
    for (const char name :
         *rc::gen::resize(7, rc::gen::container<std::string>(rc::gen::elementOf(std::string("abc"))))) {
      document += std::string("<") + name + ">1</" + name + ">";
    }
    document += "</r>";
    if (!testing::FastVerdict::IsValid(*fast, document)) continue;
    RC_ASSERT(!SchemaValidator(*compiled).FirstProblem(folder_.Write("file.xml", document)));
  }
}

}  // namespace
}  // namespace zevo
