/// loads_by_name LIBRARY   loads a library as a careless program does, by its bare name. Ends with 1 when it
/// is not found.

#include <windows.h>

int wmain(int argc, wchar_t** argv) {
    if (argc != 2) return 2;
    return LoadLibraryW(argv[1]) != nullptr ? 0 : 1;
}
