// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_CHECK_SAMPLEYEAR_H_
#define ZEVO_TESTS_CHECK_SAMPLEYEAR_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::testing {

/// The file of a retailer's year that nothing is wrong with. It is that of tools/generate, with a ledger that has
/// opening balances, fewer customers and products, and more kinds of documents: of every eight invoices one is
/// cancelled, one has another currency, one is a credit note for the one before, one has orders, shipping and two
/// rates, and one has an exempt line. The same every time for a seed.
class SampleYear {
 public:
  struct Document {
    std::string number;
    std::string_view type;
    bool cancelled = false;
    bool credited = false;  // by the next one
    bool shipped = false;   // with an order in its second line
    bool foreign = false;   // with a currency
    bool exempt = false;    // its third line
    int lines = 0;

    bool IsLiveInvoice() const { return !cancelled && type == "FT"; }
  };

  /// Of so many documents; less than eight of them do not have all that there is.
  SampleYear(int documents, uint64_t seed);

  const std::string& Text() const { return text_; }
  /// In the order of the file. The transaction of each is at the same place among the transactions.
  const std::vector<Document>& Documents() const { return documents_; }

 private:
  std::string text_;
  std::vector<Document> documents_;
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_CHECK_SAMPLEYEAR_H_
