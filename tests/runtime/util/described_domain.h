#pragma once

/// What the tests share that ask a described machine for its domain.

#include "runtime/util/DomainSession.h"
#include "runtime/util/OwnedArray.h"
#include "runtime/util/QVDomainController.h"
#include "runtime/util/QVUser.h"
#include "tests/runtime/host/description/machine_fixture.h"

/// A computer of a domain, two of whose three users belong to a group; further groups may follow.
inline const std::string company = R"(
[system]
computer = WS01
[domain]
joined = yes
name = CORP
controller = DC01
[domain users]
alice
bob
carol
[global groups]
Staff = bob, carol
[domain groups]
Readers = Staff
)";

/// The domain's instance is stopped before and after each test.
class DescribedDomain : public DescribedMachine {
protected:
    DescribedDomain() { QVDomainController::stop(); }
    ~DescribedDomain() override { QVDomainController::stop(); }

    /// Examines a machine, with the instance started anew.
    static void startOn(const std::string& machine) {
        QVDomainController::stop();
        describe(machine);
        QVDomainController::start();
    }
};

/// The same, with a list of users.
class ListedDomain : public DescribedDomain {
protected:
    /// Examines a machine and forgets the list.
    void startAnew(const std::string& machine) {
        deleteElements(m_users);
        startOn(machine);
    }
    /// Examines a machine and lists the users of its domain.
    void listUsersOf(const std::string& machine) {
        startAnew(machine);
        ASSERT_EQ(QVUser::mf_getDomainUserList(m_users), 1);
    }

    OwnedArray<QVUser> m_users;
};
