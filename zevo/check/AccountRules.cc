// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DanglingUses.h>
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>

#include <string>

// The accounts, and what refers to them.

namespace zevo {
namespace {

KeptElement KeptAccount(const AccountPlan::Account& account) {
  return {.kind = EntityKind::kGeneralLedger,
          .key = account.id,
          .path = "AccountID",
          .place = account.place,
          .text = account.id};
}

// ACC-PARENT

constexpr RuleSentence kNoParent{
    Severity::kWarning,
    {"não tem conta agregadora: nenhuma conta do ficheiro, de dois ou mais algarismos, é o início dela",
     "has no integrating account: no account of the file, of two digits or more, is its beginning"}};

void JudgeParents(Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  if (!file.Keys().IsComplete(EntityKind::kGeneralLedger)) return;
  for (const AccountPlan::Account* account : file.Accounts().WithoutParent()) {
    judgement.Tell(kNoParent, KeptAccount(*account), {.expected = account->id.substr(0, account->id.size() - 1)});
  }
}

// ACC-REF

constexpr RuleSentence kUnknownAccount{Severity::kError,
                                       {"a conta {found} não está no plano de contas do ficheiro",
                                        "account {found} is not in the file's chart of accounts"}};
constexpr RuleSentence kNoAccounts{
    Severity::kError,
    {"a conta {found} não está no ficheiro, que não tem plano de contas (linhas com contas: {difference})",
     "account {found} is not in the file, which has no chart of accounts (lines with accounts: {difference})"}};
constexpr RuleSentence kUnknownAccountOfParty{
    Severity::kWarning,
    {"a conta {found} não está no plano de contas do ficheiro; sem conta própria devia ser \"Desconhecido\"",
     "account {found} is not in the file's chart of accounts; without an account of its own it should be "
     "\"Desconhecido\""}};

void JudgeAccountsUsed(Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  if (file.HasBasis("F") || LacksMasterFiles(judgement)) return;
  Tell({FileKeys::Use::kAccountOfLine, &kUnknownAccount, &kNoAccounts}, judgement);
  // That a file has no accounts at all is not the fault of each customer.
  if (file.Accounts().IsEmpty()) return;
  const auto parties = file.Keys().DanglingOf(FileKeys::Use::kAccountOfParty);
  for (const KeptElement* kept : parties.kept) judgement.Tell(kUnknownAccountOfParty, *kept);
  judgement.TellMore(kUnknownAccountOfParty, parties.more);
}

constexpr Rule kAccountRules[] = {
    {.info =
         {"ACC-PARENT",
          Severity::kWarning,
          {"Conta agregadora", "Integrating account"},
          {"Cada conta de mais de dois algarismos tem no ficheiro uma conta, de pelo menos dois, que é o início dela.",
           "Each account of more than two digits has in the file an account, of at least two, that is its beginning."},
          "Portaria 1192/2009"},
     .at_end = JudgeParents},
    {.info = {"ACC-REF",
              Severity::kError,
              {"Contas usadas", "Accounts used"},
              {"As contas das linhas dos movimentos existem em GeneralLedger; que não há nenhuma é dito uma vez. Só "
               "aviso: também as dos clientes e "
               "fornecedores, ou são \"Desconhecido\". Na base F nada se verifica.",
               "The accounts of ledger lines are in GeneralLedger; that there are none is told once. A warning only: "
               "so are those of customers and "
               "suppliers, or they are \"Desconhecido\". With basis F nothing is judged."},
              "Portaria 1192/2009"},
     .at_end = JudgeAccountsUsed},
};

}  // namespace

std::span<const Rule> AccountRules() { return kAccountRules; }

}  // namespace zevo
