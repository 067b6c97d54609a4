// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zevo/platform/File.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/platform/Child.h"
#include "tests/platform/Numbered.h"
#include "tests/platform/Replacement.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::kNew;
using testing::kOld;
using testing::ReadBytes;
using testing::Replace;
using testing::RunInChild;

// Runs code as a user without privileges; gives the number of the error that it raises, 0 for none.
template <class Code>
std::string NumberAsNobody(Code&& code) {
  const testing::ChildResult result = RunInChild([&] {
    if (geteuid() == 0 && seteuid(65534) != 0) return std::string("no change of user");
    try {
      code();
    } catch (const Error& error) {
      return std::to_string(error.Number());
    }
    return std::string("0");
  });
  EXPECT_EQ(result.status, 0);
  return result.text;
}

unsigned ModeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 07777U;
}

class FileTest : public ::testing::Test {
 protected:
  // Everybody may come in; what they may do there is up to each test.
  void SetUp() override { ASSERT_EQ(chmod(folder_.Path("").c_str(), 0777), 0); }

  testing::TemporaryFolder folder_;
};

// Existence and deletion.

TEST_F(FileTest, OnlyARegularFileOfThatVeryNameExists) {
  const std::string file = folder_.Write("file.xml", "");
  std::filesystem::create_directory(folder_.Path("directory"));
  std::filesystem::create_symlink(file, folder_.Path("link"));
  std::filesystem::create_symlink(folder_.Path("none"), folder_.Path("dangling"));
  EXPECT_TRUE(FileExists(file));
  EXPECT_TRUE(FileExists(folder_.Path("link")));
  for (const std::string name : {"File.xml", "file.xm", "file.*", "directory", "dangling", "none", "file.xml/", ""}) {
    EXPECT_FALSE(FileExists(folder_.Path(name))) << name;
  }
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists("/dev/null"));
}

TEST_F(FileTest, ANameIsUtf8) {
  const std::string file = folder_.Write("São João €.xml", kOld);
  EXPECT_TRUE(FileExists(file));
  Replace(file, kNew);
  EXPECT_EQ(ReadBytes(file), kNew);
}

TEST_F(FileTest, ANameWithANulIsNoFilesName) {
  const std::string file = folder_.Write("file.xml", kOld);
  const std::string name = file + "\0.bak"s;
  EXPECT_FALSE(FileExists(name));
  EXPECT_ERROR(InputFile{name}, RunTimeError::kBadFileName, kRunTimeSource);
  EXPECT_ERROR(Replace(name, kNew), RunTimeError::kBadFileName, kRunTimeSource);
  EXPECT_ERROR(DeleteFile(name), RunTimeError::kBadFileName, kRunTimeSource);
  EXPECT_EQ(ReadBytes(file), kOld);
}

TEST_F(FileTest, DeletedItIsGone) {
  const std::string file = folder_.Write("file", kOld);
  DeleteFile(file);
  EXPECT_FALSE(FileExists(file));
}

TEST_F(FileTest, WhatCannotBeDeletedIsARunTimeError) {
  EXPECT_ERROR(DeleteFile(folder_.Path("none")), RunTimeError::kFileNotFound, kRunTimeSource);
  EXPECT_ERROR(DeleteFile(folder_.Path("")), RunTimeError::kPathFileAccess, kRunTimeSource);
  const std::string file = folder_.Write("file", kOld);
  ASSERT_EQ(chmod(folder_.Path("").c_str(), 0555), 0);
  EXPECT_EQ(NumberAsNobody([&] { DeleteFile(file); }), "70");
  EXPECT_TRUE(FileExists(file));
}

// Reading.

TEST_F(FileTest, ReadsFrontToBackAndFewerOnlyAtTheEnd) {
  InputFile file(folder_.Write("file", "0123456789"));
  char bytes[16];
  EXPECT_EQ(file.Read(bytes, 4), 4u);
  EXPECT_EQ(std::string_view(bytes, 4), "0123");
  EXPECT_EQ(file.Read(bytes, 16), 6u);
  EXPECT_EQ(std::string_view(bytes, 6), "456789");
  EXPECT_EQ(file.Read(bytes, 16), 0u);
  EXPECT_EQ(file.Read(bytes, 16), 0u);
}

