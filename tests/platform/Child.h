// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_CHILD_H_
#define ZEVO_TESTS_PLATFORM_CHILD_H_

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <string>

namespace zevo::testing {

/// What became of a process: as `wait` tells it, and what the code gave.
struct ChildResult {
  int status;
  std::string text;
};

/// Runs code in a process of its own, so that limits, users and signals stay there. The code gives a text; what it
/// throws comes as "exception: " and what it says.
template <class Code>
ChildResult RunInChild(Code&& code) {
  int ends[2];
  if (pipe(ends) != 0) ADD_FAILURE() << "no pipe";
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    std::string text;
    try {
      text = code();
    } catch (const std::exception& exception) {
      text = std::string("exception: ") + exception.what();
    }
    const ssize_t written = write(ends[1], text.data(), text.size());
    _exit(written == static_cast<ssize_t>(text.size()) ? 0 : 1);
  }
  EXPECT_GT(child, 0);
  close(ends[1]);
  ChildResult result{};
  char piece[4096];
  for (ssize_t got; (got = read(ends[0], piece, sizeof piece)) > 0;) {
    result.text.append(piece, static_cast<size_t>(got));
  }
  close(ends[0]);
  waitpid(child, &result.status, 0);
  return result;
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_CHILD_H_
