// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>

#include <string>

// What tells the entities of a file apart, and what refers to it.

namespace zevo {
namespace {

// KEY-DUP

constexpr RuleSentence kRepeatedKey{
    Severity::kError,
    {"{expected} {found} está repetido: já identifica outro registo do ficheiro",
     "{expected} {found} is repeated: it already identifies another record of the file"}};

void JudgeKey(const EntityFacts& facts, Judgement& judgement) {
  if (!judgement.File().Keys().IsRepeated()) return;
  judgement.Tell(kRepeatedKey, facts, facts.key, {.expected = std::string(KeyOf(facts.Kind()))});
}

// KEY-REF

constexpr RuleSentence kUnknownCustomer{Severity::kError,
                                        {"o cliente {found} não está entre os clientes do ficheiro",
                                         "customer {found} is not among the customers of the file"}};
constexpr RuleSentence kUnknownSupplier{Severity::kError,
                                        {"o fornecedor {found} não está entre os fornecedores do ficheiro",
                                         "supplier {found} is not among the suppliers of the file"}};
constexpr RuleSentence kUnknownProduct{Severity::kError,
                                       {"o produto {found} não está entre os produtos do ficheiro",
                                        "product {found} is not among the products of the file"}};

void JudgeReferences(Judgement& judgement) {
  struct Row {
    FileKeys::Use use;
    const RuleSentence* sentence;
  };
  constexpr Row kRows[] = {{FileKeys::Use::kCustomer, &kUnknownCustomer},
                           {FileKeys::Use::kSupplier, &kUnknownSupplier},
                           {FileKeys::Use::kProduct, &kUnknownProduct}};
  for (const Row& row : kRows) {
    const auto dangling = judgement.File().Keys().DanglingOf(row.use);
    for (const KeptElement* kept : dangling.kept) judgement.Tell(*row.sentence, *kept);
    judgement.TellMore(*row.sentence, dangling.more);
  }
}

constexpr Rule kKeyRules[] = {
    {.info = {"KEY-DUP",
              Severity::kError,
              {"Identificações repetidas", "Repeated identifications"},
              {"CustomerID, SupplierID, ProductCode, AccountID, JournalID, TransactionID e InvoiceNo aparecem uma só "
               "vez entre os seus iguais.",
               "CustomerID, SupplierID, ProductCode, AccountID, JournalID, TransactionID and InvoiceNo appear only "
               "once among their like."},
              "Portaria 1192/2009"},
     .entity = JudgeKey},
    {.info = {"KEY-REF",
              Severity::kError,
              {"Clientes, fornecedores e produtos usados", "Customers, suppliers and products used"},
              {"Os CustomerID, SupplierID e ProductCode que se usam nos movimentos e documentos existem no ficheiro.",
               "The CustomerID, SupplierID and ProductCode that ledger entries and documents use are in the file."},
              "Portaria 1192/2009"},
     .at_end = JudgeReferences},
};

}  // namespace

std::span<const Rule> KeyRules() { return kKeyRules; }

}  // namespace zevo
