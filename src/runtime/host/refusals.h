#pragma once

/// Which error codes of Windows say "you may not".

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace host {

/// Whether a code says that the caller may not know or do it, as against a failure: access denied, here or on
/// the network; policy; privilege; and all that keeps an account from logging on.
inline bool isRefusal(std::uint32_t code) noexcept {
    static constexpr std::uint32_t codes[] = {5,    65,   1260, 1314, 1326, 1327, 1328,
                                              1329, 1330, 1331, 1385, 1907, 1909};
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

}  // namespace host
