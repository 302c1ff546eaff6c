#include "runtime/base/QVErrno.h"
#include "runtime/host/answer.h"
#include "runtime/host/host.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

struct Category {
    const wchar_t* name;
    const QVErrnoValue& value;
};

const Category categories[] = {
    {L"Unknown", QVErrno::_E_::Unknown},
    {L"System", QVErrno::_E_::System},
    {L"Memory", QVErrno::_E_::Memory},
    {L"Path", QVErrno::_E_::Path},
    {L"BufferTooSmall", QVErrno::_E_::BufferTooSmall},
    {L"Unspecific", QVErrno::_E_::Unspecific},
};

CString all(const QVErrno& error) {
    return formatted(L"%u ", error.mf_getData().mf_getValue()) + shown(error.mf_toString()) + L" " +
           shown(error.mf_getData().mf_getOriginatorMessage()) + L" " +
           shown(error.mf_getData().mf_getMessage());
}

void askAbout(const Category& category) {
    ask(L"QVErrno of a category", {category.name}, [&] { return all(QVErrno(QVErrnoData(category.value))); });
    ask(L"QVErrno with an originator message", {category.name},
        [&] { return all(QVErrno(QVErrnoData(category.value, L"what it said, 100%s"))); });
    ask(L"QVErrno with several lines", {category.name},
        [&] { return all(QVErrno(QVErrnoData(category.value, L"one\r\ntwo\nthree \r\n"))); });
    ask(L"QVErrno raised", {category.name}, [&]() -> CString { raise(category.value, L"something", 5); });
    for (const wchar_t* insert : {L"", L"the insert"}) {
        ask(L"QVErrnoData::mf_setMessage", {category.name, insert}, [&] {
            QVErrnoData data(category.value, L"originator");
            QVErrnoData::mf_setMessage(data, L"QRM27047E", 1, 2, 3, 4, insert);
            return all(QVErrno(data));
        });
    }
}

/// Codes that the calls behind the runtime answer, and some that nobody has a text for.
constexpr unsigned long codes[] = {
    0,    1,    2,    3,    5,    6,    8,    13,    14,         15,         19,         21,
    32,   33,   50,   53,   64,   65,   67,   71,    87,         109,        110,        111,
    112,  120,  121,  122,  123,  124,  126,  127,   145,        161,        170,        183,
    203,  206,  232,  233,  234,  258,  259,  267,   995,        997,        998,        1005,
    1006, 1008, 1009, 1018, 1053, 1056, 1058, 1060,  1062,       1064,       1066,       1068,
    1072, 1110, 1112, 1117, 1130, 1167, 1203, 1210,  1219,       1222,       1231,       1244,
    1245, 1311, 1314, 1317, 1326, 1332, 1337, 1355,  1376,       1387,       1450,       1460,
    1630, 1702, 1703, 1717, 1722, 1726, 1753, 1765,  1812,       1813,       1814,       1815,
    2102, 2114, 2123, 2138, 2202, 2220, 2221, 2351,  2453,       2692,       3221,       5001,
    5002, 5004, 5070, 6118, 8250, 8344, 9999, 65535, 2147942405, 2148073494, 2150694912, 4294967295};

}  // namespace

void askErrors() {
    ask(L"QVErrnoData", {}, [] { return all(QVErrno(QVErrnoData())); });
    for (const Category& category : categories)
        askAbout(category);
    for (const unsigned long code : codes) {
        ask(L"QVErrno with a system error", {code},
            [&] { return all(QVErrno(QVErrnoData(QVErrno::_E_::System), code)); });
    }
    for (const std::uint32_t code : {0U, 5U, 1722U}) {
        ask(L"QVErrno raised for a failure of the host", {static_cast<unsigned long>(code)},
            [&]() -> CString {
                raise(host::Failure{code, L"in its own words"}, L"what could not be done");
            });
    }
}

}  // namespace conformance
