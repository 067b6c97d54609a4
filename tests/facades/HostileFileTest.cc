// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zevo/adapters.h>

#include <concepts>
#include <filesystem>
#include <fstream>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/facades/ChildProcess.h"
#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/ChosenKeys.h"
#include "tests/support/ProcessorTime.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

// What must not be accepted, whoever made it, and must do no harm.

namespace zevo {
namespace {

using namespace zevo::testing;
using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::ValuesIn;

constexpr std::string_view kRoot = "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\">";

std::string InRoot(std::string_view content) { return std::string(kRoot).append(content).append("</AuditFile>"); }

std::string Repeated(std::string_view text, size_t count) {
  std::string result;
  result.reserve(text.size() * count);
  for (size_t i = 0; i < count; ++i) result.append(text);
  return result;
}

std::string Nested(size_t depth) { return InRoot(Repeated("<a>", depth - 1) + Repeated("</a>", depth - 1)); }
std::string LongText(size_t size) { return InRoot("<a>" + std::string(size, 'x') + "</a>"); }
std::string LongTag(size_t size) { return InRoot("<a b=\"" + std::string(size, 'x') + "\"/>"); }

// A piece `count` times, each time with another number in the place of each "#".
std::string Counted(std::string_view piece, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    for (const char c : piece) c == '#' ? result.append(number) : result.append(1, c);
  }
  return result;
}

std::string ManyAttributes(int count) { return InRoot("<a" + Counted(" a#='1'", count) + "/>"); }
// The root has a declaration too.
std::string ManyDeclarations(int count) { return InRoot("<a" + Counted(" xmlns:p#='u'", count - 1) + "/>"); }
// The root has a name too.
std::string ManyNames(int count) { return InRoot(Counted("<a#/>", count - 1)); }

std::string WithDeclaration(std::string_view declaration, std::string_view content) {
  return std::string(declaration).append(InRoot(content));
}

// ASCII alone, with a byte order mark.
std::string InUtf16(std::string_view ascii) {
  std::string result = "\xFF\xFE";
  for (const char c : ascii) result.append({c, '\0'});
  return result;
}

// What is large is made where it is wanted: every test is a process, and has the whole table.
class Content {
 public:
  // NOLINTBEGIN(google-explicit-constructor): each stands in a table as it is.
  Content(const char* bytes) : Content(std::string(bytes)) {}
  Content(std::string bytes) : make_([bytes = std::move(bytes)] { return bytes; }) {}
  template <std::invocable Make>
  Content(Make make) : make_(make) {}
  // NOLINTEND(google-explicit-constructor)

  std::string Bytes() const { return make_(); }

