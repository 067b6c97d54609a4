#ifndef ZEVO_PLATFORM_SCHEMAVALIDATOR_H_
#define ZEVO_PLATFORM_SCHEMAVALIDATOR_H_

#include <memory>
#include <string>

namespace zevo {

/// A compiled XML schema and the validation of files against it. Validation reads a file front to back; its memory
/// grows with the keys that the schema makes unique, not with the file. A schema must be a single file without a
/// document type declaration.
class SchemaValidator {
 public:
  /// Compiles the schema. Raises the error that stops it; `source` is the source of errors that are the schema's or the
  /// document's own.
  SchemaValidator(const std::string& schemaFile, std::string source);
  SchemaValidator(const SchemaValidator&) = delete;
  SchemaValidator& operator=(const SchemaValidator&) = delete;
  ~SchemaValidator();

  /// Raises the first violation, with line and column, or what the parser raises for a file that is not well-formed.
  void Validate(const std::string& file);

 private:
  struct Schema;
  std::unique_ptr<Schema> schema_;
  std::string source_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMAVALIDATOR_H_
