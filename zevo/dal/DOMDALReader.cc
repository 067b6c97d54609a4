// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/DOMDALReader.h>

#include <zevo/Error.h>
#include <zevo/dal/LoadDocument.h>
#include <zevo/platform/Selection.h>

namespace zevo {

DOMDALReader::DOMDALReader() : cursors_(std::in_place) {}
DOMDALReader::~DOMDALReader() = default;

void DOMDALReader::OpenFile() {
  // Walks that have begun end: their elements go with the document.
  if (cursors_) cursors_->Clear();
  document_.reset();
  document_ = LoadDocument(file_name_, Indentation::kLeftOut);
}

void DOMDALReader::CloseFile() {
  cursors_.reset();
  document_.reset();
}

Element DOMDALReader::Base(Element parent) const {
  if (!document_) throw MakeRunTimeError(RunTimeError::kObjectNotSet);
  return parent ? parent : document_->Root();
}

Element DOMDALReader::GetElement(ElementName name, Element parent) {
  const Element base = Base(parent);
  return document_->FirstChild(base, name.Number());
}

Element DOMDALReader::GetElement(std::string_view name, Element parent, std::string_view xpathQuery) {
  return SelectFirst(Base(parent), name, xpathQuery);
}

std::optional<std::vector<Element>> DOMDALReader::GetElements(std::string_view name, Element parent,
                                                              std::string_view xpathQuery) {
  return Selection(std::string(name).append(xpathQuery)).All(Base(parent));
}

Element DOMDALReader::GetFirstElement(ElementName name, Element parent) {
  const Element first = GetElement(name, parent);
  if (!cursors_) return Element();
  cursors_->Begin(name.Number(), first);
  return GetNextElement(name);
}

Element DOMDALReader::GetNextElement(ElementName name) { return cursors_ ? cursors_->Next(name.Number()) : Element(); }

}  // namespace zevo
