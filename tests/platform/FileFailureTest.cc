// SPDX-License-Identifier: Apache-2.0
// Files while the system's calls fail, each call in turn.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/Document.h>
#include <zevo/platform/File.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaValidator.h>
#include <zevo/platform/Serializer.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

#include "tests/platform/Events.h"
#include "tests/platform/FailingCalls.h"
#include "tests/platform/Numbered.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::FailingCall;
using ::testing::HasSubstr;
using testing::ReadBytes;

constexpr std::string_view kOld = "old content";
constexpr std::string_view kNew = "new content in two pieces";

void Save(const std::string& file) {
  FileReplacement replacement(file);
  replacement.Write(kNew.substr(0, 10));
  replacement.Write(kNew.substr(10));
  replacement.Commit();
}

struct Failure {
  std::string_view call;
  int nth;
  int error;
  RunTimeError number;
};

void PrintTo(const Failure& row, std::ostream* out) {
  *out << row.call << " " << row.nth << " " << std::strerror(row.error);
}

class FileFailureOfSavingTest : public ::testing::TestWithParam<Failure> {
 protected:
  testing::TemporaryFolder folder_;
};

TEST_P(FileFailureOfSavingTest, IsToldWithItsReasonAndLeavesTheOldFileWhole) {
  const Failure& failure = GetParam();
  const std::string file = folder_.Write("file", kOld);
  const FailingCall failing(failure.call, failure.nth, failure.error);
  const Error error = ErrorOf([&] { Save(file); });
  EXPECT_TRUE(failing.Happened());
  EXPECT_EQ(error.Number(), static_cast<int32_t>(failure.number));
  EXPECT_EQ(error.Source(), kRunTimeSource);
  EXPECT_THAT(error.Description(), HasSubstr(std::strerror(failure.error)));
  EXPECT_THAT(error.Description(), HasSubstr(file));
  EXPECT_EQ(ReadBytes(file), kOld);
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

INSTANTIATE_TEST_SUITE_P(
    All, FileFailureOfSavingTest,
    ::testing::Values(
        Failure{"open", 1, EACCES, RunTimeError::kPermissionDenied},
        Failure{"open", 1, EROFS, RunTimeError::kPermissionDenied}, Failure{"open", 1, ENOSPC, RunTimeError::kDiskFull},
        Failure{"open", 1, EIO, RunTimeError::kDeviceIO}, Failure{"open", 1, EMFILE, RunTimeError::kPathFileAccess},
        Failure{"open", 1, EINVAL, RunTimeError::kBadFileName}, Failure{"open", 1, EILSEQ, RunTimeError::kBadFileName},
        Failure{"open", 1, ENOMEM, RunTimeError::kOutOfMemory}, Failure{"fsync", 1, EBADF, RunTimeError::kBadFileName},
        Failure{"fchmod", 1, EPERM, RunTimeError::kPermissionDenied},
        Failure{"fchmod", 1, EIO, RunTimeError::kDeviceIO}, Failure{"write", 1, ENOSPC, RunTimeError::kDiskFull},
        Failure{"write", 2, ENOSPC, RunTimeError::kDiskFull}, Failure{"write", 1, EDQUOT, RunTimeError::kDiskFull},
        Failure{"write", 1, EFBIG, RunTimeError::kDiskFull}, Failure{"write", 1, EIO, RunTimeError::kDeviceIO},
        Failure{"write", 2, EIO, RunTimeError::kDeviceIO}, Failure{"fsync", 1, EIO, RunTimeError::kDeviceIO},
        Failure{"fsync", 1, ENOSPC, RunTimeError::kDiskFull}, Failure{"fsync", 1, EDQUOT, RunTimeError::kDiskFull},
        Failure{"close", 1, EIO, RunTimeError::kDeviceIO}, Failure{"close", 1, ENOSPC, RunTimeError::kDiskFull},
        Failure{"close", 1, EDQUOT, RunTimeError::kDiskFull},
        Failure{"rename", 1, EACCES, RunTimeError::kPermissionDenied},
        Failure{"rename", 1, EPERM, RunTimeError::kPermissionDenied},
        Failure{"rename", 1, EROFS, RunTimeError::kPermissionDenied},
        Failure{"rename", 1, ENOSPC, RunTimeError::kDiskFull}, Failure{"rename", 1, EIO, RunTimeError::kDeviceIO},
        Failure{"rename", 1, EXDEV, RunTimeError::kPathFileAccess}),
    testing::Numbered());

// A target that is not there yet does not come to be by half.
TEST_P(FileFailureOfSavingTest, LeavesNoNewFile) {
  const Failure& failure = GetParam();
  if (failure.call == "fchmod") GTEST_SKIP() << "a new file has no mode to keep";
  {
    const FailingCall failing(failure.call, failure.nth, failure.error);
    EXPECT_EQ(ErrorOf([&] { Save(folder_.Path("new")); }).Number(), static_cast<int32_t>(failure.number));
  }
  EXPECT_THAT(folder_.Names(), ElementsAre());
}

class FileFailureTest : public ::testing::Test {
 protected:
  testing::TemporaryFolder folder_;
};

TEST_F(FileFailureTest, AFolderThatCannotBeFlushedLeavesTheNewFileWhole) {
  for (const std::string_view call : {"open", "fsync", "close"}) {
    const std::string file = folder_.Write("file", kOld);
    const FailingCall failing(call, 2, EIO);
    try {
      Save(file);
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), static_cast<int32_t>(RunTimeError::kDeviceIO));
    }
    EXPECT_TRUE(failing.Happened()) << call;
    EXPECT_EQ(ReadBytes(file), kNew);
    EXPECT_THAT(folder_.Names(), ElementsAre("file"));
  }
}

