// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/EntityScanner.h>

#include <zevo/Error.h>
#include <zevo/dal/ElementName.h>
#include <zevo/platform/ParserLimits.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace zevo {
namespace {

constexpr std::string_view kRootName = "AuditFile";
constexpr std::string_view kVersion = "1.01_01";
// What a namespace of the audit file begins with; the version follows.
constexpr std::string_view kNamespaceStart = "urn:OECD:StandardAuditFile-Tax:PT_";

// Beyond this much, what stands between two entities is not kept: no file of any program has it.
constexpr size_t kMostBetween = size_t{1} << 20;

// The elements around entities that are none themselves, which stand in the root.
bool IsSection(std::string_view name) {
  const std::string path = std::string("/").append(kRootName).append("/").append(name).append("/");
  return !EntityKindOf(name) &&
         std::ranges::any_of(EntityKinds(), [&](EntityKind kind) { return PathOf(kind).starts_with(path); });
}

// Of the entities that were read, so many are kept for others, unless they are larger than others will be.
constexpr size_t kMostKept = 128;
constexpr size_t kMostKeptOfOne = size_t{32} * 1024;

static_assert(ParserLimits::kNames <= std::numeric_limits<decltype(ScannedName::number)>::max());

bool IsDeclaration(const ParsedName& name) {
  return name.prefix == nullptr ? name.local == std::string_view("xmlns") : name.prefix == std::string_view("xmlns");
}

// That of a path.
std::string StepOf(const ParsedAttribute& attribute) {
  std::string path = "@";
  if (attribute.name.prefix != nullptr) path.append(attribute.name.prefix).append(":");
  return path.append(attribute.name.local);
}

}  // namespace

EntityScanner::EntityScanner(const std::string& fileName) : parse_(fileName, *this) {}
EntityScanner::EntityScanner(RepeatedInput& input) : parse_(input, *this) {}
EntityScanner::~EntityScanner() = default;

void EntityScanner::Open(std::string_view source) {
  while (!version_known_ && finished_.empty() && !at_end_) Feed();
  if (!version_known_ && finished_.empty()) RaiseWhatStoppedIt(source);
}

ScannedEntity* EntityScanner::Next(std::string_view source) {
  if (current_ && free_.size() < kMostKept && current_->Capacity() <= kMostKeptOfOne) {
    free_.push_back(std::move(current_));
  }
  current_ = nullptr;
  while (finished_.empty() && !at_end_) Feed();
  if (finished_.empty()) {
    RaiseWhatStoppedIt(source);
    return nullptr;
  }
  current_ = std::move(finished_.front());
  finished_.pop_front();
  return current_.get();
}

void EntityScanner::Feed() {
  try {
    at_end_ = !parse_.Feed();
  } catch (...) {
    thrown_ = std::current_exception();
    at_end_ = true;
  }
}

void EntityScanner::RaiseWhatStoppedIt(std::string_view source) const {
  if (thrown_) std::rethrow_exception(thrown_);
  Raise(parse_.Problem(), source);
}

const EntityScanner::Name& EntityScanner::NameOf(const ParsedName& parsed) {
  if (parsed.number < by_number_.size() && by_number_[parsed.number] != nullptr) [[likely]] {
    return static_cast<const Name&>(*by_number_[parsed.number]);
  }
  return AddName(parsed);
}

const EntityScanner::Name& EntityScanner::AddName(const ParsedName& parsed) {
  if (by_number_.size() <= parsed.number) by_number_.resize(parsed.number + 1);
  Name& name = names_.emplace_back();
  by_number_[parsed.number] = &name;
  name.own_text = parsed.local;
  name.text = name.own_text;
  name.number = numbers_.try_emplace(name.text, static_cast<uint16_t>(parsed.number)).first->second;
  const auto element = std::ranges::lower_bound(kElementNames, name.text);
  if (element == kElementNames.end() || *element != name.text) return name;
  name.element = static_cast<uint8_t>(element - kElementNames.begin() + 1);
  const std::optional<EntityKind> kind = EntityKindOf(name.text);
  if (kind && zevo::NameOf(*kind) == name.text) name.kind = kind;
  name.is_section = IsSection(name.text);
  return name;
}

