// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Decimal.h>

#include <zevo/Digit.h>
#include <zevo/Error.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <vector>

namespace zevo {
namespace {

// A limb has nine digits.
constexpr int32_t kBase = 1'000'000'000;
constexpr size_t kLimbDigits = 9;
// A factor has no more.
constexpr size_t kMostFactorDigits = 10'000;

consteval auto PowersOfTen() {
  std::array<int64_t, 19> powers{1};
  for (size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}
constexpr auto kPowers = PowersOfTen();
constexpr int64_t PowerOfTen(size_t exponent) { return kPowers[exponent]; }

int32_t LimbOf(std::string_view digits) {
  int32_t limb = 0;
  for (const char digit : digits) limb = limb * 10 + (digit - '0');
  return limb;
}

size_t DigitsIn(int64_t number) {
  size_t digits = 0;
  while (digits < kPowers.size() && number >= PowerOfTen(digits)) ++digits;
  return digits;
}

void AppendDigits(std::string& text, int64_t number, size_t digits) {
  const size_t end = text.size() + digits;
  text.resize(end);
  for (size_t i = 1; i <= digits; ++i, number /= 10) text[end - i] = static_cast<char>('0' + number % 10);
}

size_t ZerosAtTheEnd(int32_t limb) {
  size_t zeros = 0;
  for (; limb % 10 == 0; limb /= 10) ++zeros;
  return zeros;
}

void TrimLimbs(std::vector<int32_t>& limbs) {
  while (!limbs.empty() && limbs.back() == 0) limbs.pop_back();
}

// Takes a limb beyond the base back; gives what is carried.
int32_t Carry(int32_t& limb) {
  if (limb >= kBase) {
    limb -= kBase;
    return 1;
  }
  if (limb <= -kBase) {
    limb += kBase;
    return -1;
  }
  return 0;
}

}  // namespace

// The sum of all limbs, each by its power of the base. Both lists go away from the point, so that they grow at their
// ends only, and end in a limb that is not 0. A limb may have either sign whatever the others have: a carry then runs
// through limbs of all nines only, leaves zeros behind and cannot soon run there again, so that a sum of many additions
// costs what they cost.
struct Decimal::Limbs {
  std::vector<int32_t> whole;
  std::vector<int32_t> fraction;

  void Trim() {
    TrimLimbs(whole);
    TrimLimbs(fraction);
  }

  // The sign of the first limb that is not 0 is that of the number: all that follow are less than one of it.
  int Sign() const {
    if (!whole.empty()) return whole.back() < 0 ? -1 : 1;
    for (const int32_t limb : fraction) {
      if (limb != 0) return limb < 0 ? -1 : 1;
    }
    return 0;
  }

  // Makes the limbs those of the magnitude, none of them negative; gives the sign.
  int TakeSign() {
    const int sign = Sign();
    int32_t borrow = 0;
    const auto settle = [&](int32_t& limb) {
      limb = sign * limb + borrow;
      borrow = limb < 0 ? -1 : 0;
      if (limb < 0) limb += kBase;
    };
    for (size_t i = fraction.size(); i > 0; --i) settle(fraction[i - 1]);
    for (int32_t& limb : whole) settle(limb);
    Trim();
    return sign;
  }
  void GiveSign(int sign) {
    if (sign >= 0) return;
    for (int32_t& limb : whole) limb = -limb;
    for (int32_t& limb : fraction) limb = -limb;
  }

  // How many digits its text has behind the point.
  size_t Decimals() const {
    return fraction.empty() ? 0 : kLimbDigits * fraction.size() - ZerosAtTheEnd(fraction.back());
  }

