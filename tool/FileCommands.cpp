// zrk path, zrk find, zrk ini and zrk filename: paths, file search, INI files
// and generated file names.
#include <zrkCore.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tool/Command.h"

namespace zrk::tool {
namespace {

int Path(const ParsedArguments& arguments) {
    const std::string& kind = arguments.positional[0];
    std::string path = arguments.positional[1];
    if (kind != "file" && kind != "folder") {
        throw UsageError("path takes file or folder, not \"" + kind + "\"");
    }
    if (!(kind == "file" ? EnsureFilePath(path) : EnsureFolderPath(path))) {
        return Fail("path", "can't make the folder of " + path);
    }
    PrintLine(path);
    return 0;
}

// Prints every file found, its full path a line.
struct NarrowPrinter : IFoundFileReceiverA {
    int FoundFile(const std::string& fullPath, const std::string&) override {
        PrintLine(fullPath);
        return 0;
    }
};
struct WidePrinter : IFoundFileReceiverW {
    int FoundFile(const std::wstring& fullPath, const std::wstring&) override {
        PrintLine(ConvertString_UTF16_to_UTF8(fullPath));
        return 0;
    }
};

int Find(const ParsedArguments& arguments) {
    unsigned long long depth = 0;
    if (arguments.Has("depth") && !ParseCount(arguments.Value("depth"), 0xFFFFFFFF, &depth)) {
        throw UsageError("--depth takes a whole number from 0 (no limit) to 4294967295");
    }
    const std::string& root = arguments.positional[0];
    const std::string& pattern = arguments.positional[1];
    const auto levels = static_cast<unsigned int>(depth);
    if (arguments.Has("wide")) {
        WidePrinter printer;
        FileFindW(&printer, ConvertString_UTF8_to_UTF16(root), ConvertString_UTF8_to_UTF16(pattern),
                  levels)
            .Search();
    } else {
        NarrowPrinter printer;
        FileFindA(&printer, root, pattern, levels).Search();
    }
    return 0;
}

// The keys of a range of map entries, sorted.
template <class Iterator>
std::vector<std::string> SortedKeys(Iterator begin, Iterator end) {
    std::vector<std::string> keys;
    for (; begin != end; ++begin) {
        keys.push_back(begin->first);
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

// A section's "key=value" lines, keys sorted.
void PrintSection(const IniSectionA& section) {
    for (const std::string& key : SortedKeys(section.Begin(), section.End())) {
        PrintLine(key + "=" + section.GetValue(key));
    }
}

int Ini(const ParsedArguments& arguments) {
    const std::vector<std::string>& words = arguments.positional;
    const SmartPtr<IniFileA> file = IniFileA::LoadFile(words[0]);
    if (words.size() == 1) {  // the whole file, sections in sorted order
        const IniFileA& whole = *file;
        for (const std::string& name : SortedKeys(whole.BeginSections(), whole.EndSections())) {
            PrintLine("[" + name + "]");
            PrintSection(*whole.GetSection(name));
        }
        return 0;
    }
    const IniSectionA* section = file->GetSection(words[1]);
    if (section == nullptr) {
        return Fail("ini", "no section [" + words[1] + "] in " + words[0]);
    }
    if (words.size() == 2) {
        PrintSection(*section);
        return 0;
    }
    if (!section->ContainsKey(words[2])) {
        return Fail("ini", "no key " + words[2] + " in [" + words[1] + "]");
    }
    PrintLine(section->GetValue(words[2]));
    return 0;
}

int FileName(const ParsedArguments& arguments) {
    PrintLine(GenerateFileNameA(arguments.positional[0], arguments.positional[1],
                                arguments.Has("module"), arguments.Has("stamp")));
    return 0;
}

}  // namespace

void AddFileCommands(std::vector<Command>* commands) {
    commands->push_back(
        {"path", "path file PATH | path folder PATH",
         "a path made absolute, with its folder created",
         "Forward slashes become backslashes and %NAME% references are replaced from the\n"
         "environment; the result is made absolute against the current folder. path file\n"
         "creates the folder the file would be in; path folder creates the folder itself\n"
         "and ends the result in \"\\\". Prints the result.",
         {}, 2, 2, &Path});
    commands->push_back(
        {"find", "find ROOT PATTERN [--depth N] [--wide]",
         "the files under ROOT whose names match PATTERN, a full path a line",
         "PATTERN takes the platform's wildcards * and ?. --depth N searches N levels of\n"
         "sub-folders below ROOT at the most (0, the default, has no limit). --wide\n"
         "searches with the wide (UTF-16) entries of the platform.",
         {{"depth", true}, {"wide", false}}, 2, 2, &Find});
    commands->push_back(
        {"ini", "ini FILE [SECTION [KEY]]",
         "an INI file: all of it, one section, or one value",
         "All of it prints \"[section]\" lines each followed by its \"key=value\" lines, in\n"
         "sorted order; SECTION prints that section's lines; KEY prints the value alone.\n"
         "A file that can't be read has no sections.",
         {}, 1, 3, &Ini});
    commands->push_back(
        {"filename", "filename PREFIX EXT [--module] [--stamp]",
         "a file name from a prefix, zrk's own name, a UTC time stamp and an extension",
         "The parts are joined with \".\": PREFIX, with --module the program's file name,\n"
         "with --stamp the UTC time as \"YYYY-MM-DD hh-mm-ss\", then EXT. Nothing on disk\n"
         "is looked at.",
         {{"module", false}, {"stamp", false}}, 2, 2, &FileName});
}

}  // namespace zrk::tool
