// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/ErrorRecording.h>

#include <zevo/Error.h>

#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>

namespace zevo {
namespace {

// Whether a description goes on where its message ends.
bool SaysMore(std::string_view description, std::string_view message) {
  return !message.empty() && description.starts_with(message.substr(0, message.size() - 1)) && description != message;
}

std::shared_ptr<const AuditException> MakeRecord(const Error& error, OwnDescription own) {
  auto record = std::make_shared<AuditException>();
  record->set_Number(error.Number());
  record->set_Source(error.Source());
  record->set_Description(error.Description());
  if (error.Number() < 0) {
    const std::string_view message = MessageText(error.Number());
    if (own == OwnDescription::kWithoutMessageOrLonger && SaysMore(error.Description(), message)) return record;
    if (!message.empty() || own == OwnDescription::kNever) record->set_Description(message);
  }
  return record;
}

// Made in advance: when memory has run out, nothing can be made.
const std::shared_ptr<const AuditException> kOutOfMemory =
    MakeRecord(MakeRunTimeError(RunTimeError::kOutOfMemory), OwnDescription::kWithoutMessage);

}  // namespace

std::shared_ptr<const AuditException> RecordError(const Error& error, OwnDescription own) noexcept {
  try {
    return MakeRecord(error, own);
  } catch (...) {
    return kOutOfMemory;
  }
}

std::shared_ptr<const AuditException> RecordError(OwnDescription own) noexcept {
  try {
    try {
      throw;
    } catch (const Error& error) {
      return RecordError(error, own);
    } catch (const std::bad_alloc&) {
      return kOutOfMemory;
    } catch (const std::length_error&) {
      return kOutOfMemory;
    } catch (const std::exception& error) {
      return MakeRecord(MakeRunTimeError(RunTimeError::kInvalidCall, error.what()), own);
    } catch (...) {
      return MakeRecord(MakeRunTimeError(RunTimeError::kInvalidCall), own);
    }
  } catch (...) {
    return kOutOfMemory;
  }
}

}  // namespace zevo
