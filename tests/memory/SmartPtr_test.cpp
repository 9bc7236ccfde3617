#include "memory/SmartPtr.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>
#include <utility>
#include <vector>

namespace {

template <class Base>
struct Probe : Base {
    explicit Probe(std::atomic<int>* counter) : deaths(counter) {}
    ~Probe() override { ++*deaths; }

    std::atomic<int>* deaths;
    int value = 7;
};

template <class Base>
class SmartPtrTest : public ::testing::Test {
protected:
    using Target = Probe<Base>;
    using Ptr = SmartPtr<Target>;

    Target* NewTarget() { return new Target(&m_deaths); }
    int Deaths() const { return m_deaths.load(); }

    std::atomic<int> m_deaths{0};
};

using Bases = ::testing::Types<SmartPtrTarget, SmartPtrTarget_ts>;
TYPED_TEST_SUITE(SmartPtrTest, Bases);

TYPED_TEST(SmartPtrTest, HoldersKeepTheCountBalancedAndTheLastDeletesOnce) {
    using Ptr = typename TestFixture::Ptr;
    delete this->NewTarget();  // never shared: destroyed like any object
    EXPECT_EQ(this->Deaths(), 1);

    auto* held = new Ptr(this->NewTarget());
    EXPECT_EQ(Ptr(*held)->value, 7);  // a copy comes and goes
    // The count is in the object: a raw pointer to a held target becomes one
    // more holder, not a second owner that would delete it twice.
    Ptr a(held->get());
    delete held;
    EXPECT_EQ((*a).value, 7);
    auto* first = a.get();
    Ptr moved(std::move(a));
    EXPECT_EQ(a, nullptr);
    a = std::move(moved);
    EXPECT_EQ(moved, nullptr);

    // With a as the one holder: self-assignment, self-move and a reset to the
    // object held must not let the count reach 0 on the way.
    Ptr& alias = a;
    a = alias;
    a = std::move(alias);
    a.reset(first);
    EXPECT_EQ(a.get(), first);
    EXPECT_EQ(this->Deaths(), 1);
    Ptr b(this->NewTarget());
    b = a;  // b's old object had one holder
    b.reset();
    EXPECT_EQ(this->Deaths(), 2);
    a = nullptr;  // the one reference left: moves claimed nothing
    EXPECT_EQ(this->Deaths(), 3);

    a.reset(this->NewTarget());
    a.reset(this->NewTarget());
    EXPECT_EQ(this->Deaths(), 4);
    SmartPtr<TypeParam> base(a);  // holders of a derived class convert to the base
    SmartPtr<TypeParam> baseMoved(std::move(a));
    EXPECT_EQ(a, nullptr);
    base = Ptr();
    baseMoved = nullptr;
    EXPECT_EQ(this->Deaths(), 5);

    Ptr fromNull(static_cast<typename TestFixture::Target*>(nullptr));
    EXPECT_FALSE(fromNull);
    EXPECT_TRUE(fromNull == nullptr && nullptr == fromNull && fromNull == a);
    a.reset(this->NewTarget());
    b.reset(this->NewTarget());
    Ptr a2(a);
    EXPECT_TRUE(a == a2 && a != b && a != nullptr && nullptr != a);
    swap(a2, b);
    EXPECT_TRUE(b == a && a2 != a);
}

using Counted = Probe<SmartPtrTarget_ts>;

// Each round every thread holds the same fresh object; all claim and release
// copies of it at once, then all drop their holders at once, so any of them
// may give back the last reference.
TEST(SmartPtrTargetTsTest, ConcurrentClaimsAndLastReleasesDeleteExactlyOnce) {
    constexpr int kThreads = 8;
    constexpr int kRounds = 500;
    std::atomic<int> deaths{0};
    std::atomic<int> round{0};     // set once the holders are filled
    std::atomic<int> released{0};  // holders dropped, over all rounds
    std::atomic<int> earlyDeaths{0};  // seen while the round's object was still held
    std::vector<SmartPtr<Counted>> holders(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int r = 1; r <= kRounds; ++r) {
                while (round.load() < r) {
                    std::this_thread::yield();
                }
                for (int i = 0; i < 50; ++i) {
                    SmartPtr<Counted> copy(holders[t]);
                    SmartPtr<Counted> fromRaw(copy.get());
                }
                earlyDeaths += deaths.load() != r - 1;
                holders[t].reset();
                ++released;
            }
        });
    }
    for (int r = 1; r <= kRounds; ++r) {
        std::fill(holders.begin(), holders.end(), SmartPtr<Counted>(new Counted(&deaths)));
        round = r;
        while (released.load() < r * kThreads) {
            std::this_thread::yield();
        }
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(earlyDeaths.load(), 0);
    EXPECT_EQ(deaths.load(), kRounds);
}

}  // namespace
