// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/summary/SummedElements.h"

#include <algorithm>
#include <array>
#include <string>

namespace zevo::saft {
namespace {

// An element of a record, or of a group in it, that is summed or told.
struct SummedRow {
  EntityKind kind;
  std::string_view group;
  std::string_view element;
};
constexpr auto kSummedRows = std::to_array<SummedRow>({
    {EntityKind::kTaxTable, {}, element::kTaxTableEntry},
    {EntityKind::kGeneralLedgerEntries, {}, element::kNumberOfEntries},
    {EntityKind::kGeneralLedgerEntries, {}, element::kTotalDebit},
    {EntityKind::kGeneralLedgerEntries, {}, element::kTotalCredit},
    {EntityKind::kJournal, {}, element::kJournalID},
    {EntityKind::kJournal, {}, element::kDescription},
    {EntityKind::kTransaction, {}, kCountedPart},
    {EntityKind::kTransaction, kCountedPart, kCountedDebit},
    {EntityKind::kTransaction, kCountedPart, kCountedCredit},
    {EntityKind::kSalesInvoices, {}, element::kNumberOfEntries},
    {EntityKind::kSalesInvoices, {}, element::kTotalDebit},
    {EntityKind::kSalesInvoices, {}, element::kTotalCredit},
    {EntityKind::kInvoice, {}, element::kInvoiceType},
    {EntityKind::kInvoice, {}, element::kTransactionID},
    {EntityKind::kInvoice, {}, kCountedPart},
    {EntityKind::kInvoice, kCountedPart, kCountedDebit},
    {EntityKind::kInvoice, kCountedPart, kCountedCredit},
    {EntityKind::kInvoice, {}, element::kDocumentTotals},
    {EntityKind::kInvoice, element::kDocumentTotals, element::kTaxPayable},
    {EntityKind::kInvoice, element::kDocumentTotals, element::kNetTotal},
    {EntityKind::kInvoice, element::kDocumentTotals, element::kGrossTotal},
});

// The row of an element; null where no figure is made of it.
const SummedRow* RowOf(EntityKind kind, std::string_view path) {
  std::string plain;  // without positions
  bool inside = false;
  for (const char c : path) {
    inside = inside || c == '[';
    if (!inside) plain += c;
    inside = inside && c != ']';
  }
  std::string_view group;
  std::string_view name = plain;
  if (const size_t slash = plain.find('/'); slash != std::string::npos) {
    group = name.substr(0, slash);
    name.remove_prefix(slash + 1);
  }
  const auto row = std::ranges::find_if(kSummedRows, [&](const SummedRow& each) {
    return each.kind == kind && each.group == group && each.element == name;
  });
  return row == kSummedRows.end() ? nullptr : &*row;
}

bool IsSummed(EntityKind kind, std::string_view path) { return RowOf(kind, path) != nullptr; }

// Whether figures are made of an element's own text, which another element in it divides.
bool IsSummedText(EntityKind kind, std::string_view path) {
  const SummedRow* const text = RowOf(kind, path);
  return text != nullptr && text->element != element::kTaxTableEntry &&
         std::ranges::none_of(kSummedRows, [&](const SummedRow& row) { return row.group == text->element; });
}

bool IsSameButForCase(std::string_view left, std::string_view right) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::ranges::equal(left, right, {}, lower, lower);
}

// Whether what a record does not know may be a record, or an element of which figures are made.
bool MayBeSummed(EntityKind kind, std::string_view path) {
  const size_t slash = path.rfind('/');
  const std::string_view step = slash == std::string_view::npos ? path : path.substr(slash + 1);
  const std::string_view name = step.substr(0, step.find('['));
  if (name.starts_with('@') || name == "text()") return false;
  // What stands directly in these should be records and their totals.
  const bool holdsRecords = HoldsEntries(kind) || kind == EntityKind::kTaxTable;
  if (holdsRecords && slash == std::string_view::npos) return true;
  if (slash != std::string_view::npos && IsSummedText(kind, path.substr(0, slash))) return true;
  return EntityKindOf(name) || std::ranges::any_of(kSummedRows, [&](const SummedRow& row) {
           return row.kind == kind && IsSameButForCase(row.element, name);
         });
}

}  // namespace

bool TouchesFigures(std::optional<EntityKind> kind, const Problem& problem) {
  const bool between = problem.path.starts_with('/');
  if (!between && !kind) return false;
  switch (problem.fault) {
    case Fault::kUnreadable:
      // A record also cannot hold numbers that are too large for an Amount.
      return !between && IsSummed(*kind, problem.path) && !Decimal::FromText(problem.text);
    case Fault::kRepeated:
      return !between && IsSummed(*kind, problem.path);
    case Fault::kUnknownElement:
      return between ? !problem.path.ends_with("/text()") : MayBeSummed(*kind, problem.path);
    case Fault::kOutOfOrder:
      // The record itself: it counts among those of its kind, wherever it stands.
      return problem.path.empty();
    case Fault::kConstant:
      // The file does not say its version.
      return between;
    case Fault::kUnknownCode:
    case Fault::kInexact:
    case Fault::kKeyTaken:
      return false;
  }
  return false;
}

}  // namespace zevo::saft
