// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaDiagnosis.h>

#include <libxml/xmlerror.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/PulledParse.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <iterator>
#include <limits>

namespace zevo {
namespace {

using Content = ElementType::Content;

// Beyond this much, text that stands where there must be none is not kept.
constexpr size_t kMostStrayText = size_t{64} * 1024;
// Unknown children that are remembered.
constexpr size_t kMostUnknown = 16;
// Violations that wait for the key of their record. Beyond, they are told without it.
constexpr size_t kMostHeld = 1'000;

std::string_view ViewOf(const char* text) { return text == nullptr ? std::string_view() : text; }

bool DeclaresNamespace(const ParsedName& name) {
  return ViewOf(name.prefix) == "xmlns" || (name.prefix == nullptr && ViewOf(name.local) == "xmlns");
}

// How many characters two names have in common at their ends.
size_t LikenessOf(std::string_view one, std::string_view other) {
  const size_t most = std::min(one.size(), other.size());
  size_t front = 0;
  while (front < most && one[front] == other[front]) ++front;
  size_t back = 0;
  while (front + back < most && one[one.size() - 1 - back] == other[other.size() - 1 - back]) ++back;
  return front + back;
}

bool HasElementsOnly(const ElementType& type) {
  return type.content == Content::kElements || type.content == Content::kNothing;
}

// The child of a type that an unknown name may be meant for: one that is much like it.
std::optional<ContentModel::Child> MostLike(const ElementType& type, std::string_view unknown) {
  std::optional<ContentModel::Child> best;
  size_t most = unknown.size() / 2;
  for (ContentModel::Child child = 0; child < type.children.size(); ++child) {
    const size_t likeness = LikenessOf(unknown, type.children[child]->name.local);
    if (likeness <= most) continue;
    most = likeness;
    best = child;
  }
  return best;
}

// A step of a path.
std::string Step(std::string_view name, uint32_t ordinal) {
  std::string step(name);
  if (ordinal > 0) step.append("[").append(std::to_string(ordinal)).append("]");
  return step;
}

Digest DigestOf(const std::vector<std::optional<std::string>>& values) {
  std::string all;
  for (const auto& value : values) all.append(value.value_or(std::string())).push_back('\0');
  return KeyedDigest(all);
}

}  // namespace

SchemaDiagnosis::SchemaDiagnosis(const SchemaTables& tables, std::span<const RecordElement> records, Sink found)
    : tables_(tables), records_of_schema_(records), found_(std::move(found)) {
  anything_.content = Content::kAnything;
}
SchemaDiagnosis::~SchemaDiagnosis() = default;

SchemaDiagnosis::Outcome SchemaDiagnosis::Run(const std::string& file) {
  Begin(file);
  return ToTheEnd();
}

SchemaDiagnosis::Outcome SchemaDiagnosis::Run(RepeatedInput& input) {
  Begin(input);
  return ToTheEnd();
}

SchemaDiagnosis::Outcome SchemaDiagnosis::ToTheEnd() {
  while (Feed()) {
  }
  return outcome_;
}

void SchemaDiagnosis::Begin(const std::string& file) {
  const HostErrorHandlers aside;
  ParserHandler& events = *this;
  parse_ = std::make_unique<PulledParse>(file, events);
}

void SchemaDiagnosis::Begin(RepeatedInput& input) {
  const HostErrorHandlers aside;
  ParserHandler& events = *this;
  parse_ = std::make_unique<PulledParse>(input, events);
}

bool SchemaDiagnosis::Feed() {
  const HostErrorHandlers aside;
  if (ended_) return false;
  try {
    if (parse_->Feed()) return true;
    outcome_.problem = parse_->Problem();
    BreakOff();
  } catch (const Enough&) {
    // What is held stands before the element that was left off.
    if (outcome_.left_off) {
      try {
        BreakOff();
      } catch (const Enough&) {
        outcome_.left_off.reset();
      }
    }
  }
  ended_ = true;
  return false;
}

uint64_t SchemaDiagnosis::Pieces() const { return parse_ ? parse_->Pieces() : 0; }

// Tells what is held where there is no going on.
void SchemaDiagnosis::BreakOff() {
  if (waiting_) {
    if (frames_.back().waits) {
      frames_.pop_back();
      text_.clear();
    }
    SettleInPlace(false);
  }
  if (!frames_.empty() && skipped_ == 0 && HasElementsOnly(*frames_.back().type)) EndStrayText();
  Release(true);
}

// Elements.

void SchemaDiagnosis::StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) {
  ++depth_;
  if (skipped_ > 0) {
    ++skipped_;
    return;
  }
  const FilePlace place = parse_->StartTagPlace(name.local);
  Bind(attributes);
  frames_.empty() ? StartRoot(name, attributes, place) : StartChild(name, attributes, place);
  Release(false);
}