void EntityScanner::StartElement(const ParsedName& parsed, std::span<const ParsedAttribute> attributes) {
  const Name& name = NameOf(parsed);
  const FilePlace place = parse_.StartTagPlace(name.text);
  if (entity_ && name.kind && HoldsEntries(entity_->Kind()) && ParentOf(*name.kind) == entity_->Kind()) CutEntity();
  if (!entity_) {
    if (open_.empty()) return StartRoot(parsed, attributes, place);
    if (refusal_) throw Error(*refusal_);
    open_.back().has_children = true;
    EndTextBetween();
    if (!name.kind) return StartBetween(name, attributes, place);
    BeginEntity(name, place);
  }
  entity_->BeginElement(name, place);
  for (const ParsedAttribute& attribute : attributes) {
    if (!IsDeclaration(attribute.name)) entity_->NoteAttribute(StepOf(attribute), attribute.value);
  }
}

void EntityScanner::EndElement(const ParsedName&) {
  if (entity_) {
    entity_->EndElement();
    if (entity_->Depth() == 0) FinishEntity();
    return;
  }
  if (refusal_) throw Error(*refusal_);
  EndTextBetween();
  open_.pop_back();
  if (!journals_.empty() && journals_.back().depth == open_.size()) journals_.pop_back();
  if (open_.empty() && !version_known_) between_.push_back({Fault::kConstant, "/AuditFile", root_place_, {}});
}

void EntityScanner::Characters(std::string_view text) {
  if (entity_) return entity_->AppendText(text);
  if (between_size_ + text_between_.size() + text.size() <= kMostBetween) text_between_ += text;
}

void EntityScanner::Leaf(const ParsedName& parsed, std::string_view text) {
  if (!entity_) return ParserHandler::Leaf(parsed, text);
  const Name& name = NameOf(parsed);
  if (name.kind) return ParserHandler::Leaf(parsed, text);
  entity_->AddLeaf(name, parse_.StartTagPlace(name.text), text);
}

void EntityScanner::StartRoot(const ParsedName& name, std::span<const ParsedAttribute> attributes,
                              const FilePlace& place) {
  root_place_ = place;
  open_.push_back({&NameOf(name), place});
  if (name.local != kRootName) {
    refusal_ = OtherRoot(name.local);
    return;
  }
  for (const ParsedAttribute& attribute : attributes) {
    // The declaration of the root's own namespace.
    const bool prefixed = name.prefix != nullptr;
    if (!IsDeclaration(attribute.name) || (attribute.name.prefix != nullptr) != prefixed) continue;
    if (prefixed && attribute.name.local != std::string_view(name.prefix)) continue;
    // xmlns="" is no namespace.
    if (attribute.value.empty()) continue;
    if (!attribute.value.starts_with(kNamespaceStart)) {
      refusal_ = OtherRoot(attribute.value);
    } else if (const auto version = attribute.value.substr(kNamespaceStart.size()); version != kVersion) {
      refusal_ = OtherVersion(version);
    } else {
      version_known_ = true;
    }
  }
}

// An element around entities, or one that belongs to none.
void EntityScanner::StartBetween(const Name& name, std::span<const ParsedAttribute> attributes,
                                 const FilePlace& place) {
  const bool section = open_.size() == 1 && name.is_section;
  open_.push_back({&name, place});
  if (!section) open_.back().problem = NoteBetween({}, place);
  for (const ParsedAttribute& attribute : attributes) {
    if (IsDeclaration(attribute.name)) continue;
    const auto problem = NoteBetween("/" + StepOf(attribute), place);
    if (problem) between_[*problem].text = attribute.value;
  }
}

