#include "runtime/util/QVStorage.h"
#include "tests/runtime/error_of.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

class QVStorageDescribed : public DescribedMachine {
protected:
    QVStorageDescribed() { QVStorage::stop(); }
    ~QVStorageDescribed() override { QVStorage::stop(); }

    static std::wstring letters() {
        QVArray<QVVolume*> volumes;
        QVStorage::mf_getVolumes(volumes);
        std::wstring found;
        for (int i = 0; i < volumes.GetSize(); ++i)
            found += volumes[i]->mf_getDriveLetter();
        return found;
    }
};

TEST_F(QVStorageDescribed, TheSystemIsAskedOnceAfterEachStart) {
    describe("[volumes]\nD: = fixed NTFS\nC: = fixed NTFS\n");
    QVStorage::start();
    EXPECT_EQ(letters(), L"CD");
    describe("[volumes]\nE: = fixed NTFS\n");
    EXPECT_EQ(letters(), L"CD");
    QVStorage::stop();
    QVStorage::start();
    EXPECT_EQ(letters(), L"E");
}

TEST_F(QVStorageDescribed, OneStandsForVolumesThatTheSystemDoesNotList) {
    describe("[volumes]\nC: = fixed NTFS\n! error 5\n");
    QVStorage::start();
    QVArray<QVVolume*> volumes;
    QVStorage::mf_getVolumes(volumes);
    ASSERT_EQ(volumes.GetSize(), 1);
    EXPECT_EQ(volumes[0]->mf_toString(L"  "),
              L"  The volumes cannot be listed, system error 5: Access is denied.");
    EXPECT_TRUE(holds(errorOf([&] { volumes[0]->mf_getFileSystemName(); }), L"system error 5"));
    EXPECT_TRUE(holds(errorOf([&] { volumes[0]->mf_getDriveLetter(); }),
                      L"the drive letter of volume (not listed) is unknown, system error 5"));
    EXPECT_NE(QVStorage::mf_isInitialized(), 0);
}

}  // namespace
