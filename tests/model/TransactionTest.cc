// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/Transaction.h>

#include <memory>

namespace zevo {
namespace {

TEST(TransactionTest, ALineIsFoundByItsIdentifierAndByItsPosition) {
  const Transaction transaction;
  for (const std::string_view id : {"L2", "L1"}) {
    auto line = std::make_shared<TransactionLine>();
    line->set_RecordID(id);
    transaction.Line()->Add(line);
  }
  EXPECT_EQ(transaction.Line()->Item("L2"), transaction.Line()->Item(1));
  EXPECT_EQ(transaction.Line()->Item(2)->RecordID(), "L1");
}

TEST(TransactionTest, AnyNumberIsATransactionType) {
  Transaction transaction;
  EXPECT_EQ(transaction.TransactionType(), 0);
  transaction.set_TransactionType(static_cast<TransactionTypes>(99));
  EXPECT_EQ(transaction.TransactionType(), 99);
}

}  // namespace
}  // namespace zevo