TEST_F(FileTest, AFileThatCannotBeOpenedIsARunTimeErrorWithReasonAndName) {
  struct Row {
    std::string name;
    RunTimeError number;
    int reason;
  };
  for (const Row& row : {
           Row{folder_.Path("none"), RunTimeError::kFileNotFound, ENOENT},
           Row{folder_.Write("file", "") + "/below", RunTimeError::kPathNotFound, ENOTDIR},
           Row{folder_.Path(std::string(300, 'x')), RunTimeError::kBadFileName, ENAMETOOLONG},
       }) {
    const Error error = ErrorOf([&] { InputFile file(row.name); });
    EXPECT_EQ(error.Number(), static_cast<int32_t>(row.number)) << row.name;
    EXPECT_EQ(error.Source(), kRunTimeSource);
    EXPECT_THAT(error.Description(), HasSubstr(std::strerror(row.reason)));
    EXPECT_THAT(error.Description(), HasSubstr(row.name));
  }
}

TEST_F(FileTest, AFileWithoutPermissionIsNotRead) {
  const std::string file = folder_.Write("file", kOld);
  ASSERT_EQ(chmod(file.c_str(), 0), 0);
  EXPECT_EQ(NumberAsNobody([&] { InputFile{file}; }), "70");
}

TEST_F(FileTest, AFolderIsNotRead) {
  EXPECT_ERROR(
      {
        InputFile folder(folder_.Path(""));
        char byte;
        folder.Read(&byte, 1);
      },
      RunTimeError::kPathFileAccess, kRunTimeSource);
}

// Replacing.

TEST_F(FileTest, ANewFileHasItsContentAndTheModeOfAnyNewFile) {
  const mode_t mask = umask(027);
  Replace(folder_.Path("new"), kNew);
  umask(mask);
  EXPECT_EQ(ReadBytes(folder_.Path("new")), kNew);
  EXPECT_EQ(ModeOf(folder_.Path("new")), 0640u);
  EXPECT_THAT(folder_.Names(), ElementsAre("new"));
}

TEST_F(FileTest, ModeBitsAreKept) {
  const std::string file = folder_.Write("file", kOld);
  for (const unsigned mode : {0600u, 0640u, 0666u, 0755u, 0770u, 0604u}) {
    ASSERT_EQ(chmod(file.c_str(), mode), 0);
    Replace(file, kNew);
    EXPECT_EQ(ModeOf(file), mode);
  }
}

TEST_F(FileTest, ToRunAsTheOwnerOrTheGroupIsNotKept) {
  const std::string file = folder_.Write("file", kOld);
  for (const unsigned mode : {04755u, 02755u, 06777u}) {
    ASSERT_EQ(chmod(file.c_str(), mode), 0);
    ASSERT_EQ(ModeOf(file), mode);
    Replace(file, kNew);
    EXPECT_EQ(ModeOf(file), mode & 0777);
  }
}

TEST_F(FileTest, TheTemporaryFileIsForNobodyElseUntilTheCommit) {
  const std::string file = folder_.Write("file", kOld);
  ASSERT_EQ(chmod(file.c_str(), 0664), 0);
  const mode_t mask = umask(0);
  FileReplacement replacement(file);
  umask(mask);
  replacement.Write(kNew);
  const std::string temporary = folder_.Names().back();
  EXPECT_EQ(temporary.rfind("zevo-" + std::to_string(getpid()) + "-", 0), 0U) << temporary;
  EXPECT_EQ(ModeOf(folder_.Path(temporary)), 0600u);
  replacement.Commit();
  EXPECT_EQ(ModeOf(file), 0664u);
}

// Owner, group and permissions, such as "10:20 640".
std::string BelongsTo(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  char text[64];
  std::snprintf(text, sizeof text, "%u:%u %o", status.st_uid, status.st_gid, status.st_mode & 07777U);
  return text;
}

constexpr uid_t kNobody = 65534;

