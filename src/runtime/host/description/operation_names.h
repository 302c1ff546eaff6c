#pragma once

/// The operations whose failure a description can plan.

#include <string_view>
#include <vector>

namespace description {

struct OperationName {
    std::wstring_view name;
    bool ofSystem = false;       ///< a call of the operating system, answered by this host itself
    bool zeroIsSuccess = false;  ///< 0 would say that the call went well, so that it cannot be planned
    bool mayGrow = false;        ///< tells a needed size, which can be planned to grow
};

/// All of them, in the order of the alphabet.
const std::vector<OperationName>& operationNames();

/// The operation of that name; null when there is none.
const OperationName* operationNamed(std::wstring_view name);

}  // namespace description
