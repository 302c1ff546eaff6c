#include "catalog/catalog.h"

#include <algorithm>

namespace catalog {

const wchar_t* textOf(unsigned int id) {
    const MessageText* end = linked().texts + linked().count;
    const MessageText* found =
        std::lower_bound(linked().texts, end, id,
                         [](const MessageText& text, unsigned int wanted) { return text.id < wanted; });
    return found != end && found->id == id ? found->text : nullptr;
}

}  // namespace catalog