void EntityScanner::BeginEntity(const Name& name, const FilePlace& place) {
  if (free_.empty()) {
    entity_ = std::make_unique<ScannedEntity>();
  } else {
    entity_ = std::move(free_.back());
    free_.pop_back();
  }
  const EntityKind kind = *name.kind;
  const bool in_journal = kind == EntityKind::kTransaction && !journals_.empty();
  entity_->Begin(kind, in_journal ? journals_.back().id : std::string(), by_number_);
  for (Problem& problem : between_) entity_->Add(std::move(problem));
  between_.clear();
  between_size_ = 0;
  for (OpenElement& open : open_) open.problem.reset();
  if (!IsPlaceOf(kind)) entity_->Add({Fault::kOutOfOrder, {}, place, OpenPath()});
}

// Ends a section or a journal at the first entry inside.
void EntityScanner::CutEntity() {
  const size_t depth = open_.size();
  for (const size_t element : entity_->OpenElements()) {
    open_.push_back({static_cast<const Name*>(&entity_->NameOf(element)), entity_->PlaceOf(element)});
  }
  entity_->Cut();
  if (entity_->Kind() == EntityKind::kJournal) {
    const auto id = entity_->Find("JournalID");
    journals_.push_back({depth, std::string(id ? entity_->TextOf(*id) : std::string_view())});
  }
  FinishEntity();
}

void EntityScanner::FinishEntity() {
  if (!version_known_) CheckVersion();
  finished_.push_back(std::move(entity_));
}

Error EntityScanner::OtherRoot(std::string_view root) {
  refused_as_ = {.another_version = false, .found = std::string(root), .place = root_place_};
  return Error(kErrorBase + static_cast<int32_t>(Message::kNoAuditFile), "AuditFileScanner.OpenAuditFile",
               "O ficheiro não é um ficheiro de auditoria");
}

Error EntityScanner::OtherVersion(std::string_view version) {
  constexpr int kMostCharacters = 40;
  refused_as_ = {.another_version = true, .found = std::string(version), .place = root_place_};
  return Error(kErrorBase + static_cast<int32_t>(Message::kOtherVersion), "AuditFileScanner.OpenAuditFile",
               std::string("O ficheiro é da versão ")
                   .append(Leftmost(version, kMostCharacters))
                   .append("; só a versão 1.01_01 é lida"));
}

// A file of no namespace tells its version in the header; where neither does, it counts as the one that is read.
void EntityScanner::CheckVersion() {
  const auto version = entity_->Find("AuditFileVersion");
  if (version) {
    const std::string_view found = TrimWhiteSpace(entity_->TextOf(*version));
    if (found != kVersion) throw OtherVersion(found);
  } else {
    entity_->Add({Fault::kConstant, "/AuditFile", root_place_, {}});
  }
  version_known_ = true;
}

// Where the problem stands among those between entities; nothing when there are too many. `step` is what follows the
// path of the innermost element.
std::optional<size_t> EntityScanner::NoteBetween(std::string_view step, const FilePlace& place) {
  if (between_size_ > kMostBetween) return std::nullopt;
  std::string path = OpenPath().append(step);
  between_size_ += sizeof(Problem) + path.size();
  between_.push_back({Fault::kUnknownElement, std::move(path), place, {}});
  return between_.size() - 1;
}

// Nothing but white space around elements is no text.
void EntityScanner::EndTextBetween() {
  if (text_between_.empty()) return;
  OpenElement& open = open_.back();
  if (!IsWhiteSpace(text_between_)) {
    if (!open.problem) open.problem = NoteBetween("/text()", open.place);
  } else if (open.has_children) {
    return text_between_.clear();
  }
  if (open.problem) {
    between_[*open.problem].text += text_between_;
    between_size_ += text_between_.size();
  }
  text_between_.clear();
}

// Whether the open elements are those around entities of a kind.
bool EntityScanner::IsPlaceOf(EntityKind kind) const {
  std::string_view path = zevo::PathOf(kind);
  for (const OpenElement& open : open_) {
    path.remove_prefix(1);
    if (!path.starts_with(open.name->text)) return false;
    path.remove_prefix(open.name->text.size());
    if (!path.starts_with('/')) return false;
  }
  return path.size() == 1 + zevo::NameOf(kind).size();
}

std::string EntityScanner::OpenPath() const {
  std::string path;
  for (const OpenElement& open : open_) path.append("/").append(open.name->text);
  return path;
}

}  // namespace zevo
