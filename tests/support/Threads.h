#pragma once

// Runs body(0) to body(count - 1), each on a thread of its own; returns when all have ended.

#include <thread>
#include <vector>

template <class Body>
void RunOnThreads(int count, Body body) {
    std::vector<std::thread> threads;
    for (int index = 0; index < count; ++index) {
        threads.emplace_back(body, index);
    }
    for (auto& thread : threads) {
        thread.join();
    }
}
