#include "runtime/util/QVMain.h"
#include "runtime/util/QVStorage.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

CString listed(QVArray<QVVolume*>& volumes) {
    QVStorage::mf_getVolumes(volumes);
    return formatted(L"%d volumes", volumes.GetSize());
}

void askAbout(int index, const QVVolume& volume) {
    const CString name = formatted(L"volume %d", index);
    askLines(L"QVVolume::mf_toString", name, [&] { return volume.mf_toString(L"    "); });
    ask(L"QVVolume::mf_getFileSystemName", {name}, [&] { return shown(volume.mf_getFileSystemName()); });
    ask(L"QVVolume::mf_getDriveLetter", {name},
        [&] { return shown(CString(std::wstring(1, volume.mf_getDriveLetter()))); });
}

void askIsInitialized(const wchar_t* when) {
    ask(L"QVStorage::mf_isInitialized", {when}, [] { return shown(QVStorage::mf_isInitialized()); });
}

}  // namespace

void askVolumes() {
    askIsInitialized(L"before the start");
    QVArray<QVVolume*> volumes;
    ask(L"QVStorage::mf_getVolumes", {L"before the start"}, [&] { return listed(volumes); });
    ask(L"QVMain::mf_startStorage", {}, [] {
        QVMain::mf_startStorage(0);
        return CString(L"started");
    });
    askIsInitialized(L"after it");
    ask(L"QVStorage::mf_getVolumes", {}, [&] { return listed(volumes); });
    for (int i = 0; i < volumes.GetSize(); ++i)
        askAbout(i, *volumes[i]);
    ask(L"QVStorage::mf_getVolumes", {L"once more, into the same array"}, [&] { return listed(volumes); });
    for (int i = 0; i < 2; ++i)
        ask(L"QVMain::mf_stopStorage", {}, [] { return shown(QVMain::mf_stopStorage()); });
    askIsInitialized(L"after the end");
}

}  // namespace conformance
