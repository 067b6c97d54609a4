// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <iostream>
#include <string_view>

// Writes docs/rules.md.

namespace {

std::string_view NameOf(zevo::Severity severity) {
  switch (severity) {
    case zevo::Severity::kError:
      return "erro · *error*";
    case zevo::Severity::kWarning:
      return "aviso · *warning*";
    case zevo::Severity::kInformation:
      return "informação · *information*";
    case zevo::Severity::kOff:
      break;
  }
  return "desligada · *off*";
}

}  // namespace

int main() {
  std::cout
      << "# Regras · *Rules*\n\n"
         "O que `AuditFileChecker` verifica num ficheiro. Cada regra tem a sua gravidade, que o programa pode mudar; o "
         "que uma regra diz\nser só aviso ou só informação nunca é mais do que isso. Este ficheiro é escrito a partir "
         "das tabelas de `zevo/check`.\n\n"
         "*What `AuditFileChecker` looks at in a file. Each rule has its severity, which a program may change; what a "
         "rule says is a\nwarning only, or information only, is never more. This file is written from the tables of "
         "`zevo/check`.*\n";
  for (const zevo::RuleInfo& rule : zevo::AuditFileChecker::Rules()) {
    std::cout << "\n## " << rule.id << "\n\n**" << rule.title[0] << "** · *" << rule.title[1] << "* — "
              << NameOf(rule.severity);
    if (!rule.source.empty()) std::cout << " — " << rule.source;
    if (!rule.since.empty()) std::cout << ", desde · *since* " << rule.since;
    if (!rule.until.empty()) std::cout << ", até · *until* " << rule.until;
    std::cout << "\n\n" << rule.explanation[0] << "\n\n*" << rule.explanation[1] << "*\n";
  }
}
