// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/EntityFacts.h>

#include <zevo/dal/ElementName.h>
#include <zevo/model/Totals.h>
#include <zevo/platform/Text.h>

#include <charconv>
#include <concepts>
#include <memory>
#include <optional>
#include <span>
#include <system_error>
#include <utility>

namespace zevo {
namespace {

/// Takes the element that fills a member, with all that is inside. Gives where to go on: behind it, or inside.
template <class Facts>
struct FactRow {
  uint32_t number;  // of the element's name
  size_t (*take)(Facts& facts, const ScannedEntity& entity, size_t element);
};

template <class T>
void SetFact(Fact<T>& fact, size_t element, std::optional<T> value) {
  using State = typename Fact<T>::State;
  fact.element = static_cast<uint32_t>(element);
  fact.state = value ? State::kRead : State::kUnreadable;
  if (value) fact.value = *std::move(value);
}

// As XML Schema writes whole numbers.
std::optional<int64_t> WholeNumber(std::string_view text) {
  std::string_view digits = TrimWhiteSpace(text);
  if (digits.starts_with('+')) digits.remove_prefix(1);
  int64_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end || digits.starts_with("+")) return std::nullopt;
  return number;
}

std::optional<std::string_view> ValueOf(const TextFact&, std::string_view text) { return text; }
std::optional<Decimal> ValueOf(const NumberFact&, std::string_view text) { return Decimal::FromText(text); }
std::optional<int64_t> ValueOf(const CountFact&, std::string_view text) { return WholeNumber(text); }
std::optional<CalendarDate> ValueOf(const DateFact&, std::string_view text) { return CalendarDate::FromText(text); }
std::optional<CalendarTime> ValueOf(const TimeFact&, std::string_view text) { return CalendarTime::FromText(text); }

template <class T>
size_t TakeElement(Fact<T>& fact, const ScannedEntity& entity, size_t element) {
  if (!fact.IsThere()) SetFact(fact, element, ValueOf(fact, entity.TextOf(element)));
  return element + 1;
}

/// The table of a kind of facts: specialised for each below.
template <class Facts>
struct FactTable;

/// For the number of each name its row in the table, from 1 on; 0 for names that are not in it.
template <class Facts>
consteval auto RowsByName() {
  std::array<uint8_t, kElementNames.size() + 1> rows{};
  uint8_t row = 0;
  for (const FactRow<Facts>& one : FactTable<Facts>::kRows) rows[one.number] = ++row;
  return rows;
}

// Gives what follows the element and all that is inside it.
template <class Facts>
size_t TakeChildren(Facts& facts, const ScannedEntity& entity, size_t element) {
  static constexpr auto kRowsByName = RowsByName<Facts>();
  const int depth = entity.DepthOf(element) + 1;
  const size_t count = entity.Count();
  size_t child = element + 1;
  while (child < count) {
    const int here = entity.DepthOf(child);
    if (here < depth) break;
    const size_t row = here == depth ? kRowsByName[entity.NameOf(child).element] : 0;
    child = row == 0 ? child + 1 : FactTable<Facts>::kRows[row - 1].take(facts, entity, child);
  }
  return child;
}

template <std::derived_from<GroupFacts> Group>
size_t TakeElement(Group& group, const ScannedEntity& entity, size_t element) {
  if (group.there) return element + 1;
  group.there = true;
  group.element = static_cast<uint32_t>(element);
  return TakeChildren(group, entity, element);
}

template <std::derived_from<GroupFacts> Group>
size_t TakeElement(std::vector<Group>& groups, const ScannedEntity& entity, size_t element) {
  return TakeElement(groups.emplace_back(), entity, element);
}

/// The row of a member.
template <class Facts, auto kMember>
constexpr FactRow<Facts> Fills(ElementName element) {
  return {element.Number(),
          [](Facts& facts, const ScannedEntity& entity, size_t at) { return TakeElement(facts.*kMember, entity, at); }};
}

template <>
struct FactTable<AddressFacts> {
  using Facts = AddressFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::postal_code>("PostalCode"),
                                    Fills<Facts, &Facts::country>("Country")};
};

template <>
struct FactTable<HeaderFacts> {
  using Facts = HeaderFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::version>("AuditFileVersion"),
                                    Fills<Facts, &Facts::tax_registration_number>("TaxRegistrationNumber"),
                                    Fills<Facts, &Facts::basis>("TaxAccountingBasis"),
                                    Fills<Facts, &Facts::fiscal_year>("FiscalYear"),
                                    Fills<Facts, &Facts::start_date>("StartDate"),
                                    Fills<Facts, &Facts::end_date>("EndDate"),
                                    Fills<Facts, &Facts::date_created>("DateCreated"),
                                    Fills<Facts, &Facts::tax_entity>("TaxEntity"),
                                    Fills<Facts, &Facts::certificate>("SoftwareCertificateNumber")};
};

