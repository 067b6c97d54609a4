// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/GeneralLedger.h>

#include "tests/model/SchemaText.h"

namespace zevo {
namespace {

using testing::SchemaLimiting;
using testing::UseSchemaText;

TEST(GeneralLedgerTest, IsCheckedUnderThePathOfTheEntries) {
  const UseSchemaText schema(SchemaLimiting({{"/AuditFile/GeneralLedgerEntries/AccountID", "3"},
                                             {"/AuditFile/MasterFiles/GeneralLedger/AccountID", "2"},
                                             {"/AuditFile/MasterFiles/GeneralLedger/AccountDescription", "4"},
                                             {"/AccountID", "5"}}));
  GeneralLedger account;
  account.set_AccountID("abcdef");
  account.set_AccountDescription("abcdef");
  EXPECT_EQ(account.AccountID(), "abc");
  EXPECT_EQ(account.AccountDescription(), "abcdef");
}

}  // namespace
}  // namespace zevo
