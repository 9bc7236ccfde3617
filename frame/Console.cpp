#include "frame/Console.h"

#define ZRK_CONSOLE_LEVEL(Level)                        \
    void Console::Level(const std::string&, ...) {}     \
    void Console::Level(const std::wstring&, ...) {}    \
    void Console::Level(const char*, ...) {}            \
    void Console::Level(const wchar_t*, ...) {}

ZRK_CONSOLE_LEVEL(Debug)
ZRK_CONSOLE_LEVEL(Error)
ZRK_CONSOLE_LEVEL(Exception)
ZRK_CONSOLE_LEVEL(Info)
ZRK_CONSOLE_LEVEL(Profile)
ZRK_CONSOLE_LEVEL(Trace)
ZRK_CONSOLE_LEVEL(Warning)
#undef ZRK_CONSOLE_LEVEL

bool Console::ApplicationStopRequested() {
    return false;
}

void Console::StaticInit() {}

void Console::StaticShutdown() {}

Console& Console::operator=(const Console&) {
    return *this;
}

Console& Console::operator=(Console&&) {
    return *this;
}