template <>
struct FactTable<AccountFacts> {
  using Facts = AccountFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::id>("AccountID"),
                                    Fills<Facts, &Facts::opening_debit>("OpeningDebitBalance"),
                                    Fills<Facts, &Facts::opening_credit>("OpeningCreditBalance")};
};

template <>
struct FactTable<PartyFacts> {
  using Facts = PartyFacts;
  static constexpr std::array kRows{
      Fills<Facts, &Facts::id>("CustomerID"),           Fills<Facts, &Facts::id>("SupplierID"),
      Fills<Facts, &Facts::account>("AccountID"),       Fills<Facts, &Facts::tax_id>("CustomerTaxID"),
      Fills<Facts, &Facts::tax_id>("SupplierTaxID"),    Fills<Facts, &Facts::name>("CompanyName"),
      Fills<Facts, &Facts::billing>("BillingAddress"),  Fills<Facts, &Facts::shipping>("ShipToAddress"),
      Fills<Facts, &Facts::shipping>("ShipFromAddress")};
};

template <>
struct FactTable<ProductFacts> {
  using Facts = ProductFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::code>("ProductCode")};
};

template <>
struct FactTable<TaxFacts> {
  using Facts = TaxFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::type>("TaxType"),
                                    Fills<Facts, &Facts::region>("TaxCountryRegion"),
                                    Fills<Facts, &Facts::code>("TaxCode"),
                                    Fills<Facts, &Facts::expires>("TaxExpirationDate"),
                                    Fills<Facts, &Facts::percentage>("TaxPercentage"),
                                    Fills<Facts, &Facts::amount>("TaxAmount")};
};

template <>
struct FactTable<TaxTableFacts> {
  using Facts = TaxTableFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::entries>("TaxTableEntry")};
};

template <>
struct FactTable<SectionFacts> {
  using Facts = SectionFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::entries>("NumberOfEntries"),
                                    Fills<Facts, &Facts::debit>("TotalDebit"),
                                    Fills<Facts, &Facts::credit>("TotalCredit")};
};

template <>
struct FactTable<JournalFacts> {
  using Facts = JournalFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::id>("JournalID")};
};

template <>
struct FactTable<EntryLineFacts> {
  using Facts = EntryLineFacts;
  static constexpr std::array kRows{
      Fills<Facts, &Facts::record_id>("RecordID"), Fills<Facts, &Facts::account>("AccountID"),
      Fills<Facts, &Facts::entry_date>("SystemEntryDate"), Fills<Facts, &Facts::debit>("DebitAmount"),
      Fills<Facts, &Facts::credit>("CreditAmount")};
};

template <>
struct FactTable<TransactionFacts> {
  using Facts = TransactionFacts;
  static constexpr std::array kRows{
      Fills<Facts, &Facts::id>("TransactionID"),           Fills<Facts, &Facts::period>("Period"),
      Fills<Facts, &Facts::date>("TransactionDate"),       Fills<Facts, &Facts::archival_number>("DocArchivalNumber"),
      Fills<Facts, &Facts::posting_date>("GLPostingDate"), Fills<Facts, &Facts::customer>("CustomerID"),
      Fills<Facts, &Facts::supplier>("SupplierID"),        Fills<Facts, &Facts::lines>("Line")};
};

template <>
struct FactTable<OrderFacts> {
  using Facts = OrderFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::number>("OriginatingON"),
                                    Fills<Facts, &Facts::date>("OrderDate")};
};

template <>
struct FactTable<CreditNoteFacts> {
  using Facts = CreditNoteFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::reference>("Reference"),
                                    Fills<Facts, &Facts::reason>("Reason")};
};

template <>
struct FactTable<ReferencesFacts> {
  using Facts = ReferencesFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::credit_note>("CreditNote")};
};

template <>
struct FactTable<InvoiceLineFacts> {
  using Facts = InvoiceLineFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::number>("LineNumber"),
                                    Fills<Facts, &Facts::orders>("OrderReferences"),
                                    Fills<Facts, &Facts::product>("ProductCode"),
                                    Fills<Facts, &Facts::quantity>("Quantity"),
                                    Fills<Facts, &Facts::unit_price>("UnitPrice"),
                                    Fills<Facts, &Facts::tax_point>("TaxPointDate"),
                                    Fills<Facts, &Facts::references>("References"),
                                    Fills<Facts, &Facts::debit>("DebitAmount"),
                                    Fills<Facts, &Facts::credit>("CreditAmount"),
                                    Fills<Facts, &Facts::tax>("Tax"),
                                    Fills<Facts, &Facts::exemption_reason>("TaxExemptionReason"),
                                    Fills<Facts, &Facts::settlement>("SettlementAmount")};
};

