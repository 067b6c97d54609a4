// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_OPTIONS_H_
#define ZEVO_MODEL_OPTIONS_H_

#include <zevo/Api.h>

#include <string>
#include <string_view>

namespace zevo {

/// The options of the library, one set for each thread. Objects of this class hold nothing: all of them, and
/// `AuditFile::AuditFileSchema`, read and write the same values.
class ZEVO_API Options {
 public:
  /// Whether a text assigned to a record is cut to the length that the schema gives its element. True from the start.
  bool ValidateOnAssignment() const;
  void set_ValidateOnAssignment(bool value);

  /// Path of the schema file, in UTF-8. From the start, SAF-T-PT_1_01.xsd under the library's own folder, or the
  /// common-files folder on Windows; empty where the system tells no such folder. Assigning a path that
  /// differs in more than letter case loads that schema; one that cannot be loaded raises nothing, texts are just not
  /// cut any more. When memory runs out, everything stays as it was. A schema is a file of at most 256 KiB, never a
  /// folder, a pipe or a device. The path is empty while `UseBuiltInSchema` is in force; assigning an empty one then
  /// changes nothing.
  std::string SchemaLocation() const;
  void set_SchemaLocation(std::string_view value);
};

/// Makes the schema that is built into the library, the same that is delivered beside it, the one of the calling
/// thread: texts of records are cut by it, and `AuditFile::ValidateAuditFile` checks files against it, until
/// `Options::SchemaLocation` or `AuditFile::AuditFileSchema` names a file. Without this call the library uses no schema
/// but the file that is there.
ZEVO_API void UseBuiltInSchema();

}  // namespace zevo

#endif  // ZEVO_MODEL_OPTIONS_H_