 private:
  std::function<std::string()> make_;
};

struct HostileFile {
  const char* name;
  Content content;
  int not_built = 0;  // how many records of it cannot be built or lack everything
};

void PrintTo(const HostileFile& file, std::ostream* out) { *out << file.name; }

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";

// Empty elements whose names differ in their last two characters alone.
std::string ChosenNames() {
  std::string elements;
  for (const char first : kLetters) {
    for (const char second : kLetters) elements.append("<Chosen__").append({first, second}).append("/>");
  }
  return elements;
}

const std::vector<HostileFile>& HostileFiles() {
  static const std::vector<HostileFile> kFiles = {
      {"empty", ""},
      {"blank", " \r\n\t "},
      {"a byte order mark alone", "\xEF\xBB\xBF"},
      {"half a byte order mark", "\xFF"},
      {"text", "SAF-T"},
      {"another kind of file", std::string("PK\x03\x04\x14\0\0\0", 8)},
      {"a declaration alone", "<?xml version=\"1.0\" encoding=\"windows-1252\"?>"},
      {"a comment alone", "<!-- nothing -->"},
      {"a root that does not end", std::string(kRoot)},
      {"a root that does not begin", "</AuditFile>"},
      {"two roots", InRoot("") + InRoot("")},
      {"text after the root", InRoot("") + "text"},
      {"a declaration that comes late", " <?xml version=\"1.0\"?>" + InRoot("")},
      {"crossed elements", InRoot("<a><b></a></b>")},
      {"ends that differ in letter case", InRoot("<Header></header>")},
      {"an attribute twice", InRoot("<a b='1' b='2'/>")},
      {"an attribute without quotes", InRoot("<a b=1/>")},
      {"a bare ampersand", InRoot("<a>Silva & Filhos</a>")},
      {"a bare less-than", InRoot("<a>1 < 2</a>")},
      {"an unknown entity", InRoot("<a>&eacute;</a>")},
      {"a reference to a forbidden character", InRoot("<a>&#1;</a>")},
      {"a reference beyond the last character", InRoot("<a>&#x110000;</a>")},
      {"a control character", InRoot("<a>\x01</a>")},
      {"a NUL", InRoot(std::string("<a>x\0y</a>", 10))},
      {"a NUL after the root", InRoot("") + std::string(1, '\0')},
      {"the end of a section in text", InRoot("<a>]]></a>")},
      {"a section that does not end", InRoot("<![CDATA[ x")},
      {"a comment that does not end", InRoot("<!-- x")},
      {"two hyphens in a comment", InRoot("<!-- x -- y -->")},
      {"an unbound prefix", InRoot("<n:a/>")},
      {"bytes that are no UTF-8", WithDeclaration("<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "<a>\xC3\x28</a>")},
      {"an overlong form", WithDeclaration("<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "<a>\xC0\x80</a>")},
      {"a surrogate", WithDeclaration("<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "<a>\xED\xA0\x80</a>")},
      {"Windows-1252 without a declaration", InRoot("<a>\xC9vora</a>")},
      {"an unknown encoding", WithDeclaration("<?xml version=\"1.0\" encoding=\"klingon\"?>", "")},
      {"a byte order mark that contradicts the declaration",
       WithDeclaration("\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"windows-1252\"?>", "")},
      {"an odd byte of UTF-16", std::string("\xFF\xFE<\0a\0/\0>\0\n", 11)},
      {"a document type", WithDeclaration("<!DOCTYPE AuditFile>", "")},
      {"a document type with an internal subset", WithDeclaration("<!DOCTYPE AuditFile [<!ELEMENT a ANY>]>", "")},
      {"an entity of its own", WithDeclaration("<!DOCTYPE AuditFile [<!ENTITY e \"x\">]>", "<a>&e;</a>")},
      {"an entity that is a file",
       WithDeclaration("<!DOCTYPE AuditFile [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>", "<a>&e;</a>")},
      {"a parameter entity that is a file",
       WithDeclaration("<!DOCTYPE AuditFile [<!ENTITY % e SYSTEM \"file:///etc/passwd\"> %e;]>", "")},
      {"an external document type", WithDeclaration("<!DOCTYPE AuditFile SYSTEM \"file:///etc/passwd\">", "")},
      {"an entity that explodes",
       WithDeclaration("<!DOCTYPE AuditFile [<!ENTITY a \"xxxxxxxxxx\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">"
                       "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;\">]>",
                       "<a>&d;</a>")},
      {"an external parameter entity of another host",
       WithDeclaration("<!DOCTYPE AuditFile [<!ENTITY % e SYSTEM \"http://localhost:9/e\"> %e;]>", "")},
      {"a document type of another host",
       WithDeclaration("<!DOCTYPE AuditFile PUBLIC \"-//A//B\" \"http://localhost:9/a.dtd\">", "<a/>")},
      {"an entity of another host",
       WithDeclaration("<!DOCTYPE AuditFile [<!ENTITY e SYSTEM \"ftp://localhost:9/e\">]>", "<a b='x'>&e;</a>")},
      {"an entity that is a file, in an attribute",
       WithDeclaration("<!DOCTYPE AuditFile [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>", "<a b='&e;'/>")},
      {"a document type in UTF-16",
       InUtf16(WithDeclaration("<!DOCTYPE AuditFile [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>", "<a>&e;</a>"))},
      {"an entity that contains itself", WithDeclaration("<!DOCTYPE AuditFile [<!ENTITY e \"&e;\">]>", "<a>&e;</a>")},
      {"an entity declaration that is cut off", "<!DOCTYPE AuditFile [<!ENTITY e \"x\"?]>" + InRoot("<a>&e;</a>")},
      {"attributes with defaults from a document type",
       WithDeclaration("<!DOCTYPE AuditFile [<!ATTLIST a b CDATA \"x\">]>", "<a/>")},
      {"a notation", WithDeclaration("<!DOCTYPE AuditFile [<!NOTATION n SYSTEM \"file:///bin/sh\">]>", "")},
      {"an attribute too long", [] { return InRoot("<a b='" + std::string(11'000'000, 'x') + "'/>"); }},
      {"a name too long", [] { return InRoot("<" + std::string(11'000'000, 'x') + "/>"); }},
      {"a NUL in a tag", InRoot(std::string("<a\0b/>", 6))},
      {"a byte beyond UTF-8", WithDeclaration("<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "<a>\xF8\x88</a>")},
      {"UTF-16 that its declaration calls UTF-8", "\xFF\xFE<?xml version=\"1.0\" encoding=\"UTF-8\"?><a/>"},
      {"half a surrogate pair", std::string("\xFF\xFE<\0a\0>\0\0\xD8<\0/\0a\0>\0", 18)},
      {"an instruction that passes for a declaration", InRoot("<?xml version='1.0'?>")},
      {"elements too deep", Nested(300)},
      {"elements far too deep", [] { return Nested(200000); }},
      {"elements that never end", [] { return std::string(kRoot) + Repeated("<a>", 200000); }},
      {"a text too long", [] { return LongText(11'000'000); }},
      {"a start tag too long", [] { return LongTag(70'000); }},
      {"too many attributes", [] { return ManyAttributes(200'000); }},
      {"an attribute too many", [] { return ManyAttributes(257); }},
      {"all the attributes that a tag has room for", [] { return ManyAttributes(6'000); }},
      {"a namespace declaration too many", [] { return ManyDeclarations(65); }},
      {"all the namespace declarations that a tag has room for", [] { return ManyDeclarations(4'000); }},
      {"namespace declarations in tag after tag",
       [] { return InRoot(Repeated("<a" + Counted(" xmlns:p#='u'", 4'000) + ">", 250)); }},
      {"a name too many", [] { return ManyNames(10'001); }},
      {"a million names", [] { return ManyNames(1'000'000); }},
      {"a million names of attributes", [] { return InRoot(Counted("<a b#=''/>", 1'000'000)); }},
      {"a million names of instructions", [] { return InRoot(Counted("<?a#?>", 1'000'000)); }},
      {"a million namespaces", [] { return InRoot(Counted("<a xmlns='u#'/>", 1'000'000)); }},
      {"a million prefixes", [] { return InRoot(Counted("<p#:a xmlns:p#='u'/>", 1'000'000)); }},
  };
  return kFiles;
}

// A sanitizer takes ten times as long, and sees in a tenth of them what there is to see.
std::string Many(std::string_view text, size_t count) { return Repeated(text, kSanitized ? count / 10 : count); }

// What no program writes, but nobody forbids.
const std::vector<HostileFile>& OddFiles() {
  static const std::vector<HostileFile> kFiles = {
      {"as many attributes as there may be",
       [] { return InRoot("<a>" + Many("<b" + Counted(" a#=''", 256) + "/>", 4'000) + "</a>"); }},
      {"as many attributes with prefixes",
       [] {
         const std::string tag = "<b" + Counted(" p0:a# ='' p62:a#=''", 128) + "/>";
         return InRoot("<a" + Counted(" xmlns:p#='u#'", 63) + ">" + Many(tag, 2'000) + "</a>");
       }},
      {"as many namespace declarations",
       [] { return InRoot(Many("<a" + Counted(" xmlns:p#='u'", 63) + "><p0:b/></a>", 8'000)); }},
      {"as many names, again and again", [] { return InRoot(Many(Counted("<a#/>", 9'999), 60)); }},
      {"names that end differently", [] { return InRoot(Many(ChosenNames(), 60)); }},
      {"empty elements", [] { return InRoot(Many("<a/>", 4'000'000)); }},
      {"single characters between empty elements", [] { return InRoot(Many("x<a/>", 4'000'000)); }},
      {"single characters between empty elements of a record",
       [] { return InRoot("<MasterFiles><Customer>" + Many("x<a/>", 4'000'000) + "</Customer></MasterFiles>"); }},
      {"a few characters between empty elements", [] { return InRoot(Many("xxxx<a/>", 2'000'000)); }},
      {"single characters in and between elements", [] { return InRoot(Many("x<a>y</a>", 2'000'000)); }},
      {"single characters in attributes", [] { return InRoot(Many("x<a b='y'/>", 2'000'000)); }},
      {"empty attributes", [] { return InRoot(Many("x<a b='' c=''/>", 1'000'000)); }},
      {"a few characters in attributes", [] { return InRoot(Many("xxxx<a b='yyyyy'/>", 1'000'000)); }},
      {"empty instructions", [] { return InRoot(Many("x<?a?>", 2'000'000)); }},
      {"short instructions", [] { return InRoot(Many("xxxx<?a b?>", 1'500'000)); }},
      {"empty comments", [] { return InRoot(Many("x<!---->", 2'000'000)); }},
      {"a few characters in comments", [] { return InRoot(Many("xxxx<!--yyyyy-->", 1'000'000)); }},
      {"empty sections", [] { return InRoot(Many("x<![CDATA[]]>", 1'000'000)); }},
      {"elements in elements", [] { return InRoot(Many("<a><b/></a>", 1'500'000)); }},
      {"empty customers", [] { return InRoot("<MasterFiles>" + Many("<Customer/>", 300'000) + "</MasterFiles>"); },
       300'000},
  };
  return kFiles;
}

// What a host may do with a file that it did not make.
struct Access {
  const char* name;
  std::string_view source;
  std::function<bool(const std::string& path, std::shared_ptr<const AuditException>& exception)> run;
  std::string_view other_source = {};  // of one that fails in either of two operations
  int patience = 1;                    // how many times as long as the others it may take
  double not_built = 0;                // seconds more for a record that cannot be built or lacks everything

  bool IsSource(std::string_view found) const { return found == source || found == other_source; }
};

template <class Facade>
bool Open(const std::string& path, std::shared_ptr<const AuditException>& exception) {
  Facade facade;
  facade.set_AuditFileName(path);
  const bool opened = facade.OpenAuditFile();
  exception = facade.AuditException();
  return opened;
}

bool Stream(const std::string& path, std::shared_ptr<const AuditException>& exception) {
  AuditFileStreamer streamer;
  streamer.set_AuditFileName(path);
  if (streamer.OpenAuditFile()) streamer.ReadAuditFile();
  // A record that cannot be built is no failure of the file.
  exception = streamer.AuditException();
  return exception == nullptr;
}

// To the end of the file, or to what fails.
bool ScanOn(AuditFileScanner& scanner) {
  std::shared_ptr<Record> record;
  while (scanner.ReadNext(record)) {
    if (record == nullptr) return true;
  }
  return false;
}

bool Scan(const std::string& path, std::shared_ptr<const AuditException>& exception) {
  AuditFileScanner scanner;
  scanner.set_AuditFileName(path);
  const bool scanned = scanner.OpenAuditFile() && ScanOn(scanner);
  exception = scanner.AuditException();
  return scanned;
}

bool Validate(const std::string& path, std::shared_ptr<const AuditException>& exception) {
  AuditFile file;
  file.set_AuditFileName(path);
  const bool valid = file.ValidateAuditFile();
  exception = file.AuditException();
  return valid;
}

bool FindViolations(const std::string& path, std::shared_ptr<const AuditException>& exception) {
  AuditFileValidator validator;
  validator.set_AuditFileName(path);
  const bool judged = validator.ValidateAuditFile();
  exception = validator.AuditException();
  return judged;
}

bool Check(const std::string& path, std::shared_ptr<const AuditException>& exception) {
  AuditFileChecker checker;
  checker.set_AuditFileName(path);
  const bool judged = checker.CheckAuditFile();
  exception = checker.AuditException();
  return judged;
}

const Access kAccesses[] = {
    {"AuditFile.OpenAuditFile", kLoadSource, Open<AuditFile>},
    {"AuditFileReader.OpenAuditFile", kLoadSource, Open<AuditFileReader>},
    {"AuditFileStreamer.ReadAuditFile", kStreamSource, Stream, {}, 1, 5e-6},
    {"AuditFileScanner.ReadNext", "AuditFileScanner.ReadNext", Scan, "AuditFileScanner.OpenAuditFile"},
    {"AuditFile.ValidateAuditFile", kValidationSource, Validate},
    // A file may be nothing but violations, each of which is told.
    {"AuditFileValidator.ValidateAuditFile",
     "AuditFileValidator.ValidateAuditFile",
     FindViolations,
     {},
     ZEVO_OPTIMISED ? 3 : 10,
     5e-6},
    {"AuditFileChecker.CheckAuditFile", "AuditFileChecker.CheckAuditFile", Check, {}, ZEVO_OPTIMISED ? 3 : 10, 5e-6},
};

int64_t PeakKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stoll(line.substr(6));
  }
  return 0;
}

// What an access to a file takes more than it may, in a process that has done nothing else.
std::string MeasuredBeyond(size_t size, const Access& access, const std::string& path, int patience, int notBuilt) {
  const auto bytes = static_cast<int64_t>(size);
  const int64_t held = PeakKilobytes();
  std::shared_ptr<const AuditException> exception;
  const double seconds = ProcessorSeconds([&] { access.run(path, exception); });
  const int64_t kilobytes = PeakKilobytes() - held;
  std::string report;
  const double bound = access.patience * (0.05 + 50e-9 * static_cast<double>(bytes)) + access.not_built * notBuilt;
  if (seconds > patience * bound) report += std::to_string(seconds) + " seconds ";
  if (kilobytes > 16 * 1024 + bytes * 5 / 1024) report += std::to_string(kilobytes) + " kilobytes";
  return report;
}

// The same every time, of ten at most: what else the machine does shows in some. Empty when it keeps within its bounds.
// `patience` is how many times as long it may take, `notBuilt` how many records cannot be built or lack everything.
std::string CostBeyond(size_t size, const Access& access, const std::string& path, int patience = 1, int notBuilt = 0) {
  std::string report;
  for (int times = 0; times < 10; ++times) {
    report = InChildProcess([&] { return MeasuredBeyond(size, access, path, patience, notBuilt); });
    if (report.empty()) break;
  }
  return report;
}

class HostileFileTest : public ::testing::Test {
 protected:
  // Every access fails with an error of the parser that describes itself.
  void ExpectRefused(const std::string& path) {
    for (const Access& access : kAccesses) {
      std::shared_ptr<const AuditException> exception;
      EXPECT_FALSE(access.run(path, exception)) << access.name;
      ASSERT_NE(exception, nullptr) << access.name;
      EXPECT_GT(exception->Number(), 0) << access.name << ": " << Told(exception);
      EXPECT_TRUE(access.IsSource(exception->Source())) << access.name << ": " << Told(exception);
      EXPECT_THAT(exception->Description(), HasSubstr("linha ")) << access.name;
    }
  }

  void ExpectOpened(const std::string& path) {
    for (const Access& access : kAccesses) {
      if (access.source == kValidationSource) continue;
      std::shared_ptr<const AuditException> exception;
      EXPECT_TRUE(access.run(path, exception)) << access.name << ": " << Told(exception);
    }
  }

  UseSchema schema_;
  TemporaryFolder folder_;
};

class HostileFileContentTest : public HostileFileTest, public ::testing::WithParamInterface<HostileFile> {};

TEST_P(HostileFileContentTest, IsRefusedAndLeftAlone) {
  const std::string bytes = GetParam().content.Bytes();
  const std::string path = folder_.Write("saft.xml", bytes);
  ExpectRefused(path);
  EXPECT_TRUE(ReadBytes(path) == bytes) << "the file was changed";
  EXPECT_THAT(folder_.Names(), ElementsAre("saft.xml"));
}

TEST_P(HostileFileContentTest, LeavesTheFacadesClosedAndUsable) {
  const std::string good = folder_.Path("good.xml");
  const std::string bad = folder_.Write("bad.xml", GetParam().content.Bytes());
  SaveSampleFile(good);

  AuditFile file;
  file.set_AuditFileName(bad);
  EXPECT_FALSE(file.OpenAuditFile());
  EXPECT_FALSE(file.UpdateAuditFile());
  EXPECT_THAT(file, Recorded(kNotStarted, "AuditFile.UpdateAuditFile"));
  file.set_AuditFileName(good);
  EXPECT_TRUE(file.OpenAuditFile()) << Told(file.AuditException());
  EXPECT_TRUE(file.CreateCustomer(*SampleCustomer("C9")));
  EXPECT_TRUE(file.UpdateAuditFile());
  EXPECT_TRUE(file.ValidateAuditFile()) << Told(file.AuditException());

  AuditFileReader reader;
  reader.set_AuditFileName(bad);
  EXPECT_FALSE(reader.OpenAuditFile());
  EXPECT_EQ(reader.Customers(), -1);
  EXPECT_THAT(reader, Recorded(kNotStarted, "AuditFileReader.Customers"));
  reader.set_AuditFileName(good);
  EXPECT_TRUE(reader.OpenAuditFile()) << Told(reader.AuditException());
  EXPECT_EQ(reader.Customers(), 3);

  AuditFileScanner scanner;
  scanner.set_AuditFileName(bad);
  EXPECT_FALSE(scanner.OpenAuditFile() && ScanOn(scanner));
  EXPECT_EQ(scanner.Kind(), std::nullopt);
  scanner.CloseAuditFile();
  scanner.set_AuditFileName(good);
  EXPECT_TRUE(scanner.OpenAuditFile() && ScanOn(scanner)) << Told(scanner.AuditException());
}

// Fifty milliseconds and what reading the bytes takes; a few megabytes and a few times the file.
TEST_P(HostileFileContentTest, CostsNoMoreThanItsSize) {
  if (kSanitized) GTEST_SKIP() << "a sanitizer distorts time and memory";
  const std::string bytes = GetParam().content.Bytes();
  const std::string path = folder_.Write("saft.xml", bytes);
  for (const Access& access : kAccesses) {
    EXPECT_EQ(CostBeyond(bytes.size(), access, path), "") << access.name;
  }
}

class OddFileContentTest : public HostileFileTest, public ::testing::WithParamInterface<HostileFile> {};

// Elements as small as they can be: in a build that is not optimised, each takes many times as long.
TEST_P(OddFileContentTest, IsOpenedAndCostsNoMoreThanItsSize) {
  constexpr int kPatience = ZEVO_OPTIMISED ? 1 : 5;
  const std::string bytes = GetParam().content.Bytes();
  const std::string path = folder_.Write("saft.xml", bytes);
  ExpectOpened(path);
  if (kSanitized) GTEST_SKIP() << "a sanitizer distorts time and memory";
  for (const Access& access : kAccesses) {
    EXPECT_EQ(CostBeyond(bytes.size(), access, path, kPatience, GetParam().not_built), "") << access.name;
  }
}

// A file that is refused as a file is refused as the schema, too.
TEST_P(HostileFileContentTest, IsNoSchema) {
  const std::string path = folder_.Path("saft.xml");
  SaveSampleFile(path);
  Options().set_SchemaLocation(folder_.Write("schema.xsd", GetParam().content.Bytes()));
  std::shared_ptr<const AuditException> exception;
  EXPECT_FALSE(Validate(path, exception));
  ASSERT_NE(exception, nullptr);
  EXPECT_EQ(exception->Source(), kValidationSource) << Told(exception);
  // Whether a text can be checked against it or not.
  Customer customer;
  try {
    customer.set_CompanyName("Alforge & Candeia");
    EXPECT_EQ(customer.CompanyName(), "Alforge & Candeia");
  } catch (const Error& error) {
    EXPECT_NE(error.Description(), "");
  }
}

INSTANTIATE_TEST_SUITE_P(EveryKind, HostileFileContentTest, ValuesIn(HostileFiles()));
INSTANTIATE_TEST_SUITE_P(EveryKind, OddFileContentTest, ValuesIn(OddFiles()));

// What points elsewhere is a text like any other: it is read and written, and nobody follows it.
TEST_F(HostileFileTest, WhatPointsElsewhereIsNotFollowed) {
  constexpr std::string_view kXsi = "http://www.w3.org/2001/XMLSchema-instance";
  const std::string files[] = {
      "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01' xmlns:xsi='" + std::string(kXsi) +
          "' xsi:schemaLocation='urn:OECD:StandardAuditFile-Tax:PT_1.01_01 http://localhost:9/a.xsd'/>",
      "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01' xmlns:xsi='" + std::string(kXsi) +
          "' xsi:schemaLocation='urn:OECD:StandardAuditFile-Tax:PT_1.01_01 file:///etc/passwd'/>",
      "<AuditFile xmlns:xsi='" + std::string(kXsi) + "' xsi:noNamespaceSchemaLocation='file:///etc/passwd'/>",
      InRoot("<xi:include xmlns:xi='http://www.w3.org/2001/XInclude' href='file:///etc/passwd' parse='text'/>"),
      InRoot("<xi:include xmlns:xi='http://www.w3.org/2001/XInclude' href='http://localhost:9/a'/>"),
      WithDeclaration("<?xml-stylesheet href='http://localhost:9/a.xsl' type='text/xsl'?>", ""),
      WithDeclaration("<?xml-model href='file:///etc/passwd'?>", ""),
      "<AuditFile xml:base='http://localhost:9/'/>",
  };
  for (const std::string& bytes : files) {
    const std::string path = folder_.Write("saft.xml", bytes);
    ExpectOpened(path);
    std::shared_ptr<const AuditException> exception;
    EXPECT_FALSE(Validate(path, exception)) << "it lacks a header";
    AuditFile file;
    file.set_AuditFileName(path);
    EXPECT_TRUE(file.OpenAuditFile() && file.UpdateAuditFile());
    EXPECT_EQ(ReadBytes(path).find("root:"), std::string::npos);
  }
}

// Somebody may choose the keys: they take no longer than any others.
TEST_F(HostileFileTest, ChosenJournalsTakeNoLongerThanOthers) {
  if (kSanitized) GTEST_SKIP() << "a sanitizer distorts time";
  const std::vector<std::string> keys = KeysOfOneHash(20'000);
  std::string journals;
  for (const std::string& key : keys) journals += "<Journal><JournalID>" + key + "</JournalID></Journal>";
  const std::string bytes = InRoot("<GeneralLedgerEntries>" + journals + "</GeneralLedgerEntries>");
  AuditFile file;
  file.set_AuditFileName(folder_.Write("saft.xml", bytes));
  EXPECT_LT(ProcessorSeconds([&] {
              EXPECT_TRUE(file.OpenAuditFile()) << Told(file.AuditException());
              EXPECT_TRUE(file.CreateTransaction(*SampleTransaction(1), SampleJournal(keys.back()).get()))
                  << Told(file.AuditException());
            }),
            0.05 + 50e-9 * static_cast<double>(bytes.size()));
}

// A schema is one file: what would pull in others is refused.
TEST_F(HostileFileTest, SchemaThatPullsInOthersIsRefused) {
  const std::string path = folder_.Path("saft.xml");
  SaveSampleFile(path);
  const std::string shipped = ReadBytes(ZEVO_SCHEMA_FILE);
  folder_.Write("other.xsd", shipped);
  for (const std::string_view reference :
       {"<xs:include schemaLocation='http://localhost:9/a.xsd'/>", "<xs:include schemaLocation='other.xsd'/>",
        "<xs:import namespace='urn:a' schemaLocation='http://localhost:9/a.xsd'/>",
        "<xs:import namespace='urn:a' schemaLocation='file:///etc/passwd'/>",
        "<xs:redefine schemaLocation='other.xsd'/>", "<xs:include schemaLocation='ftp://localhost:9/a.xsd'/>"}) {
    std::string schema = shipped;
    schema.insert(schema.find("<xs:element"), reference);
    Options().set_SchemaLocation(folder_.Write("own.xsd", schema));
    std::shared_ptr<const AuditException> exception;
    EXPECT_FALSE(Validate(path, exception)) << reference;
    ASSERT_NE(exception, nullptr);
    EXPECT_EQ(exception->Source(), kValidationSource) << Told(exception);
    EXPECT_THAT(exception->Description(), HasSubstr("outro ficheiro")) << reference;
  }
}

TEST_F(HostileFileTest, LargeButAllowedFilesAreOpened) {
  ExpectOpened(folder_.Write("deep.xml", Nested(200)));
  ExpectOpened(folder_.Write("long.xml", LongText(9'000'000)));
  ExpectOpened(folder_.Write("tag.xml", LongTag(60'000)));
  ExpectOpened(folder_.Write("attributes.xml", ManyAttributes(256)));
  ExpectOpened(folder_.Write("declarations.xml", ManyDeclarations(64)));
  ExpectOpened(folder_.Write("names.xml", ManyNames(10'000)));
}

TEST_F(HostileFileTest, ValidationRefusesARootOfAnotherName) {
  AuditFile file;
  file.set_AuditFileName(folder_.Write("saft.xml", "<Other xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\"/>"));
  EXPECT_FALSE(file.ValidateAuditFile());
  EXPECT_THAT(file, RecordedXmlErrorFrom(kValidationSource));
}

// A schema that takes in any audit file, were it not for what else is in it.
std::string SchemaWith(std::string_view content) {
  return std::string("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' ")
      .append("xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01' ")
      .append("targetNamespace='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><xs:element name='AuditFile'/>")
      .append(content)
      .append("</xs:schema>");
}

// Definitions that name the next one, and the next one again.
std::string Chain(int length, std::string_view begin, std::string_view between, std::string_view end) {
  std::string schema;
  for (int i = 0; i < length; ++i) {
    const std::string next = std::to_string(i + 1);
    schema.append(begin).append(std::to_string(i)).append(between).append(next);
    // Twice where there is room for it.
    if (const size_t again = end.find('@'); again != std::string_view::npos) {
      schema.append(end.substr(0, again)).append(next).append(end.substr(again + 1));
    } else {
      schema.append(end);
    }
  }
  return SchemaWith(schema);
}

TEST_F(HostileFileTest, SchemaThatMultipliesItselfIsRefused) {
  const std::string path = folder_.Path("saft.xml");
  SaveSampleFile(path);
  for (const std::string& schema :
       {Chain(30, "<xs:group name='d", "'><xs:sequence><xs:group ref='d",
              "'/><xs:group ref='d@'/></xs:sequence></xs:group>"),
        Chain(30, "<xs:attributeGroup name='d", "'><xs:attributeGroup ref='d",
              "'/><xs:attributeGroup ref='d@'/></xs:attributeGroup>"),
        Chain(30, "<xs:simpleType name='d", "'><xs:union memberTypes='d", " d@'/></xs:simpleType>"),
        Chain(3'000, "<xs:simpleType name='d", "'><xs:restriction base='d", "'/></xs:simpleType>"),
        Chain(3'000, "<xs:simpleType name='d", "'><xs:list itemType='d", "'/></xs:simpleType>"),
        Chain(450, "<xs:complexType name='d", "'><xs:complexContent><xs:extension base='d",
              "'><xs:sequence><xs:element "
              "name='e'/></xs:sequence></xs:extension></xs:complexContent></xs:complexType>")}) {
    Options().set_SchemaLocation(folder_.Write("own.xsd", schema));
    if (!kSanitized) {
      EXPECT_EQ(CostBeyond(schema.size(), kAccesses[4], path), "") << schema.substr(190, 80);
    }
    std::shared_ptr<const AuditException> exception;
    EXPECT_FALSE(Validate(path, exception));
    ASSERT_NE(exception, nullptr);
    EXPECT_THAT(exception->Description(), HasSubstr("vezes de mais")) << schema.substr(190, 80);
  }
}

std::string Elements(int count, std::string_view occurs, std::string_view name = "e") {
  std::string elements;
  for (int i = 0; i < count; ++i) {
    elements.append("<xs:element name='").append(name).append(std::to_string(i));
    elements.append("' ").append(occurs).append("/>");
  }
  return elements;
}

std::string Content(std::string_view occurs, std::string_view elements) {
  return SchemaWith(std::string("<xs:complexType name='c'><xs:sequence ")
                        .append(occurs)
                        .append(">")
                        .append(elements)
                        .append("</xs:sequence></xs:complexType>"));
}

// Groups in each other, each of which comes several times.
std::string InGroups(size_t depth, std::string_view elements) {
  return Repeated("<xs:sequence minOccurs='0' maxOccurs='7'>", depth)
      .append(elements)
      .append(Repeated("</xs:sequence>", depth));
}

// Choices, one after the other, of elements that may come any number of times.
std::string Choices(int count, std::string_view occurs, int elements) {
  std::string choices;
  for (int i = 0; i < count; ++i) {
    choices.append("<xs:choice ").append(occurs).append(">");
    choices += Elements(elements, "minOccurs='0' maxOccurs='unbounded'", std::string(1, static_cast<char>('p' + i)));
    choices += "</xs:choice>";
  }
  return choices;
}

std::string Pattern(std::string_view expression) {
  return SchemaWith(std::string("<xs:simpleType name='p'><xs:restriction base='xs:string'><xs:pattern value='")
                        .append(expression)
                        .append("'/></xs:restriction></xs:simpleType>"));
}

// Schemas of at most 256 KiB that take libxml2 minutes, or gigabytes, or just not.
struct LargeSchema {
  const char* name;
  bool compiles;
  std::function<std::string()> make;
};

void PrintTo(const LargeSchema& schema, std::ostream* out) { *out << schema.name; }

const std::vector<LargeSchema>& LargeSchemas() {
  static const std::vector<LargeSchema> kSchemas = {
      {"500 optional elements", true, [] { return Content("", Elements(500, "minOccurs='0'")); }},
      {"500 optional elements again and again", true,
       [] { return Content("maxOccurs='unbounded'", Elements(500, "minOccurs='0'")); }},
      {"500 elements a few times each", true, [] { return Content("", Elements(500, "minOccurs='0' maxOccurs='5'")); }},
      {"many times many elements", true,
       [] { return Content("maxOccurs='100000'", Elements(500, "maxOccurs='9999'")); }},
      {"2,000 optional elements", false, [] { return Content("", Elements(2'000, "minOccurs='0'")); }},
      {"500 optional groups a few times each", false,
       [] {
         return Content("", Repeated("<xs:sequence minOccurs='0' maxOccurs='7'><xs:element name='e' minOccurs='0' "
                                     "maxOccurs='5'/></xs:sequence>",
                                     500));
       }},
      {"30 optional groups of optional elements again and again", false,
       [] {
         return Content("maxOccurs='3'",
                        Repeated("<xs:sequence minOccurs='0'>" + Elements(2, "minOccurs='0'") + "</xs:sequence>", 30));
       }},
      {"24 choices of repeated elements again and again", false,
       [] {
         return Content(
             "maxOccurs='unbounded'",
             Repeated("<xs:choice>" + Elements(2, "minOccurs='0' maxOccurs='unbounded'") + "</xs:choice>", 24));
       }},
      {"400 repeated elements in a repeated choice", false,
       [] {
         return Content("", "<xs:choice maxOccurs='unbounded'>" + Elements(400, "minOccurs='0' maxOccurs='unbounded'") +
                                "</xs:choice>");
       }},
      {"200 repeated elements in a repeated choice", true,
       [] {
         return Content("", "<xs:choice maxOccurs='unbounded'>" + Elements(200, "minOccurs='0' maxOccurs='unbounded'") +
                                "</xs:choice>");
       }},
      {"16 optional groups of optional elements again and again", true,
       [] {
         std::string groups;
         for (int i = 0; i < 16; ++i) {
           const std::string number = std::to_string(i);
           groups += "<xs:sequence minOccurs='0'><xs:element name='a" + number +
                     "' minOccurs='0'/><xs:element name='b" + number + "' minOccurs='0'/></xs:sequence>";
         }
         return Content("maxOccurs='3'", groups);
       }},
      {"250 optional elements in two groups, each a few times", true,
       [] { return Content("", InGroups(2, Elements(250, "minOccurs='0'"))); }},
      {"250 optional elements in four groups, each a few times", false,
       [] { return Content("", InGroups(4, Elements(250, "minOccurs='0'"))); }},
      {"120 optional elements in eight groups, each a few times", false,
       [] { return Content("", InGroups(8, Elements(120, "minOccurs='0'"))); }},
      {"choices again and again in groups of 200 optional elements", false,
       [] {
         return Content("maxOccurs='7'", "<xs:sequence maxOccurs='unbounded'>" + Elements(200, "minOccurs='0'") +
                                             Choices(3, "maxOccurs='unbounded'", 2) + "</xs:sequence>");
       }},
      {"five choices of 100 repeated elements, twice", false,
       [] {
         std::string schema = Content("", Choices(5, "", 100));
         return schema.insert(
             schema.rfind("</xs:schema>"),
             "<xs:complexType name='d'><xs:sequence>" + Choices(5, "", 100) + "</xs:sequence></xs:complexType>");
       }},
      {"four choices of 20 repeated elements", true, [] { return Content("", Choices(4, "", 20)); }},
      {"choices in choices", false,
       [] {
         return Content("", Repeated("<xs:choice minOccurs='0' maxOccurs='unbounded'><xs:element name='e'/>", 60) +
                                Repeated("</xs:choice>", 60));
       }},
      {"40,000 errors", false, [] { return SchemaWith(Repeated("<e/>", 40'000)); }},
      {"9,000 errors", false, [] { return SchemaWith(Repeated("<xs:element/>", 9'000)); }},
      {"elements in the place of each other", false,
       [] { return Chain(3'000, "<xs:element name='d", "' substitutionGroup='d", "'/>"); }},
      {"500 elements in the place of each other", true,
       [] {
         std::string schema = Chain(500, "<xs:element name='d", "' substitutionGroup='d", "'/>");
         return schema.insert(schema.rfind("</xs:schema>"), "<xs:element name='d500'/>");
       }},
      {"attributes in many groups", true,
       [] {
         std::string attributes;
         for (int i = 0; i < 6'000; ++i) attributes += "<xs:attribute name='a" + std::to_string(i) + "'/>";
         std::string schema = "<xs:attributeGroup name='g'>" + attributes + "</xs:attributeGroup>";
         for (int i = 0; i < 14; ++i) {
           schema += "<xs:complexType name='t" + std::to_string(i) + "'><xs:attributeGroup ref='g'/></xs:complexType>";
         }
         return SchemaWith(schema);
       }},
      {"a pattern of alternatives", true, [] { return Pattern("(a|b){1,1000}" + Repeated("(c|d){1,1000}", 50)); }},
      {"a pattern of optional letters", false, [] { return Pattern(Repeated("a?", 4'000)); }},
      {"a pattern of optional digits in groups", false,
       [] { return Pattern(Repeated("(", 8) + Repeated("\\d{0,9}", 500) + Repeated("){0,9}", 8)); }},
      {"patterns of letters in many brackets", false,
       [] {
         std::string schema = Pattern("");
         const std::string letter = Repeated("(", 20) + "a" + Repeated(")", 20) + "|";
         const std::string pattern = "<xs:pattern value='" + Repeated(letter, 1'400) + "'/>";
         return schema.insert(schema.find("</xs:restriction>"), Repeated(pattern, 4));
       }},
      {"90,000 groups of nothing", false,
       [] {
         return SchemaWith("<xs:group name='g'><xs:sequence>" + Repeated("<xs:sequence minOccurs='0'/>", 9'000) +
                           "</xs:sequence></xs:group><xs:complexType name='c'><xs:sequence>" +
                           Repeated("<xs:group ref='g'/>", 10) + "</xs:sequence></xs:complexType>");
       }},
      {"a pattern of repetitions", false,
       [] { return Pattern(Repeated("(", 40) + "a" + Repeated("|b?|c?|d*)*", 40)); }},
      {"values that match a pattern in any number of ways", false,
       [] {
         std::string schema = Pattern("(a|aa)*b");
         const std::string values = Repeated("<xs:enumeration value='" + std::string(60, 'a') + "'/>", 2'000);
         schema.insert(schema.rfind("</xs:schema>"), "<xs:simpleType name='v'><xs:restriction base='p'>" + values +
                                                         "</xs:restriction></xs:simpleType>");
         return schema;
       }},
  };
  return kSchemas;
}

class LargeSchemaTest : public HostileFileTest, public ::testing::WithParamInterface<LargeSchema> {};

// Two seconds and 64 megabytes.
TEST_P(LargeSchemaTest, IsCompiledSoonOrRefusedAtOnce) {
  const std::string schema = GetParam().make();
  ASSERT_LE(schema.size(), size_t{256} * 1024);
  const std::string path = folder_.Write("saft.xml", "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'/>");
  Options().set_SchemaLocation(folder_.Write("own.xsd", schema));
  AuditFile file;
  file.set_AuditFileName(path);
  [[maybe_unused]] const int64_t held = PeakKilobytes();
  [[maybe_unused]] const double seconds = ProcessorSeconds([&] { file.ValidateAuditFile(); });
  EXPECT_EQ(file.AuditException() == nullptr, GetParam().compiles) << Told(file.AuditException());
  EXPECT_EQ(file.IsSchemaAtFault(), !GetParam().compiles);
  if (kSanitized) return;
  EXPECT_LT(seconds, GetParam().compiles ? 2 : 0.3);
  EXPECT_LT(PeakKilobytes() - held, 64 * 1024);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, LargeSchemaTest, ValuesIn(LargeSchemas()));

// Whatever can be cut in two is in it.
constexpr std::string_view kRichFile =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!-- antes: é -->\n<?pi de?>\n"
    "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\" xmlns:n='urn:n' n:a=\"&lt;&#233;\">\n"
    "\t<Header><CompanyName>Irmãos &amp; Filhos &#x20AC;</CompanyName><Fax/><n:x n:y=''/></Header>\n"
    "\t<!-- - --><MasterFiles><![CDATA[ ]] ]]]]><Customer ><CustomerID\n>C1</CustomerID ></Customer\n>"
    "<?fim?></MasterFiles>\n</AuditFile>";

TEST_F(HostileFileTest, FileCutAtAnyByteIsRefused) {
  const std::string path = folder_.Write("cut.xml", kRichFile);
  ExpectOpened(path);
  for (size_t size = kRichFile.size(); size-- > 0;) {
    std::filesystem::resize_file(path, size);
    ExpectRefused(path);
    ASSERT_FALSE(HasFailure()) << "cut at byte " << size;
  }
}

TEST_F(HostileFileTest, FileOfTheLibrarysOwnCutAtAnyByteIsNotOpened) {
  const std::string path = folder_.Path("saft.xml");
  SaveSampleFile(path, {.customers = 1, .transactions = 1, .invoices = 1});
  const size_t whole = ReadBytes(path).rfind('>');
  // A sanitizer takes ten times as long: it has every 13th byte, and of the file above every one.
  const size_t step = kSanitized ? 13 : 1;
  for (size_t cut = 0; cut < whole; cut += step) {
    const size_t size = whole - cut;
    std::filesystem::resize_file(path, size);
    for (const Access& access : kAccesses) {
      if (access.source == kValidationSource) continue;
      std::shared_ptr<const AuditException> exception;
      ASSERT_FALSE(access.run(path, exception)) << access.name << " cut at byte " << size;
      ASSERT_TRUE(access.IsSource(exception->Source())) << Told(exception);
      ASSERT_GT(exception->Number(), 0);
    }
  }
}

// Files that cannot be read at all.

TEST_F(HostileFileTest, MissingFileIsNotFound) {
  const std::string paths[] = {folder_.Path("missing.xml"), folder_.Path("no/such/folder.xml"),
                               folder_.Path(std::string(5000, 'x')), folder_.Write("file.xml", "") + "/below.xml"};
  for (const std::string& path : paths) {
    AuditFile file;
    file.set_AuditFileName(path);
    EXPECT_FALSE(file.OpenAuditFile());
    EXPECT_THAT(file, Recorded(kFileNotFound, "AuditFile.OpenAuditFile"));
    EXPECT_FALSE(file.ValidateAuditFile());
    EXPECT_THAT(file, Recorded(kFileNotFound, "AuditFile.ValidateAuditFile"));
    AuditFileReader reader;
    reader.set_AuditFileName(path);
    EXPECT_FALSE(reader.OpenAuditFile());
    EXPECT_THAT(reader, Recorded(kFileNotFound, "AuditFileReader.OpenAuditFile"));
    AuditFileScanner scanner;
    scanner.set_AuditFileName(path);
    EXPECT_FALSE(scanner.OpenAuditFile());
    EXPECT_THAT(scanner, Recorded(kFileNotFound, "AuditFileScanner.OpenAuditFile"));
  }
}

TEST_F(HostileFileTest, FolderIsNoFile) {
  const std::string path = folder_.Path("folder");
  std::filesystem::create_directory(path);
  for (const Access& access : kAccesses) {
    std::shared_ptr<const AuditException> exception;
    EXPECT_FALSE(access.run(path, exception)) << access.name;
    ASSERT_NE(exception, nullptr) << access.name;
    EXPECT_NE(exception->Description(), "") << access.name;
  }
  AuditFile file;
  file.set_AuditFileName(path);
  file.DeleteAuditFile();
  EXPECT_TRUE(std::filesystem::is_directory(path));
}

TEST_F(HostileFileTest, UnreadableFileIsReportedWithTheSystemsReason) {
  const std::string path = folder_.Path("saft.xml");
  SaveSampleFile(path);
  chmod(folder_.Path("").c_str(), 0755);
  chmod(path.c_str(), 0);
  const std::string report = InChildProcess([&] {
    DropPrivileges();
    std::string failures;
    for (const Access& access : kAccesses) {
      std::shared_ptr<const AuditException> exception;
      const bool succeeded = access.run(path, exception);
      if (succeeded || exception == nullptr || exception->Number() != kPermissionDenied ||
          !access.IsSource(exception->Source()) ||
          exception->Description().find("Permission denied") == std::string::npos) {
        failures += std::string(access.name) + ": " + Told(exception) + "\n";
      }
    }
    return failures;
  });
  EXPECT_EQ(report, "");
}

TEST_F(HostileFileTest, FileOutOfReachIsNotFoundInTheWordsOfTheMessage) {
  std::filesystem::create_directory(folder_.Path("closed"));
  const std::string path = folder_.Write("closed/file.xml", "<AuditFile/>");
  std::filesystem::permissions(folder_.Path("closed"), std::filesystem::perms::none);
  const std::string told = InChildProcess([&] {
    DropPrivileges();
    std::string descriptions;
    const auto open = [&](auto&& facade) {
      facade.set_AuditFileName(path);
      descriptions += facade.OpenAuditFile() ? "opened" : facade.AuditException()->Description();
    };
    open(AuditFile());
    open(AuditFileReader());
    open(AuditFileStreamer());
    return descriptions;
  });
  std::filesystem::permissions(folder_.Path("closed"), std::filesystem::perms::owner_all);
  const std::string message(MessageText(kErrorBase + static_cast<int32_t>(Message::kFileNotFound)));
  EXPECT_EQ(told, message + message + message);
}

TEST_F(HostileFileTest, UnreadableSchemaIsReportedByValidation) {
  const std::string path = folder_.Path("saft.xml");
  SaveSampleFile(path);
  const std::string schema = folder_.Write("own.xsd", ReadBytes(ZEVO_SCHEMA_FILE));
  chmod(folder_.Path("").c_str(), 0755);
  chmod(schema.c_str(), 0);
  const std::string report = InChildProcess([&]() -> std::string {
    DropPrivileges();
    Options().set_SchemaLocation(schema);
    std::shared_ptr<const AuditException> exception;
    if (!Validate(path, exception) && exception != nullptr && exception->Number() != 0 &&
        !exception->Description().empty()) {
      return "";
    }
    return Told(exception);
  });
  EXPECT_EQ(report, "");
}

}  // namespace
}  // namespace zevo
