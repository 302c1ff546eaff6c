#include "runtime/host/description/file_lookup.h"
#include "runtime/host/description/state.h"
#include "runtime/host/description/windows_path.h"
#include "runtime/host/host.h"

namespace host {

Answer<FileVersion> fileVersion(const std::wstring& given) {
    const std::wstring path = description::untilNul(given);
    if (!description::isDescribedPath(path)) return Answer<FileVersion>::missing();
    const description::LookedUp found = description::lookUp(description::machine(), path);
    if (found.cause.any) return description::answerOf<FileVersion>(found.cause, description::notThere);
    const auto& versions = description::machine().files.versions;
    const auto image = versions.find(found.key);
    if (found.entry == nullptr || image == versions.end()) return Answer<FileVersion>::missing();
    return image->second.cause.any
               ? description::answerOf<FileVersion>(image->second.cause, description::notThere)
               : image->second.version;
}

}  // namespace host