TEST_F(FileFailureTest, TheFileIsFlushedBeforeItTakesItsPlaceAndTheFolderAfterwards) {
  for (const auto& [nth, flushed] : {std::pair{1, true}, std::pair{2, true}, std::pair{3, false}}) {
    const std::string file = folder_.Write("file", kOld);
    const FailingCall failing("fsync", nth, EIO);
    try {
      Save(file);
    } catch (const Error&) {
    }
    EXPECT_EQ(failing.Happened(), flushed) << nth;
    EXPECT_EQ(ReadBytes(file), nth == 1 ? kOld : kNew);
  }
}

TEST_F(FileFailureTest, AnInterruptedCallIsMadeAgain) {
  const std::string file = folder_.Write("file", kOld);
  const testing::Interruptions interruptions;
  EXPECT_NO_THROW(Save(file));
  InputFile input(file);
  std::string bytes(100, '\0');
  bytes.resize(input.Read(bytes.data(), bytes.size()));
  EXPECT_EQ(bytes, kNew);
}

TEST_F(FileFailureTest, AnInterruptedCloseHasClosed) {
  const std::string file = folder_.Write("file", kOld);
  const FailingCall failing("close", 1, EINTR);
  EXPECT_NO_THROW(Save(file));
  EXPECT_TRUE(failing.Happened());
  EXPECT_EQ(ReadBytes(file), kNew);
}

TEST_F(FileFailureTest, ShortTransfersAreCarriedOn) {
  const std::string file = folder_.Write("file", kOld);
  const testing::ShortTransfers transfers;
  Save(file);
  InputFile input(file);
  std::string bytes(100, '\0');
  EXPECT_EQ(input.Read(bytes.data(), 7), 7u);
  EXPECT_EQ(input.Read(bytes.data() + 7, 93), kNew.size() - 7);
  bytes.resize(kNew.size());
  EXPECT_EQ(bytes, kNew);
}

TEST_F(FileFailureTest, EveryWriteOfALargeDocumentMayFail) {
  Document document;
  const Element root = document.AppendElement(Element(), "a");
  for (int i = 0; i < 20; ++i) document.SetText(document.AppendElement(root, "b"), std::string(100'000, 'x'));
  const std::string file = folder_.Write("file", kOld);
  int nth = 1;
  for (;; ++nth) {
    const FailingCall failing("write", nth, ENOSPC);
    try {
      FileReplacement replacement(file);
      WriteDocumentTo(replacement, document);
      replacement.Commit();
      EXPECT_FALSE(failing.Happened());
      break;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), static_cast<int32_t>(RunTimeError::kDiskFull));
    }
    EXPECT_EQ(ReadBytes(file), kOld) << nth;
    EXPECT_THAT(folder_.Names(), ElementsAre("file"));
  }
  EXPECT_GT(nth, 5);
  EXPECT_GT(ReadBytes(file).size(), 2'000'000u);
}

TEST_F(FileFailureTest, WhereFilesCannotBeLockedTheyAreReplacedAllTheSame) {
  for (const int error : {ENOLCK, EOPNOTSUPP, ENOSYS, EIO}) {
    // What was left behind is asked first.
    for (const bool asked_first : {true, false}) {
      const std::string file = folder_.Write("file", kOld);
      folder_.Write("zevo-1-0.tmp", "left behind");
      const FailingCall failing("flock", asked_first ? 1 : 2, error);
      Save(file);
      EXPECT_TRUE(failing.Happened());
      EXPECT_EQ(ReadBytes(file), kNew);
      EXPECT_EQ(folder_.Names().size(), asked_first ? 2U : 1U);
    }
  }
}

