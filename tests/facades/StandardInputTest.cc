// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zevo/adapters.h>

#include <array>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "tests/facades/ChildProcess.h"
#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using namespace zevo::testing;

const std::string kStandardInput = "/dev/stdin";

void ReadFrom(int descriptor) {
  if (descriptor < 0 || dup2(descriptor, STDIN_FILENO) < 0) throw std::runtime_error("no standard input");
  close(descriptor);
}

// Makes the bytes what a pipe into this process holds: no more than a pipe takes at once.
void ReadFromPipe(const std::string& bytes) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  const ssize_t written = write(ends[1], bytes.data(), bytes.size());
  if (written != static_cast<ssize_t>(bytes.size())) throw std::runtime_error("the pipe is full");
  close(ends[1]);
  ReadFrom(ends[0]);
}

// What a façade may do with its input, going through it once; what was wrong, or nothing.
struct Reading {
  const char* name;
  std::function<std::string(const std::string& path)> run;
};

const Reading kReadings[] = {
    {"validation",
     [](const std::string& path) {
       AuditFile file;
       file.set_AuditFileName(path);
       return file.ValidateAuditFile() ? std::string() : Told(file.AuditException());
     }},
    {"violations",
     [](const std::string& path) {
       AuditFileValidator validator;
       validator.set_AuditFileName(path);
       if (!validator.ValidateAuditFile()) return Told(validator.AuditException());
       return validator.Violations() == 0 ? std::string() : "violations: " + std::to_string(validator.Violations());
     }},
    {"reader",
     [](const std::string& path) {
       AuditFileReader reader;
       reader.set_AuditFileName(path);
       if (!reader.OpenAuditFile()) return Told(reader.AuditException());
       return reader.Customers() == 2 ? std::string() : "customers: " + std::to_string(reader.Customers());
     }},
    {"streamer",
     [](const std::string& path) {
       int customers = 0;
       AuditFileStreamer streamer;
       streamer.set_AuditFileName(path);
       streamer.ReadEntity = [&](const std::string& name, const std::shared_ptr<Record>&) {
         if (name == "Customer") ++customers;
       };
       if (!streamer.OpenAuditFile()) return Told(streamer.AuditException());
       // False also for a tax table that cannot be a record.
       if (!streamer.ReadAuditFile() && streamer.AuditException()) return Told(streamer.AuditException());
       return customers == 2 ? std::string() : "customers: " + std::to_string(customers);
     }},
    {"scanner",
     [](const std::string& path) {
       int customers = 0;
       AuditFileScanner scanner;
       scanner.set_AuditFileName(path);
       if (!scanner.OpenAuditFile()) return Told(scanner.AuditException());
       for (;;) {
         std::shared_ptr<Record> record;
         if (!scanner.ReadNext(record)) return Told(scanner.AuditException());
         if (record == nullptr) break;
         if (record->Kind() == EntityKind::kCustomer) ++customers;
       }
       return customers == 2 ? std::string() : "customers: " + std::to_string(customers);
     }},
};

class StandardInputTest : public ::testing::Test {
 protected:
  StandardInputTest() { SaveSampleFile(path_); }

  UseSchema schema_;
  TemporaryFolder folder_;
  std::string path_ = folder_.Path("saft.xml");
};

TEST_F(StandardInputTest, APipeIsTakenByWhatReadsItOnce) {
  const std::string bytes = ReadBytes(path_);
  for (const Reading& reading : kReadings) {
    const std::string report = InChildProcess([&] {
      ReadFromPipe(bytes);
      return reading.run(kStandardInput);
    });
    EXPECT_EQ(report, "") << reading.name;
  }
}

TEST_F(StandardInputTest, AFileBehindItIsTakenToo) {
  for (const Reading& reading : kReadings) {
    const std::string report = InChildProcess([&] {
      ReadFrom(open(path_.c_str(), O_RDONLY));
      return reading.run(kStandardInput);
    });
    EXPECT_EQ(report, "") << reading.name;
  }
}

TEST_F(StandardInputTest, AFileThatIsCutOffIsNoneThere) {
  const std::string bytes = ReadBytes(path_);
  for (const Reading& reading : kReadings) {
    const std::string report = InChildProcess([&] {
      ReadFromPipe(bytes.substr(0, bytes.size() / 2));
      return reading.run(kStandardInput);
    });
    EXPECT_NE(report, "") << reading.name;
  }
}

TEST_F(StandardInputTest, ATagThatDoesNotEndIsRefusedAsOneThatIsTooLong) {
  const std::string path =
      folder_.Write("tag.xml", "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><Header><a b='" +
                                   std::string(300'000, 'x'));
  for (const Reading& reading : kReadings) {
    const std::string report = InChildProcess([&] {
      ReadFrom(open(path.c_str(), O_RDONLY));
      return reading.run(kStandardInput);
    });
    EXPECT_NE(report.find("Uma etiqueta tem mais de 64 KiB"), std::string::npos) << reading.name << ": " << report;
  }
}

// A document that is saved again needs a file.
TEST_F(StandardInputTest, APipeIsNoFileToOpenForSaving) {
  const std::string bytes = ReadBytes(path_);
  const std::string report = InChildProcess([&] {
    ReadFromPipe(bytes);
    AuditFile file;
    file.set_AuditFileName(kStandardInput);
    return file.OpenAuditFile() ? "opened" : Told(file.AuditException());
  });
  EXPECT_EQ(report, "-2147221502 from \"AuditFile.OpenAuditFile\": \"Ficheiro SAFT-PT não encontrado.\"");
}

TEST_F(StandardInputTest, APipeOfAnotherNameIsNoFile) {
  const std::string pipe = folder_.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const Reading& reading : kReadings) {
    const std::string report = reading.run(pipe);
    EXPECT_NE(report.find("Ficheiro SAFT-PT não encontrado."), std::string::npos) << reading.name << ": " << report;
  }
}

}  // namespace
}  // namespace zevo
