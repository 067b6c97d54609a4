// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_MERGEREPORT_H_
#define ZEVO_TOOLS_SAFT_MERGE_MERGEREPORT_H_

#include <cstddef>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::saft {

/// What is told of a merge: of each thing the first few, and how many more there are.
class MergeReport {
 public:
  /// The things, in the order in which they are told.
  enum Subject {
    kFile,      ///< a file cannot be merged
    kDocument,  ///< a document is there twice
    kPeriod,    ///< a note on periods
    kMaster,    ///< a master record differs
    kTotals,    ///< totals that are wrong
  };

  /// Adds a thing; its sentence is made where it will be told.
  void Add(Subject subject, const std::function<std::string()>& sentence);
  /// Whether something is told that keeps the files from being merged.
  bool IsRefusal() const;
  /// Tells it: what keeps the files from being merged and, where nothing does, the notes.
  void Report(std::ostream& out) const;

 private:
  struct Told {
    std::vector<std::string> first;
    size_t more = 0;
  };
  static bool Refuses(Subject subject) { return subject == kFile || subject == kDocument; }

  std::map<Subject, Told> told_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_MERGEREPORT_H_
