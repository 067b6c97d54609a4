// SPDX-License-Identifier: Apache-2.0
// Every code point there is, as text, through both writers: two other parsers read it back as it was, or it is refused.

#include <expat.h>
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <zevo/adapters.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/CodePoints.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using namespace zevo::testing;

// All that XML takes, in pieces. Tabs and ends of lines have rules of their own; spaces at the ends would be lost.
std::vector<std::string> AllTexts() {
  std::vector<std::string> texts;
  std::string text;
  for (char32_t c = 0x20; c <= kLastCodePoint; ++c) {
    if (IsXmlCharacter(c)) text += Utf8Of(c);
    if (c % 4096 == 4095 || c == kLastCodePoint) texts.push_back("(" + std::exchange(text, "") + ")");
  }
  return texts;
}

std::shared_ptr<Customer> Named(std::string_view name) {
  auto customer = SampleCustomer("C1");
  customer->set_CompanyName(name);
  return customer;
}

bool Close(AuditFile& file) { return file.UpdateAuditFile(); }
bool Close(AuditFileStreamWriter& file) { return file.CloseAuditFile(); }

std::vector<std::string> NamesReadByLibxml2(const std::string& path) {
  std::vector<std::string> names;
  const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document(xmlReadFile(path.c_str(), nullptr, XML_PARSE_HUGE),
                                                            &xmlFreeDoc);
  EXPECT_NE(document, nullptr);
  if (!document) return names;
  const auto child = [](xmlNode* node, const char* name) {
    for (node = node->children; node != nullptr && !xmlStrEqual(node->name, BAD_CAST name);) node = node->next;
    return node;
  };
  for (xmlNode* node = child(xmlDocGetRootElement(document.get()), "MasterFiles")->children; node; node = node->next) {
    const std::unique_ptr<xmlChar, void (*)(void*)> text(xmlNodeGetContent(child(node, "CompanyName")), xmlFree);
    names.emplace_back(reinterpret_cast<const char*>(text.get()));
  }
  return names;
}

struct ExpatNames {
  std::vector<std::string> names;
  bool inside = false;
};

// As the code page has it; the bytes that it leaves undefined are not written.
int Windows1252(void*, const XML_Char*, XML_Encoding* encoding) {
  constexpr int kHigh[] = {0x20AC, -1,     0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                           0x2039, 0x0152, -1,     0x017D, -1,     -1,     0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                           0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, -1,     0x017E, 0x0178};
  for (int i = 0; i < 256; ++i) encoding->map[i] = i >= 0x80 && i < 0xA0 ? kHigh[i - 0x80] : i;
  encoding->data = nullptr;
  encoding->convert = nullptr;
  encoding->release = nullptr;
  return XML_STATUS_OK;
}

std::vector<std::string> NamesReadByExpat(const std::string& path) {
  ExpatNames found;
  const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr), &XML_ParserFree);
  XML_SetUserData(parser.get(), &found);
  XML_SetUnknownEncodingHandler(parser.get(), &Windows1252, nullptr);
  XML_SetElementHandler(
      parser.get(),
      [](void* self, const XML_Char* name, const XML_Char**) {
        auto& names = *static_cast<ExpatNames*>(self);
        names.inside = std::string_view(name) == "CompanyName";
        if (names.inside) names.names.emplace_back();
      },
      [](void* self, const XML_Char*) { static_cast<ExpatNames*>(self)->inside = false; });
  XML_SetCharacterDataHandler(parser.get(), [](void* self, const XML_Char* text, int length) {
    auto& names = *static_cast<ExpatNames*>(self);
    if (names.inside) names.names.back().append(text, static_cast<size_t>(length));
  });
  const std::string bytes = ReadBytes(path);
  EXPECT_EQ(XML_Parse(parser.get(), bytes.data(), static_cast<int>(bytes.size()), 1), XML_STATUS_OK)
      << XML_ErrorString(XML_GetErrorCode(parser.get()));
  return found.names;
}

