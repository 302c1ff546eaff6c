#include <algorithm>
#include <iterator>

#include "runtime/host/host.h"

namespace host {

namespace {

struct ErrorText {
    std::uint32_t code;
    const wchar_t* text;
};

/// The errors that an administrator meets, by code.
constexpr ErrorText errorTexts[] = {
    {0, L"The operation completed successfully."},
    {1, L"Incorrect function."},
    {2, L"The system cannot find the file specified."},
    {3, L"The system cannot find the path specified."},
    {4, L"The system cannot open the file."},
    {5, L"Access is denied."},
    {6, L"The handle is invalid."},
    {8, L"Not enough memory resources are available to process this command."},
    {13, L"The data is invalid."},
    {14, L"Not enough memory resources are available to complete this operation."},
    {15, L"The system cannot find the drive specified."},
    {17, L"The system cannot move the file to a different disk drive."},
    {18, L"There are no more files."},
    {19, L"The media is write protected."},
    {20, L"The system cannot find the device specified."},
    {21, L"The device is not ready."},
    {22, L"The device does not recognize the command."},
    {23, L"Data error (cyclic redundancy check)."},
    {31, L"A device attached to the system is not functioning."},
    {32, L"The process cannot access the file because it is being used by another process."},
    {33, L"The process cannot access the file because another process has locked a portion of the file."},
    {38, L"Reached the end of the file."},
    {39, L"The disk is full."},
    {50, L"The request is not supported."},
    {53, L"The network path was not found."},
    {59, L"An unexpected network error occurred."},
    {64, L"The specified network name is no longer available."},
    {65, L"Network access is denied."},
    {67, L"The network name cannot be found."},
    {71,
     L"No more connections can be made to this remote computer at this time because there are already as "
     L"many "
     L"connections as the computer can accept."},
    {80, L"The file exists."},
    {82, L"The directory or file cannot be created."},
    {87, L"The parameter is incorrect."},
    {109, L"The pipe has been ended."},
    {110, L"The system cannot open the device or file specified."},
    {111, L"The file name is too long."},
    {112, L"There is not enough space on the disk."},
    {120, L"This function is not supported on this system."},
    {121, L"The semaphore timeout period has expired."},
    {122, L"The data area passed to a system call is too small."},
    {123, L"The filename, directory name, or volume label syntax is incorrect."},
    {124, L"The system call level is not correct."},
    {126, L"The specified module could not be found."},
    {127, L"The specified procedure could not be found."},
    {145, L"The directory is not empty."},
    {161, L"The specified path is invalid."},
    {170, L"The requested resource is in use."},
    {183, L"Cannot create a file when that file already exists."},
    {206, L"The filename or extension is too long."},
    {223, L"The file size exceeds the limit allowed and cannot be saved."},
    {230, L"The pipe state is invalid."},
    {232, L"The pipe is being closed."},
    {233, L"No process is on the other end of the pipe."},
    {234, L"More data is available."},
    {258, L"The wait operation timed out."},
    {259, L"No more data is available."},
    {267, L"The directory name is invalid."},
    {995, L"The I/O operation has been aborted because of either a thread exit or an application request."},
    {997, L"Overlapped I/O operation is in progress."},
    {998, L"Invalid access to memory location."},
    {1005,
     L"The volume does not contain a recognized file system. Please make sure that all required file "
     L"system drivers "
     L"are loaded and that the volume is not corrupted."},
    {1006, L"The volume for a file has been externally altered so that the opened file is no longer valid."},
    {1008, L"An attempt was made to reference a token that does not exist."},
    {1009, L"The configuration registry database is corrupt."},
    {1010, L"The configuration registry key is invalid."},
    {1011, L"The configuration registry key could not be opened."},
    {1012, L"The configuration registry key could not be read."},
    {1018, L"Illegal operation attempted on a registry key that has been marked for deletion."},
    {1051, L"A stop control has been sent to a service that other running services are dependent on."},
    {1053, L"The service did not respond to the start or control request in a timely fashion."},
    {1055, L"The service database is locked."},
    {1056, L"An instance of the service is already running."},
    {1058,
     L"The service cannot be started, either because it is disabled or because it has no enabled devices "
     L"associated "
     L"with it."},
    {1060, L"The specified service does not exist as an installed service."},
    {1062, L"The service has not been started."},
    {1064, L"An exception occurred in the service when handling the control request."},
    {1068, L"The dependency service or group failed to start."},
    {1072, L"The specified service has been marked for deletion."},
    {1110, L"The media in the drive may have changed."},
    {1112, L"No media in drive."},
    {1117, L"The request could not be performed because of an I/O device error."},
    {1130, L"Not enough server memory resources are available to process this command."},
    {1167, L"The device is not connected."},
    {1168, L"Element not found."},
    {1208, L"An extended error has occurred."},
    {1219,
     L"Multiple connections to a server or shared resource by the same user, using more than one user "
     L"name, are not "
     L"allowed. Disconnect all previous connections to the server or shared resource and try again."},
    {1223, L"The operation was canceled by the user."},
    {1225, L"The remote computer refused the network connection."},
    {1231,
     L"The network location cannot be reached. For information about network troubleshooting, see Windows "
     L"Help."},
    {1300, L"Not all privileges or groups referenced are assigned to the caller."},
    {1311,
     L"We can't sign you in with this credential because your domain isn't available. Make sure your "
     L"device is "
     L"connected to your organization's network and try again. If you previously signed in on this device "
     L"with "
     L"another credential, you can sign in with that credential."},
    {1314, L"A required privilege is not held by the client."},
    {1317, L"The specified account does not exist."},
    {1326, L"The user name or password is incorrect."},
    {1332, L"No mapping between account names and security IDs was done."},
    {1337, L"The security ID structure is invalid."},
    {1350, L"Unable to perform a security operation on an object that has no associated security."},
    {1355, L"The specified domain either does not exist or could not be contacted."},
    {1376, L"The specified local group does not exist."},
    {1392, L"The file or directory is corrupted and unreadable."},
    {1450, L"Insufficient system resources exist to complete the requested service."},
    {1455, L"The paging file is too small for this operation to complete."},
    {1460, L"This operation returned because the timeout period expired."},
    {1630, L"Data of this type is not supported."},
    {1702, L"The binding handle is invalid."},
    {1717, L"The interface is unknown."},
    {1722, L"The RPC server is unavailable."},
    {1723, L"The RPC server is too busy to complete this operation."},
    {1726, L"The remote procedure call failed."},
    {1727, L"The remote procedure call failed and did not execute."},
    {1753, L"There are no more endpoints available from the endpoint mapper."},
    {1787,
     L"The security database on the server does not have a computer account for this workstation trust "
     L"relationship."},
    {1788, L"The trust relationship between the primary domain and the trusted domain failed."},
    {1789, L"The trust relationship between this workstation and the primary domain failed."},
    {1812, L"The specified image file did not contain a resource section."},
    {1813, L"The specified resource type cannot be found in the image file."},
    {1816, L"Not enough quota is available to process this command."},
    {1908, L"Could not find the domain controller for this domain."},
    {1909, L"The referenced account is currently locked out and may not be logged on to."},
    {1921, L"The name of the file cannot be resolved by the system."},
    {2102, L"The workstation driver is not installed."},
    {2114, L"The Server service is not started."},
    {2123, L"The API return buffer is too small."},
    {2138, L"The Workstation service has not been started."},
    {2220, L"The group name could not be found."},
    {2221, L"The user name could not be found."},
    {2250, L"This network connection does not exist."},
    {2351, L"This computer name is invalid."},
    {2453, L"Could not find domain controller for this domain."},
    {5001,
     L"The cluster resource cannot be moved to another group because other resources are dependent on it."},
    {5050, L"The cluster node is down."},
    {8224, L"An operations error occurred."},
    {8250, L"The server is not operational."},
    {8453, L"Replication access was denied."},
    {8524, L"The DSA operation is unable to proceed because of a DNS lookup failure."},
    {9002, L"DNS server failure."},
    {9003, L"DNS name does not exist."},
    {10054, L"An existing connection was forcibly closed by the remote host."},
    {10060,
     L"A connection attempt failed because the connected party did not properly respond after a period of "
     L"time, or "
     L"established connection failed because connected host has failed to respond."},
    {10061, L"No connection could be made because the target machine actively refused it."},
    {0x80310000,
     L"This drive is locked by BitLocker Drive Encryption. You must unlock this drive from Control Panel."},
};

}  // namespace

std::wstring systemErrorText(std::uint32_t code) {
    const auto* found =
        std::lower_bound(std::begin(errorTexts), std::end(errorTexts), code,
                         [](const ErrorText& known, std::uint32_t wanted) { return known.code < wanted; });
    if (found == std::end(errorTexts) || found->code != code) return L"unknown error";
    return found->text;
}

}  // namespace host
