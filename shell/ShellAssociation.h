#pragma once

// From a MIME type to something that can be started, in three separate
// lookups: the file extension the system's MIME database holds for a content
// type, the command of an extension's "open" verb, and that command cut into
// a program and its arguments. zrkOpenFileByMimeTypeA/W chain them; each is
// also usable alone.
//
// Each W form is its A form with std::wstring for std::string and asks the
// platform's wide entries; the A forms ask the narrow entries. The output
// pointers must not be null.
//
// Threads: no state and no lock of their own; any thread may call them. The
// registry and the association data they read are the platform's.

#include <string>

#include "frame/Export.h"

// Reads the value "Extension" of the key
// HKEY_CLASSES_ROOT\Mime\Database\Content Type\<mimeType> (the type goes in
// exactly as given: no case folding, no trimming) and answers true with the
// value's text in *extension, up to its first zero. The value's registry type
// is not looked at.
//
// At most 260 bytes are read in both forms, so the narrow form takes up to
// 259 characters and the wide form only up to 129 UTF-16 units (plus the
// terminator). A longer value, a missing value and a missing key give false
// and leave *extension unchanged. An empty value gives true and an empty
// *extension. A mimeType that holds a zero unit would name a shorter key than
// the caller's: it gives false with *extension unchanged, and the registry is
// not asked.
ZRK_API bool zrkMimeTypeToExtensionA(const std::string& mimeType, std::string* extension);
ZRK_API bool zrkMimeTypeToExtensionW(const std::wstring& mimeType, std::wstring* extension);

// Asks the shell (AssocQueryString, ASSOCSTR_COMMAND) for the command line of
// the "open" verb of `extension` (with its dot: ".txt"; an empty extension is
// asked like any other) and answers true with it in *commandTemplate. There
// is no fixed limit on the command's length. On false *commandTemplate is
// empty: when the shell knows no such command, when it fails to deliver
// the command it announced, and when `extension` holds a zero unit (the shell
// is then not asked).
ZRK_API bool zrkOpenVerbTemplateFromExtensionA(const std::string& extension,
                                               std::string* commandTemplate);
ZRK_API bool zrkOpenVerbTemplateFromExtensionW(const std::wstring& extension,
                                               std::wstring* commandTemplate);

// Cuts a command template into its program and its arguments; pure text
// work, no platform call.
//
// A template opening with a quote names its program up to the next quote,
// and *program keeps both quotes. Any other template names it up to its first
// blank found from index 1 on (so a path with blanks and no quotes is cut at
// its first blank, and a leading blank stays with the program); without such
// a blank the whole template is the program. The one character behind the
// program is dropped whatever it is, and the rest, if any, becomes
// *arguments.
//
//   "C:\b c\v.exe" "%1"   ->  "C:\b c\v.exe"   and  "%1"
//   C:\v.exe "%1"         ->  C:\v.exe         and  "%1"
//   C:\b c\v.exe %1       ->  C:\b             and  c\v.exe %1
//   C:\v.exe              ->  C:\v.exe         and  *arguments unchanged
//   "C:\v.exe"-x          ->  "C:\v.exe"       and  x
//
// Neither output is emptied beforehand: a template without arguments leaves
// *arguments as the caller passed it in. False only when the template opens
// with a quote that nothing closes; both outputs are then unchanged.
ZRK_API bool zrkParseCommandTemplateA(const std::string& commandTemplate, std::string* program,
                                      std::string* arguments);
ZRK_API bool zrkParseCommandTemplateW(const std::wstring& commandTemplate,
                                      std::wstring* program, std::wstring* arguments);
