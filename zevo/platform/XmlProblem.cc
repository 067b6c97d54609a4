// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/XmlError.h>

#include <libxml/parser.h>

#include <mutex>
#include <string>

namespace zevo {

void InitialiseXml() {
  static std::once_flag once;
  std::call_once(once, xmlInitParser);
}

Error XmlError(int number, std::string_view source, std::string_view reason, int64_t line, int64_t column) {
  constexpr std::string_view kBlanks = " \t\r\n";
  reason = reason.substr(0, reason.find_last_not_of(kBlanks) + 1);
  std::string description(reason);
  if (line > 0) {
    if (!description.empty()) description += ' ';
    description.append("(linha ").append(std::to_string(line));
    if (column > 0) description.append(", coluna ").append(std::to_string(column));
    description += ')';
  }
  return Error(number, std::string(source), std::move(description));
}

}  // namespace zevo
