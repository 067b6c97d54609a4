// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/saft/SlowToolTest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace zevo::testing {

void SlowToolTest::StartSlowly(std::vector<std::string> arguments) {
  child_ = fork();
  ASSERT_GE(child_, 0);
  if (child_ > 0) return;
  setenv("LD_PRELOAD", SLOW_DISK, 1);
  setenv("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0", 1);
  arguments.insert(arguments.begin(), "saft");
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  const std::string err = folder_.Path("err");
  if (std::freopen(err.c_str(), "w", stderr)) execv(SAFT_PROGRAM, argv.data());
  _exit(127);
}

Outcome SlowToolTest::AwaitEnd() const {
  int status = 0;
  EXPECT_EQ(waitpid(child_, &status, 0), child_);
  const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return {.code = code, .out = {}, .err = ReadBytes(folder_.Path("err"))};
}

void SlowToolTest::AwaitOpen(const std::string& path) const {
  Await([&] {
    std::error_code ended;
    for (const auto& descriptor :
         std::filesystem::directory_iterator("/proc/" + std::to_string(child_) + "/fd", ended)) {
      std::error_code closed;
      if (std::filesystem::read_symlink(descriptor, closed) == path) return true;
    }
    return false;
  });
}

void SlowToolTest::AwaitWriting() const {
  Await([&] {
    std::error_code error;
    return !std::filesystem::is_empty(UnfinishedFolder(), error) && !error;
  });
}

}  // namespace zevo::testing
