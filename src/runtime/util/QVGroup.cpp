#include "runtime/util/QVGroup.h"

#include "runtime/base/natural_cause.h"
#include "runtime/base/operation.h"
#include "runtime/util/DomainSession.h"
#include "runtime/util/account_list.h"

namespace {

host::Answer<host::Done> fill(QVArray<QVGroup*, QVGroup*>& list, const host::AccountSource& source) {
    return fillAccountList(list,
                           [&source](std::uint64_t cursor) { return host::localGroups(source, cursor); });
}

}  // namespace

int QVGroup::mf_getComputerGroupList(QVArray<QVGroup*, QVGroup*>& list) {
    if (operation::answersZero(L"QVGroup::mf_getComputerGroupList")) return 0;
    const auto result = fill(list, {});
    if (result.found()) return 1;
    logNaturalCause(L"QVGroup::mf_getComputerGroupList", result, L"the local groups cannot be listed");
    return 0;
}

int QVGroup::mf_getDomainLocalGroupList(QVArray<QVGroup*, QVGroup*>& list) {
    if (operation::answersZero(L"QVGroup::mf_getDomainLocalGroupList")) return 0;
    const auto result =
        DomainSession::ask([&list](const host::AccountSource& source) { return fill(list, source); });
    if (result.found()) return 1;
    logNaturalCause(L"QVGroup::mf_getDomainLocalGroupList", result,
                    L"the domain-local groups cannot be listed");
    return 0;
}
