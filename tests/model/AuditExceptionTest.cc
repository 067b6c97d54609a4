// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/AuditException.h>

namespace zevo {
namespace {

TEST(AuditExceptionTest, StartsAtZeroAndEmpty) {
  const AuditException exception;
  EXPECT_EQ(exception.Number(), 0);
  EXPECT_EQ(exception.Description(), "");
  EXPECT_EQ(exception.Source(), "");
}

TEST(AuditExceptionTest, HoldsWhatIsAssigned) {
  AuditException exception;
  exception.set_Number(-2147221503);
  exception.set_Description("descrição");
  exception.set_Source("AuditFile.CreateAuditFile");
  EXPECT_EQ(exception.Number(), -2147221503);
  EXPECT_EQ(exception.Description(), "descrição");
  EXPECT_EQ(exception.Source(), "AuditFile.CreateAuditFile");
}

}  // namespace
}  // namespace zevo
