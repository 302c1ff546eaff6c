/// A kernel driver that stands for the volumes of a described machine, for the tests under Wine: it takes the
/// mount manager's place, and each volume is a device of its own that answers as it is described. What there
/// is stands in the value "Volumes" of the driver's key, as `Description` lays it out.

#include <intrin.h>
// The system's header defines both again.
#define InterlockedBitTestAndSet InterlockedBitTestAndSetOfHeader
#define InterlockedBitTestAndReset InterlockedBitTestAndResetOfHeader
#include <ntifs.h>

#include <mountmgr.h>
#undef InterlockedBitTestAndSet
#undef InterlockedBitTestAndReset

namespace {

constexpr ULONG mostVolumes = 16;
constexpr ULONG mostPaths = 2;

#pragma pack(push, 4)
struct VolumeDescription {
    WCHAR name[52];              ///< "\??\Volume{...}"
    WCHAR paths[mostPaths][32];  ///< "\DosDevices\D:"; empty ones are none
    WCHAR label[34];
    WCHAR fileSystem[18];
    ULONG driveType;         ///< as GetDriveTypeW numbers them
    ULONGLONG size, unused;  ///< in bytes
    NTSTATUS status;         ///< of all questions to the volume
    NTSTATUS pathStatus;     ///< of the question where it is mounted
};

struct Description {
    NTSTATUS status;  ///< of the question which volumes there are
    ULONG count;
    VolumeDescription volumes[mostVolumes];
};
#pragma pack(pop)

/// What Wine asks the mount manager about a drive; part of it by its letter.
struct HostDrive {
    ULONG size, type, fileSystem, serial;
    ULONGLONG hostDevice;
    WCHAR letter;
    USHORT folder, device, label;
};

constexpr ULONG queryHostDrive = CTL_CODE('m', 33, METHOD_BUFFERED, FILE_READ_ACCESS);

Description machine;
DEVICE_OBJECT* manager;

struct Extension {
    const VolumeDescription* volume;  ///< null for the mount manager's device
};

// A driver has no run time to call.

ULONG lengthOf(const WCHAR* text) {
    ULONG length = 0;
    while (text[length] != 0)
        ++length;
    return length * sizeof(WCHAR);
}

void copy(void* to, const void* from, ULONG size) {
    for (ULONG index = 0; index < size; ++index)
        static_cast<volatile char*>(to)[index] = static_cast<const char*>(from)[index];
}

bool equal(const void* left, const void* right, ULONG size) {
    for (ULONG index = 0; index < size; ++index) {
        if (static_cast<const char*>(left)[index] != static_cast<const char*>(right)[index]) return false;
    }
    return true;
}

UNICODE_STRING stringOf(const WCHAR* text) {
    UNICODE_STRING string;
    RtlInitUnicodeString(&string, text);
    return string;
}

NTSTATUS complete(IRP* irp, NTSTATUS status, ULONG_PTR used = 0) {
    irp->IoStatus.Status = status;
    irp->IoStatus.Information = used;
    IoCompleteRequest(irp, IO_NO_INCREMENT);
    return status;
}

// --- The mount manager
// --------------------------------------------------------------------------------------

/// The answer to "which mount points are there", in the caller's buffer of `room` bytes; what does not fit is
/// counted.
class MountPoints {
public:
    MountPoints(void* buffer, ULONG room)
        : m_list(static_cast<MOUNTMGR_MOUNT_POINTS*>(buffer)), m_room(room) {}

    /// Counts a point first: the names stand behind all of them.
    void expect() { ++m_expected; }
    void begin() {
        m_used = static_cast<ULONG>(FIELD_OFFSET(MOUNTMGR_MOUNT_POINTS, MountPoints) +
                                    m_expected * sizeof(MOUNTMGR_MOUNT_POINT));
    }
    void add(const WCHAR* link, const WCHAR* device) {
        MOUNTMGR_MOUNT_POINT point = {};
        point.SymbolicLinkNameLength = static_cast<USHORT>(lengthOf(link));
        point.SymbolicLinkNameOffset = put(link, point.SymbolicLinkNameLength);
        point.UniqueIdLength = point.DeviceNameLength = static_cast<USHORT>(lengthOf(device));
        point.UniqueIdOffset = point.DeviceNameOffset = put(device, point.DeviceNameLength);
        if (m_used <= m_room) m_list->MountPoints[m_added] = point;
        ++m_added;
    }
    NTSTATUS end(ULONG_PTR& used) {
        if (m_room < sizeof(MOUNTMGR_MOUNT_POINTS)) return STATUS_INVALID_PARAMETER;
        const bool fits = m_used <= m_room;
        m_list->Size = m_used;
        m_list->NumberOfMountPoints = fits ? m_added : 0;
        used = fits ? m_used : sizeof(MOUNTMGR_MOUNT_POINTS);
        return fits ? STATUS_SUCCESS : STATUS_BUFFER_OVERFLOW;
    }

private:
    ULONG put(const WCHAR* text, ULONG size) {
        const ULONG at = m_used;
        m_used += size;
        if (m_used <= m_room) copy(reinterpret_cast<char*>(m_list) + at, text, size);
        return at;
    }

