#include "memory/SmartPtr.h"

#include <gtest/gtest.h>

#include <atomic>

#include "support/Threads.h"

template <class Base>
struct Probe : Base {  // counts its deaths
    explicit Probe(std::atomic<int>* deaths) : m_deaths(deaths) {}
    ~Probe() override { ++*m_deaths; }
    std::atomic<int>* m_deaths;
};

template <class Base>
struct SmartPtrTest : ::testing::Test {
    using Ptr = SmartPtr<Probe<Base>>;
    Probe<Base>* New() { return new Probe<Base>(&deaths); }
    std::atomic<int> deaths{0};
};
using Bases = ::testing::Types<SmartPtrTarget, SmartPtrTarget_ts>;
TYPED_TEST_SUITE(SmartPtrTest, Bases);

TYPED_TEST(SmartPtrTest, EveryHolderClaimsAndTheLastDeletesOnce) {
    typename TestFixture::Ptr first(this->New()), none(static_cast<decltype(first.get())>(nullptr));
    {
        typename TestFixture::Ptr copy(first), fromRaw(first.get()), other(this->New());
        SmartPtr<TypeParam> base(copy);
        swap(copy, other);  // no count changes: other's object has copy as its one holder
        EXPECT_TRUE(other == first && copy != first && !none && first);
    }
    EXPECT_EQ(this->deaths.load(), 1);
    first = nullptr;
    EXPECT_EQ(this->deaths.load(), 2);
}

TYPED_TEST(SmartPtrTest, HandingTheOneReferenceAroundNeitherKillsNorLeaks) {
    typename TestFixture::Ptr a(this->New());
    auto& alias = a;
    a = alias;
    a = std::move(alias);
    a.reset(a.get());
    typename TestFixture::Ptr moved(std::move(a));
    SmartPtr<TypeParam> base(std::move(moved));
    EXPECT_TRUE(this->deaths == 0 && a == nullptr && moved == nullptr && base != nullptr);
    base = nullptr;
    EXPECT_EQ(this->deaths.load(), 1);
}

// A lost update of the count would keep the object past its last holder or end it early.
TEST(SmartPtrTest, ConcurrentHoldersKeepAnAtomicCountExact) {
    using Target = Probe<SmartPtrTarget_ts>;
    std::atomic<int> deaths{0};
    SmartPtr<Target> held(new Target(&deaths));
    RunOnThreads(4, [&](int) {
        for (int i = 0; i < 1000000; ++i) SmartPtr<Target> copy(held);
    });
    EXPECT_EQ(deaths.load(), 0);
    held.reset();
    EXPECT_EQ(deaths.load(), 1);
}