void SchemaDiagnosis::EndElement(const ParsedName&) {
  if (skipped_ == 0) {
    EndFrame();
    Release(false);
  } else {
    --skipped_;
  }
  while (!bindings_.empty() && bindings_.back().depth >= depth_) bindings_.pop_back();
  --depth_;
}

void SchemaDiagnosis::Characters(std::string_view text) {
  if (skipped_ > 0 || frames_.empty()) return;
  const Frame& frame = frames_.back();
  switch (frame.type->content) {
    case Content::kText:
      text_ += text;
      return;
    case Content::kAnything:
      if (frame.declaration != nullptr && frame.declaration->fixed) text_ += text;
      return;
    case Content::kElements:
    case Content::kNothing:
      if (text_.empty() && IsWhiteSpace(text)) return;
      if (!frame.told_text && text_.size() + text.size() <= kMostStrayText) text_ += text;
      return;
  }
}

void SchemaDiagnosis::Bind(std::span<const ParsedAttribute> attributes) {
  for (const ParsedAttribute& attribute : attributes) {
    if (!DeclaresNamespace(attribute.name)) continue;
    const bool is_default = attribute.name.prefix == nullptr;
    bindings_.push_back(
        {is_default ? std::string() : std::string(attribute.name.local), std::string(attribute.value), depth_});
  }
}

std::string_view SchemaDiagnosis::UriOf(const char* prefix) const {
  const auto found = std::find_if(bindings_.rbegin(), bindings_.rend(),
                                  [&](const Binding& binding) { return binding.prefix == ViewOf(prefix); });
  return found == bindings_.rend() ? std::string_view() : found->uri;
}

SchemaDiagnosis::Space SchemaDiagnosis::SpaceOf(const ParsedName& name) const {
  const std::string_view uri = UriOf(name.prefix);
  if (uri.empty()) return name.prefix == nullptr ? Space::kNone : Space::kOther;
  return uri == tables_.Namespace() ? Space::kOwn : Space::kOther;
}

void SchemaDiagnosis::StartRoot(const ParsedName& name, std::span<const ParsedAttribute> attributes,
                                const FilePlace& place) {
  const Space space = SpaceOf(name);
  const ElementDeclaration* const declaration =
      space == Space::kOther ? nullptr : tables_.Find(name.local, space == Space::kOwn);
  if (declaration != nullptr) {
    Open({.type = declaration->type,
          .declaration = declaration,
          .name = declaration->name.local,
          .ordinal = 0,
          .place = place},
         attributes);
    return;
  }
  Tell(Make(XML_SCHEMAV_CVC_ELT_1, name.local, place, std::string(UriOf(name.prefix)), tables_.Namespace()));
  Skip();
}

