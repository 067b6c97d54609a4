// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_CHOSENKEYS_H_
#define ZEVO_TESTS_SUPPORT_CHOSENKEYS_H_

#include <string>
#include <vector>

namespace zevo::testing {

enum class Capitals { kYes, kNo };

/// Keys of 16 characters that all have the same std::hash, as somebody makes them who wants a program to take hours.
/// XML and CSV take the characters as they are. Keys without capitals take sixteen times as long to make, and are the
/// same whatever is done to letter case. Fails the test where std::hash is not the one that they were made for.
std::vector<std::string> KeysOfOneHash(size_t count, Capitals capitals = Capitals::kYes);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SUPPORT_CHOSENKEYS_H_
