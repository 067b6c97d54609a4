// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_ERRORRECORDING_H_
#define ZEVO_FACADES_ERRORRECORDING_H_

#include <zevo/model/AuditException.h>

#include <memory>

namespace zevo {

/// What becomes of the description of an error with a negative number that the library has no message for.
enum class UnknownDescription { kKept, kEmptied };

/// The exception that is being handled, as a façade keeps it. Called from a catch-all. Where there is no memory for the
/// record, it gives one that says so.
std::shared_ptr<const AuditException> RecordError(UnknownDescription unknown) noexcept;

}  // namespace zevo

#endif  // ZEVO_FACADES_ERRORRECORDING_H_
