// SPDX-License-Identifier: Apache-2.0
// Every allocation of libxml2's fails once, while a file is read, streamed, scanned and validated: the host is told, or
// what comes out is what comes out otherwise.

#include <dlfcn.h>
#include <execinfo.h>
#include <gtest/gtest.h>
#include <libxml/xmlmemory.h>
#include <unistd.h>
#include <zevo/adapters.h>

#include <array>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>

#include "tests/facades/ChildProcess.h"
#include "tests/facades/Expectations.h"
#include "tests/facades/FileRecords.h"
#include "tests/facades/SampleFile.h"
#include "tests/model/SchemaText.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using namespace zevo::testing;

// Counts down; zero is the allocation that fails, below zero none does.
int64_t allocations_left = -1;

bool Fails() { return allocations_left >= 0 && allocations_left-- == 0; }

// Before anything is allocated.
const int kHandlers = xmlMemSetup(
    std::free, [](size_t size) { return Fails() ? nullptr : std::malloc(size); },
    [](void* memory, size_t size) { return Fails() ? nullptr : std::realloc(memory, size); },
    [](const char* text) { return Fails() ? nullptr : strdup(text); });

// libxml2 itself does not survive every failed allocation while it compiles a schema. What counts is whose frame it is.
constexpr int kDiedInLibxml2 = 41;
constexpr int kDiedElsewhere = 42;

// The innermost frame that belongs neither to this program nor to the C library.
[[noreturn]] void ReportDeath(int) {
  std::array<void*, 64> frames{};
  const int count = backtrace(frames.data(), static_cast<int>(frames.size()));
  for (int i = 0; i < count; ++i) {
    Dl_info info{};
    if (dladdr(frames[static_cast<size_t>(i)], &info) == 0) continue;
    const std::string_view module = info.dli_fname;
    if (module.find("libxml2.so") != std::string_view::npos) _exit(kDiedInLibxml2);
    if (module.find("libzevo") != std::string_view::npos) break;
  }
  _exit(kDiedElsewhere);
}

class ParserMemoryTest : public ::testing::Test {
 protected:
  ParserMemoryTest() {
    EXPECT_EQ(kHandlers, 0);
    SaveSampleFile(path_);
    // What brings the file to libxml2 once all of it has gone the fast path.
    std::ofstream(path_, std::ios::app) << "<?end?>";
  }

  // Runs an operation with its first, second, ... allocation failing, each in a process of its own, until it makes
  // fewer. What it gives must be an exception or `expected`.
  void AtEveryAllocation(const std::string& expected, const std::function<std::string()>& operation) {
    int64_t told = 0;
    for (int64_t failing = 0;; ++failing) {
      const std::string report = InChildProcess([&] {
        for (const int signal : {SIGSEGV, SIGABRT, SIGBUS}) std::signal(signal, ReportDeath);
        allocations_left = failing;
        const std::string found = operation();
        const bool failed = allocations_left < 0;
        allocations_left = -1;
        return (failed ? "" : "none failed ") + found;
      });
      if (report == "none failed " + expected) break;
      if (report == "told") {
        ++told;
      } else if (report == "child ended with status " + std::to_string(kDiedInLibxml2 << 8)) {
        ++died_in_libxml2_;
      } else {
        EXPECT_EQ(report, expected) << "allocation " << failing;
      }
      ASSERT_LT(failing, 100'000);
    }
    EXPECT_GT(told, 5);
  }

  UseSchema schema_;
  TemporaryFolder folder_;
  std::string path_ = folder_.Path("saft.xml");
  int died_in_libxml2_ = 0;
};

// All that was found, or that there was an exception.
std::string InWords(const FileRecords& found) {
  if (found.failure) return found.failure->Description().empty() ? "an exception without a reason" : "told";
  std::string words;
  for (const auto& [kind, values] : found.records) {
    words += kind + "\n";
    for (const auto& [name, value] : values) words.append(name).append(" ").append(value).append("\n");
  }
  return words;
}

TEST_F(ParserMemoryTest, ReadingTellsOrReadsTheSame) {
  AtEveryAllocation(InWords(ReadOneByOne(path_)), [&] { return InWords(ReadOneByOne(path_)); });
  EXPECT_EQ(died_in_libxml2_, 0);
}

TEST_F(ParserMemoryTest, StreamingTellsOrReadsTheSame) {
  AtEveryAllocation(InWords(ReadStreamed(path_)), [&] { return InWords(ReadStreamed(path_)); });
  EXPECT_EQ(died_in_libxml2_, 0);
}

TEST_F(ParserMemoryTest, ScanningTellsOrReadsTheSame) {
  AtEveryAllocation(InWords(ReadScanned(path_)), [&] { return InWords(ReadScanned(path_)); });
  EXPECT_EQ(died_in_libxml2_, 0);
}

TEST_F(ParserMemoryTest, ChangingTheSchemaTellsOrCutsAsItSays) {
  const std::string schema = folder_.Write("other.xsd", SchemaLimiting({{"/AuditFile/Header/CompanyID", "3"}}));
  AtEveryAllocation("123", [&]() -> std::string {
    try {
      Options().set_SchemaLocation(schema);
    } catch (const Error& error) {
      return error.Number() == 7 ? "told" : error.Description();
    }
    Header header;
    header.set_CompanyID("123456789");
    return header.CompanyID();
  });
  EXPECT_EQ(died_in_libxml2_, 0);
}

TEST_F(ParserMemoryTest, ValidationTellsOrGivesTheSameVerdict) {
  if (kSanitized) GTEST_SKIP() << "a sanitizer takes the signals";
  // With a bit of everything that the shipped schema is made of, and far fewer allocations.
  Options().set_SchemaLocation(folder_.Write(
      "own.xsd",
      "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:t='urn:OECD:StandardAuditFile-Tax:PT_1.01_01' "
      "targetNamespace='urn:OECD:StandardAuditFile-Tax:PT_1.01_01' elementFormDefault='qualified'>"
      "<xs:element name='a'><xs:complexType><xs:sequence>"
      "<xs:element ref='t:b' maxOccurs='unbounded'/></xs:sequence></xs:complexType>"
      "<xs:key name='k'><xs:selector xpath='t:b'/><xs:field xpath='t:c'/></xs:key></xs:element>"
      "<xs:element name='b'><xs:complexType><xs:choice maxOccurs='unbounded'><xs:element name='c' type='t:T'/>"
      "<xs:element name='d' type='xs:decimal' minOccurs='0'/></xs:choice></xs:complexType></xs:element>"
      "<xs:simpleType name='T'><xs:restriction base='xs:string'><xs:maxLength value='9'/><xs:pattern value='[A-Z]+'/>"
      "<xs:enumeration value='X'/><xs:enumeration value='Y'/></xs:restriction></xs:simpleType></xs:schema>"));
  const std::string path = folder_.Write("small.xml",
                                         "<a xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><b><c>X</c>"
                                         "<d>1.5</d></b><b><c>Y</c></b></a>");
  AtEveryAllocation("valid", [&]() -> std::string {
    AuditFile file;
    file.set_AuditFileName(path);
    if (file.ValidateAuditFile()) return "valid";
    return file.AuditException() && !file.AuditException()->Description().empty() ? "told" : "invalid without a reason";
  });
}

}  // namespace
}  // namespace zevo
