// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/tools/saft/SlowToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

// A program that is interrupted while it writes.
class InterruptionTest : public testing::SlowToolTest, public ::testing::WithParamInterface<int> {
 protected:
  /// Starts `create` on a dataset of some pieces.
  void Start(const std::vector<std::string>& options) {
    std::string customers = "CustomerID,CompanyName\n";
    for (int i = 0; i < 400; ++i) customers += "C" + std::to_string(i) + "," + std::string(60, 'x') + "\n";
    Write("customers.csv", customers);
    std::vector<std::string> arguments{"--no-validate", folder_.Path(kDataset), Output()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    StartCreate(arguments);
  }
  void StartCreate(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "create");
    StartSlowly(arguments);
  }
  /// Starts `list --all` on a pipe into which the first megabyte of an audit file goes.
  void StartListing() {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    child_ = fork();
    ASSERT_GE(child_, 0);
    if (child_ == 0) {
      dup2(ends[0], STDIN_FILENO);
      close(ends[0]);
      close(ends[1]);
      const std::string err = folder_.Path("err");
      const std::string books = folder_.Path("books");
      if (std::freopen(err.c_str(), "w", stderr)) {
        execl(SAFT_PROGRAM, "saft", "list", "-", "--all", books.c_str(), nullptr);
      }
      _exit(127);
    }
    close(ends[0]);
    pipe_ = ends[1];
    std::string file = "<AuditFile><Header><AuditFileVersion>1.01_01</AuditFileVersion></Header><MasterFiles>";
    for (int i = 0; i < 20000; ++i) file += "<Customer><CustomerID>" + std::to_string(i) + "</CustomerID></Customer>";
    ASSERT_EQ(write(pipe_, file.data(), file.size()), static_cast<ssize_t>(file.size()));
    // What is to become the folder, and the messages.
    Await([&] { return folder_.Names().size() == 3; });
  }

  void ExpectInterrupted() const {
    ASSERT_EQ(kill(child_, GetParam()), 0);
    // As when the signal ended the program at the other end too.
    if (pipe_ >= 0) close(pipe_);
    int status = 0;
    ASSERT_EQ(waitpid(child_, &status, 0), child_);
    ASSERT_TRUE(WIFSIGNALED(status)) << "ended with " << WEXITSTATUS(status);
    EXPECT_EQ(WTERMSIG(status), GetParam());
    EXPECT_EQ(testing::ReadBytes(folder_.Path("err")), "saft: interrupted\n");
    EXPECT_THAT(folder_.Names(), ElementsAre(kDataset, "err"));
  }

  int pipe_ = -1;
};

TEST_P(InterruptionTest, LeavesNoFileThatIsWrittenAtOnce) {
  Start({"--stream"});
  AwaitOpen(In("customers.csv"));
  // The dataset, the messages and what is to become the file.
  ASSERT_EQ(folder_.Names().size(), 3U);
  ExpectInterrupted();
}

TEST_P(InterruptionTest, LeavesNoFileThatIsBuiltInMemory) {
  Start({});
  AwaitOpen(In("customers.csv"));
  ExpectInterrupted();
}

TEST_P(InterruptionTest, LeavesNoFileThatIsBeingSaved) {
  Start({});
  // The dataset, the messages and what is to become the file.
  Await([&] { return folder_.Names().size() > 2; });
  ExpectInterrupted();
}

TEST_P(InterruptionTest, LeavesNoFileThatIsBeingValidated) {
  WriteValid(1);
  StartCreate({folder_.Path(kDataset), Output()});
  // While a file is saved it has another name.
  AwaitOpen(Unfinished());
  ExpectInterrupted();
}

TEST_P(InterruptionTest, LeavesNoFolderThatIsListedFromAPipe) {
  std::filesystem::create_directory(folder_.Path(kDataset));
  StartListing();
  ExpectInterrupted();
}

TEST_P(InterruptionTest, LeavesNothingOfAnExportThatIsMadeAnew) {
  WriteValid(3000);
  ASSERT_EQ(Create().code, 0);
  // Before the file is read and while it is.
  for (const char* target : {"books/", "book.xlsx"}) {
    for (const size_t there : {size_t{2}, size_t{3}}) {
      SCOPED_TRACE(target);
      std::filesystem::rename(Output(), In("company.xml"));
      StartSlowly({"export", In("company.xml"), "--to", folder_.Path(target)});
      Await([&] { return folder_.Names().size() >= there; });
      AwaitOpen(In("company.xml"));
      ExpectInterrupted();
      std::filesystem::rename(In("company.xml"), Output());
      std::filesystem::remove(folder_.Path("err"));
    }
  }
}

TEST_P(InterruptionTest, LeavesNoFileThatIsMerged) {
  WriteValid(3000);
  ASSERT_EQ(Create().code, 0);
  std::filesystem::rename(Output(), In("company.xml"));
  const auto start = [&] { StartSlowly({"merge", In("company.xml"), "-o", Output()}); };
  const auto expect_interrupted = [&] {
    ExpectInterrupted();
    std::filesystem::remove(folder_.Path("err"));
  };
  {
    SCOPED_TRACE("first pass");
    start();
    AwaitOpen(In("company.xml"));
    expect_interrupted();
  }
  {
    SCOPED_TRACE("second pass");
    start();
    AwaitWriting();
    expect_interrupted();
  }
  {
    SCOPED_TRACE("validation");
    start();
    AwaitOpen(Unfinished());
    expect_interrupted();
  }
}

TEST_P(InterruptionTest, ASecondOneEndsAListOfAPipeThatIsSilent) {
  std::filesystem::create_directory(folder_.Path(kDataset));
  StartListing();
  ASSERT_EQ(kill(child_, GetParam()), 0);
  // Signals of one kind that are not taken yet are one.
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  ASSERT_EQ(kill(child_, GetParam()), 0);
  int status = 0;
  ASSERT_EQ(waitpid(child_, &status, 0), child_);
  close(pipe_);
  ASSERT_TRUE(WIFSIGNALED(status)) << "ended with " << WEXITSTATUS(status);
  EXPECT_EQ(WTERMSIG(status), GetParam());
}

INSTANTIATE_TEST_SUITE_P(All, InterruptionTest, ::testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST_P(InterruptionTest, ASignalThatIsIgnoredFromTheStartStaysSo) {
  struct sigaction ignore {};
  struct sigaction before {};
  ignore.sa_handler = SIG_IGN;
  ASSERT_EQ(sigaction(GetParam(), &ignore, &before), 0);
  Start({"--stream"});
  sigaction(GetParam(), &before, nullptr);
  AwaitOpen(In("customers.csv"));
  ASSERT_EQ(kill(child_, GetParam()), 0);
  int status = 0;
  ASSERT_EQ(waitpid(child_, &status, 0), child_);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(Texts("Customer").size(), 400U);
}

}  // namespace
}  // namespace zevo
