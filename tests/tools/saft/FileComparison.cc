// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/saft/FileComparison.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {
namespace {

// Elements that hold numbers, whose texts are written anew.
constexpr auto kNumbers = std::to_array<std::string_view>(
    {"CreditAmount", "CurrencyCreditAmount", "CurrencyDebitAmount", "DebitAmount", "GrossTotal", "LineNumber",
     "NetTotal", "OpeningCreditBalance", "OpeningDebitBalance", "Quantity", "SelfBillingIndicator", "SettlementAmount",
     "TaxAmount", "TaxPayable", "TaxPercentage", "UnitPrice"});

// Elements that are left out when there is nothing in them.
constexpr auto kOptional = std::to_array<std::string_view>({"Address",
                                                            "BuildingNumber",
                                                            "Contact",
                                                            "Currency",
                                                            "CurrencyCode",
                                                            "CustomerID",
                                                            "DeliveryDate",
                                                            "DeliveryID",
                                                            "Email",
                                                            "Fax",
                                                            "HashControl",
                                                            "HeaderComment",
                                                            "OrderDate",
                                                            "OriginatingON",
                                                            "PaymentMechanism",
                                                            "Period",
                                                            "ProductGroup",
                                                            "Reason",
                                                            "Reference",
                                                            "References",
                                                            "Region",
                                                            "Settlement",
                                                            "SettlementDate",
                                                            "SettlementDiscount",
                                                            "ShipFrom",
                                                            "ShipFromAddress",
                                                            "ShipTo",
                                                            "ShipToAddress",
                                                            "SourceDocumentID",
                                                            "SourceID",
                                                            "StreetName",
                                                            "SupplierID",
                                                            "TaxExemptionReason",
                                                            "TaxExpirationDate",
                                                            "Telephone",
                                                            "TransactionID",
                                                            "Website"});

bool IsNumber(std::string_view name) { return std::ranges::find(kNumbers, name) != kNumbers.end(); }

// A decimal number without a plus and zeros to spare.
std::string Plain(std::string_view number) {
  const bool negative = number.starts_with('-');
  if (negative || number.starts_with('+')) number.remove_prefix(1);
  std::string whole(number.substr(0, number.find('.')));
  std::string fraction(number.substr(std::min(number.size(), whole.size() + 1)));
  whole.erase(0, whole.find_first_not_of('0'));
  fraction.erase(fraction.find_last_not_of('0') + 1);
  std::string plain = whole.empty() ? "0" : whole;
  if (!fraction.empty()) plain += "." + fraction;
  return negative && plain != "0" ? "-" + plain : plain;
}

bool IsSameNumber(std::string_view before, std::string_view after) { return Plain(before) == Plain(after); }
bool IsZero(std::string_view text) { return !text.empty() && Plain(text) == "0"; }

// Rounded to four decimals or to single precision. The rest is for halves, which the types here do not hold exactly.
bool IsRounded(std::string_view before, std::string_view after) {
  const long double from = std::strtold(std::string(before).c_str(), nullptr);
  const long double to = std::strtold(std::string(after).c_str(), nullptr);
  return std::fabs(from - to) <= std::max(0.00005L, std::fabs(from) * 0.0000001L) + 1e-12L;
}

std::string Lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

// As a parser reads what was written as it is.
std::string WithLineFeeds(std::string_view text) {
  std::string lines;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') {
      lines += text[i];
    } else if (i + 1 == text.size() || text[i + 1] != '\n') {
      lines += '\n';
    }
  }
  return lines;
}

/// How an element may differ. There is no other way.
struct Rule {
  enum Change { kText, kGone, kAdded };

  Change change;
  std::string_view path;  ///< "#" is any number, "*" any beginning
  bool (*holds)(std::string_view before, std::string_view after);
  std::optional<Told> told = std::nullopt;
  std::string_view column = {};  ///< where it is told
  bool streamed = false;         ///< whether it holds for `--stream` only
};

