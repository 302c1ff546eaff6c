#pragma once

/// Tests over machines that they describe themselves.

#include <gtest/gtest.h>

#include <string>

#include "runtime/base/operation.h"
#include "runtime/host/described/state.h"

class QuotaMachine : public testing::Test {
protected:
    ~QuotaMachine() override {
        described::load(described::RealFiles(), described::descriptionName());
        operation::observed = true;
    }

    /// Examines the machine of this description from now on; a mistake in it fails the test.
    void describe(const std::string& text) {
        const described::Mistakes mistakes = described::loadText(text);
        EXPECT_FALSE(mistakes.any()) << mistakes.report();
        operation::observed = true;
    }
};
