/// Where the operating system starts the program.

#include "main/entry.h"
#include "runtime/host/host.h"

#ifdef _WIN32
extern "C" int wmain(int argc, wchar_t** argv);

int wmain(int argc, wchar_t** argv)
#else
int main(int argc, char** argv)
#endif
{
    host::Process process(argc, argv);
    if (!process.usable()) return host::Process::unusableExitStatus;
    return _tmain(process.argumentCount(), process.arguments());
}
