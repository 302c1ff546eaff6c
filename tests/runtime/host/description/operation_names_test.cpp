#include "runtime/host/description/operation_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>

#include "runtime/host/utf.h"
#include "tests/files.h"
#include "tests/project_folder.h"

namespace {

/// The list of operations and the sources agree: what is described happens, and nothing that happens is
/// refused.
TEST(OperationNames, AreThoseOfTheSources) {
    std::set<std::string> inSources;
    const std::regex begins("answersZero\\(\\s*L\"([^\"]+)\"");
    for (const auto& file :
         std::filesystem::recursive_directory_iterator(projectFolder() / "src" / "runtime")) {
        if (file.path().extension() != ".cpp") continue;
        const std::string source = fileBytes(file.path());
        for (std::sregex_iterator at(source.begin(), source.end(), begins), end; at != end; ++at) {
            inSources.insert((*at)[1].str());
        }
    }
    std::set<std::string> listed;
    for (const description::OperationName& operation : description::operationNames()) {
        if (!operation.ofSystem) listed.insert(host::toUtf8(operation.name));
    }
    EXPECT_EQ(listed, inSources);
}

TEST(OperationNames, OfTheSystemAreDeclared) {
    const std::string text = fileBytes(projectFolder() / "src/runtime/host/described/os_functions.h");
    for (const description::OperationName& operation : description::operationNames()) {
        if (!operation.ofSystem) continue;
        EXPECT_NE(text.find(" " + host::toUtf8(operation.name) + "("), std::string::npos)
            << host::toUtf8(operation.name);
    }
}

TEST(OperationNames, AreFoundAsTheyAreWritten) {
    ASSERT_NE(description::operationNamed(L"QVPath::mf_exists"), nullptr);
    EXPECT_EQ(description::operationNamed(L"QVPath::mf_exists")->name, L"QVPath::mf_exists");
    EXPECT_EQ(description::operationNamed(L"QVPath::MF_EXISTS"), nullptr);
    EXPECT_EQ(description::operationNamed(L"mf_exists"), nullptr);
    EXPECT_EQ(description::operationNamed(L""), nullptr);
}

TEST(OperationNames, StandInTheOrderOfTheAlphabet) {
    const auto& names = description::operationNames();
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end(),
                               [](const auto& left, const auto& right) { return left.name < right.name; }));
}

}  // namespace
