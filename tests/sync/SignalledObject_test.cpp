#include "sync/SignalledObject.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <memory>
#include <thread>
#include <vector>

TEST(SignalledObjectTest, StaysSetForEveryWaitUntilResetOrPulsed) {
    SignalledObject object;
    EXPECT_FALSE(object.IsSet());
    EXPECT_FALSE(object.WaitForCompletionWithTimeout(0));
    EXPECT_FALSE(object.WaitForCompletionWithTimeout(50));
    object.Set();
    object.WaitFor();
    EXPECT_TRUE(object.IsSet());
    EXPECT_TRUE(object.WaitForCompletionWithTimeout(0));
    object.Reset();
    EXPECT_FALSE(object.IsSet());
    object.Set();
    object.Pulse();  // no waiter: lowers the flag, and nothing remembers it
    EXPECT_FALSE(object.IsSet());
    object.Pulse();
    EXPECT_FALSE(object.WaitForCompletionWithTimeout(0));
}

TEST(SignalledObjectTest, MinusOneWaitsWithoutLimitAndPulseWakesAWaiter) {
    SignalledObject object;
    std::thread setter([&] {
        Sleep(200);
        object.Set();
    });
    EXPECT_TRUE(object.WaitForCompletionWithTimeout(-1));
    setter.join();

    object.Reset();
    std::atomic<bool> woken{false};
    std::thread waiter([&] {
        object.WaitFor();
        woken = true;
    });
    while (!woken) {  // pulses that come before the wait starts wake nobody
        object.Pulse();
        Sleep(10);
    }
    waiter.join();
    EXPECT_FALSE(object.IsSet());
}

// The event's name ends in the record's address: the object's one pointer.
TEST(SignalledObjectTest, TheEventIsNamedAfterTheRecordsAddress) {
    SignalledObject objects[2];
    for (SignalledObject& object : objects) {
        char name[64];
        std::snprintf(name, sizeof name, "Local\\zrk.core.signalled.object.%016llx",
                      reinterpret_cast<unsigned long long>(*reinterpret_cast<void**>(&object)));
        HANDLE event = OpenEventA(EVENT_MODIFY_STATE, FALSE, name);
        ASSERT_NE(event, nullptr) << name;
        SetEvent(event);
        CloseHandle(event);
        EXPECT_TRUE(object.IsSet());
    }
}

TEST(SignalledObjectTest, WaitForAllWaitsForAllSetAtOneMoment) {
    std::vector<std::unique_ptr<SignalledObject>> owned(65);
    std::vector<SignalledObject*> objects;
    for (auto& object : owned) {
        object = std::make_unique<SignalledObject>();
        objects.push_back(object.get());
    }
    // More than one platform wait takes, or none: the wait fails at once.
    SignalledObject::WaitFor(objects);
    std::vector<SignalledObject*> none;
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
