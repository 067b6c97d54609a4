#include "tools/saft/ValidateCommand.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>

#include "tools/saft/Failure.h"
#include "tools/saft/VisibleText.h"

namespace zevo::saft {
namespace {

std::shared_ptr<const AuditException> ViolationIn(const std::string& path) {
  AuditFile file;
  file.set_AuditFileName(path);
  file.ValidateAuditFile();
  return file.AuditException();
}

void RequireReadable(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (file) file.peek();
  if (!file.is_open() || file.bad()) throw Failure(path, std::strerror(errno));
}

// A fault in the schema shows with every file, so also with the schema itself.
bool IsFaultOfSchema(const AuditException& error) {
  const auto own = ViolationIn(Options().SchemaLocation());
  return own && own->Number() == error.Number() && own->Description() == error.Description();
}

}  // namespace

ValidateCommand::ValidateCommand(CLI::App& program)
    : Command(program, "validate", "Check an audit file against the schema") {
  options_.add_option("FILE.xml", file_, "Audit file to check")->required()->option_text(" ");
  options_.add_option("--schema", schema_, "Schema to use instead of the library's own")->type_name("XSD");
  options_.footer(
      "Ends with 0 when the file is valid, with 1 when it is not: standard error then tells the first violation, with\n"
      "its line and column.");
}

ExitCode ValidateCommand::Run() const {
  if (!schema_.empty()) Options().set_SchemaLocation(schema_);
  const auto error = ViolationIn(file_);
  if (!error) {
    std::cout << Visible(file_) << ": valid\n";
    return kDone;
  }
  const std::string& reason = error->Description();
  const std::string schema = Options().SchemaLocation();
  if (error->Number() < 0) throw Failure(file_, reason);
  RequireReadable(file_);
  RequireReadable(schema);
  if (IsFaultOfSchema(*error)) throw Failure(schema, reason);
  if (error->Source() == kRunTimeSource) throw Failure(file_, reason);
  std::cerr << "saft: " << Visible(file_) << ": " << Abridged(reason) << '\n';
  return kInvalid;
}

}  // namespace zevo::saft
