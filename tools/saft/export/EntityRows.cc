// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/EntityRows.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "tools/saft/dataset/LostInRows.h"
#include "tools/saft/input/ScannedElements.h"
#include "tools/saft/tables/CellOf.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

constexpr std::string_view kFaultNames[kFaults] = {"unreadable",      "unknown_code", "inexact",   "repeated",
                                                   "unknown_element", "out_of_order", "key_taken", "constant"};

// Where an element stands in its entity, such as "Line[2]/References", as a `Problem` tells it.
std::string PathOf(std::span<const ScannedElement> elements, size_t element) {
  std::string path;
  for (size_t at = element; elements[at].depth > elements[0].depth;) {
    size_t parent = at;
    while (elements[parent].depth >= elements[at].depth) --parent;
    size_t number = 0;
    size_t count = 0;
    ForEachChild(elements, parent, [&](size_t child) {
      if (elements[child].name != elements[at].name) return;
      ++count;
      if (child == at) number = count;
    });
    std::string step(elements[at].name);
    if (count > 1) step.append("[").append(std::to_string(number)).append("]");
    if (!path.empty()) step.append("/").append(path);
    path = std::move(step);
    at = parent;
  }
  return path;
}

std::string_view KeyTextOf(const AuditFileScanner& scanner) {
  const auto kind = scanner.Kind();
  if (!kind || KeyOf(*kind).empty()) return {};
  return Trimmed(scanner.TextOf(KeyOf(*kind)).value_or(std::string_view()));
}

}  // namespace

EntityRows::EntityRows(const AuditTables& tables, TableTarget& target, int64_t file)
    : tables_(tables), target_(target), file_(file) {
  for (const RecordTable& table : tables.Records()) {
    rows_.emplace_back(table, tables.Shapes()[table.table].columns.size());
  }
}

void EntityRows::Take(const AuditFileScanner& scanner) {
  for (const Problem& problem : scanner.Problems()) {
    // A text that is no value of its column is told with the row.
    if (problem.fault != Fault::kUnreadable && IsLostInRows(scanner, problem)) Add(scanner, problem);
  }
  for (Rows& rows : rows_) {
    if (rows.table->kind->entity != scanner.Kind()) continue;
    rows.elements.clear();
    rows.reader.Read(scanner, [&](const Row& row) { Take(scanner, rows, row); });
  }
}

void EntityRows::TakeEnd(const AuditFileScanner& scanner) {
  for (const Problem& problem : scanner.Problems()) Add(scanner, problem);
}

void EntityRows::Take(const AuditFileScanner& scanner, Rows& rows, const Row& row) {
  const RecordTable& table = *rows.table;
  rows.elements.push_back(row.element);
  rows.cells[0] = file_;
  rows.cells[1] = ++rows.last;
  rows.cells[2] = NumberOrNothing(row.elements[row.element].place.line);
  if (table.fixed > kKeyColumns + 1) rows.cells[kKeyColumns + 1] = NumberOrNothing(ParentOf(rows, row));
  const std::vector<TableColumn>& columns = tables_.Shapes()[table.table].columns;
  for (size_t i = 0; i < row.cells.size(); ++i) {
    Cell& cell = rows.cells[table.fixed + i];
    cell = Cell();
    if (!row.cells[i]) continue;
    if (const auto value = CellOf(*row.cells[i], columns[table.fixed + i].type)) {
      cell = *value;
    } else {
      TellUnreadable(scanner, row, table.paths[i], *row.cells[i]);
    }
  }
  target_.Add(table.table, rows.cells);
  ++records_;
}

// The position of the record that the row's is in: of the same entity, or the entity that came last. 0 where a file in
// disorder has none.
int64_t EntityRows::ParentOf(const Rows& rows, const Row& row) const {
  const Rows& parents = rows_[rows.table->parent];
  if (parents.table->kind->entity != rows.table->kind->entity) return parents.last;
  const auto behind = std::ranges::upper_bound(parents.elements, row.element);
  return parents.last - (parents.elements.end() - behind);
}

void EntityRows::TellUnreadable(const AuditFileScanner& scanner, const Row& row, std::string_view path,
                                std::string_view text) {
  std::string whole = PathOf(row.elements, row.element);
  if (!whole.empty()) whole += '/';
  whole.append(path);
  Add(scanner, {Fault::kUnreadable, whole, scanner.PlaceOf(whole), std::string(text)});
}

void EntityRows::Add(const AuditFileScanner& scanner, const Problem& problem) {
  const bool inEntity = scanner.Kind() && !problem.path.starts_with('/');
  const std::string message = Describe(problem, SpokenLanguage());
  const std::string_view sentence = message;
  const std::string_view text = problem.text;
  const Cell cells[] = {file_,
                        ++problems_,
                        NumberOrNothing(problem.place.line),
                        NumberOrNothing(problem.place.column),
                        inEntity ? TextOrNothing(NameOf(*scanner.Kind())) : Cell(),
                        inEntity ? TextOrNothing(KeyTextOf(scanner)) : Cell(),
                        TextOrNothing(problem.path),
                        kFaultNames[static_cast<size_t>(problem.fault)],
                        text,
                        sentence};
  target_.Add(AuditTables::kProblems, cells);
}

}  // namespace zevo::saft
