#include "runtime/host/windows/buffer.h"

#include <gtest/gtest.h>

namespace {

using host::windows::fill;
using host::windows::Filled;
using host::windows::fillText;
using host::windows::fillTextByLength;

TEST(Fill, AsksAgainWithTheRoomThatIsNeeded) {
    std::vector<BYTE> buffer(4);
    std::vector<DWORD> rooms;
    const Filled filled = fill(buffer, [&](BYTE*, DWORD& size) -> DWORD {
        rooms.push_back(size);
        const bool fits = size >= 100;
        size = fits ? 90 : 100;
        return fits ? ERROR_SUCCESS : ERROR_MORE_DATA;
    });
    EXPECT_EQ(rooms, (std::vector<DWORD>{4, 100}));
    EXPECT_EQ(filled.code, static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(filled.size, 90U);
}

TEST(Fill, DoublesTheRoomWhereNoSizeIsTold) {
    std::vector<BYTE> buffer(4);
    std::vector<DWORD> rooms;
    fill(buffer, [&](BYTE*, DWORD& size) -> DWORD {
        rooms.push_back(size);
        return size < 16 ? ERROR_BUFFER_OVERFLOW : ERROR_SUCCESS;
    });
    EXPECT_EQ(rooms, (std::vector<DWORD>{4, 8, 16}));
}

TEST(Fill, AnyOtherCodeEndsIt) {
    std::vector<BYTE> buffer;
    int times = 0;
    const Filled filled = fill(buffer, [&](BYTE*, DWORD& size) -> DWORD {
        ++times;
        EXPECT_EQ(size, 512U);
        return ERROR_ACCESS_DENIED;
    });
    EXPECT_EQ(times, 1);
    EXPECT_EQ(filled.code, static_cast<DWORD>(ERROR_ACCESS_DENIED));
}

TEST(Fill, WhatNeverFitsIsGivenUp) {
    std::vector<BYTE> buffer(4);
    int times = 0;
    const Filled filled = fill(buffer, [&](BYTE*, DWORD& size) -> DWORD {
        ++times;
        ++size;
        return ERROR_INSUFFICIENT_BUFFER;
    });
    EXPECT_EQ(filled.code, static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(times, 20);
}

TEST(FillText, EndsAtTheTerminator) {
    const auto text = fillText([](wchar_t* units, DWORD&) -> DWORD {
        wcscpy(units, L"abc");
        return ERROR_SUCCESS;
    });
    EXPECT_EQ(text.text, L"abc");
    EXPECT_EQ(fillText([](wchar_t*, DWORD&) -> DWORD { return ERROR_INVALID_HANDLE; }).code,
              static_cast<DWORD>(ERROR_INVALID_HANDLE));
}

TEST(FillTextByLength, TakesTheLengthForTheSizeWhereTheRoomIsTooSmall) {
    const std::wstring longText(1000, L'x');
    const auto text = fillTextByLength([&](wchar_t* units, DWORD size) -> DWORD {
        if (size <= longText.size()) return static_cast<DWORD>(longText.size() + 1);
        wcscpy(units, longText.c_str());
        return static_cast<DWORD>(longText.size());
    });
    EXPECT_EQ(text.code, static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(text.text, longText);
}

TEST(FillTextByLength, NoLengthIsAFailureWithTheLastCode) {
    const auto refused = [](wchar_t*, DWORD) -> DWORD {
        SetLastError(ERROR_ACCESS_DENIED);
        return 0;
    };
    EXPECT_EQ(fillTextByLength(refused).code, static_cast<DWORD>(ERROR_ACCESS_DENIED));
    SetLastError(ERROR_ACCESS_DENIED);
    EXPECT_EQ(fillTextByLength([](wchar_t*, DWORD) -> DWORD { return 0; }).code,
              static_cast<DWORD>(ERROR_INVALID_NAME));
}

}  // namespace