void SchemaDiagnosis::StartChild(const ParsedName& name, std::span<const ParsedAttribute> attributes,
                                 const FilePlace& place) {
  Frame& parent = frames_.back();
  if (HasElementsOnly(*parent.type)) EndStrayText();
  switch (parent.type->content) {
    case Content::kAnything:
      return StartAnywhere(name, attributes, place);
    case Content::kText:
      if (!std::exchange(parent.told_content, true)) {
        TellUnknown(XML_SCHEMAV_CVC_TYPE_3_1_2, name.local, CountStrange(name.local), place, {});
      }
      return Skip();
    case Content::kNothing:
      if (!std::exchange(parent.told_content, true)) {
        TellUnknown(XML_SCHEMAV_CVC_COMPLEX_TYPE_2_1, name.local, CountStrange(name.local), place, {});
      }
      return Skip();
    case Content::kElements:
      break;
  }
  const Space space = SpaceOf(name);
  const auto child = space == Space::kOther ? std::nullopt : parent.type->Find(name.local, space == Space::kOwn);
  Settle(child);
  child ? StartKnown(*child, attributes, place) : StartUnknown(name, place);
}

void SchemaDiagnosis::StartKnown(Child child, std::span<const ParsedAttribute> attributes, const FilePlace& place) {
  Frame& parent = frames_.back();
  const ElementDeclaration* const declaration = parent.type->children[child];
  parent.counts.resize(parent.type->children.size());
  const uint32_t count = ++parent.counts[child];
  Frame frame{.type = declaration->type,
              .declaration = declaration,
              .name = declaration->name.local,
              .ordinal = parent.type->repeats[child] || count > 1 ? count : 0,
              .place = place};
  const ContentModel& model = parent.type->model;
  if (const auto next = model.Next(parent.state, child)) {
    parent.state = *next;
    parent.unknown.clear();
    return Open(std::move(frame), attributes);
  }
  auto gap = model.Lacking(parent.state, child);
  if (!gap) {
    // What was told missing stands here, out of its place: that was told.
    if (std::erase(parent.told_missing, child) > 0) return Open(std::move(frame), attributes);
    TellStray(child, frame.ordinal, place);
    return Skip();
  }
  if (frame.type->content == Content::kText) {
    frame.waits = true;
    waiting_.emplace(
        Waiting{.child = child, .gap = std::move(*gap), .frame = frame, .text = {}, .held_from = held_.size()});
    return Open(std::move(frame), attributes);
  }
  TellMissing(gap->lacking, place);
  parent.state = gap->behind;
  parent.unknown.clear();
  Open(std::move(frame), attributes);
}

void SchemaDiagnosis::StartUnknown(const ParsedName& name, const FilePlace& place) {
  Frame& parent = frames_.back();
  Strange& strange = CountStrange(name.local);
  if (strange.count == 1) {
    // Of a name that the schema has here, the namespace is at fault.
    strange.foreign = parent.type->Find(name.local, true) || parent.type->Find(name.local, false);
    strange.meant = MostLike(*parent.type, name.local);
  }
  std::string value;
  if (strange.foreign) value.append("xmlns=\"").append(UriOf(name.prefix)).append("\"");
  TellUnknown(XML_SCHEMAV_ELEMENT_CONTENT, name.local, strange, place,
              NamesOf(parent.type->model.Allowed(parent.state)), std::move(value));
  if (parent.unknown.size() < kMostUnknown) parent.unknown.emplace_back(name.local);
  LoseKeys(strange.meant ? std::optional<std::string_view>(parent.type->children[*strange.meant]->name.local)
                         : std::nullopt);
  Skip();
}

// Inside an element that may have anything, what the schema declares is judged.
void SchemaDiagnosis::StartAnywhere(const ParsedName& name, std::span<const ParsedAttribute> attributes,
                                    const FilePlace& place) {
  Frame& parent = frames_.back();
  if (parent.declaration != nullptr && parent.declaration->fixed) {
    if (!std::exchange(parent.told_content, true)) {
      TellUnknown(XML_SCHEMAV_CVC_ELT_5_2_2_1, name.local, CountStrange(name.local), place, *parent.declaration->fixed);
    }
    return Skip();
  }
  const Space space = SpaceOf(name);
  const ElementDeclaration* const declaration =
      space == Space::kOther ? nullptr : tables_.Find(name.local, space == Space::kOwn);
  const uint32_t ordinal = CountStrange(name.local).Ordinal();
  const std::string& kept = *names_.emplace(name.local).first;
  Open({.type = declaration != nullptr ? declaration->type : &anything_,
        .declaration = declaration,
        .name = kept,
        .ordinal = ordinal,
        .place = place},
       attributes);
}

