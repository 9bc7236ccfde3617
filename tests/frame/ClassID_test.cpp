#include "frame/ClassID.h"

#include <gtest/gtest.h>

#include <vector>

extern "C" __declspec(dllimport) unsigned int g_classIdCounter __asm__(
    "_ZN7ClassID20s_incrementalClassIDE");  // the private counter, reached as any importer would

// No other test of this program makes a ClassID, so the counter still holds its load value.
TEST(ClassIDTest, OnlyNewObjectsDrawANumberCountingUpFromZeroAndWrapping) {
    const unsigned int atLoad = g_classIdCounter;
    g_classIdCounter = 0xFFFFFFFE;  // two numbers before the wrap
    ClassID a, b, c;                // 0xFFFFFFFE, 0xFFFFFFFF, 0
    const ClassID copy(a);
    b = a;
    c = ClassID(copy);  // move assignment
    EXPECT_EQ((std::vector<unsigned int>{atLoad, a, b, c, copy, g_classIdCounter}),
              (std::vector<unsigned int>{0, 0xFFFFFFFE, 0xFFFFFFFE, 0xFFFFFFFE, 0xFFFFFFFE, 1}));
    g_classIdCounter = atLoad;
}
