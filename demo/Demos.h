#pragma once

// The steps of the demonstration program, one function per topic. Each prints
// plainly what it did.
void DemoIniFile();
void DemoShell();
void DemoFileFind();
void DemoTime();
void DemoTextConversion();
void DemoCommandLine();
