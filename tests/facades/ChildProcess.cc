// SPDX-License-Identifier: Apache-2.0
#include "tests/facades/ChildProcess.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <exception>
#include <stdexcept>

namespace zevo::testing {
namespace {

[[noreturn]] void RunAndReport(const std::function<std::string()>& code, int pipe) {
  std::string report;
  try {
    report = code();
  } catch (const std::exception& error) {
    report = std::string("threw ") + error.what();
  }
  const ssize_t written = write(pipe, report.data(), report.size());
  _exit(written == static_cast<ssize_t>(report.size()) ? 0 : 1);
}

}  // namespace

std::string InChildProcess(const std::function<std::string()>& code) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no child process");
  if (child == 0) {
    close(ends[0]);
    RunAndReport(code, ends[1]);
  }
  close(ends[1]);
  std::string report;
  std::array<char, 4096> bytes{};
  for (ssize_t got = 0; (got = read(ends[0], bytes.data(), bytes.size())) > 0;) {
    report.append(bytes.data(), static_cast<size_t>(got));
  }
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (status != 0) report += "child ended with status " + std::to_string(status);
  return report;
}

void DropPrivileges() {
  constexpr uid_t kNobody = 65534;
  if (geteuid() == 0 && seteuid(kNobody) != 0) throw std::runtime_error("privileges cannot be dropped");
}

}  // namespace zevo::testing
