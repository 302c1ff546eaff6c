#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "checker/QVInstallationChecker.h"
#include "runtime/base/QVLog.h"
#include "runtime/base/QVString.h"
#include "runtime/base/operation.h"
#include "runtime/host/utf.h"
#include "runtime/util/QVMain.h"
#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using Checker = QVInstallationChecker;
using Listing = void (Checker::*)(int);
using Texts = std::vector<std::string>;

constexpr const char* domain =
    "[system]\ncomputer = WS01\n"
    "[domain]\njoined = yes\nname = CORP\ncontroller = DC01\nprimary = DC01\n"
    "[domain users]\nann\nben\n[domain groups]\nStaff = ann\nTeam = ben\n";

const std::string startFails =
    "[failures]\nQVMain::mf_startDomainController : error Unspecific \"no start\"\n";

constexpr const char* start = "QVMain::mf_startDomainController";
constexpr const char* isJoined = "QVDomainController::mf_isJoined";
constexpr const char* domainUsers = "QVUser::mf_getDomainUserList";
constexpr const char* domainGroups = "QVGroup::mf_getDomainLocalGroupList";
constexpr const char* groupsOfUser = "QVUser::mf_getDomainLocalGroupList";
constexpr const char* stop = "QVMain::mf_stopDomainController";

/// The first line of a record of one of the methods.
std::string by(const std::string& method, const std::string& text) {
    return "QVInstallationChecker::" + method + ": " + text;
}

/// A text as the report file holds it, where every line feed becomes a line end.
std::string inFile(const CString& text) {
    std::string bytes;
    for (const char byte : host::toUtf8(text.units())) {
        if (byte == '\n') bytes += '\r';
        bytes += byte;
    }
    return bytes;
}

/// Runs a listing that shows failures only. The report file tells what it printed, the log what it asked.
class ListingErrorsOnly : public DescribedMachine {
protected:
    ~ListingErrorsOnly() override { QVLog::stop(); }

    void run(Listing listing, const std::string& machine) {
        describe(machine +
                 "[registry]\n"
                 "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient\\kvxinfo]\n"
                 "\"LogLevel\"=dword:00000012\n");
        {
            QVInstallationChecker checker;
            ASSERT_TRUE(checker.mf_implOpenFile());
            QVMain::mf_startLogging(L"kvx.log");
            (checker.*listing)(1);
            QVLog::stop();
        }
        printed = fileBytes("check_installation.txt");
        takeRecords();
        std::filesystem::remove("kvx.log");
    }

    std::string printed;
    Texts asked;   ///< the operations on accounts and on the controller, in their order
    Texts errors;  ///< the first lines of the records of level E

private:
    void takeRecords() {
        asked.clear();
        errors.clear();
        std::ifstream log("kvx.log", std::ios::binary);
        for (std::string line; std::getline(log, line);) {
            const std::size_t process = line.find("] ");
            if (process == std::string::npos) continue;  // the record of the line before goes on
            const std::size_t level = process + 2;
            const std::string text = line.substr(level + 2, line.find('\r') - level - 2);
            if (line.compare(level, 2, "E ") == 0) errors.push_back(text);
            if (line.compare(level, 2, "T ") != 0) continue;
            const std::string name = text.substr(0, text.find(": "));
            const Texts known{start, isJoined, domainUsers, domainGroups, groupsOfUser, stop};
            if (std::find(known.begin(), known.end(), name) != known.end()) asked.push_back(name);
        }
    }

    TemporaryDirectory m_here;
};

}  // namespace

TEST_F(ListingErrorsOnly, DomainUsersAreFetchedButNotPrinted) {
    run(&Checker::implDo_domusers, domain);
    EXPECT_EQ(printed, "");
    EXPECT_EQ(asked, (Texts{start, isJoined, domainUsers, stop}));
    EXPECT_EQ(errors, Texts());
}

TEST_F(ListingErrorsOnly, DomainGroupsAreFetchedButNotPrinted) {
    run(&Checker::implDo_domgroups, domain);
    EXPECT_EQ(printed, "");
    EXPECT_EQ(asked, (Texts{start, isJoined, domainGroups, stop}));
    EXPECT_EQ(errors, Texts());
}

TEST_F(ListingErrorsOnly, GroupsOfDomainUsersAreFetchedButNotPrinted) {
    run(&Checker::implDo_domusergr, domain);
    EXPECT_EQ(printed, "");
    EXPECT_EQ(asked, (Texts{start, isJoined, domainUsers, groupsOfUser, groupsOfUser, stop}));
    EXPECT_EQ(errors, Texts());
}

TEST_F(ListingErrorsOnly, AComputerOutsideOfAnyDomainIsNoFailure) {
    for (const Listing listing :
         {&Checker::implDo_domusers, &Checker::implDo_domgroups, &Checker::implDo_domusergr}) {
        run(listing, "[domain]\njoined = no\n");
        EXPECT_EQ(printed, "");
        EXPECT_EQ(asked, (Texts{start, isJoined, stop}));
        EXPECT_EQ(errors, Texts());
    }
}

