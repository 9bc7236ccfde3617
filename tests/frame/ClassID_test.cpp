#include "frame/ClassID.h"

#include <gtest/gtest.h>

// The counter is a private static member; the test reaches it the way any
// importer would, through its entry in the DLL's import table.
extern "C" __declspec(dllimport) unsigned int g_classIdCounter __asm__(
    "_ZN7ClassID20s_incrementalClassIDE");

namespace {

// Puts the process-wide counter back where the test found it.
class ClassIDTest : public ::testing::Test {
protected:
    void SetUp() override { m_saved = g_classIdCounter; }
    void TearDown() override { g_classIdCounter = m_saved; }

private:
    unsigned int m_saved = 0;
};

TEST_F(ClassIDTest, CounterStartsAtZeroWhenTheLibraryLoads) {
    // No test of this program constructs a ClassID outside this fixture,
    // which puts the counter back after every test.
    EXPECT_EQ(g_classIdCounter, 0u);
}

TEST_F(ClassIDTest, EachNewObjectTakesTheNextNumber) {
    g_classIdCounter = 40;
    const ClassID a;
    const ClassID b;
    EXPECT_EQ(static_cast<unsigned int>(a), 40u);
    EXPECT_EQ(static_cast<unsigned int>(b), 41u);
    EXPECT_EQ(g_classIdCounter, 42u);
}

TEST_F(ClassIDTest, CopiesAndAssignmentsShareTheNumberAndDrawNone) {
    g_classIdCounter = 7;
    ClassID a;            // 7
    ClassID b;            // 8
    const ClassID c(a);   // copy: 7
    b = a;                // 7
    ClassID d;            // 9
    d = ClassID(c);       // move assignment from a copy of c: 7
    EXPECT_EQ(static_cast<unsigned int>(a), 7u);
    EXPECT_EQ(static_cast<unsigned int>(b), 7u);
    EXPECT_EQ(static_cast<unsigned int>(c), 7u);
    EXPECT_EQ(static_cast<unsigned int>(d), 7u);
    EXPECT_EQ(g_classIdCounter, 10u);
    const ClassID e;
    EXPECT_EQ(static_cast<unsigned int>(e), 10u);
}

TEST_F(ClassIDTest, CounterWrapsAfterTwoToTheThirtyTwo) {
    g_classIdCounter = 0xFFFFFFFFu;
    const ClassID last;
    const ClassID wrapped;
    EXPECT_EQ(static_cast<unsigned int>(last), 0xFFFFFFFFu);
    EXPECT_EQ(static_cast<unsigned int>(wrapped), 0u);
    EXPECT_EQ(g_classIdCounter, 1u);
}

}  // namespace
