#include "runtime/host/description/state.h"

#include <cstdlib>
#include <memory>

#include "runtime/host/description/parse.h"

namespace description {

namespace {

struct State {
    State(Machine described, Mistakes& mistakes)
        : machine(std::move(described)), directory(machine, mistakes), plan(machine.failures) {}

    Machine machine;
    Directory directory;
    FailurePlan plan;
    std::uint64_t remoteQuestions = 0;
};

std::unique_ptr<State> current;

State& state() {
    if (!current) load(RealFiles(), descriptionName());
    return *current;
}

}  // namespace

const Machine& machine() {
    return state().machine;
}

const Directory& directory() {
    return state().directory;
}

FailurePlan& failurePlan() {
    return state().plan;
}

std::uint64_t remoteQuestions() {
    return state().remoteQuestions;
}

void countRemoteQuestion() {
    ++state().remoteQuestions;
}

std::string descriptionName() {
    const char* name = std::getenv("KVXINFO_MACHINE");
    return name != nullptr && *name != '\0' ? name : std::string(samplePrefix) + "machine.txt";
}

Mistakes load(const SourceFiles& files, const std::string& name) {
    Mistakes mistakes;
    Machine described = parseMachine(files, name, mistakes);
    current = std::make_unique<State>(std::move(described), mistakes);
    return mistakes;
}

Mistakes loadText(std::string text) {
    return load(MemoryFiles("machine.txt", std::move(text)), "machine.txt");
}

}  // namespace description
