// SPDX-License-Identifier: Apache-2.0
// Every call that an operation makes on the files of its folder meets every fault, one call at a time.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zevo/adapters.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/facades/DiskFault.h"
#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using namespace zevo::testing;

constexpr int kErrors[] = {ENOSPC, EIO, EACCES};

int32_t NumberFor(int error) {
  return static_cast<int32_t>(error == ENOSPC   ? RunTimeError::kDiskFull
                              : error == EACCES ? RunTimeError::kPermissionDenied
                                                : RunTimeError::kDeviceIO);
}

class DiskFaultTest : public ::testing::Test {
 protected:
  DiskFaultTest() {
    // More than one buffer full of output.
    SaveSampleFile(path_, {.customers = 1500, .transactions = 2, .invoices = 2});
    new_bytes_ = ReadBytes(path_);
    file_.set_AuditFileName(path_);
    EXPECT_TRUE(file_.OpenAuditFile());
    RestoreOld();
  }

  // Calls on the folder itself count as well.
  std::string Folder() const { return std::filesystem::path(path_).parent_path(); }
  void RestoreOld() { folder_.Write("saft.xml", kOldBytes); }
  void ExpectAlone(const char* name, std::string_view bytes) {
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{name});
    EXPECT_TRUE(ReadBytes(folder_.Path(name)) == bytes) << "other bytes than expected";
  }
  void ExpectReason(const std::shared_ptr<const AuditException>& exception, int error) {
    ASSERT_NE(exception, nullptr);
    ExpectReason(Error(exception->Number(), exception->Source(), exception->Description()), error);
  }
  void ExpectReason(const Error& failure, int error) {
    EXPECT_EQ(failure.Number(), NumberFor(error)) << failure.what();
    EXPECT_EQ(failure.Source(), kRunTimeSource);
    EXPECT_NE(failure.Description().find(std::strerror(error)), std::string::npos) << failure.what();
    EXPECT_NE(failure.Description().find(Folder()), std::string::npos) << failure.what();
  }

  // Runs an operation with a fault at its first call, its second and so on, until it makes fewer; how many it made.
  int AtEveryCall(FaultKind kind, int error, const std::function<void(const DiskFault&)>& operation) {
    for (int call = 1;; ++call) {
      SCOPED_TRACE("call " + std::to_string(call) + ", " + std::strerror(error));
      const DiskFault fault(Folder(), call, kind, error);
      operation(fault);
      EXPECT_EQ(fault.OpenFiles(), 0) << "a file was left open";
      if (HasFailure() || fault.Struck().empty()) return call - 1;
    }
  }

  static constexpr std::string_view kOldBytes = "the file as it was";

  TemporaryFolder folder_;
  std::string path_ = folder_.Path("saft.xml");
  AuditFile file_;
  std::string new_bytes_;
};

TEST_F(DiskFaultTest, SaveThatMeetsAnErrorTellsItAndLeavesTheOldFile) {
  // Whom the old file belongs to, where that may be given away.
  const bool other = geteuid() == 0;
  for (const int error : kErrors) {
    std::string told;
    bool renamed = false;
    AtEveryCall(FaultKind::kError, error, [&](const DiskFault& fault) {
      std::filesystem::remove(path_);
      RestoreOld();
      ASSERT_TRUE(!other || chown(path_.c_str(), 4711, 4711) == 0);
      const bool saved = file_.UpdateAuditFile();
      if (!fault.Struck().empty()) told += fault.Struck() + " ";
      if (saved) {
        // The new file is in its place; only its folder could not be flushed, or nothing went wrong. It is somebody
        // else's, or was not marked as one that is being written.
        const bool asked = fault.Struck() == "fcntl" || fault.Struck() == "flock" || fault.Struck() == "fchown";
        EXPECT_TRUE(renamed || asked || fault.Struck().empty()) << fault.Struck();
        ExpectAlone("saft.xml", new_bytes_);
      } else {
        ExpectReason(file_.AuditException(), error);
        ExpectAlone("saft.xml", kOldBytes);
      }
      renamed = renamed || fault.Struck() == "rename";
    });
    EXPECT_TRUE(told.starts_with("open fcntl flock write write ")) << told;
    EXPECT_TRUE(told.ends_with(std::string("write ") + (other ? "fchown fchown " : "") +
                               "fchmod fsync close rename close open fsync close "))
        << told;
  }
}

TEST_F(DiskFaultTest, WhatADeadProcessLeftAndCannotBeDeletedIsNoFailure) {
  constexpr const char* kLeft = "zevo-4711-0.tmp";
  std::string struck;
  for (int call = 1; call <= 4; ++call) {
    RestoreOld();
    folder_.Write(kLeft, "left behind");
    const DiskFault fault(Folder(), call, FaultKind::kError, EIO);
    EXPECT_TRUE(file_.UpdateAuditFile()) << Told(file_.AuditException());
    EXPECT_EQ(fault.OpenFiles(), 0);
    struck += fault.Struck() + " ";
    EXPECT_TRUE(ReadBytes(path_) == new_bytes_);
    EXPECT_EQ(folder_.Names().size(), fault.Struck() == "close" ? 1U : 2U);
  }
  EXPECT_EQ(struck, "open flock unlink close ");
  EXPECT_TRUE(file_.UpdateAuditFile());
  ExpectAlone("saft.xml", new_bytes_);
}