constexpr auto kRules = std::to_array<Rule>({
    {.change = Rule::kText, .path = "#", .holds = &IsSameNumber},
    {.change = Rule::kText, .path = "#", .holds = &IsRounded, .told = Told::kRounded},
    {.change = Rule::kText,
     .path = "Header/ProductCompanyTaxID",
     .holds = [](std::string_view, std::string_view after) { return after == "500000000"; },
     .told = Told::kConstant,
     .column = "ProductCompanyTaxId"},
    {.change = Rule::kText,
     .path = "TaxTable/TaxTableEntry/TaxType",
     .holds = [](std::string_view before, std::string_view after) { return before == "IS" && after == "IVA"; },
     .told = Told::kConstant,
     .column = "TaxType"},
    {.change = Rule::kText,
     .path = "Invoice/Line/Tax/TaxType",
     .holds = [](std::string_view before, std::string_view after) { return before == "IS" && after == "IVA"; },
     .told = Told::kConstant,
     .column = "Tax.TaxType"},
    {.change = Rule::kText,
     .path = "Invoice/InvoiceType",
     .holds = [](std::string_view before, std::string_view after) { return before == "FS" && after.empty(); },
     .told = Told::kUnknownCode,
     .column = "InvoiceType"},
    {.change = Rule::kText,
     .path = "Header/CompanyAddress/Country",
     .holds = [](std::string_view before, std::string_view after) { return before.empty() && after == "PT"; }},
    {.change = Rule::kText,
     .path = "*",
     .holds = [](std::string_view before, std::string_view after) { return WithLineFeeds(before) == after; },
     .told = Told::kReturns,
     .streamed = true},
    // An absent one is told with the header.
    {.change = Rule::kAdded,
     .path = "Header/BusinessName",
     .holds = [](std::string_view, std::string_view after) { return after.empty(); }},
    {.change = Rule::kAdded,
     .path = "Invoice/Line/SettlementAmount",
     .holds = [](std::string_view, std::string_view after) { return after == "0"; }},
    {.change = Rule::kAdded,
     .path = "Invoice/DocumentTotals/Settlement/SettlementAmount",
     .holds = [](std::string_view, std::string_view after) { return after == "0"; }},
    {.change = Rule::kGone,
     .path = "*/DebitAmount",
     .holds = [](std::string_view before, std::string_view) { return IsZero(before); }},
    {.change = Rule::kAdded,
     .path = "*/CreditAmount",
     .holds = [](std::string_view, std::string_view after) { return after == "0"; }},
    {.change = Rule::kGone,
     .path = "*/CurrencyDebitAmount",
     .holds = [](std::string_view before, std::string_view) { return IsZero(before); }},
    {.change = Rule::kAdded,
     .path = "*/CurrencyCreditAmount",
     .holds = [](std::string_view, std::string_view after) { return after == "0"; }},
    {.change = Rule::kGone,
     .path = "*/TaxPercentage",
     .holds = [](std::string_view before, std::string_view) { return IsZero(before); }},
    {.change = Rule::kAdded,
     .path = "*/TaxAmount",
     .holds = [](std::string_view, std::string_view after) { return after == "0"; }},
});

bool IsAt(const Rule& rule, std::string_view path) {
  if (rule.path == "#") return IsNumber(path.substr(path.rfind('/') + 1));
  return rule.path.starts_with('*') ? path.ends_with(rule.path.substr(1)) : path == rule.path;
}

bool IsEmpty(const Tree& tree) { return tree.text.empty() && std::ranges::all_of(tree.children, &IsEmpty); }

// The column of a dataset that has the element at a path.
std::string ColumnOf(const DatasetRow& row, std::string_view path) {
  std::string column(path.substr(kDatasetElements[row.element].path.size() + 1));
  std::ranges::replace(column, '/', '.');
  constexpr std::string_view kCurrency = ".Currency.";
  if (const size_t at = column.find(kCurrency); at != std::string::npos) {
    column.replace(at, kCurrency.size(), ".CurrencyValue.");
  }
  return column;
}

class Comparer {
 public:
  explicit Comparer(WrittenBy way) : way_(way) {}

  void Compare(const std::vector<FileEntity>& before, const std::vector<FileEntity>& after);
  FileDifference Take() { return std::move(difference_); }

