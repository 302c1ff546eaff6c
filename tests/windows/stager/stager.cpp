/// stager.exe FILE: carries out the orders of a file (UTF-8, one a line, words separated by tabulators) in
/// the Windows on which it runs, so that a program meets there what a description says:
///
///     raw      KEY NAME TYPE DIGITS   a registry value, byte for byte; the key is made
///     refuse   KEY                    nobody may open the key any more
///     allow    KEY                    everybody may
///     service  NAME STATE IMAGE SPARE a driver: "running" (where its image cannot be: from the spare one),
///     "stopped",
///                                     or "failing": its start is refused by itself
///     no service NAME                 stopped and taken out
///     drive    LETTER TYPE FOLDER DEVICE   a drive over a folder and a device of the host system
///
/// Exit status 1, and the order and error code on standard output, for the first one that fails.

#include <exception>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "orders.h"

namespace {

using Words = std::vector<std::wstring>;

std::wstring fromUtf8(const std::string& text) {
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), size);
    return wide;
}

Words wordsOf(const std::wstring& line) {
    Words words(1);
    for (const wchar_t sign : line) {
        if (sign == L'\t') {
            words.emplace_back();
        } else {
            words.back() += sign;
        }
    }
    return words;
}

struct Order {
    std::size_t words;
    DWORD (*carryOut)(const Words& words);
};

const std::map<std::wstring, Order> orders = {
    {L"raw", {5, [](const Words& w) { return setRaw(w[1], w[2], std::stoul(w[3]), w[4]); }}},
    {L"refuse", {2, [](const Words& w) { return refuseKey(w[1]); }}},
    {L"allow", {2, [](const Words& w) { return allowKey(w[1]); }}},
    {L"service", {5, [](const Words& w) { return makeService(w[1], w[2], w[3], w[4]); }}},
    {L"drive", {5, [](const Words& w) { return defineDrive(w[1], std::stoul(w[2]), w[3], w[4]); }}},
    {L"no service", {2, [](const Words& w) { return removeService(w[1]); }}},
};

DWORD carryOut(const Words& words) {
    const auto found = orders.find(words.front());
    if (found == orders.end() || words.size() != found->second.words) return ERROR_INVALID_FUNCTION;
    return found->second.carryOut(words);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2) return 2;
    std::ifstream file(arguments[1], std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        const DWORD code = carryOut(wordsOf(fromUtf8(line)));
        if (code == ERROR_SUCCESS) continue;
        std::cout << "error " << code << ": " << line << '\n';
        return 1;
    }
    return file.eof() ? 0 : 2;
}
