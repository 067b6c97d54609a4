// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/CsvDialect.h"

#include <zevo/Utf8.h>

#include <string_view>

#include "tools/saft/csv/ByteOrderMark.h"
#include "tools/saft/words/CsvWords.h"

namespace zevo::saft {
namespace {

constexpr std::string_view kSeparators = ";,\t";
constexpr std::string_view kBeforeSeparator = "sep=";

bool IsUtf16(std::string_view line) {
  return line.starts_with("\xFF\xFE") || line.starts_with("\xFE\xFF") || line.find('\0') != std::string_view::npos;
}

// Those of today are archives, the older ones compound files.
bool IsWorkbook(std::string_view line) {
  return line.starts_with("PK\x03\x04") || line.starts_with("\xD0\xCF\x11\xE0");
}

bool IsSeparatorLine(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line.size() == kBeforeSeparator.size() + 1 && line.starts_with(kBeforeSeparator) &&
         kSeparators.find(line.back()) != std::string_view::npos;
}

char SeparatorIn(std::string_view heading) {
  bool quoted = false;
  for (const char c : heading) {
    if (c == '"') quoted = !quoted;
    if (!quoted && kSeparators.find(c) != std::string_view::npos) return c;
  }
  return ',';
}

// Without a way out of the loop, which compilers make run over many characters at once: files that are ASCII are looked
// through to their end.
bool IsAscii(std::string_view line) {
  unsigned char bits = 0;
  for (const char c : line) bits = static_cast<unsigned char>(bits | static_cast<unsigned char>(c));
  return bits < 0x80;
}

}  // namespace

CsvDialect DialectOf(std::istream& file) {
  CsvDialect dialect;
  bool hasSeparator = false;
  bool hasEncoding = false;
  std::string bytes;
  for (bool first = true; !(hasSeparator && hasEncoding) && std::getline(file, bytes); first = false) {
    std::string_view line = bytes;
    if (first && IsWorkbook(line)) {
      dialect.encoding = CsvEncoding::kWorkbook;
      break;
    }
    if (first && IsUtf16(line)) {
      dialect.encoding = CsvEncoding::kUtf16;
      break;
    }
    if (first && line.starts_with(kByteOrderMark)) {
      hasEncoding = true;
      line.remove_prefix(kByteOrderMark.size());
    }
    if (first) dialect.has_separator_line = IsSeparatorLine(line);
    if (!hasSeparator && line.find_first_not_of('\r') != std::string_view::npos) {
      hasSeparator = true;
      dialect.separator = dialect.has_separator_line ? line[kBeforeSeparator.size()] : SeparatorIn(line);
    }
    if (!hasEncoding && !IsAscii(line)) {
      hasEncoding = true;
      dialect.encoding = IsUtf8(line) ? CsvEncoding::kUtf8 : CsvEncoding::kWindows1252;
    }
  }
  file.clear();
  file.seekg(0);
  return dialect;
}

std::string Description(const CsvDialect& dialect, bool hasDayFirst, bool hasShortRows) {
  std::string description;
  const auto add = [&](const Text<>& text) { description.append(description.empty() ? "" : ", ").append(Say(text)); };
  if (dialect.separator == ';') add(words::kSemicolons);
  if (dialect.separator == '\t') add(words::kTabs);
  if (dialect.encoding == CsvEncoding::kWindows1252) add(words::kWindows1252);
  if (hasDayFirst) add(words::kDayFirst);
  if (hasShortRows) add(words::kShortRows);
  return description;
}

}  // namespace zevo::saft
