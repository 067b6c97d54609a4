// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_LOADDOCUMENT_H_
#define ZEVO_DAL_LOADDOCUMENT_H_

#include <zevo/platform/Document.h>
#include <zevo/platform/DocumentBuilder.h>

#include <memory>
#include <string>

namespace zevo {

inline constexpr std::string_view kNamespace = "urn:OECD:StandardAuditFile-Tax:PT_1.01_01";

/// An empty document that numbers its names as kElementNames does.
std::unique_ptr<Document> NewDocument();

/// The document in a file. It is not validated. Raises the parser's number and reason with the source
/// "MSXML2.DOMDocument.Load".
std::unique_ptr<Document> LoadDocument(const std::string& fileName, Indentation indentation);

}  // namespace zevo

#endif  // ZEVO_DAL_LOADDOCUMENT_H_
