#include "runtime/host/description/windows_path.h"

#include <vector>

#include "runtime/host/letter_case.h"
#include "runtime/host/utf.h"

namespace description {

namespace {

using Parts = std::vector<std::wstring_view>;

bool isDriveLetter(wchar_t unit) {
    return (unit >= L'A' && unit <= L'Z') || (unit >= L'a' && unit <= L'z');
}

bool hasDrive(std::wstring_view path) {
    return path.size() >= 2 && isDriveLetter(path[0]) && path[1] == L':';
}

/// "\\?" and "\\.": what stands below them, a drive too, is a name like any other, which ".." can leave.
std::wstring_view deviceRootOf(std::wstring_view path) {
    const bool has = path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\");
    return has ? path.substr(0, 3) : std::wstring_view();
}

/// The name of a directory on the way loses one period at its end; a name of periods alone keeps them.
std::wstring_view withoutPeriodAtEnd(std::wstring_view part) {
    const bool ends = part.ends_with(L'.') && part.find_first_not_of(L'.') != std::wstring_view::npos;
    return ends ? part.substr(0, part.size() - 1) : part;
}

void appendParts(Parts& parts, std::wstring_view path) {
    while (!path.empty()) {
        const std::size_t end = path.find(L'\\');
        const std::wstring_view part = path.substr(0, end);
        path.remove_prefix(end == std::wstring_view::npos ? path.size() : end + 1);
        if (part.empty() || part == L".") continue;
        if (part != L"..") {
            parts.push_back(end == std::wstring_view::npos ? part : withoutPeriodAtEnd(part));
        } else if (!parts.empty()) {
            parts.pop_back();
        }
    }
}

/// Blanks and periods at the end of the last name are no part of it.
void trimLastName(std::wstring& path, std::size_t rootLength) {
    while (path.size() > rootLength + 1 && (path.back() == L' ' || path.back() == L'.'))
        path.pop_back();
}

}  // namespace

std::wstring_view rootOf(std::wstring_view path) {
    if (hasDrive(path)) return path.substr(0, 2);
    if (!path.starts_with(L"\\\\")) return {};
    const std::size_t server = path.find(L'\\', 2);
    if (server == std::wstring_view::npos) return path;
    return path.substr(0, path.find(L'\\', server + 1));
}

bool isDescribedPath(std::wstring_view path) {
    return !path.empty() && (path[0] == L'\\' || path[0] == L'/' || hasDrive(path));
}

std::wstring fullPath(std::wstring_view given, std::wstring_view currentDirectory) {
    std::wstring path(given);
    for (wchar_t& unit : path) {
        if (unit == L'/') unit = L'\\';
    }
    const std::wstring_view view = path;
    const std::wstring_view currentRoot = rootOf(currentDirectory);
    const std::wstring_view deviceRoot = deviceRootOf(view);
    std::wstring_view root = deviceRoot.empty() ? rootOf(view) : deviceRoot;
    const std::wstring_view rest = view.substr(root.size());
    Parts parts;
    const bool fromRoot = rest.starts_with(L'\\') || root.size() > 2;
    const bool onCurrentRoot = root.empty() || host::equalIgnoringCase(root, currentRoot);
    if (!fromRoot && onCurrentRoot) appendParts(parts, currentDirectory.substr(currentRoot.size()));
    if (root.empty()) root = currentRoot;
    appendParts(parts, rest);
    std::wstring result(root);
    for (const std::wstring_view part : parts)
        result.append(L"\\").append(part);
    if (!rest.ends_with(L'\\')) trimLastName(result, root.size());
    const bool isBareRoot = parts.empty() && (root.size() == 2 || !deviceRoot.empty());
    if ((rest.ends_with(L'\\') || isBareRoot) && !result.ends_with(L'\\')) result += L'\\';
    return result;
}

std::wstring untilNul(const std::wstring& path) {
    return path.substr(0, path.find(L'\0'));
}

std::wstring pathKey(std::wstring_view fullPath) {
    const bool isDevice = !deviceRootOf(fullPath).empty() && hasDrive(fullPath.substr(4));
    if (isDevice && (fullPath[2] == L'?' || fullPath.substr(6).starts_with(L'\\'))) fullPath.remove_prefix(4);
    constexpr std::wstring_view share = L"\\\\?\\unc\\";
    std::wstring key = host::folded(fullPath);
    if (key.starts_with(share)) key.replace(0, share.size(), L"\\\\");
    while (!key.empty() && key.back() == L'\\')
        key.pop_back();
    return key;
}

std::wstring parentKey(std::wstring_view key) {
    const std::size_t rootLength = rootOf(key).size();
    const std::size_t end = key.rfind(L'\\');
    if (end == std::wstring_view::npos || end < rootLength) return {};
    return std::wstring(key.substr(0, end));
}

}  // namespace description
