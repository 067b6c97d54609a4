// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Problem.h>

#include <zevo/model/internal/Phrase.h>

#include <array>
#include <string_view>
#include <utility>

namespace zevo {
namespace {

struct FaultRow {
  Fault fault;
  Phrase text;
};

constexpr auto kFaultRows = std::to_array<FaultRow>({
    {Fault::kUnreadable, {"o elemento não pode ter este valor", "the element cannot have this value"}},
    {Fault::kUnknownCode, {"o código não é conhecido", "the code is unknown"}},
    {Fault::kInexact, {"o registo não pode ter todos os algarismos", "the record cannot have all its digits"}},
    {Fault::kRepeated, {"está repetido; conta o primeiro", "is repeated; the first one counts"}},
    {Fault::kUnknownElement, {"não é conhecido neste sítio", "is not known here"}},
    {Fault::kOutOfOrder, {"está fora do seu lugar", "is out of place"}},
    {Fault::kKeyTaken, {"a chave já é a de outra linha", "the key is that of another line already"}},
    {Fault::kConstant, {"o registo tem sempre outro valor", "the record always has another value"}},
});

consteval bool FaultsInOrderOfValues() {
  for (size_t i = 0; i < kFaultRows.size(); ++i) {
    if (static_cast<size_t>(kFaultRows[i].fault) != i) return false;
  }
  return kFaultRows.size() == kFaults;
}
static_assert(FaultsInOrderOfValues());

}  // namespace

std::string Describe(const Problem& problem, Language language) {
  const bool portuguese = language == Language::kPortuguese;
  // The one thing that a file as a whole can lack.
  if (problem.fault == Fault::kConstant && problem.path.starts_with('/')) {
    return portuguese ? "O ficheiro não diz de que versão é; conta como 1.01_01."
                      : "The file does not say which version it is; it counts as 1.01_01.";
  }
  const FaultRow& row = kFaultRows[static_cast<size_t>(problem.fault)];
  std::string sentence = problem.path;
  if (sentence.empty()) sentence = portuguese ? "O registo" : "The record";
  if (!problem.text.empty()) sentence.append(", \"").append(problem.text).append("\"");
  sentence.append(": ").append(row.text.In(language));
  return WithPlace(std::move(sentence), problem.place, language);
}

}  // namespace zevo
