/// A kernel driver that does nothing but run, for the tests under Wine.

extern "C" {

using NtStatus = int;

struct UnicodeString {
    unsigned short length, maximumLength;
    wchar_t* units;
};

/// As the system lays it out, up to the routines that a driver sets.
struct DriverObject {
    short type, size;
    void* deviceObject;
    unsigned int flags;
    void* start;
    unsigned int imageSize;
    void *section, *extension;
    UnicodeString name;
    UnicodeString* hardwareDatabase;
    void *fastIo, *init, *startIo;
    void (*unload)(DriverObject* driver);
};

#ifndef KVX_ENTRY_STATUS
#define KVX_ENTRY_STATUS 0
#endif

static void unload(DriverObject*) {}

NtStatus DriverEntry(DriverObject* driver, UnicodeString*) {
    driver->unload = unload;  // without one it could not be stopped
    return static_cast<NtStatus>(KVX_ENTRY_STATUS);
}

}  // extern "C"
