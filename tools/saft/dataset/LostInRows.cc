// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/LostInRows.h"

#include "tools/saft/dataset/RecordKind.h"

namespace zevo::saft {
namespace {

// Rows of texts have what a record holds otherwise, or in another order. What they lack is a second element where there
// is room for one, and an element that is not known; a text that is no value of its element misleads.
bool IsLost(Fault fault) {
  switch (fault) {
    case Fault::kUnreadable:
    case Fault::kRepeated:
    case Fault::kUnknownElement:
      return true;
    case Fault::kConstant:
    case Fault::kUnknownCode:
    case Fault::kInexact:
    case Fault::kOutOfOrder:
    case Fault::kKeyTaken:
      return false;
  }
  return true;
}

// Whether it is a record of its own that has a row although there is no room for a second one in the record around it.
bool HasARow(const AuditFileScanner& scanner, const Problem& problem) {
  return problem.fault == Fault::kRepeated && scanner.Kind() &&
         RecordKindAt(*scanner.Kind(), problem.path).path == WithoutNumbers(problem.path);
}

}  // namespace

bool IsLostInRows(const AuditFileScanner& scanner, const Problem& problem) {
  return problem.path.starts_with('/') || (IsLost(problem.fault) && !HasARow(scanner, problem));
}

}  // namespace zevo::saft
