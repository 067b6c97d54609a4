// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/AuditFileChecker.h>

#include <zevo/Error.h>
#include <zevo/check/FileCheck.h>
#include <zevo/check/FileRules.h>
#include <zevo/check/Findings.h>
#include <zevo/check/Rule.h>
#include <zevo/dal/AuditViolation.h>
#include <zevo/dal/EntityScanner.h>
#include <zevo/dal/LoadDocument.h>
#include <zevo/facades/ErrorRecording.h>
#include <zevo/model/Options.h>
#include <zevo/model/internal/OptionsMapping.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/PublicKey.h>
#include <zevo/platform/RepeatedInput.h>
#include <zevo/platform/SchemaDiagnosis.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaTables.h>
#include <zevo/platform/SchemaValidator.h>
#include <zevo/platform/XmlProblem.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <optional>
#include <utility>
#include <vector>

namespace zevo {
namespace {

constexpr std::string_view kCheckMember = "CheckAuditFile";
constexpr std::string_view kCheckSource = "AuditFileChecker.CheckAuditFile";

size_t KnownRule(std::string_view id) {
  const auto rule = RuleOf(id);
  if (!rule) throw MakeRunTimeError(RunTimeError::kInvalidCall, id);
  return *rule;
}

}  // namespace

struct AuditFileChecker::State {
  std::string file_name;
  CheckSettings settings;
  zevo::Language language = zevo::Language::kPortuguese;
  bool checking = false;
  std::atomic<bool> abort_requested = false;
  CheckVerdict verdict = CheckVerdict::kNotJudged;
  std::vector<FindingCount> counts;
  int64_t counted = 0;  // in all of them
  std::array<int64_t, kEntityKinds> records{};
  std::atomic<uint64_t> bytes_read = 0;
};

/// One check of one file.
class AuditFileChecker::Run {
 public:
  explicit Run(AuditFileChecker& owner) : owner_(owner), state_(*owner.state_) {}

  void Judge() {
    EntityScanner scanner(scanned_);
    try {
      scanner.Open(kCheckSource);
    } catch (const Error& error) {
      // Of a root whose tag is broken the parser tells.
      if (scanner.RefusedAs() && error.Number() < 0) TellVersion(*scanner.RefusedAs());
      throw;
    }
    scanned_.RequireRewind();
    const SchemaSource source = OptionsMapping::OfThisThread().HeldSchema(kCheckSource);
    const CompiledSchema schema(source, kNamespace, kCheckSource);
    SchemaValidator validator(schema);
    const std::optional<XmlProblem> first = FirstProblem(validator);
    scanned_.RequireRewind();
    if (first && first->fault == XmlProblem::Fault::kSchema) Raise(first, kCheckSource);
    const bool violated = first && first->fault == XmlProblem::Fault::kInvalid;

    findings_.emplace(state_.settings, owner_.Found, violated);
    if (violated) StartDiagnosis(source);
    FileCheck check(state_.settings, *findings_);
    while (ScannedEntity* const entity = scanner.Next(kCheckSource)) {
      state_.bytes_read = scanner.BytesRead();
      RequireNoAbort();
      if (diagnosis_) DiagnoseTo(scanner.Pieces());
      check.Judge(*entity);
      ++state_.records[static_cast<size_t>(entity->Kind())];
      KeepCounts();
    }
    state_.bytes_read = scanner.BytesRead();
    while (diagnosis_ && diagnosis_->Feed()) {
    }
    if (diagnosis_) Raise(diagnosis_->Result().problem, kCheckSource);
    // What stops the validator stops the scanner too; if it does not, nothing is certain.
    if (first && !violated) Raise(first, kCheckSource);
    if (violated) TellTheRest(validator);
    check.End();
    KeepCounts();
    state_.verdict = findings_->Verdict();
  }

 private:
  void RequireNoAbort() const { owner_.Require(!state_.abort_requested, Message::kReadingAborted, kCheckMember); }

  // What a pass does each time it has read more. The scan itself tells how far the rules have come.
  bool Watch(int64_t bytes_read) {
    if (!findings_) state_.bytes_read = static_cast<uint64_t>(bytes_read);
    RequireNoAbort();
    owner_.Require(!owner_.Progress || owner_.Progress(bytes_read), Message::kReadingAborted, kCheckMember);
    return true;
  }

  std::optional<XmlProblem> FirstProblem(SchemaValidator& validator) {
    RepeatedInput input(scanned_, [this](int64_t bytes_read) { return Watch(bytes_read); });
    std::optional<XmlProblem> first;
    validator.Validate(input, [&](const XmlProblem& problem) {
      first = problem;
      return false;
    });
    return first;
  }

  void TellVersion(const EntityScanner::Refused& refused) {
    findings_.emplace(state_.settings, owner_.Found, false);
    findings_->Tell(VersionRule(), VersionFinding(refused.found, refused.place, refused.another_version));
    KeepCounts();
  }

  void KeepCounts() {
    if (findings_->Total() == state_.counted) return;
    state_.counted = findings_->Total();
    std::ranges::copy(findings_->Counts(), state_.counts.begin());
  }

