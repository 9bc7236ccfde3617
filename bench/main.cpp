// zrkBench: each hot path of zrkCore side by side with its floor and with
// what a Windows C++ programmer would use instead, in one process and one
// run. Every figure is the median of several timed repetitions after a
// warm-up, read from the performance counter. Prints a table and writes it
// as Markdown and CSV.
//
//   zrkBench [--smoke] [--out FOLDER]
//
// --smoke runs tiny counts, only to show that every measurement still runs.
#include <windows.h>

#include <zrkCore.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

bool g_smoke = false;

// Keeps the optimiser from dropping a result.
template <class T>
void Keep(const T& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

// Nanoseconds per call of `body`, run `count` times a repetition: the median
// of seven repetitions after one for warming up.
template <class Body>
double NanosecondsPerCall(long long count, Body body) {
    if (g_smoke) {
        count = std::max(1LL, count / 10000);
    }
    std::vector<double> figures;
    for (int repetition = 0; repetition < 8; ++repetition) {
        const unsigned long long start = Time::GetPerformanceTime();
        for (long long index = 0; index < count; ++index) {
            body();
        }
        const unsigned long long ticks = Time::GetPerformanceTime() - start;
        if (repetition > 0) {
            figures.push_back(1e9 * static_cast<double>(ticks) /
                              static_cast<double>(Time::GetFrequency()) / static_cast<double>(count));
        }
    }
    std::sort(figures.begin(), figures.end());
    return figures[figures.size() / 2];
}

struct Row {
    std::string operation;  // what zrkCore does
    double ours;            // its figure
    std::string peer;       // what it is compared with
    double theirs;          // the peer's figure
    std::string unit;       // "ns/op" or "MB/s"
    std::string goal;       // the goal, as text
};
std::vector<Row> g_rows;

void Report(const std::string& operation, double ours, const std::string& peer, double theirs,
            const std::string& unit = "ns/op", const std::string& goal = "") {
    g_rows.push_back({operation, ours, peer, theirs, unit, goal});
}

// The ratio that reads "how many times the peer's cost is ours": below 1 is
// faster than the peer. For throughputs the ratio is inverted to read alike.
double Ratio(const Row& row) {
    return row.unit == "MB/s" ? row.theirs / row.ours : row.ours / row.theirs;
}

struct Pool : PoolBase {
    explicit Pool(unsigned long long size) : PoolBase(size, 1024, 1) {}
    using PoolBase::AllocateChunk;
    using PoolBase::AllocateChunk_ts;
    using PoolBase::ReleaseChunk;
    using PoolBase::ReleaseChunk_ts;
};

void BenchPool() {
    Pool pool(64);
    const double plain = NanosecondsPerCall(20'000'000, [&] {
        void* chunk = pool.AllocateChunk();
        Keep(chunk);
        pool.ReleaseChunk(chunk);
    });
    const double locked = NanosecondsPerCall(20'000'000, [&] {
        void* chunk = pool.AllocateChunk_ts();
        Keep(chunk);
        pool.ReleaseChunk_ts(chunk);
    });
    const double heap = NanosecondsPerCall(20'000'000, [] {
        void* block = std::malloc(64);
        Keep(block);
        std::free(block);
    });
    const double newDelete = NanosecondsPerCall(20'000'000, [] {
        char* block = new char[64];
        Keep(block);
        delete[] block;
    });
    // The floor: a free list of the same shape, pushed and popped by hand.
    std::vector<void*> storage(1024);
    void* head = nullptr;
    for (void*& slot : storage) {
        slot = head, head = &slot;
    }
    const double bare = NanosecondsPerCall(20'000'000, [&] {
        void* chunk = head;
        head = *static_cast<void**>(chunk);
        Keep(chunk);
        *static_cast<void**>(chunk) = head, head = chunk;
    });
    Report("PoolBase take + give back (64 B)", plain, "malloc + free", heap, "ns/op", ">= 10x faster");
    Report("PoolBase take + give back (64 B)", plain, "new[] + delete[]", newDelete);
    Report("PoolBase take + give back (64 B)", plain, "bare free-list pop + push", bare, "ns/op",
           "within 2x");
    Report("PoolBase _ts take + give back (64 B)", locked, "malloc + free", heap, "ns/op",
           ">= 3x faster");
}

void BenchLocks() {
    AtomicLock lock;
    const double ours = NanosecondsPerCall(50'000'000, [&] {
        lock.Lock();
        lock.Release();
    });
    volatile long word = 0;
    const double floor = NanosecondsPerCall(50'000'000, [&] {
        InterlockedCompareExchange(&word, 1, 0);
        InterlockedCompareExchange(&word, 0, 1);
    });
    SRWLOCK srw = SRWLOCK_INIT;
    const double slim = NanosecondsPerCall(50'000'000, [&] {
        AcquireSRWLockExclusive(&srw);
        ReleaseSRWLockExclusive(&srw);
    });
    CRITICAL_SECTION raw;
    InitializeCriticalSectionAndSpinCount(&raw, 1024);
    const double direct = NanosecondsPerCall(50'000'000, [&] {
        EnterCriticalSection(&raw);
        LeaveCriticalSection(&raw);
    });
    std::mutex standard;
    const double stdMutex = NanosecondsPerCall(50'000'000, [&] {
        standard.lock();
        standard.unlock();
    });
    Report("AtomicLock Lock + Release", ours, "two interlocked compare-exchanges", floor, "ns/op",
           "within 1.2x");
    Report("AtomicLock Lock + Release", ours, "SRWLOCK exclusive", slim, "ns/op", "ahead");
    Report("AtomicLock Lock + Release", ours, "std::mutex", stdMutex, "ns/op", "ahead");
    Report("AtomicLock Lock + Release", ours, "CRITICAL_SECTION", direct);

    CriticalSection section;
    const double wrapped = NanosecondsPerCall(50'000'000, [&] {
        section.Lock();
        section.Release();
    });
    Report("CriticalSection Lock + Release", wrapped, "Enter/LeaveCriticalSection", direct, "ns/op",
           "within 1.05x");
    DeleteCriticalSection(&raw);

    // Kernel objects cost a server round trip under Wine (tens of
    // microseconds), so their counts are smaller.
    Mutex mutex;
    HANDLE handle = CreateMutexW(nullptr, FALSE, nullptr);
    const double ourMutex = NanosecondsPerCall(20'000, [&] {
        mutex.Lock();
        mutex.Release();
    });
    const double theirMutex = NanosecondsPerCall(20'000, [&] {
        WaitForSingleObject(handle, INFINITE);
        ReleaseMutex(handle);
    });
    CloseHandle(handle);
    Report("Mutex Lock + Release", ourMutex, "WaitForSingleObject + ReleaseMutex", theirMutex,
           "ns/op", "within 1.05x");

    SignalledObject flag;
    HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const double ourFlag = NanosecondsPerCall(20'000, [&] { Keep(flag.IsSet()); });
    const double theirFlag =
        NanosecondsPerCall(20'000, [&] { Keep(WaitForSingleObject(event, 0)); });
    CloseHandle(event);
    Report("SignalledObject::IsSet", ourFlag, "WaitForSingleObject(event, 0)", theirFlag, "ns/op",
           "within 1.05x");
}

struct Plain : SmartPtrTarget {};
struct Shared : SmartPtrTarget_ts {};

void BenchSharing() {
    SmartPtr<Plain> plain(new Plain);
    SmartPtr<Shared> shared(new Shared);
    auto standard = std::make_shared<int>(1);
    const double ours = NanosecondsPerCall(50'000'000, [&] {
        SmartPtr<Plain> copy(plain);
        Keep(copy);
    });
    const double atomic = NanosecondsPerCall(50'000'000, [&] {
        SmartPtr<Shared> copy(shared);
        Keep(copy);
    });
    const double theirs = NanosecondsPerCall(50'000'000, [&] {
        std::shared_ptr<int> copy(standard);
        Keep(copy);
    });
    volatile long count = 1;
    const double floor = NanosecondsPerCall(50'000'000, [&] {
        InterlockedIncrement(&count);
        InterlockedDecrement(&count);
    });
    Report("SmartPtr copy + drop (plain count)", ours, "std::shared_ptr copy + drop", theirs, "ns/op",
           ">= 3x faster");
    Report("SmartPtr copy + drop (atomic count)", atomic, "interlocked increment + decrement", floor,
           "ns/op", "within 1.1x");
}

void BenchTimers() {
    TimerSet timers;
    timers.StartTimer();
    timers.StopTimer("work");
    const double ours = NanosecondsPerCall(5'000'000, [&] {
        timers.StartTimer();
        timers.StopTimer("work");
    });
    struct Entry {
        unsigned long long ticks;
        unsigned count;
    };
    std::unordered_map<std::string, Entry> map{{"work", {0, 0}}};
    unsigned long long total = 0;
    const std::string name = "work";
    const double theirs = NanosecondsPerCall(5'000'000, [&] {
        LARGE_INTEGER start, stop;
        QueryPerformanceCounter(&start);
        QueryPerformanceCounter(&stop);
        Entry& entry = map[name];
        const auto ticks = static_cast<unsigned long long>(stop.QuadPart - start.QuadPart);
        entry.ticks += ticks, ++entry.count, total += ticks;
    });
    Report("TimerSet Start + Stop (existing name)", ours, "counter reads + unordered_map update",
           theirs, "ns/op", "within 1.2x");
}

void BenchText() {
    std::string latin, cjk, ascii;
    for (int index = 0; index < 20000; ++index) {
        ascii += "plain ascii text, ";
        latin += "caf\xC3\xA9 cr\xC3\xA8me br\xC3\xBBl\xC3\xA9" "e ";
        cjk += "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E ";
    }
    for (const auto& [label, text] : {std::pair<const char*, const std::string&>{"ASCII", ascii},
                                      {"Latin with accents", latin},
                                      {"CJK", cjk}}) {
        const double megabytes = static_cast<double>(text.size()) / 1e6;
        const double ours = NanosecondsPerCall(20, [&] {
            Keep(ConvertString_UTF8_to_UTF16(text));
        });
        std::wstring wide(text.size(), L'\0');
        const double theirs = NanosecondsPerCall(20, [&] {
            Keep(MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                     wide.data(), static_cast<int>(wide.size())));
        });
        Report(std::string("UTF-8 to UTF-16, ") + label, megabytes * 1e9 / ours,
               "MultiByteToWideChar", megabytes * 1e9 / theirs, "MB/s", "not slower");
        const std::wstring source = ConvertString_UTF8_to_UTF16(text);
        std::string narrow(source.size() * 3, '\0');
        const double back = NanosecondsPerCall(20, [&] {
            Keep(ConvertString_UTF16_to_UTF8(source));
        });
        const double platform = NanosecondsPerCall(20, [&] {
            Keep(WideCharToMultiByte(CP_UTF8, 0, source.data(), static_cast<int>(source.size()),
                                     narrow.data(), static_cast<int>(narrow.size()), nullptr,
                                     nullptr));
        });
        Report(std::string("UTF-16 to UTF-8, ") + label, megabytes * 1e9 / back,
               "WideCharToMultiByte", megabytes * 1e9 / platform, "MB/s", "not slower");
    }
}

