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

#include "text/Utf8.h"

#include <algorithm>
#include <cstdio>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

namespace {

bool g_smoke = false;

// Keeps the optimiser from dropping a result.
template <class T>
void Keep(const T& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

// Nanoseconds per call of a `run` that makes `count` calls itself (spread
// over threads, for instance): the median of seven repetitions after one for
// warming up.
template <class Run>
double NanosecondsPerCallOfRun(long long count, Run run) {
    if (g_smoke) {
        count = std::max(1LL, count / 10000);
    }
    const double ticksPerNanosecond = static_cast<double>(Time::GetFrequency()) / 1e9;
    std::vector<double> figures;
    for (int repetition = 0; repetition < 8; ++repetition) {
        const unsigned long long start = Time::GetPerformanceTime();
        run(count);
        const unsigned long long ticks = Time::GetPerformanceTime() - start;
        if (repetition > 0) {
            figures.push_back(static_cast<double>(ticks) / ticksPerNanosecond /
                              static_cast<double>(count));
        }
    }
    std::sort(figures.begin(), figures.end());
    return figures[figures.size() / 2];
}

// Nanoseconds per call of `body`, run `count` times a repetition.
template <class Body>
double NanosecondsPerCall(long long count, Body body) {
    return NanosecondsPerCallOfRun(count, [&](long long calls) {
        for (long long index = 0; index < calls; ++index) {
            body();
        }
    });
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

// A bare free list whose two steps are real calls.
struct FreeList {
    void* head;
    __attribute__((noinline)) void* Pop() {
        void* chunk = head;
        head = *static_cast<void**>(chunk);
        return chunk;
    }
    __attribute__((noinline)) void Push(void* chunk) {
        *static_cast<void**>(chunk) = head, head = chunk;
    }
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
    // The same floor behind two calls that are not inlined, as the pool's
    // exported members are.
    FreeList list{head};
    const double called = NanosecondsPerCall(20'000'000, [&] {
        void* chunk = list.Pop();
        Keep(chunk);
        list.Push(chunk);
    });
    Report("PoolBase take + give back (64 B)", plain, "malloc + free", heap, "ns/op",
           ">= 10x faster");
    Report("PoolBase take + give back (64 B)", plain, "new[] + delete[]", newDelete);
    Report("PoolBase take + give back (64 B)", plain, "bare free-list pop + push", bare, "ns/op",
           "within 2x");
    Report("PoolBase take + give back (64 B)", plain, "free-list pop + push, not inlined", called);
    Report("PoolBase _ts take + give back (64 B)", locked, "malloc + free", heap, "ns/op",
           ">= 3x faster");
}

// Nanoseconds per Lock + Release pair, counted over both threads, while two
// threads take the same lock in turn, each around a shared counter.
template <class Lock, class Release>
double Contended(Lock lock, Release release) {
    return NanosecondsPerCallOfRun(4'000'000, [&](long long calls) {
        long long counter = 0;
        std::atomic<int> ready{0};
        const auto work = [&] {
            ready.fetch_add(1);
            while (ready.load() < 2) {
            }
            for (long long index = 0; index < calls / 2; ++index) {
                lock();
                ++counter;
                release();
            }
        };
        std::thread other(work);
        work();
        other.join();
        Keep(counter);
    });
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

    const double contended = Contended([&] { lock.Lock(); }, [&] { lock.Release(); });
    const std::pair<const char*, double> contenders[] = {
        {"SRWLOCK exclusive", Contended([&] { AcquireSRWLockExclusive(&srw); },
                                        [&] { ReleaseSRWLockExclusive(&srw); })},
        {"CRITICAL_SECTION", Contended([&] { EnterCriticalSection(&raw); },
                                       [&] { LeaveCriticalSection(&raw); })},
        {"std::mutex", Contended([&] { standard.lock(); }, [&] { standard.unlock(); })}};
    for (const auto& [peer, figure] : contenders) {
        Report("AtomicLock, two threads contending", contended, std::string(peer) + ", two threads",
               figure, "ns/op", "report");
    }

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
    Report("SmartPtr copy + drop (plain count)", ours, "std::shared_ptr copy + drop", theirs,
           "ns/op", ">= 3x faster");
    Report("SmartPtr copy + drop (atomic count)", atomic, "interlocked increment + decrement",
           floor, "ns/op", "within 1.1x");
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

// Wide text from the platform's two-call idiom: ask for the size, then
// convert into a buffer of that size.
std::wstring PlatformWide(const std::string& text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(static_cast<std::size_t>(
                          MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size,
                                              nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(),
                        static_cast<int>(wide.size()));
    return wide;
}

std::string PlatformNarrow(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    std::string narrow(static_cast<std::size_t>(WideCharToMultiByte(
                           CP_UTF8, WC_ERR_INVALID_CHARS, text.data(), size, nullptr, 0, nullptr,
                           nullptr)),
                       '\0');
    WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(), size, narrow.data(),
                        static_cast<int>(narrow.size()), nullptr, nullptr);
    return narrow;
}

// The library's own conversions (Utf8ToWide, WideToUtf8: internal, built
// here from the library's header) against one platform call into a buffer
// made ahead, the platform's floor, and into a new string, as a result by
// value needs; the exported functions, which make the platform's two calls,
// against that idiom written by hand. The texts are about 4 KB: far larger
// ones measure mostly the heap's fresh pages for each new result.
void BenchText() {
    std::string latin, cjk, ascii;
    for (int index = 0; index < 200; ++index) {
        ascii += "plain ascii text, ";
        latin += "caf\xC3\xA9 cr\xC3\xA8me br\xC3\xBBl\xC3\xA9" "e ";
        cjk += "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E ";
    }
    for (const auto& [label, text] : {std::pair<const char*, const std::string&>{"ASCII", ascii},
                                      {"Latin with accents", latin},
                                      {"CJK", cjk}}) {
        const double megabytes = static_cast<double>(text.size()) / 1e6;
        const auto rate = [&](double nanoseconds) { return megabytes * 1e9 / nanoseconds; };
        const int size = static_cast<int>(text.size());
        const std::wstring source = zrk::detail::Utf8ToWide(text);
        const int units = static_cast<int>(source.size());
        std::wstring wide(text.size(), L'\0');
        std::string narrow(source.size() * 3, '\0');
        const long long count = 20'000;
        const double decode = NanosecondsPerCall(count, [&] {
            Keep(zrk::detail::Utf8ToWide(text));
        });
        const double platformDecode = NanosecondsPerCall(count, [&] {
            Keep(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size));
        });
        const double platformDecodeNew = NanosecondsPerCall(count, [&] {
            std::wstring result(text.size(), L'\0');
            result.resize(static_cast<std::size_t>(
                MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), size)));
            Keep(result);
        });
        const double encode = NanosecondsPerCall(count, [&] {
            Keep(zrk::detail::WideToUtf8(source));
        });
        const double platformEncode = NanosecondsPerCall(count, [&] {
            Keep(WideCharToMultiByte(CP_UTF8, 0, source.data(), units, narrow.data(), units * 3,
                                     nullptr, nullptr));
        });
        const double platformEncodeNew = NanosecondsPerCall(count, [&] {
            std::string result(source.size() * 3, '\0');
            result.resize(static_cast<std::size_t>(WideCharToMultiByte(
                CP_UTF8, 0, source.data(), units, result.data(), units * 3, nullptr, nullptr)));
            Keep(result);
        });
        const double exported = NanosecondsPerCall(count, [&] {
            Keep(ConvertString_UTF8_to_UTF16(text));
        });
        const double idiom = NanosecondsPerCall(count, [&] { Keep(PlatformWide(text)); });
        const double exportedBack = NanosecondsPerCall(count, [&] {
            Keep(ConvertString_UTF16_to_UTF8(source));
        });
        const double idiomBack = NanosecondsPerCall(count, [&] { Keep(PlatformNarrow(source)); });
        const std::string on = std::string(", ") + label;
        Report("Utf8ToWide" + on, rate(decode), "MultiByteToWideChar, buffer made ahead",
               rate(platformDecode), "MB/s", "not slower");
        Report("Utf8ToWide" + on, rate(decode), "MultiByteToWideChar into a new string",
               rate(platformDecodeNew), "MB/s", "not slower");
        Report("WideToUtf8" + on, rate(encode), "WideCharToMultiByte, buffer made ahead",
               rate(platformEncode), "MB/s", "not slower");
        Report("WideToUtf8" + on, rate(encode), "WideCharToMultiByte into a new string",
               rate(platformEncodeNew), "MB/s", "not slower");
        Report("ConvertString_UTF8_to_UTF16" + on, rate(exported), "size query + convert by hand",
               rate(idiom), "MB/s", "report");
        Report("ConvertString_UTF16_to_UTF8" + on, rate(exportedBack),
               "size query + convert by hand", rate(idiomBack), "MB/s", "report");
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

// Counts what a search reports.
struct Counter : IFoundFileReceiverW {
    long long found = 0;
    int FoundFile(const std::wstring&, const std::wstring&) override {
        ++found;
        return 0;
    }
};

// The walk a programmer writes by hand: one FindFirstFileW listing per
// folder, each entry counted, sub-folders pushed for later.
long long WalkOnce(const std::wstring& root) {
    long long found = 0;
    std::vector<std::wstring> pending{root};
    while (!pending.empty()) {
        const std::wstring folder = pending.back();
        pending.pop_back();
        WIN32_FIND_DATAW entry;
        HANDLE listing = FindFirstFileW((folder + L"\\*").c_str(), &entry);
        if (listing == INVALID_HANDLE_VALUE) {
            continue;
        }
        do {
            const std::wstring name = entry.cFileName;
            if (name == L"." || name == L"..") {
                continue;
            }
            ++found;
            if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
                pending.push_back(folder + L"\\" + name);
            }
        } while (FindNextFileW(listing, &entry));
        FindClose(listing);
    }
    return found;
}

// A tree of 100 folders of 100 files each (10 of 10 in the smoke run) in the
// temporary folder, searched by FileFindW with "*", by the standard library's
// recursive iterator and by the hand-written walk; removed at the end.
void BenchFileSearch() {
    const int folders = g_smoke ? 10 : 100;
    const std::filesystem::path root =
        std::filesystem::temp_directory_path() / ("zrkBench-" + MakeTokenA(8));
    for (int folder = 0; folder < folders; ++folder) {
        const auto path = root / ("folder" + std::to_string(folder));
        std::filesystem::create_directories(path);
        for (int file = 0; file < folders; ++file) {
            std::ofstream(path / ("file" + std::to_string(file) + ".txt")) << file;
        }
    }
    const std::wstring base = root.wstring();
    const long long entries = folders * (folders + 1);
    Counter counter;
    FileFindW search(&counter, base, L"*", 0);
    const double ours = NanosecondsPerCall(1, [&] { search.Search(); });
    long long listed = 0;
    const double standard = NanosecondsPerCall(1, [&] {
        listed = std::distance(std::filesystem::recursive_directory_iterator(root),
                               std::filesystem::recursive_directory_iterator());
    });
    long long walked = 0;
    const double walk = NanosecondsPerCall(1, [&] { walked = WalkOnce(base); });
    std::filesystem::remove_all(root);
    if (counter.found != 8 * entries || listed != entries || walked != entries) {
        std::fprintf(stderr, "zrkBench: the searches disagree on the tree: %lld, %lld, %lld\n",
                     counter.found / 8, listed, walked);
    }
    const std::string label = "FileFindW, " + std::to_string(entries) + " entries";
    Report(label, ours / 1e6, "std::filesystem::recursive_directory_iterator", standard / 1e6,
           "ms/walk", "report");
    Report(label, ours / 1e6, "single-pass FindFirstFileW walk", walk / 1e6, "ms/walk", "report");
}

// An INI file of 50 sections of 20 keys, loaded by IniFileA and looked up
// key by key, against the same data in nested unordered_maps.
void BenchIni() {
    const std::string path =
        (std::filesystem::temp_directory_path() / ("zrkBench-" + MakeTokenA(8) + ".ini"))
            .string();
    std::unordered_map<std::string, std::unordered_map<std::string, std::string>> map;
    std::vector<std::pair<std::string, std::string>> probes;
    {
        std::ofstream file(path);
        for (int section = 0; section < 50; ++section) {
            const std::string name = "section" + std::to_string(section);
            file << '[' << name << "]\n";
            for (int key = 0; key < 20; ++key) {
                const std::string keyName = "key" + std::to_string(key);
                const std::string value = "value " + std::to_string(section * 20 + key);
                file << keyName << '=' << value << '\n';
                map[name][keyName] = value;
                probes.emplace_back(name, keyName);
            }
        }
    }
    const double load = NanosecondsPerCall(20, [&] { Keep(IniFileA::LoadFile(path)); });
    const double perKey = NanosecondsPerCall(1, [&] {
        char value[256];
        for (const auto& [section, key] : probes) {
            Keep(GetPrivateProfileStringA(section.c_str(), key.c_str(), "", value, sizeof value,
                                          path.c_str()));
        }
    });
    Report("IniFileA::LoadFile, 50 x 20 keys", load / 1e6, "GetPrivateProfileStringA per key",
           perKey / 1e6, "ms/file", "report");

    const SmartPtr<IniFileA> file = IniFileA::LoadFile(path);
    std::size_t next = 0;
    const double ours = NanosecondsPerCall(5'000'000, [&] {
        const auto& [section, key] = probes[next++ % probes.size()];
        Keep((*file)[section]->GetValue(key));
    });
    const double theirs = NanosecondsPerCall(5'000'000, [&] {
        const auto& [section, key] = probes[next++ % probes.size()];
        Keep(std::string(map.find(section)->second.find(key)->second));
    });
    DeleteFileA(path.c_str());
    Report("IniFileA section + key lookup", ours, "unordered_map lookups of the same data", theirs,
           "ns/op", "within 1.2x");
}

// Text for an SVG element's content.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        escaped += c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '&' ? "&amp;" : std::string(1, c);
    }
    return escaped;
}

