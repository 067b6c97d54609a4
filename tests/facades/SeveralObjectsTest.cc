// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

// Several façades in one process, and threads: an object is used by one thread at a time, options belong to a thread.

namespace zevo {
namespace {

using namespace zevo::testing;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

template <class Code>
void InThread(Code&& code) {
  std::thread(std::forward<Code>(code)).join();
}

class SeveralObjectsTest : public ::testing::Test {
 protected:
  std::unique_ptr<AuditFile> Created(const std::string& name) {
    auto file = std::make_unique<AuditFile>();
    file->set_AuditFileName(folder_.Path(name));
    EXPECT_TRUE(file->CreateAuditFile());
    return file;
  }

  UseSchema schema_;
  TemporaryFolder folder_;
};

TEST_F(SeveralObjectsTest, TwoFilesGrowSideBySide) {
  const auto first = Created("first.xml");
  const auto second = Created("second.xml");
  EXPECT_TRUE(first->CreateCustomer(*SampleCustomer("C1")));
  EXPECT_TRUE(second->CreateCustomer(*SampleCustomer("C2")));
  EXPECT_TRUE(first->CreateCustomer(*SampleCustomer("C3")));
  EXPECT_TRUE(first->UpdateAuditFile());
  EXPECT_TRUE(second->UpdateAuditFile());
  EXPECT_THAT(ReadBytes(folder_.Path("first.xml")),
              AllOf(HasSubstr(">C1<"), HasSubstr(">C3<"), Not(HasSubstr(">C2<"))));
  EXPECT_THAT(ReadBytes(folder_.Path("second.xml")),
              AllOf(HasSubstr(">C2<"), Not(HasSubstr(">C1<")), Not(HasSubstr(">C3<"))));
}

TEST_F(SeveralObjectsTest, FailureOfOneIsNotRecordedByTheOther) {
  const auto first = Created("first.xml");
  AuditFile second;
  EXPECT_FALSE(second.UpdateAuditFile());
  EXPECT_THAT(*first, RecordedNothing());
  EXPECT_TRUE(first->UpdateAuditFile());
  EXPECT_THAT(second, Recorded(kNotStarted, "AuditFile.UpdateAuditFile"));
}

TEST_F(SeveralObjectsTest, TwoReadersWalkOneFileIndependently) {
  SaveSampleFile(folder_.Path("saft.xml"));
  AuditFileReader readers[2];
  std::shared_ptr<Customer> customer;
  for (AuditFileReader& reader : readers) {
    reader.set_AuditFileName(folder_.Path("saft.xml"));
    ASSERT_TRUE(reader.OpenAuditFile());
  }
  for (const char* expected : {"C1", "C2"}) {
    for (AuditFileReader& reader : readers) {
      ASSERT_TRUE(reader.ReadCustomer(customer));
      EXPECT_EQ(customer->CustomerID(), expected);
    }
  }
}

TEST_F(SeveralObjectsTest, ReaderOfAFileThatIsSavedMeanwhileKeepsWhatItLoaded) {
  SaveSampleFile(folder_.Path("saft.xml"));
  AuditFileReader reader;
  reader.set_AuditFileName(folder_.Path("saft.xml"));
  ASSERT_TRUE(reader.OpenAuditFile());

  AuditFile file;
  file.set_AuditFileName(folder_.Path("saft.xml"));
  ASSERT_TRUE(file.OpenAuditFile());
  ASSERT_TRUE(file.CreateCustomer(*SampleCustomer("C9")));
  ASSERT_TRUE(file.UpdateAuditFile());
  EXPECT_EQ(reader.Customers(), 2);
}

TEST_F(SeveralObjectsTest, ObjectsMoveBetweenThreads) {
  const std::string path = folder_.Path("saft.xml");
  auto file = std::make_unique<AuditFile>();
  file->set_AuditFileName(path);
  InThread([&] { EXPECT_TRUE(file->CreateAuditFile()); });
  InThread([&] { EXPECT_TRUE(WriteSampleRecords(*file)) << Told(file->AuditException()); });
  EXPECT_TRUE(file->UpdateAuditFile());
  InThread([&] { EXPECT_FALSE(file->CreateAuditFile()); });
  EXPECT_THAT(*file, Recorded(kAlreadyStarted, "AuditFile.CreateAuditFile"));
  InThread([&] { file.reset(); });

  auto reader = std::make_unique<AuditFileReader>();
  reader->set_AuditFileName(path);
  InThread([&] { EXPECT_TRUE(reader->OpenAuditFile()); });
  std::shared_ptr<Customer> customer;
  for (const char* expected : {"C1", "C2"}) {
    InThread([&] { EXPECT_TRUE(reader->ReadCustomer(customer)); });
    ASSERT_NE(customer, nullptr);
    EXPECT_EQ(customer->CustomerID(), expected);
  }
  InThread([&] { reader.reset(); });
}

TEST_F(SeveralObjectsTest, OptionsOfAThreadStartFromTheDefaults) {
  Options().set_ValidateOnAssignment(false);
  Options().set_SchemaLocation(folder_.Path("missing.xsd"));
  InThread([&] {
    EXPECT_TRUE(Options().ValidateOnAssignment());
    EXPECT_THAT(Options().SchemaLocation(), ::testing::EndsWith(kDefaultSchema));
    Options().set_SchemaLocation(folder_.Path("other.xsd"));
  });
  EXPECT_FALSE(Options().ValidateOnAssignment());
  EXPECT_EQ(Options().SchemaLocation(), folder_.Path("missing.xsd"));
}

TEST_F(SeveralObjectsTest, ARecordIsCheckedByTheOptionsOfTheThreadThatAssigns) {
  Options().set_ValidateOnAssignment(false);
  Header header;
  header.set_CompanyName(std::string(70, 'x'));
  EXPECT_EQ(header.CompanyName().size(), 70U);
  InThread([&] { header.set_CompanyName(std::string(70, 'y')); });
  EXPECT_EQ(header.CompanyName(), std::string(60, 'y'));
}

TEST_F(SeveralObjectsTest, ValidationTakesTheSchemaOfTheThreadThatAsks) {
  SaveSampleFile(folder_.Path("saft.xml"));
  AuditFile file;
  file.set_AuditFileName(folder_.Path("saft.xml"));
  file.set_AuditFileSchema(folder_.Path("missing.xsd"));
  EXPECT_FALSE(file.ValidateAuditFile());
  InThread([&] { EXPECT_TRUE(file.ValidateAuditFile()) << Told(file.AuditException()); });
}

TEST_F(SeveralObjectsTest, ThreadsWorkAtOnceOnFilesOfTheirOwn) {
  constexpr int kThreads = 8;
  std::vector<std::string> failures(kThreads);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([this, i, &failures] {
      const std::string path = folder_.Path("saft" + std::to_string(i) + ".xml");
      for (int time = 1; time <= 5; ++time) {
        AuditFile file;
        file.set_AuditFileName(path);
        AuditFileReader reader;
        reader.set_AuditFileName(path);
        const bool done = file.DeleteAuditFile() && file.CreateAuditFile() &&
                          WriteSampleRecords(file, {.customers = i + 1, .transactions = 5, .invoices = 5}) &&
                          file.UpdateAuditFile() && file.ValidateAuditFile() && reader.OpenAuditFile();
        if (!done) failures[static_cast<size_t>(i)] = Told(file.AuditException()) + Told(reader.AuditException());
        if (reader.Customers() != i + 1) failures[static_cast<size_t>(i)] += " customers are missing";
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_THAT(failures, ::testing::Each(""));
}

TEST_F(SeveralObjectsTest, ThreadsSaveTheSameFileAtOnceAndOneOfThemWins) {
  constexpr int kThreads = 4;
  const std::string path = folder_.Path("saft.xml");
  std::vector<std::unique_ptr<AuditFile>> files;
  std::vector<std::string> contents;
  for (int i = 0; i < kThreads; ++i) {
    files.push_back(Created("own" + std::to_string(i) + ".xml"));
    ASSERT_TRUE(WriteSampleRecords(*files.back(), {.customers = 50 * (i + 1), .transactions = 1, .invoices = 1}));
    ASSERT_TRUE(files.back()->UpdateAuditFile());
    contents.push_back(ReadBytes(files.back()->AuditFileName()));
    files.back()->set_AuditFileName(path);
  }
  std::vector<std::thread> threads;
  std::vector<int> failures(kThreads);
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      for (int time = 1; time <= 20; ++time) {
        if (!files[static_cast<size_t>(i)]->UpdateAuditFile()) ++failures[static_cast<size_t>(i)];
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_THAT(failures, ::testing::Each(0));
  EXPECT_THAT(contents, ::testing::Contains(ReadBytes(path)));
}

}  // namespace
}  // namespace zevo
