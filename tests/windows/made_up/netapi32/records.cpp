#include "tests/windows/made_up/netapi32/records.h"

#include <map>

#include "tests/windows/made_up/shared/machine.h"

namespace made_up {

namespace {

/// The pieces that were not given back, with their sizes.
std::map<const void*, std::size_t>& pieces() {
    static auto* const known = new std::map<const void*, std::size_t>;
    return *known;
}

}  // namespace

BYTE* memory(std::size_t size) {
    auto* piece = static_cast<BYTE*>(std::calloc(1, size + 1));
    pieces().emplace(piece, size);
    return piece;
}

void giveBack(void* memory) {
    if (memory != nullptr && pieces().erase(memory) == 0)
        endProcess("memory is given back that nobody has\n");
    std::free(memory);
}

std::size_t sizeOf(const void* memory) {
    const auto found = pieces().find(memory);
    return found == pieces().end() ? 0 : found->second;
}

long piecesOut() {
    return static_cast<long>(pieces().size());
}

}  // namespace made_up
