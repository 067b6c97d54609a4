// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <zevo/facades/AuditFile.h>
#include <zevo/model/Customer.h>
#include <zevo/model/Options.h>

#include <barrier>
#include <filesystem>
#include <string>
#include <thread>
#include <type_traits>

#include "tests/model/SchemaText.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using testing::SchemaLimiting;
using testing::TemporaryFolder;
using testing::UseSchema;
using testing::UseSchemaText;

static_assert(std::is_empty_v<Options>);

std::string StoredName(std::string_view value) {
  Customer customer;
  customer.set_CompanyName(value);
  return customer.CompanyName();
}

// The library's folder is that of the file its code was loaded from: here, the test program.
std::filesystem::path DefaultSchema() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "Zevo/2070/Zevo.Adapters.11/SAF-T-PT_1_01.xsd";
}

TEST(OptionsTest, AThreadStartsWithValidationOnAndTheDefaultSchema) {
  bool validate = false;
  std::string location;
  std::thread([&] {
    validate = Options().ValidateOnAssignment();
    location = Options().SchemaLocation();
  }).join();
  EXPECT_TRUE(validate);
  EXPECT_EQ(std::filesystem::weakly_canonical(location), std::filesystem::weakly_canonical(DefaultSchema()));
}

TEST(OptionsTest, TheDefaultSchemaIsLoadedBeforeTheFirstAssignment) {
  ASSERT_TRUE(std::filesystem::exists(DefaultSchema()));
  std::string name;
  std::thread([&] { name = StoredName(std::string(61, 'x')); }).join();
  EXPECT_EQ(name, std::string(60, 'x'));
}

TEST(OptionsTest, AllObjectsShareTheValues) {
  const UseSchema restored;
  Options early;
  early.set_ValidateOnAssignment(false);
  early.set_SchemaLocation("/one.xsd");
  Options late;
  EXPECT_FALSE(late.ValidateOnAssignment());
  EXPECT_EQ(late.SchemaLocation(), "/one.xsd");
  late.set_SchemaLocation("/two.xsd");
  late.set_ValidateOnAssignment(true);
  EXPECT_EQ(early.SchemaLocation(), "/two.xsd");
  EXPECT_TRUE(early.ValidateOnAssignment());
}

TEST(OptionsTest, AuditFileSchemaIsTheSameValue) {
  const UseSchema restored;
  AuditFile auditFile;
  auditFile.set_AuditFileSchema("/one.xsd");
  EXPECT_EQ(Options().SchemaLocation(), "/one.xsd");
  Options().set_SchemaLocation("/two.xsd");
  EXPECT_EQ(auditFile.AuditFileSchema(), "/two.xsd");
}

TEST(OptionsTest, APathInOtherLetterCaseIsNeitherStoredNorLoaded) {
  const TemporaryFolder folder;
  const UseSchema restored;
  const std::string path = folder.Write("schemaçã.xsd", SchemaLimiting({{"/CompanyName", "3"}}));
  const std::string other = folder.Write("SCHEMAÇÃ.XSD", SchemaLimiting({{"/CompanyName", "5"}}));
  Options().set_SchemaLocation(path);
  Options().set_SchemaLocation(other);
  EXPECT_EQ(Options().SchemaLocation(), path);
  EXPECT_EQ(StoredName("abcdefgh"), "abc");
}

TEST(OptionsTest, TheSamePathIsNotLoadedAgain) {
  const TemporaryFolder folder;
  const UseSchema restored;
  const std::string path = folder.Write("schema.xsd", SchemaLimiting({{"/CompanyName", "3"}}));
  Options().set_SchemaLocation(path);
  folder.Write("schema.xsd", SchemaLimiting({{"/CompanyName", "5"}}));
  Options().set_SchemaLocation(path);
  EXPECT_EQ(StoredName("abcdefgh"), "abc");
  Options().set_SchemaLocation("");
  Options().set_SchemaLocation(path);
  EXPECT_EQ(StoredName("abcdefgh"), "abcde");
}

TEST(OptionsTest, APathThatCannotBeLoadedIsStoredAndRaisesNothing) {
  const TemporaryFolder folder;
  const UseSchema restored;
  const std::string broken = folder.Write("broken.xsd", "<xs:schema");
  for (const std::string& path : {folder.Path("missing.xsd"), broken, folder.Path(""), std::string()}) {
    Options().set_SchemaLocation(ZEVO_SCHEMA_FILE);
    EXPECT_NO_THROW(Options().set_SchemaLocation(path));
    EXPECT_EQ(Options().SchemaLocation(), path);
    EXPECT_TRUE(Options().ValidateOnAssignment());
    EXPECT_EQ(StoredName(std::string(500, 'x')), std::string(500, 'x'));
  }
}

