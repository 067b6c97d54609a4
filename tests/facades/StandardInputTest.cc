// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

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

// A pipe into which another process writes the bytes, however many.
void ReadFromWriter(const std::string& bytes) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  if (fork() == 0) {
    close(ends[0]);
    for (size_t at = 0; at < bytes.size();) {
      const ssize_t written = write(ends[1], bytes.data() + at, bytes.size() - at);
      if (written < 0) _exit(1);
      at += static_cast<size_t>(written);
    }
    _exit(0);
  }
  close(ends[1]);
  ReadFrom(ends[0]);
}

// What the validator tells of a file: a line for each violation, then the failure, if there is one.
std::string Violations(const std::string& path) {
  AuditFileValidator validator;
  validator.set_AuditFileName(path);
  std::string told;
  validator.Found = [&](const Violation& violation) {
    told.append(std::to_string(violation.place.offset)).append(": ");
    told.append(Describe(violation, Language::kEnglish)).append("\n");
    return true;
  };
  return validator.ValidateAuditFile() ? told : told + Told(validator.AuditException());
}

// What the checker finds in a file: a line for each finding, then the failure, if there is one.
std::string Findings(const std::string& path) {
  AuditFileChecker checker;
  checker.set_AuditFileName(path);
  std::string told;
  checker.Found = [&](const Finding& finding) {
    told.append(std::to_string(finding.place.offset)).append(": ").append(finding.rule).append(": ");
    told.append(Describe(finding, Language::kEnglish)).append("\n");
  };
  return checker.CheckAuditFile() ? told : told + Told(checker.AuditException());
}

