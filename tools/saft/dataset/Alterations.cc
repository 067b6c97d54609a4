// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/Alterations.h"

#include <algorithm>
#include <utility>

#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CsvWords.h"

namespace zevo::saft {
namespace {

constexpr size_t kTold = 5;

struct Wording {
  std::string_view one;
  std::string_view many;
  std::string_view done;     // told of what was written
  std::string_view refused;  // told of what would be written
};

constexpr std::array<Wording, 12> kWordings{{
    {"text", "texts", "shortened to what the schema allows", ""},
    {"number", "numbers", "rounded to what the file holds", "would be rounded to what the file holds"},
    {"number", "numbers", "left out, the file holds only one of the two",
     "would be left out, the file holds only one of the two"},
    {"row", "rows", "without any value skipped", ""},
    {"total", "totals", "rounded to two decimals", ""},
    {"value", "values", "replaced by the constant that the file has there", ""},
    {"code", "codes", "left out, the element is empty: the library has no such code", ""},
    {"absent text", "absent texts", "written as an empty element", ""},
    {"row", "rows", "left out, a line holds only one order", ""},
    {"key", "keys", "repeated in one document and kept", ""},
    {"row", "rows", "given to one of several lines of the same number", ""},
    {"text", "texts", "with carriage returns, which read back as line feeds", ""},
}};

std::string PlaceOf(const CsvFile& file) { return Visible(file.Path()) + ":" + std::to_string(file.Row()); }

std::string PlaceOf(const CsvFile& file, size_t column) { return PlaceOf(file) + ": " + file.Columns()[column] + ": "; }

Amount WithTwoDecimals(Amount amount) {
  const int64_t beyond = amount.Scaled() % 100;
  const int64_t up = beyond >= 50 ? 100 : beyond <= -50 ? -100 : 0;
  return Amount::FromScaled(amount.Scaled() - beyond + up);
}

}  // namespace

template <class Describe>
void Alterations::Add(Kind kind, Describe&& describe) {
  if (++places_[kind].count <= kTold) places_[kind].first.push_back(describe());
}

void Alterations::AddShortened(const CsvFile& file, size_t column, std::string_view kept) {
  Add(kShortened, [&] {
    return PlaceOf(file, column) + "from " + std::to_string(CharactersIn(file.Cell(column))) + " to " +
           std::to_string(CharactersIn(kept)) + " characters";
  });
}

void Alterations::AddRounded(const CsvFile& file, size_t column, std::string_view written) {
  Add(kRounded, [&] { return PlaceOf(file, column) + Quoted(file.Cell(column)) + " to " + Quoted(written); });
}

void Alterations::AddLeftOut(const CsvFile& file, size_t column, size_t other) {
  Add(kLeftOut, [&] {
    return PlaceOf(file, column) + Quoted(file.Cell(column)) + " beside " + file.Columns()[other] + " " +
           Quoted(file.Cell(other));
  });
}

void Alterations::AddEmptyRow(const CsvFile& file) {
  Add(kEmptyRow, [&] { return PlaceOf(file); });
}

void Alterations::AddConstant(const CsvFile& file, size_t column, std::string_view constant) {
  Add(kConstant, [&] { return PlaceOf(file, column) + Quoted(file.Cell(column)) + " to " + Quoted(constant); });
}

void Alterations::AddUnknownCode(const CsvFile& file, size_t column) { AddCell(kUnknownCode, file, column); }

void Alterations::AddAbsent(const CsvFile& file, std::string_view column) {
  Add(kAbsent, [&] { return PlaceOf(file).append(": ").append(column); });
}

void Alterations::AddSecond(const CsvFile& file, size_t column) { AddCell(kSecond, file, column); }

void Alterations::AddRepeatedKey(const CsvFile& file, size_t column) { AddCell(kRepeatedKey, file, column); }

void Alterations::AddGuess(const CsvFile& file, size_t column) { AddCell(kGuess, file, column); }

void Alterations::AddReturns(const CsvFile& file, size_t column) {
  Add(kReturns, [&] { return PlaceOf(file).append(": ").append(file.Columns()[column]); });
}

void Alterations::AddCell(Kind kind, const CsvFile& file, size_t column) {
  Add(kind, [&] { return PlaceOf(file, column) + Quoted(file.Cell(column)); });
}

void Alterations::AddTotal(std::string_view section, std::string_view element, Amount sum) {
  const Amount written = WithTwoDecimals(sum);
  if (written == sum) return;
  Add(kTotal,
      [&] { return std::string(section).append(": ").append(element) + ": " + sum.Text() + " to " + written.Text(); });
}

void Alterations::AddTotals(std::string_view section, const Totals& sums) {
  AddTotal(section, "TotalDebit", sums.debit);
  AddTotal(section, "TotalCredit", sums.credit);
}

void Alterations::AddForm(const CsvFile& file, bool hasDayFirst) {
  const std::string form = Description(file.Dialect(), hasDayFirst);
  if (form.empty()) return;
  std::string note = Say(words::kRecognised, Visible(file.Path()), form);
  if (std::ranges::find(forms_, note) == forms_.end()) forms_.push_back(std::move(note));
}

void Alterations::ReportForms(std::ostream& out) const {
  for (const std::string& form : forms_) out << "saft: " << form << '\n';
}

void Alterations::Report(Kind kind, std::string_view what, std::ostream& out) const {
  const auto& [count, first] = places_[kind];
  if (count == 0) return;
  const Wording& wording = kWordings[kind];
  out << "saft: " << count << ' ' << (count == 1 ? wording.one : wording.many) << ' ' << what << '\n';
  for (const std::string& place : first) out << "  " << place << '\n';
  if (count > first.size()) out << "  and " << count - first.size() << " more\n";
}

void Alterations::Report(std::ostream& out) const {
  for (size_t kind = 0; kind < kWordings.size(); ++kind) {
    Report(static_cast<Kind>(kind), kWordings[kind].done, out);
  }
}

void Alterations::ReportLostNumbers(std::ostream& out) const {
  for (const Kind kind : {kRounded, kLeftOut}) Report(kind, kWordings[kind].refused, out);
}

}  // namespace zevo::saft
