// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastType.h>

#include <libxml/xmlerror.h>
#include <zevo/Utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>

namespace zevo {
namespace {

constexpr size_t kMostDigits = 18;  // of a number: what 64 bits hold
constexpr size_t kMostCounted = 1'000'000'000;
constexpr int64_t kOne = 1'000'000'000'000'000'000;

constexpr std::array<int64_t, kMostDigits + 1> PowersOfTen() {
  std::array<int64_t, kMostDigits + 1> powers{};
  powers[0] = 1;
  for (size_t i = 1; i < powers.size(); ++i) powers[i] = 10 * powers[i - 1];
  return powers;
}
constexpr std::array<int64_t, kMostDigits + 1> kPowersOfTen = PowersOfTen();

bool IsAsciiDigit(char c) { return c >= '0' && c <= '9'; }

// The types of whole numbers, with their bounds where they have them.
struct WholeType {
  std::string_view name;
  std::optional<int64_t> least;
  std::optional<int64_t> most;
};
constexpr auto kWholeTypes = std::to_array<WholeType>({
    {"integer", {}, {}},
    {"nonPositiveInteger", {}, 0},
    {"negativeInteger", {}, -1},
    {"nonNegativeInteger", 0, {}},
    {"positiveInteger", 1, {}},
    {"long", {}, {}},
    {"int", INT32_MIN, INT32_MAX},
    {"short", INT16_MIN, INT16_MAX},
    {"byte", INT8_MIN, INT8_MAX},
    {"unsignedLong", 0, {}},
    {"unsignedInt", 0, UINT32_MAX},
    {"unsignedShort", 0, UINT16_MAX},
    {"unsignedByte", 0, UINT8_MAX},
});

// A number as it is written: "-12.50" has the digits "12" and "50".
struct WrittenNumber {
  bool negative = false;
  std::string_view whole;
  std::string_view fraction;
};
std::optional<WrittenNumber> SplitNumber(std::string_view text) {
  WrittenNumber number;
  if (text.starts_with('-')) {
    number.negative = true;
    text.remove_prefix(1);
  }
  size_t digits = 0;
  while (digits < text.size() && IsAsciiDigit(text[digits])) ++digits;
  number.whole = text.substr(0, digits);
  if (digits == 0) return std::nullopt;
  if (digits == text.size()) return number;
  if (text[digits] != '.' || digits + 1 == text.size()) return std::nullopt;
  number.fraction = text.substr(digits + 1);
  if (!std::ranges::all_of(number.fraction, IsAsciiDigit)) return std::nullopt;
  return number;
}

int64_t ValueOf(std::string_view digits) {
  int64_t value = 0;
  for (const char digit : digits) value = 10 * value + (digit - '0');
  return value;
}

// Digits where the form has a 0, and otherwise what the form has.
bool HasForm(std::string_view text, std::string_view form) {
  if (text.size() != form.size()) return false;
  bool fits = true;
  for (size_t i = 0; i < form.size(); ++i) fits &= form[i] == '0' ? IsAsciiDigit(text[i]) : text[i] == form[i];
  return fits;
}

// Of a text that has the form: the date as a number of eight digits.
std::optional<int64_t> ReadDate(std::string_view text) {
  constexpr std::array<int64_t, 13> kDays{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const int64_t year = ValueOf(text.substr(0, 4));
  const int64_t month = ValueOf(text.substr(5, 2));
  const int64_t day = ValueOf(text.substr(8, 2));
  if (year == 0 || month == 0 || month > 12 || day == 0) return std::nullopt;
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  if (day > kDays[static_cast<size_t>(month)] + (month == 2 && leap ? 1 : 0)) return std::nullopt;
  return (year * 100 + month) * 100 + day;
}

std::optional<int64_t> ReadTime(std::string_view text) {
  const int64_t hour = ValueOf(text.substr(0, 2));
  const int64_t minute = ValueOf(text.substr(3, 2));
  const int64_t second = ValueOf(text.substr(6, 2));
  if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return (hour * 100 + minute) * 100 + second;
}

// A text as a pattern that has nothing but it.
std::string Quoted(std::string_view text) {
  std::string pattern;
  for (const char c : text) {
    if (std::string_view("\\|.-^?*+{}()[]").find(c) != std::string_view::npos) pattern += '\\';
    pattern += c;
  }
  return pattern;
}

}  // namespace

FastType::FastType(std::shared_ptr<const SimpleType> type) : type_(std::move(type)), white_space_(type_->Space()) {
  const std::string_view name = type_->BuiltInName();
  const auto whole = std::ranges::find(kWholeTypes, name, &WholeType::name);
  if (name == "string" || name == "normalizedString" || name == "token") form_ = Form::kText;
  if (name == "decimal" || whole != kWholeTypes.end()) form_ = Form::kNumber;
  if (name == "date") form_ = Form::kDate;
  if (name == "dateTime") form_ = Form::kDateTime;
  if (name == "gYear") form_ = Form::kYear;
  if (name == "boolean") form_ = Form::kBoolean;
  if (whole != kWholeTypes.end()) {
    whole_ = true;
    if (whole->least) Narrow(least_, {{*whole->least, 0}}, true);
    if (whole->most) Narrow(most_, {{*whole->most, 0}}, false);
  }
  kind_ = KeyedHash(form_ == Form::kNumber ? "decimal" : name);
  const SimpleType* coded = type_.get();
  while (coded != nullptr && coded->Values().empty()) coded = coded->Base();
  bool read = coded == nullptr || AddValues(coded->Values());
  for (const SimpleType* step = type_.get(); step != nullptr; step = step->Base()) read = read && AddFacets(*step);
  if (!read) form_ = Form::kOther;
}

bool FastType::AddFacets(const SimpleType& step) {
  return std::ranges::all_of(step.Limits(), [&](const SimpleType::Facet& limit) { return AddLimit(limit); }) &&
         (step.Patterns().empty() || AddPatterns(step.Patterns()));
}

bool FastType::AddLimit(const SimpleType::Facet& limit) {
  size_t count = 0;
  const char* const end = limit.value.data() + limit.value.size();
  const auto [stopped, fault] = std::from_chars(limit.value.data(), end, count);
  const bool counts = fault == std::errc() && stopped == end && count <= kMostCounted;
  switch (limit.number) {
    case XML_SCHEMAV_CVC_LENGTH_VALID:
      least_length_ = std::max(least_length_, count);
      most_length_ = std::min(most_length_, count);
      return counts && form_ == Form::kText;
    case XML_SCHEMAV_CVC_MINLENGTH_VALID:
      least_length_ = std::max(least_length_, count);
      return counts && form_ == Form::kText;
    case XML_SCHEMAV_CVC_MAXLENGTH_VALID:
      most_length_ = std::min(most_length_, count);
      return counts && form_ == Form::kText;
    case XML_SCHEMAV_CVC_TOTALDIGITS_VALID:
      most_digits_ = std::min(most_digits_, count);
      return counts && form_ == Form::kNumber;
    case XML_SCHEMAV_CVC_FRACTIONDIGITS_VALID:
      most_fraction_ = std::min(most_fraction_, count);
      return counts && form_ == Form::kNumber;
    default:
      return AddBound(limit);
  }
}

bool FastType::AddBound(const SimpleType::Facet& limit) {
  const std::optional<Value> value = Read(limit.value);
  if (!value || form_ == Form::kBoolean) return false;
  switch (limit.number) {
    case XML_SCHEMAV_CVC_MININCLUSIVE_VALID:
      Narrow(least_, {*value, true}, true);
      return true;
    case XML_SCHEMAV_CVC_MINEXCLUSIVE_VALID:
      Narrow(least_, {*value, false}, true);
      return true;
    case XML_SCHEMAV_CVC_MAXINCLUSIVE_VALID:
      Narrow(most_, {*value, true}, false);
      return true;
    case XML_SCHEMAV_CVC_MAXEXCLUSIVE_VALID:
      Narrow(most_, {*value, false}, false);
      return true;
    default:
      return false;
  }
}

void FastType::Narrow(std::optional<Bound>& bound, Bound narrower, bool least) {
  const bool replaces = !bound || (least ? bound->value < narrower.value : narrower.value < bound->value) ||
                        (bound->value == narrower.value && !narrower.inclusive);
  if (replaces) bound = narrower;
}

// The values become one pattern.
bool FastType::AddValues(const SimpleType::Facets& values) {
  std::string pattern;
  for (const SimpleType::Facet& value : values) {
    if (!IsPlain(value.value)) return false;
    if (!pattern.empty()) pattern += '|';
    pattern += Quoted(value.value);
  }
  values_ = PatternAutomaton::Of(pattern);
  return values_.has_value();
}

// Of those that cannot be made ready, libxml2 is asked.
bool FastType::AddPatterns(const SimpleType::Facets& patterns) {
  std::vector<PatternAutomaton>& added = patterns_.emplace_back();
  for (const SimpleType::Facet& pattern : patterns) {
    if (auto automaton = PatternAutomaton::Of(pattern.value)) added.push_back(std::move(*automaton));
  }
  return !added.empty();
}

bool FastType::IsSureOf(std::string_view text) const {
  switch (form_) {
    case Form::kOther:
      return false;
    case Form::kText:
      if (!IsPlain(text) || !HasLength(text)) return false;
      break;
    case Form::kBoolean:
      if (text != "true" && text != "false" && text != "0" && text != "1") return false;
      break;
    case Form::kNumber:
    case Form::kDate:
    case Form::kDateTime:
    case Form::kYear: {
      const std::optional<Value> value = Read(text);
      if (!value || !IsWithin(*value)) return false;
      break;
    }
  }
  if (values_ && !values_->Takes(text)) return false;
  return std::ranges::all_of(patterns_, [&](const std::vector<PatternAutomaton>& alternatives) {
    return std::ranges::any_of(alternatives, [&](const PatternAutomaton& pattern) { return pattern.Takes(text); });
  });
}

size_t FastType::Entries() const {
  size_t entries = values_ ? values_->Entries() : 0;
  for (const auto& alternatives : patterns_) {
    for (const PatternAutomaton& pattern : alternatives) entries += pattern.Entries();
  }
  return entries;
}

// Whether a text is what the type makes of its white space.
bool FastType::IsPlain(std::string_view text) const {
  if (white_space_ == SimpleType::WhiteSpace::kPreserve) return true;
  if (text.find_first_of("\t\n\r") != std::string_view::npos) return false;
  if (white_space_ == SimpleType::WhiteSpace::kReplace) return true;
  return !text.starts_with(' ') && !text.ends_with(' ') && text.find("  ") == std::string_view::npos;
}

bool FastType::HasLength(std::string_view text) const {
  // A character is one to four bytes.
  const size_t size = text.size();
  if (size >= 4 * least_length_ && size <= most_length_) return true;
  if (size < least_length_) return false;
  const size_t length = CharactersIn(text);
  return length >= least_length_ && length <= most_length_;
}

std::optional<FastType::Value> FastType::Read(std::string_view text) const {
  switch (form_) {
    case Form::kNumber:
      return ReadNumber(text);
    case Form::kDate:
      if (!HasForm(text, "0000-00-00")) return std::nullopt;
      if (const auto date = ReadDate(text)) return Value{*date, 0};
      return std::nullopt;
    case Form::kDateTime: {
      if (!HasForm(text, "0000-00-00T00:00:00")) return std::nullopt;
      const auto date = ReadDate(text);
      const auto time = ReadTime(text.substr(11));
      if (date && time) return Value{*date * 1'000'000 + *time, 0};
      return std::nullopt;
    }
    case Form::kYear:
      if (!HasForm(text, "0000") || text == "0000") return std::nullopt;
      return Value{ValueOf(text), 0};
    default:
      return std::nullopt;
  }
}

std::optional<FastType::Value> FastType::ReadNumber(std::string_view text) const {
  const auto number = SplitNumber(text);
  if (!number) return std::nullopt;
  const size_t fraction = number->fraction.size();
  const size_t digits = number->whole.size() + fraction;
  if (digits > std::min(kMostDigits, most_digits_) || fraction > most_fraction_ || (whole_ && fraction > 0)) {
    return std::nullopt;
  }
  Value value{ValueOf(number->whole), ValueOf(number->fraction) * kPowersOfTen[kMostDigits - fraction]};
  if (!number->negative) return value;
  // Types without a sign may refuse one even of zero.
  if (value == Value{}) return std::nullopt;
  return value.above == 0 ? Value{-value.floor, 0} : Value{-value.floor - 1, kOne - value.above};
}

bool FastType::IsWithin(const Value& value) const {
  if (least_ && (least_->inclusive ? value < least_->value : value <= least_->value)) return false;
  return !most_ || (most_->inclusive ? value <= most_->value : value < most_->value);
}

std::optional<Digest> FastType::KeyOf(std::string_view text) const {
  Digest key{};
  if (form_ == Form::kText) {
    if (!IsPlain(text)) return std::nullopt;
    key = KeyedDigest(text);
  } else {
    // A number without what does not change its value.
    auto number = SplitNumber(text);
    if (!number) return std::nullopt;
    std::string_view& whole = number->whole;
    std::string_view& fraction = number->fraction;
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    fraction = fraction.substr(0, fraction.find_last_not_of('0') + 1);
    std::array<char, 2 * kMostDigits> shortest;
    if (whole.size() + fraction.size() + 2 > shortest.size()) return std::nullopt;
    char* end = shortest.data();
    if (number->negative) *end++ = '-';
    end = std::ranges::copy(whole, end).out;
    *end++ = '.';
    end = std::ranges::copy(fraction, end).out;
    if (number->negative && whole.empty() && fraction.empty()) return std::nullopt;
    key = KeyedDigest({shortest.data(), static_cast<size_t>(end - shortest.data())});
  }
  key[0] ^= kind_;
  return key;
}

}  // namespace zevo
