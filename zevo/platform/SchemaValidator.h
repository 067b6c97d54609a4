// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMAVALIDATOR_H_
#define ZEVO_PLATFORM_SCHEMAVALIDATOR_H_

#include <memory>
#include <string>
#include <string_view>

namespace zevo {

class Error;
class SchemaSource;

/// A compiled XML schema and the validation of files against it. Validation reads a file front to back; its memory
/// grows with the keys that the schema makes unique, not with the file. A schema must be a single file without a
/// document type declaration.
class SchemaValidator {
 public:
  /// `source` is the source of errors, and `targetNamespace` what schemas must declare for, empty for no namespace.
  /// Both must outlive the validator.
  SchemaValidator(std::string_view source, std::string_view targetNamespace);
  SchemaValidator(const SchemaValidator&) = delete;
  SchemaValidator& operator=(const SchemaValidator&) = delete;
  ~SchemaValidator();

  /// Reads and compiles the schema. Raises the error that stops it, with a description that names the schema.
  void Compile(const SchemaSource& schema);

  /// Raises the first violation, with line and column, or what the parser raises for a file that is not well-formed.
  /// There must be a compiled schema.
  void Validate(const std::string& file);

  /// Whether the last of these calls failed for a reason that lies in the schema, or in what was made of it, rather
  /// than in the file.
  bool IsSchemaAtFault() const { return schema_at_fault_; }

 private:
  struct Schema;

  void Compile(std::string_view bytes);
  [[noreturn]] void Blame(const Error& error) const;

  std::unique_ptr<Schema> schema_;
  std::string_view source_;
  std::string_view target_namespace_;
  std::string name_;
  bool schema_at_fault_ = false;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMAVALIDATOR_H_
