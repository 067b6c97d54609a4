// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_FACADES_FILERECORDS_H_
#define ZEVO_TESTS_FACADES_FILERECORDS_H_

#include <zevo/adapters.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/RecordValues.h"

namespace zevo::testing {

/// What a reader finds in a file.
struct FileRecords {
  /// By the name of their kind and, in it, in the file's order: each record as the values of its properties, or without
  /// any when it cannot be read.
  std::vector<std::pair<std::string, RecordValues>> records;
  /// Why the file, not one of its records, could not be read; null when it was read to its end.
  std::shared_ptr<const AuditException> failure;
};

/// By `AuditFileReader`.
FileRecords ReadOneByOne(const std::string& file);
/// By `AuditFileStreamer`.
FileRecords ReadStreamed(const std::string& file);
/// By `AuditFileScanner`. Its records hold more, and its tax tables are one to an element.
FileRecords ReadScanned(const std::string& file);

/// The first record or value in which two readings differ; empty when they found the same.
std::string Difference(const FileRecords& one, const FileRecords& other);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_FACADES_FILERECORDS_H_
