#pragma once

/// What an operation of the runtime throws, as tests look at it.

#include <gtest/gtest.h>

#include <string>

#include "runtime/base/QVErrno.h"

/// The whole text of the `QVErrno` that `act` throws; empty when it throws none.
template <class Act>
std::wstring errorOf(Act act) {
    try {
        act();
    } catch (const QVErrno& error) {
        return error.mf_toString().units();
    }
    return {};
}

/// Whether a text holds another one; a failure shows both.
inline testing::AssertionResult holds(const std::wstring& text, const std::wstring& part) {
    if (!part.empty() && text.find(part) != std::wstring::npos) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << testing::PrintToString(text) << " does not hold " << testing::PrintToString(part);
}
