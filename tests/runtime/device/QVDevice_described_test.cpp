#include "runtime/device/QVDevice.h"

#include "tests/runtime/error_of.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

constexpr const char* image = "C:\\Drivers\\filter.sys";

class QVDeviceTest : public DescribedMachine {
protected:
    ~QVDeviceTest() override { QVDevice::mf_stopDriver(); }

    /// Starts the driver of a machine on which it runs.
    static void startOn(const std::string& sections) {
        describe(std::string("[services]\nrkhsmdrv = running ") + image + "\n" + sections);
        QVDevice::mf_startDriver();
    }
    static std::wstring startError(const std::string& services) {
        describe("[services]\n" + services + "\n");
        return errorOf([] { QVDevice::mf_startDriver(); });
    }
    static std::wstring queryError() {
        return errorOf([] { QVDevice::mf_queryDriverVersion(); });
    }
    static std::string imageOfVersion(const std::string& version) {
        return std::string("[files]\n") + image + "\n[versions]\n" + image + " = " + version + "\n";
    }
};

const std::wstring notStarted = L"Operation failed: the driver was not started";

TEST_F(QVDeviceTest, TheVersionIsThatOfTheImageWhichTheServiceNames) {
    startOn(imageOfVersion("6.1.5.2"));
    EXPECT_EQ(QVDevice::mf_queryDriverVersion(), 0x06010502U);
    EXPECT_EQ(QVDevice::mf_queryDriverVersion(), 0x06010502U);
}

TEST_F(QVDeviceTest, OnlyADriverThatRunsIsReached) {
    EXPECT_TRUE(holds(startError(""), L"driver service 'rkhsmdrv' is not installed, system error 1060: "));
    EXPECT_TRUE(holds(startError("rkhsmdrv = stopped"),
                      L"driver service 'rkhsmdrv' does not run (stopped), system error 1062: "));
    EXPECT_TRUE(holds(startError("rkhsmdrv = start pending"), L"does not run (start pending)"));
    EXPECT_TRUE(holds(startError("! error 5 rkhsmdrv"), L"cannot be queried, system error 5: "));
    EXPECT_EQ(queryError(), notStarted);
}

TEST_F(QVDeviceTest, NothingIsAskedOfADriverThatWasNotStarted) {
    describe(std::string("[services]\nrkhsmdrv = running ") + image + "\n" + imageOfVersion("6.1.5.2"));
    EXPECT_EQ(queryError(), notStarted);
    QVDevice::mf_startDriver();
    EXPECT_EQ(queryError(), L"");
    QVDevice::mf_stopDriver();
    EXPECT_EQ(queryError(), notStarted);
}

TEST_F(QVDeviceTest, StopsWhatNeverStartedAndStartsAgain) {
    QVDevice::mf_stopDriver();
    QVDevice::mf_stopDriver();
    startOn(imageOfVersion("7.0.0.1"));
    QVDevice::mf_stopDriver();
    QVDevice::mf_startDriver();
    EXPECT_EQ(QVDevice::mf_queryDriverVersion(), 0x07000001U);
}

TEST_F(QVDeviceTest, AnImageWithoutVersionIsToldFromAMissingOne) {
    startOn("");
    EXPECT_TRUE(holds(queryError(), L"driver image 'C:\\Drivers\\filter.sys' is missing, system error 2: "));
    startOn(std::string("[files]\n") + image + "\n");
    EXPECT_TRUE(
        holds(queryError(), L"driver image 'C:\\Drivers\\filter.sys' has no version, system error 1813: "));
    startOn(imageOfVersion("6.1.5.2") + "[files]\n! refused " + image + "\n");
    EXPECT_TRUE(holds(queryError(),
                      L"the version of driver image 'C:\\Drivers\\filter.sys' cannot be read, "
                      L"system error 5: "));
}

TEST_F(QVDeviceTest, AVersionThatCannotBePackedIsAnError) {
    startOn(imageOfVersion("6.1.5.300"));
    EXPECT_EQ(queryError(), L"Operation failed: version 6.1.5.300 cannot be packed");
}

}  // namespace
