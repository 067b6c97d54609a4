// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/ValidationPlug.h>

#include <zevo/Error.h>
#include <zevo/platform/ParserLimits.h>

#include <algorithm>
#include <cstddef>

namespace zevo {

ValidationPlug::ValidationPlug(xmlParserCtxt& parser, xmlSchemaValidCtxt& validation) : parser_(parser) {
  // The parser refuses files before they get so deep: StartElement, which libxml2 calls, never has to allocate and
  // throw.
  open_.reserve(size_t{2} * ParserLimits::kDepth);
  const xmlStructuredErrorFunc errors = parser.sax->serror;
  plug_ = xmlSchemaSAXPlug(&validation, &parser.sax, &parser.userData);
  if (plug_ == nullptr) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  // The plug puts a handler of its own in place, which passes on all but this.
  parser.sax->serror = errors;
}

ValidationPlug::~ValidationPlug() {
  std::vector<OpenElement> open;
  open.swap(open_);
  std::for_each(open.rbegin(), open.rend(), [&](const OpenElement& element) {
    parser_.sax->endElementNs(parser_.userData, element.local, element.prefix, element.uri);
  });
  xmlSchemaSAXUnplug(plug_);
}

}  // namespace zevo
