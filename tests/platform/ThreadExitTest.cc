// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/ThreadExit.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace zevo {
namespace {

std::string called;

void Note(void* name) { called += *static_cast<char*>(name); }

TEST(ThreadExitTest, CallsAreMadeWhenTheThreadEndsLastFirst) {
  static char a = 'a';
  static char b = 'b';
  called.clear();
  std::thread([] {
    AtThreadExit(&Note, &a);
    AtThreadExit(&Note, &b);
    EXPECT_EQ(called, "");
  }).join();
  EXPECT_EQ(called, "ba");
}

TEST(ThreadExitTest, OtherThreadsDoNotMatter) {
  static char a = 'a';
  called.clear();
  std::thread([] {
    AtThreadExit(&Note, &a);
    std::thread([] {}).join();
    EXPECT_EQ(called, "");
  }).join();
  EXPECT_EQ(called, "a");
}

}  // namespace
}  // namespace zevo
