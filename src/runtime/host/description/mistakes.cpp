#include "runtime/host/description/mistakes.h"

#include "runtime/host/utf.h"

namespace description {

namespace {

std::string joined(std::span<const std::wstring_view> names, std::string (*show)(std::wstring_view)) {
    std::string text;
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (index > 0) text += index + 1 < names.size() ? ", " : " or ";
        text += show(names[index]);
    }
    return text;
}

}  // namespace

void Mistakes::add(const Place& place, const std::string& text) {
    if (m_texts.size() == maximum) {
        ++m_left;
        return;
    }
    m_texts.push_back(place.file + ":" + std::to_string(place.line) + ": " + text);
}

std::string Mistakes::report() const {
    std::string all;
    for (const std::string& text : m_texts)
        all += text + "\n";
    if (m_left != 0) all += "... and " + std::to_string(m_left) + " more\n";
    return all;
}

std::string quoted(std::wstring_view text) {
    constexpr std::size_t longest = 60;
    std::string shown = host::toUtf8(text.substr(0, longest));
    for (char& byte : shown) {
        if (static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F) byte = '?';
    }
    return "\"" + shown + (text.size() > longest ? "...\"" : "\"");
}

std::string alternatives(std::span<const std::wstring_view> names) {
    return joined(names, [](std::wstring_view name) { return host::toUtf8(name); });
}

std::string quotedAlternatives(std::span<const std::wstring_view> names) {
    return joined(names, quoted);
}

}  // namespace description
