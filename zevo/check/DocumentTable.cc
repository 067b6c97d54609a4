// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DocumentTable.h>

#include <zevo/check/DocumentType.h>
#include <zevo/platform/KeyedHash.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <numeric>

namespace zevo {
namespace {

constexpr int kNetDecimals = 6;
// As the schema has it: a file cannot make the table keep long texts.
constexpr size_t kLongestText = 60;
// Numbers of more digits are long ones; in place of their zeros they have a number that no text has room for.
constexpr size_t kMostShortDigits = 19;
constexpr uint8_t kLongNumber = 255;

// Among the types that there are, from 1 on; 0 for none of them.
uint8_t TypeNumber(const InvoiceFacts& facts) {
  const DocumentType* const type = facts.KnownType();
  return type == nullptr ? uint8_t{0} : static_cast<uint8_t>(type - DocumentType::All().data() + 1);
}

VatTimes VatTimesOf(const InvoiceFacts& facts) {
  VatTimes times;
  const DateFact* last = nullptr;
  const auto add = [&](const DateFact& date) {
    if (!date.Read()) {
      times.known = false;
    } else if (last == nullptr || *date != **last) {
      times.Add(*date);
      last = &date;
    }
  };
  for (const InvoiceLineFacts& line : facts.lines) add(line.tax_point.Missing() ? facts.date : line.tax_point);
  if (facts.lines.empty()) add(facts.date);
  return times;
}

// Bits of the parts, one behind the other, so that later ones are greater.
uint64_t PackedDate(const CalendarDate& date) {
  constexpr int64_t kLastYear = 16383;
  if (date.year < 0 || date.year > kLastYear) return 0;
  return static_cast<uint64_t>(date.year) << 9U | static_cast<uint64_t>(date.month) << 5U |
         static_cast<uint64_t>(date.day);
}

CalendarDate UnpackedDate(uint64_t packed) {
  return {static_cast<int64_t>(packed >> 9U), static_cast<int>(packed >> 5U & 15U), static_cast<int>(packed & 31U)};
}

uint64_t PackedTime(const CalendarTime& time) {
  const uint64_t date = PackedDate(time.date);
  if (date == 0) return 0;
  return date << 17U | static_cast<uint64_t>(time.hour) << 12U | static_cast<uint64_t>(time.minute) << 6U |
         static_cast<uint64_t>(time.second);
}

uint64_t EntryOf(const InvoiceFacts& facts) { return facts.entry_date.Read() ? PackedTime(*facts.entry_date) : 0; }

DocumentNumber OfDigits(std::string_view digits) { return {.series = {}, .code = {}, .name = {}, .digits = digits}; }

}  // namespace

static_assert(sizeof(DocumentTable::Document) == 48);

zevo::VatTimes DocumentTable::Document::VatTimes() const {
  return {static_cast<uint8_t>(vat_on_), static_cast<uint8_t>(vat_beside_), vat_known_ != 0};
}

DocumentTable::State DocumentTable::StateOf(const InvoiceFacts& facts) {
  if (facts.IsCancelled()) return State::kCancelled;
  return facts.IsLive() ? State::kLive : State::kMerged;
}

std::optional<CalendarDate> DocumentTable::Document::Date() const {
  if (date_ == 0) return std::nullopt;
  return UnpackedDate(date_);
}

std::optional<CalendarTime> DocumentTable::Document::EntryTime() const {
  if (entry_ == 0) return std::nullopt;
  CalendarTime time;
  time.date = UnpackedDate(entry_ >> 17U);
  time.hour = static_cast<int>(entry_ >> 12U & 31U);
  time.minute = static_cast<int>(entry_ >> 6U & 63U);
  time.second = static_cast<int>(entry_ & 63U);
  return time;
}

std::string_view DocumentTable::Document::Type() const {
  return type_ == 0 ? std::string_view() : DocumentType::All()[type_ - 1U].code;
}

std::optional<Decimal> DocumentTable::Document::Net() const {
  if (known_ == 0) return std::nullopt;
  return Decimal::OfUnits(net_, kNetDecimals);
}

bool DocumentTable::Value::operator<(const Value& other) const {
  if (digits.size() != other.digits.size()) return digits.size() < other.digits.size();
  return digits.empty() ? number < other.number : digits < other.digits;
}

DocumentTable::Value DocumentTable::ValueOf(const DocumentNumber& number) {
  const std::string_view digits = number.Significant();
  if (digits.size() > kMostShortDigits) return {.digits = digits};
  uint64_t value = 0;
  for (const char digit : digits) value = value * 10 + static_cast<uint64_t>(digit - '0');
  return {.number = value};
}

DocumentTable::Value DocumentTable::ValueOf(const Document& document) const {
  if (document.zeros_ != kLongNumber) return {.number = document.number_};
  return ValueOf(OfDigits(LongNumberOf(document)));
}

uint64_t DocumentTable::HashOf(uint32_t series, const Value& value) {
  std::array<char, sizeof series + sizeof value.number> bytes;
  std::memcpy(bytes.data(), &series, sizeof series);
  std::memcpy(bytes.data() + sizeof series, &value.number, sizeof value.number);
  const uint64_t hash = KeyedHash({bytes.data(), bytes.size()});
  return value.digits.empty() ? hash : hash ^ KeyedHash(value.digits);
}

bool DocumentTable::IsWrittenLike(const Document& document, const DocumentNumber& number) const {
  if (document.zeros_ == kLongNumber) return LongNumberOf(document) == number.digits;
  return document.zeros_ == number.digits.size() - number.Significant().size();
}

std::optional<uint32_t> DocumentTable::FindSeries(std::string_view text) const {
  if (!series_.empty() && series_[last_series_].text == text) return last_series_;
  const auto found = series_by_text_.find(text);
  if (found == series_by_text_.end()) return std::nullopt;
  return found->second;
}

uint32_t DocumentTable::SeriesOf(std::string_view text) {
  if (const auto found = FindSeries(text)) return *found;
  const auto number = static_cast<uint32_t>(series_.size());
  const auto added = series_by_text_.emplace(text, number).first;
  series_.emplace_back().text = added->first;
  return number;
}

template <class Matches>
std::optional<uint32_t> DocumentTable::LookUp(uint32_t series, const Value& value, Matches matches) const {
  const auto hash_of = [this](uint32_t document) {
    const Document& one = (*this)[document];
    return HashOf(one.series_, ValueOf(one));
  };
  while (slots_.Count() < count_) slots_.Add(hash_of(slots_.Count()), hash_of);
  return slots_.Find(HashOf(series, value),
                     [&](uint32_t document) { return Is(document, series, value) && matches(document); });
}

std::optional<uint32_t> DocumentTable::Find(const DocumentNumber& number) const {
  const auto series = FindSeries(number.series);
  return series ? Find(number, *series, ValueOf(number)) : std::nullopt;
}

std::optional<uint32_t> DocumentTable::Find(const DocumentNumber& number, uint32_t series, const Value& value) const {
  // Where it stands when all numbers from it to the highest stand there one behind the other.
  const uint32_t highest = series_[series].highest;
  const uint64_t distance = ValueOf((*this)[highest]).number - value.number;
  if (distance <= highest) {
    const uint32_t guess = highest - static_cast<uint32_t>(distance);
    if (Is(guess, series, value) && IsWrittenLike((*this)[guess], number)) return guess;
  }
  std::optional<uint32_t> other;
  const auto same = LookUp(series, value, [&](uint32_t document) {
    if (!other) other = document;
    return IsWrittenLike((*this)[document], number);
  });
  return same ? same : other;
}

std::optional<uint32_t> DocumentTable::Neighbour(uint32_t document, int step) const {
  const Document& from = (*this)[document];
  Value value = ValueOf(from);
  const bool below = step < 0 && value.number < static_cast<uint64_t>(-step);
  if (!value.digits.empty() || below || (step > 0 && series_[from.series_].highest == document)) return std::nullopt;
  value.number += static_cast<uint64_t>(int64_t{step});
  const int64_t guess = int64_t{document} + step;
  if (!several_spellings_ && guess >= 0 && guess < count_) {
    const auto beside = static_cast<uint32_t>(guess);
    if (Is(beside, from.series_, value)) return beside;
  }
  return LookUp(from.series_, value, [](uint32_t) { return true; });
}

bool DocumentTable::IsBefore(uint32_t one, uint32_t other) const {
  const Document& left = (*this)[one];
  const Document& right = (*this)[other];
  if (left.series_ != right.series_) return series_[left.series_].text < series_[right.series_].text;
  return IsLower(left, right);
}

bool DocumentTable::IsLower(const Document& one, const Document& other) const {
  const Value value = ValueOf(one);
  const Value other_value = ValueOf(other);
  if (value != other_value) return value < other_value;
  if (one.zeros_ != kLongNumber) return one.zeros_ < other.zeros_;
  return LongNumberOf(one).size() < LongNumberOf(other).size();
}

bool DocumentTable::IsBelowSeries(const DocumentNumber& number) const {
  const auto series = FindSeries(number.series);
  return series && ValueOf(number) < ValueOf((*this)[series_[*series].lowest]);
}

void DocumentTable::Take(const InvoiceFacts& facts) {
  const bool fits = !facts.number.Missing() && facts.number->size() <= kLongestText;
  const auto number = fits ? DocumentNumber::FromText(*facts.number) : std::nullopt;
  numbered_ = number.has_value();
  repeated_ = false;
  other_spelling_ = std::nullopt;
  if (!number) {
    unnumbered_.push_back(EntryOf(facts));
    return;
  }
  last_series_ = SeriesOf(number->series);
  const Series& series = series_[last_series_];
  const Value value = ValueOf(*number);
  const bool beyond = series.documents == 0 || ValueOf((*this)[series.highest]) < value;
  if (const auto same = beyond ? std::nullopt : Find(*number, last_series_, value)) {
    if (IsWrittenLike((*this)[*same], *number)) {
      repeated_ = true;
      copies_.push_back({*same, EntryOf(facts)});
      return;
    }
    other_spelling_ = same;
    several_spellings_ = true;
  }
  Add(facts, *number, last_series_, value);
}

void DocumentTable::Add(const InvoiceFacts& facts, const DocumentNumber& number, uint32_t series, const Value& value) {
  if (count_ % kChunk == 0) chunks_.push_back(std::make_unique<std::array<Document, kChunk>>());
  const uint32_t added = count_++;
  Document& document = (*this)[added];
  document.series_ = series;
  if (value.digits.empty()) {
    document.number_ = value.number;
    document.zeros_ = static_cast<uint8_t>(number.digits.size() - number.Significant().size());
  } else {
    document.number_ = long_numbers_.size();
    document.zeros_ = kLongNumber;
    long_numbers_.emplace_back(number.digits);
  }
  if (facts.date.Read()) document.date_ = PackedDate(*facts.date) & 0x7FFFFFU;
  document.entry_ = EntryOf(facts) & 0xFFFFFFFFFFU;
  document.type_ = TypeNumber(facts) & 0x1FU;
  document.state_ = static_cast<uint32_t>(StateOf(facts)) & 3U;
  document.hash_ = static_cast<uint32_t>(facts.hash_form) & 3U;
  const VatTimes times = VatTimesOf(facts);
  constexpr uint32_t kTimes = (1U << VatTimes::kBits) - 1;
  document.vat_on_ = times.on & kTimes;
  document.vat_beside_ = times.beside & kTimes;
  document.vat_known_ = times.known ? 1 : 0;
  const NumberFact& net = facts.totals.net;
  if (const auto units = net.Read() ? net->InUnits(kNetDecimals) : std::nullopt) {
    document.known_ = 1;
    document.net_ = *units;
  }

  const ScannedEntity& entity = *facts.entity;
  const auto place = [&](const auto& fact) { return fact.Missing() ? FilePlace() : entity.PlaceOf(fact.element); };
  const FilePlace at = place(facts.number);
  constexpr int64_t kMost = std::numeric_limits<uint32_t>::max();
  document.offset_ = static_cast<uint64_t>(at.offset) & 0xFFFFFFFFFFFFU;
  document.line_ = static_cast<uint32_t>(at.line <= kMost ? at.line : 0);
  document.column_ = static_cast<uint32_t>(at.column <= kMost ? at.column : 0);
  document.steps_ = steps_.Add(at, {place(facts.date), place(facts.type), place(facts.entry_date), place(facts.hash)});
  AddToSeries(added);
}

void DocumentTable::AddToSeries(uint32_t document) {
  const Document& added = (*this)[document];
  Series& series = series_[added.series_];
  const bool first = series.documents++ == 0;
  const Value value = ValueOf(added);
  if (first || value < ValueOf((*this)[series.lowest])) series.lowest = document;
  if (first || ValueOf((*this)[series.highest]) < value) series.highest = document;
  if (added.type_ == 0) return;
  auto use = std::ranges::find(series.types, added.Type(), &Series::TypeUse::type);
  if (use == series.types.end()) use = series.types.insert(use, {added.Type(), 0, document});
  ++use->documents;
  if (IsBefore(document, use->first)) use->first = document;
}

std::vector<uint32_t> DocumentTable::AlongSeries() const {
  std::vector<uint32_t> ends(series_.size());
  std::transform_exclusive_scan(series_.begin(), series_.end(), ends.begin(), uint32_t{0}, std::plus<>(),
                                [](const Series& series) { return series.documents; });
  std::vector<uint32_t> documents(count_);
  for (uint32_t i = 0; i < count_; ++i) documents[ends[(*this)[i].series_]++] = i;
  const auto before = [this](uint32_t left, uint32_t right) { return IsLower((*this)[left], (*this)[right]); };
  auto from = documents.begin();
  for (const Series& series : series_) {
    const auto to = from + series.documents;
    if (!std::is_sorted(from, to, before)) std::sort(from, to, before);
    from = to;
  }
  return documents;
}

Decimal DocumentTable::NumberOf(const Document& document) const {
  if (document.zeros_ == kLongNumber) return *Decimal::FromText(LongNumberOf(document));
  return document.number_;
}

std::string DocumentTable::TextOf(const Document& document) const {
  std::string text(series_[document.series_].text);
  text += '/';
  if (document.zeros_ == kLongNumber) return text += LongNumberOf(document);
  text.append(document.zeros_, '0');
  if (document.number_ > 0) text += std::to_string(document.number_);
  return text;
}

KeptElement DocumentTable::Keep(const Document& document, Element element) const {
  constexpr std::array kPaths{"InvoiceNo", "InvoiceDate", "InvoiceType", "SystemEntryDate", "Hash"};
  KeptElement kept{.kind = EntityKind::kInvoice,
                   .key = TextOf(document),
                   .path = kPaths[static_cast<size_t>(element)],
                   .place = {document.line_, document.column_, static_cast<int64_t>(document.offset_)},
                   .text = {}};
  if (element != Element::kNumber) {
    kept.place = steps_.At(kept.place, document.steps_, static_cast<size_t>(element) - 1);
  }
  switch (element) {
    case Element::kNumber:
      kept.text = kept.key;
      break;
    case Element::kDate:
      if (const auto date = document.Date()) kept.text = date->Text();
      break;
    case Element::kType:
      kept.text = document.Type();
      break;
    case Element::kEntryTime:
      if (const auto time = document.EntryTime()) kept.text = time->Text();
      break;
    case Element::kHash:
      if (document.Hash() == HashForm::kUnsigned) kept.text = "0";
      break;
  }
  return kept;
}

}  // namespace zevo
