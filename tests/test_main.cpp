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

#include <string>

#include "harness.h"

namespace vektest {
namespace {

std::string program = "vek_tests";

std::string rerunCommand(const std::string& test) {
    std::string line = "VEK_TEST_SEED=" + std::to_string(baseSeed());
    if (lightProfile()) line = "VEK_TEST_PROFILE=light " + line;
    return line + " " + program + " --gtest_filter='" + test + "'";
}

class SeedListener : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo& info) override {
        const std::string name = std::string(info.test_suite_name()) + "." + info.name();
        reseed(name);
        setFaultNote("\n[ CRASHED  ] " + name + "; rerun with: " + rerunCommand(name) + "\n");
    }
    void OnTestEnd(const ::testing::TestInfo& info) override {
        setFaultNote("");
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
