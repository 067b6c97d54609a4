// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_BENCH_ELEMENTPOOL_H_
#define ZEVO_BENCH_ELEMENTPOOL_H_

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "bench/Competitor.h"
#include "bench/Tally.h"

namespace zevo::bench {

/// The elements of the pool file, for the competitors that know no records: parsed once.
class ElementPool {
 public:
  explicit ElementPool(const std::string& file) : document_(xmlReadFile(file.c_str(), nullptr, 0), &xmlFreeDoc) {
    Require(document_ != nullptr, "no pool");
    Collect(xmlDocGetRootElement(document_.get()));
    Require(transactions_.size() == kPool && invoices_.size() == kPool, "not the pool");
  }

  const xmlNode* TransactionAt(int64_t number) const { return transactions_[Place(number)]; }
  const xmlNode* InvoiceAt(int64_t number) const { return invoices_[Place(number)]; }

 private:
  static size_t Place(int64_t number) { return static_cast<size_t>(number % kPool); }

  void Collect(const xmlNode* parent) {
    for (const xmlNode* child = parent->children; child != nullptr; child = child->next) {
      if (xmlStrEqual(child->name, BAD_CAST "Transaction")) transactions_.push_back(child);
      if (xmlStrEqual(child->name, BAD_CAST "Invoice")) invoices_.push_back(child);
      Collect(child);
    }
  }

  std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document_;
  std::vector<const xmlNode*> transactions_;
  std::vector<const xmlNode*> invoices_;
};

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_ELEMENTPOOL_H_
