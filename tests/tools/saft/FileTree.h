// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_FILETREE_H_
#define ZEVO_TESTS_TOOLS_SAFT_FILETREE_H_

#include <zevo/adapters.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::testing {

/// An element of an audit file that has rows of its own in a listed dataset.
struct DatasetElement {
  std::string_view path;  ///< from the entity, without numbers: "Invoice/Line"
  std::string_view file;
};

/// In the order in which a dataset is read.
inline constexpr std::array<DatasetElement, 13> kDatasetElements{{
    {"Header", "header.csv"},
    {"GeneralLedger", "general_ledger.csv"},
    {"Customer", "customers.csv"},
    {"Supplier", "suppliers.csv"},
    {"Product", "products.csv"},
    {"TaxTable/TaxTableEntry", "tax_table.csv"},
    {"Journal", "journals.csv"},
    {"Transaction", "transactions.csv"},
    {"Transaction/Line", "transaction_lines.csv"},
    {"Invoice", "invoices.csv"},
    {"Invoice/Line", "invoice_lines.csv"},
    {"Invoice/Line/OrderReferences", "order_references.csv"},
    {"Invoice/Line/References/CreditNote", "credit_notes.csv"},
}};

/// A row of a listed dataset: of which of kDatasetElements, and which of its file's, from 0.
struct DatasetRow {
  size_t element = 0;
  size_t row = 0;
};

/// An element of an audit file with all that is in it.
struct Tree {
  std::string name;
  std::string text;  ///< without white space at its ends
  DatasetRow row;    ///< which tells it
  std::vector<Tree> children;

  const Tree* Child(std::string_view wanted) const;
  /// The text of a child; empty when there is none.
  std::string TextOf(std::string_view child) const;
};

/// An entity of a file, with the journal in which it stands.
struct FileEntity {
  EntityKind kind;
  std::string journal;
  Tree element;
};

/// All entities of a file, those of a kind after one another in the order of the file, and the entries of all tax
/// tables in one. A file that cannot be read, and one of which the scanner has something to tell that no element says,
/// fails the test.
std::vector<FileEntity> ReadTrees(const std::string& path);

/// On which line of a CSV file each row begins, that with the names of the columns left out.
std::vector<size_t> LinesOfRows(std::string_view csv);

/// Without the white space at its ends.
std::string_view Trimmed(std::string_view text);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_FILETREE_H_