template <>
struct FactTable<CurrencyFacts> {
  using Facts = CurrencyFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::code>("CurrencyCode"),
                                    Fills<Facts, &Facts::credit>("CurrencyCreditAmount"),
                                    Fills<Facts, &Facts::debit>("CurrencyDebitAmount")};
};

template <>
struct FactTable<SettlementFacts> {
  using Facts = SettlementFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::date>("SettlementDate")};
};

template <>
struct FactTable<TotalsFacts> {
  using Facts = TotalsFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::tax>("TaxPayable"), Fills<Facts, &Facts::net>("NetTotal"),
                                    Fills<Facts, &Facts::gross>("GrossTotal"),
                                    Fills<Facts, &Facts::currency>("Currency"),
                                    Fills<Facts, &Facts::settlement>("Settlement")};
};

template <>
struct FactTable<ShippingFacts> {
  using Facts = ShippingFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::delivery_date>("DeliveryDate"),
                                    Fills<Facts, &Facts::address>("Address")};
};

template <>
struct FactTable<InvoiceFacts> {
  using Facts = InvoiceFacts;
  static constexpr std::array kRows{Fills<Facts, &Facts::number>("InvoiceNo"),
                                    Fills<Facts, &Facts::status>("InvoiceStatus"),
                                    Fills<Facts, &Facts::hash>("Hash"),
                                    Fills<Facts, &Facts::hash_control>("HashControl"),
                                    Fills<Facts, &Facts::period>("Period"),
                                    Fills<Facts, &Facts::date>("InvoiceDate"),
                                    Fills<Facts, &Facts::type>("InvoiceType"),
                                    Fills<Facts, &Facts::self_billing>("SelfBillingIndicator"),
                                    Fills<Facts, &Facts::entry_date>("SystemEntryDate"),
                                    Fills<Facts, &Facts::transaction_id>("TransactionID"),
                                    Fills<Facts, &Facts::customer>("CustomerID"),
                                    Fills<Facts, &Facts::ship_to>("ShipTo"),
                                    Fills<Facts, &Facts::ship_from>("ShipFrom"),
                                    Fills<Facts, &Facts::lines>("Line"),
                                    Fills<Facts, &Facts::totals>("DocumentTotals")};
};

template <class Facts>
void TakeEntity(const ScannedEntity& entity, Facts& facts) {
  facts.entity = &entity;
  if (const std::string_view key = KeyOf(entity.Kind()); !key.empty()) {
    if (const auto element = entity.Find(key)) TakeElement(facts.key, entity, *element);
  }
  TakeChildren(facts, entity, 0);
}

// Empties the facts, but for the memory of their list.
template <class Facts, class List>
void Reuse(Facts& facts, List Facts::*list) {
  List kept = std::move(facts.*list);
  kept.clear();
  std::destroy_at(&facts);
  std::construct_at(&facts);
  facts.*list = std::move(kept);
}

}  // namespace

void TakeFacts(const ScannedEntity& entity, HeaderFacts& facts) { TakeEntity(entity, facts = {}); }
void TakeFacts(const ScannedEntity& entity, AccountFacts& facts) { TakeEntity(entity, facts = {}); }
void TakeFacts(const ScannedEntity& entity, PartyFacts& facts) { TakeEntity(entity, facts = {}); }
void TakeFacts(const ScannedEntity& entity, ProductFacts& facts) { TakeEntity(entity, facts = {}); }
void TakeFacts(const ScannedEntity& entity, TaxTableFacts& facts) { TakeEntity(entity, facts = {}); }
void TakeFacts(const ScannedEntity& entity, SectionFacts& facts) { TakeEntity(entity, facts = {}); }
void TakeFacts(const ScannedEntity& entity, JournalFacts& facts) { TakeEntity(entity, facts = {}); }
void TakeFacts(const ScannedEntity& entity, TransactionFacts& facts) {
  Reuse(facts, &TransactionFacts::lines);
  TakeEntity(entity, facts);
}
void TakeFacts(const ScannedEntity& entity, InvoiceFacts& facts) {
  Reuse(facts, &InvoiceFacts::lines);
  TakeEntity(entity, facts);
  facts.hash_form = HashFormOf(facts.hash);
  facts.cancelled = (facts.status.Read() && Is(*facts.status, "A")) ||
                    (facts.transaction_id.Read() && !CountsInTotals(*facts.transaction_id));
  facts.merged = facts.status.Read() && Is(*facts.status, "F");
  if (facts.type.Read()) facts.known_type = DocumentType::Find(*facts.type);
}

}  // namespace zevo
