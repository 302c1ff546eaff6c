#include "runtime/host/description/section.h"

#include <gtest/gtest.h>

#include "runtime/host/utf.h"

namespace {

using description::Item;
using description::Mistakes;

/// The items of a section with these lines, each as "LINE:TEXT".
std::vector<std::string> itemsOf(const std::vector<const wchar_t*>& lines) {
    description::Section section;
    section.file = "machine.txt";
    for (const wchar_t* line : lines)
        section.lines.push_back({section.lines.size() + 1, line});
    std::vector<std::string> items;
    description::forEachItem(section, [&](const Item& item) {
        EXPECT_EQ(item.place.file, "machine.txt");
        items.push_back(std::to_string(item.place.line) + ":" + host::toUtf8(item.text));
    });
    return items;
}

Item item(const wchar_t* text) {
    return {text, {"machine.txt", 3}};
}

using Items = std::vector<std::string>;

TEST(Items, AreTheLinesWithoutBlanksAndComments) {
    EXPECT_EQ(itemsOf({L"  a = 1  ", L"", L"# comment", L" \t", L"\t# comment", L"b"}),
              (Items{"1:a = 1", "6:b"}));
}

TEST(Items, ACommentBeginsBehindTwoBlanks) {
    EXPECT_EQ(itemsOf({L"a  # comment", L"a # 1", L"a# 1", L"a \t# comment"}),
              (Items{"1:a", "2:a # 1", "3:a# 1", "4:a"}));
}

TEST(Items, QuotesProtectWhatLooksLikeAComment) {
    EXPECT_EQ(itemsOf({L"\"a  # b\"  # comment", L"\"a  # comment"}), (Items{"1:\"a  # b\"", "2:\"a"}));
}

TEST(SettingOf, SplitsAtTheFirstEqualsSign) {
    Mistakes mistakes;
    const auto setting = description::settingOf(item(L"Page Size =  a = b "), mistakes, "page size = 1");
    ASSERT_TRUE(setting);
    EXPECT_EQ(setting->key, L"page size");
    EXPECT_EQ(setting->name, L"Page Size");
    EXPECT_EQ(setting->value, L"a = b");
    EXPECT_FALSE(mistakes.any());
    EXPECT_EQ(description::settingOf(item(L"name="), mistakes, "")->value, L"");
}

TEST(SettingOf, ALineWithoutNameOrSignIsAMistake) {
    Mistakes mistakes;
    EXPECT_FALSE(description::settingOf(item(L"computer"), mistakes, "computer = WS01"));
    EXPECT_FALSE(description::settingOf(item(L"= WS01"), mistakes, "computer = WS01"));
    EXPECT_EQ(mistakes.report(),
              "machine.txt:3: \"computer\" is no setting, expected one like computer = WS01\n"
              "machine.txt:3: \"= WS01\" is no setting, expected one like computer = WS01\n");
}

TEST(CauseLineOf, HoldsTheCauseAndWhatItIsAbout) {
    Mistakes mistakes;
    EXPECT_TRUE(description::isCause(item(L"! error 21 D:")));
    EXPECT_FALSE(description::isCause(item(L"error 21 D:")));
    const auto line = description::causeLineOf(item(L"! error 21 C:\\a b"), mistakes);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->cause.code, 21U);
    EXPECT_FALSE(line->cause.refused);
    EXPECT_EQ(line->what, L"C:\\a b");
    EXPECT_TRUE(description::causeLineOf(item(L"!refused"), mistakes)->cause.refused);
    EXPECT_FALSE(mistakes.any());
    EXPECT_FALSE(description::causeLineOf(item(L"! broken"), mistakes));
    EXPECT_TRUE(mistakes.any());
}

TEST(RemovedName, StandsBehindAMinusAndABlank) {
    EXPECT_EQ(description::removedName(item(L"-  Staff")), L"Staff");
    EXPECT_FALSE(description::removedName(item(L"-Staff")));
    EXPECT_FALSE(description::removedName(item(L"Staff")));
}

}  // namespace