void SchemaDiagnosis::Open(Frame frame, std::span<const ParsedAttribute> attributes) {
  text_.clear();
  frame.told_before = told_;
  const bool holds = frame.type->content != Content::kText;
  if (holds && !frames_.empty()) FollowTrails(frames_.back(), frame);
  frames_.push_back(std::move(frame));
  if (holds) OpenRecord();
  if (frames_.back().declaration != nullptr && !frames_.back().declaration->constraints.empty()) {
    OpenScope(frames_.back());
  }
  if (!attributes.empty()) JudgeAttributes(attributes);
}

void SchemaDiagnosis::OpenRecord() {
  Frame& frame = frames_.back();
  if (frame.declaration == nullptr) return;
  for (size_t kind = 0; kind < records_of_schema_.size(); ++kind) {
    const RecordElement& record = records_of_schema_[kind];
    if (record.name != frame.name) continue;
    if (!records_.empty() && record.parent != records_.back().kind) return;
    records_.push_back({.frame = frames_.size() - 1, .kind = kind, .number = ++records_seen_});
    records_.back().key_known = record.key.empty();
    frame.record = true;
    return;
  }
}

void SchemaDiagnosis::JudgeAttributes(std::span<const ParsedAttribute> attributes) {
  const Frame& frame = frames_.back();
  for (const ParsedAttribute& attribute : attributes) {
    if (DeclaresNamespace(attribute.name)) continue;
    const std::string_view local = attribute.name.local;
    if (attribute.name.prefix != nullptr && UriOf(attribute.name.prefix) == kInstanceNamespace) {
      if (local == "type" || local == "nil") {
        outcome_.left_off = frame.place;
        throw Enough();
      }
      if (local == "schemaLocation" || local == "noNamespaceSchemaLocation") continue;
    }
    if (frame.type->content == Content::kAnything) continue;
    const bool text = frame.type->content == Content::kText;
    std::string step = "@";
    if (attribute.name.prefix != nullptr) step.append(attribute.name.prefix).append(":");
    step.append(local);
    Tell(Make(text ? XML_SCHEMAV_CVC_TYPE_3_1_1 : XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1, step, frame.place,
              std::string(attribute.value)));
  }
}

void SchemaDiagnosis::EndFrame() {
  switch (frames_.back().type->content) {
    case Content::kText: {
      Frame frame = std::move(frames_.back());
      frames_.pop_back();
      if (frame.waits) {
        waiting_->frame = std::move(frame);
        waiting_->text = std::move(text_);
      } else {
        JudgeText(frame, text_);
      }
      text_.clear();
      return;
    }
    case Content::kAnything:
      JudgeFixed(frames_.back());
      break;
    case Content::kNothing:
      EndStrayText();
      break;
    case Content::kElements:
      EndStrayText();
      Settle(ContentModel::kEnd);
      EndContent();
      break;
  }
  CloseNodes(frames_.back());
  if (frames_.back().scope) CloseScope();
  if (frames_.back().record) {
    KnowKey(records_.back(), {});
    records_.pop_back();
  }
  frames_.pop_back();
  text_.clear();
}

void SchemaDiagnosis::EndContent() {
  const Frame& frame = frames_.back();
  if (frame.type->model.MayEnd(frame.state)) return;
  const auto gap = frame.type->model.Lacking(frame.state, ContentModel::kEnd);
  if (gap) TellMissing(gap->lacking, frame.place);
}

void SchemaDiagnosis::EndStrayText() {
  Frame& frame = frames_.back();
  if (text_.empty()) return;
  if (!std::exchange(frame.told_text, true)) {
    const bool nothing = frame.type->content == Content::kNothing;
    Tell(MakeOfOpen(nothing ? XML_SCHEMAV_CVC_COMPLEX_TYPE_2_1 : XML_SCHEMAV_CVC_COMPLEX_TYPE_2_3,
                    std::string(TrimWhiteSpace(text_)), {}));
  }
  text_.clear();
}

