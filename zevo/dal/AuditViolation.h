// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_AUDITVIOLATION_H_
#define ZEVO_DAL_AUDITVIOLATION_H_

#include <zevo/FilePlace.h>
#include <zevo/model/Violation.h>
#include <zevo/platform/SchemaDiagnosis.h>
#include <zevo/platform/XmlProblem.h>

#include <vector>

namespace zevo {

/// The records of an audit file, in the order of `EntityKinds`, by which a diagnosis tells violations.
std::vector<RecordElement> AuditRecords();

/// What a diagnosis by those records tells.
Violation ViolationOf(SchemaViolation&& told);
/// What libxml2 tells itself.
Violation ViolationOf(const XmlProblem& told);

/// Whether one place, told by line and column, comes before another.
bool IsBefore(const FilePlace& one, const FilePlace& other);

}  // namespace zevo

#endif  // ZEVO_DAL_AUDITVIOLATION_H_