    MOUNTMGR_MOUNT_POINTS* m_list;
    ULONG m_room, m_used = 0, m_expected = 0, m_added = 0;
};

struct Name {
    ULONG offset, length;
};

enum class AskedBy { nothing, link, device };

/// By which name a request asks for a volume: one of its links, or what it is behind all of them.
AskedBy nameIn(const void* buffer, ULONG size, Name& name) {
    const auto* request = static_cast<const MOUNTMGR_MOUNT_POINT*>(buffer);
    if (size < sizeof *request) return AskedBy::nothing;
    const Name names[] = {{request->SymbolicLinkNameOffset, request->SymbolicLinkNameLength},
                          {request->UniqueIdOffset, request->UniqueIdLength},
                          {request->DeviceNameOffset, request->DeviceNameLength}};
    for (const Name& given : names) {
        if (given.length == 0 || given.offset > size || given.length > size - given.offset) continue;
        name = given;
        return &given == names ? AskedBy::link : AskedBy::device;
    }
    return AskedBy::nothing;
}

const VolumeDescription* volumeNamed(const char* name, ULONG length) {
    for (ULONG index = 0; index < machine.count; ++index) {
        const VolumeDescription& volume = machine.volumes[index];
        if (length == lengthOf(volume.name) && equal(name, volume.name, length)) return &volume;
    }
    return nullptr;
}

/// Calls `use(link, device)` for each name of the wanted volumes.
template <class Use>
void eachName(const VolumeDescription* wanted, Use use) {
    for (ULONG index = 0; index < machine.count; ++index) {
        const VolumeDescription& volume = machine.volumes[index];
        if (wanted != nullptr && wanted != &volume) continue;
        use(volume.name, volume.name);
        for (const auto& path : volume.paths) {
            if (path[0] != 0) use(path, volume.name);
        }
    }
}

NTSTATUS queryPoints(IRP* irp, const IO_STACK_LOCATION* stack) {
    const auto& request = stack->Parameters.DeviceIoControl;
    void* buffer = irp->AssociatedIrp.SystemBuffer;
    Name name{};
    const AskedBy by = nameIn(buffer, request.InputBufferLength, name);
    const VolumeDescription* wanted =
        by == AskedBy::nothing ? nullptr : volumeNamed(static_cast<char*>(buffer) + name.offset, name.length);
    if (by != AskedBy::nothing && wanted == nullptr) return complete(irp, STATUS_OBJECT_NAME_NOT_FOUND);
    const NTSTATUS status = wanted != nullptr ? wanted->pathStatus : machine.status;
    if (status != STATUS_SUCCESS) return complete(irp, status);
    MountPoints points(buffer, request.OutputBufferLength);
    const auto eachWanted = [&](auto use) {
        eachName(wanted, [&](const WCHAR* link, const WCHAR* device) {
            if (by != AskedBy::link || link == device) use(link, device);
        });
    };
    eachWanted([&](const WCHAR*, const WCHAR*) { points.expect(); });
    points.begin();
    eachWanted([&](const WCHAR* link, const WCHAR* device) { points.add(link, device); });
    ULONG_PTR used = 0;
    const NTSTATUS answered = points.end(used);
    return complete(irp, answered, used);
}

NTSTATUS queryDrive(IRP* irp, const IO_STACK_LOCATION* stack) {
    const auto& request = stack->Parameters.DeviceIoControl;
    auto* drive = static_cast<HostDrive*>(irp->AssociatedIrp.SystemBuffer);
    if (request.InputBufferLength < sizeof *drive || request.OutputBufferLength < sizeof *drive)
        return complete(irp, STATUS_INVALID_PARAMETER);
    constexpr ULONG letterAt = 12;  // "\DosDevices\D:"
    for (ULONG index = 0; index < machine.count; ++index) {
        const VolumeDescription& volume = machine.volumes[index];
        if (volume.paths[0][0] == 0 || (volume.paths[0][letterAt] | 0x20) != (drive->letter | 0x20)) continue;
        *drive = {sizeof *drive, volume.driveType, 0, 0, 0, drive->letter, 0, 0, 0};
        return complete(irp, STATUS_SUCCESS, sizeof *drive);
    }
    return complete(irp, STATUS_NO_SUCH_DEVICE);
}

// --- The volumes
// --------------------------------------------------------------------------------------------

NTSTATUS queryLabel(const VolumeDescription& volume, FILE_FS_VOLUME_INFORMATION& answer, ULONG room,
                    ULONG& used) {
    const ULONG length = lengthOf(volume.label);
    used = FIELD_OFFSET(FILE_FS_VOLUME_INFORMATION, VolumeLabel) + length;
    if (used > room) return STATUS_BUFFER_OVERFLOW;
    answer = {};
    answer.VolumeLabelLength = length;
    copy(answer.VolumeLabel, volume.label, length);
    return STATUS_SUCCESS;
}

NTSTATUS queryFileSystem(const VolumeDescription& volume, FILE_FS_ATTRIBUTE_INFORMATION& answer, ULONG room,
                         ULONG& used) {
    const ULONG length = lengthOf(volume.fileSystem);
    used = FIELD_OFFSET(FILE_FS_ATTRIBUTE_INFORMATION, FileSystemName) + length;
    if (used > room) return STATUS_BUFFER_OVERFLOW;
    answer.FileSystemAttributes = 0;
    answer.MaximumComponentNameLength = 255;
    answer.FileSystemNameLength = length;
    copy(answer.FileSystemName, volume.fileSystem, length);
    return STATUS_SUCCESS;
}

constexpr ULONG sector = 512;

NTSTATUS query(const VolumeDescription& volume, FS_INFORMATION_CLASS wanted, void* buffer, ULONG room,
               ULONG& used) {
    switch (wanted) {
        case FileFsVolumeInformation:
            return queryLabel(volume, *static_cast<FILE_FS_VOLUME_INFORMATION*>(buffer), room, used);
        case FileFsAttributeInformation:
            return queryFileSystem(volume, *static_cast<FILE_FS_ATTRIBUTE_INFORMATION*>(buffer), room, used);
        case FileFsSizeInformation: {
            auto& answer = *static_cast<FILE_FS_SIZE_INFORMATION*>(buffer);
            used = sizeof answer;
            answer.TotalAllocationUnits.QuadPart = static_cast<LONGLONG>(volume.size / sector);
            answer.AvailableAllocationUnits.QuadPart = static_cast<LONGLONG>(volume.unused / sector);
            answer.SectorsPerAllocationUnit = 1;
            answer.BytesPerSector = sector;
            return STATUS_SUCCESS;
        }
        case FileFsFullSizeInformation: {
            auto& answer = *static_cast<FILE_FS_FULL_SIZE_INFORMATION*>(buffer);
            used = sizeof answer;
            answer.TotalAllocationUnits.QuadPart = static_cast<LONGLONG>(volume.size / sector);
            answer.CallerAvailableAllocationUnits.QuadPart = static_cast<LONGLONG>(volume.unused / sector);
            answer.ActualAvailableAllocationUnits = answer.CallerAvailableAllocationUnits;
            answer.SectorsPerAllocationUnit = 1;
            answer.BytesPerSector = sector;
            return STATUS_SUCCESS;
        }
        default: return STATUS_NOT_IMPLEMENTED;
    }
}

const VolumeDescription* volumeOf(DEVICE_OBJECT* device) {
    return static_cast<Extension*>(device->DeviceExtension)->volume;
}

// --- The driver
// ---------------------------------------------------------------------------------------------

NTSTATUS NTAPI open(DEVICE_OBJECT*, IRP* irp) {
    return complete(irp, STATUS_SUCCESS);
}

NTSTATUS NTAPI control(DEVICE_OBJECT* device, IRP* irp) {
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(irp);
    const ULONG code = stack->Parameters.DeviceIoControl.IoControlCode;
    if (volumeOf(device) == nullptr && code == IOCTL_MOUNTMGR_QUERY_POINTS) return queryPoints(irp, stack);
    if (volumeOf(device) == nullptr && code == queryHostDrive) return queryDrive(irp, stack);
    return complete(irp, STATUS_INVALID_DEVICE_REQUEST);
}

NTSTATUS NTAPI queryVolume(DEVICE_OBJECT* device, IRP* irp) {
    const VolumeDescription* volume = volumeOf(device);
    if (volume == nullptr) return complete(irp, STATUS_INVALID_DEVICE_REQUEST);
    const auto& request = IoGetCurrentIrpStackLocation(irp)->Parameters.QueryVolume;
    if (volume->status != STATUS_SUCCESS) return complete(irp, volume->status);
    ULONG used = 0;
    const NTSTATUS status =
        query(*volume, request.FsInformationClass, irp->AssociatedIrp.SystemBuffer, request.Length, used);
    return complete(irp, status, status == STATUS_SUCCESS ? used : 0);
}

constexpr const WCHAR* managerDevice = L"\\Device\\KvxMountPointManager";
constexpr const WCHAR* managerLink = L"\\??\\MountPointManager";
constexpr const WCHAR* managerOfSystem = L"\\Device\\MountPointManager";

DEVICE_OBJECT* makeDevice(DRIVER_OBJECT* driver, const WCHAR* name, const VolumeDescription* volume) {
    UNICODE_STRING string = stringOf(name);
    DEVICE_OBJECT* device = nullptr;
    if (IoCreateDevice(driver, sizeof(Extension), &string, FILE_DEVICE_DISK, 0, FALSE, &device) !=
        STATUS_SUCCESS)
        return nullptr;
    static_cast<Extension*>(device->DeviceExtension)->volume = volume;
    device->Flags |= DO_BUFFERED_IO;
    device->Flags &= ~static_cast<ULONG>(DO_DEVICE_INITIALIZING);
    return device;
}

void point(const WCHAR* link, const WCHAR* device) {
    UNICODE_STRING from = stringOf(link), to = stringOf(device);
    IoDeleteSymbolicLink(&from);
    if (device != nullptr) IoCreateSymbolicLink(&from, &to);
}

void makeVolume(DRIVER_OBJECT* driver, ULONG index) {
    WCHAR name[] = L"\\Device\\KvxVolume_";
    name[sizeof name / sizeof *name - 2] = static_cast<WCHAR>(L'A' + index);
    const VolumeDescription& volume = machine.volumes[index];
    makeDevice(driver, name, &volume);
    point(volume.name, name);
    for (const auto& path : volume.paths) {
        if (path[0] != 0) point(path, name);
    }
}

void NTAPI unload(DRIVER_OBJECT* driver) {
    eachName(nullptr, [](const WCHAR* link, const WCHAR*) { point(link, nullptr); });
    point(managerLink, managerOfSystem);
    while (driver->DeviceObject != nullptr)
        IoDeleteDevice(driver->DeviceObject);
}

NTSTATUS readDescription(UNICODE_STRING* path) {
    OBJECT_ATTRIBUTES attributes;
    InitializeObjectAttributes(&attributes, path, OBJ_CASE_INSENSITIVE | OBJ_KERNEL_HANDLE, nullptr, nullptr);
    HANDLE key = nullptr;
    NTSTATUS status = ZwOpenKey(&key, KEY_QUERY_VALUE, &attributes);
    if (status != STATUS_SUCCESS) return status;
    static char buffer[sizeof(KEY_VALUE_PARTIAL_INFORMATION) + sizeof machine];
    auto* value = reinterpret_cast<KEY_VALUE_PARTIAL_INFORMATION*>(buffer);
    UNICODE_STRING name = stringOf(L"Volumes");
    ULONG size = 0;
    status = ZwQueryValueKey(key, &name, KeyValuePartialInformation, buffer, sizeof buffer, &size);
    ZwClose(key);
    if (status != STATUS_SUCCESS) return status;
    if (value->DataLength > sizeof machine) return STATUS_INVALID_BUFFER_SIZE;
    copy(&machine, value->Data, value->DataLength);
    return STATUS_SUCCESS;
}

}  // namespace

extern "C" NTSTATUS NTAPI DriverEntry(DRIVER_OBJECT* driver, UNICODE_STRING* registryPath) {
    const NTSTATUS status = readDescription(registryPath);
    if (status != STATUS_SUCCESS) return status;
    driver->DriverUnload = unload;
    driver->MajorFunction[IRP_MJ_CREATE] = open;
    driver->MajorFunction[IRP_MJ_CLOSE] = open;
    driver->MajorFunction[IRP_MJ_DEVICE_CONTROL] = control;
    driver->MajorFunction[IRP_MJ_QUERY_VOLUME_INFORMATION] = queryVolume;
    manager = makeDevice(driver, managerDevice, nullptr);
    if (manager == nullptr) return STATUS_UNSUCCESSFUL;
    for (ULONG index = 0; index < machine.count; ++index)
        makeVolume(driver, index);
    point(managerLink, managerDevice);
    return STATUS_SUCCESS;
}