TEST(OptionsTest, SwitchingValidationNeitherLoadsNorUnloadsTheSchema) {
  const TemporaryFolder folder;
  const UseSchema restored;
  Options().set_SchemaLocation(folder.Write("schema.xsd", SchemaLimiting({{"/CompanyName", "3"}})));
  Options().set_ValidateOnAssignment(false);
  EXPECT_EQ(StoredName("abcdefgh"), "abcdefgh");
  std::filesystem::remove(folder.Path("schema.xsd"));
  Options().set_ValidateOnAssignment(true);
  EXPECT_EQ(StoredName("abcdefgh"), "abc");
}

TEST(OptionsTest, ASchemaChosenWhileValidationIsOffIsInForceLater) {
  const TemporaryFolder folder;
  const UseSchema restored;
  Options().set_ValidateOnAssignment(false);
  Options().set_SchemaLocation(folder.Write("schema.xsd", SchemaLimiting({{"/CompanyName", "3"}})));
  Options().set_ValidateOnAssignment(true);
  EXPECT_EQ(StoredName("abcdefgh"), "abc");
}

TEST(OptionsTest, ThreadsDoNotSeeEachOthersOptions) {
  const TemporaryFolder folder;
  const std::string three = folder.Write("three.xsd", SchemaLimiting({{"/CompanyName", "3"}}));
  const std::string five = folder.Write("five.xsd", SchemaLimiting({{"/CompanyName", "5"}}));
  struct Thread {
    std::string path;
    bool validate;
    std::string location, name;
    bool seen = false;
  };
  Thread threads[] = {{three, true, "", ""}, {five, true, "", ""}, {five, false, "", ""}};
  std::barrier set(3);
  const auto run = [&set](Thread& thread) {
    Options().set_SchemaLocation(thread.path);
    Options().set_ValidateOnAssignment(thread.validate);
    set.arrive_and_wait();
    thread.location = Options().SchemaLocation();
    thread.seen = Options().ValidateOnAssignment();
    thread.name = StoredName("abcdefgh");
  };
  std::thread first(run, std::ref(threads[0])), second(run, std::ref(threads[1])), third(run, std::ref(threads[2]));
  first.join();
  second.join();
  third.join();
  for (const Thread& thread : threads) {
    EXPECT_EQ(thread.location, thread.path);
    EXPECT_EQ(thread.seen, thread.validate);
  }
  EXPECT_EQ(threads[0].name, "abc");
  EXPECT_EQ(threads[1].name, "abcde");
  EXPECT_EQ(threads[2].name, "abcdefgh");
}

TEST(OptionsTest, TheBuiltInSchemaCutsUntilAFileIsNamed) {
  const TemporaryFolder folder;
  const UseSchema restored;
  const std::string missing = folder.Path("missing.xsd");
  Options().set_SchemaLocation(missing);
  EXPECT_EQ(StoredName(std::string(61, 'x')).size(), 61U);
  UseBuiltInSchema();
  EXPECT_EQ(Options().SchemaLocation(), "");
  EXPECT_EQ(StoredName(std::string(61, 'x')).size(), 60U);
  Options().set_SchemaLocation("");
  UseBuiltInSchema();
  EXPECT_EQ(StoredName(std::string(61, 'x')).size(), 60U);
  Options().set_SchemaLocation(missing);
  EXPECT_EQ(Options().SchemaLocation(), missing);
  EXPECT_EQ(StoredName(std::string(61, 'x')).size(), 61U);
}

TEST(OptionsTest, TheBuiltInSchemaIsUsedByTheThreadThatAskedForIt) {
  std::thread([] {
    UseBuiltInSchema();
    EXPECT_EQ(Options().SchemaLocation(), "");
    std::thread([] { EXPECT_NE(Options().SchemaLocation(), ""); }).join();
  }).join();
}

TEST(OptionsTest, ASchemaThatIsNoFileIsNotWaitedFor) {
  const TemporaryFolder folder;
  const UseSchema restored;
  const std::string pipe = folder.Path("pipe.xsd");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {pipe, folder.Path(""), std::string("/dev/zero")}) {
    Options().set_SchemaLocation(path);
    EXPECT_EQ(Options().SchemaLocation(), path);
    EXPECT_EQ(StoredName(std::string(61, 'x')).size(), 61U);
  }
}

}  // namespace
}  // namespace zevo
