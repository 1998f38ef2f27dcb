// The test program's main: reseeds the random inputs before every test and
// tells how to bring a failure back.
//
// Each test draws from a generator seeded with the base seed and its own
// full name, so a rerun of one test with --gtest_filter draws exactly the
// inputs it drew in the full run.  The base seed is printed at the start;
// a failed test, and a test that crashes (a read past a guard page ends the
// program), prints the command line that reruns it with the same inputs.
#include <gtest/gtest.h>
#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <string>

#include "harness.h"

#ifdef _WIN32
#    ifndef NOMINMAX
#        define NOMINMAX
#    endif
#    include <windows.h>
#else
#    include <signal.h>
#    include <unistd.h>
#endif

namespace vektest {
namespace {

std::string program = "vek_tests";

std::string rerunCommand(const std::string& test) {
    std::string line = "VEK_TEST_SEED=" + std::to_string(baseSeed());
    if (lightProfile()) line = "VEK_TEST_PROFILE=light " + line;
    return line + " " + program + " --gtest_filter='" + test + "'";
}

// What a fault handler writes: composed when a test starts, because a
// handler should only write what is ready.
char crashNote[1024];
size_t crashNoteLength = 0;

#ifdef _WIN32
// A fault is not caught by a MinGW build of GoogleTest: it ends the program
// through this filter, which hands it on to the default report.
LONG WINAPI onFault(EXCEPTION_POINTERS*) {
    DWORD written;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), crashNote, static_cast<DWORD>(crashNoteLength), &written, nullptr);
    return EXCEPTION_CONTINUE_SEARCH;
}

void installFaultNote() { SetUnhandledExceptionFilter(onFault); }
#else
struct sigaction previousSegv, previousBus;

// Writes the note, puts the previous handler back and returns: the faulting
// access runs again and that handler (AddressSanitizer's, or the default
// one that ends the program) takes it.
void onFault(int signal) {
    ssize_t ignored = write(2, crashNote, crashNoteLength);
    (void)ignored;
    sigaction(signal, signal == SIGSEGV ? &previousSegv : &previousBus, nullptr);
}

void installFaultNote() {
    struct sigaction action = {};
    action.sa_handler = onFault;
    sigemptyset(&action.sa_mask);
    sigaction(SIGSEGV, &action, &previousSegv);
    sigaction(SIGBUS, &action, &previousBus);
}
#endif

class SeedListener : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo& info) override {
        const std::string name = std::string(info.test_suite_name()) + "." + info.name();
        reseed(name);
        const std::string note = "\n[ CRASHED  ] " + name + "; rerun with: " + rerunCommand(name) + "\n";
        crashNoteLength = std::min(note.size(), sizeof crashNote);
        memcpy(crashNote, note.data(), crashNoteLength);
    }
    void OnTestEnd(const ::testing::TestInfo& info) override {
        crashNoteLength = 0;
        if (!info.result()->Failed()) return;
        const std::string name = std::string(info.test_suite_name()) + "." + info.name();
        printf("[   SEED   ] rerun with: %s\n", rerunCommand(name).c_str());
        fflush(stdout);
    }
};

}  // namespace
}  // namespace vektest

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (argc > 0) vektest::program = argv[0];
    printf("Random inputs from VEK_TEST_SEED=%llu\n", static_cast<unsigned long long>(vektest::baseSeed()));
    ::testing::UnitTest::GetInstance()->listeners().Append(new vektest::SeedListener);
    vektest::installFaultNote();
    return RUN_ALL_TESTS();
}
