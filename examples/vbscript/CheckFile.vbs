' SPDX-License-Identifier: Apache-2.0
' Checks an audit file and tells what is wrong, where it stands, and how often.
' Usage: cscript CheckFile.vbs FILE.xml
Option Explicit

' Script hosts do not see the enumerations of the type library.
Const languageEnglish = 1, severityOff = 0

Dim checker, finding, rule, weights, verdicts
Set checker = CreateObject("ZevoAdapters11.AuditFileChecker")
checker.AuditFileName = WScript.Arguments(0)
checker.Language = languageEnglish
' What a program does not want to know it turns off.
checker.Severity("NIF-PREFIX") = severityOff

' What was found until then is told in any case.
Dim judged
judged = checker.CheckAuditFile
weights = Array("off", "information", "warning", "error")
For Each finding In checker.Findings
  WScript.Echo finding.Line & ":" & finding.Column & " " & finding.Rule & ", " & weights(finding.Severity) & ": " & finding.Message
Next
If Not judged Then
  WScript.Echo checker.AuditException.Source & ": " & checker.AuditException.Description & " [" & checker.AuditException.Number & "]"
  WScript.Quit 2
End If

' Of a rule at most MostFindings are told, but all are counted.
For Each rule In checker.Rules
  If checker.CountOf(rule.Id) > 0 Then WScript.Echo rule.Id & ", " & rule.Title & ": " & checker.CountOf(rule.Id)
Next
verdicts = Array("nothing is wrong", "there are warnings", "there are errors")
WScript.Echo "Of " & checker.BytesRead & " bytes: " & verdicts(checker.Verdict) & "."
