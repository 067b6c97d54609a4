// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/RecordKind.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zevo::saft {
namespace {

TEST(RecordKindTest, RecordsOfEveryKindOfEntityCanBeListed) {
  for (const EntityKind kind : EntityKinds()) {
    EXPECT_GT(std::ranges::count(RecordKinds(), kind, &RecordKind::entity), 0) << NameOf(kind);
  }
}

}  // namespace
}  // namespace zevo::saft
