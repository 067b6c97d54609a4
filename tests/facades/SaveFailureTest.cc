// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/facades/ChildProcess.h"
#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"

// A save that fails, or is never finished, leaves the old file or the new one, whole.

namespace zevo {
namespace {

using namespace zevo::testing;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kOldBytes = "the file as it was";

// Limits the size of any file that the process writes.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t size) : old_handler_(signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_limit_);
    rlimit limit = old_limit_;
    limit.rlim_cur = size;
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) throw std::runtime_error("no limit");
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &old_limit_);
    signal(SIGXFSZ, old_handler_);
  }

 private:
  void (*old_handler_)(int);
  rlimit old_limit_{};
};

class SaveFailureTest : public ::testing::Test {
 protected:
  SaveFailureTest() { chmod(folder_.Path("").c_str(), 0755); }

  // A document in memory, to be saved over the file as it was.
  void Prepare(const SampleSize& size) {
    SaveSampleFile(path_, size);
    new_bytes_ = ReadBytes(path_);
    file_.set_AuditFileName(path_);
    ASSERT_TRUE(file_.OpenAuditFile());
    RestoreOld();
  }
  void RestoreOld() { folder_.Write("saft.xml", kOldBytes); }

  void ExpectOldFileAlone() {
    EXPECT_EQ(ReadBytes(path_), kOldBytes);
    EXPECT_THAT(folder_.Names(), ElementsAre("saft.xml"));
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.Path("saft.xml");
  AuditFile file_;
  std::string new_bytes_;
};

TEST_F(SaveFailureTest, DiskThatFillsUpAtAnyPointLeavesTheOldFile) {
  // More than the buffers of any layer hold.
  Prepare({.customers = 2000, .transactions = 1, .invoices = 1});
  std::vector<size_t> sizes = {0, 1, 2, 4095, 4096, 4097, 65536, new_bytes_.size() / 2, new_bytes_.size() - 1};
  for (size_t size = 10'007; size < new_bytes_.size(); size += 50'021) sizes.push_back(size);
  ASSERT_GT(new_bytes_.size(), 500'000U);
  for (const size_t size : sizes) {
    bool saved;
    {
      const FileSizeLimit limit(size);
      saved = file_.UpdateAuditFile();
    }
    EXPECT_FALSE(saved) << size;
    EXPECT_THAT(file_,
                RecordedError(kDiskFull, "ZevoAdapters11", AllOf(HasSubstr("File too large"), HasSubstr("saft.xml"))));
    ExpectOldFileAlone();
  }
  {
    const FileSizeLimit limit(new_bytes_.size());
    EXPECT_TRUE(file_.UpdateAuditFile()) << Told(file_.AuditException());
  }
  EXPECT_TRUE(ReadBytes(path_) == new_bytes_);
  EXPECT_THAT(folder_.Names(), ElementsAre("saft.xml"));
}

TEST_F(SaveFailureTest, FirstSaveThatFailsLeavesNoFile) {
  file_.set_AuditFileName(path_);
  ASSERT_TRUE(file_.CreateAuditFile());
  ASSERT_TRUE(WriteSampleRecords(file_));
  {
    const FileSizeLimit limit(100);
    EXPECT_FALSE(file_.UpdateAuditFile());
  }
  EXPECT_THAT(folder_.Names(), IsEmpty());
  EXPECT_TRUE(file_.UpdateAuditFile()) << "the document is still there";
  EXPECT_TRUE(file_.ValidateAuditFile()) << Told(file_.AuditException());
}

TEST_F(SaveFailureTest, FullDeviceIsReported) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  Prepare({});
  file_.set_AuditFileName("/dev/full");
  EXPECT_FALSE(file_.UpdateAuditFile());
  EXPECT_THAT(file_, RecordedError(kDiskFull, "ZevoAdapters11",
                                   AllOf(HasSubstr("No space left on device"), HasSubstr("/dev/full"))));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(SaveFailureTest, FullFileSystemLeavesTheOldFile) {
  Prepare({.customers = 2000, .transactions = 1, .invoices = 1});
  const std::string disk = folder_.Path("disk");
  std::filesystem::create_directory(disk);
  // In a name space of its own: the disk is gone with the process.
  const std::string report = InChildProcess([&]() -> std::string {
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=256k") != 0) {
      return "cannot mount";
    }
    const std::string path = disk + "/saft.xml";
    std::filesystem::copy_file(path_, path);
    file_.set_AuditFileName(path);
    if (file_.UpdateAuditFile()) return "was saved";
    const auto exception = file_.AuditException();
    if (exception->Number() != kDiskFull ||
        exception->Description().find("No space left on device") == std::string::npos) {
      return Told(exception);
    }
    if (ReadBytes(path) != kOldBytes) return "the old file was changed";
    const auto entries = std::filesystem::directory_iterator(disk);
    return std::distance(begin(entries), end(entries)) == 1 ? "" : "something was left behind";
  });
  if (report == "cannot mount") GTEST_SKIP() << "a file system cannot be mounted here";
  EXPECT_EQ(report, "");
}

struct Obstacle {
  const char* name;
  mode_t folder;
  mode_t file;
};

void PrintTo(const Obstacle& obstacle, std::ostream* out) { *out << obstacle.name; }

class SaveFailureWithoutPermissionTest : public SaveFailureTest, public ::testing::WithParamInterface<Obstacle> {};

TEST_P(SaveFailureWithoutPermissionTest, IsReportedAndLeavesTheOldFile) {
  Prepare({});
  chmod(path_.c_str(), GetParam().file);
  chmod(folder_.Path("").c_str(), GetParam().folder);
  const std::string report = InChildProcess([&]() -> std::string {
    DropPrivileges();
    if (file_.UpdateAuditFile()) return "was saved";
    const auto exception = file_.AuditException();
    const bool told = exception->Number() == kPermissionDenied && exception->Source() == "ZevoAdapters11" &&
                      exception->Description().find("Permission denied") != std::string::npos;
    return told ? "" : Told(exception);
  });
  chmod(folder_.Path("").c_str(), 0755);
  EXPECT_EQ(report, "");
  ExpectOldFileAlone();
}

INSTANTIATE_TEST_SUITE_P(EveryObstacle, SaveFailureWithoutPermissionTest,
                         ::testing::Values(Obstacle{"folder that may not be written", 0555, 0666},
                                           Obstacle{"file that may not be written", 0777, 0444}));

TEST_F(SaveFailureTest, FileThatMayNotBeDeletedIsReported) {
  RestoreOld();
  chmod(folder_.Path("").c_str(), 0555);
  const std::string report = InChildProcess([&]() -> std::string {
    DropPrivileges();
    AuditFile file;
    file.set_AuditFileName(path_);
    if (file.DeleteAuditFile()) return "was deleted";
    return file.AuditException()->Number() == kPermissionDenied ? "" : Told(file.AuditException());
  });
  chmod(folder_.Path("").c_str(), 0755);
  EXPECT_EQ(report, "");
  ExpectOldFileAlone();
}

TEST_F(SaveFailureTest, NamesThatCannotBeWrittenAreReported) {
  Prepare({});
  std::filesystem::create_directory(folder_.Path("folder"));
  const struct {
    std::string name;
    int32_t number;
  } kCases[] = {
      {folder_.Path("no/such/folder.xml"), kPathNotFound},
      {path_ + "/below.xml", kPathNotFound},
      {folder_.Path(std::string(300, 'x')), kBadFileName},
      {folder_.Path("folder"), kPathFileAccess},
  };
  for (const auto& given : kCases) {
    file_.set_AuditFileName(given.name);
    EXPECT_FALSE(file_.UpdateAuditFile()) << given.name;
    EXPECT_THAT(file_, RecordedError(given.number, "ZevoAdapters11", ::testing::Not(IsEmpty()))) << given.name;
    EXPECT_THAT(folder_.Names(), ElementsAre("folder", "saft.xml"));
  }
  file_.set_AuditFileName(path_);
  EXPECT_TRUE(file_.UpdateAuditFile()) << "the document is still there";
  EXPECT_TRUE(ReadBytes(path_) == new_bytes_);
}

TEST_F(SaveFailureTest, SaveKeepsTheModeAndFollowsALink) {
  Prepare({});
  const std::string link = folder_.Path("link.xml");
  std::filesystem::create_symlink("saft.xml", link);
  chmod(path_.c_str(), 0640);
  file_.set_AuditFileName(link);
  ASSERT_TRUE(file_.UpdateAuditFile()) << Told(file_.AuditException());
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_TRUE(ReadBytes(path_) == new_bytes_);
  struct stat status {};
  ASSERT_EQ(stat(path_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
  EXPECT_THAT(folder_.Names(), ElementsAre("link.xml", "saft.xml"));
}

TEST_F(SaveFailureTest, KilledSaveLeavesTheOldFileOrTheNewOne) {
  Prepare({.customers = 8'000, .transactions = 1, .invoices = 1});
  ASSERT_GT(new_bytes_.size(), 2'000'000U);
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  ASSERT_TRUE(file_.UpdateAuditFile());
  const auto needed = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);

  std::minstd_rand random(1);
  std::uniform_int_distribution<int64_t> delays(0, needed.count() * 3 / 2);
  int killed_midway = 0;
  for (int round = 0; round < 40; ++round) {
    RestoreOld();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) _exit(file_.UpdateAuditFile() ? 0 : 1);
    usleep(static_cast<useconds_t>(delays(random)));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0) << "the save failed by itself";

    const std::string bytes = ReadBytes(path_);
    ASSERT_TRUE(bytes == kOldBytes || bytes == new_bytes_) << "neither the old file nor the new one";
    // No more than the last of them has left something.
    ASSERT_LE(folder_.Names().size(), 2U);
    if (folder_.Names().size() == 2) ++killed_midway;
  }
  EXPECT_GT(killed_midway, 0) << "no save was killed while it was under way";

  EXPECT_TRUE(file_.UpdateAuditFile());
  EXPECT_THAT(folder_.Names(), ElementsAre("saft.xml"));
}

TEST_F(SaveFailureTest, WhatAKilledSaveLeftGoesWithTheNextOne) {
  Prepare({});
  for (const char* name : {"zevo-1-0.tmp", "zevo-4294967295-12.tmp"}) folder_.Write(name, "left behind");
  // Names that no save gives.
  for (const char* name : {"saft.xml.1-0.tmp", "zevo-1.tmp", "zevo-a-0.tmp"}) folder_.Write(name, "something else");
  ASSERT_TRUE(file_.UpdateAuditFile()) << Told(file_.AuditException());
  EXPECT_TRUE(ReadBytes(path_) == new_bytes_);
  EXPECT_THAT(folder_.Names(), ElementsAre("saft.xml", "saft.xml.1-0.tmp", "zevo-1.tmp", "zevo-a-0.tmp"));
}

TEST_F(SaveFailureTest, LoopOfLinksIsReportedAndStays) {
  Prepare({});
  std::filesystem::create_symlink("b.xml", folder_.Path("a.xml"));
  std::filesystem::create_symlink("a.xml", folder_.Path("b.xml"));
  file_.set_AuditFileName(folder_.Path("a.xml"));
  EXPECT_FALSE(file_.UpdateAuditFile());
  EXPECT_THAT(file_, RecordedError(kPathFileAccess, "ZevoAdapters11",
                                   AllOf(HasSubstr("Too many levels of symbolic links"), HasSubstr("a.xml"))));
  EXPECT_THAT(folder_.Names(), ElementsAre("a.xml", "b.xml", "saft.xml"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("a.xml")) && std::filesystem::is_symlink(folder_.Path("b.xml")));
}

}  // namespace
}  // namespace zevo
