// SPDX-License-Identifier: Apache-2.0
// Any bytes as an audit file, scanned: the scan ends as the other readers do, its records hold what its elements say or
// a problem tells that they do not, and they agree with those of the streaming reader, apart from what that leaves out
// or changes on purpose.

#include <zevo/adapters.h>
#include <zevo/mappers/EntityMapper.h>
#include <zevo/mappers/Layouts.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "fuzz/Expect.h"
#include "fuzz/FileInMemory.h"
#include "tests/support/ElementPaths.h"

namespace zevo {
namespace {

using fuzz::Expect;

struct Streamed {
  struct Entity {
    std::string name;
    std::shared_ptr<Record> record;  // null when it could not be built
  };
  std::vector<Entity> entities;
  std::shared_ptr<const AuditException> failure;
};

Streamed Stream(const std::string& path) {
  Streamed found;
  AuditFileStreamer streamer;
  streamer.set_AuditFileName(path);
  streamer.ReadEntity = [&found](const std::string& name, const std::shared_ptr<Record>& record) {
    found.entities.push_back({name, record});
  };
  Expect(streamer.OpenAuditFile(), "not ready to read");
  streamer.ReadAuditFile();
  found.failure = streamer.AuditException();
  return found;
}

bool IsMessage(const std::shared_ptr<const AuditException>& failure, Message message) {
  return failure != nullptr && failure->Number() == kErrorBase + static_cast<int32_t>(message);
}

/// What two texts tell as numbers, without what tells nothing.
std::string Number(std::string_view text) {
  text = TrimWhiteSpace(text);
  const bool negative = text.starts_with('-');
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  const size_t point = std::min(text.find('.'), text.size());
  std::string whole(text.substr(0, point));
  std::string fraction(text.substr(std::min(point + 1, text.size())));
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  fraction.resize(fraction.find_last_not_of('0') + 1);
  const bool zero = whole.empty() && fraction.empty();
  return (negative && !zero ? "-" : "") + whole + "." + fraction;
}

std::string Flag(std::string_view text) {
  text = TrimWhiteSpace(text);
  return text == "true" ? "1." : text == "false" ? "." : Number(text);
}

/// A text as the streaming reader has it.
std::string OnOneLine(std::string_view text) {
  std::string line = ReplaceAll(ReplaceAll(text, "&quot;", "\""), "\r\n", " ");
  std::ranges::replace_if(
      line, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
  return std::string(TrimSpaces(line));
}

/// Looks at one record of a scan.
class RecordCheck {
 public:
  RecordCheck(std::span<const ScannedElement> elements, const std::vector<Problem>& problems)
      : elements_(elements), where_(testing::PathsOf(elements)) {
    for (const Problem& problem : problems) Note(problem);
  }

  /// A record, its element and, where it was streamed too, that record.
  void Check(const Record& record, std::span<const LayoutRow> layout, size_t element, const Record* streamed) {
    const std::span<const Property> properties = PropertiesOf(record);
    std::map<std::string_view, std::vector<size_t>> children;
    for (size_t i = element + 1; i < EndOf(element); ++i) {
      if (where_.parents[i] == element) children[elements_[i].name].push_back(i);
    }
    for (const LayoutRow& row : layout) {
      const Property& property = properties[row.slot];
      const std::vector<size_t> found = std::exchange(children[row.element], {});
      if (property.type == PropertyType::kCollection) {
        CheckItems(record, row, property, found, streamed);
        continue;
      }
      for (size_t i = 1; i < found.size(); ++i) Expect(IsTold(found[i], Fault::kRepeated), At(found[i]) + " is lost");
      const std::optional<size_t> child = found.empty() ? std::nullopt : std::optional(found.front());
      if (property.type == PropertyType::kRecord) {
        CheckChild(record, row, property, child, streamed);
      } else {
        CheckText(record, row, property, element, child, streamed);
      }
    }
    for (const auto& [name, left] : children) {
      for (const size_t child : left) Expect(IsTold(child, Fault::kUnknownElement), At(child) + " is not told");
    }
  }

 private:
  void Note(const Problem& problem) {
    if (problem.path.starts_with("/")) return;
    const auto element = std::ranges::find(where_.paths, problem.path);
    if (element != where_.paths.end()) {
      const ScannedElement& there = elements_[static_cast<size_t>(element - where_.paths.begin())];
      Expect(problem.place == there.place, problem.path + " is told at another place");
      const bool at_wrong_place = problem.path.empty() && problem.fault == Fault::kOutOfOrder;
      Expect(at_wrong_place || problem.text == there.text, problem.path + " is told with another text");
    } else {
      const size_t slash = problem.path.rfind('/');
      const std::string_view last = std::string_view{problem.path}.substr(slash + 1);
      const std::string owner = slash == std::string::npos ? "" : problem.path.substr(0, slash);
      Expect(std::ranges::count(where_.paths, owner) == 1, "what is told is nowhere: " + problem.path);
      Expect(last == "text()" || last.starts_with("@"), "what is told is not there: " + problem.path);
      Expect(problem.fault == Fault::kUnknownElement, problem.path);
    }
    Expect(told_[problem.path].insert(problem.fault).second || element == where_.paths.end(),
           problem.path + " is told twice");
  }

  const std::string& At(size_t element) const { return where_.paths[element]; }
  bool IsTold(size_t element, Fault fault) const {
    const auto told = told_.find(At(element));
    return told != told_.end() && told->second.contains(fault);
  }
  // The element itself or what is in it, but for its place.
  bool IsAnyTold(size_t element) const {
    const std::string& path = At(element);
    return std::ranges::any_of(told_, [&](const auto& told) {
      if (told.first == path) return told.second != std::set{Fault::kOutOfOrder};
      return told.first.starts_with(path + "/");
    });
  }

  size_t EndOf(size_t element) const {
    size_t end = element + 1;
    while (end < elements_.size() && elements_[end].depth > elements_[element].depth) ++end;
    return end;
  }

  void CheckItems(const Record& record, const LayoutRow& row, const Property& property,
                  const std::vector<size_t>& found, const Record* streamed) {
    Expect(property.count(record) == static_cast<int32_t>(found.size()), "another number of items");
    if (streamed != nullptr) Expect(property.count(*streamed) == property.count(record), "other items were streamed");
    for (size_t i = 0; i < found.size(); ++i) {
      const auto position = static_cast<int32_t>(i + 1);
      Check(*property.item(record, position), row.children(), found[i],
            streamed == nullptr ? nullptr : property.item(*streamed, position).get());
    }
  }

  void CheckChild(const Record& record, const LayoutRow& row, const Property& property, std::optional<size_t> child,
                  const Record* streamed) {
    const auto held = std::get<std::shared_ptr<Record>>(property.get(record));
    const bool is_owned = property.set == nullptr;
    Expect(is_owned || (held != nullptr) == child.has_value(), "a record too many or too few");
    std::shared_ptr<Record> other;
    if (streamed != nullptr) {
      other = std::get<std::shared_ptr<Record>>(property.get(*streamed));
      Expect((other == nullptr) == (held == nullptr), "a record was streamed, or was not");
    }
    if (child) {
      Check(*held, row.children(), *child, other.get());
    } else if (is_owned) {
      ExpectEmpty(*held);
    }
  }

  void CheckText(const Record& record, const LayoutRow& row, const Property& property, size_t element,
                 std::optional<size_t> child, const Record* streamed) {
    const PropertyValue value = property.get(record);
    if (!child) {
      Expect(IsEmpty(property, value), std::string(row.element) + " is not in the file");
    } else if (property.set == nullptr) {
      Expect(IsTold(*child, Fault::kConstant) == (std::get<std::string>(value) != elements_[*child].text),
             At(*child) + " is constant");
    } else if (IsTold(*child, Fault::kUnreadable) || IsTold(*child, Fault::kUnknownCode)) {
      Expect(IsEmpty(property, value), At(*child) + " has a value and cannot be read");
    } else if (!IsTold(*child, Fault::kInexact)) {
      ExpectText(property, value, *child);
    }
    if (streamed == nullptr || row.not_read_back || row.read_as != row.element) return;
    if (FoundByName(row.element, element) != child || (child && IsAnyTold(*child))) return;
    const PropertyValue other = property.get(*streamed);
    const auto* const text = std::get_if<std::string>(&value);
    Expect(text == nullptr ? value == other : OnOneLine(*text) == std::get<std::string>(other),
           std::string(row.element) + " was streamed as another value");
  }

  // What a property has where the file has nothing.
  static bool IsEmpty(const Property& property, const PropertyValue& value) {
    if (property.set == nullptr) return true;
    return std::visit([](const auto& held) { return held == std::remove_cvref_t<decltype(held)>(); }, value);
  }

  static void ExpectEmpty(const Record& record) {
    WalkProperties(record, [](std::string_view path, const Property& property, const Record& owner) {
      if (property.type == PropertyType::kCollection || property.set == nullptr) return;
      Expect(IsEmpty(property, property.get(owner)), std::string(path) + " is not in the file");
    });
  }

  void ExpectText(const Property& property, const PropertyValue& value, size_t element) {
    const std::string held = TextFromValue(property, value);
    const std::string_view text = elements_[element].text;
    switch (property.type) {
      case PropertyType::kAmount:
      case PropertyType::kSingle:
      case PropertyType::kCount:
        return Expect(Number(held) == Number(text), At(element) + " is another number");
      case PropertyType::kFlag:
        return Expect(Flag(held) == Flag(text), At(element) + " is another flag");
      default:
        return Expect(held == text, At(element) + " is another text");
    }
  }

  // The element that the streaming reader takes for one of a name: the first in the parent, at any depth, or the parent
  // itself, that is not empty.
  std::optional<size_t> FoundByName(std::string_view name, size_t parent) const {
    for (size_t i = parent; i < EndOf(parent); ++i) {
      const bool has_children = i + 1 < elements_.size() && elements_[i + 1].depth > elements_[i].depth;
      if (elements_[i].name == name && (has_children || !elements_[i].text.empty())) return i;
    }
    return std::nullopt;
  }

  std::span<const ScannedElement> elements_;
  testing::ElementPaths where_;
  std::map<std::string, std::set<Fault>> told_;
};

// Where the file is cut up otherwise by the streaming reader, which takes names in any letter case.
bool IsCutUpAlike(const Streamed& streamed, size_t count) {
  return std::all_of(streamed.entities.begin(), streamed.entities.begin() + static_cast<ptrdiff_t>(count),
                     [](const Streamed::Entity& entity) {
                       const auto kind = EntityKindOf(entity.name);
                       return kind && NameOf(*kind) == entity.name;
                     });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static fuzz::FileInMemory given;
  given.Replace({reinterpret_cast<const char*>(data), size});
  const Streamed streamed = Stream(given.Path());
  AuditFileReader reader;
  reader.set_AuditFileName(given.Path());
  reader.OpenAuditFile();
  const std::shared_ptr<const AuditException> refused = reader.AuditException();

  AuditFileScanner scanner;
  scanner.set_AuditFileName(given.Path());
  bool goes_on = scanner.OpenAuditFile();
  size_t count = 0;
  while (goes_on) {
    std::shared_ptr<Record> record;
    goes_on = scanner.ReadNext(record);
    if (record == nullptr) break;
    const bool was_streamed = count < streamed.entities.size() && IsCutUpAlike(streamed, count + 1);
    const Record* other = was_streamed ? streamed.entities[count].record.get() : nullptr;
    if (was_streamed) Expect(streamed.entities[count].name == NameOf(*scanner.Kind()), "an entity of another kind");
    Expect(record->Kind() == scanner.Kind(), "a record of another kind");
    RecordCheck(scanner.Elements(), scanner.Problems()).Check(*record, LayoutOf(*scanner.Kind()), 0, other);
    ++count;
  }

  const std::shared_ptr<const AuditException> failure = scanner.AuditException();
  if (IsMessage(failure, Message::kNoAuditFile) || IsMessage(failure, Message::kOtherVersion)) return 0;
  Expect(!failure == !refused, "only one of the readers refuses the file");
  if (failure != nullptr) {
    Expect(failure->Number() == refused->Number() && failure->Description() == refused->Description(),
           "the readers refuse the file for unlike reasons");
  }
  if (!IsCutUpAlike(streamed, streamed.entities.size())) return 0;
  if (streamed.failure == nullptr) {
    Expect(count == streamed.entities.size(), "another number of entities than was streamed");
    return 0;
  }
  // Where a file breaks off, the scan may come further: to the end of the entity, or of what is read ahead. A section
  // may have been cut off at an entry, in other letter case, that never ended.
  const bool last_may_lack = !streamed.entities.empty() && HoldsEntries(*EntityKindOf(streamed.entities.back().name));
  Expect(count + (last_may_lack ? 1 : 0) >= streamed.entities.size(), "fewer entities than were streamed");
  return 0;
}

}  // namespace zevo