// The element has ended; those around it are open.
void SchemaDiagnosis::JudgeText(Frame& frame, const std::string& text) {
  const SimpleType& type = *frame.type->text;
  const auto& fixed = frame.declaration->fixed;
  bool valid = !frame.told_content;
  const bool by_default = fixed && text.empty();
  if (valid && !by_default) {
    auto refusal = type.Check(text);
    if (!refusal && fixed && text != *fixed) {
      refusal = SimpleType::Refusal{XML_SCHEMAV_CVC_ELT_5_2_2_2_2, *fixed};
    }
    valid = !refusal;
    if (refusal) Tell(Make(refusal->number, Step(frame.name, frame.ordinal), frame.place, text, refusal->allowed));
  }
  if (frames_.empty()) return;
  const Frame& parent = frames_.back();
  if (parent.record && records_of_schema_[records_.back().kind].key == frame.name) KnowKey(records_.back(), text);
  FollowTrails(parent, frame);
  if (!frame.trails.empty()) Capture(frame, by_default ? *fixed : text, valid);
  CloseNodes(frame);
}

void SchemaDiagnosis::JudgeFixed(const Frame& frame) {
  if (frame.declaration == nullptr || !frame.declaration->fixed || frame.told_content || text_.empty()) return;
  if (text_ == *frame.declaration->fixed) return;
  Tell(MakeOfOpen(XML_SCHEMAV_CVC_ELT_5_2_2_2_1, text_, *frame.declaration->fixed));
}

// What lacks, what is out of place.

// Decides about the text that waits, by what is next: nothing for an element that is unknown here.
void SchemaDiagnosis::Settle(std::optional<Child> next) {
  if (!waiting_) return;
  const Frame& parent = frames_.back();
  constexpr size_t kNever = size_t{1} << 20;
  const auto lacking = [&](ContentModel::State state) {
    const auto gap = next ? parent.type->model.Lacking(state, *next) : std::nullopt;
    return gap ? gap->lacking.size() : kNever;
  };
  const size_t in_place = waiting_->gap.lacking.size() + lacking(waiting_->gap.behind);
  const size_t stray = 1 + lacking(parent.state);
  stray < in_place ? SettleAsStray() : SettleInPlace(true);
}

void SchemaDiagnosis::SettleAsStray() {
  const Waiting waiting = std::move(*waiting_);
  waiting_.reset();
  told_ -= static_cast<int64_t>(held_.size() - waiting.held_from);
  held_.erase(held_.begin() + static_cast<ptrdiff_t>(waiting.held_from), held_.end());
  TellStray(waiting.child, waiting.frame.ordinal, waiting.frame.place);
}

void SchemaDiagnosis::SettleInPlace(bool whole) {
  Waiting waiting = std::move(*waiting_);
  waiting_.reset();
  const auto from = held_.begin() + static_cast<ptrdiff_t>(waiting.held_from);
  std::vector<Held> inside(std::make_move_iterator(from), std::make_move_iterator(held_.end()));
  held_.erase(from, held_.end());
  TellMissing(waiting.gap.lacking, waiting.frame.place);
  std::ranges::move(inside, std::back_inserter(held_));
  frames_.back().state = waiting.gap.behind;
  frames_.back().unknown.clear();
  if (whole) JudgeText(waiting.frame, waiting.text);
}

void SchemaDiagnosis::TellStray(Child child, uint32_t ordinal, const FilePlace& place) {
  Frame& parent = frames_.back();
  const bool told_before = std::ranges::find(parent.told_stray, child) != parent.told_stray.end();
  const bool repeated = parent.counts[child] > 1 && !parent.type->repeats[child] && !told_before;
  if (!repeated && !told_before) parent.told_stray.push_back(child);
  const std::string& name = parent.type->children[child]->name.local;
  Tell(Make(XML_SCHEMAV_ELEMENT_CONTENT, Step(name, ordinal), place, {},
            repeated ? "1" : NamesOf(parent.type->model.Allowed(parent.state))));
  LoseKeys(name);
}

