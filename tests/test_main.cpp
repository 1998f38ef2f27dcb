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

#include <string>

#include "harness.h"

#ifndef _WIN32
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

#ifndef _WIN32
// What the crash handler writes: composed when a test starts, because a
// signal handler may only write what is ready.
char crashNote[1024];
size_t crashNoteLength = 0;
struct sigaction previousSegv, previousBus;

// Writes the note, puts the previous handler back and returns: the faulting
// access runs again and that handler (AddressSanitizer's, or the default
// one that ends the program) takes it.
void onFault(int signal) {
    if (crashNoteLength) {
        ssize_t ignored = write(2, crashNote, crashNoteLength);
        (void)ignored;
    }
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
#ifndef _WIN32
        const std::string note = "\n[ CRASHED  ] " + name + "; rerun with: " + rerunCommand(name) + "\n";
        crashNoteLength = std::min(note.size(), sizeof crashNote);
        memcpy(crashNote, note.data(), crashNoteLength);
#endif
    }
    // On Windows a fault inside a test is a failure of that test (GoogleTest
    // catches structured exceptions), so it is reported here too.
    void OnTestEnd(const ::testing::TestInfo& info) override {
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
#ifndef _WIN32
    vektest::installFaultNote();
#endif
    return RUN_ALL_TESTS();
}