  void StartDiagnosis(const SchemaSource& source) {
    tables_ = SchemaTables::Of(source.Read());
    if (!tables_) return;
    diagnosis_.emplace(*tables_, records_, [&](SchemaViolation&& told) {
      findings_->Tell(ViolationOf(std::move(told)));
      return true;
    });
    diagnosis_->Begin(diagnosed_);
  }

  // Whatever is wrong in an entity that the scan has through with so many pieces of the file is told then.
  void DiagnoseTo(uint64_t pieces) {
    while (diagnosis_->Pieces() < pieces && diagnosis_->Feed()) {
    }
  }

  // Of what the tables cannot say, libxml2's own violations.
  void TellTheRest(SchemaValidator& validator) {
    std::optional<FilePlace> from;
    if (!diagnosis_ || diagnosis_->Result().found == 0) from.emplace();
    if (diagnosis_ && diagnosis_->Result().left_off) from = diagnosis_->Result().left_off;
    if (!from) return;
    RepeatedInput input(scanned_, [this](int64_t bytes_read) { return Watch(bytes_read); });
    validator.Validate(input, [&](const XmlProblem& problem) {
      if (problem.fault != XmlProblem::Fault::kInvalid) return false;
      if (!IsBefore(problem.place, *from)) findings_->Tell(ViolationOf(problem));
      return true;
    });
  }

  AuditFileChecker& owner_;
  State& state_;
  RepeatedInput scanned_{state_.file_name, [this](int64_t bytes_read) { return Watch(bytes_read); }};
  RepeatedInput diagnosed_{scanned_, {}};
  std::optional<Findings> findings_;
  const std::vector<RecordElement> records_ = AuditRecords();
  std::unique_ptr<const SchemaTables> tables_;
  std::optional<SchemaDiagnosis> diagnosis_;
};

AuditFileChecker::AuditFileChecker()
    : Facade("AuditFileChecker", OwnDescription::kWithoutMessageOrLonger), state_(std::make_unique<State>()) {
  for (const RuleInfo& rule : Rules()) state_->settings.severities.push_back(rule.severity);
  state_->counts.resize(Rules().size());
}
AuditFileChecker::~AuditFileChecker() = default;

const std::string& AuditFileChecker::AuditFileName() const { return state_->file_name; }
void AuditFileChecker::set_AuditFileName(std::string_view value) { state_->file_name = value; }
std::string AuditFileChecker::AuditFileSchema() const { return Options().SchemaLocation(); }
void AuditFileChecker::set_AuditFileSchema(std::string_view value) { Options().set_SchemaLocation(value); }

void AuditFileChecker::AddPublicKey(std::string_view pem, int version) {
  const auto key = PublicKey::FromPem(pem);
  if (!key) throw MakeRunTimeError(RunTimeError::kInvalidCall, "chave pública");
  state_->settings.public_keys.Add(version, *key);
}

Severity AuditFileChecker::Severity(std::string_view rule) const {
  return state_->settings.severities[KnownRule(rule)];
}
void AuditFileChecker::set_Severity(std::string_view rule, zevo::Severity value) {
  state_->settings.severities[KnownRule(rule)] = value;
}
Language AuditFileChecker::Language() const { return state_->language; }
void AuditFileChecker::set_Language(zevo::Language value) { state_->language = value; }
int AuditFileChecker::MostFindings() const { return static_cast<int>(state_->settings.most_of_a_rule); }
void AuditFileChecker::set_MostFindings(int of_a_rule) {
  if (of_a_rule < 0) throw MakeRunTimeError(RunTimeError::kInvalidCall);
  state_->settings.most_of_a_rule = static_cast<size_t>(of_a_rule);
}

bool AuditFileChecker::CheckAuditFile() {
  if (state_->checking) return Attempt([&] { Require(false, Message::kAlreadyStarted, kCheckMember); });
  state_->checking = true;
  state_->abort_requested = false;
  state_->verdict = CheckVerdict::kNotJudged;
  state_->bytes_read = 0;
  std::ranges::fill(state_->counts, FindingCount());
  state_->counted = 0;
  state_->records = {};
  const bool judged = Attempt([&] {
    RequireFile(state_->file_name, Input::kFileOrStandardInput, kCheckMember);
    Run(*this).Judge();
  });
  state_->checking = false;
  return judged;
}

void AuditFileChecker::AbortChecking() { state_->abort_requested = true; }
CheckVerdict AuditFileChecker::Verdict() const { return state_->verdict; }
int64_t AuditFileChecker::CountOf(std::string_view rule) const { return state_->counts[KnownRule(rule)].all; }
int64_t AuditFileChecker::CountOf(std::string_view rule, zevo::Severity severity) const {
  return state_->counts[KnownRule(rule)].of_severity[static_cast<size_t>(severity)];
}
int64_t AuditFileChecker::RecordsOf(EntityKind kind) const { return state_->records[static_cast<size_t>(kind)]; }
std::string AuditFileChecker::MessageOf(const Finding& finding) const { return Describe(finding, state_->language); }
uint64_t AuditFileChecker::BytesRead() const { return state_->bytes_read; }
std::span<const RuleInfo> AuditFileChecker::Rules() { return AllRuleInfos(); }

}  // namespace zevo