// Tests that give files away.
class FileOwnedTest : public FileTest {
 protected:
  void SetUp() override {
    FileTest::SetUp();
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser may give a file away";
    folder_.Write("file", kOld);
  }
  void GiveTo(uid_t owner, gid_t group, mode_t mode) {
    ASSERT_EQ(chown(file_.c_str(), owner, group), 0);
    ASSERT_EQ(chmod(file_.c_str(), mode), 0);
  }
  // Replaces the file as a user who is in no group but those.
  std::string ReplacedBy(uid_t user, gid_t group, std::vector<gid_t> others = {}) {
    const testing::ChildResult result = RunInChild([&] {
      if (setgroups(others.size(), others.data()) != 0 || setegid(group) != 0 || seteuid(user) != 0) {
        return "no change of user"s;
      }
      Replace(file_, kNew);
      return ReadBytes(file_);
    });
    EXPECT_EQ(result.text, kNew);
    EXPECT_THAT(folder_.Names(), ElementsAre("file"));
    return BelongsTo(file_);
  }

  std::string file_ = folder_.Path("file");
};

TEST_F(FileOwnedTest, StaysItsOwnersAndItsGroupsWhenTheSuperuserReplacesIt) {
  GiveTo(4711, 4712, 0640);
  EXPECT_EQ(ReplacedBy(0, 0), "4711:4712 640");
  GiveTo(4711, 0, 0604);
  EXPECT_EQ(ReplacedBy(0, 0), "4711:0 604");
}

TEST_F(FileOwnedTest, StaysItsGroupsWhenOneOfTheGroupReplacesIt) {
  GiveTo(4711, 4712, 0660);
  EXPECT_EQ(ReplacedBy(kNobody, kNobody, {4712}), "65534:4712 660");
  GiveTo(4711, kNobody, 0660);
  EXPECT_EQ(ReplacedBy(kNobody, kNobody), "65534:65534 660");
}

TEST_F(FileOwnedTest, IsReplacedByOneWhoMayNotGiveItBackAndOpensToNobodyElse) {
  const struct {
    mode_t before;
    const char* after;
  } kRows[] = {
      {0666, "65534:65534 666"}, {0646, "65534:65534 644"}, {0676, "65534:65534 666"},
      {0606, "65534:65534 600"}, {0626, "65534:65534 622"},
  };
  for (const auto& row : kRows) {
    GiveTo(4711, 4712, row.before);
    EXPECT_EQ(ReplacedBy(kNobody, kNobody), row.after) << std::oct << row.before;
  }
  // The owner of a file whose group he has left.
  GiveTo(kNobody, 4712, 0640);
  EXPECT_EQ(ReplacedBy(kNobody, kNobody), "65534:65534 600");
  GiveTo(kNobody, 4712, 0664);
  EXPECT_EQ(ReplacedBy(kNobody, kNobody), "65534:65534 644");
}

TEST_F(FileTest, LinksStayLinks) {
  std::filesystem::create_directory(folder_.Path("other"));
  const std::string file = folder_.Write("other/file", kOld);
  std::filesystem::create_symlink("other/file", folder_.Path("link"));
  std::filesystem::create_symlink("link", folder_.Path("link-to-link"));
  Replace(folder_.Path("link-to-link"), kNew);
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("link")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("link-to-link")));
  EXPECT_FALSE(std::filesystem::is_symlink(file));
  EXPECT_EQ(ReadBytes(file), kNew);
  EXPECT_THAT(folder_.Names(), ElementsAre("link", "link-to-link", "other"));
}

TEST_F(FileTest, LinksThatGoRoundAreToldAndStay) {
  std::filesystem::create_symlink("there", folder_.Path("here"));
  std::filesystem::create_symlink("here", folder_.Path("there"));
  std::filesystem::create_symlink("self", folder_.Path("self"));
  for (const char* name : {"here", "there", "self"}) {
    const Error error = ErrorOf([&] { Replace(folder_.Path(name), kNew); });
    EXPECT_EQ(error.Number(), static_cast<int32_t>(RunTimeError::kPathFileAccess));
    EXPECT_THAT(error.Description(), HasSubstr(std::strerror(ELOOP)));
    EXPECT_THAT(error.Description(), HasSubstr(folder_.Path(name)));
    EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path(name)));
  }
  EXPECT_THAT(folder_.Names(), ElementsAre("here", "self", "there"));
}