// What a façade may do with its input; what was wrong, or nothing.
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
    {"check",
     [](const std::string& path) {
       AuditFileChecker checker;
       checker.set_AuditFileName(path);
       return checker.CheckAuditFile() ? std::string() : Told(checker.AuditException());
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

  /// A file that is not valid, at its beginning and near its end, and long.
  std::string WriteInvalid() {
    std::string document = ReadBytes(ZEVO_COMPLETE_FILE);
    const auto change = [&](std::string_view text, std::string_view other) {
      const size_t at = document.find(text);
      EXPECT_NE(at, std::string::npos) << text;
      document.replace(at, text.size(), other);
    };
    change("<FiscalYear>2008<", "<FiscalYear>x<");
    change("<InvoiceStatus>N<", "<InvoiceStatus>X<");
    change("<Customer>", "<!-- " + std::string(900'000, 'x') + " --><Customer>");
    return folder_.Write("invalid.xml", document);
  }

  UseSchema schema_;
  TemporaryFolder folder_;
  std::string path_ = folder_.Path("saft.xml");
};

TEST_F(StandardInputTest, APipeIsTaken) {
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

TEST_F(StandardInputTest, OfAPipeTheSameViolationsAreToldAsOfAFile) {
  const std::string path = WriteInvalid();
  const std::string expected = Violations(path);
  EXPECT_EQ(std::count(expected.begin(), expected.end(), '\n'), 2) << expected;
  EXPECT_NE(expected.find("Invoice FT 2008/1: InvoiceStatus"), std::string::npos) << expected;
  const std::string told = InChildProcess([&] {
    ReadFromWriter(ReadBytes(path));
    return Violations(kStandardInput);
  });
  EXPECT_EQ(told, expected);
}

TEST_F(StandardInputTest, OfAPipeThatBreaksOffTheSameIsToldAsOfAFile) {
  const std::string bytes = ReadBytes(WriteInvalid());
  const std::string path = folder_.Write("cut.xml", bytes.substr(0, bytes.size() - 20));
  const std::string told = InChildProcess([&] {
    ReadFromWriter(ReadBytes(path));
    return Violations(kStandardInput);
  });
  EXPECT_EQ(told, Violations(path));
}

TEST_F(StandardInputTest, AFileBehindItIsReadAgainFromWhereItStood) {
  const std::string bytes = ReadBytes(WriteInvalid());
  const std::string path = folder_.Write("behind.xml", "other" + bytes);
  const std::string told = InChildProcess([&] {
    ReadFrom(open(path.c_str(), O_RDONLY));
    lseek(STDIN_FILENO, 5, SEEK_SET);
    setenv("TMPDIR", "/none", 1);
    return Violations(kStandardInput);
  });
  EXPECT_EQ(told, Violations(folder_.Path("invalid.xml")));
}

TEST_F(StandardInputTest, TheSameIsFoundAsInAFile) {
  const std::string path = WriteInvalid();
  const std::string expected = Findings(path);
  EXPECT_NE(expected.find("READ: Invoice FT 2008/1: InvoiceStatus"), std::string::npos) << expected;
  EXPECT_EQ(InChildProcess([&] {
              ReadFromWriter(ReadBytes(path));
              return Findings(kStandardInput);
            }),
            expected);
  const std::string behind = folder_.Write("behind.xml", "other" + ReadBytes(path));
  EXPECT_EQ(InChildProcess([&] {
              ReadFrom(open(behind.c_str(), O_RDONLY));
              lseek(STDIN_FILENO, 5, SEEK_SET);
              setenv("TMPDIR", "/none", 1);
              return Findings(kStandardInput);
            }),
            expected);
}

TEST_F(StandardInputTest, APipeThatThereIsNoRoomToKeepIsNotChecked) {
  const std::string bytes = ReadBytes(WriteInvalid());
  const auto finding = [&](const std::function<void()>& prepare) {
    return InChildProcess([&] {
      prepare();
      ReadFromWriter(bytes);
      AuditFileChecker checker;
      checker.set_AuditFileName(kStandardInput);
      if (checker.CheckAuditFile() || checker.Verdict() != CheckVerdict::kNotJudged) return std::string("judged");
      return Describe(*checker.AuditException(), Language::kEnglish);
    });
  };
  constexpr std::string_view kTold =
      "There is no room for a temporary copy of standard input, which is read more than once.";
  EXPECT_EQ(finding([] { setenv("TMPDIR", "/none", 1); }), kTold);
  for (const rlim_t most : {rlim_t{0}, rlim_t{100'000}, rlim_t{400'000}}) {
    EXPECT_EQ(finding([most] {
                std::signal(SIGXFSZ, SIG_IGN);
                const rlimit limit{most, most};
                setrlimit(RLIMIT_FSIZE, &limit);
              }),
              kTold)
        << most;
  }
}

TEST_F(StandardInputTest, NothingOfAPipeIsLeftBehind) {
  const std::string path = WriteInvalid();
  const std::vector<std::string> before = folder_.Names();
  const std::string told = InChildProcess([&] {
    setenv("TMPDIR", folder_.Path("").c_str(), 1);
    ReadFromWriter(ReadBytes(path));
    return Violations(kStandardInput);
  });
  EXPECT_EQ(told, Violations(path));
  EXPECT_EQ(folder_.Names(), before);
}

TEST_F(StandardInputTest, WithoutRoomForATemporaryFileLibxml2Tells) {
  const std::string bytes = ReadBytes(WriteInvalid());
  const auto telling = [&](const std::function<void()>& prepare) {
    return InChildProcess([&] {
      prepare();
      ReadFromWriter(bytes);
      return Violations(kStandardInput);
    });
  };
  const std::string told = telling([] { setenv("TMPDIR", "/none", 1); });
  EXPECT_NE(told.find("0: FiscalYear, \"x\", does not agree with the schema"), std::string::npos) << told;
  EXPECT_NE(told.find("0: InvoiceStatus"), std::string::npos) << told;
  // Full at once: the same. Full before the second violation: the walk has gone on by then.
  const auto limited = [&](rlim_t most) {
    return telling([most] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{most, most};
      setrlimit(RLIMIT_FSIZE, &limit);
    });
  };
  EXPECT_EQ(limited(0), told);
  EXPECT_EQ(limited(400'000), Violations(folder_.Path("invalid.xml")));
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
