#include "runtime/admin/QVConfigFileBase.h"

#include <vector>

#include "tests/files.h"
#include "tests/runtime/error_of.h"

namespace {

/// Keeps its lines; a line "bad" is a mistake.
class Lines : public QVConfigFileBase {
public:
    Lines() : QVConfigFileBase(L"lines.cfg") {}
    ~Lines() override = default;

    std::vector<std::wstring> m_lines;
    bool m_refuses = false;

private:
    void discard() noexcept override { m_lines.clear(); }
    void checkPath() const override {
        if (m_refuses) raise(QVErrno::_E_::Unspecific, L"not here");
    }
    void parseLine(const ConfigLine& line) override {
        if (line.text == L"bad") throw ConfigMistake{L"bad, expected good"};
        m_lines.push_back(line.text);
    }
};

class QVConfigFileBaseTest : public testing::Test {
protected:
    std::wstring parseError() {
        return errorOf([&] { m_file.mf_parse(); });
    }

    TemporaryDirectory m_here;
    Lines m_file;
};

using Texts = std::vector<std::wstring>;

TEST_F(QVConfigFileBaseTest, HandsOutItsLines) {
    makeFile("lines.cfg", "one\r\ntwo\n");
    EXPECT_EQ(m_file.mf_getPath(), L"lines.cfg");
    m_file.mf_parse();
    EXPECT_EQ(m_file.m_lines, (Texts{L"one", L"two"}));
}

TEST_F(QVConfigFileBaseTest, ForgetsWhatItReadBefore) {
    makeFile("lines.cfg", "one\n");
    m_file.mf_parse();
    makeFile("lines.cfg", "two\n");
    m_file.parse();
    EXPECT_EQ(m_file.m_lines, Texts{L"two"});
    std::filesystem::remove("lines.cfg");
    EXPECT_TRUE(holds(parseError(), L"'lines.cfg' cannot be read, system error 2: "));
    EXPECT_EQ(m_file.m_lines, Texts{});
}

TEST_F(QVConfigFileBaseTest, AMistakeNamesItsLineAndEndsTheReading) {
    makeFile("lines.cfg", "one\n\nbad\ntwo\n");
    EXPECT_EQ(parseError(), L"Operation failed: lines.cfg, line 3: bad, expected good");
    EXPECT_EQ(m_file.m_lines, (Texts{L"one", L""}));
}

TEST_F(QVConfigFileBaseTest, APathThatMayNotBeAskedForIsNotRead) {
    makeFile("lines.cfg", "one\n");
    m_file.m_refuses = true;
    EXPECT_EQ(parseError(), L"Operation failed: not here");
    EXPECT_EQ(m_file.m_lines, Texts{});
}

}  // namespace
