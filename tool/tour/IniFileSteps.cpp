// Tour step: reading an INI file with IniFileA.
#include <windows.h>

#include <zrkCore.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "tool/tour/TourSteps.h"

void TourIniFile() {
    std::printf("== INI files\n");

    const std::string folder = TourFolder() + "ini";
    CreateDirectoryA(folder.c_str(), nullptr);
    const std::string path = folder + "\\settings.ini";

    {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out << "; written by the zrk tour\r\n"
               "[Server]\r\n"
               "Host = example.org\r\n"
               "Port=8080\r\n"
               "[Client]\r\n"
               "Retries=3\r\n"
               "Proxy=\r\n"
               "[Empty]\r\n";
    }
    std::printf("  wrote %s\n", path.c_str());

    SmartPtr<IniFileA> file = IniFileA::LoadFile(path);
    std::printf("  IniFileA::LoadFile -> %llu sections (listed in the map's own order)\n",
                file->Size());
    for (auto section = file->BeginSections(); section != file->EndSections(); ++section) {
        std::printf("  [%s] %llu keys\n", section->first.c_str(), section->second->Size());
        for (auto key = section->second->Begin(); key != section->second->End(); ++key) {
            std::printf("    %s = \"%s\"\n", key->first.c_str(), key->second.c_str());
        }
    }

    IniSectionA* server = file->GetSection("Server");
    std::printf("  GetSection(\"Server\")->GetValue(\"Port\") -> \"%s\"\n",
                server != nullptr ? server->GetValue("Port").c_str() : "(no section)");
    std::printf("  HasSection(\"server\") -> %s (names match with exact case)\n",
                file->HasSection("server") ? "true" : "false");
    std::printf("  GetFilePath() -> %s\n", file->GetFilePath().c_str());

    SmartPtr<IniFileA> missing = IniFileA::LoadFile(folder + "\\missing.ini");
    std::printf("  LoadFile of a missing file -> %llu sections\n", missing->Size());

    file.reset();
    DeleteFileA(path.c_str());
    RemoveDirectoryA(folder.c_str());
    std::printf("  removed %s\n", folder.c_str());
}
