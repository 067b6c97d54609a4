// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/HashChain.h>

#include <zevo/check/SignedText.h>
#include <zevo/platform/Base64.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <utility>

namespace zevo {
namespace {

// The text of an element that is a date, as it stands there.
template <class T>
std::string_view DateAsWritten(const EntityFacts& facts, const Fact<T>& fact) {
  return TrimWhiteSpace(facts.entity->TextOf(fact.element));
}

// Whether what is signed can be read.
bool IsSignedTextKnown(const InvoiceFacts& facts) {
  return facts.date.Read() && facts.entry_date.Read() && facts.number.Read() && facts.totals.gross.Read();
}

}  // namespace

std::string_view HashChain::Kept::Signature() const { return {bytes.get(), kSignatureSize}; }

std::string_view HashChain::Kept::Text() const { return {bytes.get() + kSignatureSize, text_size}; }

HashChain::Kept HashChain::KeptOf(const InvoiceFacts& facts) {
  Kept kept{.form = facts.hash_form};
  if (kept.form != HashForm::kSignature) return kept;
  const HashControl control = HashControl::FromText(facts.hash_control.value);
  kept.version = control.version;
  kept.waits = control.form != HashControl::Form::kOtherText && IsSignedTextKnown(facts);
  std::string bytes = SignatureBytes(*facts.hash);
  if (kept.waits) {
    bytes += SignedText(DateAsWritten(facts, facts.date), DateAsWritten(facts, facts.entry_date), *facts.number,
                        *facts.totals.gross);
  }
  kept.text_size = static_cast<uint32_t>(bytes.size() - kSignatureSize);
  kept.bytes = std::make_unique<char[]>(bytes.size());
  std::ranges::copy(bytes, kept.bytes.get());
  return kept;
}

void HashChain::Take(const InvoiceFacts& facts, const DocumentTable& documents) {
  ready_count_ = 0;
  // Of documents with the same number the first counts.
  if (!documents.IsNumbered() || documents.IsRepeated() || documents.OtherSpelling()) return;
  const uint32_t document = documents.Count() - 1;
  const auto before = documents.Neighbour(document, -1);
  const auto behind = documents.Neighbour(document, 1);
  Kept kept = KeptOf(facts);
  kept.awaited = !behind;
  if (before) {
    if (const auto found = kept_.find(*before); found != kept_.end()) {
      AddReady(document, kept, found->second);
      found->second.awaited = false;
      Release(found);
    }
    kept.waits = false;
  }
  if (behind) {
    if (const auto found = kept_.find(*behind); found != kept_.end()) {
      AddReady(*behind, found->second, kept);
      found->second.waits = false;
      Release(found);
    }
  }
  if (kept.waits || kept.awaited) kept_.emplace(document, std::move(kept));
}

void HashChain::Release(KeptDocuments::iterator kept) {
  if (!kept->second.waits && !kept->second.awaited) kept_.erase(kept);
}

void HashChain::AddReady(uint32_t document, const Kept& kept, const Kept& before) {
  if (!kept.waits || before.form == HashForm::kNone) return;
  Link& link = ready_[ready_count_++];
  Fill(link, document, kept);
  link.after_unsigned = before.form == HashForm::kUnsigned;
  link.previous = link.after_unsigned ? "0" : Base64Of(before.Signature());
}

void HashChain::Fill(Link& link, uint32_t document, const Kept& kept) {
  link.document = document;
  link.version = kept.version;
  link.text = kept.Text();
  link.signature = kept.Signature();
}

std::vector<uint32_t> HashChain::OpenDocuments() const {
  std::vector<uint32_t> open;
  for (const auto& [document, kept] : kept_) {
    if (kept.waits) open.push_back(document);
  }
  std::ranges::sort(open);
  return open;
}

HashChain::Link HashChain::OpenLink(uint32_t document) const {
  Link link;
  Fill(link, document, kept_.at(document));
  return link;
}

}  // namespace zevo
