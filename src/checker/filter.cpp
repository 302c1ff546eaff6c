#include "checker/QVInstallationChecker.h"
#include "checker/write_log.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVRegistry.h"
#include "runtime/base/QVString.h"
#include "runtime/host/os.h"

namespace {

const wchar_t* const originator = L"QVInstallationChecker::mf_getAttributeFileFilter";
const wchar_t* const attributesValue = L"FileAttributesFilter";
const wchar_t* const minimumSizeValue = L"FileSizeMinimum";

struct AttributeRow {
    unsigned int bit;
    const wchar_t* format;
};

const wchar_t* const ruler = L"     ----------------------------------------\n";

/// Bits without a row show in the total line only.
constexpr AttributeRow attributeRows[] = {
    {0x00000001, L"     %c %8.8x FILE_ATTRIBUTE_READONLY       \n"},
    {0x00000002, L"     %c %8.8x FILE_ATTRIBUTE_HIDDEN         \n"},
    {0x00000004, L"     %c %8.8x FILE_ATTRIBUTE_SYSTEM         \n"},
    {0x00000010, L"     %c %8.8x FILE_ATTRIBUTE_DIRECTORY      \n"},
    {0x00000020, L"     %c %8.8x FILE_ATTRIBUTE_ARCHIVE        \n"},
    {0x00000080, L"     %c %8.8x FILE_ATTRIBUTE_NORMAL         \n"},
    {0x00000100, L"     %c %8.8x FILE_ATTRIBUTE_TEMPORARY      \n"},
    {0x00000200, L"     %c %8.8x FILE_ATTRIBUTE_SPARSE_FILE    \n"},
    {0x00000400, L"     %c %8.8x FILE_ATTRIBUTE_REPARSE_POINT  \n"},
    {0x00000800, L"     %c %8.8x FILE_ATTRIBUTE_COMPRESSED     \n"},
    {0x00001000, L"     %c %8.8x FILE_ATTRIBUTE_OFFLINE        \n"},
    {0x00004000, L"     %c %8.8x FILE_ATTRIBUTE_ENCRYPTED      \n"},
};

/// The attribute part of the report.
CString attributeTable(unsigned long mask, const CString& keyPath) {
    CString text = QVString(3248);
    for (const AttributeRow& row : attributeRows) {
        text += formatted(row.format, (mask & row.bit) != 0 ? L'x' : L'.', row.bit);
    }
    text += ruler;
    text += QVString(3249, mask);
    text += ruler;
    text += L"\n";
    text += QVString(3283);
    text += formatted(L"    %s\\%s\n", keyPath, attributesValue);
    return text;
}

/// Reads the attribute mask. Returns whether that was possible; else `result` is the whole report.
bool readAttributes(const CString& keyPath, unsigned long& mask, CString& result) {
    const CString name = attributesValue;
    try {
        if (!QVRegistry::mf_exists(name, keyPath, HKEY_LOCAL_MACHINE)) {
            writeLog(
                QVLogData::LEVEL_E, originator,
                L"Registry key containing attribute file filter does not exist\r\n%sregistry key = '%s'\r\n"
                L"%sregistry key root = '%s'",
                QVLog::TAB, name, QVLog::TAB, keyPath);
            result = QVString(3246, name, keyPath);
            return false;
        }
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Failure checking existence of registry key '%s'\r\n%sregistry key root = '%s'\r\n%s%s",
                 name, QVLog::TAB, keyPath, QVLog::TAB, error);
        result = QVString(3335, name, keyPath, error.mf_toString());
        return false;
    }
    try {
        QVRegistry::mf_getValue(name, mask, keyPath, HKEY_LOCAL_MACHINE);
        return true;
    } catch (QVErrno& error) {
        writeLog(
            QVLogData::LEVEL_E, originator,
            L"Failure retrieving file attribute filter value from registry key\r\n%sregistry key = '%s'\r\n"
            L"%sregistry key root = '%s'\r\n%s%s",
            QVLog::TAB, name, QVLog::TAB, keyPath, QVLog::TAB, error);
        result = QVString(3247, name, keyPath, error.mf_toString());
        return false;
    }
}

/// The same for the minimum size; what failed is added to `result`.
bool readMinimumSize(const CString& keyPath, unsigned long& size, CString& result) {
    const CString name = minimumSizeValue;
    try {
        if (!QVRegistry::mf_exists(name, keyPath, HKEY_LOCAL_MACHINE)) {
            writeLog(
                QVLogData::LEVEL_E, originator,
                L"Registry key containing minimum file size filter does not exist\r\n%sregistry key = '%s'\r\n"
                L"%sregistry key root = '%s'",
                QVLog::TAB, name, QVLog::TAB, keyPath);
            result += L"\n" + QVString(3315, name, keyPath);
            return false;
        }
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Failure checking existence of registry key of minimum size\r\n%sregistry key = '%s'\r\n"
                 L"%sregistry key root = '%s'\r\n%s%s",
                 QVLog::TAB, name, QVLog::TAB, keyPath, QVLog::TAB, error);
        result += L"\n" + QVString(3313, name, keyPath, error.mf_toString());
        return false;
    }
    try {
        QVRegistry::mf_getValue(name, size, keyPath, HKEY_LOCAL_MACHINE);
        return true;
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Could not retrieve minimum file size value from registry key\r\n%sregistry key = '%s'\r\n"
                 L"%sregistry key root = '%s'\r\n%s%s",
                 QVLog::TAB, name, QVLog::TAB, keyPath, QVLog::TAB, error);
        result += L"\n" + QVString(3316, name, keyPath, error.mf_toString());
        return false;
    }
}

}  // namespace

const CString QVInstallationChecker::mf_getAttributeFileFilter(int* problem) {
    *problem = 0;
    const CString keyPath = QVRegistry::mf_getRegistryRoot(L"") + L"\\kvxgui";
    CString result;
    unsigned long mask = 0;
    if (!readAttributes(keyPath, mask, result)) {
        *problem = 1;
        return result;
    }
    result = attributeTable(mask, keyPath);
    unsigned long size = 0;
    if (!readMinimumSize(keyPath, size, result)) {
        *problem = 1;
        return result;
    }
    result += QVString(3314, size);
    result += QVString(3317, keyPath, minimumSizeValue);
    return result;
}
