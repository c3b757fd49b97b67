#include "tests/support/TestMac.h"

#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/HelperRun.h"

#include <QDir>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <tuple>

namespace keelbright::testing {

namespace {

std::filesystem::path standardPath(const FileURL& url)
{
    return {url.nativePath().toStdString()};
}

} // namespace

TestMac::TestMac()
    : m_root(FileURL::fromPath(QDir(m_folder.path()).canonicalPath()))
    , m_fileManager(m_root)
    , m_guard(m_fileManager)
    , m_now(std::make_shared<QDateTime>(QDate(2026, 3, 2), QTime(9, 5, 7), utcZone))
{
    m_folder.setAutoRemove(false);
    if (!m_folder.isValid())
        ADD_FAILURE() << "no temporary folder: " << m_folder.errorString().toStdString();
    std::filesystem::create_directories(standardPath(home()));
    // What asks the environment instead of the file manager must not find the real ones.
    m_configurationHome.set(home().appendingNative(".config").nativePath());
    m_dataHome.set(m_fileManager.applicationSupportDirectory().nativePath());
    m_shell.set("/bin/zsh");
    setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    setTimeZone("Europe/Berlin");
}

TestMac::~TestMac()
{
    QLocale::setDefault(m_previousLocale);
    m_timeZone.restore();
    tzset();
    // Qt and the standard library both give up on trees that are deeper than the longest path. Not
    // by QProcess, whose fork leaves the thread sanitizer's child with locks that nobody holds.
    std::ignore =
        runToItsEnd(FileURL::fromPath(QStringLiteral("/bin/rm")), {"-rf", m_folder.path().toUtf8()});
}

FileURL TestMac::writeFile(const QByteArray& path, const QByteArray& content) const
{
    const FileURL url = m_root.appendingNative(path);
    std::filesystem::create_directories(standardPath(url.deletingLastPathComponent()));
    std::ofstream file(standardPath(url), std::ios::binary | std::ios::trunc);
    file.write(content.constData(), content.size());
    file.close();
    if (!file)
        ADD_FAILURE() << "can't write " << url.nativePath().toStdString();
    return url;
}

FileURL TestMac::makeFolder(const QByteArray& path) const
{
    const FileURL url = m_root.appendingNative(path);
    std::filesystem::create_directories(standardPath(url));
    return url;
}

QByteArray TestMac::read(const FileURL& url)
{
    std::ifstream file(standardPath(url), std::ios::binary);
    if (!file) {
        ADD_FAILURE() << "can't read " << url.nativePath().toStdString();
        return {};
    }
    return QByteArray::fromStdString({std::istreambuf_iterator<char>(file), {}});
}

void TestMac::setTimeZone(const QByteArray& ianaName)
{
    m_timeZone.set(ianaName);
    tzset();
}

void TestMac::setLocale(const QLocale& locale)
{
    QLocale::setDefault(locale);
}

Clock TestMac::clock() const
{
    return [now = m_now] { return *now; };
}

} // namespace keelbright::testing
