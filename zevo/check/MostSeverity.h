// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_MOSTSEVERITY_H_
#define ZEVO_CHECK_MOSTSEVERITY_H_

#include <zevo/check/EntityFacts.h>
#include <zevo/model/Finding.h>

namespace zevo {

/// The most that a finding in an invoice weighs, for rules by which those of cancelled ones are only information.
inline Severity MostSeverity(const InvoiceFacts& invoice) {
  return invoice.IsCancelled() ? Severity::kInformation : Severity::kError;
}

}  // namespace zevo

#endif  // ZEVO_CHECK_MOSTSEVERITY_H_
