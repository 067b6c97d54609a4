// SPDX-License-Identifier: Apache-2.0
#include "tests/platform/fastpath/Telling.h"

#include <zevo/platform/File.h>
#include <zevo/platform/PulledParse.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/fastpath/FastEvents.h>
#include <zevo/platform/fastpath/FastNames.h>
#include <zevo/platform/fastpath/FastParse.h>

#include <algorithm>
#include <memory>

namespace zevo::testing {
namespace {

std::string Qualified(const ParsedName& name) {
  return name.prefix == nullptr ? name.local : std::string(name.prefix) + ":" + name.local;
}

bool AreSame(const ParsedName& name, const ParsedName& other) {
  return name.local == other.local && name.prefix == other.prefix;
}

std::string Shown(const FilePlace& place) {
  return std::to_string(place.line) + ":" + std::to_string(place.column) + "@" + std::to_string(place.offset);
}

std::string Shown(const std::optional<XmlProblem>& problem) {
  if (!problem) return "no problem";
  return std::to_string(problem->number) + " " + problem->reason + " fault " +
         std::to_string(static_cast<int>(problem->fault)) + " at " + Shown(problem->place);
}

template <class T, class Show, class Like>
std::string FirstDifference(const std::vector<T>& found, const std::vector<T>& expected, Show show, Like like) {
  const auto [one, other] = std::ranges::mismatch(found, expected, like);
  if (one == found.end() && other == expected.end()) return {};
  return std::to_string(one - found.begin()) + " is " + (one == found.end() ? "nothing" : show(*one)) + ", not " +
         (other == expected.end() ? "nothing" : show(*other));
}

}  // namespace

std::string Difference(const Telling& found, const Telling& expected) {
  std::string difference = FirstDifference(
      found.events, expected.events, [](const auto& event) { return event; }, std::equal_to<>());
  if (!difference.empty()) return "event " + difference;
  difference = FirstDifference(
      found.places, expected.places, [](const auto& place) { return Shown(place); },
      [](const FilePlace& one, const FilePlace& other) { return one == other || other == FilePlace(); });
  if (!difference.empty()) return "place " + difference;
  if (Shown(found.problem) != Shown(expected.problem)) {
    return Shown(found.problem) + ", not " + Shown(expected.problem);
  }
  return expected.broken_rule.empty() && !found.broken_rule.empty() ? "names: " + found.broken_rule : "";
}

void Teller::StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) {
  std::string event;
  // Those of attributes are numbered first.
  for (const ParsedAttribute& attribute : attributes) {
    event.append(" ").append(Known(attribute.name)).append("=").append(attribute.value);
  }
  told_.events.push_back("<" + Known(name) + event + ">");
  if (name.number == 0) Break("an element without a number");
  open_.push_back(name);
  if (place_of_) told_.places.push_back(place_of_(name.local));
}

void Teller::EndElement(const ParsedName& name) {
  told_.events.push_back("</" + Known(name) + ">");
  Close(name);
}

void Teller::EndEmptyTag(const ParsedName& name) {
  told_.events.emplace_back("/>");
  Close(name);
}

void Teller::Close(const ParsedName& name) {
  if (name.number != 0) Break("an end with a number");
  if (open_.empty() || !AreSame(open_.back(), name)) return Break("an end of another name than the start");
  open_.pop_back();
}

std::string Teller::Known(const ParsedName& name) {
  for (const char* const part : {name.local, name.prefix}) {
    if (part == nullptr || (name.number == 0 && std::string_view(part) == "xmlns")) continue;
    if (parts_.try_emplace(part, part).first->second != part) Break("another pointer for " + std::string(part));
  }
  std::string text = Qualified(name);
  if (name.number == 0) return text;
  const auto [known, is_new] = numbers_.try_emplace(text, name.number);
  if (known->second != name.number) Break("another number for " + text);
  if (is_new && name.number != numbers_.size()) Break("not the next number for " + text);
  return text + " #" + std::to_string(name.number);
}

void Teller::Add(std::string_view kind, std::string_view text) {
  if (told_.events.empty() || !told_.events.back().starts_with(kind)) told_.events.emplace_back(kind);
  told_.events.back() += text;
}

void Teller::Break(std::string rule) {
  if (told_.broken_rule.empty()) told_.broken_rule = std::move(rule);
}

Telling Teller::Told(std::optional<XmlProblem> problem) {
  told_.problem = std::move(problem);
  return std::move(told_);
}

Telling ToldByParser(std::string_view bytes) {
  InputBytes input(bytes);
  Teller teller;
  auto problem = Parser(input).Parse(teller);
  return teller.Told(std::move(problem));
}

Telling ToldByPulledParse(const std::string& path) {
  PulledParse* running = nullptr;
  Teller teller([&](std::string_view local) { return running->StartTagPlace(local); });
  PulledParse parse(path, teller);
  running = &parse;
  while (parse.Feed()) continue;
  Telling told = teller.Told(parse.Problem());
  if (told.problem) told.broken_rule.clear();
  return told;
}

FastTelling ToldInPieces(std::string_view bytes, size_t room) {
  InputBytes input(bytes);
  TextDecoder decoder(input);
  FastNames names;
  Teller teller;
  FastEvents events(teller);
  uint64_t bytes_read = 0;
  FastParse<FastEvents> parse(decoder, names, events, bytes_read, room);
  auto outcome = FastOutcome::kGoesOn;
  while (outcome == FastOutcome::kGoesOn) outcome = parse.ParsePiece();
  FastTelling telling{.told = {}, .taken = outcome == FastOutcome::kThrough, .count = events.Count()};
  std::optional<XmlProblem> problem;
  if (!telling.taken) {
    RestOfEvents rest(teller, events.Count(), &names);
    InputBytes again(bytes);
    problem = Parser(again).ParseWithLibxml2(rest);
  }
  telling.told = teller.Told(std::move(problem));
  return telling;
}

}  // namespace zevo::testing
