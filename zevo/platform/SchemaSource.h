// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMASOURCE_H_
#define ZEVO_PLATFORM_SCHEMASOURCE_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace zevo {

/// Where a schema comes from: a file, or the copy that is built into the library.
class SchemaSource {
 public:
  static constexpr size_t kLargest = size_t{256} * 1024;

  /// A file of that name; no schema at all where it is empty.
  explicit SchemaSource(std::string file = {}) : file_(std::move(file)) {}
  static SchemaSource BuiltIn();
  /// The same schema with its bytes, read once: whoever reads it gets these. Raises what Read does, where the schema
  /// cannot be read when it first is.
  SchemaSource Held() const;

  bool IsBuiltIn() const { return built_in_; }
  /// The name of the file; empty without one.
  const std::string& File() const { return file_; }
  /// What errors call the schema.
  std::string_view Name() const;

  /// The bytes, read at once, so that all who look at them see the same. Raises, with a description that names the
  /// schema, what opening and reading a file raises, error 75 for what is no regular file, error 53 without a schema,
  /// and XML_ERR_USER_STOP for one larger than kLargest.
  std::string Read() const;

 private:
  std::string file_;
  bool built_in_ = false;
  std::optional<std::string> bytes_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMASOURCE_H_
