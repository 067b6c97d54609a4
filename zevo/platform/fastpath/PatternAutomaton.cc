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
    for (ContentModel::State state = 0; state < model.States(); ++state) RequireOneWay(state);
  }

  ContentModel model;
  std::vector<Atom> atoms;  // the children of the model

 private:
  using Part = ContentModel::Part;

  // Several ways are found where there are only lists.
  void RequireOneWay(ContentModel::State state) const {
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
    Require(!several || listed);
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
    return {ClassOf(letter), false};
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
};

// Makes the table: a state stands for all places of the pattern that a text may have come to.
class PatternAutomaton::Maker {
 public:
  Maker(PatternAutomaton& automaton, const Reader& pattern) : automaton_(automaton), pattern_(pattern) {}

  void Make() {
    FindKinds();
    StateOf({ContentModel::kStart});
    for (size_t i = 0; i < places_.size(); ++i) AddRow(i);
  }

 private:
  using Places = std::vector<ContentModel::State>;
  using Row = uint16_t;

  // Bytes within a character beyond ASCII lead nowhere: its first byte has done so for all of it.
  static constexpr uint8_t kWithin = 0;

  void FindKinds() {
    std::map<std::vector<bool>, uint8_t> known;
    kinds_of_characters_.resize(1);
    for (size_t byte = 0; byte < automaton_.kind_of_.size(); ++byte) {
      if (byte >= 0x80 && byte < 0xC0) continue;
      const size_t character = std::min(byte, kBeyondAscii);
      std::vector<bool> in;
      for (const Reader::Atom& atom : pattern_.atoms) in.push_back(atom.characters[character]);
      const auto [found, added] = known.emplace(in, static_cast<uint8_t>(kinds_of_characters_.size()));
      if (added) kinds_of_characters_.push_back(character);
      automaton_.kind_of_[byte] = found->second;
    }
  }

  Row StateOf(Places places) {
    const size_t next = places_.size() * kinds_of_characters_.size();
    Require(next < kMostEntries || rows_.contains(places));
    const auto row = static_cast<Row>(next);
    const auto [found, added] = rows_.emplace(std::move(places), row);
    if (added) {
      places_.push_back(&found->first);
      automaton_.takes_.resize(row + 1);
      automaton_.takes_[row] =
          std::ranges::any_of(found->first, [&](ContentModel::State place) { return pattern_.model.MayEnd(place); });
    }
    return found->second;
  }

  void AddRow(size_t state) {
    automaton_.next_.push_back(static_cast<Row>(state * kinds_of_characters_.size()));
    static_assert(kWithin == 0);
    for (size_t kind = 1; kind < kinds_of_characters_.size(); ++kind) {
      Places next;
      for (const ContentModel::State place : *places_[state]) {
        work_ += pattern_.model.Following(place).size();
        Require(work_ <= kMostWork);
        for (const ContentModel::State following : pattern_.model.Following(place)) {
          const Reader::Atom& atom = pattern_.atoms[pattern_.model.ChildOf(following)];
          if (atom.characters[kinds_of_characters_[kind]]) next.push_back(following);
        }
      }
      std::ranges::sort(next);
      next.erase(std::unique(next.begin(), next.end()), next.end());
      automaton_.next_.push_back(StateOf(std::move(next)));
    }
  }

  PatternAutomaton& automaton_;
  const Reader& pattern_;
  std::vector<size_t> kinds_of_characters_;  // a character of each kind
  std::map<Places, Row> rows_;
  std::vector<const Places*> places_;  // by state
  size_t work_ = 0;
};

std::optional<PatternAutomaton> PatternAutomaton::Of(std::string_view pattern) {
  try {
    PatternAutomaton automaton;
    const Reader read(pattern);
    Maker(automaton, read).Make();
    return automaton;
  } catch (const NotRead&) {
    return std::nullopt;
  } catch (const ContentModel::TooLarge&) {
    return std::nullopt;
  }
}

}  // namespace zevo
