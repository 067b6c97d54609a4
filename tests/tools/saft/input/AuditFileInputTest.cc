// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

// Reading a file on a terminal, so slowly that there is time to see it.
class AuditFileInputTest : public testing::ToolTest {
 protected:
  void SetUp() override {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0) GTEST_SKIP() << "this machine has no terminals to offer";
    close(terminal);
    ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  }

  /// Starts the shell command, in which "saft" is the program.
  void Start(const std::string& command) {
    child_ = forkpty(&terminal_, nullptr, nullptr, nullptr);
    ASSERT_GE(child_, 0);
    if (child_ > 0) return;
    setenv("LD_PRELOAD", SLOW_DISK, 1);
    setenv("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0", 1);
    const std::string script = "saft() { " SAFT_PROGRAM " \"$@\"; }; " + command;
    execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
    _exit(127);
  }

  /// What the terminal shows next; nothing once the command has ended.
  std::string Next() const {
    char bytes[4096];
    const ssize_t got = read(terminal_, bytes, sizeof bytes);
    return got > 0 ? std::string(bytes, static_cast<size_t>(got)) : "";
  }
  std::string Rest() const {
    std::string shown;
    for (std::string piece = Next(); !piece.empty(); piece = Next()) shown += piece;
    return shown;
  }
  int End() const {
    int status = 0;
    EXPECT_EQ(waitpid(child_, &status, 0), child_);
    close(terminal_);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }

  pid_t child_ = -1;
  int terminal_ = -1;
};

TEST_F(AuditFileInputTest, ShowsProgressAndThenTheResult) {
  Start("saft summary '" + Output() + "'");
  const std::string shown = Rest();
  EXPECT_EQ(End(), 0);
  EXPECT_THAT(shown,
              AllOf(HasSubstr("\r[#"), HasSubstr(" of 2.5 MB  "), HasSubstr(" left"), HasSubstr("Invoice types")));
  EXPECT_LT(shown.rfind(" left"), shown.find("Records"));
}

TEST_F(AuditFileInputTest, ShowsProgressWhereTheRecordsGoToAFile) {
  Start("saft list '" + Output() + "' Customer > '" + folder_.Path("customers.csv") + "'");
  EXPECT_THAT(Rest(), HasSubstr(" left"));
  EXPECT_EQ(End(), 0);
}

TEST_F(AuditFileInputTest, ShowsHowFarAValidationIs) {
  Start("saft validate '" + Output() + "'");
  EXPECT_THAT(Rest(), AllOf(HasSubstr("\r["), HasSubstr(" of 2.5 MB"), HasSubstr(": valid")));
  EXPECT_EQ(End(), 0);
}

TEST_F(AuditFileInputTest, ShowsHowFarACreateIsAndThenItsValidation) {
  WriteValid(1000);
  Start("saft create '" + folder_.Path(kDataset) + "' '" + folder_.Path("again.xml") + "'");
  // The dataset, and the file.
  EXPECT_THAT(Rest(), AllOf(HasSubstr("\r["), HasSubstr(" of 75.9 KB"), HasSubstr(" of 365 KB")));
  EXPECT_EQ(End(), 0);
}

TEST_F(AuditFileInputTest, ShowsNoneAmongViolations) {
  Start("saft validate --all '" + Output() + "'");
  EXPECT_THAT(Rest(), Not(HasSubstr(" of 2.5 MB")));
  EXPECT_EQ(End(), 0);
}

TEST_F(AuditFileInputTest, CtrlCEndsAValidation) {
  Start("exec " SAFT_PROGRAM " validate '" + Output() + "'");
  std::string shown;
  for (std::string piece = "-"; !piece.empty() && shown.find(" of ") == std::string::npos; shown += piece) {
    piece = Next();
  }
  ASSERT_THAT(shown, HasSubstr("\r["));
  ASSERT_EQ(write(terminal_, "\x03", 1), 1);
  EXPECT_THAT(Rest(), HasSubstr("saft: " + Output() + ": The reading of the file was ended by the user."));
  EXPECT_EQ(End(), 2);
}

TEST_F(AuditFileInputTest, ShowsNoneAmongTheRecords) {
  Start("saft list '" + Output() + "' Journal");
  EXPECT_THAT(Rest(), AllOf(HasSubstr("VENDAS"), Not(HasSubstr(" left"))));
  EXPECT_EQ(End(), 0);
}

TEST_F(AuditFileInputTest, ShowsNoneWhenPiped) {
  Start("saft summary '" + Output() + "' | cat");
  EXPECT_THAT(Rest(), AllOf(HasSubstr("Invoice types"), Not(HasSubstr(" left"))));
  EXPECT_EQ(End(), 0);
}

class AuditFileInputTerminalTest : public AuditFileInputTest {
 protected:
  void SetUp() override {
    AuditFileInputTest::SetUp();
    folder_.Write("out.xml",
                  "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\"><Header><CompanyName>a\u202E\u009B"
                  "é</CompanyName></Header></AuditFile>");
  }
};

TEST_F(AuditFileInputTerminalTest, RecordsAreMadeVisible) {
  for (const std::string command : {"list", "list --json", "summary", "summary --json"}) {
    const std::string kind = command.starts_with("list") ? " Header" : "";
    Start("saft " + command + " '" + Output() + "'" + kind);
    EXPECT_THAT(Rest(), AllOf(HasSubstr("a\\u202E\\u009Bé"), Not(HasSubstr("\u202E")), Not(HasSubstr("\u009B"))))
        << command;
    EXPECT_EQ(End(), 0);
  }
}

TEST_F(AuditFileInputTerminalTest, ProgramsTakeThemAsTheyAre) {
  for (const std::string command : {"list", "list --json", "summary --json"}) {
    const std::string kind = command.starts_with("list") ? " Header" : "";
    const testing::Outcome outcome = RunInShell("saft " + command + " '" + Output() + "'" + kind + " | cat");
    EXPECT_THAT(outcome.out, HasSubstr("a\u202E\u009Bé")) << command;
  }
}

TEST_F(AuditFileInputTest, CtrlCEndsTheReading) {
  Start("exec " SAFT_PROGRAM " summary '" + Output() + "'");
  // It is reading by the time it shows how far it is.
  std::string shown;
  for (std::string piece = "-"; !piece.empty() && shown.find(" left") == std::string::npos; shown += piece) {
    piece = Next();
  }
  ASSERT_THAT(shown, HasSubstr("\r["));
  ASSERT_EQ(write(terminal_, "\x03", 1), 1);
  shown += Rest();
  EXPECT_THAT(shown, AllOf(HasSubstr("saft: " + Output() + ": The reading of the file was ended by the user."),
                           Not(HasSubstr("Invoice types"))));
  EXPECT_EQ(End(), 2);
}

}  // namespace
}  // namespace zevo
