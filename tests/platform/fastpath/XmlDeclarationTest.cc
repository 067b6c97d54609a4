// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/XmlDeclaration.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/platform/Numbered.h"

namespace zevo {
namespace {

struct Declaration {
  std::string_view declaration;
  bool standalone = false;
};

class XmlDeclarationTest : public ::testing::TestWithParam<Declaration> {};

TEST_P(XmlDeclarationTest, IsTaken) {
  const auto& [declaration, standalone] = GetParam();
  const auto parsed = ParseXmlDeclaration(std::string(declaration) + "<a/>");
  ASSERT_TRUE(parsed) << declaration;
  EXPECT_EQ(parsed->size, declaration.size());
  EXPECT_EQ(parsed->standalone, standalone);
}

INSTANTIATE_TEST_SUITE_P(, XmlDeclarationTest,
                         ::testing::Values(Declaration{"<?xml version='1.0'?>"}, Declaration{"<?xml version=\"1.0\"?>"},
                                           Declaration{"<?xml \t\r\n version \n=\t'1.0' \r?>"},
                                           Declaration{"<?xml version='1.0' encoding='UTF-8'?>"},
                                           Declaration{"<?xml version='1.0' encoding=\"windows-1252\" ?>"},
                                           Declaration{"<?xml version='1.0' encoding='aZ09._-'?>"},
                                           Declaration{"<?xml version='1.0' standalone='no'?>"},
                                           Declaration{"<?xml version='1.0' standalone='yes'?>", true},
                                           Declaration{"<?xml version='1.0' encoding='x' standalone = \"yes\"?>",
                                                       true}),
                         testing::Numbered());

class NoXmlDeclarationTest : public ::testing::TestWithParam<std::string_view> {};

TEST_P(NoXmlDeclarationTest, IsGivenUp) { EXPECT_FALSE(ParseXmlDeclaration(GetParam())); }

INSTANTIATE_TEST_SUITE_P(
    , NoXmlDeclarationTest,
    ::testing::Values("", "<?", "<?xml", "<?xml?>", "<?xml ?>", "<?xml version='1.0'", "<?xml version='1.0'?",
                      "<?xml version='1.0' ?<a>", "<?xml version='1.0'>", "<?xmlversion='1.0'?>",
                      "<?XML version='1.0'?>", "<?xml Version='1.0'?>", "<?xml version=1.0?>", "<?xml version='1.0\"?>",
                      "<?xml version='1.0?>", "<?xml version'1.0'?>", "<?xml version='1.1'?>", "<?xml version='1.00'?>",
                      "<?xml version=' 1.0'?>", "<?xml version=''?>", "<?xml encoding='UTF-8'?>",
                      "<?xml standalone='yes'?>", "<?xml version='1.0'encoding='UTF-8'?>",
                      "<?xml version='1.0' encoding=UTF-8?>", "<?xml version='1.0' encoding='8'?>",
                      "<?xml version='1.0' encoding=''?>", "<?xml version='1.0' encoding='a b'?>",
                      "<?xml version='1.0' encoding='\xC3\xA9'?>", "<?xml version='1.0' encoding='x'standalone='yes'?>",
                      "<?xml version='1.0' standalone='Yes'?>", "<?xml version='1.0' standalone=''?>",
                      "<?xml version='1.0' standalone='yes' encoding='x'?>", "<?xml version='1.0' version='1.0'?>",
                      "<?xml version='1.0' x='y'?>", "<?xml-a version='1.0'?>",
                      "<?xml version='1.0' encoding='x' standalone='yes' x?>"),
    testing::Numbered());

}  // namespace
}  // namespace zevo