 private:
  void CompareEntities(const FileEntity& before, const FileEntity& after, const std::vector<FileEntity>& all);
  void CompareElements(const Tree& before, const Tree& after, const std::string& path, const std::string& numbered);
  void CompareTexts(const Tree& before, const Tree& after, const std::string& path, const std::string& numbered);
  void CompareTotals(const Tree& after, EntityKind entries, const std::vector<FileEntity>& all);
  void NoteHeader(const Tree& header);
  void NoteRepeatedKeys(const Tree& document, std::string_view key);
  void PutInLines(Tree& invoice);
  bool MayDiffer(Rule::Change change, const Tree& tree, const std::string& path);
  void Unexpected(const std::string& where, const std::string& what) {
    difference_.unexpected.push_back(where + ": " + what);
  }
  void Add(Told told, const DatasetRow& row, std::string what) {
    difference_.notes.push_back({told, row, std::move(what)});
  }

  WrittenBy way_;
  FileDifference difference_;
};

void Comparer::Compare(const std::vector<FileEntity>& before, const std::vector<FileEntity>& after) {
  for (size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
    if (i >= after.size() || i >= before.size() || before[i].kind != after[i].kind) {
      const FileEntity& left = i < before.size() ? before[i] : after[i];
      return Unexpected(left.element.name, "entity " + std::to_string(i + 1) + " has no counterpart");
    }
    CompareEntities(before[i], after[i], after);
  }
}

void Comparer::CompareEntities(const FileEntity& before, const FileEntity& after, const std::vector<FileEntity>& all) {
  if (before.journal != after.journal) Unexpected(before.element.name, "stands in another journal");
  Tree expected = before.element;
  switch (before.kind) {
    case EntityKind::kGeneralLedgerEntries:
      return CompareTotals(after.element, EntityKind::kTransaction, all);
    case EntityKind::kSalesInvoices:
      return CompareTotals(after.element, EntityKind::kInvoice, all);
    case EntityKind::kHeader:
      NoteHeader(expected);
      break;
    case EntityKind::kTransaction:
      NoteRepeatedKeys(expected, "RecordID");
      break;
    case EntityKind::kInvoice:
      NoteRepeatedKeys(expected, "LineNumber");
      PutInLines(expected);
      break;
    default:
      break;
  }
  CompareElements(expected, after.element, expected.name, expected.name);
}

void Comparer::NoteHeader(const Tree& header) {
  if (header.TextOf("BusinessName").empty()) Add(Told::kAbsent, header.row, "BusinessName");
}

void Comparer::NoteRepeatedKeys(const Tree& document, std::string_view key) {
  std::set<std::string> keys;
  for (const Tree& line : document.children) {
    if (line.name != "Line") continue;
    const std::string text = line.TextOf(key);
    const std::string folded = IsNumber(key) ? Plain(text) : Lower(text);
    if (!keys.insert(folded).second) {
      Add(Told::kRepeatedKey, line.row, std::string(key).append(": \"").append(text).append("\""));
    }
  }
}

// Orders and credit notes name their line by its number. Where several have it, they go to these lines in turn, and
// what is left over to the first, which holds one order at most.
void Comparer::PutInLines(Tree& invoice) {
  std::map<std::string, std::vector<Tree*>> lines;
  for (Tree& line : invoice.children) {
    if (line.name == "Line") lines[Plain(line.TextOf("LineNumber"))].push_back(&line);
  }
  for (auto& [number, same] : lines) {
    if (same.size() > 1) difference_.is_rewritten = true;
    std::vector<Tree> orders;
    std::vector<Tree> notes;
    const auto guess = [&, count = same.size()](const Tree& tree, const Tree& line) {
      if (count > 1) Add(Told::kGuess, tree.row, "LineNumber: \"" + line.TextOf("LineNumber") + "\"");
    };
    for (Tree* const line : same) {
      for (const Tree& child : line->children) {
        if (child.name == "OrderReferences") {
          guess(child, *line);
          if (orders.size() == same.size()) {
            Add(Told::kSecond, child.row, "LineNumber: \"" + line->TextOf("LineNumber") + "\"");
            difference_.is_rewritten = true;
          } else {
            orders.push_back(child);
          }
        } else if (child.name == "References") {
          for (const Tree& note : child.children) guess(note, *line);
          std::ranges::copy(child.children, std::back_inserter(notes));
        }
      }
      std::erase_if(line->children, [](const Tree& child) {
        return child.name == "OrderReferences" || (child.name == "References" && !child.children.empty());
      });
    }
    const auto insert = [](Tree& line, std::string_view before, const Tree& tree) {
      const auto place = std::ranges::find(line.children, before, &Tree::name);
      line.children.insert(place, tree);
    };
    for (size_t i = 0; i < orders.size(); ++i) insert(*same[i], "ProductCode", orders[i]);
    for (size_t i = 0; i < std::min(same.size(), notes.size()); ++i) {
      Tree references{.name = "References", .text = {}, .row = same[i]->row, .children = {notes[i]}};
      if (i == 0 && notes.size() > same.size()) {
        references.children.insert(references.children.end(), notes.begin() + static_cast<std::ptrdiff_t>(same.size()),
                                   notes.end());
      }
      insert(*same[i], "Description", references);
    }
  }
}

