// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMAVALIDATOR_H_
#define ZEVO_PLATFORM_SCHEMAVALIDATOR_H_

#include <zevo/platform/XmlProblem.h>

#include <memory>
#include <optional>
#include <string>

struct _xmlSchemaValidCtxt;  // NOLINT(bugprone-reserved-identifier): libxml2's name

namespace zevo {

class ByteSource;
class CompiledSchema;
class Parser;

/// Validates files against a schema, one after the other. A file is read front to back; the memory that it takes grows
/// with the keys that the schema makes unique, not with the file.
class SchemaValidator {
 public:
  /// `schema` must outlive the validator. Raises error 7 without memory.
  explicit SchemaValidator(const CompiledSchema& schema);

  /// Hands over what is wrong with a file as it is found, until `found` has enough; a file about which nothing comes is
  /// valid. After a problem of another fault than kInvalid there is no going on; one whose fault is the schema's names
  /// it. Raises error 7 when libxml2 has no memory, and what `found` raises.
  void Validate(const std::string& file, const ProblemSink& found);
  /// The same of what comes from elsewhere.
  void Validate(ByteSource& input, const ProblemSink& found);

  /// The first of these problems, nothing for a valid file.
  std::optional<XmlProblem> FirstProblem(const std::string& file);

 private:
  struct Free {
    void operator()(_xmlSchemaValidCtxt* context) const;
  };

  // Whether the fast path takes all of it; it says nothing of what is wrong with it. Otherwise the input begins again.
  bool IsSurelyValid(ByteSource& input, std::optional<XmlProblem>& unreadable) const;
  void Validate(Parser parser, const ProblemSink& found);

  const CompiledSchema& schema_;
  std::unique_ptr<_xmlSchemaValidCtxt, Free> context_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMAVALIDATOR_H_