void SchemaDiagnosis::TellMissing(const std::vector<ContentModel::Alternatives>& lacking, const FilePlace& place) {
  const std::vector<bool> told = ToldOtherwise(lacking);
  Frame& parent = frames_.back();
  for (size_t i = 0; i < lacking.size(); ++i) {
    const ContentModel::Alternatives& alternatives = lacking[i];
    for (const Child child : alternatives) LoseKeys(parent.type->children[child]->name.local);
    if (told[i]) continue;
    for (const Child child : alternatives) {
      std::erase(parent.told_missing, child);
      parent.told_missing.push_back(child);
    }
    Tell(Make(XML_SCHEMAV_ELEMENT_CONTENT, parent.type->children[alternatives.front()]->name.local, place, {},
              NamesOf(alternatives)));
  }
}

// Which of those that lack stand out of their place, or under another name: that was told. An unknown child before the
// place is taken for what it is most like.
std::vector<bool> SchemaDiagnosis::ToldOtherwise(const std::vector<ContentModel::Alternatives>& lacking) {
  Frame& parent = frames_.back();
  std::vector<bool> told(lacking.size());
  for (size_t i = 0; i < lacking.size(); ++i) {
    for (const Child child : lacking[i]) told[i] = std::erase(parent.told_stray, child) > 0 || told[i];
  }
  for (const std::string& unknown : std::exchange(parent.unknown, {})) {
    const auto likeness = [&](Child child) { return LikenessOf(unknown, parent.type->children[child]->name.local); };
    const auto meant = MostLike(*parent.type, unknown);
    const size_t most = meant ? likeness(*meant) : 0;
    std::optional<size_t> best;
    size_t best_likeness = 0;
    for (size_t i = 0; i < lacking.size(); ++i) {
      size_t here = 0;
      for (const Child child : lacking[i]) here = std::max(here, likeness(child));
      if (told[i] || here < most || (best && here <= best_likeness)) continue;
      best = i;
      best_likeness = here;
    }
    if (best) told[*best] = true;
  }
  return told;
}

SchemaDiagnosis::Strange& SchemaDiagnosis::CountStrange(std::string_view name) {
  TextMap<Strange>& strange = frames_.back().strange;
  const auto known = strange.find(name);
  Strange& counted = known != strange.end() ? known->second : strange[std::string(name)];
  ++counted.count;
  return counted;
}

void SchemaDiagnosis::TellUnknown(int32_t number, std::string_view name, const Strange& strange, const FilePlace& place,
                                  std::string allowed, std::string value) {
  Tell(Make(number, Step(name, strange.Ordinal()), place, std::move(value), std::move(allowed)));
}

// Identities.

const IdentityConstraint::Path& SchemaDiagnosis::PathOf(const Scope& scope, const Trail& trail) {
  const IdentityConstraint& constraint = scope.declaration->constraints[trail.constraint];
  return trail.field ? constraint.fields[*trail.field] : constraint.selector;
}

void SchemaDiagnosis::OpenScope(Frame& frame) {
  frame.scope = true;
  scopes_.push_back({frame.declaration, frames_.size() - 1, {}});
  scopes_.back().tables.resize(frame.declaration->constraints.size());
  for (size_t i = 0; i < frame.declaration->constraints.size(); ++i) {
    Reach({.scope = scopes_.size() - 1, .constraint = i, .field = {}, .node = 0, .steps = 0}, frame);
  }
}

void SchemaDiagnosis::FollowTrails(const Frame& parent, Frame& frame) {
  if (frame.declaration == nullptr) return;
  for (const Trail& trail : parent.trails) {
    const IdentityConstraint::Path& path = PathOf(scopes_[trail.scope], trail);
    if (trail.steps == path.size() || path[trail.steps] != frame.declaration->name) continue;
    Trail further = trail;
    ++further.steps;
    Reach(further, frame);
  }
}

