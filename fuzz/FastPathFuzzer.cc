// SPDX-License-Identifier: Apache-2.0
// Any bytes as a file, parsed with the fast path and without it: the same events, names, places, problems, trees,
// entities and verdicts, wherever the pieces of the file end.

#include <zevo/Error.h>
#include <zevo/dal/EntityScanner.h>
#include <zevo/dal/SAXDALReader.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/Document.h>
#include <zevo/platform/DocumentBuilder.h>
#include <zevo/platform/File.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaValidator.h>
#include <zevo/platform/Serializer.h>
#include <zevo/platform/TextDecoder.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fuzz/Expect.h"
#include "fuzz/FileInMemory.h"
#include "fuzz/XmlMutator.h"
#include "tests/platform/fastpath/Telling.h"

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

namespace zevo {
namespace {

using fuzz::Expect;
using fuzz::ExpectNoDifference;
using testing::Telling;

/// Bytes as they are written.
class Bytes : public ByteSink {
 public:
  void Write(std::string_view bytes) override { text += bytes; }
  std::string text;
};

std::string Shown(const FilePlace& place) {
  return std::to_string(place.line) + ":" + std::to_string(place.column) + "@" + std::to_string(place.offset);
}

/// What is told of a file, in lines, of which some have a place.
struct Line {
  std::string text;
  FilePlace place = {};