TEST_F(FileTest, AsManyLinksAreFollowedAsTheSystemFollows) {
  folder_.Write("0", kOld);
  int links = 0;
  // One more each time, until the system takes them for a loop.
  for (std::string last = "0"; std::filesystem::exists(folder_.Path(last)) && links < 100; ++links) {
    Replace(folder_.Path(last), std::to_string(links));
    EXPECT_EQ(ReadBytes(folder_.Path("0")), std::to_string(links));
    const std::string next = std::to_string(links + 1);
    std::filesystem::create_symlink(last, folder_.Path(next));
    last = next;
    std::error_code loop;
    if (!std::filesystem::exists(folder_.Path(last), loop)) break;
  }
  EXPECT_GT(links, 10);
  EXPECT_ERROR(Replace(folder_.Path(std::to_string(links + 1)), kNew), RunTimeError::kPathFileAccess, kRunTimeSource);
}

TEST_F(FileTest, ALinkToAFileThatIsYetToComeStaysALink) {
  std::filesystem::create_symlink("yet-to-come", folder_.Path("link"));
  Replace(folder_.Path("link"), kNew);
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("link")));
  EXPECT_EQ(ReadBytes(folder_.Path("yet-to-come")), kNew);
}

TEST_F(FileTest, TheLongestNameIsNoObstacle) {
  const std::string name(255, 'x');
  for (const std::string_view content : {kOld, kNew}) {
    Replace(folder_.Path(name), content);
    EXPECT_EQ(ReadBytes(folder_.Path(name)), content);
  }
  EXPECT_THAT(folder_.Names(), ElementsAre(name));
}

