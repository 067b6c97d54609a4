// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/HostMessages.h>

#include <chrono>

namespace zevo {
namespace {

TEST(HostMessagesTest, AreAwaitedForASecond) {
  const auto begin = std::chrono::steady_clock::now();
  AwaitHostMessages();
  const auto passed = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(passed, std::chrono::milliseconds(1000));
  EXPECT_LT(passed, std::chrono::milliseconds(5000));
}

}  // namespace
}  // namespace zevo
