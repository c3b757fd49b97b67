#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

namespace keelbright::testing {

/// While it lives, the program has the rights of a plain user, even where the tests run as root,
/// to whom no permission applies.
class UnprivilegedUser
{
public:
    static constexpr uid_t nobody = 65534;

    UnprivilegedUser()
        : m_previous(::geteuid())
    {
        if (m_previous == 0 && ::seteuid(nobody) != 0)
            ADD_FAILURE() << "can't become a plain user";
    }

    ~UnprivilegedUser()
    {
        if (::geteuid() != m_previous && ::seteuid(m_previous) != 0)
            ADD_FAILURE() << "can't become root again";
    }

    UnprivilegedUser(const UnprivilegedUser&) = delete;
    UnprivilegedUser& operator=(const UnprivilegedUser&) = delete;

private:
    uid_t m_previous;
};

} // namespace keelbright::testing
