#include "runtime/util/QVStorage.h"

#include <memory>

#include "runtime/host/host.h"
#include "tests/runtime/error_of.h"

namespace {

class QVStorageTest : public testing::Test {
protected:
    QVStorageTest() { QVStorage::stop(); }
    ~QVStorageTest() override { QVStorage::stop(); }

    static int volumeCount() {
        QVArray<QVVolume*> volumes;
        QVStorage::mf_getVolumes(volumes);
        return volumes.GetSize();
    }
};

TEST_F(QVStorageTest, IsInitializedBetweenStartAndStop) {
    EXPECT_EQ(QVStorage::mf_isInitialized(), 0);
    QVStorage::start();
    EXPECT_NE(QVStorage::mf_isInitialized(), 0);
    QVStorage::stop();
    EXPECT_EQ(QVStorage::mf_isInitialized(), 0);
    QVStorage::start();
    EXPECT_NE(QVStorage::mf_isInitialized(), 0);
}

TEST_F(QVStorageTest, StopsWhatNeverStarted) {
    QVStorage::stop();
    QVStorage::stop();
    EXPECT_EQ(QVStorage::mf_isInitialized(), 0);
}

TEST_F(QVStorageTest, KnowsNoVolumesUnlessStarted) {
    const std::wstring refusal = L"Operation failed: the storage service was not started";
    EXPECT_EQ(errorOf([] { volumeCount(); }), refusal);
    QVStorage::start();
    EXPECT_EQ(errorOf([] { volumeCount(); }), L"");
    QVStorage::stop();
    EXPECT_EQ(errorOf([] { volumeCount(); }), refusal);
}

TEST_F(QVStorageTest, AppendsEveryVolumeOfTheSystem) {
    const auto expected = host::volumes();
    ASSERT_TRUE(expected.found());
    ASSERT_FALSE(expected.value.empty());
    QVStorage::start();
    EXPECT_EQ(volumeCount(), static_cast<int>(expected.value.size()));

    const auto own = std::make_unique<QVVolume>(host::VolumeFacts{});
    QVArray<QVVolume*> volumes;
    volumes.Add(own.get());
    QVStorage::mf_getVolumes(volumes);
    ASSERT_EQ(volumes.GetSize(), 1 + static_cast<int>(expected.value.size()));
    EXPECT_EQ(volumes[0], own.get());
    ASSERT_TRUE(expected.value[0].letter);
    EXPECT_EQ(volumes[1]->mf_getDriveLetter(), *expected.value[0].letter);
}

TEST_F(QVStorageTest, AVolumeIsTheSameObjectUntilTheServiceIsStopped) {
    QVStorage::start();
    QVArray<QVVolume*> first, second;
    QVStorage::mf_getVolumes(first);
    QVStorage::mf_getVolumes(second);
    ASSERT_GT(first.GetSize(), 0);
    ASSERT_EQ(first.GetSize(), second.GetSize());
    for (int i = 0; i < first.GetSize(); ++i)
        EXPECT_EQ(first[i], second[i]);
}

}  // namespace
