// SPDX-License-Identifier: Apache-2.0
// Any bytes as an audit file: everything in it that the schema does not allow is told where libxml2 finds something,
// and nothing where it finds nothing. Sentences are not in the words of libxml2.

#include <zevo/model/EntityKind.h>
#include <zevo/model/Violation.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/SchemaDiagnosis.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaTables.h>
#include <zevo/platform/SchemaValidator.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "fuzz/Expect.h"
#include "fuzz/FileInMemory.h"

namespace zevo {
namespace {

using fuzz::Expect;

void Diagnose(std::string_view bytes) {
  static const SchemaSource source = SchemaSource::BuiltIn();
  static const CompiledSchema schema(source, "urn:OECD:StandardAuditFile-Tax:PT_1.01_01", "Fuzzer");
  static const auto tables = SchemaTables::Of(source.Read());
  static const std::vector<RecordElement> records = [] {
    std::vector<RecordElement> made;
    for (const EntityKind kind : EntityKinds()) {
      made.push_back({.name = NameOf(kind), .key = KeyOf(kind), .parent = {}});
    }
    return made;
  }();
  static fuzz::FileInMemory file;
  file.Replace(bytes);
  const std::optional<XmlProblem> first = SchemaValidator(schema).FirstProblem(file.Path());
  std::optional<FilePlace> told;
  SchemaDiagnosis diagnosis(*tables, records, [&](const SchemaViolation& violation) {
    if (!told) told = violation.place;
    const Violation public_one{violation.number, {}, violation.key, violation.path, violation.place, violation.value,
                               violation.allowed};
    for (const Language language : {Language::kPortuguese, Language::kEnglish}) {
      Expect(!violation.path.empty() || violation.record, "no element");
      Expect(!Describe(public_one, language).empty(), "no sentence");
    }
    return true;
  });
  const SchemaDiagnosis::Outcome outcome = diagnosis.Run(file.Path());
  if (outcome.left_off) return;
  if (!first || first->fault == XmlProblem::Fault::kInvalid) {
    Expect(told.has_value() == first.has_value(), told ? "told without libxml2" : "nothing told");
  }
  if (told && told->line > 0 && first && first->place.line > 0) {
    Expect(std::pair(told->line, told->column) <= std::pair(first->place.line, first->place.column), "told too late");
  }
  if (first && first->fault != XmlProblem::Fault::kInvalid) {
    Expect(outcome.problem && outcome.problem->number == first->number, "another problem");
  }
}

}  // namespace
}  // namespace zevo

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  zevo::Diagnose({reinterpret_cast<const char*>(data), size});
  return 0;
}
