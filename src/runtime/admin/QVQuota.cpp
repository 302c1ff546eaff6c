#include "runtime/admin/QVQuota.h"

#include "runtime/base/operation.h"
#include "runtime/base/size_text.h"

CString QVQuota::text() const {
    switch (m_kind) {
        case Kind::bytes: return exactSizeText(m_bytes);
        case Kind::unlimited: return L"unlimited";
        default: return L"no quota";
    }
}

const CString QVQuota::mf_toString(int) const {
    if (operation::answersZero(L"QVQuota::mf_toString", [this] { return text(); })) return {};
    return text();
}
