// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastSchema.h>

#include <gtest/gtest.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/SchemaSource.h>

#include <memory>
#include <string>
#include <string_view>

#include "tests/platform/SchemaOf.h"
#include "tests/platform/SchemaPieces.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using Content = ElementType::Content;
using testing::SchemaOf;

class FastSchemaTest : public ::testing::Test {
 protected:
  // Null where a schema is not laid out, or libxml2 does not take it.
  const FastSchema* LaidOut(const std::string& text) {
    const CompiledSchema compiled(SchemaSource(folder_.Write("schema.xsd", text)), {}, "Test");
    tables_ = SchemaTables::Of(text);
    EXPECT_NE(tables_, nullptr);
    schema_ = tables_ ? FastSchema::Of(*tables_) : nullptr;
    return schema_.get();
  }

  testing::TemporaryFolder folder_;
  std::unique_ptr<const SchemaTables> tables_;
  std::unique_ptr<const FastSchema> schema_;
};

TEST_F(FastSchemaTest, TheShippedSchemaIsLaidOut) {
  tables_ = SchemaTables::Of(testing::ReadBytes(ZEVO_SCHEMA_FILE));
  schema_ = FastSchema::Of(*tables_);
  ASSERT_NE(schema_, nullptr);
  EXPECT_EQ(schema_->Namespace(), "urn:OECD:StandardAuditFile-Tax:PT_1.01_01");
  EXPECT_EQ(schema_->Find("AuditFile", false), FastSchema::kNoName);
  const FastSchema::Way* const root = schema_->Follow(FastSchema::kDocument, schema_->Find("AuditFile", true));
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(schema_->At(root->context).content, Content::kElements);
  EXPECT_EQ(schema_->Constraints().size(), 8U * 1 + 2U);
}

TEST_F(FastSchemaTest, AContextIsAPlaceInTheDocument) {
  const FastSchema* const schema = LaidOut(SchemaOf(R"(
    <xs:element name="r"><xs:complexType><xs:sequence>
      <xs:element name="a" type="t"/><xs:element name="b" type="t" minOccurs="0"/>
    </xs:sequence></xs:complexType></xs:element>
    <xs:complexType name="t"><xs:sequence><xs:element name="x" type="xs:date"/></xs:sequence></xs:complexType>)"));
  ASSERT_NE(schema, nullptr);
  const auto* const root = schema->Follow(FastSchema::kDocument, schema->Find("r", false));
  ASSERT_NE(root, nullptr);
  EXPECT_TRUE(schema->MayEnd(root->next));
  EXPECT_FALSE(schema->MayEnd(FastSchema::kDocument));
  const auto* const a = schema->Follow(schema->At(root->context).start, schema->Find("a", false));
  ASSERT_NE(a, nullptr);
  EXPECT_TRUE(schema->MayEnd(a->next));
  const auto* const b = schema->Follow(a->next, schema->Find("b", false));
  ASSERT_NE(b, nullptr);
  EXPECT_NE(a->context, b->context);
  EXPECT_EQ(schema->Follow(b->next, schema->Find("a", false)), nullptr);
  EXPECT_EQ(schema->Follow(a->next, FastSchema::kNoName), nullptr);
  const auto* const x = schema->Follow(schema->At(a->context).start, schema->Find("x", false));
  ASSERT_NE(x, nullptr);
  EXPECT_EQ(schema->At(x->context).content, Content::kText);
  EXPECT_TRUE(schema->At(x->context).type->IsSureOf("2008-02-29"));
  EXPECT_EQ(schema->Follow(schema->At(x->context).start, schema->Find("x", false)), nullptr);
}

TEST_F(FastSchemaTest, ElementsInsideThemselvesAreNotLaidOut) {
  EXPECT_EQ(LaidOut(SchemaOf(R"(<xs:element name="r" type="t"/><xs:complexType name="t"><xs:sequence>
      <xs:element name="r" type="t" minOccurs="0"/></xs:sequence></xs:complexType>)")),
            nullptr);
}

TEST_F(FastSchemaTest, TooManyContextsAreNotLaidOut) {
  // Each type has two of the next.
  std::string types;
  for (int i = 0; i < 16; ++i) {
    types += "<xs:complexType name='t" + std::to_string(i) + "'><xs:sequence><xs:element name='a' type='t" +
             std::to_string(i + 1) + "'/><xs:element name='b' type='t" + std::to_string(i + 1) +
             "'/></xs:sequence></xs:complexType>";
  }
  types += "<xs:complexType name='t16'><xs:sequence><xs:element name='x'/></xs:sequence></xs:complexType>";
  EXPECT_EQ(LaidOut(SchemaOf("<xs:element name='r' type='t0'/>" + types)), nullptr);
  EXPECT_NE(LaidOut(SchemaOf("<xs:element name='r' type='t8'/>" + types)), nullptr);
}

TEST_F(FastSchemaTest, KeysAreTextsOrNumbers) {
  const auto keyed = [](std::string_view type) {
    return SchemaOf(std::string(R"(<xs:element name="r"><xs:complexType><xs:sequence>
      <xs:element name="k" maxOccurs="unbounded" type=")")
                        .append(type)
                        .append(R"("/></xs:sequence></xs:complexType>
      <xs:unique name="u"><xs:selector xpath="k"/><xs:field xpath="."/></xs:unique></xs:element>)"));
  };
  EXPECT_NE(LaidOut(keyed("xs:string")), nullptr);
  EXPECT_NE(LaidOut(keyed("xs:int")), nullptr);
  EXPECT_EQ(LaidOut(keyed("xs:date")), nullptr);
  EXPECT_EQ(LaidOut(keyed("xs:anyType")), nullptr);
}

}  // namespace
}  // namespace zevo