TEST_F(DiskFaultTest, ShortWritesAreCarriedOn) {
  const int calls = AtEveryCall(FaultKind::kShortWrite, 0, [&](const DiskFault&) {
    RestoreOld();
    EXPECT_TRUE(file_.UpdateAuditFile()) << Told(file_.AuditException());
    ExpectAlone("saft.xml", new_bytes_);
  });
  EXPECT_GT(calls, 9);
}

TEST_F(DiskFaultTest, FirstSaveThatMeetsAnErrorLeavesNoFile) {
  file_.set_AuditFileName(folder_.Path("new.xml"));
  std::filesystem::remove(path_);
  for (const int error : kErrors) {
    AtEveryCall(FaultKind::kError, error, [&](const DiskFault&) {
      std::filesystem::remove(folder_.Path("new.xml"));
      if (file_.UpdateAuditFile()) {
        ExpectAlone("new.xml", new_bytes_);
      } else {
        ExpectReason(file_.AuditException(), error);
        EXPECT_TRUE(folder_.Names().empty());
      }
    });
  }
}

// Whoever is killed while saving, at any call, leaves the old file or the new one, and what else he leaves goes with
// the next save.
TEST_F(DiskFaultTest, DeathAtAnyCallOfASaveLeavesTheOldFileOrTheNewOneAndNothingForLong) {
  bool seen_old = false;
  bool seen_new = false;
  int left_behind = 0;
  for (int call = 1;; ++call) {
    SCOPED_TRACE("call " + std::to_string(call));
    RestoreOld();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      const DiskFault fault(Folder(), call, FaultKind::kDeath);
      _exit(file_.UpdateAuditFile() ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    const std::string bytes = ReadBytes(path_);
    ASSERT_TRUE(bytes == kOldBytes || bytes == new_bytes_) << "neither the old file nor the new one";
    (bytes == new_bytes_ ? seen_new : seen_old) = true;
    if (folder_.Names().size() > 1) ++left_behind;
    EXPECT_TRUE(file_.UpdateAuditFile());
    ExpectAlone("saft.xml", new_bytes_);
    if (!WIFSIGNALED(status)) {
      EXPECT_EQ(WEXITSTATUS(status), 0);
      EXPECT_GT(call, 9);
      break;
    }
    ASSERT_EQ(WTERMSIG(status), SIGKILL);
  }
  EXPECT_TRUE(seen_old && seen_new);
  EXPECT_GT(left_behind, 5);
}

TEST_F(DiskFaultTest, SequentialWriteThatMeetsAnErrorTellsIt) {
  const std::string path = folder_.Path("streamed.xml");
  std::string whole;
  // The failures of the steps. Closing tells by throwing, also of what was lost before.
  const auto write = [&] {
    std::vector<Error> failures;
    AuditFileStreamWriter file;
    file.set_AuditFileName(path);
    const auto step = [&](bool succeeded) {
      EXPECT_FALSE(succeeded && !failures.empty()) << "wrote on where something was lost";
      if (succeeded) return;
      const auto& exception = file.AuditException();
      failures.emplace_back(exception->Number(), exception->Source(), exception->Description());
    };
    step(file.CreateAuditFile());
    if (!failures.empty()) return failures;
    step(file.CreateHeader(*SampleHeader()));
    for (int i = 0; i < 1500; ++i) step(file.CreateCustomer(*SampleCustomer("C" + std::to_string(i))));
    const bool lost = !failures.empty();
    try {
      file.CloseAuditFile();
      EXPECT_FALSE(lost) << "closed as if nothing were lost";
    } catch (const Error& failure) {
      failures.push_back(failure);
    }
    return failures;
  };
  ASSERT_TRUE(write().empty());
  whole = ReadBytes(path);
  for (const int error : kErrors) {
    std::string told;
    AtEveryCall(FaultKind::kError, error, [&](const DiskFault& fault) {
      std::filesystem::remove(path);
      const std::vector<Error> failures = write();
      for (const Error& failure : failures) {
        ExpectReason(failure, error);
        EXPECT_STREQ(failure.what(), failures.front().what());
      }
      EXPECT_EQ(failures.empty(), fault.Struck().empty());
      if (failures.empty()) {
        EXPECT_TRUE(ReadBytes(path) == whole);
      } else {
        told += fault.Struck() + " ";
      }
    });
    EXPECT_TRUE(told.starts_with("open write ")) << told;
    EXPECT_TRUE(told.ends_with("write close ")) << told;
  }
  AtEveryCall(FaultKind::kShortWrite, 0, [&](const DiskFault&) {
    std::filesystem::remove(path);
    EXPECT_TRUE(write().empty());
    EXPECT_TRUE(ReadBytes(path) == whole);
  });
}

TEST_F(DiskFaultTest, DeletionThatMeetsAnErrorTellsItAndLeavesTheFile) {
  AuditFile file;
  file.set_AuditFileName(path_);
  for (const int error : kErrors) {
    RestoreOld();
    {
      const DiskFault fault(Folder(), 1, FaultKind::kError, error);
      EXPECT_FALSE(file.DeleteAuditFile());
      EXPECT_EQ(fault.Struck(), "unlink");
    }
    ExpectReason(file.AuditException(), error);
    ExpectAlone("saft.xml", kOldBytes);
  }
  EXPECT_TRUE(file.DeleteAuditFile());
  EXPECT_TRUE(folder_.Names().empty());
}

}  // namespace
}  // namespace zevo
