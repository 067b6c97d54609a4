// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/Alterations.h"

#include <algorithm>
#include <utility>

#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CsvWords.h"
#include "tools/saft/words/DatasetWords.h"
#include "tools/saft/words/ProblemWords.h"

namespace zevo::saft {

struct Alterations::Wording {
  Text<1> one;
  Text<1> several;
};

namespace {

std::string PlaceOf(const RowIn& row) { return Visible(row.file.Path()) + ":" + std::to_string(row.file.Row()); }

std::string PlaceOf(const RowIn& row, size_t column) { return PlaceOf(row) + ": " + row.file.Columns()[column] + ": "; }

Amount WithTwoDecimals(Amount amount) {
  const int64_t beyond = amount.Scaled() % 100;
  const int64_t up = beyond >= 50 ? 100 : beyond <= -50 ? -100 : 0;
  return Amount::FromScaled(amount.Scaled() - beyond + up);
}

}  // namespace

void Alterations::AddShortened(const RowIn& row, size_t column, std::string_view kept) {
  Add(kShortened, row, [&] {
    return PlaceOf(row, column) +
           Say(words::kFromToCharacters, CharactersIn(row.file.Cell(column)), CharactersIn(kept));
  });
}

void Alterations::AddRounded(const RowIn& row, size_t column, std::string_view written) {
  Add(kRounded, row,
      [&] { return PlaceOf(row, column) + Say(words::kTo, Quoted(row.file.Cell(column)), Quoted(written)); });
}

void Alterations::AddLeftOut(const RowIn& row, size_t column, size_t other) {
  Add(kLeftOut, row, [&] {
    const CsvFile& file = row.file;
    return PlaceOf(row, column) +
           Say(words::kBeside, Quoted(file.Cell(column)), file.Columns()[other], Quoted(file.Cell(other)));
  });
}

void Alterations::AddEmptyRow(const RowIn& row) {
  Add(kEmptyRow, row, [&] { return PlaceOf(row); });
}

void Alterations::AddConstant(const RowIn& row, size_t column, std::string_view constant) {
  Add(kConstant, row,
      [&] { return PlaceOf(row, column) + Say(words::kTo, Quoted(row.file.Cell(column)), Quoted(constant)); });
}

void Alterations::AddUnknownCode(const RowIn& row, size_t column) { AddCell(kUnknownCode, row, column); }

void Alterations::AddAbsent(const RowIn& row, std::string_view column) {
  Add(kAbsent, row, [&] { return PlaceOf(row).append(": ").append(column); });
}

void Alterations::AddSecond(const RowIn& row, size_t column) { AddCell(kSecond, row, column); }

void Alterations::AddRepeatedKey(const RowIn& row, size_t column) { AddCell(kRepeatedKey, row, column); }

void Alterations::AddGuess(const RowIn& row, size_t column) { AddCell(kGuess, row, column); }

void Alterations::AddReturns(const RowIn& row, size_t column) {
  Add(kReturns, row, [&] { return PlaceOf(row).append(": ").append(row.file.Columns()[column]); });
}

void Alterations::AddCell(Kind kind, const RowIn& row, size_t column) {
  Add(kind, row, [&] { return PlaceOf(row, column) + Quoted(row.file.Cell(column)); });
}

void Alterations::AddTotal(std::string_view section, std::string_view element, Amount sum) {
  const Amount written = WithTwoDecimals(sum);
  if (written == sum) return;
  places_[kTotal].Add({}, [&] {
    return std::string(section).append(": ").append(element) + ": " + Say(words::kTo, sum.Text(), written.Text());
  });
}

void Alterations::AddTotals(std::string_view section, const Totals& sums) {
  AddTotal(section, "TotalDebit", sums.debit);
  AddTotal(section, "TotalCredit", sums.credit);
}

void Alterations::AddForm(const CsvFile& file, bool hasDayFirst) {
  const std::string form = Description(file.Dialect(), hasDayFirst, file.HasShortRows());
  if (form.empty()) return;
  std::string note = Say(words::kRecognised, Visible(file.Path()), form);
  if (std::ranges::find(forms_, note) == forms_.end()) forms_.push_back(std::move(note));
}

void Alterations::ReportForms(std::ostream& out) const {
  for (const std::string& form : forms_) out << "saft: " << form << '\n';
}

void Alterations::Report(Kind kind, const Wording& wording, std::ostream& out) const {
  const FirstPlaces& places = places_[kind];
  if (places.Count() == 0) return;
  out << "saft: " << SayOf(places.Count(), wording.one, wording.several) << '\n';
  for (const auto& [place, text] : places.First()) out << "  " << text << '\n';
  const size_t more = places.Count() - places.First().size();
  if (more > 0) out << "  " << Say(words::kAndMore, more) << '\n';
}

void Alterations::Report(std::ostream& out) const {
  constexpr std::array<Wording, kKinds> kWordings{{
      {words::kOneShortened, words::kShortened},
      {words::kOneRounded, words::kRounded},
      {words::kOneLeftOut, words::kNumbersLeftOut},
      {words::kOneEmptyRow, words::kEmptyRows},
      {words::kOneTotal, words::kTotals},
      {words::kOneConstant, words::kConstants},
      {words::kOneUnknownCode, words::kUnknownCodes},
      {words::kOneAbsent, words::kAbsent},
      {words::kOneSecond, words::kSeconds},
      {words::kOneRepeatedKey, words::kRepeatedKeys},
      {words::kOneGuess, words::kGuesses},
      {words::kOneWithReturns, words::kWithReturns},
  }};
  for (size_t kind = 0; kind < kWordings.size(); ++kind) Report(static_cast<Kind>(kind), kWordings[kind], out);
}

void Alterations::ReportLostNumbers(std::ostream& out) const {
  Report(kRounded, {words::kOneWouldBeRounded, words::kWouldBeRounded}, out);
  Report(kLeftOut, {words::kOneWouldBeLeftOut, words::kWouldBeLeftOut}, out);
}

}  // namespace zevo::saft
