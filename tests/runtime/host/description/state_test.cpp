#include "runtime/host/description/state.h"

#include <cstdlib>

#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using State = DescribedMachine;

TEST_F(State, IsThatOfTheLastDescription) {
    describe("[system]\ncomputer = FIRST\n[failures]\nQVPath::mf_exists : foreign\n");
    description::countRemoteQuestion();
    EXPECT_EQ(description::machine().system.facts.computerName, L"FIRST");
    EXPECT_EQ(description::directory().label(description::Scope::computer), L"FIRST");
    EXPECT_FALSE(description::failurePlan().empty());
    EXPECT_EQ(description::remoteQuestions(), 1U);
    describe("[system]\ncomputer = SECOND\n");
    EXPECT_EQ(description::machine().system.facts.computerName, L"SECOND");
    EXPECT_EQ(description::directory().label(description::Scope::computer), L"SECOND");
    EXPECT_TRUE(description::failurePlan().empty());
    EXPECT_EQ(description::remoteQuestions(), 0U);
}

TEST_F(State, TheDescriptionIsTheOneThatTheEnvironmentNames) {
    const char* const before = std::getenv("KVXINFO_MACHINE");
    const std::string restored = before != nullptr ? before : "";
    setenv("KVXINFO_MACHINE", "mine.txt", 1);
    EXPECT_EQ(description::descriptionName(), "mine.txt");
    setenv("KVXINFO_MACHINE", "", 1);
    EXPECT_EQ(description::descriptionName(), "sample:machine.txt");
    unsetenv("KVXINFO_MACHINE");
    EXPECT_EQ(description::descriptionName(), "sample:machine.txt");
    if (before != nullptr) setenv("KVXINFO_MACHINE", restored.c_str(), 1);
}

TEST_F(State, AFolderIsDescribedByTheFileInIt) {
    const TemporaryDirectory here;
    std::filesystem::create_directory("mine");
    makeFile("mine/machine.txt", "[system]\ncomputer = MINE\n");
    EXPECT_EQ(description::load(description::RealFiles(), "mine").report(), "");
    EXPECT_EQ(description::machine().system.facts.computerName, L"MINE");
}

}  // namespace
