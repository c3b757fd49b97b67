#pragma once

#include <QLocale>

namespace keelbright::testing {

/// Numbers as American English has them while this lives, whatever the machine is set to.
class EnglishNumbers
{
public:
    EnglishNumbers() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    ~EnglishNumbers() { QLocale::setDefault(m_previous); }

    EnglishNumbers(const EnglishNumbers&) = delete;
    EnglishNumbers& operator=(const EnglishNumbers&) = delete;

private:
    QLocale m_previous;
};

} // namespace keelbright::testing
