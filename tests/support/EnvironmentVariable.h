#pragma once

#include <QByteArray>

namespace keelbright::testing {

/// A variable of the environment that a test sets and unsets, and that holds again what it held
/// before when this goes.
class EnvironmentVariable
{
public:
    explicit EnvironmentVariable(const char* name)
        : m_name(name)
        , m_wasSet(qEnvironmentVariableIsSet(name))
        , m_previous(qgetenv(name))
    {}

    ~EnvironmentVariable() { restore(); }

    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

    void set(const QByteArray& value) const { qputenv(m_name, value); }

    void unset() const { qunsetenv(m_name); }

    /// What it held when this began.
    void restore() const
    {
        if (m_wasSet)
            set(m_previous);
        else
            unset();
    }

private:
    const char* m_name;
    bool m_wasSet;
    QByteArray m_previous;
};

} // namespace keelbright::testing
