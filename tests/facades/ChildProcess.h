// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_FACADES_CHILDPROCESS_H_
#define ZEVO_TESTS_FACADES_CHILDPROCESS_H_

#include <functional>
#include <string>

namespace zevo::testing {

/// Runs code in a process of its own, where it may give up privileges or mount things, and gives the text that it
/// returned; empty stands for success. A child that dies otherwise gives a text that tells how.
std::string InChildProcess(const std::function<std::string()>& code);

/// Makes the process one that file permissions apply to: the superuser becomes nobody.
void DropPrivileges();

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_FACADES_CHILDPROCESS_H_
