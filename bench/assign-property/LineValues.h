// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_BENCH_ASSIGN_PROPERTY_LINEVALUES_H_
#define ZEVO_BENCH_ASSIGN_PROPERTY_LINEVALUES_H_

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "bench/Tally.h"

namespace zevo::bench {

/// What the properties of an invoice line are set to, in turn, so that each assignment brings something new.
struct LineValues {
  std::string_view product_code;
  std::string_view product_description;
  std::string_view unit_of_measure;
  std::string_view tax_point_date;
  std::string_view description;
  int64_t credit_amount;  // in ten-thousandths
};

inline constexpr std::array<LineValues, 2> kLineValues{{
    {"P000017", "Café moído, pacote de 250 g", "UN", "2012-03-14", "Café moído de torra clara", 1'234'500},
    {"P000934", "Açúcar amarelo, 1 kg", "KG", "2012-03-15", "Açúcar amarelo a granel", 99'900},
}};

/// How many lines are filled for each invoice of the setting.
inline constexpr int64_t kLinesPerInvoice = 20;

/// Fills one line again and again.
template <class Line, class Fill>
void FillLines(Line& line, int64_t invoices, Fill&& fill) {
  for (int64_t i = 0; i < invoices * kLinesPerInvoice; ++i) fill(line, kLineValues[static_cast<size_t>(i % 2)]);
}

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_ASSIGN_PROPERTY_LINEVALUES_H_
