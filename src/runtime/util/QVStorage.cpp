#include "runtime/util/QVStorage.h"

#include <memory>
#include <optional>
#include <vector>

#include "runtime/base/natural_cause.h"
#include "runtime/base/operation.h"
#include "runtime/host/host.h"

namespace {

struct Service {
    bool asked = false;
    std::vector<std::unique_ptr<QVVolume>> volumes;
};

std::optional<Service> service;

/// What stands in the list for volumes that are not known: an empty list would say that there are none.
host::VolumeFacts unlisted(const host::Answer<std::vector<host::VolumeFacts>>& answer) {
    host::VolumeFacts volume;
    volume.paths = host::Answer<host::Done>::without(answer);
    volume.fileSystem = host::Answer<std::wstring>::without(answer);
    return volume;
}

void askOnce(Service& current) {
    if (current.asked) return;
    const auto answer = host::volumes();
    if (!answer.found())
        logNaturalCause(L"QVStorage::mf_getVolumes", answer, L"the volumes cannot be listed");
    std::vector<std::unique_ptr<QVVolume>> volumes;
    if (answer.unanswered()) volumes.push_back(std::make_unique<QVVolume>(unlisted(answer)));
    for (const host::VolumeFacts& facts : answer.value)
        volumes.push_back(std::make_unique<QVVolume>(facts));
    current.volumes = std::move(volumes);
    current.asked = true;
}

}  // namespace

int QVStorage::mf_isInitialized() {
    if (operation::answersZero(L"QVStorage::mf_isInitialized")) return 0;
    return service ? 1 : 0;
}

void QVStorage::mf_getVolumes(QVArray<QVVolume*>& volumes) {
    if (operation::answersZero(L"QVStorage::mf_getVolumes")) return;
    if (!service) raise(QVErrno::_E_::Unspecific, L"the storage service was not started");
    askOnce(*service);
    for (const auto& volume : service->volumes)
        volumes.Add(volume.get());
}

void QVStorage::start() {
    service.emplace();
}

void QVStorage::stop() noexcept {
    service.reset();
}
