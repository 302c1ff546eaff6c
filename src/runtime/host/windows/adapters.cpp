#include "runtime/host/os.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <iphlpapi.h>

#include "runtime/host/host.h"
#include "runtime/host/windows/buffer.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/library.h"

namespace host {

namespace {

/// One of the list in `memory`: the buffer is one of those records, so that it is aligned as they are.
using Record = IP_ADAPTER_ADDRESSES;

template <class Address>
std::wstring addressText(const char* function, const Address& address) {
    const windows::Function<wchar_t*(const Address*, wchar_t*)> format{L"ntdll.dll", function};
    constexpr std::size_t longest = 65;
    wchar_t text[longest] = L"";
    if (format) format(&address, text);
    return text;
}

std::wstring addressText(const SOCKADDR& address) {
    if (address.sa_family == AF_INET) {
        return addressText("RtlIpv4AddressToStringW", reinterpret_cast<const sockaddr_in&>(address).sin_addr);
    }
    if (address.sa_family != AF_INET6) return {};
    // A link-local address says nothing without the link.
    const auto& six = reinterpret_cast<const sockaddr_in6&>(address);
    std::wstring text = addressText("RtlIpv6AddressToStringW", six.sin6_addr);
    if (!text.empty() && six.sin6_scope_id != 0) text += L"%" + std::to_wstring(six.sin6_scope_id);
    return text;
}

/// Whether the adapter answers under the address: one that is still tried, or that another computer has, is
/// none.
bool isInUse(const IP_ADAPTER_UNICAST_ADDRESS& address) {
    return address.Address.lpSockaddr != nullptr && address.DadState >= IpDadStateDeprecated;
}

AdapterFacts factsOf(const Record& record) {
    AdapterFacts facts;
    facts.name = record.FriendlyName != nullptr ? record.FriendlyName : L"";
    for (const auto* unicast = record.FirstUnicastAddress; unicast != nullptr; unicast = unicast->Next) {
        if (!isInUse(*unicast)) continue;
        std::wstring text = addressText(*unicast->Address.lpSockaddr);
        if (!text.empty()) facts.addresses.push_back(std::move(text));
    }
    return facts;
}

}  // namespace

Answer<std::vector<AdapterFacts>> adapters() {
    static const windows::Library library(L"iphlpapi.dll");
    const windows::Function<decltype(::GetAdaptersAddresses)> getAdaptersAddresses{library,
                                                                                   "GetAdaptersAddresses"};
    constexpr ULONG flags = GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST | GAA_FLAG_SKIP_DNS_SERVER;
    constexpr std::size_t usualBytes = 15360;

    std::vector<Record> records(usualBytes / sizeof(Record) + 1);
    const windows::Filled filled = windows::fill(records, [&](Record* memory, DWORD& size) {
        ULONG bytes = static_cast<ULONG>(size * sizeof(Record));
        const DWORD code = getAdaptersAddresses.code(AF_UNSPEC, flags, nullptr, memory, &bytes);
        size = static_cast<DWORD>((bytes + sizeof(Record) - 1) / sizeof(Record));
        return code;
    });
    std::vector<AdapterFacts> found;
    if (filled.code == ERROR_NO_DATA || filled.code == ERROR_ADDRESS_NOT_ASSOCIATED) return found;
    if (filled.code != ERROR_SUCCESS) return windows::unanswered<std::vector<AdapterFacts>>(filled.code);
    for (const Record* record = records.data(); record != nullptr; record = record->Next) {
        const bool up = record->OperStatus == IfOperStatusUp && record->IfType != IF_TYPE_SOFTWARE_LOOPBACK;
        if (up) found.push_back(factsOf(*record));
    }
    return found;
}

}  // namespace host
