#pragma once

#include <string>

// The steps of the demonstration program, one function per topic. Each prints
// plainly what it did.
void DemoIniFile();
void DemoShell();
void DemoFileFind();
void DemoTime();
void DemoTextConversion();
void DemoCommandLine();
void DemoGuid();
void DemoPool();
void DemoMutexes();
void DemoSignalledObjects();
void DemoClock();
void DemoNamesAndTokens();
void DemoModules();
// With `crash`, runs this program again as a child that crashes, then names
// the dump it left in `folder` (a full path ending in "\").
void DemoCrashDump(const std::string& folder, bool crash);
// The child's part: installs the crash dump into `folder` and crashes.
void CrashNow(const std::string& folder);
