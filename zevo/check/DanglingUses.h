// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_DANGLINGUSES_H_
#define ZEVO_CHECK_DANGLINGUSES_H_

#include <zevo/check/FileKeys.h>
#include <zevo/check/Judgement.h>

#include <string>

namespace zevo {

/// What is told of uses of keys that the file does not have.
struct DanglingUses {
  FileKeys::Use use;
  const RuleSentence* unknown;  ///< of each
  const RuleSentence* none;     ///< of the first, where the file has nothing of the kind; {difference} is how many
};

inline void Tell(const DanglingUses& uses, Judgement& judgement) {
  const FileKeys::Dangling dangling = judgement.File().Keys().DanglingOf(uses.use);
  if (dangling.none && !dangling.kept.empty()) {
    return judgement.Tell(
        *uses.none, *dangling.kept.front(),
        {.found = {}, .expected = {}, .difference = std::to_string(dangling.kept.size() + dangling.more)});
  }
  for (const KeptElement* kept : dangling.kept) judgement.Tell(*uses.unknown, *kept);
  judgement.TellMore(*uses.unknown, dangling.more);
}

/// Whether the file has no master files at all, which SCHEMA tells: nothing that refers to them is told then.
inline bool LacksMasterFiles(const Judgement& judgement) {
  return !judgement.File().Keys().HasMasterFiles() && judgement.IsOn("SCHEMA");
}

}  // namespace zevo

#endif  // ZEVO_CHECK_DANGLINGUSES_H_
