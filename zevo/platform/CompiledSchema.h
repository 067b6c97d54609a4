// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_COMPILEDSCHEMA_H_
#define ZEVO_PLATFORM_COMPILEDSCHEMA_H_

#include <memory>
#include <string>
#include <string_view>

struct _xmlSchema;  // NOLINT(bugprone-reserved-identifier): libxml2's name

namespace zevo {

class FastSchema;
class SchemaSource;
class SchemaTables;

/// A compiled XML schema. A schema must be a single file without a document type declaration, and within the limits of
/// SchemaLimits.
class CompiledSchema {
 public:
  /// Reads and compiles a schema, which must declare for `targetNamespace`, empty for no namespace. Raises what stops
  /// it as the error of `errorSource`, with a description that names the schema.
  CompiledSchema(const SchemaSource& schema, std::string_view targetNamespace, std::string_view errorSource);
  CompiledSchema(const CompiledSchema&) = delete;
  CompiledSchema& operator=(const CompiledSchema&) = delete;
  ~CompiledSchema();

  /// What errors call the schema.
  const std::string& Name() const { return name_; }
  /// libxml2's, which lives as long as this.
  _xmlSchema* Get() const { return compiled_.get(); }
  /// The same for the fast path; null where that is off or does not take the schema.
  const FastSchema* Fast() const { return fast_.get(); }

 private:
  struct Free {
    void operator()(_xmlSchema* schema) const;
  };

  void Compile(std::string_view bytes, std::string_view targetNamespace, std::string_view errorSource);
  void CompileWithLibxml2(const std::string& text, std::string_view errorSource);

  std::string name_;
  std::unique_ptr<_xmlSchema, Free> compiled_;
  std::unique_ptr<const SchemaTables> tables_;
  std::unique_ptr<const FastSchema> fast_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_COMPILEDSCHEMA_H_
