// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

constexpr std::string_view kMarkup = "<>/=\"'?!&; \n:";

// What may stand in a file by mistake.
const std::vector<std::string> kPieces{"&",
                                       "&;",
                                       "&x;",
                                       "&amp",
                                       "&#;",
                                       "&#x;",
                                       "&#0;",
                                       "&#xFFFF;",
                                       "&#99999999999;",
                                       "&#xZ;",
                                       "&#1;",
                                       "<!-- a -- b -->",
                                       "<!--",
                                       "<!-->",
                                       "<?",
                                       "<? x?>",
                                       "<?xml version='1.0'?>",
                                       "<?XML x?>",
                                       "<?a:b c?>",
                                       "<?a",
                                       "<?a\x01?>",
                                       "<![CDATA[",
                                       "]]>",
                                       "<!DOCTYPE a>",
                                       "<!x",
                                       "<a b='1' b='2'/>",
                                       "<a b/>",
                                       "<a b=c/>",
                                       "<a b='<'/>",
                                       "<a b='&x;'/>",
                                       "<a b='&'/>",
                                       "<a b='1'c='2'/>",
                                       "<p:a/>",
                                       "<a p:b='1'/>",
                                       "<a xmlns:p='u' xmlns:q='u' p:b='1' q:b='2'/>",
                                       "<a xmlns:p='u' xmlns:p='u'/>",
                                       "<a xmlns:p=''/>",
                                       "<a xmlns:xml='u'/>",
                                       "<a xmlns:xmlns='u'/>",
                                       "<a xmlns='http://www.w3.org/XML/1998/namespace'/>",
                                       "<a xmlns:p='http://www.w3.org/2000/xmlns/'/>",
                                       "<a:b:c/>",
                                       "<:a/>",
                                       "<a:/>",
                                       "<a:1/>",
                                       "<1/>",
                                       "< a/>",
                                       "</>",
                                       "</ a>",
                                       "</a b>",
                                       "<a",
                                       "<a ",
                                       "<a b",
                                       "<a b=",
                                       "<a b='",
                                       "\x01",
                                       "\xff",
                                       "\xC3",
                                       "\xE2\x82",
                                       "\xF0\x9F",
                                       "\xED\xA0\x80",
                                       std::string(1, '\0'),
                                       "\xEF\xBF\xBF",
                                       "\xEF\xBB\xBF",
                                       "<a><b></a></b>",
                                       "text",
                                       "<a/>",
                                       "<a b='\x01'/>",
                                       "<a b='\xff'/>",
                                       "<a\x01/>",
                                       "<?a \xff?>",
                                       "<!-- \x01 -->",
                                       "<!-- \xff -->",
                                       "<![CDATA[\x01]]>",
                                       "%x;"};

const std::vector<std::string> kDeclarations{"<?xml?>",
                                             "<?xml version='2.0'?>",
                                             "<?xml version='a'?>",
                                             "<?xml version=1.0?>",
                                             "<?xml version='1.0' encoding='x'?>",
                                             "<?xml version='1.0' encoding=''?>",
                                             "<?xml version='1.0' encoding='!'?>",
                                             "<?xml version='1.0' encoding=utf-8?>",
                                             "<?xml version='1.0' encoding='utf-16'?>",
                                             "<?xml version='1.0' standalone='x'?>",
                                             "<?xml version='1.0' standalone='yes' encoding='utf-8'?>",
                                             "<?xml version='1.0'",
                                             "<?xml version='1.0' a?>",
                                             "<?xml version='1.0'>",
                                             "<?xml encoding='utf-8'?>",
                                             "<?xml version='1.0'encoding='utf-8'?>",
                                             "<?xml version='1.0' encoding='us-ascii'?>",
                                             "<?xml version '1.0'?>",
                                             "<?xml version='1.0",
                                             "<?xmlx version='1.0'?>",
                                             "<?xml version='1.0' standalone=x?>"};

std::string Many(int count, const std::function<std::string(const std::string& number)>& piece) {
  std::string all;
  for (int i = 0; i < count; ++i) all += piece(std::to_string(i));
  return all;
}

