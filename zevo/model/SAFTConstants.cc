// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/SAFTConstants.h>

#include <array>

namespace zevo {
namespace {

constexpr std::array kInvoiceTypes = {
    Code{itFT, "FT"}, Code{itND, "ND"}, Code{itNC, "NC"}, Code{itVD, "VD"}, Code{itTV, "TV"},
    Code{itTD, "TD"}, Code{itAA, "AA"}, Code{itDA, "DA"}, Code{itRP, "RP"}, Code{itRE, "RE"},
    Code{itCS, "CS"}, Code{itLD, "LD"}, Code{itRA, "RA"},
};
constexpr std::array kProductTypes = {Code{ptP, "P"}, Code{ptS, "S"}, Code{ptO, "O"}, Code{ptI, "I"}};
constexpr std::array kPaymentMechanisms = {
    Code{pmNU, "NU"}, Code{pmCH, "CH"}, Code{pmCC, "CC"}, Code{pmCD, "CD"}, Code{pmTB, "TB"}, Code{pmTR, "TR"},
};
constexpr std::array kTransactionTypes = {Code{ttN, "N"}, Code{ttR, "R"}, Code{ttA, "A"}, Code{ttJ, "J"}};
constexpr std::array kInvoiceStatuses = {Code{isN, "N"}, Code{isA, "A"}, Code{isF, "F"}, Code{isS, "S"}};
constexpr std::array kTaxAccountingBasis = {
    Code{tabC, "C"}, Code{tabF, "F"}, Code{tabI, "I"}, Code{tabP, "P"}, Code{tabS, "S"},
};

}  // namespace

template <>
std::span<const Code> CodesOf<InvoiceTypes>() {
  return kInvoiceTypes;
}
template <>
std::span<const Code> CodesOf<ProductTypes>() {
  return kProductTypes;
}
template <>
std::span<const Code> CodesOf<PaymentMechanisms>() {
  return kPaymentMechanisms;
}
template <>
std::span<const Code> CodesOf<TransactionTypes>() {
  return kTransactionTypes;
}
template <>
std::span<const Code> CodesOf<InvoiceStatuses>() {
  return kInvoiceStatuses;
}
template <>
std::span<const Code> CodesOf<TaxAccountingBasis>() {
  return kTaxAccountingBasis;
}

}  // namespace zevo
