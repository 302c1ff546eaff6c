#pragma once

/// What the tests over made-up system libraries share.

#include <gtest/gtest.h>

#include <bit>
#include <string>
#include <vector>

#include "runtime/host/host.h"
#include "runtime/host/os.h"
#include "runtime/host/paging.h"

inline const host::AccountSource controller{L"DC01"};

class MadeUp : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(counter(L"netapi32.dll", "KvxOutstanding"), nullptr)
            << "the made-up libraries are not in place";
        ASSERT_NE(counter(L"clusapi.dll", "KvxOpenHandles"), nullptr);
    }
    void TearDown() override {
        for (const std::wstring& name : m_set)
            SetEnvironmentVariableW(name.c_str(), nullptr);
        EXPECT_EQ(counter(L"netapi32.dll", "KvxOutstanding")(), 0) << "memory was not given back";
        EXPECT_EQ(counter(L"clusapi.dll", "KvxOpenHandles")(), 0) << "handles were not given back";
    }

    void set(const std::wstring& name, const std::wstring& value) {
        SetEnvironmentVariableW(name.c_str(), value.c_str());
        m_set.push_back(name);
    }

    static std::vector<host::Account> list(
        host::Answer<host::AccountPage> (*fetch)(const host::AccountSource&, std::uint64_t),
        host::Answer<host::Done>& ended) {
        std::vector<host::Account> found;
        ended = host::readPages<host::Account>(
            [&](std::uint64_t cursor) { return fetch(controller, cursor); },
            [&](host::Account account) { found.push_back(std::move(account)); });
        return found;
    }

    /// How many calls of the network library would have gone to another computer so far.
    static long remoteCalls() { return counter(L"netapi32.dll", "KvxCalls")(); }

private:
    using Counter = long (*)();
    static Counter counter(const wchar_t* library, const char* name) {
        const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        return std::bit_cast<Counter>(module != nullptr ? GetProcAddress(module, name) : nullptr);
    }

    std::vector<std::wstring> m_set;
};