void Comparer::CompareTotals(const Tree& after, EntityKind entries, const std::vector<FileEntity>& all) {
  int count = 0;
  std::array<Amount, 2> sums;
  constexpr std::array<std::string_view, 2> kAmounts{"DebitAmount", "CreditAmount"};
  for (const FileEntity& entity : all) {
    if (entity.kind != entries) continue;
    if (entries == EntityKind::kInvoice && Lower(entity.element.TextOf("TransactionID")) == "anulado") continue;
    ++count;
    for (const Tree& line : entity.element.children) {
      if (line.name != "Line") continue;
      for (size_t i = 0; i < kAmounts.size(); ++i) {
        if (const Tree* const amount = line.Child(kAmounts[i])) sums[i] += Amount::FromText(amount->text);
      }
    }
  }
  if (after.TextOf("NumberOfEntries") != std::to_string(count)) Unexpected(after.name, "NumberOfEntries");
  constexpr std::array<std::string_view, 2> kTotals{"TotalDebit", "TotalCredit"};
  for (size_t i = 0; i < kTotals.size(); ++i) {
    const std::string written = after.TextOf(kTotals[i]);
    const Amount total = Amount::FromText(written);
    const bool has_two_decimals = written.size() > 2 && written[written.size() - 3] == '.';
    if (!has_two_decimals) Unexpected(after.name, "not two decimals: " + written);
    if (std::abs((total - sums[i]).Scaled()) > 50) Unexpected(after.name, "not the sum: " + written);
    if (total == sums[i]) continue;
    Add(Told::kTotal, {}, after.name + ": " + std::string(kTotals[i]) + ": " + sums[i].Text() + " to " + total.Text());
  }
}

void Comparer::CompareElements(const Tree& before, const Tree& after, const std::string& path,
                               const std::string& numbered) {
  CompareTexts(before, after, path, numbered);
  // The children by their names and the numbers that they have among those of the name.
  const auto keysOf = [](const Tree& tree) {
    std::vector<std::pair<std::string, int>> keys;
    std::map<std::string, int> counts;
    for (const Tree& child : tree.children) keys.emplace_back(child.name, ++counts[child.name]);
    return keys;
  };
  const auto left = keysOf(before);
  const auto right = keysOf(after);
  const auto numberedAs = [&](const std::pair<std::string, int>& key) {
    return numbered + "/" + key.first + "[" + std::to_string(key.second) + "]";
  };
  size_t i = 0;
  size_t j = 0;
  while (i < left.size() || j < right.size()) {
    if (i < left.size() && j < right.size() && left[i] == right[j]) {
      CompareElements(before.children[i], after.children[j], path + "/" + left[i].first, numberedAs(left[i]));
      ++i;
      ++j;
    } else if (i < left.size() && std::ranges::find(right, left[i]) == right.end()) {
      if (!MayDiffer(Rule::kGone, before.children[i], path + "/" + left[i].first)) {
        Unexpected(numberedAs(left[i]), "is gone");
      }
      ++i;
    } else if (j < right.size() && std::ranges::find(left, right[j]) == left.end()) {
      if (!MayDiffer(Rule::kAdded, after.children[j], path + "/" + right[j].first)) {
        Unexpected(numberedAs(right[j]), "is added");
      }
      ++j;
    } else {
      return Unexpected(numbered, "the order of what is in it");
    }
  }
}

