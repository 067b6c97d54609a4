// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_ELEMENTPATHS_H_
#define ZEVO_TESTS_SUPPORT_ELEMENTPATHS_H_

#include <zevo/model/ScannedElement.h>

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo::testing {

/// Where each element of an entity stands in it: the place of its parent among them, and its path, such as
/// "Line[2]/CreditAmount", with numbers where a parent has several of a name.
struct ElementPaths {
  std::vector<size_t> parents;
  std::vector<std::string> paths;
};

inline ElementPaths PathsOf(std::span<const ScannedElement> elements) {
  ElementPaths found;
  std::vector<size_t> open;
  std::map<std::pair<size_t, std::string_view>, int> several;
  for (size_t i = 0; i < elements.size(); ++i) {
    open.resize(static_cast<size_t>(elements[i].depth));
    found.parents.push_back(open.empty() ? 0 : open.back());
    open.push_back(i);
    if (i > 0) ++several[{found.parents[i], elements[i].name}];
  }
  std::map<std::pair<size_t, std::string_view>, int> counts;
  for (size_t i = 0; i < elements.size(); ++i) {
    std::string path;
    if (i > 0) {
      const std::pair<size_t, std::string_view> kind{found.parents[i], elements[i].name};
      path = found.paths[found.parents[i]];
      path.append(path.empty() ? "" : "/").append(elements[i].name);
      if (several[kind] > 1) path += "[" + std::to_string(++counts[kind]) + "]";
    }
    found.paths.push_back(std::move(path));
  }
  return found;
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SUPPORT_ELEMENTPATHS_H_