  /// A place that was not expected to be known may be.
  bool IsLike(const Line& expected) const {
    return text == expected.text && (place == expected.place || expected.place == FilePlace());
  }
};
using Lines = std::vector<Line>;

Line LineOf(const XmlProblem& problem) {
  return {"problem " + std::to_string(problem.number) + " " + problem.reason + " " +
          std::to_string(static_cast<int>(problem.fault)) + " " + Shown(problem.place)};
}

Line LineOf(const Problem& problem) {
  return {"fault " + std::to_string(static_cast<int>(problem.fault)) + " " + problem.path + " " + problem.text,
          problem.place};
}

Line Written(const Document& document) {
  Bytes bytes;
  try {
    WriteDocumentTo(bytes, document);
  } catch (const Error& error) {
    return {"not written " + std::to_string(error.Number())};
  }
  return {bytes.text};
}

Lines Tree(const std::string& path) {
  Document document;
  DocumentBuilder builder(document, Indentation::kKept);
  if (const auto problem = Parser(path).Parse(builder)) return {LineOf(*problem)};
  return {Written(document)};
}

Lines Streamed(const std::string& path) {
  Lines lines;
  SAXDALReader reader;
  reader.set_AuditFileName(path);
  reader.ReadEntity = [&](const std::string& name, Element entity) {
    lines.push_back({"streamed " + name});
    if (entity) lines.push_back(Written(entity.Owner()));
  };
  try {
    reader.OpenFile();
    reader.ReadFile();
  } catch (const Error& error) {
    lines.push_back({"error " + std::to_string(error.Number()) + " " + error.Description()});
  }
  return lines;
}

Lines Entities(const std::string& path) {
  Lines lines;
  const auto add_problems = [&](const std::vector<Problem>& problems) {
    for (const Problem& problem : problems) lines.push_back(LineOf(problem));
  };
  EntityScanner scanner(path);
  try {
    scanner.Open("");
    while (const ScannedEntity* entity = scanner.Next("")) {
      lines.push_back({"entity " + entity->JournalID()});
      for (const ScannedElement& element : entity->Elements()) {
        lines.push_back(
            {std::to_string(element.depth) + " " + std::string(element.name) + " " + std::string(element.text),
             element.place});
      }
      add_problems(entity->Problems());
    }
    add_problems(scanner.ProblemsAtTheEnd());
  } catch (const Error& error) {
    lines.push_back({"error " + std::to_string(error.Number()) + " " + error.Description()});
  }
  return lines;
}

Lines Violations(const std::string& path) {
  static const CompiledSchema schema(SchemaSource::BuiltIn(), "urn:OECD:StandardAuditFile-Tax:PT_1.01_01", "Fuzzer");
  Lines lines;
  SchemaValidator(schema).Validate(path, [&](const XmlProblem& problem) {
    lines.push_back(LineOf(problem));
    return lines.size() < 5;
  });
  return lines;
}

void ExpectSame(const Lines& found, const Lines& expected, const std::string& what) {
  const auto [one, other] = std::ranges::mismatch(found, expected, &Line::IsLike);
  if (one == found.end() && other == expected.end()) return;
  const auto shown = [](const Line& line) { return line.text + " " + Shown(line.place); };
  Expect(false, what + ": " + (one == found.end() ? "nothing" : shown(*one)) + ", not " +
                    (other == expected.end() ? "nothing" : shown(*other)));
}

bool CanBeDecoded(std::string_view bytes) {
  InputBytes input(bytes);
  TextDecoder decoder(input);
  std::array<char, 4096> piece;
  while (decoder.Read(piece.data(), piece.size()) > 0) {
  }
  return decoder.fault() == TextDecoder::Fault::kNone;
}

// libxml2 stops as soon as it reads what cannot be decoded, which is some way ahead of what it tells. What comes in
// pieces may be told nearer to there.
void ForgetWhatIsNearer(Telling& found, const Telling& expected) {
  if (found.events.size() > expected.events.size()) found.events.resize(expected.events.size());
  if (!expected.events.empty() && !found.events.empty() && found.events.back().starts_with(expected.events.back())) {
    found.events.back() = expected.events.back();
  }
}

void Compare(std::string_view bytes) {
  static fuzz::FileInMemory file;
  file.Replace(bytes);
  const std::string& path = file.Path();
  struct All {
    All(std::string_view bytes, const std::string& path)
        : parsed(testing::ToldByParser(bytes)),
          pulled(testing::ToldByPulledParse(path)),
          tree(Tree(path)),
          streamed(Streamed(path)),
          entities(Entities(path)),
          violations(Violations(path)) {}
    Telling parsed;
    Telling pulled;
    Lines tree;
    Lines streamed;
    Lines entities;
    Lines violations;
  };
  const testing::WithFastPath off(false);
  const All slow(bytes, path);
  const testing::WithFastPath on(true);
  const All fast(bytes, path);
  Expect(slow.parsed.broken_rule.empty(), slow.parsed.broken_rule);
  ExpectNoDifference(Difference(fast.parsed, slow.parsed), "Parser");
  ExpectNoDifference(Difference(fast.pulled, slow.pulled), "PulledParse");
  ExpectSame(fast.tree, slow.tree, "tree");
  ExpectSame(fast.streamed, slow.streamed, "streamed");
  ExpectSame(fast.entities, slow.entities, "entities");
  ExpectSame(fast.violations, slow.violations, "violations");
  const bool is_decodable = CanBeDecoded(bytes);
  // Two of many, so that all come to their turn.
  for (const size_t room : {8 + bytes.size() % 24, 64 + bytes.size() * 7 % 512}) {
    Telling told = testing::ToldInPieces(bytes, room).told;
    if (!is_decodable) ForgetWhatIsNearer(told, slow.parsed);
    ExpectNoDifference(Difference(told, slow.parsed), "pieces of " + std::to_string(room));
  }
}

}  // namespace
}  // namespace zevo

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed) {
  if (seed % 3 == 0) return LLVMFuzzerMutate(data, size, maxSize);
  const std::string changed = zevo::fuzz::XmlMutator(seed).Mutated({reinterpret_cast<const char*>(data), size});
  if (changed.empty() || changed.size() > maxSize) return LLVMFuzzerMutate(data, size, maxSize);
  std::ranges::copy(changed, data);
  return changed.size();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  zevo::Compare({reinterpret_cast<const char*>(data), size});
  return 0;
}
