#include "memory/SmartPtr.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

// Claim and Release are reachable only by SmartPtr<T>.
template <class T, class = void>
struct CanClaim : std::false_type {};
template <class T>
struct CanClaim<T, std::void_t<decltype(std::declval<T&>().Claim())>> : std::true_type {};
template <class T, class = void>
struct CanRelease : std::false_type {};
template <class T>
struct CanRelease<T, std::void_t<decltype(std::declval<T&>().Release())>> : std::true_type {};

static_assert(!CanClaim<SmartPtrTarget>::value && !CanRelease<SmartPtrTarget>::value, "");
static_assert(!CanClaim<SmartPtrTarget_ts>::value && !CanRelease<SmartPtrTarget_ts>::value, "");
static_assert(!std::is_copy_constructible<SmartPtrTarget>::value &&
                  !std::is_copy_assignable<SmartPtrTarget>::value,
              "");
static_assert(!std::is_copy_constructible<SmartPtrTarget_ts>::value &&
                  !std::is_copy_assignable<SmartPtrTarget_ts>::value,
              "");
static_assert(std::is_base_of<NoCopy, SmartPtrTarget>::value &&
                  std::is_base_of<NoCopy, SmartPtrTarget_ts>::value,
              "");
static_assert(!std::is_base_of<SmartPtrTarget, SmartPtrTarget_ts>::value &&
                  !std::is_base_of<SmartPtrTarget_ts, SmartPtrTarget>::value,
              "two separate bases");
static_assert(std::has_virtual_destructor<SmartPtrTarget>::value &&
                  std::has_virtual_destructor<SmartPtrTarget_ts>::value,
              "");
// Behind the virtual table pointer only the 32-bit count.
static_assert(sizeof(SmartPtrTarget) == 2 * sizeof(void*), "");
static_assert(sizeof(SmartPtrTarget_ts) == 2 * sizeof(void*), "");
static_assert(sizeof(SmartPtr<SmartPtrTarget>) == sizeof(void*), "");
static_assert(!std::is_convertible<bool, SmartPtr<SmartPtrTarget>>::value, "");
static_assert(!std::is_convertible<SmartPtr<SmartPtrTarget>, bool>::value,
              "explicit operator bool");

// A target that counts how often its destructor ran.
template <class Base>
class Probe : public Base {
public:
    explicit Probe(std::atomic<int>* deaths) : m_deaths(deaths) {}
    ~Probe() override { ++*m_deaths; }

    int value = 7;

private:
    std::atomic<int>* m_deaths;
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

TYPED_TEST(SmartPtrTest, NeverSharedTargetIsDestroyedLikeAnyObject) {
    delete this->NewTarget();
    EXPECT_EQ(this->Deaths(), 1);
    {
        typename TestFixture::Target onStack(&this->m_deaths);
    }
    EXPECT_EQ(this->Deaths(), 2);
}

TYPED_TEST(SmartPtrTest, NullHolderHoldsNothing) {
    typename TestFixture::Ptr fromNull(static_cast<typename TestFixture::Target*>(nullptr));
    typename TestFixture::Ptr empty;
    EXPECT_EQ(fromNull.get(), nullptr);
    EXPECT_FALSE(fromNull);
    EXPECT_TRUE(fromNull == nullptr && nullptr == fromNull && fromNull == empty);
    fromNull.reset();
    empty = fromNull;
    EXPECT_EQ(empty, nullptr);
}

TYPED_TEST(SmartPtrTest, LastHolderDeletesThroughTheDerivedDestructorOnce) {
    {
        typename TestFixture::Ptr first(this->NewTarget());
        EXPECT_TRUE(first);
        EXPECT_EQ(first->value, 7);
        EXPECT_EQ((*first).value, 7);
        {
            typename TestFixture::Ptr second(first);
            EXPECT_EQ(second, first);
        }
        EXPECT_EQ(this->Deaths(), 0);  // the first of two to go leaves it alive
    }
    EXPECT_EQ(this->Deaths(), 1);
}

TYPED_TEST(SmartPtrTest, HolderMadeFromTheRawPointerOfAHeldObjectSharesIt) {
    // The count is in the object: a raw pointer to a held target becomes one
    // more holder, not a second owner that would delete it twice.
    typename TestFixture::Ptr* first = new typename TestFixture::Ptr(this->NewTarget());
    typename TestFixture::Ptr second(first->get());
    delete first;
    EXPECT_EQ(this->Deaths(), 0);
    second.reset();
    EXPECT_EQ(this->Deaths(), 1);
}

TYPED_TEST(SmartPtrTest, MovesHandTheReferenceOverAndClaimNothing) {
    typename TestFixture::Ptr source(this->NewTarget());
    auto* object = source.get();
    typename TestFixture::Ptr moved(std::move(source));
    EXPECT_EQ(source, nullptr);
    EXPECT_EQ(moved.get(), object);
    typename TestFixture::Ptr assigned;
    assigned = std::move(moved);
    EXPECT_EQ(moved, nullptr);
    // One reference in all: the one remaining holder deletes on reset.
    assigned.reset();
    EXPECT_EQ(this->Deaths(), 1);
}

TYPED_TEST(SmartPtrTest, AssignmentsReleaseTheOldReferenceAndKeepTheNew) {
    typename TestFixture::Ptr a(this->NewTarget());
    typename TestFixture::Ptr b(this->NewTarget());
    auto* first = a.get();

    b = a;  // b's old object had one holder
    EXPECT_EQ(this->Deaths(), 1);
    EXPECT_EQ(b.get(), first);

    // Self-assignment, self-move and assigning the same object change no
    // count: the object survives the drop of all holders but one.
    typename TestFixture::Ptr& alias = a;
    a = alias;
    a = std::move(alias);
    EXPECT_EQ(a.get(), first);
    b = a;
    a.reset(first);
    b.reset();
    EXPECT_EQ(this->Deaths(), 1);
    a = nullptr;
    EXPECT_EQ(this->Deaths(), 2);

    // reset with a new object releases the old one.
    typename TestFixture::Ptr c(this->NewTarget());
    c.reset(this->NewTarget());
    EXPECT_EQ(this->Deaths(), 3);
    c = typename TestFixture::Ptr();
    EXPECT_EQ(this->Deaths(), 4);
}

TYPED_TEST(SmartPtrTest, HoldersOfADerivedClassConvertToTheBase) {
    typename TestFixture::Ptr derived(this->NewTarget());
    SmartPtr<TypeParam> base(derived);
    EXPECT_TRUE(base == derived);
    SmartPtr<TypeParam> moved(std::move(derived));
    EXPECT_EQ(derived, nullptr);
    base.reset();
    EXPECT_EQ(this->Deaths(), 0);
    moved = nullptr;
    EXPECT_EQ(this->Deaths(), 1);
}

TYPED_TEST(SmartPtrTest, HoldersCompareByTheirObject) {
    typename TestFixture::Ptr a(this->NewTarget());
    typename TestFixture::Ptr b(this->NewTarget());
    typename TestFixture::Ptr a2(a);
    EXPECT_TRUE(a == a2);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a != nullptr && nullptr != a);
    swap(a2, b);
    EXPECT_TRUE(b == a);
    EXPECT_FALSE(a2 == a);
}