TEST_F(FileTest, ANameInTheCurrentFolder) {
  const testing::ChildResult result = RunInChild([&] {
    if (chdir(folder_.Path("").c_str()) != 0) return "no change of folder"s;
    Replace("file", kNew);
    return ReadBytes("file");
  });
  EXPECT_EQ(result.text, kNew);
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

TEST_F(FileTest, TargetsThatCannotBeWrittenAreRunTimeErrors) {
  std::filesystem::create_directory(folder_.Path("directory"));
  folder_.Write("file", kOld);
  struct Row {
    std::string name;
    RunTimeError number;
  };
  for (const Row& row : {
           Row{folder_.Path("directory"), RunTimeError::kPathFileAccess},
           Row{folder_.Path("none/file"), RunTimeError::kPathNotFound},
           Row{folder_.Path("file/below"), RunTimeError::kPathNotFound},
           Row{folder_.Path(std::string(256, 'x')), RunTimeError::kBadFileName},
           Row{"", RunTimeError::kFileNotFound},
       }) {
    const Error error = ErrorOf([&] { Replace(row.name, kNew); });
    EXPECT_EQ(error.Number(), static_cast<int32_t>(row.number)) << row.name;
    EXPECT_EQ(error.Source(), kRunTimeSource);
    EXPECT_THAT(error.Description(), HasSubstr(row.name));
  }
  EXPECT_THAT(folder_.Names(), ElementsAre("directory", "file"));
  EXPECT_EQ(ReadBytes(folder_.Path("file")), kOld);
}

TEST_F(FileTest, AReadOnlyFileStaysAsItIs) {
  const std::string file = folder_.Write("file", kOld);
  ASSERT_EQ(chmod(file.c_str(), 0444), 0);
  EXPECT_EQ(NumberAsNobody([&] { Replace(file, kNew); }), "70");
  EXPECT_EQ(ReadBytes(file), kOld);
  EXPECT_EQ(ModeOf(file), 0444u);
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

TEST_F(FileTest, AFolderWithoutPermissionStaysAsItIs) {
  const std::string file = folder_.Write("file", kOld);
  ASSERT_EQ(chmod(file.c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder_.Path("").c_str(), 0555), 0);
  EXPECT_EQ(NumberAsNobody([&] { Replace(file, kNew); }), "70");
  EXPECT_EQ(NumberAsNobody([&] { Replace(folder_.Path("new"), kNew); }), "70");
  EXPECT_EQ(ReadBytes(file), kOld);
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

TEST_F(FileTest, ADeviceIsWrittenToDirectly) {
  EXPECT_NO_THROW(Replace("/dev/null", kNew));
  EXPECT_EQ(ErrorOf([] { Replace("/dev/full", kNew); }).Number(), static_cast<int32_t>(RunTimeError::kDiskFull));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

// A disk that fills up at every place of the content.
class FileFullDiskTest : public FileTest, public ::testing::WithParamInterface<rlim_t> {};

TEST_P(FileFullDiskTest, LeavesTheOldFileWholeAndNothingElse) {
  const std::string file = folder_.Write("file", kOld);
  const std::string_view piece = "0123456789";
  const testing::ChildResult result = RunInChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{GetParam(), GetParam()};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return "no limit"s;
    try {
      FileReplacement replacement(file);
      for (int i = 0; i < 10; ++i) replacement.Write(piece);
      replacement.Commit();
    } catch (const Error& error) {
      return std::to_string(error.Number()) + " " + error.Description();
    }
    return "0"s;
  });
  EXPECT_EQ(result.status, 0);
  if (GetParam() < 100) {
    EXPECT_THAT(result.text, ::testing::StartsWith("61 "));
    EXPECT_THAT(result.text, HasSubstr(std::strerror(EFBIG)));
    EXPECT_EQ(ReadBytes(file), kOld);
  } else {
    EXPECT_EQ(result.text, "0");
    EXPECT_EQ(ReadBytes(file).size(), 100u);
  }
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

INSTANTIATE_TEST_SUITE_P(All, FileFullDiskTest, ::testing::Values(0, 1, 9, 10, 11, 55, 90, 99, 100, 1000),
                         testing::Numbered());

// A process that is killed after so many writes, 0 being before the first.
class FileKilledProcessTest : public FileTest, public ::testing::WithParamInterface<int> {};

TEST_P(FileKilledProcessTest, LeavesTheOldFileWholeAndInNobodysWay) {
  const std::string file = folder_.Write("file", kOld);
  const testing::ChildResult result = RunInChild([&] {
    FileReplacement replacement(file);
    for (int i = 0; i < GetParam(); ++i) replacement.Write(std::string(100'000, 'x'));
    std::raise(SIGKILL);
    return ""s;
  });
  EXPECT_TRUE(WIFSIGNALED(result.status));
  EXPECT_EQ(ReadBytes(file), kOld);
  EXPECT_EQ(folder_.Names().size(), 2U);
  Replace(folder_.Path("another"), kNew);
  EXPECT_THAT(folder_.Names(), ElementsAre("another", "file"));
  Replace(file, kNew);
  EXPECT_EQ(ReadBytes(file), kNew);
}

INSTANTIATE_TEST_SUITE_P(All, FileKilledProcessTest, ::testing::Range(0, 5));

TEST_F(FileTest, WhatAnotherProcessIsWritingStays) {
  const std::string file = folder_.Write("file", kOld);
  const testing::ChildResult result = RunInChild([&] {
    FileReplacement replacement(file);
    replacement.Write(kNew);
    // A process that comes between.
    const testing::ChildResult other = RunInChild([&] {
      Replace(folder_.Path("another"), kOld);
      return std::to_string(folder_.Names().size());
    });
    replacement.Commit();
    return other.text;
  });
  EXPECT_EQ(result.text, "3");
  EXPECT_EQ(ReadBytes(file), kNew);
  EXPECT_THAT(folder_.Names(), ElementsAre("another", "file"));
}

TEST_F(FileTest, NothingIsTakenForLeftBehindThatIsNot) {
  const std::string left = folder_.Write("zevo-1-0.tmp", "left behind");
  std::filesystem::create_directory(folder_.Path("zevo-1-1.tmp"));
  std::filesystem::create_symlink("file", folder_.Path("zevo-1-2.tmp"));
  std::filesystem::create_hard_link(folder_.Write("named-twice", ""), folder_.Path("zevo-1-3.tmp"));
  ASSERT_EQ(mkfifo(folder_.Path("zevo-1-4.tmp").c_str(), 0600), 0);
  for (const char* name : {"zevo-1-.tmp", "zevo--1.tmp", "zevo-1.tmp", "zevo-1-0.tmp.xml", "a-zevo-1-0.tmp",
                           "zevo-1-0-0.tmp", "zevo-x-0.tmp", "ZEVO-1-0.tmp", "zevo-.tmp", "zevo-1-0tmp"}) {
    folder_.Write(name, "");
  }
  const std::vector<std::string> names = folder_.Names();
  Replace(folder_.Path("zevo-1-0.tmp.xml"), kNew);
  std::vector<std::string> expected = names;
  std::erase(expected, "zevo-1-0.tmp");
  EXPECT_EQ(folder_.Names(), expected);
}

TEST_F(FileTest, WhatSomebodyElseLeftBehindStays) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser may give a file away";
  const std::string left = folder_.Write("zevo-1-0.tmp", "left behind");
  ASSERT_EQ(chown(left.c_str(), 4711, 4711), 0);
  Replace(folder_.Path("file"), kNew);
  EXPECT_THAT(folder_.Names(), ElementsAre("file", "zevo-1-0.tmp"));
}

// Each looks for what the others may have left, all the time.
TEST_F(FileTest, ManyProcessesAndThreadsThatSaveBesideEachOtherDoNotMeet) {
  constexpr int kEach = 4;
  const auto save = [&](int number) {
    try {
      for (int round = 0; round < 100; ++round) Replace(folder_.Path(std::to_string(number)), std::to_string(round));
      return ""s;
    } catch (const Error& error) {
      return error.Description();
    }
  };
  std::vector<pid_t> children;
  for (int number = 0; number < kEach; ++number) {
    children.push_back(fork());
    if (children.back() == 0) _exit(save(number).empty() ? 0 : 1);
    ASSERT_GT(children.back(), 0);
  }
  std::vector<std::string> told(kEach);
  std::vector<std::thread> threads;
  for (int number = 0; number < kEach; ++number) {
    threads.emplace_back([&, number] { told[static_cast<size_t>(number)] = save(kEach + number); });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_THAT(told, ::testing::Each(IsEmpty()));
  for (const pid_t child : children) {
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  EXPECT_THAT(folder_.Names(), ElementsAre("0", "1", "2", "3", "4", "5", "6", "7"));
}

TEST_F(FileTest, BytesInMemoryAreReadLikeAFile) {
  InputBytes input("twelve bytes");
  char bytes[8];
  EXPECT_EQ(input.Read(bytes, sizeof bytes), 8U);
  EXPECT_EQ(std::string_view(bytes, 8), "twelve b");
  EXPECT_EQ(input.Read(bytes, sizeof bytes), 4U);
  EXPECT_EQ(std::string_view(bytes, 4), "ytes");
  EXPECT_EQ(input.Read(bytes, sizeof bytes), 0U);
}

TEST_F(FileTest, WhatIsNoRegularFileIsRefusedAtOnceWhereOneIsWanted) {
  const std::string pipe = folder_.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& name : {pipe, folder_.Path(""), std::string("/dev/null")}) {
    const Error error = ErrorOf([&] { InputFile(name, InputFile::Kind::kRegular); });
    EXPECT_EQ(error.Number(), static_cast<int32_t>(RunTimeError::kPathFileAccess));
    EXPECT_THAT(error.Description(), HasSubstr(name));
  }
  EXPECT_ERROR(InputFile(folder_.Path("none"), InputFile::Kind::kRegular), RunTimeError::kFileNotFound, kRunTimeSource);
  EXPECT_NO_THROW(InputFile(folder_.Write("file", "x"), InputFile::Kind::kRegular));
}

}  // namespace
}  // namespace zevo
