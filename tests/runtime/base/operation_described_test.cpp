#include "runtime/base/operation.h"

#include "runtime/base/QVPath.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

/// Looks at subjects by failures that are planned for them: an operation that hits answers "nothing".
class Operation : public DescribedMachine {
protected:
    static void plan(const std::string& failure) { describe("[failures]\n" + failure + " : answer 0\n"); }
};

constexpr const wchar_t* appendFile = L"QVPath::mf_appendFile";

}  // namespace

TEST_F(Operation, TheSubjectOfAJoinedPathHasOneBackslash) {
    plan("QVPath::mf_appendFile \"C:\\a\\b.txt\"");
    EXPECT_TRUE(QVPath::mf_appendFile(L"C:\\a\\", L"b.txt").IsEmpty());
    EXPECT_TRUE(QVPath::mf_appendFile(L"C:\\a", L"b.txt").IsEmpty());
    EXPECT_FALSE(QVPath::mf_appendFile(L"D:\\a\\", L"b.txt").IsEmpty());

    plan("QVPath::mf_appendDirectory \"C:\\Windows\\system32\"");
    EXPECT_TRUE(QVPath::mf_appendDirectory(L"C:\\Windows\\", L"system32").IsEmpty());
    EXPECT_TRUE(QVPath::mf_appendDirectory(L"C:\\Windows", L"system32").IsEmpty());
}

TEST_F(Operation, ASubjectWithoutDirectoryHasNone) {
    plan("QVPath::mf_appendFile \"b.txt\"");
    EXPECT_TRUE(QVPath::mf_appendFile(L"", L"b.txt").IsEmpty());
    EXPECT_TRUE(QVPath::mf_appendFile(L"C:\\a", L"b.txt").IsEmpty());
    EXPECT_FALSE(QVPath::mf_appendFile(L"C:\\a", L"xb.txt").IsEmpty());
}

TEST_F(Operation, AnEmptyNameLeavesTheDirectoryAlone) {
    plan("QVPath::mf_appendFile \"C:\\a\"");
    EXPECT_TRUE(operation::answersZero(appendFile, L"C:\\a", L""));
    EXPECT_FALSE(operation::answersZero(appendFile, L"C:\\a", L"b"));
}

TEST_F(Operation, NothingPlannedIsNotObserved) {
    describe("");
    EXPECT_TRUE(operation::observed);
    EXPECT_FALSE(operation::answersZero(appendFile, L"C:\\a", L"b"));
    EXPECT_FALSE(operation::observed);
}

TEST_F(Operation, TheSubjectIsMadeOnlyForAnOperationThatSomebodyWantsToKnowOf) {
    int made = 0;
    const auto subject = [&made] {
        ++made;
        return CString(L"C:\\a");
    };
    describe("");
    EXPECT_FALSE(operation::answersZero(appendFile, subject));
    plan("QVPath::mf_exists");
    EXPECT_FALSE(operation::answersZero(appendFile, subject));
    EXPECT_EQ(made, 0);
    plan("QVPath::mf_appendFile \"C:\\a\"");
    EXPECT_TRUE(operation::answersZero(appendFile, subject));
    EXPECT_EQ(made, 1);
}

TEST_F(Operation, ANumberIsASubject) {
    plan("QVMain::mf_startStorage \"7\"");
    EXPECT_TRUE(operation::answersZero(L"QVMain::mf_startStorage", 7));
    EXPECT_FALSE(operation::answersZero(L"QVMain::mf_startStorage", 8));
}