// The ratios as a bar chart (SVG): one bar per row from the line of equal
// cost, to the left where zrkCore costs less than its peer, to the right
// where it costs more, on a logarithmic scale from 1/100 to 10.
void WriteChart(const std::string& path) {
    const int labelWidth = 560, plotWidth = 420, rowHeight = 18, top = 30;
    const double decades = 3;  // 0.01 .. 10
    const auto x = [&](double ratio) {
        const double clamped = std::min(10.0, std::max(0.01, ratio));
        return labelWidth + plotWidth * (std::log10(clamped) + 2) / decades;
    };
    const int height = top + rowHeight * static_cast<int>(g_rows.size()) + 10;
    std::ofstream svg(path);
    svg << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << labelWidth + plotWidth + 20
        << "\" height=\"" << height << "\" font-family=\"sans-serif\" font-size=\"11\">\n"
        << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
    for (const double mark : {0.01, 0.1, 1.0, 10.0}) {
        svg << "<line x1=\"" << x(mark) << "\" y1=\"" << top - 8 << "\" x2=\"" << x(mark)
            << "\" y2=\"" << height - 10 << "\" stroke=\"" << (mark == 1.0 ? "black" : "#ccc")
            << "\"/>\n<text x=\"" << x(mark) << "\" y=\"" << top - 12
            << "\" text-anchor=\"middle\">" << mark << "</text>\n";
    }
    int y = top;
    for (const Row& row : g_rows) {
        const double ratio = Ratio(row);
        const double from = std::min(x(1.0), x(ratio)), to = std::max(x(1.0), x(ratio));
        svg << "<text x=\"" << labelWidth - 6 << "\" y=\"" << y + 12
            << "\" text-anchor=\"end\">" << Escaped(row.operation + " / " + row.peer) << "</text>\n"
            << "<rect x=\"" << from << "\" y=\"" << y + 3 << "\" width=\""
            << std::max(1.0, to - from)
            << "\" height=\"" << rowHeight - 6 << "\" fill=\"" << (ratio <= 1 ? "#3a7" : "#e84")
            << "\"/>\n";
        y += rowHeight;
    }
    svg << "</svg>\n";
}

