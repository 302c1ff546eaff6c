#include "runtime/host/host.h"
#include "runtime/host/text.h"
#include "runtime/host/windows/buffer.h"
#include "runtime/host/windows/clock.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/library.h"
#include "runtime/host/windows/windows_version.h"

namespace host {

namespace {

constexpr const wchar_t* versionKey = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
constexpr const wchar_t* processorKey = L"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";

std::wstring registryText(const wchar_t* key, const wchar_t* name) {
    const Answer<RegistryValue> answer = registryValue(key, name);
    const bool isText = answer.found() && answer.value.kind == RegistryValue::Kind::text;
    return isText ? std::wstring(trimmed(answer.value.text, L" ")) : std::wstring();
}

std::uint32_t registryNumber(const wchar_t* key, const wchar_t* name) {
    const Answer<RegistryValue> answer = registryValue(key, name);
    return answer.found() && answer.value.kind == RegistryValue::Kind::number ? answer.value.number : 0;
}

/// The processor of the machine, also where this program runs on another one that the system emulates.
WORD nativeMachine() {
    const windows::Function<BOOL(HANDLE, USHORT*, USHORT*)> isWow64Process2{L"kernel32.dll",
                                                                            "IsWow64Process2"};
    USHORT emulated = 0, native = 0;
    if (isWow64Process2 && isWow64Process2(GetCurrentProcess(), &emulated, &native)) return native;
    SYSTEM_INFO info{};
    GetNativeSystemInfo(&info);
    switch (info.wProcessorArchitecture) {
        case PROCESSOR_ARCHITECTURE_AMD64: return IMAGE_FILE_MACHINE_AMD64;
        case PROCESSOR_ARCHITECTURE_INTEL: return IMAGE_FILE_MACHINE_I386;
        case PROCESSOR_ARCHITECTURE_ARM64: return IMAGE_FILE_MACHINE_ARM64;
        default: return IMAGE_FILE_MACHINE_UNKNOWN;
    }
}

std::wstring architectureName(WORD machine) {
    switch (machine) {
        case IMAGE_FILE_MACHINE_AMD64: return L"x64";
        case IMAGE_FILE_MACHINE_ARM64: return L"ARM64";
        case IMAGE_FILE_MACHINE_I386: return L"x86";
        default: return L"unknown";
    }
}

/// What is installed, where the firmware tells; else what the system can use of it.
std::uint64_t memoryBytes() {
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    const std::uint64_t usable = GlobalMemoryStatusEx(&status) ? status.ullTotalPhys : 0;
    ULONGLONG installedKilobytes = 0;
    if (!GetPhysicallyInstalledSystemMemory(&installedKilobytes)) return usable;
    return std::max<std::uint64_t>(usable, installedKilobytes * 1024);
}

std::wstring computerName() {
    return windows::fillText([](wchar_t* units, DWORD& size) -> DWORD {
               const bool known = GetComputerNameExW(ComputerNamePhysicalNetBIOS, units, &size) != 0;
               return known ? ERROR_SUCCESS : GetLastError();
           })
        .text;
}

/// "1252  (ANSI - Latin I)" without the number.
std::wstring codePageName(const std::wstring& full) {
    const std::size_t open = full.find(L'(');
    const std::size_t close = full.rfind(L')');
    if (open == std::wstring::npos || close == std::wstring::npos || close < open) return {};
    return std::wstring(trimmed(std::wstring_view(full).substr(open + 1, close - open - 1), L" "));
}

/// Over all groups; where that is not told, those of this process's group.
std::uint32_t processors() {
    if (const DWORD count = GetActiveProcessorCount(ALL_PROCESSOR_GROUPS); count != 0) return count;
    SYSTEM_INFO info{};
    GetNativeSystemInfo(&info);
    return info.dwNumberOfProcessors;
}

}  // namespace

Answer<SystemFacts> system() {
    const Answer<windows::KernelVersion> version = windows::kernelVersion();
    if (!version.found()) return Answer<SystemFacts>::without(version);
    const WORD machine = nativeMachine();

    SystemFacts facts;
    facts.computerName = computerName();
    facts.windowsName = windows::productName(registryText(versionKey, L"ProductName"), version.value);
    facts.release = registryText(versionKey, L"DisplayVersion");
    if (facts.release.empty()) facts.release = registryText(versionKey, L"ReleaseId");
    facts.major = version.value.major;
    facts.minor = version.value.minor;
    facts.build = version.value.build;
    facts.revision = registryNumber(versionKey, L"UBR");
    facts.server = version.value.role != windows::KernelVersion::Role::workstation;
    facts.is32Bit = machine == IMAGE_FILE_MACHINE_I386;
    facts.architecture = architectureName(machine);
    facts.processorName = registryText(processorKey, L"ProcessorNameString");
    facts.processors = processors();
    facts.memoryBytes = memoryBytes();
    facts.startTime = windows::onTheWall(windows::utcBefore(GetTickCount64()));
    return facts;
}

Answer<CodePageFacts> ansiCodePage() {
    CodePageFacts facts;
    facts.number = GetACP();
    CPINFOEXW info{};
    if (GetCPInfoExW(facts.number, 0, &info)) facts.name = codePageName(info.CodePageName);
    return facts;
}

}  // namespace host