void Comparer::CompareTexts(const Tree& before, const Tree& after, const std::string& path,
                            const std::string& numbered) {
  if (before.text == after.text) return;
  difference_.is_rewritten = true;
  for (const Rule& rule : kRules) {
    if (rule.change != Rule::kText || !IsAt(rule, path) || !rule.holds(before.text, after.text)) continue;
    if (rule.streamed && way_ != WrittenBy::kStream) continue;
    if (rule.told) {
      std::string what = rule.column.empty() ? ColumnOf(before.row, path) : std::string(rule.column);
      if (*rule.told != Told::kReturns) what += ": \"" + before.text + "\"";
      if (*rule.told == Told::kRounded || *rule.told == Told::kConstant) what += " to \"" + after.text + "\"";
      Add(*rule.told, before.row, what);
    }
    return;
  }
  Unexpected(numbered, "\"" + before.text + "\" is \"" + after.text + "\"");
}

bool Comparer::MayDiffer(Rule::Change change, const Tree& tree, const std::string& path) {
  const bool optional = std::ranges::find(kOptional, tree.name) != kOptional.end();
  if (change == Rule::kGone && optional && IsEmpty(tree)) return true;
  const auto found = std::ranges::find_if(kRules, [&](const Rule& rule) {
    return rule.change == change && IsAt(rule, path) && rule.holds(tree.text, tree.text) && tree.children.empty();
  });
  // What has no text is in no cell.
  if (!tree.text.empty()) difference_.is_rewritten = true;
  return found != kRules.end();
}

struct Wording {
  Told told;
  std::string_view one;
  std::string_view many;
  std::string_view done;
};

constexpr std::array<Wording, 9> kWordings{{
    {Told::kRounded, "number", "numbers", "rounded to what the file holds"},
    {Told::kTotal, "total", "totals", "rounded to two decimals"},
    {Told::kConstant, "value", "values", "replaced by the constant that the file has there"},
    {Told::kUnknownCode, "code", "codes", "left out, the element is empty: the library has no such code"},
    {Told::kAbsent, "absent text", "absent texts", "written as an empty element"},
    {Told::kSecond, "row", "rows", "left out, a line holds only one order"},
    {Told::kRepeatedKey, "key", "keys", "repeated in one document and kept"},
    {Told::kGuess, "row", "rows", "given to one of several lines of the same number"},
    {Told::kReturns, "text", "texts", "with carriage returns, which read back as line feeds"},
}};

}  // namespace

FileDifference Compare(const std::vector<FileEntity>& before, const std::vector<FileEntity>& after, WrittenBy way) {
  Comparer comparer(way);
  comparer.Compare(before, after);
  return comparer.Take();
}

std::string TextOf(const std::vector<Note>& notes, const std::string& folder) {
  constexpr size_t kTold = 5;
  std::string text;
  for (const auto& [told, one, many, done] : kWordings) {
    std::vector<Note> these;
    std::ranges::copy_if(notes, std::back_inserter(these),
                         [&, kind = told](const Note& note) { return note.told == kind; });
    if (these.empty()) continue;
    std::ranges::stable_sort(these, {}, [](const Note& note) { return std::pair(note.row.element, note.row.row); });
    text += "saft: " + std::to_string(these.size()) + " " + std::string(these.size() == 1 ? one : many) + " " +
            std::string(done) + "\n";
    for (size_t i = 0; i < std::min(kTold, these.size()); ++i) {
      const Note& note = these[i];
      text += "  ";
      if (note.told != Told::kTotal) {
        const std::string file = folder + "/" + std::string(kDatasetElements[note.row.element].file);
        text += file + ":" + std::to_string(LinesOfRows(ReadBytes(file)).at(note.row.row)) + ": ";
      }
      text += note.what + "\n";
    }
    if (these.size() > kTold) text += "  and " + std::to_string(these.size() - kTold) + " more\n";
  }
  return text;
}

}  // namespace zevo::testing
