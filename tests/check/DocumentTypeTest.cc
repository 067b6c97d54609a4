// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/DocumentType.h>

#include <string>
#include <string_view>

namespace zevo {
namespace {

// What is known of a type, such as "debit, until 2012-12-31, summarised".
std::string Known(std::string_view code) {
  const DocumentType* const type = DocumentType::Find(code);
  if (type == nullptr) return "none";
  std::string known = type->is_debit ? "debit" : "credit";
  if (type->first) known.append(", from ").append(type->first->Text());
  if (type->last) known.append(", until ").append(type->last->Text());
  if (type->may_be_summarised) known.append(", summarised");
  return known;
}

TEST(DocumentTypeTest, TheTypesOfTheSchemaAreKnown) {
  for (const char* const code : {"FT", "ND", "RP", "CS", "LD", "RA"}) EXPECT_EQ(Known(code), "credit") << code;
  for (const char* const code : {"NC", "RE"}) EXPECT_EQ(Known(code), "debit") << code;
  for (const char* const code : {"VD", "AA"}) EXPECT_EQ(Known(code), "credit, until 2012-12-31") << code;
  EXPECT_EQ(Known("DA"), "debit, until 2012-12-31");
  EXPECT_EQ(Known("TV"), "credit, until 2012-12-31, summarised");
  EXPECT_EQ(Known("TD"), "debit, until 2012-12-31, summarised");
  EXPECT_EQ(Known("FS"), "credit, from 2013-01-01, summarised");
  for (const char* const code : {"", "ft", "FR", "FT "}) EXPECT_EQ(Known(code), "none") << code;
}

}  // namespace
}  // namespace zevo
