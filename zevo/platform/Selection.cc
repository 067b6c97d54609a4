// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Selection.h>

#include <libxml/xmlerror.h>
#include <zevo/Error.h>

#include <algorithm>
#include <utility>

namespace zevo {
namespace {

bool IsInName(char c, bool first) {
  const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || (c & 0x80) != 0;
  return letter || (!first && ((c >= '0' && c <= '9') || c == '-' || c == '.'));
}

[[noreturn]] void Refuse(std::string_view expression) {
  throw Error(XML_XPATH_EXPR_ERROR, std::string(kRunTimeSource), "Expressão inválida: " + std::string(expression));
}

// Reads an expression from its front.
class Reader {
 public:
  explicit Reader(std::string_view expression) : expression_(expression), rest_(expression) {}

  bool Take(std::string_view token) {
    if (!rest_.starts_with(token)) return false;
    rest_.remove_prefix(token.size());
    return true;
  }
  void Expect(std::string_view token) {
    if (!Take(token)) Refuse(expression_);
  }
  void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size())); }

  std::string Name() {
    size_t length = 0;
    while (length < rest_.size() && IsInName(rest_[length], length == 0)) ++length;
    if (length == 0) Refuse(expression_);
    return std::string(Leading(length));
  }
  std::string Literal() {
    const char quote = rest_.empty() ? '\0' : rest_.front();
    if (quote != '"' && quote != '\'') Refuse(expression_);
    rest_.remove_prefix(1);
    const size_t length = rest_.find(quote);
    if (length == std::string_view::npos) Refuse(expression_);
    const std::string_view text = Leading(length);
    rest_.remove_prefix(1);
    return std::string(text);
  }
  void ExpectEnd() {
    if (!rest_.empty()) Refuse(expression_);
  }

 private:
  std::string_view Leading(size_t length) {
    const std::string_view text = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return text;
  }

  std::string_view expression_;
  std::string_view rest_;
};

}  // namespace

Selection::Selection(std::string_view expression) {
  Reader reader(expression);
  anywhere_ = reader.Take("//");
  do {
    steps_.push_back(reader.Name());
  } while (reader.Take("/"));
  if (reader.Take("[")) {
    Predicate predicate;
    reader.SkipBlanks();
    predicate.child = reader.Name();
    reader.SkipBlanks();
    reader.Expect("=");
    reader.SkipBlanks();
    predicate.text = reader.Literal();
    reader.SkipBlanks();
    reader.Expect("]");
    predicate_ = std::move(predicate);
  }
  reader.ExpectEnd();
}

bool Selection::Matches(Element element) const {
  if (!predicate_) return true;
  for (const Element child : element.Children()) {
    if (child.Name() == predicate_->child && child.AllText() == predicate_->text) return true;
  }
  return false;
}

// Visits the matches of the steps from `step` on, under `base`, until the visitor says to stop.
template <class Visitor>
bool Selection::Visit(Element base, size_t step, Visitor& visitor) const {
  const bool last = step + 1 == steps_.size();
  for (const Element child : base.Children()) {
    if (child.Name() != steps_[step]) continue;
    if (last ? Matches(child) && !visitor(child) : !Visit(child, step + 1, visitor)) return false;
  }
  return true;
}

// Whether the names of an element and of those above it are the steps.
bool Selection::EndsInSteps(Element element) const {
  for (auto step = steps_.rbegin(); step != steps_.rend(); ++step, element = element.Parent()) {
    if (!element || element.Name() != *step) return false;
  }
  return true;
}

template <class Visitor>
void Selection::VisitAll(Element base, Visitor visitor) const {
  if (!anywhere_) {
    Visit(base, 0, visitor);
    return;
  }
  const Document& document = base.Owner();
  const Node* top = document.Top();
  for (Node* node = document.Following(top, top); node != nullptr; node = document.Following(node, top)) {
    const Element element(node);
    const bool selected = node->Kind() == NodeKind::kElement && EndsInSteps(element) && Matches(element);
    if (selected && !visitor(element)) return;
  }
}

Element Selection::First(Element base) const {
  if (!anywhere_ && steps_.size() == 1) {
    const Document& document = base.Owner();
    if (!predicate_) return document.FirstChild(base, steps_.front());
    return document.FirstChildByKey(base, steps_.front(), predicate_->child, predicate_->text);
  }
  Element first;
  VisitAll(base, [&](Element element) {
    first = element;
    return false;
  });
  return first;
}

std::vector<Element> Selection::All(Element base) const {
  std::vector<Element> all;
  VisitAll(base, [&](Element element) {
    all.push_back(element);
    return true;
  });
  return all;
}

Element SelectFirst(Element base, std::string_view name, std::string_view query) {
  const NameTable& names = base.Owner().Names();
  const uint32_t number = names.Find(name);
  // A local name that the document knows needs no expression to be parsed.
  if (query.empty() && number != NameTable::kNone && names.Local(number) == number) {
    return base.Owner().FirstChild(base, number);
  }
  return Selection(std::string(name).append(query)).First(base);
}

}  // namespace zevo
