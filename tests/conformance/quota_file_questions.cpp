#include "runtime/admin/QVQuotaFile.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

const CString folder = L"C:\\conformance\\quotas\\";

constexpr const wchar_t* files[] = {
    L"good.cfg",
    L"empty.cfg",
    L"nothing.cfg",
    L"nothing\\nothing.cfg",
    L"",
    L"good.cfg\\",
    L"good.cfg\\below",
    L"utf8-marked.cfg",
    L"utf16-little.cfg",
    L"utf16-big.cfg",
    L"utf16-odd.cfg",
    L"not-utf8.cfg",
    L"control.cfg",
    L"with-nul.cfg",
    L"cr-ends.cfg",
    L"no-end.cfg",

    L"too-large.cfg",
    L"comments.cfg",
    L"units.cfg",
    L"too-much.cfg",
    L"no-unit.cfg",
    L"negative.cfg",
    L"two-defaults.cfg",
    L"two-users.cfg",
    L"two-spellings.cfg",
    L"unknown-word.cfg",
    L"no-account.cfg",
    L"no-quota.cfg",
    L"open-quote.cfg",
    L"bad-sid.cfg",
    L"unknown.cfg",
    L"\x00E4\x00F6.cfg",
    L"GOOD.cfg",
    L"go*.cfg",
};

CString described(const QVArray<QVSidQuota*>& entries, const wchar_t* kind) {
    CString text;
    for (int i = 0; i < entries.GetSize(); ++i) {
        text += formatted(L" %s ", kind) + shown(entries[i]->mf_getSid().mf_getFullName()) + L" " +
                shown(entries[i]->mf_getQuota().mf_toString(1));
    }
    return text;
}

CString described(const QVQuotaFile& file) {
    const QVQuota* standard = file.mf_getDefaultQuota();
    return formatted(L"default %s",
                     standard != nullptr ? shown(standard->mf_toString(1)) : CString(L"none")) +
           described(file.mf_getUserQuotas(), L"user") + described(file.mf_getGroupQuotas(), L"group");
}

void askForEntries(const QVArray<QVSidQuota*>& entries) {
    for (int i = 0; i < entries.GetSize(); ++i) {
        ask(L"QVSidQuota::mf_getSid", {i}, [&] { return shown(entries[i]->mf_getSid().mf_getSidString()); });
        ask(L"QVSidQuota::mf_getQuota", {i}, [&] { return shown(entries[i]->mf_getQuota().mf_toString(1)); });
    }
}

void askAbout(const CString& path) {
    QVQuotaFile file(path);
    ask(L"QVConfigFileBase::mf_parse", {path}, [&] {
        file.mf_parse();
        return described(file);
    });
    askForEntries(file.mf_getUserQuotas());
    askForEntries(file.mf_getGroupQuotas());
    ask(L"QVQuotaFile::mf_clear", {path}, [&] {
        file.mf_clear();
        return described(file);
    });
}

}  // namespace

void askQuotaFiles() {
    ask(L"QVQuotaFile::mf_getConfigFileName", {}, [] { return shown(QVQuotaFile::mf_getConfigFileName()); });
    ask(L"QVQuotaFile::QVQuotaFile", {L"nothing at all"}, [] {
        const QVQuotaFile file(L"nothing at all");
        return shown(file.mf_getPath()) + L" " + described(file);
    });
    for (const wchar_t* name : files)
        askAbout(folder + name);
    // Beside the program stands what the current directory holds.
    for (const wchar_t* path :
         {L"given quota.cfg", L".\\given quota.cfg", L"given quota.cfg\\", L"given folder", L"given folder\\",
          L"nothing.cfg", L"nothing\\nothing.cfg", L"given*.cfg"})
        askAbout(path);
    for (const wchar_t* path :
         {L"config\\quota.cfg", L"", L"Q:\\quota.cfg", L"C:\\", L"C:\\conformance\\NUL"})
        askAbout(path);
}

}  // namespace conformance
