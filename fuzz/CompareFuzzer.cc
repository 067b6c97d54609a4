// SPDX-License-Identifier: Apache-2.0
// Any bytes as an audit file, to both readers: where the file is laid out as the schema wants it, whatever its texts,
// they find the same; elsewhere they agree on whether it can be parsed.

#include <zevo/adapters.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

#include "fuzz/Expect.h"
#include "fuzz/FileInMemory.h"
#include "tests/facades/FileRecords.h"

namespace zevo {

namespace {

// The schema without a word on texts and keys.
std::string LayoutOf(const char* schemaFile) {
  constexpr std::array<std::string_view, 9> kFacets = {"Length",          "<xs:length", "<xs:pattern",
                                                       "<xs:enumeration", "Inclusive",  "<xs:selector",
                                                       "<xs:field",       "/xs:key",    "/xs:unique"};
  std::ifstream schema(schemaFile);
  fuzz::Expect(schema.good(), "no schema");
  std::string layout;
  bool in_key = false;
  for (std::string line; std::getline(schema, line);) {
    const auto has = [&line](std::string_view text) { return line.find(text) != std::string::npos; };
    if (has("<xs:key") || has("<xs:unique")) in_key = true;
    const bool dropped = in_key || std::ranges::any_of(kFacets, has);
    if (has("</xs:key") || has("</xs:unique")) in_key = false;
    if (dropped) continue;
    for (const std::string_view type : {"xs:decimal", "xs:date\"", "xs:dateTime", "xs:integer", "xs:nonNegativeInteger",
                                        "xs:positiveInteger", "xs:gYear", "xs:boolean", "xs:int\""}) {
      for (size_t at = line.find(type); at != std::string::npos; at = line.find(type)) {
        line.replace(at, type.size(), type.ends_with('"') ? "xs:string\"" : "xs:string");
      }
    }
    layout.append(line).append("\n");
  }
  return layout;
}

bool IsLaidOutWell(const std::string& file) {
  static fuzz::FileInMemory layout;
  static const bool ready = [] {
    layout.Replace(LayoutOf(ZEVO_SCHEMA_FILE));
    Options().set_SchemaLocation(layout.Path());
    return true;
  }();
  AuditFile audit;
  audit.set_AuditFileName(file);
  return ready && audit.ValidateAuditFile();
}

// A reader that goes record by record finds a journal by its number; tax tables are one to it; and where the first
// record of a kind cannot be read, the next call begins with it again.
bool IsUnambiguous(const testing::FileRecords& found) {
  std::vector<std::string_view> journals;
  int tables = 0;
  for (const auto& [kind, values] : found.records) {
    if (kind == "TaxTable") {
      ++tables;
    } else if (values.empty()) {
      return false;
    }
    if (kind == "Journal") journals.push_back(values.at("Journal.JournalID"));
  }
  std::ranges::sort(journals);
  return tables <= 1 && std::ranges::adjacent_find(journals) == journals.end() &&
         std::ranges::none_of(journals, [](std::string_view id) { return id.empty() || id.find('"') != id.npos; });
}

bool IsOfTheStreamer(const AuditException& failure) {
  return failure.Number() == kErrorBase + static_cast<int32_t>(Message::kEntityNotXml);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static fuzz::FileInMemory given;
  given.Replace({reinterpret_cast<const char*>(data), size});
  const testing::FileRecords streamed = testing::ReadStreamed(given.Path());
  if (streamed.failure && IsOfTheStreamer(*streamed.failure)) return 0;
  const testing::FileRecords one_by_one = testing::ReadOneByOne(given.Path());
  fuzz::Expect(!streamed.failure == !one_by_one.failure, "one of the readers refuses the file");
  if (streamed.failure) {
    fuzz::Expect(streamed.failure->Number() == one_by_one.failure->Number() &&
                     streamed.failure->Description() == one_by_one.failure->Description(),
                 "the readers refuse the file for unlike reasons");
  } else if (IsUnambiguous(streamed) && IsLaidOutWell(given.Path())) {
    fuzz::ExpectNoDifference(testing::Difference(streamed, one_by_one), "streamed and one by one");
  }
  return 0;
}

}  // namespace zevo