// What goes beyond a limit of the parser.
std::vector<std::string> Excesses() {
  const std::string long_text(11'000'000, 'x');
  return {Many(300, [](const std::string&) { return "<a>"; }),
          "<a b='" + std::string(200'000, 'x') + "'/>",
          "<" + std::string(60'000, 'x') + "/>",
          "<?a " + long_text + "?>",
          "<!--" + long_text + "-->",
          "<![CDATA[" + long_text + "]]>",
          long_text,
          "<a" + Many(300, [](const std::string& i) { return " b" + i + "='1'"; }) + "/>",
          "<a" + Many(100, [](const std::string& i) { return " xmlns:b" + i + "='1'"; }) + "/>",
          Many(11'000, [](const std::string& i) { return "<a" + i + "/>"; }),
          Many(11'000, [](const std::string& i) { return "<?a" + i + "?>"; })};
}

std::string WithoutPlace(const std::string& description) {
  return description.substr(0, description.rfind(" (linha "));
}

// The complete file, in which something is not as XML has it.
class MutatedFileTest : public ::testing::Test {
 protected:
  using Told = std::map<int32_t, std::set<std::string>>;

  std::string With(size_t at, size_t length, std::string_view other) const {
    return std::string(file_).replace(at, length, other);
  }
  size_t Find(std::string_view text) const {
    const size_t at = file_.find(text);
    EXPECT_NE(at, std::string::npos) << text;
    return at;
  }
  /// Reads the document, in a way whose kinds of failure are judged as well where they come up first.
  void Try(const std::string& document) {
    const std::string path = folder_.Write("file.xml", document);
    AuditFileStreamer streamer;
    streamer.set_AuditFileName(path);
    if (!streamer.OpenAuditFile() || streamer.ReadAuditFile() || !streamer.AuditException()) return;
    Judge(*streamer.AuditException());
    const std::string reason = WithoutPlace(streamer.AuditException()->Description());
    if (!seen_.insert({streamer.AuditException()->Number(), reason.substr(0, 12)}).second) return;
    validator_.set_AuditFileName(path);
    if (!validator_.ValidateAuditFile()) Judge(*validator_.AuditException());
  }
  // Of what the library refuses itself the description is in Portuguese already.
  static bool IsOwnText(int32_t number, const std::string& reason) {
    return number < 0 || number == 32 || number == 81 || number == 111 || reason.starts_with("O carácter");
  }
  /// Expects sentences in which the parser's words are not left.
  void Judge(const AuditException& error) {
    const std::string& description = error.Description();
    const std::string reason = WithoutPlace(description);
    const std::string portuguese = Describe(error, Language::kPortuguese);
    const std::string english = Describe(error, Language::kEnglish);
    told_[error.Number()].insert(portuguese + " | " + english);
    EXPECT_NE(portuguese, english) << description;
    EXPECT_EQ(english.find(reason), std::string::npos) << description;
    EXPECT_EQ(english.find("linha"), std::string::npos) << english;
    EXPECT_EQ(portuguese.find("analisador"), std::string::npos) << description;
    EXPECT_EQ(english.find("of the parser"), std::string::npos) << description;
    for (const std::string_view word : {" line ", " and ", " not ", " expected", "nvalid", "xmlParse", "PI ", "Tag ",
                                        "Char", " too ", " the ", " in ", "defined"}) {
      EXPECT_EQ(portuguese.find(word), std::string::npos) << portuguese;
    }
    if (IsOwnText(error.Number(), reason)) return;
    EXPECT_EQ(portuguese.find(reason), std::string::npos) << description;
    if (description.size() > reason.size()) {
      const std::string place = description.substr(reason.size());
      EXPECT_TRUE(portuguese.ends_with(place + ".")) << portuguese;
    }
  }

  testing::UseSchema schema_;
  testing::TemporaryFolder folder_;
  std::string file_ = testing::ReadBytes(ZEVO_COMPLETE_FILE);
  AuditFileValidator validator_;
  std::set<std::pair<int32_t, std::string>> seen_;
  Told told_;
};

TEST_F(MutatedFileTest, CutAnywhereItIsToldInWords) {
  for (size_t size = 0; size < file_.size(); size += size < 400 ? 1 : 29) Try(file_.substr(0, size));
  EXPECT_GE(told_.size(), 5U);
}

TEST_F(MutatedFileTest, WithOtherMarkupItIsToldInWords) {
  const std::string others = std::string(kMarkup).append("-]\x01\xff").append(1, '\0');
  for (size_t at = 0; at < file_.size(); at += at < 300 ? 1 : 97) {
    at = file_.find_first_of(kMarkup, at);
    if (at == std::string::npos) break;
    Try(With(at, 1, ""));
    Try(With(at, 0, file_.substr(at, 1)));
    for (const char other : others) Try(With(at, 1, std::string(1, other)));
  }
  EXPECT_GE(told_.size(), 15U);
}

TEST_F(MutatedFileTest, WithWhatXmlDoesNotAllowItIsToldInWords) {
  const size_t name = Find("<CompanyName>");
  const size_t places[] = {
      0,         5,         Find("<AuditFile"),   Find("<Header"), name,          name + 5,
      name + 12, name + 13, Find("</AuditFile>"), file_.size(),    Find("xmlns"), Find("\"urn") + 3};
  for (const size_t place : places) {
    for (const std::string& piece : kPieces) Try(With(place, 0, piece));
  }
  EXPECT_GE(told_.size(), 25U);
}

TEST_F(MutatedFileTest, WithAnotherDeclarationItIsToldInWords) {
  const size_t end = Find("?>") + 2;
  for (const std::string& declaration : kDeclarations) {
    Try(With(0, end, declaration));
    Try(declaration);
  }
  for (const std::string document : {"", " ", "<", "x", "\xff\xfe", "<a>"}) Try(document);
  EXPECT_GE(told_.size(), 10U);
}

TEST_F(MutatedFileTest, BeyondALimitItIsToldInWords) {
  for (const std::string& excess : Excesses()) Try(With(Find("<Header"), 0, excess));
  EXPECT_GE(told_[111].size(), 7U);
}

TEST_F(MutatedFileTest, AMutatedSchemaIsToldInWords) {
  const std::string schema = testing::ReadBytes(ZEVO_SCHEMA_FILE);
  validator_.set_AuditFileName(folder_.Write("file.xml", file_));
  const std::pair<std::string, std::string> changes[] = {
      {"</xs:schema>", ""},
      {"<xs:element", "<xs:elemen"},
      {"type=\"", "type=\"x"},
      {"ref=\"", "ref=\"x"},
      {"minOccurs=\"0\"", "minOccurs=\"x\""},
      {"base=\"xs:string\"", "base=\"xs:strin\""},
      {"<xs:sequence>", "<xs:sequenc>"},
      {"name=\"", "nam=\""},
      {"targetNamespace=\"", "targetNamespace=\"x"},
      {"xs:maxLength value=\"", "xs:maxLength value=\"x"},
      {"xs:pattern value=\"", "xs:pattern value=\"("},
      {"<xs:selector xpath=\"", "<xs:selector xpath=\"//["},
  };
  for (const auto& [text, other] : changes) {
    const size_t at = schema.find(text);
    ASSERT_NE(at, std::string::npos) << text;
    const std::string path = folder_.Write("own.xsd", std::string(schema).replace(at, text.size(), other));
    validator_.set_AuditFileSchema(path);
    if (validator_.ValidateAuditFile()) continue;
    ASSERT_TRUE(validator_.IsSchemaAtFault());
    const AuditException& error = *validator_.AuditException();
    const std::string portuguese = Describe(error, Language::kPortuguese);
    const std::string english = Describe(error, Language::kEnglish);
    EXPECT_TRUE(portuguese.starts_with(path + ": ")) << portuguese;
    EXPECT_TRUE(english.starts_with(path + ": ")) << english;
    EXPECT_EQ(english.find("linha"), std::string::npos) << english;
    for (const std::string_view word : {" line ", " and ", " not ", " is ", "The ", "Element "}) {
      EXPECT_EQ(portuguese.find(word), std::string::npos) << portuguese;
    }
    told_[error.Number()].insert(portuguese);
  }
  EXPECT_GE(told_.size(), 5U);
}

}  // namespace
}  // namespace zevo
