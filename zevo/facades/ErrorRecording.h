// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_ERRORRECORDING_H_
#define ZEVO_FACADES_ERRORRECORDING_H_

#include <zevo/model/AuditException.h>

#include <memory>

namespace zevo {

class Error;

/// When an error with a negative number keeps its own description instead of the message of its number. Where there is
/// no message either, the description is empty.
enum class OwnDescription {
  kNever,
  kWithoutMessage,
  kWithoutMessageOrLonger,  ///< Also where it goes on where the message ends.
};

/// The exception that is being handled, as a façade keeps it. Called from a catch-all. Where there is no memory for the
/// record, it gives one that says so.
std::shared_ptr<const AuditException> RecordError(OwnDescription own) noexcept;
/// The same of an error.
std::shared_ptr<const AuditException> RecordError(const Error& error, OwnDescription own) noexcept;

}  // namespace zevo

#endif  // ZEVO_FACADES_ERRORRECORDING_H_
