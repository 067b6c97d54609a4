// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/AuditFileValidator.h>

#include <zevo/Error.h>
#include <zevo/dal/AuditViolation.h>
#include <zevo/dal/LoadDocument.h>
#include <zevo/facades/ErrorRecording.h>
#include <zevo/model/Options.h>
#include <zevo/model/internal/OptionsMapping.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/RepeatedInput.h>
#include <zevo/platform/SchemaDiagnosis.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaTables.h>
#include <zevo/platform/SchemaValidator.h>
#include <zevo/platform/XmlProblem.h>

#include <memory>
#include <optional>
#include <vector>

namespace zevo {
namespace {

bool IsUnreadable(const std::optional<XmlProblem>& problem) {
  return problem && problem->fault == XmlProblem::Fault::kUnreadable;
}

}  // namespace

/// One validation of one file.
class AuditFileValidator::Run {
 public:
  Run(AuditFileValidator& owner, const SchemaSource& source, const CompiledSchema& schema)
      : owner_(owner), source_(source), validator_(schema), input_(owner.file_name_, owner.Progress) {}

  /// The problem for which the file cannot be judged, if there is one.
  std::optional<XmlProblem> Judge() {
    std::optional<XmlProblem> first = FirstProblem();
    if (!first || first->fault != XmlProblem::Fault::kInvalid) return first;
    input_.Rewind();
    const auto tables = SchemaTables::Of(source_.Read());
    if (!tables) return TellAsLibxml2({});
    const std::vector<RecordElement> records = AuditRecords();
    SchemaDiagnosis diagnosis(*tables, records,
                              [&](SchemaViolation&& told) { return Tell(ViolationOf(std::move(told))); });
    const SchemaDiagnosis::Outcome outcome = diagnosis.Run(input_);
    if (outcome.ended) return std::nullopt;
    const bool unsaid = outcome.left_off || (owner_.violations_ == 0 && !IsUnreadable(outcome.problem));
    if (!unsaid) return outcome.problem;
    if (input_.CanRewind()) {
      input_.Rewind();
      return TellAsLibxml2(outcome.left_off.value_or(FilePlace{}));
    }
    if (owner_.violations_ == 0) Tell(ViolationOf(*first));
    return std::nullopt;
  }

 private:
  // One that the schema has with the file is told here where the file cannot be read again, and then all that follow.
  std::optional<XmlProblem> FirstProblem() {
    std::optional<XmlProblem> first;
    validator_.Validate(input_, [&](const XmlProblem& problem) {
      if (problem.fault == XmlProblem::Fault::kInvalid && !input_.CanRewind()) return Tell(ViolationOf(problem));
      first = problem;
      return false;
    });
    return first;
  }

  // From a place on.
  std::optional<XmlProblem> TellAsLibxml2(const FilePlace& from) {
    std::optional<XmlProblem> fatal;
    validator_.Validate(input_, [&](const XmlProblem& problem) {
      if (problem.fault == XmlProblem::Fault::kInvalid) {
        return IsBefore(problem.place, from) || Tell(ViolationOf(problem));
      }
      fatal = problem;
      return false;
    });
    return fatal;
  }

  bool Tell(const Violation& violation) {
    ++owner_.violations_;
    return !owner_.Found || owner_.Found(violation);
  }

  AuditFileValidator& owner_;
  const SchemaSource& source_;
  SchemaValidator validator_;
  RepeatedInput input_;
};

AuditFileValidator::AuditFileValidator() : Facade("AuditFileValidator", OwnDescription::kWithoutMessageOrLonger) {}
AuditFileValidator::~AuditFileValidator() = default;

const std::string& AuditFileValidator::AuditFileName() const { return file_name_; }
void AuditFileValidator::set_AuditFileName(std::string_view value) { file_name_ = value; }
std::string AuditFileValidator::AuditFileSchema() const { return Options().SchemaLocation(); }
void AuditFileValidator::set_AuditFileSchema(std::string_view value) { Options().set_SchemaLocation(value); }

bool AuditFileValidator::ValidateAuditFile() {
  constexpr std::string_view kMember = "ValidateAuditFile";
  constexpr std::string_view kSource = "AuditFileValidator.ValidateAuditFile";
  schema_at_fault_ = false;
  violations_ = 0;
  return Attempt([&] {
    RequireFile(file_name_, Input::kFileOrStandardInput, kMember);
    schema_at_fault_ = true;
    const SchemaSource source = OptionsMapping::OfThisThread().HeldSchema(kSource);
    const CompiledSchema schema(source, kNamespace, kSource);
    Run run(*this, source, schema);
    schema_at_fault_ = false;
    const std::optional<XmlProblem> problem = run.Judge();
    schema_at_fault_ = problem && problem->fault == XmlProblem::Fault::kSchema;
    Raise(problem, kSource);
  });
}

bool AuditFileValidator::IsSchemaAtFault() const { return schema_at_fault_; }
int64_t AuditFileValidator::Violations() const { return violations_; }

}  // namespace zevo
