// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DocumentReferences.h>

#include <zevo/check/AbsoluteValue.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zevo {
namespace {

constexpr int kCreditDecimals = 6;

/// The number that a reference has, in the spelling of the file.
class ReferredNumber {
 public:
  ReferredNumber(std::string_view reference, const DocumentTable& documents)
      : number_(DocumentNumber::FromText(TrimWhiteSpace(reference))) {
    if (!number_ || documents.FindSeries(number_->series)) return;
    capitals_ = TrimWhiteSpace(reference);
    for (size_t i = 0; i < number_->code.size(); ++i) {
      if (capitals_[i] >= 'a' && capitals_[i] <= 'z') capitals_[i] = static_cast<char>(capitals_[i] - 'a' + 'A');
    }
    number_ = DocumentNumber::FromText(capitals_);
  }
  ReferredNumber(const ReferredNumber&) = delete;
  ReferredNumber& operator=(const ReferredNumber&) = delete;

  const std::optional<DocumentNumber>& Get() const { return number_; }

 private:
  std::string capitals_;
  std::optional<DocumentNumber> number_;
};

// A correction of a later document is told as such; nothing follows from it.
bool Counts(const DocumentTable::Document& corrected, const std::optional<CalendarDate>& date) {
  const auto of_corrected = corrected.Date();
  return !date || !of_corrected || *of_corrected <= *date;
}

}  // namespace

KeptElement DocumentReferences::Waiting::Kept() const {
  return {.kind = EntityKind::kInvoice,
          .key = key,
          .path = "Line[" + std::to_string(line) + "]/References/CreditNote/Reference",
          .place = place,
          .text = text};
}

// The references of a document, in the order of the lines that have them first.
void DocumentReferences::TakeShares(const InvoiceFacts& facts) {
  shares_.clear();
  for (const InvoiceLineFacts& line : facts.lines) {
    const TextFact& reference = line.references.credit_note.reference;
    const std::string_view text = reference.Missing() ? std::string_view() : TrimWhiteSpace(*reference);
    if (text.empty()) continue;
    const bool is_next = shares_.empty() || shares_.back().text != text;
    if (is_next) shares_.push_back({.text = text, .line = &line, .debit = {}, .credit = {}});
    Share& share = shares_.back();
    share.debit.Add(line.debit);
    share.credit.Add(line.credit);
    if (line.debit.Missing() && line.credit.Missing()) share.debit.known = false;
  }
  if (shares_.size() < 2) return;
  std::ranges::stable_sort(shares_, {}, &Share::text);
  size_t last = 0;
  for (size_t i = 1; i < shares_.size(); ++i) {
    if (shares_[i].text == shares_[last].text) {
      shares_[last].debit += shares_[i].debit;
      shares_[last].credit += shares_[i].credit;
    } else if (++last != i) {
      shares_[last] = std::move(shares_[i]);
    }
  }
  shares_.resize(last + 1);
  std::ranges::sort(shares_, {}, &Share::line);
}

// Of a document that refers to one other only, all is a correction of that, whatever lines have the reference. Of one
// that refers to several, each line corrects its own.
DocumentReferences::Credit DocumentReferences::CreditOf(const InvoiceFacts& facts, const Share& share) const {
  Credit credit;
  std::optional<int64_t> net;
  if (shares_.size() == 1) {
    if (facts.totals.net.Read()) net = AbsoluteValue(*facts.totals.net).InUnits(kCreditDecimals);
  } else if (share.debit.known && share.credit.known) {
    net = AbsoluteValue(share.debit.sum - share.credit.sum).InUnits(kCreditDecimals);
    credit.inexact = static_cast<uint32_t>(share.debit.inexact + share.credit.inexact) & 0x7FFFFFFFU;
  }
  if (net) {
    credit.net = *net;
    credit.known = 1;
  }
  return credit;
}

void DocumentReferences::Take(const InvoiceFacts& facts, const DocumentTable& documents) {
  found_.clear();
  all_numbered_ = all_numbered_ && documents.IsNumbered();
  if (!facts.IsDebitDocument()) return;
  TakeShares(facts);
  const auto date = facts.date.Read() ? std::optional(*facts.date) : std::nullopt;
  for (const Share& share : shares_) {
    const TextFact& reference = share.line->references.credit_note.reference;
    if (!facts.number.Missing() && share.text == TrimWhiteSpace(*facts.number)) {
      found_.push_back({&reference, std::nullopt});
      continue;
    }
    const ReferredNumber number(share.text, documents);
    if (!number.Get()) continue;
    Credit credit = CreditOf(facts, share);
    if (const auto document = documents.Find(*number.Get())) {
      found_.push_back({&reference, document});
      credit.document = *document;
      if (facts.IsLive() && Counts(documents[*document], date)) credits_.push_back(credit);
      continue;
    }
    Waiting& waiting = waiting_.emplace_back();
    waiting.key = *facts.key;
    waiting.text = *reference;
    waiting.place = facts.entity->PlaceOf(reference.element);
    waiting.line = static_cast<uint32_t>(share.line - facts.lines.data() + 1);
    waiting.credit_note = *facts.type == "NC";
    waiting.state = DocumentTable::StateOf(facts);
    waiting.date = date;
    waiting.credit = credit;
  }
}

std::optional<uint32_t> DocumentReferences::Find(std::string_view reference, const DocumentTable& documents) {
  const ReferredNumber number(reference, documents);
  return number.Get() ? documents.Find(*number.Get()) : std::nullopt;
}

std::optional<uint32_t> DocumentReferences::Find(const Waiting& waiting, const DocumentTable& documents) {
  return documents.Find(*ReferredNumber(waiting.text, documents).Get());
}

bool DocumentReferences::IsExpected(const Waiting& waiting, const DocumentTable& documents) const {
  const ReferredNumber number(waiting.text, documents);
  return all_numbered_ && documents.FindSeries(number.Get()->series) && !documents.IsBelowSeries(*number.Get());
}

std::vector<DocumentReferences::Excess> DocumentReferences::Excesses(const DocumentTable& documents) const {
  std::vector<Credit> credits(credits_.begin(), credits_.end());
  for (const Waiting& waiting : waiting_) {
    if (waiting.state != DocumentTable::State::kLive) continue;
    const auto document = Find(waiting, documents);
    if (!document || !Counts(documents[*document], waiting.date)) continue;
    credits.push_back(waiting.credit);
    credits.back().document = *document;
  }
  std::ranges::sort(credits, {}, &Credit::document);
  std::vector<Excess> excesses;
  for (auto from = credits.begin(); from != credits.end();) {
    const uint32_t document = from->document;
    AmountSum sum;
    for (; from != credits.end() && from->document == document; ++from) {
      sum.sum += Decimal::OfUnits(from->net, kCreditDecimals);
      sum.inexact += from->inexact;
      sum.known = sum.known && from->known != 0;
    }
    const DocumentTable::Document& corrected = documents[document];
    if (!sum.known || !corrected.Net() || corrected.State() == DocumentTable::State::kCancelled) continue;
    const Decimal net = AbsoluteValue(*corrected.Net());
    if (sum.sum > net && !sum.Allows(net)) excesses.push_back({document, net, sum.sum});
  }
  return excesses;
}

}  // namespace zevo
