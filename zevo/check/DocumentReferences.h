// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_DOCUMENTREFERENCES_H_
#define ZEVO_CHECK_DOCUMENTREFERENCES_H_

#include <zevo/FilePlace.h>
#include <zevo/check/AmountSum.h>
#include <zevo/check/CalendarDate.h>
#include <zevo/check/DocumentTable.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/check/KeptElement.h>
#include <zevo/model/Decimal.h>

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// Which documents the credit notes of a file, and the other debit documents, refer to. A reference is looked up among
/// the documents before it at once; one to no document before it waits for the end of the file, in 140 bytes.
/// What is found does not depend on the order of the file.
///
/// A reference has the form of an InvoiceNo, perhaps with blanks around it and the internal code in small letters. Of
/// another form, such as "1234", it is left alone: documents written by hand, and printed ones, have such numbers.
class DocumentReferences {
 public:
  /// A reference of the document that was taken last. Those that are the same are one.
  struct Found {
    const TextFact* reference;  ///< of the line that has it first
    /// Nothing where the document refers to itself.
    std::optional<uint32_t> document;
  };

  /// What a debit document takes off the net of the document that it refers to.
  struct Credit {
    int64_t net = 0;  // in millionths
    uint32_t document = 0;
    uint32_t inexact : 31 = 0;  // amounts of more than two decimals in it
    uint32_t known : 1 = 0;
  };

  /// A reference to no document before it.
  struct Waiting {
    KeptElement Kept() const;

    std::string key;  ///< of the document that refers
    std::string text;
    FilePlace place;
    uint32_t line = 0;  ///< from 1 on
    bool credit_note = false;
    DocumentTable::State state = DocumentTable::State::kLive;
    std::optional<CalendarDate> date;  ///< of the document that refers
    Credit credit;
  };

  /// A document that others correct by more than its net.
  struct Excess {
    uint32_t document;
    Decimal net;
    Decimal corrected;
  };

  /// The documents have taken it in before.
  void Take(const InvoiceFacts& facts, const DocumentTable& documents);

  const std::vector<Found>& OfThis() const { return found_; }
  const std::deque<Waiting>& AllWaiting() const { return waiting_; }

  // At the end of the file.

  /// The document that a text refers to, of those that the table has by then.
  static std::optional<uint32_t> Find(std::string_view reference, const DocumentTable& documents);
  /// The document that a reference is to.
  static std::optional<uint32_t> Find(const Waiting& waiting, const DocumentTable& documents);
  /// Whether the file ought to have the document: it has the series, from a lower number on. Nothing is expected where
  /// some document has no number: it may be that one.
  bool IsExpected(const Waiting& waiting, const DocumentTable& documents) const;
  /// In the order of the table. Cancelled documents, and those of which something is not known, are left out; so are
  /// corrections of a later document.
  std::vector<Excess> Excesses(const DocumentTable& documents) const;

 private:
  // What the lines with a reference are of the document.
  struct Share {
    std::string_view text;
    const InvoiceLineFacts* line;
    AmountSum debit;
    AmountSum credit;
  };

  void TakeShares(const InvoiceFacts& facts);
  Credit CreditOf(const InvoiceFacts& facts, const Share& share) const;

  std::vector<Share> shares_;  // of the document that was taken last
  std::vector<Found> found_;
  std::deque<Credit> credits_;
  std::deque<Waiting> waiting_;
  bool all_numbered_ = true;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_DOCUMENTREFERENCES_H_
