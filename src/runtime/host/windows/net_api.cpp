#include "runtime/host/windows/net_api.h"

namespace host::windows {

const NetApi& netApi() {
    static const NetApi api;
    return api;
}

}  // namespace host::windows
