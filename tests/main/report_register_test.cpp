#include "main/report_register.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(ReportRegister, HasTheReportsInTheOrderInWhichTheyRun) {
    const std::vector<std::wstring> expected = {
        L"installdir", L"files",   L"clclog",   L"guilog",   L"infolog",   L"servicelog", L"filter",
        L"allquota",   L"quota",   L"locusers", L"domusers", L"locgroups", L"domgroups",  L"locusergr",
        L"domusergr",  L"pelmora", L"ip",       L"win",      L"wincp",     L"disk",       L"cluster",
        L"user",       L"version", L"driver",   L"domain"};
    std::vector<std::wstring> keywords;
    for (const Report& report : reports())
        keywords.emplace_back(report.keyword);
    EXPECT_EQ(keywords, expected);
}

TEST(ReportRegister, OnlyTheDomainsListingsAreLeftOutOfAll) {
    std::vector<std::wstring> leftOut;
    for (const Report& report : reports()) {
        if (!report.inAll) leftOut.emplace_back(report.keyword);
    }
    EXPECT_EQ(leftOut, (std::vector<std::wstring>{L"domusers", L"domgroups", L"domusergr"}));
}

TEST(ReportRegister, EveryRowReturnsATextOrPrintsByItself) {
    for (const Report& report : reports()) {
        EXPECT_NE(report.text != nullptr, report.print != nullptr) << report.keyword;
    }
}

TEST(ReportRegister, FlagsArePresetWhereNothingIsKnownYet) {
    std::vector<std::wstring> preset;
    for (const Report& report : reports()) {
        if (report.preset != 0) preset.emplace_back(report.keyword);
    }
    EXPECT_EQ(preset, (std::vector<std::wstring>{L"installdir", L"clclog", L"guilog", L"infolog",
                                                 L"servicelog", L"filter"}));
}

TEST(ReportRegister, ThreeReportsNeverShowInErrorsOnlyMode) {
    std::vector<std::wstring> never;
    for (const Report& report : reports()) {
        if (report.inErrorsOnly == InErrorsOnly::never) never.emplace_back(report.keyword);
    }
    EXPECT_EQ(never, (std::vector<std::wstring>{L"ip", L"wincp", L"cluster"}));
}

}  // namespace
