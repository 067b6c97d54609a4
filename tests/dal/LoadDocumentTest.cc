// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/dal/ElementName.h>
#include <zevo/dal/LoadDocument.h>

#include <string>

#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using testing::ErrorOf;
using testing::TemporaryFolder;

TEST(LoadDocumentTest, NewDocumentIsEmpty) { EXPECT_FALSE(NewDocument()->Root()); }

TEST(LoadDocumentTest, NamesHaveTheNumbersThatTheMappersCountOn) {
  const TemporaryFolder folder;
  const auto loaded = LoadDocument(folder.Write("a.xml", "<x><Website/></x>"), Indentation::kKept);
  const auto fresh = NewDocument();
  for (const Document* document : {fresh.get(), loaded.get()}) {
    for (size_t i = 0; i < kElementNames.size(); ++i) EXPECT_EQ(document->Names().Find(kElementNames[i]), i + 1);
  }
}

TEST(LoadDocumentTest, GivesTheTreeInTheFile) {
  const TemporaryFolder folder;
  const auto document =
      LoadDocument(folder.Write("a.xml", "<AuditFile><Header>x</Header></AuditFile>"), Indentation::kKept);
  ASSERT_TRUE(document->Root());
  EXPECT_EQ(document->Root().Name(), "AuditFile");
  EXPECT_EQ(document->FirstChild(document->Root(), "Header").AllText(), "x");
}

TEST(LoadDocumentTest, NameOfTheFileIsUtf8) {
  const TemporaryFolder folder;
  EXPECT_TRUE(LoadDocument(folder.Write("exerc\u00edcio \u20ac.xml", "<AuditFile/>"), Indentation::kKept)->Root());
}

TEST(LoadDocumentTest, ErrorOfTheParserTellsWhereAndCarriesItsCode) {
  const TemporaryFolder folder;
  const Error error =
      ErrorOf([&] { LoadDocument(folder.Write("a.xml", "<AuditFile>\n  <a></b>\n</AuditFile>"), Indentation::kKept); });
  EXPECT_EQ(error.Number(), 76);  // XML_ERR_TAG_NAME_MISMATCH
  EXPECT_EQ(error.Source(), "MSXML2.DOMDocument.Load");
  EXPECT_NE(error.Description().find('2'), std::string::npos) << "no line in: " << error.Description();
}

struct Refused {
  const char* what;
  std::string bytes;
};
void PrintTo(const Refused& refused, std::ostream* out) { *out << refused.what; }

class LoadDocumentRefusesTest : public ::testing::TestWithParam<Refused> {};

TEST_P(LoadDocumentRefusesTest, RefusesWithTheSourceOfALoad) {
  const TemporaryFolder folder;
  const Error error = ErrorOf([&] { LoadDocument(folder.Write("a.xml", GetParam().bytes), Indentation::kKept); });
  EXPECT_GT(error.Number(), 0);
  EXPECT_EQ(error.Source(), "MSXML2.DOMDocument.Load");
  EXPECT_NE(error.Description(), "");
}

INSTANTIATE_TEST_SUITE_P(LoadDocument, LoadDocumentRefusesTest,
                         ::testing::Values(Refused{"EmptyFile", ""}, Refused{"NoElement", "<?xml version='1.0'?>"},
                                           Refused{"CutOff", "<AuditFile><Header>"}, Refused{"TwoRoots", "<a/><b/>"},
                                           Refused{"TextOnly", "AuditFile"},
                                           Refused{"ForbiddenCharacter", "<a>\x01</a>"},
                                           Refused{"UndeclaredPrefix", "<s:a/>"},
                                           Refused{"DocumentType", "<!DOCTYPE a []><a/>"},
                                           Refused{"NotUtf8", "<a>\xC3</a>"}),
                         [](const auto& test) { return test.param.what; });

}  // namespace
}  // namespace zevo
