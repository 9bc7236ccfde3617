// zrk guid, zrk token, zrk time and zrk interval: identifiers, random tokens,
// calendar time and spans of time.
#include <zrkCore.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tool/Command.h"

namespace zrk::tool {
namespace {

int Guid(const ParsedArguments& arguments) {
    const std::vector<std::string>& words = arguments.positional;
    const bool upper = arguments.Has("upper");
    if (words.empty() || (words[0] == "new" && words.size() == 1)) {
        PrintLine(GUIDIdentifier().ToStringA(upper));
        return 0;
    }
    if (words[0] != "parse" || words.size() != 2) {
        throw UsageError("guid takes new, or parse TEXT");
    }
    const GUIDIdentifier parsed(words[1]);
    if (parsed.IsZero() && words[1].find_first_not_of("0-") != std::string::npos) {
        return Fail("guid", "not an identifier: " + words[1]);
    }
    PrintLine(parsed.ToStringA(upper));
    return 0;
}

int Token(const ParsedArguments& arguments) {
    unsigned long long length = 0;
    if (!ParseCount(arguments.positional[0], 1ull << 20, &length)) {
        throw UsageError("LENGTH is a whole number from 0 to 1048576");
    }
    PrintLine(MakeTokenA(length));
    return 0;
}

int Time(const ParsedArguments& arguments) {
    const std::vector<std::string>& words = arguments.positional;
    if (words[0] == "now" && words.size() == 1) {
        const TimePoint now = TimePoint::Now();
        PrintLine(now.ToStringA(false));
        PrintLine(now.ToLocalStringA() + " local");
        return 0;
    }
    if (words[0] != "parse" || words.size() != 2) {
        throw UsageError("time takes now, or parse \"YYYY-MM-DD HH:MM:SS UTC\"");
    }
    try {
        TimePoint point = TimePoint::UTCString(words[1]);
        PrintLine(point.ToStringA(false));
        PrintLine(point.ToLocalStringA() + " local");
        PrintLine((point - TimePoint::Epoch()).ToPrettyStringA() + " since 1970");
    } catch (const std::runtime_error& error) {
        return Fail("time", error.what());
    }
    return 0;
}

int Interval(const ParsedArguments& arguments) {
    const std::string& text = arguments.positional[0];
    const bool negative = !text.empty() && text[0] == '-';
    unsigned long long magnitude = 0;
    if (!ParseCount(text.substr(negative), 9223372036854775807ull, &magnitude)) {
        throw UsageError("SECONDS is a whole number, such as 90061 or -3600");
    }
    const long long seconds =
        negative ? -static_cast<long long>(magnitude) : static_cast<long long>(magnitude);
    const TimeInterval interval = TimeInterval::FromSeconds(seconds);
    PrintLine(interval.ToStringA());
    PrintLine(interval.ToPrettyStringA());
    return 0;
}

}  // namespace

void AddTextAndTimeCommands(std::vector<Command>* commands) {
    commands->push_back(
        {"guid", "guid [new | parse TEXT] [--upper]",
         "a new GUID, or one parsed from its text",
         "Prints the identifier in its 36-character form, lower case unless --upper. TEXT\n"
         "is the same form without braces, in either case.",
         {{"upper", false}}, 0, 2, &Guid});
    commands->push_back(
        {"token", "token LENGTH",
         "a random token of LENGTH digits and Latin letters",
         "Each token comes from a generator seeded with 32 random bits, so tokens are fine\n"
         "for names that must not collide by accident, but are no secrets.",
         {}, 1, 1, &Token});
    commands->push_back(
        {"time", "time now | time parse \"YYYY-MM-DD HH:MM:SS UTC\"",
         "the time now, or a UTC time parsed, in UTC and local form",
         "parse takes exactly the UTC form it prints (\"-\", \"/\" or \".\" may part the\n"
         "date) and also prints the span since 1970-01-01 00:00:00 UTC.",
         {}, 1, 2, &Time});
    commands->push_back(
        {"interval", "interval SECONDS",
         "a span of seconds in the library's two text forms",
         "Prints the span as years, weeks, days, hours, minutes and seconds, first in the\n"
         "compact form, then in words. Use \"--\" before a negative number.",
         {}, 1, 1, &Interval});
}

}  // namespace zrk::tool
