#include "runtime/util/QVVolume.h"

#include "runtime/host/host.h"
#include "tests/runtime/error_of.h"

namespace {

using Text = host::Answer<std::wstring>;
using Size = host::Answer<std::uint64_t>;

constexpr const wchar_t* device = L"\\\\?\\Volume{0b5c7a12-93de-4f68-a1c4-52e7d09b6f33}\\";

host::VolumeFacts systemDrive() {
    host::VolumeFacts facts;
    facts.device = device;
    facts.letter = L'C';
    facts.type = host::DriveType::fixed;
    facts.fileSystem = Text(L"NTFS");
    facts.label = Text(L"System");
    facts.sizeBytes = Size(100ULL << 30);
    facts.freeBytes = Size(40ULL << 30);
    return facts;
}

/// An optical drive without a disc.
host::VolumeFacts emptyDrive() {
    host::VolumeFacts facts;
    facts.letter = L'D';
    facts.type = host::DriveType::optical;
    facts.fileSystem = Text::failed(21);
    facts.label = Text::failed(21);
    facts.sizeBytes = Size::failed(21);
    facts.freeBytes = Size::failed(21);
    return facts;
}

std::wstring mounted(std::wstring folder) {
    return L"> Mounted in:  " + folder + L"\r\n";
}

TEST(QVVolumeTest, TellsEveryFactThatIsKnown) {
    EXPECT_EQ(QVVolume(systemDrive()).mf_toString(L"> ").units(),
              std::wstring(L"> Drive:       C:\r\n> Volume:      ") + device +
                  L"\r\n> Label:       System\r\n> Type:        fixed\r\n> File system: NTFS"
                  L"\r\n> Size:        100 GB\r\n> Free:        40 GB");
    EXPECT_EQ(QVVolume(systemDrive()).mf_getFileSystemName(), L"NTFS");
    EXPECT_EQ(QVVolume(systemDrive()).mf_getDriveLetter(), L'C');
}

TEST(QVVolumeTest, OneReasonIsToldOnce) {
    const std::wstring reason = L"unknown, system error 21: " + host::systemErrorText(21);
    EXPECT_EQ(QVVolume(emptyDrive()).mf_toString(L"").units(),
              L"Drive:       D:\r\nType:        optical\r\nFile system: " + reason);
    host::VolumeFacts locked = emptyDrive();
    locked.freeBytes = Size::refused(5);
    EXPECT_EQ(QVVolume(locked).mf_toString(L"").units(),
              L"Drive:       D:\r\nType:        optical\r\nFile system: " + reason +
                  L"\r\nFree:        unknown, system error 5: " + host::systemErrorText(5));
}

TEST(QVVolumeTest, AnEmptyLabelIsAnAnswer) {
    host::VolumeFacts facts = systemDrive();
    facts.label = Text(L"");
    EXPECT_TRUE(holds(QVVolume(facts).mf_toString(L"").units(), L"Label:       (none)\r\n"));
}

TEST(QVVolumeTest, WithoutALetterItsFoldersAreTold) {
    host::VolumeFacts facts = systemDrive();
    facts.letter.reset();
    facts.folders = {L"C:\\data\\", L"C:\\mnt\\data\\"};
    const QVVolume volume(facts);
    EXPECT_EQ(volume.mf_toString(L"> ").units().substr(0, 2 * mounted(L"").size() + 8 + 12),
              mounted(L"C:\\data\\") + mounted(L"C:\\mnt\\data\\"));
    EXPECT_EQ(errorOf([&] { volume.mf_getDriveLetter(); }),
              L"Path query failed: volume C:\\data\\ has no drive letter");
}

TEST(QVVolumeTest, WithoutAnyPlaceItIsNamedByItsDevice) {
    host::VolumeFacts facts = systemDrive();
    facts.letter.reset();
    const QVVolume volume(facts);
    EXPECT_TRUE(holds(volume.mf_toString(L"").units(),
                      std::wstring(L"Drive:       (none)\r\nVolume:      ") + device));
    EXPECT_EQ(errorOf([&] { volume.mf_getDriveLetter(); }),
              std::wstring(L"Path query failed: volume ") + device + L" has no drive letter");
}

TEST(QVVolumeTest, AFileSystemThatIsNotToldIsAnError) {
    EXPECT_TRUE(holds(errorOf([] { QVVolume(emptyDrive()).mf_getFileSystemName(); }),
                      L"System call failed: the file system of D: is unknown, system error 21: "));
    host::VolumeFacts facts = emptyDrive();
    facts.fileSystem = Text::missing();
    EXPECT_TRUE(holds(errorOf([&] { QVVolume(facts).mf_getFileSystemName(); }),
                      L"System call failed: the file system of D: is unknown, system error 1005: "));
}

TEST(QVVolumeTest, EveryTypeHasItsWord) {
    using host::DriveType;
    const std::pair<DriveType, const wchar_t*> words[] = {
        {DriveType::unknown, L"unknown"},     {DriveType::fixed, L"fixed"},
        {DriveType::removable, L"removable"}, {DriveType::network, L"network"},
        {DriveType::optical, L"optical"},     {DriveType::ramDisk, L"RAM disk"}};
    for (const auto& [type, word] : words) {
        host::VolumeFacts facts = systemDrive();
        facts.type = type;
        EXPECT_TRUE(
            holds(QVVolume(facts).mf_toString(L"").units(), std::wstring(L"Type:        ") + word + L"\r\n"));
    }
}

}  // namespace
