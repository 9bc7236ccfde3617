#pragma once

#include <string>

// The steps of "zrk tour", one function per topic. Each prints plainly what
// it did and cleans up what it made; files go below TourFolder().

// The tour's own temporary folder: a full path ending in "\". The tour makes
// it first and removes it, with all it holds, at the end.
const std::string& TourFolder();

void TourIniFile();
void TourShell();
void TourFileFind();
void TourTime();
void TourTextConversion();
void TourCommandLine();
void TourGuid();
void TourPool();
void TourMutexes();
void TourSignalledObjects();
void TourClock();
void TourNamesAndTokens();
void TourModules();
// Starts "zrk crash --child" on a folder below TourFolder(), then names the
// dump the crashing child left there.
void TourCrashDump();
