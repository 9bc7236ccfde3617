#pragma once

// Opening a file with the application the system has registered for a MIME
// type, and the shell launch beneath it.
//
// The narrow forms call ShellExecuteA and walk the lookups of
// shell/ShellAssociation.h in their narrow forms; the wide forms do both in
// their wide forms.
//
// A launch counts as accepted when ShellExecute answers above 32 (in the low
// 32 bits of its result, read unsigned). True therefore means that the
// platform accepted a launch, not that the application opened the file:
// nothing waits for the application, and the file itself is never looked at.
//
// Threads: no state and no lock of their own; any thread may call them. The
// registry and the association data behind them are the platform's.

#include <string>

#include "frame/Export.h"

// Asks the shell to apply `verb` to `file` (no parameters, no working folder,
// SW_SHOWDEFAULT). When it answers SE_ERR_NOASSOC (31) or
// SE_ERR_ACCESSDENIED (5) and `fallbackVerb` is not null, `fallbackVerb` is
// tried once on the same file and its answer decides. Any other failure ends
// at once. `verb` and `file` go to the platform unchanged and unexamined;
// `fallbackVerb` may be null. True when the launch was accepted.
ZRK_API bool zrkShellExecuteA(const char* verb, const char* file, const char* fallbackVerb);
ZRK_API bool zrkShellExecuteW(const wchar_t* verb, const wchar_t* file,
                              const wchar_t* fallbackVerb);

// Opens `filePath` (zero-terminated, never null) with the program registered
// for `mimeType`, whatever the file's own extension says:
//
//   1. the quoted path: `filePath` in quotes, or unchanged if it already
//      opens with a quote (an empty path gives two quotes);
//   2. the MIME type's extension (zrkMimeTypeToExtension), the command of
//      that extension's "open" verb (zrkOpenVerbTemplateFromExtension), and
//      that command cut into program and arguments
//      (zrkParseCommandTemplate);
//   3. the file goes into the arguments only, never the program: six passes,
//      "%1" quoted then bare, "%L" quoted then bare, "%l" quoted then bare,
//      each replacing every occurrence, left to right and case-sensitively,
//      by the quoted path. A quoted pattern loses its quotes, so the file
//      always stands in exactly one pair. When nothing was replaced, one
//      blank and the quoted path are appended;
//   4. ShellExecute with "open", the program as the template spelled it
//      (quotes included) and the arguments as parameters; the result is
//      true when it is accepted.
//
// A path that itself holds a pattern (a file named "%1.txt") is put in
// unchanged and taken no further: only patterns whose "%" and letter or
// digit come from the registered command are replaced, so the passes end
// and the file keeps its name in the command line; the arguments grow by at
// most one quoted path for each pattern of the command. For every path
// without such a pattern (and, if the caller quoted it, not ending in "%")
// this is exactly the plain rule above.
//
// When a step fails and `shellFallback` is true, the file goes to the shell
// instead: zrkShellExecute with "open", the path and the second verb
// "openas". With `shellFallback` false any failure gives false without a
// further platform call. Which path the shell gets differs between the two
// forms: after a failed launch of the registered program (step 4) both hand
// it the quoted path; after a failed lookup (step 2) the narrow form hands it
// the quoted path and the wide form `filePath` exactly as the caller gave it.
//
// A mimeType that holds a zero unit is bad input: false at once, before any
// platform call, so no lookup, no launch and no shell fallback, whatever
// `shellFallback` says.
ZRK_API bool zrkOpenFileByMimeTypeA(const std::string& mimeType, const char* filePath,
                                    bool shellFallback);
ZRK_API bool zrkOpenFileByMimeTypeW(const std::wstring& mimeType, const wchar_t* filePath,
                                    bool shellFallback);
