// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/LoadDocument.h>

#include <zevo/dal/ElementName.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/Parser.h>

namespace zevo {

std::unique_ptr<Document> NewDocument() { return std::make_unique<Document>(kElementNames); }

std::unique_ptr<Document> LoadDocument(const std::string& fileName, Indentation indentation) {
  auto document = NewDocument();
  DocumentBuilder builder(*document, indentation);
  const HostErrorHandlers aside;
  Raise(Parser(fileName).Parse(builder), "MSXML2.DOMDocument.Load");
  return document;
}

}  // namespace zevo