void BenchTokens() {
    for (unsigned long long length : {16ull, 64ull, 1024ull}) {
        const long long count = 2'000'000 / static_cast<long long>(length) + 100;
        const double ours = NanosecondsPerCall(count, [&] { Keep(MakeTokenA(length)); });
        static const char symbols[] =
            "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
        const double theirs = NanosecondsPerCall(count, [&] {
            unsigned int seed = 0;
            rand_s(&seed);
            std::mt19937 generator(seed);
            std::string token;
            token.reserve(length);
            while (token.size() < length) {
                const auto value = static_cast<unsigned int>(generator());
                if (value < 4294967292u) {
                    token += symbols[value % 62];
                }
            }
            Keep(token);
        });
        Report("MakeTokenA(" + std::to_string(length) + ")", ours,
               "rand_s seed + std::mt19937 draws", theirs, "ns/op", "within 1.2x");
    }
}

void Write(const std::string& folder) {
    std::printf("%-40s %12s  %-38s %12s  %7s  %s\n", "zrkCore", "figure", "peer", "figure", "ratio",
                "goal");
    std::ofstream markdown(folder + "bench.md"), csv(folder + "bench.csv");
    markdown << "| zrkCore | figure | peer | peer's figure | ratio | goal |\n"
                "|---|---:|---|---:|---:|---|\n";
    csv << "operation,figure,unit,peer,peer figure,ratio,goal\n";
    for (const Row& row : g_rows) {
        char ours[32], theirs[32], ratio[16];
        std::snprintf(ours, sizeof ours, "%.1f %s", row.ours, row.unit.c_str());
        std::snprintf(theirs, sizeof theirs, "%.1f %s", row.theirs, row.unit.c_str());
        std::snprintf(ratio, sizeof ratio, "%.2f", Ratio(row));
        std::printf("%-40s %12s  %-38s %12s  %7s  %s\n", row.operation.c_str(), ours,
                    row.peer.c_str(), theirs, ratio, row.goal.c_str());
        markdown << "| " << row.operation << " | " << ours << " | " << row.peer << " | " << theirs
                 << " | " << ratio << " | " << row.goal << " |\n";
        csv << '"' << row.operation << "\"," << row.ours << ',' << row.unit << ",\"" << row.peer
            << "\"," << row.theirs << ',' << ratio << ",\"" << row.goal << "\"\n";
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::string folder;
    for (int index = 1; index < argc; ++index) {
        const std::string word = argv[index];
        if (word == "--smoke") {
            g_smoke = true;
        } else if (word == "--out" && index + 1 < argc) {
            folder = argv[++index];
        } else {
            std::fprintf(stderr, "usage: zrkBench [--smoke] [--out FOLDER]\n");
            return 2;
        }
    }
    if (!folder.empty() && !EnsureFolderPath(folder)) {
        std::fprintf(stderr, "zrkBench: can't make the folder %s\n", folder.c_str());
        return 1;
    }
    Time::StaticInit();
    BenchPool();
    BenchLocks();
    BenchSharing();
    BenchTimers();
    BenchText();
    BenchTokens();
    Write(folder);
    Time::StaticShutdown();
    return 0;
}
