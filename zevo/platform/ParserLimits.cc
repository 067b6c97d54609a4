// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/ParserLimits.h>

namespace zevo {

// As the texts below, README.md and docs/reliability.md tell them.
static_assert(ParserLimits::kAttributes == 256 && ParserLimits::kDeclarations == 64 &&
              ParserLimits::kOtherNames == 10'000 && ParserLimits::kStartTag == size_t{64} * 1024 &&
              ParserLimits::kDepth == 256 && ParserLimits::kText == 10'000'000 && ParserLimits::kNames == 10'000);

void ParserLimits::CheckAttributes(int count) {
  if (count > kAttributes) throw Passed{"Uma etiqueta tem mais de 256 atributos"};
}

void ParserLimits::CheckDeclarations(int count) {
  if (count > kDeclarations) throw Passed{"Mais de 64 declarações de espaços de nomes valem ao mesmo tempo"};
}

void ParserLimits::CountOtherName(const char* name) {
  if (other_names_.Of(name) <= kOtherNames) return;
  throw Passed{"O ficheiro tem mais de 10 000 nomes de instruções, prefixos e espaços de nomes"};
}

void ParserLimits::RefuseTag() { throw Passed{"Uma etiqueta tem mais de 64 KiB"}; }
void ParserLimits::RefuseDepth() { throw Passed{"Os elementos estão encaixados em mais de 256 níveis"}; }
void ParserLimits::RefuseText() { throw Passed{"Um texto tem mais de 10 milhões de bytes"}; }
void ParserLimits::RefuseNames() { throw Passed{"O ficheiro tem mais de 10 000 nomes de elementos e atributos"}; }

}  // namespace zevo
