#include "tools/saft/ShortenedTexts.h"

#include "tools/saft/Utf8.h"

namespace zevo::saft {

void ShortenedTexts::Add(const CsvFile& file, size_t column, std::string_view kept) {
  if (++count_ > kNamed) return;
  places_.push_back(file.Path() + ":" + std::to_string(file.Row()) + ": " + file.Columns()[column] + ": from " +
                    std::to_string(CharactersIn(file.Cell(column))) + " to " + std::to_string(CharactersIn(kept)) +
                    " characters");
}

void ShortenedTexts::Report(std::ostream& out) const {
  if (count_ == 0) return;
  out << "saft: " << count_ << (count_ == 1 ? " text" : " texts") << " shortened to what the schema allows\n";
  for (const std::string& place : places_) out << "  " << place << '\n';
  if (count_ > places_.size()) out << "  and " << count_ - places_.size() << " more\n";
}

}  // namespace zevo::saft
