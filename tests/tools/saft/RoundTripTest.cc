// SPDX-License-Identifier: Apache-2.0
// What an audit file has, a dataset that is listed from it has, and the audit file that is created from that.
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/tools/saft/FileComparison.h"
#include "tests/tools/saft/FileTree.h"
#include "tests/tools/saft/ToolTest.h"
#include "tools/generate/SampleRecords.h"
#include "tools/saft/dataset/Dataset.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// How a file was written, and so what of it comes back.
enum class Form {
  kOurs,     ///< as the library writes: lists of both files are the same, byte for byte
  kForeign,  ///< otherwise
  kInvalid,  ///< otherwise, and the schema does not allow it
  kInexact,  ///< otherwise, with numbers that only --round writes
};

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

class RoundTripTest : public testing::ToolTest {
 protected:
  std::string First() const { return folder_.Path("first.xml"); }
  std::string FirstList() const { return folder_.Path("first"); }

  void ExpectDone(const std::vector<std::string>& arguments, const std::string& told = "") const {
    const testing::Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.code, 0) << arguments[0];
    // A file that is validated is told to be valid.
    EXPECT_THAT(outcome.out, ::testing::AnyOf("", First() + ": valid\n")) << arguments[0];
    EXPECT_EQ(outcome.err, told) << arguments[0];
  }

  void ExpectSameFiles(const std::string& left, const std::string& right) const {
    EXPECT_EQ(NamesIn(left), NamesIn(right));
    for (const std::string& name : NamesIn(left)) {
      EXPECT_EQ(testing::ReadBytes(left + "/" + name), testing::ReadBytes(right + "/" + name)) << name;
    }
  }

  static std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
  }

  /// Creates a file from the list of the first one, and expects that nothing differs but what is told.
  testing::FileDifference ExpectCreatedFromList(const std::string& file, testing::WrittenBy way, Form form) const {
    std::vector<std::string> arguments{"create", FirstList(), file};
    if (way == testing::WrittenBy::kStream) arguments.emplace_back("--stream");
    if (form == Form::kInexact) arguments.emplace_back("--round");
    // What the library cannot hold may make it another file, and then an invalid one.
    if (form == Form::kInvalid || form == Form::kInexact) arguments.emplace_back("--no-validate");
    const testing::Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.code, 0);
    testing::FileDifference difference = testing::Compare(testing::ReadTrees(First()), testing::ReadTrees(file), way);
    EXPECT_THAT(difference.unexpected, IsEmpty());
    EXPECT_EQ(outcome.err, testing::TextOf(difference.notes, FirstList()));
    return difference;
  }

  void ExpectRoundTrip(Form form) const {
    EXPECT_EQ(Run({"validate", First()}).code, form == Form::kInvalid ? 1 : 0);
    ExpectDone({"list", First(), "--all", FirstList()});
    for (const auto way : {testing::WrittenBy::kMemory, testing::WrittenBy::kStream}) {
      const std::string name = way == testing::WrittenBy::kMemory ? "second" : "streamed";
      const std::string second = folder_.Path(name + ".xml");
      const std::string list = folder_.Path(name);
      const testing::FileDifference difference = ExpectCreatedFromList(second, way, form);
      ExpectDone({"list", second, "--all", list});
      const bool is_ours = !difference.is_rewritten && difference.notes.empty();
      if (way == testing::WrittenBy::kMemory) {
        EXPECT_EQ(is_ours, form == Form::kOurs);
      }
      if (is_ours) ExpectSameFiles(FirstList(), list);
    }
  }

  /// Lists the first file in both ways, and expects that both lists become the same file, with the same to tell but for
  /// the form of the second.
  void ExpectSameFromSpreadsheet() const {
    const std::string plain = folder_.Path("plain");
    const std::string spreadsheet = folder_.Path("spreadsheet");
    ASSERT_EQ(Run({"list", First(), "--all", plain}).code, 0);
    ASSERT_EQ(Run({"list", First(), "--all", spreadsheet, "--excel"}).code, 0);
    const testing::Outcome first = Run({"create", "--no-validate", plain, plain + ".xml", "--round"});
    const testing::Outcome second = Run({"create", "--no-validate", spreadsheet, spreadsheet + ".xml", "--round"});
    EXPECT_EQ(first.code, 0);
    EXPECT_EQ(second.code, 0);
    EXPECT_EQ(testing::ReadBytes(spreadsheet + ".xml"), testing::ReadBytes(plain + ".xml"));
    std::string told;
    for (const saft::DatasetFile& file : saft::Dataset::Files()) {
      const std::string path = spreadsheet + "/" + std::string(file.name);
      if (std::filesystem::exists(path)) {
        told += "saft: " + path + ": recognised: semicolons between cells, decimal commas\n";
      }
    }
    EXPECT_EQ(second.err, told + Replaced(first.err, plain + "/", spreadsheet + "/"));
  }
};