  template <class Addend>
  void Add(const Addend& other, int32_t sign);
};

// The limbs of a number without any.
struct Decimal::ShortLimbs {
  std::array<int32_t, 2> whole;
  std::array<int32_t, 2> fraction;
};

// Nothing is changed before there is memory for all of it. The other may be these limbs themselves.
template <class Addend>
void Decimal::Limbs::Add(const Addend& other, int32_t sign) {
  const size_t wholes = other.whole.size();
  const size_t fractions = other.fraction.size();
  const size_t room = std::max(whole.size(), wholes) + 1;
  if (whole.capacity() < room) whole.reserve(room + room / 2);
  if (fraction.capacity() < fractions) fraction.reserve(fractions + fractions / 2);
  if (fraction.size() < fractions) fraction.resize(fractions);
  whole.resize(room);

  int32_t carry = 0;
  for (size_t i = fractions; i > 0; --i) {
    int32_t limb = fraction[i - 1] + sign * other.fraction[i - 1] + carry;
    carry = Carry(limb);
    fraction[i - 1] = limb;
  }
  for (size_t i = 0; i < room && (i < wholes || carry != 0); ++i) {
    int32_t limb = whole[i] + carry;
    if (i < wholes) limb += sign * other.whole[i];
    carry = Carry(limb);
    whole[i] = limb;
  }
  Trim();
}

void Decimal::DeleteLimbs::operator()(Limbs* limbs) const noexcept { delete limbs; }

Decimal::LimbsPointer Decimal::CopyOf(const Limbs& limbs) { return LimbsPointer(new Limbs(limbs)); }

// Two limbs are 18 digits at most.
Decimal Decimal::Shortest(Limbs limbs) {
  Decimal number;
  if (limbs.whole.size() + limbs.fraction.size() > 2) {
    number.limbs_.reset(new Limbs(std::move(limbs)));
    return number;
  }
  for (size_t i = limbs.whole.size(); i > 0; --i) number.digits_ = number.digits_ * kBase + limbs.whole[i - 1];
  for (const int32_t limb : limbs.fraction) number.digits_ = number.digits_ * kBase + limb;
  number.decimals_ = static_cast<int32_t>(kLimbDigits * limbs.fraction.size());
  return number;
}

void Decimal::SetLong(bool negative, uint64_t magnitude) {
  Limbs limbs;
  for (; magnitude > 0; magnitude /= kBase) limbs.whole.push_back(static_cast<int32_t>(magnitude % kBase));
  limbs.GiveSign(negative ? -1 : 1);
  *this = Shortest(std::move(limbs));
}

bool Decimal::IsLongNegative() const { return limbs_->Sign() < 0; }

std::optional<Decimal> Decimal::FromText(std::string_view text) {
  // As nearly all are written: some digits, perhaps a point and more digits.
  if (text.size() <= kMostDecimals) [[likely]] {
    int64_t digits = 0;
    size_t seen = 0;
    while (seen < text.size() && IsDigit(text[seen])) digits = digits * 10 + (text[seen++] - '0');
    const size_t wholes = seen;
    if (seen < text.size() && text[seen] == '.') ++seen;
    const size_t from = seen;
    while (seen < text.size() && IsDigit(text[seen])) digits = digits * 10 + (text[seen++] - '0');
    if (wholes > 0 && seen == text.size()) return Decimal(digits, static_cast<int32_t>(seen - from));
  }
  return FromOtherText(text);
}

std::optional<Decimal> Decimal::FromOtherText(std::string_view text) {
  text = TrimWhiteSpace(text);
  bool negative = false;
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
    negative = text[0] == '-';
    text.remove_prefix(1);
  }
  if (text.size() <= kMostDecimals) [[likely]] {
    int64_t digits = 0;
    size_t point = text.size();
    for (size_t i = 0; i < text.size(); ++i) {
      if (IsDigit(text[i])) {
        digits = digits * 10 + (text[i] - '0');
      } else if (text[i] == '.' && point == text.size()) {
        point = i;
      } else {
        return std::nullopt;
      }
    }
    if (text.empty() || text == ".") return std::nullopt;
    const size_t decimals = point == text.size() ? 0 : text.size() - point - 1;
    return Decimal(negative ? -digits : digits, static_cast<int32_t>(decimals));
  }

