// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/LateRates.h>

#include <zevo/check/DocumentReferences.h>
#include <zevo/check/MostSeverity.h>
#include <zevo/platform/Text.h>

namespace zevo {
namespace {

std::string_view OwnReference(const InvoiceLineFacts& line) {
  const TextFact& reference = line.references.credit_note.reference;
  return reference.Missing() ? std::string_view() : TrimWhiteSpace(*reference);
}

}  // namespace

std::string_view LateRates::ReferenceOf(const InvoiceFacts& facts) {
  if (!facts.type.Read() || (!facts.IsDebitDocument() && !Is(*facts.type, "ND"))) return {};
  for (const InvoiceLineFacts& line : facts.lines) {
    if (const std::string_view reference = OwnReference(line); !reference.empty()) return reference;
  }
  return {};
}

std::string_view LateRates::ReferenceOf(const InvoiceLineFacts& line, std::string_view first) {
  const std::string_view own = OwnReference(line);
  return own.empty() ? first : own;
}

std::optional<VatRate> LateRates::RateOf(const TaxFacts& tax) {
  if (!tax.type.Read() || !Is(*tax.type, "IVA") || !tax.region.Read() || !tax.code.Read()) return std::nullopt;
  const auto region = VatRegionOf(*tax.region);
  const auto level = VatLevelOf(*tax.code);
  if (!region || !level || !tax.percentage.Read()) return std::nullopt;
  return VatRate{*region, *level};
}

void LateRates::Take(const InvoiceFacts& facts, const DocumentTable& documents) {
  const std::string_view first = ReferenceOf(facts);
  if (first.empty()) return;
  for (const InvoiceLineFacts& line : facts.lines) {
    const std::string_view reference = ReferenceOf(line, first);
    if (!DocumentNumber::FromText(reference)) continue;
    if (DocumentReferences::Find(reference, documents)) continue;
    const auto rate = RateOf(line.tax);
    if (!rate) continue;
    lines_.push_back({.percentage = Keep(facts, line.tax.percentage),
                      .reference = std::string(reference),
                      .rate = *rate,
                      .value = *line.tax.percentage,
                      .most = MostSeverity(facts)});
  }
}

}  // namespace zevo