struct Layout {
  const char* file;
  Form form;
};

void PrintTo(const Layout& layout, std::ostream* out) { *out << layout.file; }

// Files as other software writes them.
constexpr auto kLayouts = std::to_array<Layout>({
    {"accounting-only-utf-16-le.xml", Form::kForeign},
    {"comments-and-cdata.xml", Form::kForeign},
    {"empty-groups.xml", Form::kForeign},
    // Texts that may be absent are there, and empty.
    {"empty-texts.xml", Form::kInvalid},
    {"every-loss.xml", Form::kInexact},
    {"foreign-currency-utf-16-be.xml", Form::kForeign},
    {"invoicing-only-iso-8859-1.xml", Form::kForeign},
    {"master-files-only-us-ascii.xml", Form::kForeign},
    {"numbers-in-every-form.xml", Form::kForeign},
    {"retailer-one-line-utf-8-mark.xml", Form::kOurs},
    {"self-billing-texts-on-lines.xml", Form::kForeign},
    {"texts-at-their-limits.xml", Form::kOurs},
    {"wholesaler-windows-1252.xml", Form::kForeign},
});

std::string PathOf(const char* layout) { return std::string(ZEVO_LAYOUTS_FOLDER "/") + layout; }

class RoundTripLayoutTest : public RoundTripTest, public ::testing::WithParamInterface<Layout> {};

TEST_P(RoundTripLayoutTest, LosesNothingUntold) {
  folder_.Write("first.xml", testing::ReadBytes(PathOf(GetParam().file)));
  ExpectRoundTrip(GetParam().form);
}

INSTANTIATE_TEST_SUITE_P(All, RoundTripLayoutTest, ::testing::ValuesIn(kLayouts));

// What a list for a spreadsheet program becomes, is what the list for programs becomes.
TEST_P(RoundTripLayoutTest, ASpreadsheetBecomesTheSameFile) {
  folder_.Write("first.xml", testing::ReadBytes(PathOf(GetParam().file)));
  ExpectSameFromSpreadsheet();
}

TEST_F(RoundTripTest, EveryLayoutIsTried) {
  std::vector<std::string> tried;
  for (const Layout& layout : kLayouts) tried.emplace_back(layout.file);
  EXPECT_EQ(NamesIn(ZEVO_LAYOUTS_FOLDER), tried);
}

TEST_F(RoundTripTest, OneLayoutHasEveryLoss) {
  folder_.Write("first.xml", testing::ReadBytes(PathOf("every-loss.xml")));
  ExpectDone({"list", First(), "--all", FirstList()});
  std::set<testing::Told> told;
  for (const testing::Note& note : ExpectCreatedFromList(Output(), testing::WrittenBy::kStream, Form::kInexact).notes) {
    told.insert(note.told);
  }
  using enum testing::Told;
  EXPECT_THAT(told,
              ElementsAre(kRounded, kTotal, kConstant, kUnknownCode, kAbsent, kSecond, kRepeatedKey, kGuess, kReturns));
}

TEST_F(RoundTripTest, EveryElementOfTheSchemaComesBack) {
  folder_.Write("first.xml", testing::ReadBytes(ZEVO_COMPLETE_FILE));
  ExpectRoundTrip(Form::kForeign);
}

TEST_F(RoundTripTest, TheSampleCompanyComesBack) {
  ExpectDone({"create", ZEVO_COMPANY_FOLDER, First()});
  ExpectRoundTrip(Form::kOurs);
}

TEST_F(RoundTripTest, TheSampleCompanyComesBackFromASpreadsheet) {
  ExpectDone({"create", ZEVO_COMPANY_FOLDER, First()});
  ExpectSameFromSpreadsheet();
}

