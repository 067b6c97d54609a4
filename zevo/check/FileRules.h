// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_FILERULES_H_
#define ZEVO_CHECK_FILERULES_H_

#include <zevo/model/Finding.h>
#include <zevo/model/Violation.h>

#include <cstddef>
#include <string>

namespace zevo {

/// The rules that tell violations of the schema, by their places among all.
struct ViolationRules {
  size_t read;
  size_t schema;
  size_t references;  ///< tells at the end of the file what refers to nothing
};
const ViolationRules& RulesOfViolations();

/// Whether a text is no number, date or code where one is due.
bool IsUnreadable(const Violation& violation);
/// Whether it is a reference to something that the file does not have.
bool IsDangling(const Violation& violation);
Finding FindingOf(const Violation& violation);

/// Of a file that is not read: its version, or what else its root is.
Finding VersionFinding(std::string found, const FilePlace& place, bool anotherVersion);
size_t VersionRule();

}  // namespace zevo

#endif  // ZEVO_CHECK_FILERULES_H_
