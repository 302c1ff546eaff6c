#include "runtime/base/QVVersion.h"

#include "tests/runtime/error_of.h"

namespace {

TEST(QVVersionTest, EachByteIsAField) {
    EXPECT_EQ(QVVersion::mf_VersionNumberToVersionString(0x06010502), L"6.1.5.2");
    EXPECT_EQ(QVVersion::mf_VersionNumberToVersionString(0), L"0.0.0.0");
    EXPECT_EQ(QVVersion::mf_VersionNumberToVersionString(0xFFFFFFFF), L"255.255.255.255");
    EXPECT_EQ(QVVersion::mf_VersionNumberToVersionString(0x0A000001), L"10.0.0.1");
}

TEST(QVVersionTest, PackingIsTheReverse) {
    EXPECT_EQ(QVVersion::pack({6, 1, 5, 2}), 0x06010502U);
    EXPECT_EQ(QVVersion::pack({255, 255, 255, 255}), 0xFFFFFFFFU);
    EXPECT_EQ(QVVersion::mf_VersionNumberToVersionString(QVVersion::pack({1, 20, 0, 255})), L"1.20.0.255");
}

TEST(QVVersionTest, AFieldAbove255IsAnErrorThatNamesTheVersion) {
    const std::wstring text = errorOf([] { QVVersion::pack({6, 1, 5, 256}); });
    EXPECT_EQ(text, L"Operation failed: version 6.1.5.256 cannot be packed");
    EXPECT_EQ(errorOf([] {
                  QVVersion::pack({65535, 0, 0, 0});
              }),
              L"Operation failed: version 65535.0.0.0 cannot be packed");
}

}  // namespace
