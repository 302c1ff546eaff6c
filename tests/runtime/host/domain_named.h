#pragma once

#include <string>

#include "runtime/host/facts.h"

/// What a member of this domain knows of it.
inline host::Membership domainNamed(const std::wstring& name, const std::wstring& dnsName = {}) {
    host::Membership membership;
    membership.joined = true;
    membership.domainName = name;
    membership.dnsDomainName = dnsName;
    return membership;
}
