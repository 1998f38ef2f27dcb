// Guarded test memory: the mappings behind GuardedBlock, the pool that
// keeps them for reuse (a fresh mapping costs system calls and page faults,
// which qemu-i386 makes dear, and the suite makes tens of thousands), and
// the note written when an access past a guard page ends the program.
#include "guarded_memory.h"

#include <string.h>

#include <algorithm>
#include <map>
#include <new>
#include <vector>

#ifdef _WIN32
#    ifndef NOMINMAX
#        define NOMINMAX
#    endif
#    include <windows.h>
#else
#    include <signal.h>
#    include <sys/mman.h>
#    include <unistd.h>
#endif

#if defined(__SANITIZE_ADDRESS__)
#    define VEK_TESTS_ASAN 1
#elif defined(__has_feature)
#    if __has_feature(address_sanitizer)
#        define VEK_TESTS_ASAN 1
#    endif
#endif
#ifdef VEK_TESTS_ASAN
#    include <sanitizer/asan_interface.h>
#endif

namespace vektest {
namespace {

constexpr unsigned char kFreshByte = 0xCD;
constexpr size_t kFilledBefore = 64;                  // bytes before a block given a known value
constexpr size_t kKeptBytesLimit = size_t(64) << 20;  // released mappings kept for reuse, at most

size_t pageSize() {
    static const size_t size = [] {
#ifdef _WIN32
        SYSTEM_INFO info;
        GetSystemInfo(&info);
        return static_cast<size_t>(info.dwPageSize);
#else
        return static_cast<size_t>(sysconf(_SC_PAGESIZE));
#endif
    }();
    return size;
}

// A mapping of `pages` read-write pages between two no-access pages.
unsigned char* mapGuarded(size_t pages) {
    const size_t page = pageSize(), total = (pages + 2) * page;
#ifdef _WIN32
    auto* base = static_cast<unsigned char*>(VirtualAlloc(nullptr, total, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD previous;
    if (!base || !VirtualProtect(base, page, PAGE_NOACCESS, &previous) ||
        !VirtualProtect(base + (pages + 1) * page, page, PAGE_NOACCESS, &previous))
        throw std::bad_alloc();
#else
    void* mapped = mmap(nullptr, total, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) throw std::bad_alloc();
    auto* base = static_cast<unsigned char*>(mapped);
    if (mprotect(base + page, pages * page, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
#endif
    return base;
}

void unmapGuarded(unsigned char* base, size_t pages) {
#ifdef _WIN32
    (void)pages;
    VirtualFree(base, 0, MEM_RELEASE);
#else
    munmap(base, (pages + 2) * pageSize());
#endif
}

// Mappings come in sizes of 1, 2, 3, 4, 6, 8, 12 ... pages, so that blocks
// of many nearby sizes share them at the cost of a third unused at most.
size_t sizeClass(size_t pages) {
    size_t p = 1;
    for (; p < pages; p *= 2)
        if (p >= 2 && p / 2 * 3 >= pages) return p / 2 * 3;
    return p;
}

// Released mappings by their number of usable pages.
struct Pool {
    std::map<size_t, std::vector<unsigned char*>> free;
    size_t keptBytes = 0;
};
Pool& pool() {
    static Pool* p = new Pool;  // never destroyed: blocks may outlive static destruction order
    return *p;
}

// What the fault hook writes, composed beforehand: a handler should only
// write what is ready.
char faultNote[1024];
size_t faultNoteLength = 0;

#ifdef _WIN32
LONG WINAPI onFault(EXCEPTION_POINTERS*) {
    DWORD written;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), faultNote, static_cast<DWORD>(faultNoteLength), &written, nullptr);
    return EXCEPTION_CONTINUE_SEARCH;
}
#else
struct sigaction previousSegv, previousBus;

// Puts the previous handler back and returns: the faulting access runs
// again and that handler takes it.
void onFault(int signal) {
    ssize_t ignored = write(2, faultNote, faultNoteLength);
    (void)ignored;
    sigaction(signal, signal == SIGSEGV ? &previousSegv : &previousBus, nullptr);
}
#endif

}  // namespace

void setFaultNote(const std::string& note) {
    faultNoteLength = std::min(note.size(), sizeof faultNote);
    memcpy(faultNote, note.data(), faultNoteLength);
}

void installFaultNote() {
#ifdef _WIN32
    SetUnhandledExceptionFilter(onFault);
#else
    struct sigaction action = {};
    action.sa_handler = onFault;
    sigemptyset(&action.sa_mask);
    sigaction(SIGSEGV, &action, &previousSegv);
    sigaction(SIGBUS, &action, &previousBus);
#endif
}

void poisonForSanitizer(const void* p, size_t n) {
#ifdef VEK_TESTS_ASAN
    ASAN_POISON_MEMORY_REGION(p, n);
#else
    (void)p, (void)n;
#endif
}

void unpoisonForSanitizer(const void* p, size_t n) {
#ifdef VEK_TESTS_ASAN
    ASAN_UNPOISON_MEMORY_REGION(p, n);
#else
    (void)p, (void)n;
#endif
}

GuardedBlock::GuardedBlock(size_t size) : size_(size) {
    const size_t page = pageSize();
    pages_ = sizeClass(size ? (size + page - 1) / page : 1);
    std::vector<unsigned char*>& kept = pool().free[pages_];
    if (kept.empty()) {
        mapping_ = mapGuarded(pages_);
    } else {
        mapping_ = kept.back();
        kept.pop_back();
        pool().keptBytes -= pages_ * page;
    }
    unsigned char* usable = mapping_ + page;
    data_ = usable + pages_ * page - size;
    // The bytes a vector read just before the block would see start out the
    // same whatever ran before; everything before the block is poisoned.
    const size_t before = std::min<size_t>(kFilledBefore, data_ - usable);
    unpoisonForSanitizer(usable, pages_ * page);
    memset(data_ - before, kFreshByte, before);
    poisonForSanitizer(usable, data_ - usable);
}

GuardedBlock::~GuardedBlock() { release(); }

GuardedBlock::GuardedBlock(GuardedBlock&& other) noexcept
    : mapping_(other.mapping_), pages_(other.pages_), data_(other.data_), size_(other.size_) {
    other.mapping_ = nullptr;
}

GuardedBlock& GuardedBlock::operator=(GuardedBlock&& other) noexcept {
    if (this != &other) {
        release();
        mapping_ = other.mapping_, pages_ = other.pages_, data_ = other.data_, size_ = other.size_;
        other.mapping_ = nullptr;
    }
    return *this;
}

void GuardedBlock::release() {
    if (!mapping_) return;
    const size_t bytes = pages_ * pageSize();
    unpoisonForSanitizer(mapping_ + pageSize(), bytes);
    Pool& p = pool();
    if (p.keptBytes + bytes <= kKeptBytesLimit) {
        p.free[pages_].push_back(mapping_);
        p.keptBytes += bytes;
    } else {
        unmapGuarded(mapping_, pages_);
    }
    mapping_ = nullptr;
}

}  // namespace vektest
