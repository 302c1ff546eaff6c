#include "runtime/host/description/operation_names.h"

#include <algorithm>

namespace description {

const std::vector<OperationName>& operationNames() {
    static const std::vector<OperationName> names = {
        {L"AllocateAndInitializeSid", true},
        {L"CheckTokenMembership", true},
        {L"DeleteFileW", true},
        {L"GetUserNameW", true},
        {L"GetWindowsDirectoryW", true, false, true},
        {L"QVCluster::mf_toString"},
        {L"QVClusterMain::mf_createInstance"},
        {L"QVClusterMain::mf_deleteInstance"},
        {L"QVClusterMain::mf_startCluster"},
        {L"QVClusterMain::mf_startClusterStorage"},
        {L"QVClusterMain::mf_stopCluster"},
        {L"QVClusterMain::mf_stopClusterStorage"},
        {L"QVCmdline::QVCmdline"},
        {L"QVCmdline::mf_getArgument"},
        {L"QVCmdline::mf_getSize"},
        {L"QVConfigFileBase::mf_parse"},
        {L"QVConfigurator::mf_createInstance"},
        {L"QVConfigurator::mf_deleteInstance"},
        {L"QVConfigurator::mf_getRequiredAPIVersionMax"},
        {L"QVConfigurator::mf_getRequiredAPIVersionMin"},
        {L"QVConfigurator::mf_isAPISupported"},
        {L"QVDevice::mf_queryDriverVersion"},
        {L"QVDevice::mf_startDriver"},
        {L"QVDevice::mf_stopDriver"},
        {L"QVDomainController::mf_getDomainName"},
        {L"QVDomainController::mf_getPDCName"},
        {L"QVDomainController::mf_isJoined"},
        {L"QVGroup::mf_getComputerGroupList"},
        {L"QVGroup::mf_getDomainLocalGroupList"},
        {L"QVMain::mf_createInstance"},
        {L"QVMain::mf_deleteInstance"},
        {L"QVMain::mf_startDomainController"},
        {L"QVMain::mf_startLogging"},
        {L"QVMain::mf_startStorage"},
        {L"QVMain::mf_stopDomainController"},
        {L"QVMain::mf_stopLogging"},
        {L"QVMain::mf_stopStorage"},
        {L"QVPath::mf_appendDirectory"},
        {L"QVPath::mf_appendFile"},
        {L"QVPath::mf_exists"},
        {L"QVPath::mf_getAbsolutePath"},
        {L"QVPath::mf_isAbsolutePathName"},
        {L"QVQuota::mf_toString"},
        {L"QVQuotaConfiguration::mf_createInstance"},
        {L"QVQuotaConfiguration::mf_deleteInstance"},
        {L"QVQuotaConfiguration::mf_getQuota"},
        {L"QVQuotaConfiguration::mf_getQuotaTypeString"},
        {L"QVQuotaFile::QVQuotaFile"},
        {L"QVQuotaFile::mf_clear"},
        {L"QVQuotaFile::mf_getConfigFileName"},
        {L"QVRegistry::mf_PathExists"},
        {L"QVRegistry::mf_exists"},
        {L"QVRegistry::mf_getRegistryRoot"},
        {L"QVRegistry::mf_getValue"},
        {L"QVSid::mf_getFullName"},
        {L"QVSid::mf_getSid"},
        {L"QVSid::mf_getSidString"},
        {L"QVSidQuota::mf_getQuota"},
        {L"QVSidQuota::mf_getSid"},
        {L"QVStorage::mf_getVolumes"},
        {L"QVStorage::mf_isInitialized"},
        {L"QVSystem::mf_getDefaultAnsiCodepage"},
        {L"QVSystem::mf_getSystemVersionString"},
        {L"QVSystem::mf_is32Bit"},
        {L"QVSystem::mf_isAtLeastW2003"},
        {L"QVSystem::mf_toString"},
        {L"QVUser::mf_getComputerGroupList"},
        {L"QVUser::mf_getComputerUserList"},
        {L"QVUser::mf_getDomainLocalGroupList"},
        {L"QVUser::mf_getDomainUserList"},
        {L"QVVersion::mf_VersionNumberToVersionString"},
        {L"QVVolume::mf_getDriveLetter"},
        {L"QVVolume::mf_getFileSystemName"},
        {L"QVVolume::mf_toString"},
        {L"_wfopen_s", true, true},
    };
    return names;
}

const OperationName* operationNamed(std::wstring_view name) {
    const std::vector<OperationName>& names = operationNames();
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&](const OperationName& operation) { return operation.name == name; });
    return found == names.end() ? nullptr : &*found;
}

}  // namespace description
