// Tour steps: opening a file by MIME type, and searching a folder
// tree.
#include <windows.h>

#include <zrkCore.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include "tool/tour/TourSteps.h"

namespace {

std::string ProgramFolder() {
    char path[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string text(path);
    return text.substr(0, text.find_last_of('\\'));
}

// A folder of our own below the tour's folder.
std::string MakeTourFolder(const char* name) {
    const std::string folder = TourFolder() + name;
    CreateDirectoryA(folder.c_str(), nullptr);
    return folder;
}

void WriteFile(const std::string& path, const char* text) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

// The registration of the tour's MIME type, removed again by the
// destructor.
class TourRegistration {
public:
    static constexpr const char* kMimeKey =
        "Mime\\Database\\Content Type\\application/x-zrk-tour";
    static constexpr const char* kExtension = ".zrktour";
    static constexpr const char* kFileType = "zrktour.file";

    explicit TourRegistration(const std::string& command) {
        m_done = Set(kMimeKey, "Extension", kExtension) && Set(kExtension, nullptr, kFileType) &&
                 Set((std::string(kFileType) + "\\shell\\open\\command").c_str(), nullptr,
                     command.c_str());
    }
    ~TourRegistration() {
        for (const char* key : {kMimeKey, kExtension, kFileType}) {
            RegDeleteTreeA(HKEY_CLASSES_ROOT, key);
        }
    }
    bool Done() const { return m_done; }

private:
    static bool Set(const char* key, const char* name, const char* value) {
        return RegSetKeyValueA(HKEY_CLASSES_ROOT, key, name, REG_SZ, value,
                               static_cast<DWORD>(std::strlen(value) + 1)) == ERROR_SUCCESS;
    }
    bool m_done = false;
};

class PrintingReceiverA : public IFoundFileReceiverA {
public:
    int FoundFile(const std::string& fullPath, const std::string& name) override {
        std::printf("    %-10s %s\n", name.c_str(), fullPath.c_str());
        return 0;
    }
};

class PrintingReceiverW : public IFoundFileReceiverW {
public:
    int FoundFile(const std::wstring& fullPath, const std::wstring& name) override {
        std::printf("    %-10ls %ls\n", name.c_str(), fullPath.c_str());
        return 0;
    }
};

}  // namespace

void TourShell() {
    std::printf("== Opening a file by MIME type\n");
    const std::string opener = ProgramFolder() + "\\zrkTourOpener.exe";
    const std::string command = "\"" + opener + "\" \"%1\"";
    TourRegistration registration(command);
    if (!registration.Done()) {
        std::printf("  could not register application/x-zrk-tour in HKEY_CLASSES_ROOT "
                    "(that needs the right to write there); step skipped\n");
        return;
    }
    std::printf("  registered application/x-zrk-tour -> %s -> open: %s\n",
                TourRegistration::kExtension, command.c_str());

    std::string extension;
    const bool found = zrkMimeTypeToExtensionA("application/x-zrk-tour", &extension);
    std::printf("  zrkMimeTypeToExtensionA -> %s, \"%s\"\n", found ? "true" : "false",
                extension.c_str());
    std::string commandTemplate;
    const bool hasCommand = zrkOpenVerbTemplateFromExtensionA(extension, &commandTemplate);
    std::printf("  zrkOpenVerbTemplateFromExtensionA -> %s, %s\n", hasCommand ? "true" : "false",
                commandTemplate.c_str());
    std::string program;
    std::string arguments;
    zrkParseCommandTemplateA(commandTemplate, &program, &arguments);
    std::printf("  zrkParseCommandTemplateA -> program %s, arguments %s\n", program.c_str(),
                arguments.c_str());

    // The file's own name says .txt; the MIME type decides the program.
    const std::string folder = MakeTourFolder("shell");
    const std::string file = folder + "\\notes for 100% of us.txt";
    const std::string record = file + ".opened";
    WriteFile(file, "some notes\r\n");
    const bool opened = zrkOpenFileByMimeTypeA("application/x-zrk-tour", file.c_str(), false);
    std::printf("  zrkOpenFileByMimeTypeA(application/x-zrk-tour, %s) -> %s\n", file.c_str(),
                opened ? "true" : "false");
    if (opened) {
        // The launch is asynchronous: wait (at most 20 s) for the opener's note.
        for (int waited = 0; waited < 20000 && GetFileAttributesA(record.c_str()) ==
                                                   INVALID_FILE_ATTRIBUTES;
             waited += 50) {
            Sleep(50);
        }
        std::ifstream in(record, std::ios::binary);
        const std::string received((std::istreambuf_iterator<char>(in)), {});
        std::printf("  the opener was started with: %s\n",
                    in ? received.c_str() : "(nothing arrived within 20 s)");
    }
    const bool unknown =
        zrkOpenFileByMimeTypeA("application/x-zrk-unregistered", file.c_str(), false);
    std::printf("  zrkOpenFileByMimeTypeA(application/x-zrk-unregistered, no shell fallback) -> "
                "%s\n",
                unknown ? "true" : "false");

    DeleteFileA(record.c_str());
    DeleteFileA(file.c_str());
    RemoveDirectoryA(folder.c_str());
    std::printf("  removed the registration and %s\n", folder.c_str());
}

void TourFileFind() {
    std::printf("== File search\n");
    const std::string root = MakeTourFolder("find");
    for (const char* sub : {"\\docs", "\\docs\\old", "\\.git"}) {
        CreateDirectoryA((root + sub).c_str(), nullptr);
    }
    for (const char* name : {"\\readme.txt", "\\build.log", "\\docs\\guide.txt",
                             "\\docs\\old\\draft.txt", "\\.git\\config.txt"}) {
        WriteFile(root + name, "x");
    }
    std::printf("  made %s with readme.txt, build.log, docs\\guide.txt, docs\\old\\draft.txt "
                "and .git\\config.txt\n",
                root.c_str());

    PrintingReceiverA narrow;
    std::printf("  FileFindA(\"*.txt\", no depth limit) reports (.git is never entered):\n");
    FileFindA(&narrow, root, "*.txt", 0).Search();
    std::printf("  FileFindA(\"*.txt\", depth 1) reports:\n");
    FileFindA(&narrow, root, "*.txt", 1).Search();

    PrintingReceiverW wide;
    wchar_t wideRoot[MAX_PATH] = {};
    MultiByteToWideChar(CP_ACP, 0, root.c_str(), -1, wideRoot, MAX_PATH);
    std::printf("  FileFindW(\"*\", depth 1) reports folders too:\n");
    FileFindW(&wide, wideRoot, L"*", 1).Search();

    for (const char* name : {"\\readme.txt", "\\build.log", "\\docs\\guide.txt",
                             "\\docs\\old\\draft.txt", "\\.git\\config.txt"}) {
        DeleteFileA((root + name).c_str());
    }
    for (const char* sub : {"\\docs\\old", "\\docs", "\\.git", ""}) {
        RemoveDirectoryA((root + sub).c_str());
    }
    std::printf("  removed %s\n", root.c_str());
}
