#pragma once

/// What the tests over made-up system libraries share.

#include <gtest/gtest.h>

#include <bit>
#include <string>
#include <vector>

#include "runtime/host/host.h"
#include "runtime/host/os.h"
#include "tests/files.h"
#include "tests/runtime/host/listed_accounts.h"

inline const host::AccountSource controller{L"DC01"};

/// A machine of the domain CORP, to which sections are added.
inline const std::string member =
    "[system]\ncomputer = WS01\n"
    "[domain]\njoined = yes\nname = CORP\ndns = corp.example\nsid = S-1-5-21-11-22-33\ncontroller = DC01\n";

class MadeUp : public testing::Test {
protected:
    void SetUp() override {
        // Which machine it is stands fast before the libraries are there: they look at it first.
        describe(member);
        ASSERT_NE(function<long (*)()>(L"netapi32.dll", "KvxOutstanding"), nullptr)
            << "the made-up libraries are not in place";
        ASSERT_NE(function<long (*)()>(L"clusapi.dll", "KvxOpenHandles"), nullptr);
    }
    void TearDown() override {
        EXPECT_EQ(function<long (*)()>(L"netapi32.dll", "KvxOutstanding")(), 0)
            << "memory was not given back";
        EXPECT_EQ(function<long (*)()>(L"clusapi.dll", "KvxOpenHandles")(), 0)
            << "handles were not given back";
    }

    /// From now on the libraries answer for the machine of this description, with these quirks (quirks.h).
    static void describe(const std::string& machine, const std::string& quirks = "") {
        static int number = 0;
        const std::string name =
            (std::filesystem::temp_directory_path() / ("made-up-" + std::to_string(++number))).string();
        makeFile(name + ".txt", machine);
        makeFile(name + ".quirks", quirks);
        SetEnvironmentVariableA("KVX_MADE_UP_MACHINE", (name + ".txt").c_str());
        SetEnvironmentVariableA("KVX_MADE_UP_QUIRKS", (name + ".quirks").c_str());
    }

    template <class Fetch>
    static std::vector<host::Account> list(Fetch fetch, host::Answer<host::Done>& ended,
                                           const host::AccountSource& source = controller) {
        return listedAccounts([&](std::uint64_t cursor) { return fetch(source, cursor); }, ended);
    }

    /// How often a function of the network library was called so far; "remote": how many calls would have
    /// gone to another computer.
    static long calls(const char* name) {
        return function<long (*)(const char*)>(L"netapi32.dll", "KvxCalls")(name);
    }
    static long remoteCalls() { return calls("remote"); }

private:
    template <class Pointer>
    static Pointer function(const wchar_t* library, const char* name) {
        const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        return std::bit_cast<Pointer>(module != nullptr ? GetProcAddress(module, name) : nullptr);
    }
};