TEST_F(ListingErrorsOnly, DomainUsersTellWhyTheControllerCouldNotBeStarted) {
    run(&Checker::implDo_domusers, domain + startFails);
    EXPECT_EQ(printed, inFile(QVString(3263)) + inFile(QVString(3259, L"Operation failed: no start")));
    EXPECT_EQ(asked, (Texts{start, stop}));
    EXPECT_EQ(errors, Texts{by("implDo_domusers", "Failure instantiating DomainController")});
}

TEST_F(ListingErrorsOnly, DomainGroupsTellWhyTheControllerCouldNotBeStarted) {
    run(&Checker::implDo_domgroups, domain + startFails);
    EXPECT_EQ(printed, inFile(QVString(3262)) + inFile(QVString(3277, L"Operation failed: no start")));
    EXPECT_EQ(asked, (Texts{start, stop}));
    EXPECT_EQ(errors, Texts{by("implDo_domgroups", "Failure instantiating DomainController")});
}

TEST_F(ListingErrorsOnly, GroupsOfDomainUsersTellWhyTheControllerCouldNotBeStarted) {
    run(&Checker::implDo_domusergr, domain + startFails);
    EXPECT_EQ(printed, inFile(QVString(3264)) + inFile(QVString(3277, L"Operation failed: no start")));
    EXPECT_EQ(asked, (Texts{start, stop}));
    EXPECT_EQ(errors, Texts{by("implDo_domusergr", "Error occured creating instance of DomainController")});
}

TEST_F(ListingErrorsOnly, AFailedListOfDomainUsersIsToldOf) {
    run(&Checker::implDo_domusers,
        domain + std::string("[failures]\nQVUser::mf_getDomainUserList : answer 0\n"));
    EXPECT_EQ(printed, inFile(QVString(3263)) + inFile(QVString(3492)));
    EXPECT_EQ(asked, (Texts{start, isJoined, domainUsers, stop}));
    EXPECT_EQ(errors, Texts{by("implDo_domusers", "Error retrieving domain controller user list")});
}

TEST_F(ListingErrorsOnly, AFailedListOfDomainGroupsIsToldOf) {
    run(&Checker::implDo_domgroups,
        domain + std::string("[failures]\nQVGroup::mf_getDomainLocalGroupList : answer 0\n"));
    EXPECT_EQ(printed, inFile(QVString(3262)) + inFile(QVString(3492)));
    EXPECT_EQ(asked, (Texts{start, isJoined, domainGroups, stop}));
    EXPECT_EQ(errors, Texts{by("implDo_domgroups", "Error retrieving list of the domain local groups")});
}

TEST_F(ListingErrorsOnly, AListOfDomainGroupsThatThrowsIsToldOf) {
    run(&Checker::implDo_domgroups,
        domain + std::string("[failures]\nQVGroup::mf_getDomainLocalGroupList : error Memory \"no list\"\n"));
    EXPECT_EQ(printed, inFile(QVString(3262)) + inFile(QVString(3493, L"Not enough memory: no list")));
    EXPECT_EQ(asked, (Texts{start, isJoined, domainGroups, stop}));
    EXPECT_EQ(errors, Texts{by("implDo_domgroups", "Failure retrieving list of the domain local groups")});
}

TEST_F(ListingErrorsOnly, AFailedListOfUsersWithTheirGroupsIsToldOf) {
    run(&Checker::implDo_domusergr,
        domain + std::string("[failures]\nQVUser::mf_getDomainUserList : answer 0\n"));
    EXPECT_EQ(printed, inFile(QVString(3264)) + inFile(QVString(3494)));
    EXPECT_EQ(asked, (Texts{start, isJoined, domainUsers, stop}));
    EXPECT_EQ(errors, Texts{by("implDo_domusergr", "Failure while retrieving domain users list")});
}

TEST_F(ListingErrorsOnly, OneUserWhoseGroupsFailShowsAllUsers) {
    run(&Checker::implDo_domusergr,
        domain + std::string("[failures]\nQVUser::mf_getDomainLocalGroupList \"ann\" : answer 0\n"));
    const std::string ann =
        inFile(QVString(3351, L"CORP\\ann")) + inFile(QVString(3285)) + inFile(QVString(3279));
    const std::string ben = inFile(QVString(3351, L"CORP\\ben")) + inFile(QVString(3285));
    EXPECT_EQ(printed, inFile(QVString(3264)) + ann + ben + inFile(L"        CORP\\Team\n"));
    EXPECT_EQ(asked, (Texts{start, isJoined, domainUsers, groupsOfUser, groupsOfUser, stop}));
    EXPECT_EQ(errors, Texts());
}