// The atomic count under real threads.

class Counted : public SmartPtrTarget_ts {
public:
    explicit Counted(std::atomic<int>* deaths) : m_deaths(deaths) {}
    ~Counted() override { ++*m_deaths; }

private:
    std::atomic<int>* m_deaths;
};

// A reusable meeting point: Arrive returns once all parties have arrived,
// so the work that follows overlaps on all threads.
class SpinBarrier {
public:
    explicit SpinBarrier(int parties) : m_parties(parties), m_waiting(parties) {}
    void Arrive() {
        const int generation = m_generation.load();
        if (--m_waiting == 0) {
            m_waiting = m_parties;
            ++m_generation;
            return;
        }
        while (m_generation.load() == generation) {
            std::this_thread::yield();
        }
    }

private:
    const int m_parties;
    std::atomic<int> m_waiting;
    std::atomic<int> m_generation{0};
};

TEST(SmartPtrTargetTsTest, ConcurrentLastReleasesDeleteExactlyOnce) {
    constexpr int kThreads = 8;
    constexpr int kRounds = 500;
    std::atomic<int> deaths{0};
    std::vector<SmartPtr<Counted>> holders(kThreads);
    SpinBarrier barrier(kThreads + 1);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int round = 0; round < kRounds; ++round) {
                barrier.Arrive();  // holders are set
                holders[t].reset();
                barrier.Arrive();  // all released
            }
        });
    }
    int wrongRounds = 0;
    for (int round = 0; round < kRounds; ++round) {
        std::fill(holders.begin(), holders.end(), SmartPtr<Counted>(new Counted(&deaths)));
        barrier.Arrive();
        barrier.Arrive();
        wrongRounds += deaths.load() != round + 1;
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrongRounds, 0);
    EXPECT_EQ(deaths.load(), kRounds);
}

TEST(SmartPtrTargetTsTest, ClaimAndReleaseStormsLeaveTheCountWhereItWas) {
    constexpr int kThreads = 8;
    constexpr int kRounds = 10000;
    std::atomic<int> deaths{0};
    SmartPtr<Counted> keeper(new Counted(&deaths));
    const SmartPtr<Counted>& shared = keeper;
    SpinBarrier start(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&] {
            start.Arrive();
            for (int i = 0; i < kRounds; ++i) {
                SmartPtr<Counted> copy(shared);  // claim
                SmartPtr<Counted> raw(copy.get());
                copy.reset();                     // release
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    // Back at 1: alive now, and the one remaining holder deletes it.
    EXPECT_EQ(deaths.load(), 0);
    keeper.reset();
    EXPECT_EQ(deaths.load(), 1);
}

}  // namespace
