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
constexpr uint32_t kNowhere = std::numeric_limits<uint32_t>::max();

// Far beyond what the record of such an entity could be held in.
[[noreturn, gnu::cold]] void RefuseSize() { throw MakeRunTimeError(RunTimeError::kOutOfMemory); }

// What is counted in 32 bits.
inline uint32_t Small(uint64_t count) {
  if (count >= kMost) RefuseSize();
  return static_cast<uint32_t>(count);
}

}  // namespace

void ScannedEntity::Begin(EntityKind kind, std::string_view journalId) {
  kind_ = kind;
  journal_id_ = journalId;
  nodes_.clear();
  texts_.clear();
  open_.clear();
  noted_.clear();
  problems_.clear();
  elements_.clear();
  ordinals_.clear();
}

void ScannedEntity::BeginElement(const ScannedName& name, const FilePlace& place) {
  AddElement(name, place);
  open_.push_back({static_cast<uint32_t>(nodes_.size() - 1), texts_.size(), false});
}

void ScannedEntity::AddLeaf(const ScannedName& name, const FilePlace& place, std::string_view text) {
  Node& node = AddElement(name, place);
  const size_t begin = texts_.size();
  texts_ += text;
  if (!text.empty()) node.text = ExtentFrom(begin);
  open_.back().text = texts_.size();
}

inline ScannedEntity::Node& ScannedEntity::AddElement(const ScannedName& name, const FilePlace& place) {
  Small(nodes_.size());
  uint32_t parent = 0;
  if (open_.empty()) {
    place_ = place;
  } else {
    open_.back().has_children = true;
    EndText(open_.back());
    parent = open_.back().element;
  }
  Node node{.name = &name, .parent = parent, .text = {}, .line = kNowhere, .column = 0, .offset = 0, .depth = 0};
  node.depth = static_cast<uint16_t>(open_.size());
  if (place.line > 0) {
    node.line = static_cast<uint32_t>(place.line - place_.line);
    node.column = static_cast<uint32_t>(place.column - (node.line == 0 ? place_.column : 0));
    node.offset = Small(static_cast<uint64_t>(place.offset - place_.offset));
  }
  return nodes_.emplace_back(node);
}

FilePlace ScannedEntity::PlaceOf(size_t element) const {
  const Node& node = nodes_[element];
  if (node.line == kNowhere) return {};
  return {place_.line + node.line, node.column + (node.line == 0 ? place_.column : 0), place_.offset + node.offset};
}

void ScannedEntity::NoteAttribute(std::string_view step, std::string_view value) {
  Open& open = open_.back();
  texts_ += step;
  const Extent there = ExtentFrom(open.text);
  const size_t begin = texts_.size();
  texts_ += value;
  Note(Fault::kUnknownElement, open.element, there, ExtentFrom(begin));
  open.text = texts_.size();
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
void ScannedEntity::EndText(Open& open) {
  if (texts_.size() == open.text) return;
  if (open.has_children && TrimWhiteSpace(std::string_view{texts_}.substr(open.text)).empty()) {
    texts_.resize(open.text);
    return;
  }
  const Extent text = ExtentFrom(open.text);
  Node& node = nodes_[open.element];
  if (node.text.length == 0) node.text = text;
  if (!open.has_children) return;
  constexpr std::string_view kStep = "text()";
  const size_t begin = texts_.size();
  texts_ += kStep;
  Note(Fault::kUnknownElement, open.element, ExtentFrom(begin), text);
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
  if (noted_.empty()) return problems_;
  std::vector<Problem> made;
  made.reserve(problems_.size() + noted_.size());
  for (const Noted& noted : noted_) {
    std::string path = PathOf(noted.element);
    if (noted.step.length > 0) path.append(path.empty() ? "" : "/").append(TextAt(noted.step));
    made.push_back({noted.fault, std::move(path), PlaceOf(noted.element), std::string(TextAt(noted.text))});
  }
  // Where there was no memory for all of them, nothing has changed.
  made.insert(made.begin(), std::make_move_iterator(problems_.begin()), std::make_move_iterator(problems_.end()));
  problems_ = std::move(made);
  noted_.clear();
  return problems_;
}

std::string ScannedEntity::PathOf(size_t element) const {
  if (element == 0) return {};
  if (ordinals_.size() != nodes_.size()) NumberSiblings();
  const Node& node = nodes_[element];
  std::string path = PathOf(node.parent);
  if (!path.empty()) path += '/';
  path += node.name->text;
  if (ordinals_[element] > 0) path.append("[").append(std::to_string(ordinals_[element])).append("]");
  return path;
}

void ScannedEntity::NumberSiblings() const {
  std::vector<uint32_t> sorted(nodes_.size() - 1);
  std::iota(sorted.begin(), sorted.end(), 1);
  const auto siblings = [&](uint32_t element) {
    return std::pair(nodes_[element].parent, nodes_[element].name->number);
  };
  std::ranges::sort(sorted, {}, [&](uint32_t element) { return std::pair(siblings(element), element); });
  ordinals_.assign(nodes_.size(), 0);
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
  if (nodes_.empty()) return std::nullopt;
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
  for (size_t child = element + 1; child < nodes_.size() && nodes_[child].depth >= depth; ++child) {
    const Node& node = nodes_[child];
    if (node.depth == depth && node.name->text == name && ++seen == ordinal) return child;
  }
  return std::nullopt;
}

std::span<const ScannedElement> ScannedEntity::Elements() const {
  if (elements_.empty()) {
    elements_.reserve(nodes_.size());
    for (size_t i = 0; i < nodes_.size(); ++i) {
      elements_.push_back({nodes_[i].name->text, nodes_[i].depth, TextOf(i), PlaceOf(i)});
    }
  }
  return elements_;
}

}  // namespace zevo
