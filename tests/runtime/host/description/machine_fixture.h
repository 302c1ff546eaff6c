#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "runtime/base/operation.h"
#include "runtime/host/description/state.h"
#include "runtime/host/utf.h"

/// Examines machines that a test describes; afterwards the machine is again the one of the other tests.
class DescribedMachine : public testing::Test {
protected:
    ~DescribedMachine() override {
        description::load(description::RealFiles(), description::descriptionName());
        operation::observed = true;
    }

    /// Examines a machine; its description must hold no mistake.
    static void describe(const std::string& text) {
        const description::Mistakes mistakes = description::loadText(text);
        EXPECT_EQ(mistakes.report(), "");
        operation::observed = true;  // it may plan failures
    }

    /// What is wrong with a description.
    static std::string mistakesOf(const std::string& text) { return description::loadText(text).report(); }
};

/// The folder of the project.
inline std::filesystem::path projectFolder() {
    return std::filesystem::path(__FILE__)
        .parent_path()
        .parent_path()
        .parent_path()
        .parent_path()
        .parent_path();
}

/// Makes an empty folder the current directory as long as it lives, and removes it with all that is in it.
class TemporaryDirectory {
public:
    TemporaryDirectory() : m_before(std::filesystem::current_path()) {
        std::string name = (std::filesystem::temp_directory_path() / "kvxXXXXXX").string();
        m_path = mkdtemp(name.data());
        std::filesystem::current_path(m_path);
    }
    ~TemporaryDirectory() {
        std::filesystem::current_path(m_before);
        std::filesystem::remove_all(m_path);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

private:
    std::filesystem::path m_before, m_path;
};
