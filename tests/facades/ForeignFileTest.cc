// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/c14n.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <zevo/adapters.h>

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

// Files as other software writes them.

namespace zevo {
namespace {

using namespace zevo::testing;
using ::testing::HasSubstr;
using ::testing::Values;

constexpr std::string_view kNamespace = "urn:OECD:StandardAuditFile-Tax:PT_1.01_01";

// What a second parser sees of a file.
class Witness {
 public:
  explicit Witness(const std::string& bytes)
      : document_(xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr,
                                XML_PARSE_NOBLANKS | XML_PARSE_NONET),
                  xmlFreeDoc) {
    if (document_ == nullptr) throw std::runtime_error("not well-formed");
  }

  // Everything that the document says, in one spelling. Blanks between elements do not count.
  std::string Canonical() const {
    xmlChar* text = nullptr;
    const int size = xmlC14NDocDumpMemory(document_.get(), nullptr, XML_C14N_1_0, nullptr, 1, &text);
    std::string result(reinterpret_cast<const char*>(text), static_cast<size_t>(size));
    xmlFree(text);
    return result;
  }

  // Takes the last element out of the first section of that name, and gives it.
  struct Taken {
    std::string name;
    std::string xml_namespace;
    std::string first_child_namespace;
  };
  Taken TakeLastOf(std::string_view section) {
    for (xmlNode* node = xmlFirstElementChild(xmlDocGetRootElement(document_.get())); node != nullptr;
         node = xmlNextElementSibling(node)) {
      if (Text(node->name) != section) continue;
      xmlNode* last = xmlLastElementChild(node);
      Taken taken{Text(last->name), NamespaceOf(last), NamespaceOf(xmlFirstElementChild(last))};
      xmlUnlinkNode(last);
      xmlFreeNode(last);
      return taken;
    }
    return {};
  }

 private:
  static std::string Text(const xmlChar* text) { return text == nullptr ? "" : reinterpret_cast<const char*>(text); }
  static std::string NamespaceOf(const xmlNode* node) { return node->ns == nullptr ? "" : Text(node->ns->href); }

  std::unique_ptr<xmlDoc, void (*)(xmlDocPtr)> document_;
};

std::string ToUtf16(std::string_view latin, bool bigEndian) {
  std::string result = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : latin) {
    if (bigEndian) result += '\0';
    result += c;
    if (!bigEndian) result += '\0';
  }
  return result;
}

// The children that the schema asks for, as text.
constexpr std::string_view kHeader =
    "<Header><AuditFileVersion>1.01_01</AuditFileVersion><CompanyID>12345</CompanyID>"
    "<TaxRegistrationNumber>500000001</TaxRegistrationNumber><TaxAccountingBasis>I</TaxAccountingBasis>"
    "<CompanyName>Casa</CompanyName><CompanyAddress><AddressDetail>Rua</AddressDetail><City>Porto</City>"
    "<PostalCode>4000-001</PostalCode><Country>PT</Country></CompanyAddress><FiscalYear>2010</FiscalYear>"
    "<StartDate>2010-01-01</StartDate><EndDate>2010-12-31</EndDate><CurrencyCode>EUR</CurrencyCode>"
    "<DateCreated>2011-01-15</DateCreated><TaxEntity>Global</TaxEntity>"
    "<ProductCompanyTaxID>500000000</ProductCompanyTaxID>"
    "<SoftwareCertificateNumber>0</SoftwareCertificateNumber><ProductID>Gestor/Oficina</ProductID>"
    "<ProductVersion>1</ProductVersion></Header>";

constexpr std::string_view kMasterFiles =
    "<MasterFiles><Customer><CustomerID>C1</CustomerID><AccountID>21111</AccountID>"
    "<CustomerTaxID>500000002</CustomerTaxID><CompanyName>Cliente</CompanyName><BillingAddress>"
    "<AddressDetail>Rua</AddressDetail><City>Faro</City><PostalCode>8000-001</PostalCode><Country>PT</Country>"
    "</BillingAddress><SelfBillingIndicator>0</SelfBillingIndicator></Customer></MasterFiles>";

constexpr std::string_view kEntries =
    "<GeneralLedgerEntries><NumberOfEntries>0</NumberOfEntries><TotalDebit>0.00</TotalDebit>"
    "<TotalCredit>0.00</TotalCredit></GeneralLedgerEntries>";

