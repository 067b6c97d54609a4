// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/FileRules.h>

#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zevo {
namespace {

constexpr std::string_view kVersionRead = "1.01_01";

constexpr RuleSentence kOtherVersionOfFile{Severity::kError,
                                           {"o ficheiro é da versão {found}; só a versão {expected} é verificada",
                                            "the file is of version {found}; only version {expected} is checked"}};
constexpr RuleSentence kNoAuditFile{Severity::kError,
                                    {"o ficheiro não é um ficheiro de auditoria: começa por \"{found}\"",
                                     "the file is no audit file: it begins with \"{found}\""}};
constexpr RuleSentence kVersionText{Severity::kWarning,
                                    {"a versão é \"{found}\", e devia ser exatamente \"{expected}\"",
                                     R"(the version is "{found}" and should be exactly "{expected}")"}};

void JudgeVersion(const HeaderFacts& header, Judgement& judgement) {
  if (header.version.Missing() || *header.version == kVersionRead) return;
  judgement.Tell(kVersionText, header, header.version, {.expected = std::string(kVersionRead)});
}

constexpr Rule kFileRules[] = {
    {.info =
         {"READ",
          Severity::kError,
          {"Valores que se podem ler", "Values that can be read"},
          {"Onde se espera um número, uma data ou um código está um. O que não se pode ler é dito só por esta regra, "
           "e não entra em mais nenhuma verificação.",
           "Where a number, a date or a code is due there is one. What cannot be read is told by this rule alone, "
           "and takes part in no other."},
          "Portaria 1192/2009"}},
    {.info = {"SCHEMA",
              Severity::kError,
              {"Estrutura do ficheiro", "Structure of the file"},
              {"O ficheiro está de acordo com o esquema XML da versão 1.01_01.",
               "The file agrees with the XML schema of version 1.01_01."},
              "Portaria 1192/2009"}},
    {.info =
         {"VERSION",
          Severity::kError,
          {"Versão do ficheiro", "Version of the file"},
          {"O ficheiro é um ficheiro de auditoria SAF-T (PT) da versão 1.01_01. De outro nada mais é verificado. Só "
           "aviso: AuditFileVersion não é exatamente 1.01_01, mas o espaço de nomes é o certo.",
           "The file is a SAF-T (PT) audit file of version 1.01_01. Of another nothing else is judged. A warning "
           "only: AuditFileVersion is not exactly 1.01_01 though the namespace is right."},
          "Portaria 1192/2009"},
     .stands_for_schema = true,
     .header = JudgeVersion},
};

// Numbers of libxml2.
constexpr int32_t kTypeViolation = 1824;
constexpr int32_t kPatternViolation = 1839;
constexpr int32_t kCodeViolation = 1840;
constexpr int32_t kKeyViolation = 1877;

std::string_view NameAt(std::string_view path) {
  const std::string_view step = path.substr(path.rfind('/') + 1);
  return step.substr(0, step.find('['));
}

}  // namespace

std::span<const Rule> FileRules() { return kFileRules; }

const ViolationRules& RulesOfViolations() {
  static const ViolationRules kRules{*RuleOf("READ"), *RuleOf("SCHEMA"), *RuleOf("KEY-REF")};
  return kRules;
}

bool IsUnreadable(const Violation& violation) {
  constexpr std::array<std::string_view, 4> kPatternsOfCodes{"Country", "CurrencyCode", "TaxCode", "TaxCountryRegion"};
  if (violation.number == kTypeViolation || violation.number == kCodeViolation) return !violation.path.empty();
  return violation.number == kPatternViolation &&
         std::ranges::find(kPatternsOfCodes, NameAt(violation.path)) != kPatternsOfCodes.end();
}

bool IsDangling(const Violation& violation) {
  return violation.number == kKeyViolation && !violation.path.empty() && !violation.allowed.empty() &&
         violation.allowed != NameAt(violation.path);
}

Finding FindingOf(const Violation& violation) {
  Finding finding;
  finding.severity = Severity::kError;
  finding.kind = violation.kind;
  finding.key = violation.key;
  finding.path = violation.path;
  finding.place = violation.place;
  finding.found = violation.value;
  finding.expected = violation.allowed;
  finding.wording.violation = violation.number;
  return finding;
}

Finding VersionFinding(std::string found, const FilePlace& place, bool anotherVersion) {
  Finding finding;
  finding.severity = Severity::kError;
  finding.path = "/AuditFile";
  finding.place = place;
  finding.found = std::move(found);
  if (anotherVersion) finding.expected = kVersionRead;
  finding.wording.sentence = anotherVersion ? &kOtherVersionOfFile.text : &kNoAuditFile.text;
  return finding;
}

size_t VersionRule() {
  static const size_t kRule = *RuleOf("VERSION");
  return kRule;
}

}  // namespace zevo
