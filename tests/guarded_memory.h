// Test memory that ends at a page no one may touch.
//
// A GuardedBlock is `size` bytes whose last byte is the last byte before a
// no-access page (mmap and mprotect on POSIX, VirtualAlloc and
// VirtualProtect on Windows); another such page sits before the block's
// first page.  A kernel that reads or writes past the end faults at once,
// natively, under qemu-i386 and under Wine alike, where no sanitizer runs.
// In a sanitizer build the bytes between the first page and the block are
// also poisoned, so AddressSanitizer reports reads just before the block as
// it did for heap blocks.
//
// The suite allocates many short-lived buffers, so mappings are not given
// back to the system: a released one waits for the next block of its size
// class (up to a fixed total).  A block's bytes are unspecified, like
// new[]'s, and its user fills them; the 64 bytes before it always start out
// the same, so what an earlier test left there cannot make a filtered rerun
// of a kernel that reads them differ from the full run.
#ifndef VEK_TESTS_GUARDED_MEMORY_H
#define VEK_TESTS_GUARDED_MEMORY_H

#include <stddef.h>

#include <string>

namespace vektest {

class GuardedBlock {
public:
    explicit GuardedBlock(size_t size);
    ~GuardedBlock();
    GuardedBlock(GuardedBlock&& other) noexcept;
    GuardedBlock& operator=(GuardedBlock&& other) noexcept;
    GuardedBlock(const GuardedBlock&) = delete;
    GuardedBlock& operator=(const GuardedBlock&) = delete;

    unsigned char* data() const { return data_; }  // data() + size() is the no-access page
    size_t size() const { return size_; }

private:
    void release();
    unsigned char* mapping_ = nullptr;  // the leading no-access page
    size_t pages_ = 0;                  // usable pages between the two guard pages
    unsigned char* data_ = nullptr;
    size_t size_ = 0;
};

// Marks bytes that a kernel must not touch for AddressSanitizer (no-ops in
// other builds).  Only whole 8-byte granules are poisoned, except that a
// region ending at a page boundary is poisoned from its exact first byte.
void poisonForSanitizer(const void* p, size_t n);
void unpoisonForSanitizer(const void* p, size_t n);

// A fault (a read past a guard page) ends the test program; the note set
// last is written to stderr first.  installFaultNote() hooks the fault
// (a signal handler on POSIX, which then hands the fault on to the handler
// before it, AddressSanitizer's or the default one; an unhandled-exception
// filter on Windows, where MinGW's GoogleTest does not catch it).
void setFaultNote(const std::string& note);
void installFaultNote();

}  // namespace vektest

#endif