void Write(const std::string& folder) {
    std::size_t operationWidth = 8, peerWidth = 4;
    for (const Row& row : g_rows) {
        operationWidth = std::max(operationWidth, row.operation.size());
        peerWidth = std::max(peerWidth, row.peer.size());
    }
    const int ow = static_cast<int>(operationWidth), pw = static_cast<int>(peerWidth);
    std::printf("%-*s %14s  %-*s %14s  %6s  %s\n", ow, "zrkCore", "figure", pw, "peer", "figure",
                "ratio", "goal");
    std::ofstream markdown(folder + "bench.md"), csv(folder + "bench.csv");
    markdown << "| zrkCore | figure | peer | peer's figure | ratio | goal |\n"
                "|---|---:|---|---:|---:|---|\n";
    csv << "operation,figure,unit,peer,peer figure,ratio,goal\n";
    for (const Row& row : g_rows) {
        char ours[32], theirs[32], ratio[16];
        std::snprintf(ours, sizeof ours, "%.1f %s", row.ours, row.unit.c_str());
        std::snprintf(theirs, sizeof theirs, "%.1f %s", row.theirs, row.unit.c_str());
        std::snprintf(ratio, sizeof ratio, "%.2f", Ratio(row));
        std::printf("%-*s %14s  %-*s %14s  %6s  %s\n", ow, row.operation.c_str(), ours, pw,
                    row.peer.c_str(), theirs, ratio, row.goal.c_str());
        markdown << "| " << row.operation << " | " << ours << " | " << row.peer << " | " << theirs
                 << " | " << ratio << " | " << row.goal << " |\n";
        csv << '"' << row.operation << "\"," << row.ours << ',' << row.unit << ",\"" << row.peer
            << "\"," << row.theirs << ',' << ratio << ",\"" << row.goal << "\"\n";
    }
    WriteChart(folder + "bench-ratios.svg");
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
    BenchFileSearch();
    BenchIni();
    Write(folder);
    Time::StaticShutdown();
    return 0;
}
