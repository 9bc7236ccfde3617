#include "frame/ProfilingSystem.h"

ProfilingSystem* ProfilingSystem::Get() {
    return nullptr;
}

void ProfilingSystem::Flush() {}

void ProfilingSystem::StaticInit() {}

void ProfilingSystem::StaticInit(const std::string&) {}

void ProfilingSystem::StaticShutdown() {}

ProfilingSystem& ProfilingSystem::operator=(const ProfilingSystem&) {
    return *this;
}

ProfilingSystem& ProfilingSystem::operator=(ProfilingSystem&&) {
    return *this;
}