// A trail has come to an element.
void SchemaDiagnosis::Reach(const Trail& trail, Frame& frame) {
  const Scope& scope = scopes_[trail.scope];
  frame.trails.push_back(trail);
  if (trail.field || trail.steps < PathOf(scope, trail).size()) return;
  const size_t fields = scope.declaration->constraints[trail.constraint].fields.size();
  nodes_.push_back({.scope = trail.scope, .constraint = trail.constraint, .values = {}, .text = {}});
  nodes_.back().values.resize(fields);
  ++frame.nodes;
  for (size_t field = 0; field < fields; ++field) {
    frame.trails.push_back(
        {.scope = trail.scope, .constraint = trail.constraint, .field = field, .node = nodes_.size() - 1, .steps = 0});
  }
}

// Takes a text, whose element has just ended, for the field that it is.
void SchemaDiagnosis::Capture(const Frame& frame, const std::string& text, bool valid) {
  for (const Trail& trail : frame.trails) {
    if (!trail.field || trail.steps < PathOf(scopes_[trail.scope], trail).size()) continue;
    KeyNode& node = nodes_[trail.node];
    std::optional<std::string>& value = node.values[*trail.field];
    if (value) continue;
    value = valid ? frame.type->text->Comparable(text) : std::nullopt;
    if (!value) {
      node.judged = false;
      continue;
    }
    if (!node.text.empty()) node.text += ", ";
    node.text += text;
    if (std::ranges::all_of(node.values, [](const auto& each) { return each.has_value(); })) JudgeKey(node, frame);
  }
}

void SchemaDiagnosis::JudgeKey(const KeyNode& node, const Frame& field) {
  Scope& scope = scopes_[node.scope];
  const std::vector<IdentityConstraint>& constraints = scope.declaration->constraints;
  const IdentityConstraint& constraint = constraints[node.constraint];
  const Digest digest = DigestOf(node.values);
  const auto make = [&](std::string allowed) {
    return Make(XML_SCHEMAV_CVC_IDC, Step(field.name, field.ordinal), field.place, node.text, std::move(allowed));
  };
  if (constraint.kind != IdentityConstraint::Kind::kReference) {
    if (!scope.tables[node.constraint].keys.insert(digest).second) Tell(make({}));
    return;
  }
  const IdentityConstraint& key = constraints[constraint.refers_to];
  const KeyTable& table = scope.tables[constraint.refers_to];
  if (!table.complete || table.keys.contains(digest)) return;
  // Where the key is to be found: the last element of the path to it.
  const std::string where = key.selector.empty() ? std::string() : key.selector.back().local;
  if (MayStillGrow(scope, key)) {
    scope.tables[node.constraint].open.push_back({digest, make(where)});
  } else {
    Tell(make(where));
  }
}

void SchemaDiagnosis::CloseNodes(const Frame& frame) {
  for (size_t i = 0; i < frame.nodes; ++i) {
    const KeyNode node = std::move(nodes_.back());
    nodes_.pop_back();
    const auto lacking = std::ranges::find_if(node.values, [](const auto& value) { return !value; });
    if (lacking == node.values.end()) continue;
    Scope& scope = scopes_[node.scope];
    scope.tables[node.constraint].complete = false;
    const IdentityConstraint& constraint = scope.declaration->constraints[node.constraint];
    const IdentityConstraint::Path& path = constraint.fields[static_cast<size_t>(lacking - node.values.begin())];
    // A key that lacks for no other reason.
    if (constraint.kind != IdentityConstraint::Kind::kKey || !node.judged || told_ != frame.told_before) continue;
    if (path.empty() || &frame != &frames_.back()) continue;
    Tell(Make(XML_SCHEMAV_CVC_IDC, path.back().local, frame.place, {}, path.back().local));
  }
}

