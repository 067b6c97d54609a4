// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/saft/ToolTest.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "tools/generate/SampleRecords.h"

namespace zevo::testing {

using ::testing::ElementsAre;

ToolTest::ToolTest() {
  setenv("LC_ALL", "C", 1);
  std::filesystem::create_directory(folder_.Path(kDataset));
  Write("header.csv", "BusinessName\nCasa\n");
}

Outcome ToolTest::Run(const std::vector<std::string>& arguments) const {
  std::vector<std::string> command{SAFT_PROGRAM};
  command.insert(command.end(), arguments.begin(), arguments.end());
  Outcome outcome = Execute(command);
  EXPECT_LT(outcome.code, 128) << "ended by a signal";
  return outcome;
}

Outcome ToolTest::RunInShell(const std::string& script) const {
  return Execute({"/bin/sh", "-c", "saft() { " SAFT_PROGRAM " \"$@\"; }; " + script});
}

Outcome ToolTest::Execute(const std::vector<std::string>& command) {
  const TemporaryFolder streams;
  const std::string out = streams.Path("out");
  const std::string err = streams.Path("err");
  const pid_t child = fork();
  if (child == 0) {
    std::vector<char*> argv;
    for (const std::string& argument : command) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    if (std::freopen(out.c_str(), "w", stdout) && std::freopen(err.c_str(), "w", stderr)) execv(argv[0], argv.data());
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  EXPECT_EQ(wait4(child, &status, 0, &usage), child);
  const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  constexpr int64_t kUnit = 1024;
  const double seconds = static_cast<double>(usage.ru_utime.tv_sec) + static_cast<double>(usage.ru_utime.tv_usec) / 1e6;
  return {code, ReadBytes(out), ReadBytes(err), usage.ru_maxrss * kUnit, seconds};
}

Outcome ToolTest::Create(const std::vector<std::string>& options) const {
  std::vector<std::string> arguments{"create", "--no-validate", folder_.Path(kDataset), Output()};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return Run(arguments);
}

void ToolTest::Write(std::string_view name, std::string_view text) const {
  folder_.Write(std::string(kDataset) + "/" + std::string(name), text);
}

void ToolTest::WriteValid(int customers) const {
  Write("header.csv", ReadBytes(ZEVO_COMPANY_FOLDER "/header.csv"));
  std::string rows =
      "CustomerID,AccountID,CustomerTaxID,CompanyName,BillingAddress.AddressDetail,BillingAddress.City,"
      "BillingAddress.PostalCode\n";
  for (int i = 0; i < customers; ++i) {
    rows += "C" + std::to_string(i) + ",Desconhecido,999999990,Cliente,Desconhecido,Desconhecido,Desconhecido\n";
  }
  Write("customers.csv", rows);
}

void ToolTest::WriteMonths(const std::string& folder) const {
  for (int month = 0; month < generate::SampleRecords::kMonths; ++month) {
    const std::string number = std::to_string(month + 1);
    AuditFileStreamWriter file;
    file.set_AuditFileName(folder_.Path(folder + "/2012-" + (number.size() == 1 ? "0" : "") + number + ".xml"));
    WriteTo(file, generate::SampleRecords(24, 1), {.first = month, .end = month + 1});
  }
}

void ToolTest::ExpectRefused(std::string_view message, std::string_view told) const {
  const Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, std::string(told).append("saft: ").append(message).append("\n"));
  EXPECT_THAT(folder_.Names(), ElementsAre(kDataset));
}

void ToolTest::ExpectCreated(std::string_view told) const {
  const Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, told);
  EXPECT_THAT(folder_.Names(), ElementsAre(kDataset, "out.xml"));
}

std::string ToolTest::Recognised(std::string_view name, std::string_view form) const {
  return "saft: " + In(name) + ": recognised: " + std::string(form) + "\n";
}

std::vector<std::string> ToolTest::Texts(std::string_view element) const {
  const std::string bytes = ReadBytes(Output());
  const std::string start = std::string("<").append(element).append(">");
  const std::string end = std::string("</").append(element).append(">");
  std::vector<std::string> texts;
  for (size_t at = bytes.find(start); at != std::string::npos; at = bytes.find(start, at + 1)) {
    const size_t from = at + start.size();
    const size_t length = bytes.find(end, from) - from;
    if (length != 0) texts.push_back(bytes.substr(from, length));
  }
  return texts;
}

bool ToolTest::Has(std::string_view element) const {
  return ReadBytes(Output()).find(std::string("<").append(element).append(">")) != std::string::npos;
}

}  // namespace zevo::testing
