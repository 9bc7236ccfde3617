#include "frame/ClassID.h"

#include <gtest/gtest.h>

#include <vector>

// The private counter, reached through the import table as any importer would.
extern "C" __declspec(dllimport) unsigned int g_classIdCounter __asm__(
    "_ZN7ClassID20s_incrementalClassIDE");

// Puts the counter back; no other test of this program makes a ClassID.
struct ClassIDTest : ::testing::Test {
    const unsigned int saved = g_classIdCounter;
    ~ClassIDTest() override { g_classIdCounter = saved; }
};

TEST_F(ClassIDTest, NumbersStartAtZeroAndGoUpOneAnObjectWrappingAfterTheLast) {
    EXPECT_EQ(saved, 0u);  // the counter's value at load
    for (const unsigned int start : {40u, 0xFFFFFFFFu}) {
        g_classIdCounter = start;
        const ClassID first, second;
        EXPECT_EQ((std::vector<unsigned int>{first, second, g_classIdCounter}),
                  (std::vector<unsigned int>{start, start + 1, start + 2}));  // unsigned: wraps
    }
}

TEST_F(ClassIDTest, CopiesAndAssignmentsTakeTheNumberAndDrawNone) {
    g_classIdCounter = 7;
    ClassID a, b, d;  // 7, 8, 9
    const ClassID c(a);
    b = a;
    d = ClassID(c);  // move assignment
    EXPECT_EQ((std::vector<unsigned int>{a, b, c, d, g_classIdCounter}),
              (std::vector<unsigned int>{7, 7, 7, 7, 10}));
}