void SchemaDiagnosis::CloseScope() {
  Scope scope = std::move(scopes_.back());
  scopes_.pop_back();
  for (size_t i = 0; i < scope.tables.size(); ++i) {
    const KeyTable& keys = scope.tables[scope.declaration->constraints[i].refers_to];
    for (OpenReference& reference : scope.tables[i].open) {
      if (keys.complete && !keys.keys.contains(reference.digest)) Tell(std::move(reference.told));
    }
  }
}

// Whether keys may still come, where a reference stands.
bool SchemaDiagnosis::MayStillGrow(const Scope& scope, const IdentityConstraint& key) const {
  if (key.selector.empty()) return false;
  const Frame& frame = frames_[scope.frame];
  const auto child = frame.type->Find(key.selector.front().local, key.selector.front().qualified);
  if (!child) return false;
  const bool inside =
      scope.frame + 1 < frames_.size() && frames_[scope.frame + 1].declaration == frame.type->children[*child];
  return inside || frame.type->model.Reaches(frame.state, *child);
}

// A child was passed over, of this name or of an unknown one: keys may have been in it.
void SchemaDiagnosis::LoseKeys(std::optional<std::string_view> child) {
  for (const Trail& trail : frames_.back().trails) {
    if (trail.field) continue;
    Scope& scope = scopes_[trail.scope];
    const IdentityConstraint::Path& path = PathOf(scope, trail);
    if (trail.steps == path.size() || (child && path[trail.steps].local != *child)) continue;
    scope.tables[trail.constraint].complete = false;
  }
}

// Telling.

std::string SchemaDiagnosis::NamesOf(const std::vector<Child>& children) const {
  std::string names;
  for (const Child child : children) {
    if (!names.empty()) names += ", ";
    names += frames_.back().type->children[child]->name.local;
  }
  return names;
}

std::string SchemaDiagnosis::PathTo(const std::string& step, std::optional<size_t> record) const {
  std::string path;
  const auto add = [&](std::string_view part) {
    if (!record || !path.empty()) path += '/';
    path += part;
  };
  for (size_t i = record ? *record + 1 : 0; i < frames_.size(); ++i) add(Step(frames_[i].name, frames_[i].ordinal));
  if (!step.empty()) add(step);
  return path;
}

// Of a child of the open element.
SchemaDiagnosis::Held SchemaDiagnosis::Make(int32_t number, const std::string& step, const FilePlace& place,
                                            std::string value, std::string allowed) const {
  Held held{.violation = {.number = number, .place = place, .value = std::move(value), .allowed = std::move(allowed)},
            .record = 0};
  if (records_.empty()) {
    held.violation.path = PathTo(step, std::nullopt);
    return held;
  }
  const Record& record = records_.back();
  held.violation.record = record.kind;
  held.violation.key = record.key;
  held.violation.path = PathTo(step, record.frame);
  if (!record.key_known) held.record = record.number;
  return held;
}

// Of the open element itself.
SchemaDiagnosis::Held SchemaDiagnosis::MakeOfOpen(int32_t number, std::string value, std::string allowed) {
  return Make(number, {}, frames_.back().place, std::move(value), std::move(allowed));
}

void SchemaDiagnosis::Tell(Held held) {
  ++told_;
  held_.push_back(std::move(held));
}

void SchemaDiagnosis::KnowKey(Record& record, std::string_view key) {
  if (std::exchange(record.key_known, true)) return;
  record.key = key;
  for (Held& held : held_) {
    if (held.record != record.number) continue;
    held.violation.key = key;
    held.record = 0;
  }
}

void SchemaDiagnosis::Release(bool all) {
  if (waiting_ && !all) return;
  while (!held_.empty() && (all || held_.front().record == 0 || held_.size() > kMostHeld)) {
    ++outcome_.found;
    const bool go_on = found_(std::move(held_.front().violation));
    held_.pop_front();
    if (go_on) continue;
    outcome_.ended = true;
    throw Enough();
  }
}

}  // namespace zevo
