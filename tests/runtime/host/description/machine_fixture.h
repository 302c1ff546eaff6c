#pragma once

#include <gtest/gtest.h>

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
