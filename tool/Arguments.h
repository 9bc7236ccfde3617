#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

// The words that follow a command of the zrk tool: positional arguments in
// order, and options from a fixed set, written "--name" (a flag) or
// "--name value". "--" ends the options: every word after it is positional,
// so a value may begin with "--". Pure; no platform header.
namespace zrk::tool {

// One option a command takes: its name without the dashes, and whether a
// value follows it.
struct KnownOption {
    const char* name;
    bool takesValue;
};

struct ParsedArguments {
    std::vector<std::string> positional;
    std::map<std::string, std::string> options;  // name -> value ("" for a flag)
    std::string error;                           // empty when the words fit

    bool Has(const std::string& name) const { return options.count(name) != 0; }
    std::string Value(const std::string& name) const {
        const auto found = options.find(name);
        return found == options.end() ? std::string() : found->second;
    }
};

// Sorts `words` into positionals and the options in `known`. An option that
// is not in `known`, one given twice, and one whose value is missing leave
// a message in `error` (the other fields then hold what was read so far).
inline ParsedArguments ParseArguments(const std::vector<std::string>& words,
                                      const std::vector<KnownOption>& known) {
    ParsedArguments parsed;
    bool optionsEnded = false;
    for (std::size_t index = 0; index < words.size(); ++index) {
        const std::string& word = words[index];
        if (optionsEnded || word.size() < 2 || word.compare(0, 2, "--") != 0) {
            parsed.positional.push_back(word);
            continue;
        }
        if (word == "--") {
            optionsEnded = true;
            continue;
        }
        const std::string name = word.substr(2);
        const KnownOption* option = nullptr;
        for (const KnownOption& candidate : known) {
            if (name == candidate.name) {
                option = &candidate;
            }
        }
        if (option == nullptr) {
            parsed.error = "unknown option " + word;
            return parsed;
        }
        if (parsed.Has(name)) {
            parsed.error = "option " + word + " given twice";
            return parsed;
        }
        if (option->takesValue && index + 1 == words.size()) {
            parsed.error = "option " + word + " needs a value";
            return parsed;
        }
        parsed.options[name] = option->takesValue ? words[++index] : std::string();
    }
    return parsed;
}

// The number in `text` if it is a whole decimal number from 0 to `maximum`
// with nothing else, written with digits only.
inline bool ParseCount(const std::string& text, unsigned long long maximum,
                       unsigned long long* value) {
    if (text.empty() || text.size() > 20) {
        return false;
    }
    unsigned long long result = 0;
    for (char c : text) {
        if (c < '0' || c > '9' || result > (maximum - static_cast<unsigned>(c - '0')) / 10) {
            return false;
        }
        result = result * 10 + static_cast<unsigned>(c - '0');
    }
    *value = result;
    return true;
}

// The 32-bit number in `text` written in hexadecimal, with or without "0x"
// in front, one to eight digits of either case and nothing else.
inline bool ParseHex32(const std::string& text, unsigned long* value) {
    const std::size_t start = text.compare(0, 2, "0x") == 0 || text.compare(0, 2, "0X") == 0;
    const std::string digits = text.substr(start * 2);
    if (digits.empty() || digits.size() > 8) {
        return false;
    }
    unsigned long result = 0;
    for (char c : digits) {
        const int digit = c >= '0' && c <= '9'   ? c - '0'
                          : c >= 'a' && c <= 'f' ? c - 'a' + 10
                          : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                 : -1;
        if (digit < 0) {
            return false;
        }
        result = result * 16 + static_cast<unsigned long>(digit);
    }
    *value = result;
    return true;
}

}  // namespace zrk::tool
