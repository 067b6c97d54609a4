// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_VALIDATIONPLUG_H_
#define ZEVO_PLATFORM_VALIDATIONPLUG_H_

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

#include <vector>

namespace zevo {

/// Has a schema validation listen in on a parser for as long as it lives. The handler, which gets its events first,
/// tells which elements are open: the validation frees what it keeps of an element only where the element ends. A parse
/// that stops does not get there, so the destructor ends all elements that are still open.
class ValidationPlug {
 public:
  /// The parser and the validation must outlive this. Raises error 7 without memory.
  ValidationPlug(xmlParserCtxt& parser, xmlSchemaValidCtxt& validation);
  ValidationPlug(const ValidationPlug&) = delete;
  ValidationPlug& operator=(const ValidationPlug&) = delete;
  ~ValidationPlug();

  /// Names as libxml2 has them: they last as long as the parser.
  void StartElement(const xmlChar* local, const xmlChar* prefix, const xmlChar* uri) {
    open_.push_back({local, prefix, uri});
  }
  /// Does nothing without an open element: the destructor has none left when it ends them.
  void EndElement() {
    if (!open_.empty()) open_.pop_back();
  }

 private:
  struct OpenElement {
    const xmlChar* local;
    const xmlChar* prefix;
    const xmlChar* uri;
  };

  xmlParserCtxt& parser_;
  std::vector<OpenElement> open_;
  xmlSchemaSAXPlugPtr plug_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_VALIDATIONPLUG_H_
