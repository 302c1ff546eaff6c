#include "runtime/archiver/QVConfigurator.h"

#include "tests/runtime/error_of.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

constexpr const char* product = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvel\\Orlix\\CurrentVersion";

class QVConfiguratorTest : public DescribedMachine {
protected:
    /// Describes the backup API's key of a 64-bit system, with this line.
    static void describeApi(const std::string& line) {
        describe(std::string("[registry]\n") + product + "\\Api64]\n" + line + "\n");
    }
    static bool isSupported() {
        QVConfigurator* const configurator = QVConfigurator::mf_createInstance(QVBackend::QSX);
        const bool supported = configurator->mf_isAPISupported() != 0;
        QVConfigurator::mf_deleteInstance(configurator);
        return supported;
    }
    static bool isSupported(const std::string& version) {
        describeApi("\"PtfLevel\"=\"" + version + "\"");
        return isSupported();
    }
    static std::wstring errorWith(const std::string& line) {
        describeApi(line);
        return errorOf(
            [] { QVConfigurator::mf_deleteInstance(QVConfigurator::mf_createInstance(QVBackend::QSX)); });
    }
};

TEST_F(QVConfiguratorTest, TheLowestVersionIsSupportedTheHighestIsNot) {
    EXPECT_FALSE(isSupported("0"));
    EXPECT_FALSE(isSupported("6.0.255.255"));
    EXPECT_TRUE(isSupported("6.1.0.0"));
    EXPECT_TRUE(isSupported("6.99.99.99"));
    EXPECT_FALSE(isSupported("7.0.0.0"));
    EXPECT_FALSE(isSupported("7.0.0.1"));
}

TEST_F(QVConfiguratorTest, VersionsAreComparedNumberByNumber) {
    EXPECT_TRUE(isSupported("6.10"));
    EXPECT_FALSE(isSupported("10.1"));
    EXPECT_TRUE(isSupported("6.1"));
    EXPECT_FALSE(isSupported("6"));
    EXPECT_FALSE(isSupported("7"));
    EXPECT_TRUE(isSupported(" 6.01.05.002 "));
}

TEST_F(QVConfiguratorTest, TheRangeIsTold) {
    describeApi("\"PtfLevel\"=\"6.1.5.2\"");
    QVConfigurator* const configurator = QVConfigurator::mf_createInstance(QVBackend::QSX);
    EXPECT_EQ(configurator->mf_getRequiredAPIVersionMin(), L"6.1.0.0");
    EXPECT_EQ(configurator->mf_getRequiredAPIVersionMax(), L"7.0.0.0");
    QVConfigurator::mf_deleteInstance(configurator);
}

TEST_F(QVConfiguratorTest, AVersionThatCannotBeDeterminedIsAnError) {
    EXPECT_EQ(errorWith(""), L"Operation failed: the backup API is not installed");
    EXPECT_TRUE(holds(errorWith("\"PtfLevel\"=refused"),
                      L"the version of the backup API cannot be read, system error 5: "));
    EXPECT_TRUE(holds(errorWith("\"PtfLevel\"=dword:00000006"),
                      L"the version of the backup API is REG_DWORD, but a text was expected"));
    for (const char* text : {"", "six", "6.x", "6.1.", "6.1.5.2.1", "6.1 beta", "-6.1", "4294967296"}) {
        EXPECT_TRUE(holds(errorWith(std::string("\"PtfLevel\"=\"") + text + "\""),
                          L"' is not a version of the backup API"))
            << text;
    }
}

TEST_F(QVConfiguratorTest, EachWidthHasItsKey) {
    const std::string both = std::string("[registry]\n") + product + "\\Api]\n\"PtfLevel\"=\"6.2.0.0\"\n" +
                             product + "\\Api64]\n\"PtfLevel\"=\"5.0.0.0\"\n";
    describe(both);
    EXPECT_FALSE(isSupported());
    describe(both + "[system]\n32bit = yes\n");
    EXPECT_TRUE(isSupported());
}

TEST_F(QVConfiguratorTest, ANullPointerIsNoConfigurator) {
    describe("");
    EXPECT_NO_THROW(QVConfigurator::mf_deleteInstance(nullptr));
}

}  // namespace