TEST_F(RoundTripTest, EveryElementOfTheSchemaComesBackFromASpreadsheet) {
  folder_.Write("first.xml", testing::ReadBytes(ZEVO_COMPLETE_FILE));
  ExpectSameFromSpreadsheet();
}

// A spreadsheet program would take each of these for something else.
TEST_F(RoundTripTest, TextsLikeFormulasAndNumbersComeBackFromASpreadsheet) {
  std::string customers = "CustomerID,CompanyName\n";
  int number = 0;
  for (const char* text :
       {"=1+1", "'=1+1",    "''=1+1",     "'",       "'t Hof",          "+351",     "-5",       "@x",    "007", "'007",
        "1-2",  "3/4/2012", "1.5",        "\"1,5\"", "\"5,6E+12\"",     "5.6E+12",  "'5.6E+12", "1E-05", "10%", "(5)",
        "5 €",  "jan/12",   "VERDADEIRO", "a;b",     "\"a;\"\"b\"\"\"", "\"a\nb\"", "sep=;"}) {
    customers.append("C").append(std::to_string(++number)).append(",").append(text) += '\n';
  }
  Write("customers.csv", customers);
  ExpectDone({"create", "--no-validate", folder_.Path(kDataset), First()});
  ExpectSameFromSpreadsheet();
  EXPECT_EQ(testing::ReadBytes(folder_.Path("spreadsheet.xml")), testing::ReadBytes(First()));
}

TEST_F(RoundTripTest, GeneratedFilesComeBack) {
  for (const uint64_t seed : {1U, 2U}) {
    AuditFileStreamWriter file;
    file.set_AuditFileName(First());
    generate::WriteTo(file, generate::SampleRecords(200, seed));
    ExpectRoundTrip(Form::kOurs);
    for (const std::string& name : folder_.Names()) {
      if (name != kDataset) std::filesystem::remove_all(folder_.Path(name));
    }
  }
}

/// Another way to write the same file.
struct Variant {
  const char* name;
  std::string (*of)(std::string file);
};

void PrintTo(const Variant& variant, std::ostream* out) { *out << variant.name; }

// Calls `take` with each character of a text.
void ForEachCharacter(std::string_view text, const std::function<void(char32_t)>& take) {
  while (!text.empty()) {
    const auto lead = static_cast<unsigned char>(text.front());
    const size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (size_t i = 1; i < length; ++i) character = character << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
    take(character);
    text.remove_prefix(length);
  }
}

std::string InUtf16(std::string_view text, bool bigEndian) {
  std::string bytes;
  const auto put = [&](char32_t unit) {
    const auto high = static_cast<char>(unit >> 8U);
    const auto low = static_cast<char>(unit & 0xFFU);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  };
  put(0xFEFF);
  ForEachCharacter(text, put);
  return bytes;
}

constexpr std::string_view kEncoding = "encoding=\"UTF-8\"";

constexpr auto kVariants = std::to_array<Variant>({
    {"CrLf", [](std::string file) { return Replaced(std::move(file), "\n", "\r\n"); }},
    {"Cr", [](std::string file) { return Replaced(std::move(file), "\n", "\r"); }},
    {"Tabs", [](std::string file) { return Replaced(std::move(file), "    ", "\t"); }},
    {"NoIndentation", [](std::string file) { return Replaced(Replaced(std::move(file), "    ", ""), "\n", ""); }},
    {"Prefix",
     [](std::string file) {
       file = Replaced(Replaced(std::move(file), "<", "<pt1:"), "<pt1:/", "</pt1:");
       return Replaced(Replaced(std::move(file), "<pt1:?", "<?"), "xmlns=", "xmlns:pt1=");
     }},
    {"Utf16LittleEndian",
     [](std::string file) { return InUtf16(Replaced(std::move(file), kEncoding, "encoding=\"UTF-16\""), false); }},
    {"Utf16BigEndian",
     [](std::string file) { return InUtf16(Replaced(std::move(file), kEncoding, "encoding=\"UTF-16\""), true); }},
    {"References",
     [](std::string file) {
       std::string ascii;
       ForEachCharacter(Replaced(std::move(file), kEncoding, "encoding=\"US-ASCII\""), [&](char32_t character) {
         character < 0x80 ? ascii += static_cast<char>(character)
                          : ascii += "&#" + std::to_string(static_cast<uint32_t>(character)) + ";";
       });
       return ascii;
     }},
    {"NoDeclaration", [](std::string file) { return file.substr(file.find("?>") + 2); }},
    {"EmptyAsTwoTags", [](std::string file) { return Replaced(std::move(file), "<ShipTo/>", "<ShipTo></ShipTo>"); }},
});