  const size_t point = std::min(text.find('.'), text.size());
  std::string_view whole = text.substr(0, point);
  std::string_view fraction = text.substr(std::min(point + 1, text.size()));
  if (!std::ranges::all_of(whole, IsDigit) || !std::ranges::all_of(fraction, IsDigit)) return std::nullopt;
  whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
  fraction = fraction.substr(0, fraction.find_last_not_of('0') + 1);
  if (whole.size() + fraction.size() <= kMostDecimals) {
    int64_t digits = 0;
    for (const std::string_view part : {whole, fraction}) {
      for (const char digit : part) digits = digits * 10 + (digit - '0');
    }
    return Decimal(negative ? -digits : digits, static_cast<int32_t>(fraction.size()));
  }
  Limbs limbs;
  limbs.whole.reserve(whole.size() / kLimbDigits + 1);
  while (!whole.empty()) {
    const size_t from = whole.size() - std::min(whole.size(), kLimbDigits);
    limbs.whole.push_back(LimbOf(whole.substr(from)));
    whole = whole.substr(0, from);
  }
  limbs.fraction.reserve(fraction.size() / kLimbDigits + 1);
  while (!fraction.empty()) {
    const std::string_view digits = fraction.substr(0, kLimbDigits);
    limbs.fraction.push_back(static_cast<int32_t>(LimbOf(digits) * PowerOfTen(kLimbDigits - digits.size())));
    fraction.remove_prefix(digits.size());
  }
  limbs.GiveSign(negative ? -1 : 1);
  return Shortest(std::move(limbs));
}

std::string Decimal::Text() const {
  Limbs limbs = ToLimbs();
  std::string text = limbs.TakeSign() < 0 ? "-" : "";
  text.reserve(2 + kLimbDigits * (limbs.whole.size() + limbs.fraction.size() + 1));
  if (limbs.whole.empty()) text += '0';
  for (size_t i = limbs.whole.size(); i > 0; --i) {
    const int32_t limb = limbs.whole[i - 1];
    AppendDigits(text, limb, i == limbs.whole.size() ? DigitsIn(limb) : kLimbDigits);
  }
  if (!limbs.fraction.empty()) text += '.';
  for (const int32_t limb : limbs.fraction) AppendDigits(text, limb, kLimbDigits);
  if (!limbs.fraction.empty()) text.resize(text.size() - ZerosAtTheEnd(limbs.fraction.back()));
  return text;
}

size_t Decimal::Decimals() const {
  if (limbs_) return limbs_->Decimals();
  auto decimals = static_cast<size_t>(decimals_);
  for (int64_t digits = digits_; decimals > 0 && digits % 10 == 0; digits /= 10) --decimals;
  return decimals;
}

Decimal Decimal::OfUnits(int64_t units, int decimals) {
  if (decimals < 0 || decimals > kMostDecimals) throw MakeRunTimeError(RunTimeError::kInvalidCall);
  return Decimal(units) * Decimal(1, decimals);
}

std::optional<int64_t> Decimal::InUnits(int decimals) const {
  if (decimals < 0 || limbs_) return std::nullopt;
  if (decimals_ > decimals) {
    const int64_t unit = PowerOfTen(static_cast<size_t>(decimals_ - decimals));
    return digits_ % unit == 0 ? std::optional(digits_ / unit) : std::nullopt;
  }
  const int shift = decimals - decimals_;
  if (shift > kMostDecimals) return digits_ == 0 ? std::optional(digits_) : std::nullopt;
  const int64_t factor = PowerOfTen(static_cast<size_t>(shift));
  if (std::abs(digits_) > (kLimit - 1) / factor) return std::nullopt;
  return digits_ * factor;
}

Decimal::ShortLimbs Decimal::ToShortLimbs() const {
  const auto decimals = static_cast<size_t>(decimals_);
  const int64_t whole = digits_ / PowerOfTen(decimals);
  const int64_t fraction = digits_ % PowerOfTen(decimals) * PowerOfTen(kMostDecimals - decimals);
  return {{static_cast<int32_t>(whole % kBase), static_cast<int32_t>(whole / kBase)},
          {static_cast<int32_t>(fraction / kBase), static_cast<int32_t>(fraction % kBase)}};
}

Decimal::Limbs Decimal::ToLimbs() const {
  if (limbs_) return *limbs_;
  const ShortLimbs limbs = ToShortLimbs();
  Limbs own{{limbs.whole.begin(), limbs.whole.end()}, {limbs.fraction.begin(), limbs.fraction.end()}};
  own.Trim();
  return own;
}

void Decimal::AddTo(Limbs& sum, int sign) const {
  if (limbs_) {
    sum.Add(*limbs_, sign);
  } else {
    sum.Add(ToShortLimbs(), sign);
  }
}

// Adds where the sum has 18 digits too.
bool Decimal::AddShort(const Decimal& other, int sign) {
  if (limbs_ || other.limbs_) return false;
  const int32_t decimals = std::max(decimals_, other.decimals_);
  const auto scaled = [decimals](const Decimal& number, int64_t& digits) {
    const auto shift = static_cast<size_t>(decimals - number.decimals_);
    const int64_t most = PowerOfTen(kMostDecimals - shift);
    digits = number.digits_;
    if (digits >= most || digits <= -most) return false;
    digits *= PowerOfTen(shift);
    return true;
  };
  int64_t left = 0;
  int64_t right = 0;
  if (!scaled(*this, left) || !scaled(other, right)) return false;
  const int64_t sum = left + sign * right;
  if (sum >= kLimit || sum <= -kLimit) return false;
  digits_ = sum;
  decimals_ = decimals;
  return true;
}

void Decimal::Add(const Decimal& other, int sign) {
  if (AddShort(other, sign)) return;
  if (!limbs_) {
    Limbs sum = ToLimbs();
    other.AddTo(sum, sign);
    *this = Shortest(std::move(sum));
    return;
  }
  other.AddTo(*limbs_, sign);
  if (limbs_->whole.size() + limbs_->fraction.size() <= 2) *this = Shortest(std::move(*limbs_));
}

std::strong_ordering Decimal::Compared(const Decimal& left, const Decimal& right) {
  const Decimal difference = left - right;
  return (difference.limbs_ ? difference.limbs_->Sign() : difference.digits_) <=> int64_t{0};
}

Decimal Decimal::Product(const Decimal& left, const Decimal& right) {
  if (!left.limbs_ && !right.limbs_ && left.decimals_ + right.decimals_ <= kMostDecimals) {
    const int64_t leftSize = std::abs(left.digits_);
    const int64_t rightSize = std::abs(right.digits_);
    if ((leftSize < kBase && rightSize < kBase) || rightSize == 0 || leftSize <= (kLimit - 1) / rightSize) {
      return {left.digits_ * right.digits_, left.decimals_ + right.decimals_};
    }
  }

  // The limbs of the magnitude in one row, the least first.
  struct Factor {
    explicit Factor(Limbs limbs) : sign(limbs.TakeSign()), fractions(limbs.fraction.size()), row(fractions) {
      size_t digits = limbs.Decimals();
      if (!limbs.whole.empty()) digits += kLimbDigits * (limbs.whole.size() - 1) + DigitsIn(limbs.whole.back());
      if (digits > kMostFactorDigits) throw MakeRunTimeError(RunTimeError::kOverflow);
      std::ranges::reverse_copy(limbs.fraction, row.begin());
      row.insert(row.end(), limbs.whole.begin(), limbs.whole.end());
    }
    int sign;
    size_t fractions;
    std::vector<int32_t> row;
  };
  const Factor first(left.ToLimbs());
  const Factor second(right.ToLimbs());
  std::vector<int32_t> row(first.row.size() + second.row.size());
  for (size_t i = 0; i < first.row.size(); ++i) {
    int64_t carry = 0;
    for (size_t j = 0; j < second.row.size() || carry > 0; ++j) {
      const int64_t factor = j < second.row.size() ? second.row[j] : 0;
      carry += row[i + j] + int64_t{first.row[i]} * factor;
      row[i + j] = static_cast<int32_t>(carry % kBase);
      carry /= kBase;
    }
  }
  const auto point = row.begin() + static_cast<std::ptrdiff_t>(first.fractions + second.fractions);
  Limbs product{{point, row.end()}, {std::make_reverse_iterator(point), row.rend()}};
  product.Trim();
  product.GiveSign(first.sign * second.sign);
  return Shortest(std::move(product));
}

Decimal Decimal::RoundedTo(int decimals) const {
  if (decimals < 0) throw MakeRunTimeError(RunTimeError::kInvalidCall);
  const auto kept = static_cast<size_t>(decimals);
  if (!limbs_) {
    if (decimals_ <= decimals) return *this;
    const int64_t unit = PowerOfTen(static_cast<size_t>(decimals_) - kept);
    const int64_t rest = digits_ % unit;
    const int64_t up = 2 * std::abs(rest) < unit ? 0 : (rest < 0 ? -1 : 1);
    return {digits_ / unit + up, decimals};
  }
  Limbs limbs = *limbs_;
  const int sign = limbs.TakeSign();
  const size_t last = kept / kLimbDigits;  // the limb of the digit behind those that stay
  if (last < limbs.fraction.size()) {
    limbs.fraction.resize(last + 1);
    const auto unit = static_cast<int32_t>(PowerOfTen(kLimbDigits - kept % kLimbDigits));
    int32_t& limb = limbs.fraction[last];
    const int32_t rest = limb % unit;
    limb -= rest;
    // In halves of the unit, which may be all of the base.
    if (rest >= unit / 2) {
      Limbs up;
      if (unit < kBase) {
        up.fraction.resize(last + 1);
        up.fraction[last] = unit;
      } else if (last > 0) {
        up.fraction.resize(last);
        up.fraction[last - 1] = 1;
      } else {
        up.whole.push_back(1);
      }
      limbs.Add(up, 1);
    }
    limbs.Trim();
  }
  limbs.GiveSign(sign);
  return Shortest(std::move(limbs));
}

}  // namespace zevo