// Another process has just taken the temporary file for one left behind, and is about to delete it.
TEST_F(FileFailureTest, ATemporaryFileThatSomebodyElseTakesIsLeftToHim) {
  const std::string file = folder_.Write("file", kOld);
  {
    const FailingCall failing("flock", 1, EWOULDBLOCK);
    Save(file);
    EXPECT_TRUE(failing.Happened());
  }
  EXPECT_EQ(ReadBytes(file), kNew);
  EXPECT_EQ(folder_.Names().size(), 2U);
  Save(file);
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

TEST_F(FileFailureTest, ATemporaryFileThatCannotBeRemovedIsNoFurtherFailure) {
  const std::string file = folder_.Write("file", kOld);
  std::optional<FileReplacement> replacement(file);
  {
    const FailingCall failing("write", 1, ENOSPC);
    EXPECT_ERROR(replacement->Write(kNew), RunTimeError::kDiskFull, kRunTimeSource);
  }
  const FailingCall failing("unlink", 1, EACCES);
  replacement.reset();
  EXPECT_TRUE(failing.Happened());
  EXPECT_EQ(ReadBytes(file), kOld);
}

// Reading.

TEST_F(FileFailureTest, AReadThatFailsIsToldByParserAndValidatorAlike) {
  std::string content = "<a>";
  for (int i = 0; i < 200'000; ++i) content += "<b>x</b>";
  const std::string file = folder_.Write("file", content + "</a>");
  const std::string schema = folder_.Write(
      "schema", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='a'/></xs:schema>");
  {
    const FailingCall failing("read", 1, EIO);
    EXPECT_ERROR(CompiledSchema(SchemaSource(schema), {}, "S"), RunTimeError::kDeviceIO, "S");
  }
  const CompiledSchema compiled(SchemaSource(schema), {}, "S");
  for (int nth = 1; nth <= 5; ++nth) {
    const auto fail = [&](auto&& code) {
      const FailingCall failing("read", nth, EIO);
      const Error error = ErrorOf(code);
      EXPECT_TRUE(failing.Happened());
      EXPECT_EQ(error.Number(), static_cast<int32_t>(RunTimeError::kDeviceIO)) << nth;
      EXPECT_EQ(error.Source(), "S");
      EXPECT_THAT(error.Description(), HasSubstr(std::strerror(EIO)));
    };
    fail([&] {
      testing::NoEvents events;
      Raise(Parser(file).Parse(events), "S");
    });
    fail([&] {
      const std::optional<XmlProblem> problem = SchemaValidator(compiled).FirstProblem(file);
      EXPECT_EQ(problem->fault, XmlProblem::Fault::kUnreadable);
      Raise(problem, "S");
    });
  }
}

TEST_F(FileFailureTest, AnOpenThatFailsIsToldWithItsReason) {
  const std::string file = folder_.Write("file", kOld);
  for (const Failure& failure :
       {Failure{"open", 1, EACCES, RunTimeError::kPermissionDenied}, Failure{"open", 1, EIO, RunTimeError::kDeviceIO},
        Failure{"open", 1, ENOMEM, RunTimeError::kOutOfMemory},
        Failure{"open", 1, ENFILE, RunTimeError::kPathFileAccess}}) {
    const FailingCall failing(failure.call, failure.nth, failure.error);
    const Error error = ErrorOf([&] { InputFile input(file); });
    EXPECT_EQ(error.Number(), static_cast<int32_t>(failure.number));
    EXPECT_THAT(error.Description(), HasSubstr(std::strerror(failure.error)));
  }
}

TEST_F(FileFailureTest, SlowAndInterruptedReadsGiveTheSameContent) {
  std::string content = "<a>";
  for (int i = 0; i < 5000; ++i) content += "é€";
  const std::string file = folder_.Write("file", content + "</a>");
  testing::Events events;
  {
    const testing::Interruptions interruptions;
    const testing::ShortTransfers transfers;
    Raise(Parser(file).Parse(events), "S");
  }
  EXPECT_TRUE(events.log == content + "</a>");
}

TEST_F(FileFailureTest, ADeletionThatFailsIsToldWithItsReason) {
  const std::string file = folder_.Write("file", kOld);
  const FailingCall failing("unlink", 1, EBUSY);
  const Error error = ErrorOf([&] { DeleteFile(file); });
  EXPECT_EQ(error.Number(), static_cast<int32_t>(RunTimeError::kPathFileAccess));
  EXPECT_THAT(error.Description(), HasSubstr(std::strerror(EBUSY)));
}

}  // namespace
}  // namespace zevo
