// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/ScannedEntity.h>

#include <zevo/Error.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <numeric>

namespace zevo {
namespace {

constexpr size_t kMost = std::numeric_limits<uint32_t>::max();

// Far beyond what the record of such an entity could be held in.
[[noreturn, gnu::cold]] void RefuseSize() { throw MakeRunTimeError(RunTimeError::kOutOfMemory); }

// What is counted in 32 bits.
inline uint32_t Small(uint64_t count) {
  if (count >= kMost) RefuseSize();
  return static_cast<uint32_t>(count);
}

}  // namespace

void ScannedEntity::Begin(EntityKind kind, std::string_view journalId, const ScannedNames& names) {
  kind_ = kind;
  journal_id_ = journalId;
  names_ = &names;
  nodes_.Clear();
  places_.Clear();
  texts_.clear();
  open_.clear();
  noted_.Clear();
  problems_.clear();
  elements_.clear();
  ordinals_.clear();
}

void ScannedEntity::BeginElement(const ScannedName& name, const FilePlace& place) {
  AddElement(name, place);
  open_.push_back({static_cast<uint32_t>(nodes_.Size() - 1), texts_.size(), false});
}

void ScannedEntity::AddLeaf(const ScannedName& name, const FilePlace& place, std::string_view text) {
  AddElement(name, place);
  const size_t begin = texts_.size();
  texts_ += text;
  if (!text.empty()) nodes_.Last().text = ExtentFrom(begin);
  open_.back().text = texts_.size();
}

inline void ScannedEntity::AddElement(const ScannedName& name, const FilePlace& place) {
  if (!open_.empty()) {
    open_.back().has_children = true;
    EndText(open_.back());
  }
  Small(nodes_.Size());
  places_.Add(place);
  nodes_.Add({.text = {}, .name = name.number, .depth = static_cast<uint16_t>(open_.size())});
}

void ScannedEntity::NoteAttribute(std::string_view step, std::string_view value) {
  Open& open = open_.back();
  texts_.append(step).append(value);
  NoteText(open.element, open.text, step.size());
  open.text = texts_.size();
}

// A problem that has the texts from `begin` on to itself.
void ScannedEntity::NoteText(uint32_t element, size_t begin, size_t stepLength) {
  const auto step = static_cast<uint32_t>(stepLength);
  const Extent texts = ExtentFrom(begin);
  noted_.Add({Fault::kUnknownElement, element, ElementNote::NamedText{texts.begin, step, texts.length - step}});
}

ScannedEntity::Extent ScannedEntity::ExtentFrom(size_t begin) const {
  return {Small(begin), Small(texts_.size()) - static_cast<uint32_t>(begin)};
}

void ScannedEntity::EndElement() {
  EndText(open_.back());
  open_.pop_back();
  if (!open_.empty()) open_.back().text = texts_.size();
}

// Of an element with others inside, white space is nothing, and of other texts the first is the element's.
void ScannedEntity::TakeText(const Open& open) {
  if (open.has_children && IsWhiteSpace(std::string_view{texts_}.substr(open.text))) {
    texts_.resize(open.text);
    return;
  }
  Extent& text = nodes_[open.element].text;
  if (text.length == 0) text = ExtentFrom(open.text);
  if (open.has_children) NoteText(open.element, open.text, 0);
}

std::vector<size_t> ScannedEntity::OpenElements() const {
  std::vector<size_t> elements;
  for (const Open& open : open_) elements.push_back(open.element);
  return elements;
}

void ScannedEntity::Cut() {
  if (!open_.empty()) open_.back().has_children = true;
  while (!open_.empty()) EndElement();
}

const std::vector<Problem>& ScannedEntity::Problems() const {
  if (noted_.Count() == 0) return problems_;
  std::vector<Problem> made;
  made.reserve(problems_.size() + noted_.Count());
  NoteList::Reader notes(noted_);
  for (size_t left = noted_.Count(); left > 0; --left) {
    const ElementNote note = notes.Next();
    std::string path = PathOf(note.element);
    Extent text = nodes_[note.element].text;
    if (note.text) {
      const std::string_view step = TextAt({note.text->begin, note.text->name_length});
      path.append(path.empty() ? "" : "/").append(step.empty() ? "text()" : step);
      text = {note.text->begin + note.text->name_length, note.text->length};
    }
    made.push_back({note.fault, std::move(path), PlaceOf(note.element), std::string(TextAt(text))});
  }
  // Where there was no memory for all of them, nothing has changed.
  made.insert(made.begin(), std::make_move_iterator(problems_.begin()), std::make_move_iterator(problems_.end()));
  problems_ = std::move(made);
  noted_.Clear();
  return problems_;
}

std::string ScannedEntity::PathOf(size_t element) const {
  if (element == 0) return {};
  if (ordinals_.size() != nodes_.Size()) NumberSiblings();
  std::string path = PathOf(parents_[element]);
  if (!path.empty()) path += '/';
  path += NameOf(element).text;
  if (ordinals_[element] > 0) path.append("[").append(std::to_string(ordinals_[element])).append("]");
  return path;
}

void ScannedEntity::NumberSiblings() const {
  parents_.assign(nodes_.Size(), 0);
  std::vector<uint32_t> above;  // by their depths, the last elements so far
  for (uint32_t element = 0; element < nodes_.Size(); ++element) {
    above.resize(nodes_[element].depth);
    if (!above.empty()) parents_[element] = above.back();
    above.push_back(element);
  }
  std::vector<uint32_t> sorted(nodes_.Size() - 1);
  std::iota(sorted.begin(), sorted.end(), 1);
  const auto siblings = [&](uint32_t element) { return std::pair(parents_[element], nodes_[element].name); };
  std::ranges::sort(sorted, {}, [&](uint32_t element) { return std::pair(siblings(element), element); });
  ordinals_.assign(nodes_.Size(), 0);
  for (auto first = sorted.begin(); first != sorted.end();) {
    const auto next =
        std::find_if(first, sorted.end(), [&](uint32_t other) { return siblings(other) != siblings(*first); });
    if (next - first > 1) {
      for (uint32_t ordinal = 1; first != next; ++first) ordinals_[*first] = ordinal++;
    }
    first = next;
  }
}

std::optional<size_t> ScannedEntity::Find(std::string_view path) const {
  if (nodes_.Size() == 0) return std::nullopt;
  size_t element = 0;
  while (!path.empty()) {
    const std::string_view step = path.substr(0, path.find('/'));
    path.remove_prefix(std::min(path.size(), step.size() + 1));
    const std::string_view name = step.substr(0, step.find('['));
    uint32_t number = 1;
    if (name.size() < step.size()) {
      const char* const end = step.data() + step.size();
      const auto read = std::from_chars(name.data() + name.size() + 1, end, number);
      if (read.ec != std::errc() || std::string_view(read.ptr, end) != "]") return std::nullopt;
    }
    const std::optional<size_t> child = ChildOf(element, name, number);
    if (!child) return std::nullopt;
    element = *child;
  }
  return element;
}

std::optional<size_t> ScannedEntity::ChildOf(size_t element, std::string_view name, uint32_t ordinal) const {
  const int depth = nodes_[element].depth + 1;
  uint32_t seen = 0;
  for (size_t child = element + 1; child < nodes_.Size() && nodes_[child].depth >= depth; ++child) {
    if (nodes_[child].depth == depth && NameOf(child).text == name && ++seen == ordinal) return child;
  }
  return std::nullopt;
}

std::span<const ScannedElement> ScannedEntity::Elements() const {
  if (elements_.empty()) {
    elements_.reserve(nodes_.Size());
    FilePlace place = PlaceOf(0);
    for (size_t i = 0; i < nodes_.Size(); ++i) {
      place = places_.After(place, i);
      elements_.push_back({NameOf(i).text, nodes_[i].depth, TextOf(i), place});
    }
  }
  return elements_;
}

}  // namespace zevo
