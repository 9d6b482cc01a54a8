#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

namespace support {

// Runs as an ordinary user for a while, so that access rights count even where tests run as root.
// The group stays, so rights have to be given or taken for group and others alike.
class OrdinaryUser {
public:
    OrdinaryUser()
    {
        if (m_user == 0) {
            EXPECT_EQ(::seteuid(kNobody), 0);
        }
    }
    ~OrdinaryUser() { EXPECT_EQ(::seteuid(m_user), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t kNobody = 65534;

    uid_t m_user = ::geteuid();
};

} // namespace support
