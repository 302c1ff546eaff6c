#pragma once

/// Made-up directories for tests: users, groups within groups and in circles, members that nobody knows.

#include <random>
#include <string>
#include <vector>

class RandomDirectory {
public:
    /// A domain controller has no groups and users but the domain's.
    RandomDirectory(unsigned int seed, bool isController) : m_random(seed), m_isController(isController) {
        for (int i = 0; i < below(9) + 2; ++i)
            m_users.push_back("u" + std::to_string(i));
        for (int i = 0; !isController && i < below(4); ++i)
            m_localUsers.push_back("l" + std::to_string(i));
        for (int i = 0; i < below(6); ++i)
            m_global.push_back("CORP\\G" + std::to_string(i));
        for (int i = 0; i < below(6); ++i)
            m_domainLocal.push_back("CORP\\D" + std::to_string(i));
        for (int i = 0; !isController && i < below(5); ++i)
            m_local.push_back("WS01\\L" + std::to_string(i));
    }

    /// The description of the machine.
    std::string text() {
        std::string machine =
            "[system]\ncomputer = WS01\n[domain]\njoined = yes\nname = CORP\ncontroller = DC01\npage size = " +
            std::to_string(below(5) + 1) + "\nmember page size = " + std::to_string(below(4) + 1) + "\n";
        if (m_isController) machine += "role = controller\n";
        machine += "[users]\n";
        for (const std::string& name : m_localUsers)
            machine += name + "\n";
        machine += "[domain users]\n";
        for (const std::string& name : m_users)
            machine += name + userSid() + "\n";
        if (oneIn(3)) machine += "generate users = " + std::to_string(below(12)) + " g%02d\n";
        if (!m_isController) machine += "[groups]\nUsers (BUILTIN) = " + members() + "\n" + groups(m_local);
        machine += "[domain groups]\n" + groups(m_domainLocal) + "Users (BUILTIN) = " + members() + "\n";
        machine += "[global groups]\nDomain Users = *\n" + groups(m_global);
        return machine;
    }

    /// All groups but the built-in ones, with their domains.
    std::vector<std::string> groupNames() const {
        std::vector<std::string> names = m_global;
        names.insert(names.end(), m_domainLocal.begin(), m_domainLocal.end());
        names.insert(names.end(), m_local.begin(), m_local.end());
        return names;
    }

    bool oneIn(int count) { return below(count) == 0; }

private:
    int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned int>(end)); }

    std::string userSid() {
        if (oneIn(8)) return " = no sid";
        if (oneIn(8)) return " = S-1-5-21-5-5-5-" + std::to_string(m_nextSid++);
        return {};
    }

    std::string groups(const std::vector<std::string>& names) {
        std::string lines;
        for (const std::string& name : names)
            lines += name.substr(name.find('\\') + 1) + " = " + members() + "\n";
        return lines;
    }

    std::string members() {
        std::string list;
        for (int i = below(6); i > 0; --i)
            list += (list.empty() ? "" : ", ") + member();
        return list;
    }

    std::string member() {
        const auto anyOf = [this](const std::vector<std::string>& names, const std::string& before) {
            return names.empty()
                       ? std::string("Everyone")
                       : before + names[static_cast<std::size_t>(below(static_cast<int>(names.size())))];
        };
        switch (below(12)) {
            case 0: return "*";
            case 1: return "OTHER\\u1";
            case 2: return "S-1-5-21-6-6-6-1000";
            case 3: return "BUILTIN\\Users";
            case 4: return "CORP\\Domain Users";
            case 5: return anyOf(m_local, "");
            case 6:
            case 7: return anyOf(m_domainLocal, "");
            case 8:
            case 9: return anyOf(m_global, "");
            case 10: return anyOf(m_localUsers, "WS01\\");
            default: return anyOf(m_users, "CORP\\");
        }
    }

    std::mt19937 m_random;
    bool m_isController;
    unsigned int m_nextSid = 1000;
    std::vector<std::string> m_users, m_localUsers, m_global, m_domainLocal, m_local;
};