std::string Join(std::initializer_list<std::string_view> parts) {
  std::string result;
  for (const std::string_view part : parts) result.append(part);
  return result;
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

constexpr std::string_view kBegin = "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\">";
constexpr std::string_view kEnd = "</AuditFile>";

struct ForeignFile {
  const char* name;
  std::string bytes;
  bool valid = true;
};

void PrintTo(const ForeignFile& file, std::ostream* out) { *out << file.name; }

std::string Prefixed() {
  const std::string content = Join({kHeader, kMasterFiles, kEntries});
  return Join({"<n:AuditFile xmlns:n=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\">",
               Replaced(Replaced(Replaced(content, "</", "\x01"), "<", "<n:"), "\x01", "</n:"), "</n:AuditFile>"});
}

std::string Indented() {
  return Join({"<?xml version=\"1.0\"?>\r\n", kBegin, "\r\n\t",
               Replaced(Join({kHeader, kMasterFiles, kEntries}), "><", ">\r\n\t  <"), "\r\n", kEnd, "\r\n"});
}

class ForeignFileTest : public ::testing::TestWithParam<ForeignFile> {
 protected:
  UseSchema schema_;
  TemporaryFolder folder_;
  std::string path_ = folder_.Write("saft.xml", GetParam().bytes);
  AuditFile file_;
};

TEST_P(ForeignFileTest, KeepsEverythingAndTakesACustomer) {
  file_.set_AuditFileName(path_);
  EXPECT_EQ(file_.ValidateAuditFile(), GetParam().valid) << Told(file_.AuditException());
  ASSERT_TRUE(file_.OpenAuditFile()) << Told(file_.AuditException());
  ASSERT_TRUE(file_.CreateCustomer(*SampleCustomer("Novo"))) << Told(file_.AuditException());
  ASSERT_TRUE(file_.UpdateAuditFile()) << Told(file_.AuditException());

  Witness after(ReadBytes(path_));
  const Witness::Taken taken = after.TakeLastOf("MasterFiles");
  EXPECT_EQ(taken.name, "Customer");
  EXPECT_EQ(taken.xml_namespace, kNamespace);
  EXPECT_EQ(taken.first_child_namespace, kNamespace);
  EXPECT_EQ(after.Canonical(), Witness(GetParam().bytes).Canonical());
  EXPECT_EQ(file_.ValidateAuditFile(), GetParam().valid) << Told(file_.AuditException());
}

TEST_P(ForeignFileTest, IsCounted) {
  AuditFileReader reader;
  reader.set_AuditFileName(path_);
  ASSERT_TRUE(reader.OpenAuditFile()) << Told(reader.AuditException());
  EXPECT_EQ(reader.Customers(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, ForeignFileTest,
    Values(
        ForeignFile{"one line without a declaration", Join({kBegin, kHeader, kMasterFiles, kEntries, kEnd})},
        ForeignFile{"indented, with carriage returns", Indented()}, ForeignFile{"prefixed", Prefixed()},
        ForeignFile{"in UTF-8 with a byte order mark",
                    Join({"\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>", kBegin, "<!-- Évora -->",
                          Replaced(std::string(kHeader), "Casa", "Casa Évora €"), kMasterFiles, kEnd})},
        ForeignFile{"in UTF-8 beyond the code page",
                    Join({"<?xml version=\"1.0\" encoding=\"UTF-8\"?>", kBegin,
                          Replaced(std::string(kHeader), "Casa", "Дом 家 😀"), kMasterFiles, kEnd})},
        ForeignFile{
            "in UTF-8 with a comment beyond the code page",
            Join({"<?xml version=\"1.0\" encoding=\"UTF-8\"?>", kBegin, "<!-- 家 -->", kHeader, kMasterFiles, kEnd})},
        ForeignFile{
            "in little-endian UTF-16",
            ToUtf16(Join({"<?xml version=\"1.0\" encoding=\"UTF-16\"?>", kBegin, kHeader, kMasterFiles, kEnd}), false)},
        ForeignFile{
            "in big-endian UTF-16",
            ToUtf16(Join({"<?xml version=\"1.0\" encoding=\"UTF-16\"?>", kBegin, kHeader, kMasterFiles, kEnd}), true)},
        ForeignFile{"in Windows-1252 with the euro sign",
                    Join({"<?xml version=\"1.0\" encoding=\"Windows-1252\"?>", kBegin,
                          Replaced(std::string(kHeader), "Casa", "Casa \xC9vora \x80"), kMasterFiles, kEnd})},
        ForeignFile{"with a schema location and other attributes on the root",
                    Join({"<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\""
                          " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'"
                          " xsi:schemaLocation='urn:OECD:StandardAuditFile-Tax:PT_1.01_01 other.xsd'>",
                          kHeader, kMasterFiles, kEnd})},
        ForeignFile{
            "with foreign attributes",
            Join({kBegin, Replaced(std::string(kHeader), "<CompanyID>", "<CompanyID xml:lang=\"pt\" a='\"&amp;'>"),
                  kMasterFiles, kEnd}),
            false},
        ForeignFile{"with comments and instructions everywhere",
                    Join({"<!-- before --><?first of all?>", kBegin, "<!-- in --><?go on?>",
                          Replaced(std::string(kHeader), "Casa", "Ca<!-- - in - a - leaf - -->sa<?pi?>"), "<!---->",
                          kMasterFiles, kEnd, "<!-- after --><?last?>"})},
        ForeignFile{"with sections of character data",
                    Join({kBegin, Replaced(std::string(kHeader), "Casa", "<![CDATA[Silva & <Filhos>]]> e ]]&gt;"),
                          kMasterFiles, kEnd})},
        ForeignFile{
            "with references",
            Join({kBegin, Replaced(std::string(kHeader), "Casa", "&#x20AC; &#233;&amp;&lt;&gt;&quot;&apos;&#13;&#10;"),
                  kMasterFiles, kEnd})},
        ForeignFile{"with the sections in another order", Join({kBegin, kEntries, kMasterFiles, kHeader, kEnd}), false},
        ForeignFile{"with elements of another namespace",
                    Join({kBegin, kHeader, kMasterFiles, "<x:note xmlns:x=\"urn:x\" x:a=\"1\"><x:deep/>text</x:note>",
                          "<other xmlns=\"urn:other\"><deep/></other>", kEnd}),
                    false},
        ForeignFile{"with an element of another default namespace around the section",
                    Join({"<AuditFile>",
                          Replaced(std::string(kMasterFiles), "<MasterFiles>",
                                   "<MasterFiles xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\">"),
                          kEnd}),
                    false},
        ForeignFile{"without any namespace", Join({"<AuditFile>", kMasterFiles, kEnd}), false}));

TEST(ForeignFileContentTest, IsReadThroughTheReader) {
  const UseSchema schema;
  const TemporaryFolder folder;
  AuditFileReader reader;
  reader.set_AuditFileName(folder.Write(
      "saft.xml", Join({"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- a -->\n", kBegin, "\n  ",
                        Replaced(Replaced(std::string(kHeader), "Casa", "Évora &amp; 家"), "><", ">\r\n  <"),
                        Replaced(std::string(kMasterFiles), "<MasterFiles>", "<MasterFiles><!-- b -->"), kEnd})));
  ASSERT_TRUE(reader.OpenAuditFile()) << Told(reader.AuditException());
  std::shared_ptr<Header> header;
  std::shared_ptr<Customer> customer;
  ASSERT_TRUE(reader.ReadHeader(header));
  EXPECT_EQ(header->CompanyName(), "Évora & 家");
  EXPECT_EQ(header->CompanyAddress()->City(), "Porto");
  EXPECT_EQ(header->TaxAccountingBasis(), tabI);
  ASSERT_TRUE(reader.ReadCustomer(customer));
  EXPECT_EQ(customer->CustomerID(), "C1");
  EXPECT_EQ(customer->BillingAddress()->City(), "Faro");
}

// Records of prefixed elements are found by their local names; the texts of prefixed leaves are not.
TEST(ForeignFileContentTest, LeavesWithAPrefixOrAttributesReadEmpty) {
  const UseSchema schema;
  const TemporaryFolder folder;
  AuditFileReader reader;
  reader.set_AuditFileName(folder.Write("saft.xml", Prefixed()));
  ASSERT_TRUE(reader.OpenAuditFile()) << Told(reader.AuditException());
  auto header = SampleHeader();
  ASSERT_TRUE(reader.ReadHeader(header)) << Told(reader.AuditException());
  EXPECT_EQ(header->CompanyName(), "");

  AuditFileReader other;
  other.set_AuditFileName(folder.Write(
      "other.xml", Join({kBegin, Replaced(std::string(kHeader), "<CompanyID>", "<CompanyID a='1'>"), kEnd})));
  ASSERT_TRUE(other.OpenAuditFile());
  ASSERT_TRUE(other.ReadHeader(header));
  EXPECT_EQ(header->CompanyID(), "");
  EXPECT_EQ(header->CompanyName(), "Casa");
}

TEST(ForeignFileContentTest, SectionsOfCharacterDataStaySections) {
  const TemporaryFolder folder;
  const std::string path =
      folder.Write("saft.xml", Join({kBegin, "<Header><CompanyName><![CDATA[a & b]]></CompanyName></Header>", kEnd}));
  AuditFile file;
  file.set_AuditFileName(path);
  ASSERT_TRUE(file.OpenAuditFile());
  ASSERT_TRUE(file.UpdateAuditFile());
  EXPECT_THAT(ReadBytes(path), HasSubstr("<![CDATA[a & b]]>"));
}

TEST(ForeignFileContentTest, SectionThatIsMissingIsAddedAtTheEnd) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("saft.xml", Join({kBegin, kHeader, kEntries, kEnd}));
  AuditFile file;
  file.set_AuditFileName(path);
  ASSERT_TRUE(file.OpenAuditFile());
  ASSERT_TRUE(file.CreateCustomer(*SampleCustomer("C1")));
  ASSERT_TRUE(file.UpdateAuditFile());
  EXPECT_THAT(ReadBytes(path), HasSubstr("</GeneralLedgerEntries><MasterFiles><Customer><CustomerID>C1</CustomerID>"));
}

}  // namespace
}  // namespace zevo
