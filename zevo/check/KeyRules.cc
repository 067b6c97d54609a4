// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DanglingUses.h>
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

constexpr RuleSentence kNoCustomers{
    Severity::kError,
    {"o cliente {found} não está no ficheiro, que não tem nenhum cliente (referências a clientes: {difference})",
     "customer {found} is not in the file, which has no customers at all (references to customers: {difference})"}};
constexpr RuleSentence kNoSuppliers{
    Severity::kError,
    {"o fornecedor {found} não está no ficheiro, que não tem nenhum fornecedor (referências a fornecedores: "
     "{difference})",
     "supplier {found} is not in the file, which has no suppliers at all (references to suppliers: {difference})"}};
constexpr RuleSentence kNoProducts{
    Severity::kError,
    {"o produto {found} não está no ficheiro, que não tem nenhum produto (referências a produtos: {difference})",
     "product {found} is not in the file, which has no products at all (references to products: {difference})"}};

void JudgeReferences(Judgement& judgement) {
  if (LacksMasterFiles(judgement)) return;
  Tell({FileKeys::Use::kCustomer, &kUnknownCustomer, &kNoCustomers}, judgement);
  Tell({FileKeys::Use::kSupplier, &kUnknownSupplier, &kNoSuppliers}, judgement);
  Tell({FileKeys::Use::kProduct, &kUnknownProduct, &kNoProducts}, judgement);
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
              {"Os CustomerID, SupplierID e ProductCode que se usam nos movimentos e documentos existem no ficheiro. "
               "Que não "
               "há nenhum cliente, fornecedor ou produto é dito uma vez.",
               "The CustomerID, SupplierID and ProductCode that ledger entries and documents use are in the file. That "
               "it has no customers, suppliers or products at all is told once."},
              "Portaria 1192/2009"},
     .at_end = JudgeReferences},
};

}  // namespace

std::span<const Rule> KeyRules() { return kKeyRules; }

}  // namespace zevo
