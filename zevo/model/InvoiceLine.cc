#include <zevo/model/InvoiceLine.h>

namespace zevo {

InvoiceLine::InvoiceLine() = default;

InvoiceLine::~InvoiceLine() = default;

}  // namespace zevo
