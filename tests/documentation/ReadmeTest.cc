// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "readme_snippets.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using testing::ReadBytes;
using testing::TemporaryFolder;

std::string InSource(const std::string& name) { return std::string(ZEVO_SOURCE_FOLDER "/") + name; }

TEST(ReadmeTest, TheExampleWritesItsCustomer) {
  const TemporaryFolder folder;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path(""));
  EXPECT_TRUE(ExportCustomer());
  std::filesystem::current_path(before);
  EXPECT_NE(ReadBytes(folder.Path("company.xml")).find("<City>\xC9vora</City>"), std::string::npos);
}

TEST(ReadmeTest, TheExampleSetsAPriceWithCents) {
  InvoiceLine line;
  SetPrice(line);
  EXPECT_EQ(line.UnitPrice().Text(), "5.99");
  EXPECT_EQ(line.CreditAmount().Text(), "71.88");
}

TEST(ReadmeTest, TheExampleCountsInvoices) {
  const TemporaryFolder folder;
  const std::string file =
      folder.Write("a.xml", "<AuditFile><TaxTable><TaxTableEntry/></TaxTable><Invoice/><Invoice/></AuditFile>");
  EXPECT_EQ(InvoicesIn(file), 2);
  EXPECT_EQ(InvoicesIn(folder.Write("b.xml", "<AuditFile><Invoice/>")), -1);
  EXPECT_EQ(InvoicesIn(folder.Path("none.xml")), -1);
}

TEST(ReadmeTest, TheExamplePrintsHashesAndProblems) {
  const TemporaryFolder folder;
  const auto printed = [&](std::string_view invoices) {
    std::ostringstream out;
    PrintHashes(folder.Write("a.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01">
<SourceDocuments><SalesInvoices>)" + std::string(invoices) +
                                          "</SalesInvoices></SourceDocuments></AuditFile>"),
                out);
    return out.str();
  };
  EXPECT_EQ(printed("<Invoice><Hash>abc=</Hash></Invoice>\n<Invoice><Period>x</Period></Invoice>"),
            "2: abc=\n3: none\n");
  EXPECT_EQ(printed("<Invoice><InvoiceType>FS</InvoiceType></Invoice>"),
            "2: none\nInvoiceType, \"FS\": the code is unknown (line 2, column 42).\n");
}

constexpr std::string_view kEmptyHeader = R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01">
<Header/></AuditFile>)";

TEST(ReadmeTest, TheExamplePrintsViolations) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("a.xml", kEmptyHeader);
  std::ostringstream out;
  EXPECT_TRUE(PrintViolations(file, out));
  EXPECT_NE(out.str().find("The header has no CompanyID, which is required (line 2, column 1).\n"), std::string::npos)
      << out.str();
  EXPECT_FALSE(PrintViolations(folder.Path("none.xml"), out));
}

TEST(ReadmeTest, TheExampleSaysWhetherAFileIsRight) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("a.xml", kEmptyHeader);
  std::ostringstream out;
  EXPECT_FALSE(IsRight(file, out));
  EXPECT_NE(out.str().find("SCHEMA: The header has no CompanyID, which is required.\n"), std::string::npos)
      << out.str();
}

TEST(ReadmeTest, TheCMakeLinesAreThoseOfTheConsumerThatIsTested) {
  const std::string readme = ReadBytes(InSource("README.md"));
  const std::string consumer = ReadBytes(InSource("tests/consumer/CMakeLists.txt"));
  const size_t start = readme.find("```cmake\n") + 9;
  std::string lines = readme.substr(start, readme.find("```", start) - start);
  size_t count = 0;
  for (size_t end = lines.find('\n'); end != std::string::npos; end = lines.find('\n'), ++count) {
    EXPECT_NE(consumer.find(lines.substr(0, end + 1)), std::string::npos) << lines.substr(0, end);
    lines.erase(0, end + 1);
  }
  EXPECT_EQ(count, 2U);
}

// The names of files that a text tells: in backticks or at the start of a line, beginning with a folder of the project.
std::vector<std::string> FilesNamedIn(const std::string& text) {
  constexpr std::string_view kInNames = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_./-";
  std::vector<std::string> names;
  for (const std::string folder :
       {"zevo/", "schema/", "tools/", "examples/", "tests/", "bench/", "fuzz/", "docs/", "scripts/", ".ci/"}) {
    for (size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at + 1)) {
      if (at == 0 || (text[at - 1] != '`' && text[at - 1] != '\n')) continue;
      names.push_back(text.substr(at, text.find_first_not_of(kInNames, at) - at));
    }
  }
  return names;
}

TEST(ReadmeTest, EveryFileThatTheDocumentationNamesExists) {
  size_t count = 0;
  for (const char* document : {"README.md", "docs/architecture.md", "docs/com.md", "docs/performance.md",
                               "docs/reliability.md", "examples/company/README.md"}) {
    for (const std::string& name : FilesNamedIn(ReadBytes(InSource(document)))) {
      EXPECT_TRUE(std::filesystem::exists(InSource(name))) << document << ": " << name;
      ++count;
    }
  }
  EXPECT_GT(count, 10U);
}

TEST(ReadmeTest, TheProgramThatTheReadmePointsToIsShort) {
  std::ifstream example(InSource("examples/export_company.cc"));
  EXPECT_LT(std::count(std::istreambuf_iterator<char>(example), {}, '\n'), 170);
}

}  // namespace
}  // namespace zevo
