// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/ScannedEntity.h>

#include <zevo/Error.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace zevo {
void ScannedEntity::Begin(EntityKind kind, std::string_view journalId) {
  begun_before_ += nodes_.size();
  kind_ = kind;
  journal_id_ = journalId;
  nodes_.clear();
  texts_.clear();
  open_.clear();
  other_siblings_.clear();
  problems_.clear();
  elements_.clear();
}

void ScannedEntity::BeginElement(const ScannedName& name, const FilePlace& place) {
  // Far beyond what the record of such an entity could be held in.
  if (nodes_.size() >= std::numeric_limits<uint32_t>::max()) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  const auto element = static_cast<uint32_t>(nodes_.size());
  uint32_t parent = 0;
  uint32_t ordinal = 0;
  if (!open_.empty()) {
    open_.back().has_children = true;
    EndText(open_.back());
    parent = open_.back().element;
    ordinal = Number(name);
  }
  nodes_.push_back({place, &name, parent, ordinal, 0, 0, static_cast<int>(open_.size())});
  open_.push_back({element, texts_.size(), false});
}

// The ordinal of the element that begins next in the one that is open. The first is told when the second comes.
uint32_t ScannedEntity::Number(const ScannedName& name) {
  Siblings& siblings = SiblingsOf(name);
  const uint64_t parent = begun_before_ + open_.back().element;
  if (siblings.parent != parent) siblings = {parent, static_cast<uint32_t>(nodes_.size()), 0};
  if (++siblings.count == 1) return 0;
  nodes_[siblings.first].ordinal = 1;
  return siblings.count;
}

ScannedEntity::Siblings& ScannedEntity::SiblingsOf(const ScannedName& name) {
  if (name.element == 0) return other_siblings_[{open_.back().element, name.number}];
  if (siblings_.size() < open_.size()) siblings_.resize(open_.size());
  return siblings_[open_.size() - 1][name.element];
}

void ScannedEntity::EndElement() {
  EndText(open_.back());
  open_.pop_back();
  if (!open_.empty()) open_.back().text = texts_.size();
}

// Of an element with others inside, white space is nothing, and of other texts the first is the element's.
void ScannedEntity::EndText(Open& open) {
  const size_t length = texts_.size() - open.text;
  if (length == 0) return;
  if (open.has_children && TrimWhiteSpace(std::string_view{texts_}.substr(open.text)).empty()) {
    texts_.resize(open.text);
    return;
  }
  if (texts_.size() > std::numeric_limits<uint32_t>::max()) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  Node& node = nodes_[open.element];
  if (node.length == 0) {
    node.text = static_cast<uint32_t>(open.text);
    node.length = static_cast<uint32_t>(length);
  }
  if (open.has_children) {
    std::string path = PathOf(open.element);
    if (!path.empty()) path += '/';
    Add({Fault::kUnknownElement, path.append("text()"), node.place, texts_.substr(open.text)});
  }
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

std::string ScannedEntity::PathOf(size_t element) const {
  if (element == 0) return {};
  const Node& node = nodes_[element];
  std::string path = PathOf(node.parent);
  if (!path.empty()) path += '/';
  path += node.name->text;
  if (node.ordinal > 0) path.append("[").append(std::to_string(node.ordinal)).append("]");
  return path;
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
  for (size_t child = element + 1; child < nodes_.size() && nodes_[child].depth >= depth; ++child) {
    const Node& node = nodes_[child];
    if (node.depth == depth && node.name->text == name && std::max(node.ordinal, 1U) == ordinal) return child;
  }
  return std::nullopt;
}

std::span<const ScannedElement> ScannedEntity::Elements() const {
  if (elements_.empty()) {
    elements_.reserve(nodes_.size());
    for (size_t i = 0; i < nodes_.size(); ++i) {
      elements_.push_back({nodes_[i].name->text, nodes_[i].depth, TextOf(i), nodes_[i].place});
    }
  }
  return elements_;
}

}  // namespace zevo
