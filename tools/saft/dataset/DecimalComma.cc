// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/DecimalComma.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/words/CsvWords.h"

namespace zevo::saft {
namespace {

// What may stand at the ends of a number: white space, and two spaces that break no line.
constexpr std::array<std::string_view, 6> kBlanks{" ", "\t", "\r", "\n", "\u00A0", "\u202F"};
// What may stand between groups of three digits.
constexpr std::array<std::string_view, 4> kGroupMarks{".", " ", "\u00A0", "\u202F"};

// Takes blanks off the front.
std::string_view WithoutBlanksBefore(std::string_view text) {
  for (bool found = true; found;) {
    const auto blank = std::ranges::find_if(kBlanks, [text](std::string_view each) { return text.starts_with(each); });
    found = blank != kBlanks.end();
    if (found) text.remove_prefix(blank->size());
  }
  return text;
}

std::string_view WithoutBlanks(std::string_view text) {
  text = WithoutBlanksBefore(text);
  for (bool found = true; found;) {
    const auto blank = std::ranges::find_if(kBlanks, [text](std::string_view each) { return text.ends_with(each); });
    found = blank != kBlanks.end();
    if (found) text.remove_suffix(blank->size());
  }
  return text;
}

bool AreDigits(std::string_view text) { return text.find_first_not_of("0123456789") == std::string_view::npos; }

// The digits of groups of three with a mark between them; the first group may be shorter.
std::optional<std::string> WithoutMarks(std::string_view text, std::string_view mark) {
  constexpr size_t kGroup = 3;
  std::string digits;
  while (true) {
    const size_t end = text.find(mark);
    const std::string_view group = text.substr(0, end);
    const bool first = digits.empty();
    if (!AreDigits(group) || group.empty() || group.size() > kGroup) return std::nullopt;
    if (first ? group.front() == '0' : group.size() < kGroup) return std::nullopt;
    digits += group;
    if (end == std::string_view::npos) return digits;
    text.remove_prefix(end + mark.size());
  }
}

// The digits before the decimals, which may be none.
std::optional<std::string> DigitsOf(std::string_view text) {
  if (AreDigits(text)) return std::string(text);
  for (const std::string_view mark : kGroupMarks) {
    if (std::optional<std::string> digits = WithoutMarks(text, mark)) return digits;
  }
  return std::nullopt;
}

// A number taken apart.
class Number {
 public:
  explicit Number(std::string_view cell) : rest_(WithoutBlanks(cell)) {
    constexpr std::string_view kEuro = "€";
    bool has_euro = rest_.ends_with(kEuro);
    if (has_euro) rest_ = WithoutBlanks(rest_.substr(0, rest_.size() - kEuro.size()));
    const auto takeEuro = [&] {
      if (has_euro || !rest_.starts_with(kEuro)) return;
      has_euro = true;
      rest_ = WithoutBlanksBefore(rest_.substr(kEuro.size()));
    };
    takeEuro();
    if (!rest_.starts_with('-') && !rest_.starts_with('+')) return;
    sign_ = rest_.substr(0, 1);
    rest_ = WithoutBlanksBefore(rest_.substr(1));
    takeEuro();
  }

  // The digits of a number with one point, and no comma, that may stand between groups of three.
  std::optional<std::string> Grouped() const {
    return std::ranges::count(rest_, '.') == 1 ? WithoutMarks(rest_, ".") : std::nullopt;
  }

  // With a point. The mark of the decimals is the comma, else the only point.
  std::optional<std::string> WithPoint() const {
    size_t mark = rest_.find(',');
    if (mark == std::string_view::npos && std::ranges::count(rest_, '.') == 1) mark = rest_.find('.');
    const bool hasDecimals = mark != std::string_view::npos;
    const std::optional<std::string> digits = DigitsOf(rest_.substr(0, mark));
    const std::string_view decimals = hasDecimals ? rest_.substr(mark + 1) : std::string_view();
    if (!digits || !AreDigits(decimals) || digits->size() + decimals.size() == 0) return std::nullopt;
    std::string number = Signed(*digits);
    return hasDecimals ? number.append(".").append(decimals) : number;
  }

  std::string Signed(std::string_view digits) const { return std::string(sign_).append(digits); }
  std::string_view WithoutSign() const { return rest_; }

 private:
  std::string_view sign_;
  std::string_view rest_;
};

}  // namespace

std::string NumberWithPoint(std::string_view cell) {
  const Number number(cell);
  if (const auto grouped = number.Grouped()) {
    std::string decimal = number.Signed(number.WithoutSign());
    std::ranges::replace(decimal, '.', ',');
    throw BadValue(Say(words::kAmbiguousNumber, number.Signed(*grouped), decimal));
  }
  if (auto text = number.WithPoint()) return *std::move(text);
  throw BadValue(Say(words::kNotANumber));
}

std::string WholeNumber(std::string_view cell) {
  const Number number(cell);
  const auto digits = DigitsOf(number.WithoutSign());
  return digits && !digits->empty() ? number.Signed(*digits) : std::string(cell);
}

}  // namespace zevo::saft
