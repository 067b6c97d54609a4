// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_ERROR_H_
#define ZEVO_ERROR_H_

#include <zevo/Api.h>

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace zevo {

/// The one error type of the library: a number, the operation that raised it and a description. Façades turn it into
/// their `AuditException`; records, collections and conversions let it reach the host.
class ZEVO_API Error : public std::exception {
 public:
  Error(int32_t number, std::string source, std::string description = {});
  Error(const Error&) = default;
  Error& operator=(const Error&) = default;
  ~Error() override;

  /// Negative for the library's own errors (0x80040000 plus the number of a message), positive for run-time errors and
  /// for those of the XML parser and validator.
  int32_t Number() const { return number_; }
  /// The class and operation that raised the error, such as "HeaderDALC.CreateHeader".
  const std::string& Source() const { return source_; }
  /// Empty for the library's own errors: façades look their message up by number.
  const std::string& Description() const { return description_; }
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  int32_t number_;
  std::string source_;
  std::string description_;
  std::string what_;
};

/// Numbers of the messages of the library's own errors.
enum class Message : int32_t {
  kNoFileName = 1,
  kFileNotFound = 2,
  kFileExists = 3,
  kAlreadyStarted = 4,
  kNotStarted = 5,
  kHeaderExists = 101,
  kHeaderMissing = 102,
  // The texts of the next two say the reverse of when the section's own operations raise them; hosts test the numbers.
  kEntriesMissingText = 201,
  kEntriesExistText = 202,
  kJournalMissing = 251,
  kSalesInvoicesMissing = 301,
  kSalesInvoicesExist = 302,
  kEntityNotXml = 401,
  kReadingAborted = 501,
  // Of these two the error itself has the text.
  kOtherVersion = 601,
  kNoAuditFile = 602,
  kRuleFailed = 701,  // the same
};

/// Numbers of the run-time errors.
enum class RunTimeError : int32_t {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kBadFileName = 52,
  kFileNotFound = 53,
  kDeviceIO = 57,
  kDiskFull = 61,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
  kObjectNotSet = 91,
  kDuplicateKey = 457,
};

/// What every number of the library's own errors is counted from.
inline constexpr int32_t kErrorBase = static_cast<int32_t>(0x80040000U);

/// Source of run-time errors, which name no operation.
inline constexpr std::string_view kRunTimeSource = "ZevoAdapters11";

/// An error of the library itself. It carries no description.
ZEVO_API Error LibraryError(Message message, std::string_view source);

/// A run-time error with its own description, followed by `detail` in brackets when there is one.
ZEVO_API Error MakeRunTimeError(RunTimeError number, std::string_view detail = {});

/// The text of the message that belongs to an error's number, empty when the table has none.
ZEVO_API std::string_view MessageText(int32_t errorNumber);

}  // namespace zevo

#endif  // ZEVO_ERROR_H_