template <class Writer>
class CodePointTest : public ::testing::Test {
 protected:
  CodePointTest() {
    Options().set_ValidateOnAssignment(false);
    file_.set_AuditFileName(path_);
    EXPECT_TRUE(file_.CreateAuditFile());
  }
  ~CodePointTest() override { Options().set_ValidateOnAssignment(validates_); }

  bool validates_ = Options().ValidateOnAssignment();
  TemporaryFolder folder_;
  std::string path_ = folder_.Path("saft.xml");
  Writer file_;
};

using Writers = ::testing::Types<AuditFile, AuditFileStreamWriter>;
TYPED_TEST_SUITE(CodePointTest, Writers);

TYPED_TEST(CodePointTest, EveryCharacterOfXmlIsReadBackByOtherParsers) {
  const std::vector<std::string> texts = AllTexts();
  ASSERT_EQ(texts.size(), (kLastCodePoint + 1) / 4096);
  for (const std::string& text : texts) ASSERT_TRUE(this->file_.CreateCustomer(*Named(text)));
  ASSERT_TRUE(Close(this->file_));
  EXPECT_TRUE(NamesReadByLibxml2(this->path_) == texts);
  EXPECT_TRUE(NamesReadByExpat(this->path_) == texts);
}

TYPED_TEST(CodePointTest, EveryOtherOneIsRefusedBeforeAByteOfItsElement) {
  int refused = 0;
  for (char32_t c = 0; c <= 0xFFFF; ++c) {
    if (IsXmlCharacter(c)) continue;
    ASSERT_FALSE(this->file_.CreateCustomer(*Named("a" + Utf8Of(c) + "b"))) << static_cast<uint32_t>(c);
    ASSERT_EQ(this->file_.AuditException()->Number(), kInvalidCall) << static_cast<uint32_t>(c);
    ++refused;
  }
  EXPECT_EQ(refused, 29 + 2048 + 2);
  ASSERT_TRUE(Close(this->file_));
  EXPECT_EQ(ReadBytes(this->path_).find("<CompanyName"), std::string::npos);
}

TYPED_TEST(CodePointTest, BytesThatAreNoTextAreRefusedBeforeAByteOfTheirElement) {
  for (const std::string_view bytes :
       {"\xC9vora", "\xC0\x80", "\xE2\x82", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"}) {
    ASSERT_FALSE(this->file_.CreateCustomer(*Named(bytes)));
    ASSERT_EQ(this->file_.AuditException()->Number(), kInvalidCall);
  }
  ASSERT_TRUE(Close(this->file_));
  EXPECT_EQ(ReadBytes(this->path_).find("<CompanyName"), std::string::npos);
}

// Whatever an identifier says, it is a text of its element and nothing more.
TYPED_TEST(CodePointTest, MarkupInAnIdentifierIsText) {
  const std::vector<std::string> texts = {"\"/><Customer x=\"",
                                          "']",
                                          "]]>",
                                          "<![CDATA[",
                                          "</CompanyName>",
                                          "<!--",
                                          "-->",
                                          "<?p?>",
                                          "&amp;",
                                          "&#60;",
                                          "<a/>",
                                          "' or '1'='1",
                                          "%00",
                                          "{}",
                                          "\\"};
  for (const std::string& text : texts) {
    const auto customer = Named(text);
    customer->set_CustomerID(text);
    ASSERT_TRUE(this->file_.CreateCustomer(*customer));
  }
  ASSERT_TRUE(Close(this->file_));
  EXPECT_EQ(NamesReadByLibxml2(this->path_), texts);
  EXPECT_EQ(NamesReadByExpat(this->path_), texts);

  AuditFileReader reader;
  reader.set_AuditFileName(this->path_);
  ASSERT_TRUE(reader.OpenAuditFile());
  for (const std::string& text : texts) {
    std::shared_ptr<Customer> customer;
    ASSERT_TRUE(reader.ReadCustomer(customer) && customer) << Told(reader.AuditException());
    EXPECT_EQ(customer->CustomerID(), text);
  }
}

}  // namespace
}  // namespace zevo
