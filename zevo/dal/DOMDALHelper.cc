// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/DOMDALHelper.h>

#include <zevo/dal/LoadDocument.h>
#include <zevo/platform/File.h>
#include <zevo/platform/Selection.h>
#include <zevo/platform/Serializer.h>
#include <zevo/platform/Text.h>

#include <utility>

namespace zevo {
namespace {

constexpr std::string_view kDefaultNamespace = "xmlns";

std::string_view DefaultNamespaceAt(Element element) {
  for (; element; element = element.Parent()) {
    if (const auto declared = element.Attribute(kDefaultNamespace)) return *declared;
  }
  return {};
}

}  // namespace

DOMDALHelper::DOMDALHelper() = default;
DOMDALHelper::~DOMDALHelper() = default;

void DOMDALHelper::CreateFile() {
  auto document = NewDocument();
  const Element root = document->AppendElement(Element(), "AuditFile");
  document->AppendAttribute(root, kDefaultNamespace, kNamespace);
  document->AppendAttribute(root, "xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance");
  document_ = std::move(document);
  one_namespace_ = true;
}

void DOMDALHelper::OpenFile() {
  document_.reset();
  document_ = LoadDocument(file_name_, Indentation::kKept);
  one_namespace_ = document_->default_namespaces == 1 && document_->Root().Attribute(kDefaultNamespace) == kNamespace;
}

void DOMDALHelper::SaveFile() {
  FileReplacement file(file_name_);
  WriteDocumentTo(file, *document_);
  file.Commit();
}

Element DOMDALHelper::GetElement(ElementName name, Element parent, std::string_view xpathQuery) {
  if (xpathQuery.empty()) return document_->FirstChild(Base(parent), name.Number());
  return SelectFirst(Base(parent), name, xpathQuery);
}

Element DOMDALHelper::CreateElement(ElementName name, std::string_view value, Element parent, bool required) {
  const std::string_view text = TrimSpaces(value);
  if (text.empty() && !required) return Element();
  const Element base = Base(parent);
  const bool declares = !one_namespace_ && DefaultNamespaceAt(base) != kNamespace;
  const std::string_view kept = document_->CopyXmlText(name, text);
  const Element element = document_->AppendElement(base, name.Number());
  if (declares) document_->AppendAttribute(element, kDefaultNamespace, kNamespace);
  if (kept.empty()) {
    // As the streaming writer has it: in the form of one tag, readers would not find the text.
    Document::SetEmptyForm(element, EmptyForm::kTwoTags);
  } else if (declares) {
    document_->AppendAdoptedText(element, kept);
  } else {
    document_->AdoptText(element, kept);
  }
  return element;
}

void DOMDALHelper::UpdateElement(ElementName name, std::string_view value, Element parent, bool required) {
  const Element element = GetElement(name, parent, {});
  if (!element) {
    CreateElement(name, value, parent, required);
    return;
  }
  RequireXmlText(name, value);
  document_->SetText(element, value);
}

}  // namespace zevo
