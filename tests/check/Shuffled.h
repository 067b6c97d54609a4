// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_CHECK_SHUFFLED_H_
#define ZEVO_TESTS_CHECK_SHUFFLED_H_

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>

#include "tests/check/CheckTest.h"

namespace zevo::testing {

/// The file with its invoices in another order, and so the transactions of each journal.
inline CleanFile Shuffled(CleanFile file, uint64_t seed) {
  std::mt19937_64 random(seed);
  const auto shuffle = [&](const std::string& path, const char* name) {
    std::vector<XmlPart>& children = file.ChildrenOf(path);
    std::shuffle(std::ranges::find(children, name, &XmlPart::name), children.end(), random);
  };
  shuffle("SalesInvoices", "Invoice");
  for (size_t i = 1; i <= file.CountOf("Journal"); ++i) shuffle("Journal[" + std::to_string(i) + "]", "Transaction");
  return file;
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_CHECK_SHUFFLED_H_
