#pragma once

/// A registry key that a test fills itself: a real one on Windows, that of a described machine elsewhere.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "runtime/host/os.h"
#ifndef _WIN32
#include "runtime/host/description/state.h"
#endif

/// The key SOFTWARE\KvxTest of HKEY_LOCAL_MACHINE, there as long as the test; names and texts are ASCII.
class StagedRegistry : public testing::Test {
protected:
    static constexpr const wchar_t* keyPath = L"SOFTWARE\\KvxTest";

#ifdef _WIN32
    void SetUp() override {
        const LSTATUS code = RegCreateKeyExW(HKEY_LOCAL_MACHINE, keyPath, 0, nullptr, 0,
                                             KEY_ALL_ACCESS | KEY_WOW64_64KEY, nullptr, &m_key, nullptr);
        ASSERT_EQ(code, ERROR_SUCCESS);
    }
    void TearDown() override {
        RegCloseKey(m_key);
        RegDeleteKeyExW(HKEY_LOCAL_MACHINE, keyPath, KEY_WOW64_64KEY, 0);
    }

    void stageText(const std::string& name, const std::string& text) {
        const std::wstring units(text.begin(), text.end());
        stage(name, REG_SZ, units.c_str(), (units.size() + 1) * sizeof(wchar_t));
    }
    void stageNumber(const std::string& name, std::uint32_t number) {
        stage(name, REG_DWORD, &number, sizeof number);
    }
    void stageByte(const std::string& name, std::uint8_t byte) {
        stage(name, REG_BINARY, &byte, 1);
    }

    /// Raw data of any type.
    void stage(const std::string& name, DWORD type, const void* bytes, std::size_t size) {
        const std::wstring units(name.begin(), name.end());
        ASSERT_EQ(RegSetValueExW(m_key, units.c_str(), 0, type, static_cast<const BYTE*>(bytes),
                                 static_cast<DWORD>(size)),
                  ERROR_SUCCESS);
    }

private:
    HKEY m_key = nullptr;
#else
    StagedRegistry() {
        stage({});
    }
    ~StagedRegistry() override {
        description::load(description::RealFiles(), description::descriptionName());
    }

    void stageText(const std::string& name, const std::string& text) {
        stage("\"" + name + "\"=\"" + text + "\"\n");
    }
    void stageNumber(const std::string& name, std::uint32_t number) {
        stage("\"" + name + "\"=hex(4):" + hexByte(number) + "," + hexByte(number >> 8) + "," +
              hexByte(number >> 16) + "," + hexByte(number >> 24) + "\n");
    }
    void stageByte(const std::string& name, std::uint8_t byte) {
        stage("\"" + name + "\"=hex:" + hexByte(byte) + "\n");
    }

private:
    static std::string hexByte(std::uint32_t number) {
        constexpr const char* digits = "0123456789abcdef";
        return {digits[number >> 4 & 0xF], digits[number & 0xF]};
    }

    void stage(const std::string& line) {
        m_text += line;
        EXPECT_EQ(description::loadText(m_text).report(), "");
    }

    std::string m_text = "[registry]\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\KvxTest]\n";
#endif
};
