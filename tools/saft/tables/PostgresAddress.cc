// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/PostgresAddress.h"

#include <libpq-fe.h>

#include <memory>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {
namespace {

constexpr std::string_view kSchemes[] = {"postgresql://", "postgres://"};

std::string_view SchemeOf(std::string_view name) {
  for (const std::string_view scheme : kSchemes) {
    if (name.starts_with(scheme)) return scheme;
  }
  return {};
}

// Whether all ports of an address are numbers: what stands behind the colon of a password is none.
bool HasPorts(const PQconninfoOption* options) {
  for (; options->keyword != nullptr; ++options) {
    if (options->keyword != std::string_view("port") || options->val == nullptr) continue;
    constexpr std::string_view kOfPorts = "0123456789,";
    if (std::string_view(options->val).find_first_not_of(kOfPorts) != std::string_view::npos) return false;
  }
  return true;
}

bool IsWellFormed(const std::string& address, std::string_view place) {
  const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(PQconninfoParse(address.c_str(), nullptr),
                                                                             &PQconninfoFree);
  return options && HasPorts(options.get()) && place.find('@') == std::string_view::npos;
}

}  // namespace

bool IsPostgresAddress(std::string_view name) { return !SchemeOf(name).empty(); }

std::string ShownAddress(const std::string& address) {
  const std::string_view scheme = SchemeOf(address);
  std::string_view place = address;
  place.remove_prefix(scheme.size());
  // As libpq looks for them: user and password end at the first @, if no / comes before.
  if (const size_t end = place.find_first_of("@/"); end != std::string_view::npos && place[end] == '@') {
    place.remove_prefix(end + 1);
  }
  place = place.substr(0, place.find('?'));
  if (!IsWellFormed(address, place)) throw Failure(Say(words::kPostgresAddress));
  return std::string(scheme).append(place);
}

}  // namespace zevo::saft
