// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/PatternAutomaton.h>

#include <libxml/xmlregexp.h>
#include <zevo/Error.h>
#include <zevo/platform/ContentModel.h>

#include <algorithm>
#include <bitset>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace zevo {
namespace {

constexpr size_t kMostEntries = 16'384;  // of the table
constexpr size_t kMostWork = 200'000;    // places that are looked at to make it
constexpr int kMostRepetitions = 100;
constexpr int kDepth = 50;  // of groups

// ASCII characters, and behind them all others as one.
constexpr size_t kBeyondAscii = 128;
using Characters = std::bitset<kBeyondAscii + 1>;

// Thrown where a pattern is not read here.
struct NotRead {};

void Require(bool condition) {
  if (!condition) throw NotRead();
}

struct FreeExpression {
  void operator()(xmlRegexp* expression) const { xmlRegFreeRegexp(expression); }
};

// The ASCII characters of a class such as \w, as libxml2 has them.
Characters ClassOf(char letter) {
  const std::string text{'\\', letter};
  const std::unique_ptr<xmlRegexp, FreeExpression> expression(
      xmlRegexpCompile(reinterpret_cast<const xmlChar*>(text.c_str())));
  if (!expression) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  Characters characters;
  for (size_t i = 1; i < kBeyondAscii; ++i) {
    const xmlChar one[] = {static_cast<xmlChar>(i), 0};
    characters[i] = xmlRegexpExec(expression.get(), one) == 1;
  }
  return characters;
}

Characters Just(char character) { return Characters().set(static_cast<unsigned char>(character)); }

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < kBeyondAscii; });
}

}  // namespace

// Reads a pattern, unless XML Schema and libxml2 may read it differently. libxml2 (2.9.14) tries one way only where it
// finds that a text can go on in one way, and it misses ways: where a class such as \w or a negation meets something
// else, and where something is counted.
class PatternAutomaton::Reader {
 public:
  // What stands for one character in a pattern.
  struct Atom {
    Characters characters;  // those that it certainly has
    bool listed;            // has these and no others: not a negation nor a class such as \w
  };

  explicit Reader(std::string_view pattern) : pattern_(pattern) {
    Require(IsAscii(pattern));
    model.Finish(Alternatives());
    Require(AtEnd());
  }

  /// Whether libxml2 finds all ways.
  bool IsReadAlike() const {
    for (ContentModel::State state = 0; state < model.States(); ++state) {
      if (!IsReadAlikeFrom(state)) return false;
    }
    return true;
  }

  ContentModel model;
  std::vector<Atom> atoms;  // the children of the model

 private:
  using Part = ContentModel::Part;

  // Several ways are found where there are only lists.
  bool IsReadAlikeFrom(ContentModel::State state) const {
    Characters before;
    bool several = false;
    bool listed = !counts_;
    for (const ContentModel::State following : model.Following(state)) {
      const Atom& atom = atoms[model.ChildOf(following)];
      Characters characters = atom.characters;
      if (!atom.listed) characters.set(kBeyondAscii);
      several = several || (before & characters).any();
      listed = listed && atom.listed;
      before |= characters;
    }
    return !several || listed;
  }

  bool AtEnd() const { return at_ == pattern_.size(); }
  // NUL, which is in no pattern, at the end.
  char Ahead(size_t steps = 0) const { return at_ + steps < pattern_.size() ? pattern_[at_ + steps] : '\0'; }
  char Take() {
    Require(!AtEnd());
    return pattern_[at_++];
  }
  bool TakeIf(char wanted) {
    if (Ahead() != wanted) return false;
    ++at_;
    return true;
  }

  Part Alternatives() {
    Require(++depth_ <= kDepth);
    Part whole = Branch();
    while (TakeIf('|')) whole = ContentModel::Either(std::move(whole), Branch());
    --depth_;
    return whole;
  }

  Part Branch() {
    Part whole;
    while (!AtEnd() && Ahead() != '|' && Ahead() != ')') whole = model.Then(std::move(whole), Piece());
    return whole;
  }

