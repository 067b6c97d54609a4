// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_RICHFILE_H_
#define ZEVO_TESTS_PLATFORM_RICHFILE_H_

#include <string_view>

namespace zevo::testing {

/// A small file with every kind of content, in Windows-1252. Its last byte is the end of the root.
inline constexpr std::string_view kRichFile =
    "<?xml version='1.0' encoding='windows-1252' standalone='yes'?>\r\n"
    "<!-- feito \xE0 m\xE3o -->\n"
    "<?style type=\"a\"?>\n"
    "<a xmlns:p=\"urn:p\" p:k='1 &lt; 2 &#x20AC;' l=\"&quot;\t\">\n"
    "  <p:b>S\xE3o &amp; Jo\xE3o, 12 \x80 &#65;&#x1F600;</p:b>\r"
    "  <c/><c></c>\n"
    "  <d><![CDATA[<x> & ]] \x80]]>fim<!--no fim--><?alvo?></d>\n"
    "  <e xmlns='urn:e'><f xmlns='' g=''/></e>\n"
    "</a>";

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_RICHFILE_H_
