#include "shell/OpenByMimeType.h"

#include <windows.h>
#include <shellapi.h>

#include <cstdint>

#include "frame/EmbeddedNul.h"
#include "shell/ArgumentSubstitution.h"
#include "shell/ShellAssociation.h"

namespace {

constexpr INT kShowCommand = SW_SHOWDEFAULT;  // 10

// The literals, the platform entry and the lookups of each width.
template <class Ch>
struct LaunchApi;

template <>
struct LaunchApi<char> {
    static constexpr const char* kOpenVerb = "open";
    static constexpr const char* kOpenAsVerb = "openas";
    // After a failed lookup the narrow form hands the shell the quoted path.
    static constexpr bool kLookupFallbackTakesQuotedPath = true;

    static HINSTANCE Execute(const char* verb, const char* file, const char* parameters) {
        return ShellExecuteA(nullptr, verb, file, parameters, nullptr, kShowCommand);
    }
    static bool MimeTypeToExtension(const std::string& mimeType, std::string* extension) {
        return zrkMimeTypeToExtensionA(mimeType, extension);
    }
    static bool OpenVerbTemplate(const std::string& extension, std::string* commandTemplate) {
        return zrkOpenVerbTemplateFromExtensionA(extension, commandTemplate);
    }
    static bool ParseTemplate(const std::string& commandTemplate, std::string* program,
                              std::string* arguments) {
        return zrkParseCommandTemplateA(commandTemplate, program, arguments);
    }
};

template <>
struct LaunchApi<wchar_t> {
    static constexpr const wchar_t* kOpenVerb = L"open";
    static constexpr const wchar_t* kOpenAsVerb = L"openas";
    // After a failed lookup the wide form hands the shell the caller's path.
    static constexpr bool kLookupFallbackTakesQuotedPath = false;

    static HINSTANCE Execute(const wchar_t* verb, const wchar_t* file,
                             const wchar_t* parameters) {
        return ShellExecuteW(nullptr, verb, file, parameters, nullptr, kShowCommand);
    }
    static bool MimeTypeToExtension(const std::wstring& mimeType, std::wstring* extension) {
        return zrkMimeTypeToExtensionW(mimeType, extension);
    }
    static bool OpenVerbTemplate(const std::wstring& extension,
                                 std::wstring* commandTemplate) {
        return zrkOpenVerbTemplateFromExtensionW(extension, commandTemplate);
    }
    static bool ParseTemplate(const std::wstring& commandTemplate, std::wstring* program,
                              std::wstring* arguments) {
        return zrkParseCommandTemplateW(commandTemplate, program, arguments);
    }
};

template <class Ch>
using String = std::basic_string<Ch>;

// ShellExecute's answer: an HINSTANCE whose low 32 bits carry the outcome.
template <class Ch>
std::uint32_t Execute(const Ch* verb, const Ch* file, const Ch* parameters) {
    const HINSTANCE result = LaunchApi<Ch>::Execute(verb, file, parameters);
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(result));
}

bool Accepted(std::uint32_t result) {
    return result > 32;
}

template <class Ch>
bool ShellExecuteWithFallback(const Ch* verb, const Ch* file, const Ch* fallbackVerb) {
    std::uint32_t result = Execute<Ch>(verb, file, nullptr);
    if ((result == SE_ERR_NOASSOC || result == SE_ERR_ACCESSDENIED) && fallbackVerb != nullptr) {
        result = Execute<Ch>(fallbackVerb, file, nullptr);
    }
    return Accepted(result);
}

template <class Ch>
bool OpenFileByMimeType(const String<Ch>& mimeType, const Ch* filePath, bool shellFallback) {
    using Api = LaunchApi<Ch>;
    // Bad input: fails before the lookups, the launch and the fallback alike.
    if (zrk::detail::HasEmbeddedNul(mimeType)) {
        return false;
    }
    const String<Ch> quotedPath = zrk::detail::QuotePath(filePath);

    auto shellFallbackWith = [&](const Ch* path) {
        return shellFallback &&
               ShellExecuteWithFallback<Ch>(Api::kOpenVerb, path, Api::kOpenAsVerb);
    };
    const Ch* lookupFallbackPath =
        Api::kLookupFallbackTakesQuotedPath ? quotedPath.c_str() : filePath;

    String<Ch> extension;
    if (!Api::MimeTypeToExtension(mimeType, &extension)) {
        return shellFallbackWith(lookupFallbackPath);
    }
    String<Ch> commandTemplate;
    if (!Api::OpenVerbTemplate(extension, &commandTemplate)) {
        return shellFallbackWith(lookupFallbackPath);
    }
    String<Ch> program;
    String<Ch> arguments;
    if (!Api::ParseTemplate(commandTemplate, &program, &arguments)) {
        return shellFallbackWith(lookupFallbackPath);
    }

    zrk::detail::PutFileIntoArguments(arguments, quotedPath);
    if (Accepted(Execute<Ch>(Api::kOpenVerb, program.c_str(), arguments.c_str()))) {
        return true;
    }
    return shellFallbackWith(quotedPath.c_str());
}

}  // namespace

bool zrkShellExecuteA(const char* verb, const char* file, const char* fallbackVerb) {
    return ShellExecuteWithFallback(verb, file, fallbackVerb);
}
bool zrkShellExecuteW(const wchar_t* verb, const wchar_t* file, const wchar_t* fallbackVerb) {
    return ShellExecuteWithFallback(verb, file, fallbackVerb);
}

bool zrkOpenFileByMimeTypeA(const std::string& mimeType, const char* filePath,
                            bool shellFallback) {
    return OpenFileByMimeType(mimeType, filePath, shellFallback);
}
bool zrkOpenFileByMimeTypeW(const std::wstring& mimeType, const wchar_t* filePath,
                            bool shellFallback) {
    return OpenFileByMimeType(mimeType, filePath, shellFallback);
}
