#pragma once

/// What the tests share that ask a described machine for its domain.

#include "runtime/util/DomainSession.h"
#include "runtime/util/OwnedArray.h"
#include "runtime/util/QVDomainController.h"
#include "runtime/util/QVUser.h"
#include "tests/runtime/host/description/machine_fixture.h"

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
