// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/command/SchemaChoice.h"

#include <zevo/adapters.h>

#include <filesystem>
#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/words/FileWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {

SchemaChoice::SchemaChoice(CLI::App& options)
    : option_(options.add_option("--schema", named_, Say(words::kSchemaOption))) {
  option_->option_text("XSD");
}

void SchemaChoice::Use(const std::string& otherwise) const {
  std::error_code unknown;
  if (option_->count() > 0 && named_.empty()) throw Failure("--schema", Say(words::kNamesNoFile));
  const std::string& named = named_.empty() ? otherwise : named_;
  if (!named.empty()) {
    RequireRegularFile(named);
    if (!std::filesystem::exists(named, unknown)) throw Failure(named, Say(words::kNoSuchFile));
  }
  try {
    if (!named.empty()) {
      Options().set_SchemaLocation(named);
    } else if (!std::filesystem::is_regular_file(Options().SchemaLocation(), unknown)) {
      UseBuiltInSchema();
    }
  } catch (const Error& error) {
    FailWith(error, named);  // memory ran out
  }
}

void SchemaChoice::RequireUsable(const std::string& otherwise) const {
  const std::string& named = named_.empty() ? otherwise : named_;
  if (named.empty()) return;
  // Only the schema is of interest, so the schema itself serves as the file to validate: it is known to exist.
  AuditFile file;
  file.set_AuditFileName(named);
  if (file.ValidateAuditFile() || !file.IsSchemaAtFault()) return;
  Fail(*file.AuditException());
}

void SchemaChoice::Fail(const AuditException& error) {
  const std::string location = Options().SchemaLocation();
  const std::string name = location.empty() ? Say(words::kBuiltInSchema) : location;
  AuditException unnamed = error;
  // The name is added below, so the one that the library puts in front is cut off.
  if (const std::string prefix = name + ": "; error.Description().starts_with(prefix)) {
    unnamed.set_Description(std::string_view{error.Description()}.substr(prefix.size()));
  }
  FailWith(unnamed, name);
}

}  // namespace zevo::saft