  Part Piece() {
    const size_t begin = at_;
    Part part = Single();
    if (TakeIf('?')) return ContentModel::Optional(std::move(part));
    if (TakeIf('+')) return model.Repeated(std::move(part));
    if (TakeIf('*')) return ContentModel::Optional(model.Repeated(std::move(part)));
    if (!TakeIf('{')) return part;
    Require(!part.may_be_empty);
    counts_ = true;
    const int least = Count();
    const bool open = TakeIf(',');
    const bool unlimited = open && Ahead() == '}';
    const int most = open && !unlimited ? Count() : least;
    Require(TakeIf('}') && least > 0 && most >= least);
    const size_t end = at_;
    // Each repetition is read anew, for it has places of its own.
    const auto again = [&] {
      at_ = begin;
      return Single();
    };
    if (unlimited) part = model.Repeated(std::move(part));
    for (int i = 1; i < most; ++i) {
      if (i >= most - least + 1) {
        part = model.Then(again(), part);
      } else {
        part = model.Then(again(), ContentModel::Optional(std::move(part)));
      }
    }
    at_ = end;
    return part;
  }

  int Count() {
    int count = 0;
    const size_t begin = at_;
    while (Ahead() >= '0' && Ahead() <= '9') {
      count = 10 * count + (Take() - '0');
      Require(count <= kMostRepetitions);
    }
    Require(at_ > begin);
    return count;
  }

  Part Single() {
    if (TakeIf('(')) {
      Part group = Alternatives();
      Require(TakeIf(')'));
      return group;
    }
    const char first = Take();
    if (first == '.') return Place({~(Just('\n') | Just('\r')), false});
    if (first == '[') return Place(Class());
    if (first == '\\') return Place(Escape());
    Require(std::string_view("?*+]{}|)").find(first) == std::string_view::npos);
    return Place({Just(first), true});
  }

  Part Place(const Atom& atom) {
    atoms.push_back(atom);
    return model.Of(static_cast<ContentModel::Child>(atoms.size() - 1));
  }

  Atom Escape() {
    const char letter = Take();
    if (letter == 'n') return {Just('\n'), true};
    if (letter == 'r') return {Just('\r'), true};
    if (letter == 't') return {Just('\t'), true};
    if (std::string_view("\\|.-^?*+{}()[]").find(letter) != std::string_view::npos) return {Just(letter), true};
    Require(std::string_view("sSiIcCdDwW").find(letter) != std::string_view::npos);
    const auto [known, added] = classes_.try_emplace(letter);
    if (added) known->second = ClassOf(letter);
    return {known->second, false};
  }

  Atom Class() {
    const bool negated = TakeIf('^');
    Atom whole{.characters = {}, .listed = true};
    bool first = true;
    do {
      const char begin = Take();
      if (begin == '\\') {
        const Atom escaped = Escape();
        whole.characters |= escaped.characters;
        whole.listed = whole.listed && escaped.listed;
        Require(Ahead() != '-' || Ahead(1) == ']');
      } else if (begin == '-') {
        Require((first || Ahead() == ']') && !negated && Ahead() != '-');
        whole.characters |= Just('-');
      } else {
        Require(begin != '[' && begin != ']');
        whole.characters |= Range(begin);
      }
      first = false;
    } while (!TakeIf(']'));
    if (!negated) return whole;
    // Beyond ASCII, only a list leaves everything.
    if (!whole.listed) whole.characters.set(kBeyondAscii);
    return {~whole.characters, false};
  }

  Characters Range(char begin) {
    if (Ahead() != '-' || Ahead(1) == ']') return Just(begin);
    Take();
    const char end = Take();
    Require(std::string_view("[]\\-").find(end) == std::string_view::npos && end >= begin);
    Characters characters;
    for (char c = begin; c <= end; ++c) characters |= Just(c);
    return characters;
  }

  std::string_view pattern_;
  size_t at_ = 0;
  int depth_ = 0;
  bool counts_ = false;
  std::map<char, Characters> classes_;  // by their letters
};

// Makes the table: a state stands for all places of the pattern that a text may have come to.
class PatternAutomaton::Maker {
 public:
  Maker(PatternAutomaton& automaton, const Reader& pattern) : automaton_(automaton), pattern_(pattern) {}

  void Make() {
    FindKinds();
    StateOf({ContentModel::kStart});
    StateOf({});
    for (size_t i = 0; i < places_.size(); ++i) AddRow(i);
  }

 private:
  using Places = std::vector<ContentModel::State>;
  using Row = uint16_t;