class RoundTripVariantTest : public RoundTripTest, public ::testing::WithParamInterface<Variant> {};

// However a file is written, its list is the same.
TEST_P(RoundTripVariantTest, ListsTheSame) {
  bool is_variant = false;
  for (const char* layout : {"numbers-in-every-form.xml", "empty-groups.xml"}) {
    const std::string file = testing::ReadBytes(PathOf(layout));
    folder_.Write("file.xml", file);
    folder_.Write("variant.xml", GetParam().of(file));
    ExpectDone({"list", folder_.Path("file.xml"), "--all", folder_.Path("file")});
    ExpectDone({"list", folder_.Path("variant.xml"), "--all", folder_.Path("variant")});
    is_variant = is_variant || testing::ReadBytes(folder_.Path("variant.xml")) != file;
    ExpectSameFiles(folder_.Path("file"), folder_.Path("variant"));
    std::filesystem::remove_all(folder_.Path("file"));
    std::filesystem::remove_all(folder_.Path("variant"));
  }
  EXPECT_TRUE(is_variant);
}

INSTANTIATE_TEST_SUITE_P(All, RoundTripVariantTest, ::testing::ValuesIn(kVariants),
                         [](const auto& test) { return std::string(test.param.name); });

/// Something done to a list, which the comparison must see.
struct Fault {
  const char* file;
  const char* from;
  const char* to;
  std::vector<std::string> seen;
};

void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.file << ": " << fault.from; }

class RoundTripFaultTest : public RoundTripTest, public ::testing::WithParamInterface<Fault> {};

TEST_P(RoundTripFaultTest, IsSeen) {
  folder_.Write("first.xml", testing::ReadBytes(PathOf("wholesaler-windows-1252.xml")));
  ExpectDone({"list", First(), "--all", FirstList()});
  const std::string path = FirstList() + "/" + GetParam().file;
  const std::string list = testing::ReadBytes(path);
  ASSERT_NE(list.find(GetParam().from), std::string::npos);
  folder_.Write(std::string("first/") + GetParam().file, Replaced(list, GetParam().from, GetParam().to));
  ASSERT_EQ(Run({"create", FirstList(), Output()}).code, 0);
  EXPECT_EQ(testing::Compare(testing::ReadTrees(First()), testing::ReadTrees(Output()), testing::WrittenBy::kMemory)
                .unexpected,
            GetParam().seen);
}

INSTANTIATE_TEST_SUITE_P(
    All, RoundTripFaultTest,
    ::testing::Values(
        Fault{"customers.csv", "Águeda", "Agueda", {R"(Customer/BillingAddress[1]/City[1]: "Águeda" is "Agueda")"}},
        Fault{"customers.csv", "234000200", "", {"Customer/Telephone[1]: is gone"}},
        Fault{"tax_table.csv",
              ",16.00,",
              ",,16.00",
              {"TaxTable/TaxTableEntry[4]/TaxPercentage[1]: is gone",
               "TaxTable/TaxTableEntry[4]/TaxAmount[1]: is added"}},
        Fault{"tax_table.csv",
              ",16.00,",
              ",16.01,",
              {R"(TaxTable/TaxTableEntry[4]/TaxPercentage[1]: "16.00" is "16.01")"}},
        Fault{"order_references.csv",
              "FT 2011/13,1,ENC 55,2011-06-28\n",
              "",
              {"Invoice/Line[1]/OrderReferences[1]: is gone"}},
        Fault{"credit_notes.csv",
              "ND 2011/2",
              "ND 2011/3",
              {R"(Invoice/Line[2]/References[1]/CreditNote[1]/Reference[1]: "ND 2011/2" is "ND 2011/3")"}},
        Fault{"invoices.csv", "TV 2011/4,F", "TV 2011/4,N", {R"(Invoice/InvoiceStatus[1]: "F" is "N")"}}));

}  // namespace
}  // namespace zevo
