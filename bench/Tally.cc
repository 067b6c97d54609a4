// SPDX-License-Identifier: Apache-2.0
#include "bench/Tally.h"

#include <cmath>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace zevo::bench {
namespace {

int64_t Scaled(const std::string& amount) { return std::llround(std::stod(amount) * 10'000); }

std::string Described(const Tally& tally) {
  return std::to_string(tally.transactions) + " transactions, " + std::to_string(tally.invoices) +
         " invoices, credit of " + std::to_string(tally.credit) + " ten-thousandths";
}

// Whether a piece of XML ends with the beginning of a start tag of that name, which may have a prefix.
bool Opens(std::string_view piece, std::string_view localName) {
  const std::string_view tag = piece.substr(piece.rfind('<') + 1);
  return !tag.starts_with('/') && tag.substr(tag.find(':') + 1) == localName;
}

}  // namespace

void ElementTally::Start(std::string_view localName) {
  if (localName == "Transaction") ++tally_.transactions;
  if (localName == "Invoice") ++tally_.invoices;
  in_credit_ = localName == "CreditAmount";
}

void ElementTally::End() {
  if (in_credit_) tally_.credit += Scaled(text_);
  in_credit_ = false;
  text_.clear();
}

Tally TallyOf(const std::string& file) {
  Tally tally;
  std::ifstream stream(file, std::ios::binary);
  bool inCredit = false;
  // Everything up to the end of a tag: the content before the tag, and the tag.
  for (std::string piece; std::getline(stream, piece, '>');) {
    if (inCredit) tally.credit += Scaled(piece.substr(0, piece.find('<')));
    if (Opens(piece, "Transaction")) ++tally.transactions;
    if (Opens(piece, "Invoice")) ++tally.invoices;
    inCredit = Opens(piece, "CreditAmount");
  }
  return tally;
}

void RequireEqual(const Tally& found, const Tally& expected) {
  if (found == expected && found.invoices > 0 && found.credit > 0) return;
  throw std::runtime_error("found " + Described(found) + "; expected " + Described(expected));
}

void Require(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(what);
}

}  // namespace zevo::bench
