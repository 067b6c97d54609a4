// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/internal/Phrase.h>

#include <zevo/Utf8.h>

#include <cstddef>

namespace zevo {
namespace {

constexpr Phrase kLine{" (linha ", " (line "};
constexpr Phrase kColumn{", coluna ", ", column "};
constexpr size_t kPlaceSize = 3;

size_t PlaceIn(std::string_view text) {
  for (size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at + 1)) {
    if (at + 2 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9' && text[at + 2] == '}') return at;
  }
  return std::string_view::npos;
}

}  // namespace

std::string Filled(std::string_view text, std::span<const std::string> values) {
  std::string filled;
  for (size_t at = PlaceIn(text); at != std::string_view::npos; at = PlaceIn(text)) {
    filled.append(text.substr(0, at));
    const auto value = static_cast<size_t>(text[at + 1] - '1');
    if (value < values.size()) filled.append(values[value]);
    text.remove_prefix(at + kPlaceSize);
  }
  return filled.append(text);
}

bool IsWorded(std::string_view text, std::string_view said, std::vector<std::string>& values) {
  values.clear();
  for (size_t at = PlaceIn(said); at != std::string_view::npos; at = PlaceIn(said)) {
    const std::string_view before = said.substr(0, at);
    if (!text.starts_with(before)) return false;
    text.remove_prefix(at);
    said.remove_prefix(at + kPlaceSize);
    const size_t next = PlaceIn(said);
    const std::string_view behind = said.substr(0, next);
    // The last place takes all but the end: a name may have a full stop too.
    if (next == std::string_view::npos && !text.ends_with(behind)) return false;
    const size_t end = next == std::string_view::npos ? text.size() - behind.size() : text.find(behind);
    if (end == std::string_view::npos) return false;
    values.emplace_back(AbridgedText(text.substr(0, end)));
    text.remove_prefix(end);
  }
  return text == said;
}

std::string Reworded(std::span<const Rewording> rows, int32_t number, std::string_view said, bool whatever,
                     Language language) {
  std::vector<std::string> values;
  for (const Rewording& row : rows) {
    if (row.number != number) continue;
    if (row.said.empty() ? whatever : IsWorded(said, row.said, values)) {
      return Filled(row.phrase.In(language), values);
    }
  }
  return {};
}

std::string AbridgedText(std::string_view text) {
  constexpr int kMost = 100;
  std::string_view rest = text;
  for (int i = 0; i < kMost && !rest.empty(); ++i) TakeCharacter(rest);
  if (rest.empty()) return std::string(text);
  return std::string(text.substr(0, text.size() - rest.size())).append("…");
}

std::string WithPlace(std::string sentence, const FilePlace& place, Language language) {
  if (place.line > 0) {
    sentence.append(kLine.In(language)).append(std::to_string(place.line));
    if (place.column > 0) sentence.append(kColumn.In(language)).append(std::to_string(place.column));
    sentence += ')';
  }
  return sentence += '.';
}

}  // namespace zevo
