#include "sync/SignalledObject.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

TEST(SignalledObjectTest, StaysSetUntilResetOrPulsedAndAPulseWakesOnlyWaiters) {
    SignalledObject object;
    EXPECT_FALSE(object.IsSet() || object.WaitForCompletionWithTimeout(50));
    object.Set();
    EXPECT_TRUE(object.IsSet() && object.WaitForCompletionWithTimeout(0));
    object.Reset();
    EXPECT_FALSE(object.IsSet());
    object.Set();
    object.Pulse();  // no waiter: lowers the flag, and nothing remembers it
    EXPECT_FALSE(object.WaitForCompletionWithTimeout(0));

    std::atomic<bool> woken{false};
    std::thread waiter([&] {
        EXPECT_TRUE(object.WaitForCompletionWithTimeout(-1));  // INFINITE
        woken = true;
    });
    for (int pulses = 0; !woken && pulses < 1000; ++pulses) {  // early ones wake nobody
        object.Pulse();
        Sleep(10);
    }
    EXPECT_TRUE(woken && !object.IsSet());
    object.Set();  // frees a waiter that no pulse woke
    waiter.join();
}

TEST(SignalledObjectTest, WaitForAllNeedsAllSetAtOneMomentAndTakesAtMost64) {
    SignalledObject owned[65];
    std::vector<SignalledObject*> objects, none;
    for (SignalledObject& object : owned) {
        objects.push_back(&object);
    }
    SignalledObject::WaitFor(objects);  // 65, or none: the wait fails at once
    SignalledObject::WaitFor(none);
    objects.pop_back();
    std::atomic<bool> done{false};
    std::thread waiter([&] {
        SignalledObject::WaitFor(objects);
        done = true;
    });
    for (std::size_t index = 0; index + 1 < objects.size(); ++index) {
        objects[index]->Set();
    }
    objects[0]->Reset();
    objects.back()->Set();
    Sleep(300);
    EXPECT_FALSE(done) << "returned while one object was not set";
    objects[0]->Set();
    waiter.join();
}

}  // namespace
