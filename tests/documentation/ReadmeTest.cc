#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

#include "readme_snippet.h"
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

// Names in backticks with a slash, and commands that begin with scripts/.
TEST(ReadmeTest, EveryFileThatTheDocumentationNamesExists) {
  size_t count = 0;
  for (const char* document : {"README.md", "docs/architecture.md", "examples/company/README.md"}) {
    const std::string text = ReadBytes(InSource(document));
    const std::regex name(R"((?:`|\n)((?:zevo|schema|tools|examples|tests|docs|scripts|\.ci)/[A-Za-z0-9_./-]*))");
    for (std::sregex_iterator match(text.begin(), text.end(), name), end; match != end; ++match, ++count) {
      EXPECT_TRUE(std::filesystem::exists(InSource((*match)[1]))) << document << ": " << (*match)[1];
    }
  }
  EXPECT_GT(count, 10U);
}

TEST(ReadmeTest, TheProgramThatTheReadmePointsToIsShort) {
  std::ifstream example(InSource("examples/export_company.cc"));
  EXPECT_LT(std::count(std::istreambuf_iterator<char>(example), {}, '\n'), 150);
}

}  // namespace
}  // namespace zevo
