// SPDX-License-Identifier: Apache-2.0
#include "tests/check/CheckTest.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace zevo::testing {
namespace {

struct Step {
  std::string_view name;
  size_t number = 1;
};

Step TakeStep(std::string_view& path) {
  const std::string_view text = path.substr(0, path.find('/'));
  path.remove_prefix(std::min(path.size(), text.size() + 1));
  Step step{text.substr(0, text.find('['))};
  if (step.name.size() < text.size()) step.number = std::stoul(std::string(text.substr(step.name.size() + 1)));
  return step;
}

// The element of a name among all below, counted in the order of the file.
template <class Part>
Part* FindBelow(Part& part, const Step& step, size_t& seen, Part*& parent) {
  for (Part& child : part.children) {
    if (child.name == step.name && ++seen == step.number) {
      parent = &part;
      return &child;
    }
    if (Part* const found = FindBelow(child, step, seen, parent)) return found;
  }
  return nullptr;
}

size_t CountBelow(const XmlPart& part, std::string_view name) {
  size_t count = 0;
  for (const XmlPart& child : part.children) count += (child.name == name ? 1 : 0) + CountBelow(child, name);
  return count;
}

template <class Part>
Part* FindChild(Part& part, const Step& step) {
  size_t seen = 0;
  for (Part& child : part.children) {
    if (child.name == step.name && ++seen == step.number) return &child;
  }
  return nullptr;
}

// The element that a path leads to, and the one that it is in.
template <class Part>
Part& Find(Part& root, std::string_view path, Part*& above) {
  const std::string whole(path);
  size_t seen = 0;
  const Step first = TakeStep(path);
  Part* at = first.name == root.name ? &root : FindBelow(root, first, seen, above);
  while (at != nullptr && !path.empty()) {
    above = at;
    at = FindChild(*at, TakeStep(path));
  }
  if (at == nullptr) throw std::invalid_argument("the file has no " + whole);
  return *at;
}

std::string_view WithoutDeclaration(std::string_view document) {
  document.remove_prefix(document.find("<AuditFile"));
  return document;
}

char LetterOf(Severity severity) { return "OIWE"[static_cast<size_t>(severity)]; }

std::string LineOf(const Finding& finding) {
  std::string line(finding.rule);
  line.append(" ").append(1, LetterOf(finding.severity)).append(" ");
  if (finding.kind) line.append(NameOf(*finding.kind));
  if (!finding.key.empty()) line.append(" ").append(finding.key);
  if (!finding.path.empty() && finding.kind) line.append("/");
  line.append(finding.path);
  line.append(" [").append(finding.found).append("] [").append(finding.expected).append("] [");
  return line.append(finding.difference).append("]");
}

}  // namespace

CleanFile::CleanFile() {
  const std::string document = ReadBytes(ZEVO_CLEAN_FILE);
  std::string_view text = WithoutDeclaration(document);
  root_ = TakePart(text);
}

CleanFile::CleanFile(std::string_view document) {
  std::string_view text = WithoutDeclaration(document);
  declaration_ = document.substr(0, document.size() - text.size());
  root_ = TakePart(text);
}

XmlPart& CleanFile::At(std::string_view path, XmlPart** parent) {
  XmlPart* above = nullptr;
  XmlPart& at = Find(root_, path, above);
  if (parent != nullptr) *parent = above;
  return at;
}

CleanFile CleanFile::With(std::string_view path, std::string_view text) const {
  CleanFile changed = *this;
  XmlPart& at = changed.At(path);
  at.children.clear();
  at.text = text;
  return changed;
}

CleanFile CleanFile::Without(std::string_view path) const {
  CleanFile changed = *this;
  XmlPart* parent = nullptr;
  const XmlPart* const at = &changed.At(path, &parent);
  parent->children.erase(parent->children.begin() + (at - parent->children.data()));
  return changed;
}

CleanFile CleanFile::Behind(std::string_view path, std::string_view elements) const {
  CleanFile changed = *this;
  XmlPart* parent = nullptr;
  const XmlPart* const at = &changed.At(path, &parent);
  auto place = parent->children.begin() + (at - parent->children.data()) + 1;
  while (elements.find('<') != std::string_view::npos) {
    place = std::next(parent->children.insert(place, TakePart(elements)));
  }
  return changed;
}

CleanFile CleanFile::Twice(std::string_view path) const {
  CleanFile copy = *this;
  std::string element;
  copy.At(path).Write(element);
  return Behind(path, element);
}

std::string CleanFile::Text() const {
  std::string text = declaration_;
  root_.Write(text);
  return text;
}

const std::string& CleanFile::TextOf(std::string_view path) const {
  const XmlPart* above = nullptr;
  return Find(root_, path, above).text;
}

size_t CleanFile::CountOf(std::string_view name) const { return CountBelow(root_, name); }

CheckTest::CheckTest() {
  checker_.Found = [this](const Finding& finding) { found_.push_back(finding); };
}

std::vector<std::string> CheckTest::Findings(std::string_view document) {
  found_.clear();
  checker_.set_AuditFileName(folder_.Write("file.xml", document));
  const bool judged = checker_.CheckAuditFile();
  std::vector<std::string> lines;
  std::ranges::transform(found_, std::back_inserter(lines), LineOf);
  if (!judged) lines.push_back(checker_.AuditException()->Description());
  return lines;
}

std::vector<std::string> CheckTest::Sentences(const CleanFile& file) {
  Findings(file);
  std::vector<std::string> sentences;
  for (const Finding& finding : found_) {
    sentences.push_back(Describe(finding, Language::kPortuguese));
    sentences.push_back(Describe(finding, Language::kEnglish));
  }
  return sentences;
}

std::vector<std::string> CheckTest::FindingsOf(std::string_view rule, const CleanFile& file) {
  std::vector<std::string> lines = Findings(file);
  std::erase_if(lines, [&](const std::string& line) { return !line.starts_with(std::string(rule) + " "); });
  return lines;
}

}  // namespace zevo::testing
