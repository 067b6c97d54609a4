// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_CHECK_FACTSTEST_H_
#define ZEVO_TESTS_CHECK_FACTSTEST_H_

#include <gtest/gtest.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/dal/EntityScanner.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {

/// Reads the facts of entities from small files.
class FactsTest : public ::testing::Test {
 protected:
  /// Gives the facts of each entity of a kind to a function. They are valid while it runs.
  template <class Facts, class Take>
  void ForEach(EntityKind kind, std::string_view document, Take take) {
    EntityScanner scanner(folder_.Write("file.xml", document));
    scanner.Open("Test");
    Facts facts;
    while (const ScannedEntity* const entity = scanner.Next("Test")) {
      if (entity->Kind() != kind) continue;
      TakeFacts(*entity, facts);
      take(facts);
    }
  }
  /// The same for invoices, by what each has inside.
  template <class Take>
  void ForEachInvoice(const std::vector<std::string>& contents, Take take) {
    ForEach<InvoiceFacts>(EntityKind::kInvoice, FileOf("SourceDocuments", "SalesInvoices", "Invoice", contents), take);
  }
  template <class Take>
  void ForInvoice(std::string_view content, Take take) {
    ForEachInvoice({std::string(content)}, take);
  }
  template <class Take>
  void ForEachTransaction(const std::vector<std::string>& contents, Take take) {
    ForEach<TransactionFacts>(EntityKind::kTransaction,
                              FileOf("GeneralLedgerEntries", "Journal", "Transaction", contents), take);
  }
  /// Records in master files, which are a level less deep.
  template <class Facts, class Take>
  void ForEachMaster(EntityKind kind, const std::vector<std::string>& contents, Take take) {
    ForEach<Facts>(kind, FileOf("MasterFiles", "", NameOf(kind), contents), take);
  }

  TemporaryFolder folder_;

 private:
  static std::string FileOf(std::string_view part, std::string_view section, std::string_view entity,
                            const std::vector<std::string>& contents) {
    std::string inside;
    for (const std::string& content : contents) inside += Element(entity, content) + "\n";
    return Element("AuditFile", Element(part, section.empty() ? inside : Element(section, inside)));
  }
  static std::string Element(std::string_view name, std::string_view content) {
    std::string element("<");
    element.append(name).append(">").append(content).append("</").append(name).append(">");
    return element;
  }
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_CHECK_FACTSTEST_H_