  // Bytes within a character beyond ASCII lead nowhere: its first byte has done so for all of it.
  static constexpr uint8_t kWithin = 0;
  // The state of texts that do not match, whatever follows.
  static constexpr size_t kNowhere = 1;

  // At first all characters are of one kind; each set of them divides the kinds into those that are in it and others.
  void FindKinds() {
    std::array<uint8_t, kBeyondAscii + 1> kind_of;
    kind_of.fill(1);
    uint8_t kinds = 1;
    std::vector<Characters> sets;
    for (const Reader::Atom& atom : pattern_.atoms) {
      const auto known = std::ranges::find(sets, atom.characters);
      sets_.push_back(static_cast<size_t>(known - sets.begin()));
      if (known != sets.end()) continue;
      sets.push_back(atom.characters);
      std::array<std::array<uint8_t, 2>, kBeyondAscii + 2> divided{};
      kinds = 0;
      for (size_t character = 0; character < kind_of.size(); ++character) {
        uint8_t& kind = divided[kind_of[character]][atom.characters[character] ? 1 : 0];
        if (kind == 0) kind = ++kinds;
        kind_of[character] = kind;
      }
    }
    std::vector<size_t> character_of(kinds + size_t{1});
    for (size_t character = 0; character < kind_of.size(); ++character) character_of[kind_of[character]] = character;
    for (const Characters& set : sets) {
      std::vector<uint8_t>& in = kinds_of_sets_.emplace_back();
      for (uint8_t kind = 1; kind <= kinds; ++kind) {
        if (set[character_of[kind]]) in.push_back(kind);
      }
    }
    next_.resize(kinds + size_t{1});
    for (size_t byte = 0; byte < automaton_.kind_of_.size(); ++byte) {
      const bool within = byte >= 0x80 && byte < 0xC0;
      automaton_.kind_of_[byte] = within ? kWithin : kind_of[std::min(byte, kBeyondAscii)];
    }
  }

  Row RowOf(size_t state) const { return static_cast<Row>(state * next_.size()); }

  Row StateOf(const Places& places) {
    const auto [found, added] = rows_.try_emplace(places, RowOf(places_.size()));
    if (!added) return found->second;
    Require(places_.size() * next_.size() < kMostEntries);
    const Row row = found->second;
    places_.push_back(&found->first);
    automaton_.takes_.resize(row + size_t{1});
    automaton_.takes_[row] =
        std::ranges::any_of(places, [&](ContentModel::State place) { return pattern_.model.MayEnd(place); });
    return row;
  }

  void AddRow(size_t state) {
    for (const ContentModel::State place : *places_[state]) {
      const std::vector<ContentModel::State>& following = pattern_.model.Following(place);
      work_ += following.size() * next_.size();
      Require(work_ <= kMostWork);
      for (const ContentModel::State each : following) {
        for (const uint8_t kind : kinds_of_sets_[sets_[pattern_.model.ChildOf(each)]]) next_[kind].push_back(each);
      }
    }
    const size_t row = automaton_.next_.size();
    automaton_.next_.resize(row + next_.size(), RowOf(kNowhere));
    automaton_.next_[row + kWithin] = RowOf(state);
    for (size_t kind = 0; kind < next_.size(); ++kind) {
      Places& places = next_[kind];
      if (places.empty()) continue;
      std::ranges::sort(places);
      places.erase(std::unique(places.begin(), places.end()), places.end());
      automaton_.next_[row + kind] = StateOf(places);
      places.clear();
    }
  }

  PatternAutomaton& automaton_;
  const Reader& pattern_;
  std::vector<size_t> sets_;                         // by the number of an atom: that of its set of characters
  std::vector<std::vector<uint8_t>> kinds_of_sets_;  // those that are in a set
  std::map<Places, Row> rows_;
  std::vector<Places> next_;           // by kind: where it leads from the row that is made
  std::vector<const Places*> places_;  // by state
  size_t work_ = 0;
};

std::optional<PatternAutomaton> PatternAutomaton::Of(std::string_view pattern) {
  try {
    PatternAutomaton automaton;
    const Reader read(pattern);
    // Not thrown: the patterns of ordinary schemas are such.
    if (!read.IsReadAlike()) return std::nullopt;
    Maker(automaton, read).Make();
    return automaton;
  } catch (const NotRead&) {
    return std::nullopt;
  } catch (const ContentModel::TooLarge&) {
    return std::nullopt;
  }
}

}  // namespace zevo
