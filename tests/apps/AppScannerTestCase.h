#pragma once

#include "KeelbrightCore/apps/AppScanner.h"
#include "tests/support/MadeUpApplication.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QCoreApplication>
#include <algorithm>
#include <gtest/gtest.h>

namespace keelbright::testing {

/// A machine without applications, and the names of what a scan finds on it.
class AppScannerTestCase : public ::testing::Test
{
protected:
    using Entries = QList<std::pair<QByteArray, QByteArray>>;

    /// A bundle with these texts in its property list; `path` is relative to the root.
    void addBundle(const QByteArray& path, const Entries& entries,
                   PropertyListForm form = PropertyListForm::xml) const
    {
        m_files.text(path + "/Contents/Info.plist", madeUpPropertyList(entries, form));
    }

    /// One whose property list holds its identifier only.
    void addBundle(const QByteArray& path, const QByteArray& bundleID = "org.example.app") const
    {
        addBundle(path, Entries{{"CFBundleIdentifier", bundleID}});
    }

    void addNumberedBundles(int count) const
    {
        for (int number = 0; number < count; ++number)
            addBundle("Applications/App" + QByteArray::number(number) + ".app");
    }

    /// The metadata tool, as shell lines. They know the bundle as "$bundle", its file name as
    /// "$name" and the root of the machine as "$root".
    void setMetadataTool(const QByteArray& lines) const
    {
        m_files.program("usr/bin/mdls", "#!/bin/sh\nfor bundle; do :; done\nname=${bundle##*/}\n"
                                        "root=${0%/usr/bin/mdls}\n" +
                                            lines + '\n');
    }

    [[nodiscard]] QList<AppInfo> scan() const { return AppScanner::scan(m_mac.clock()).result(); }

    /// The only application there is.
    [[nodiscard]] AppInfo scanOne() const
    {
        const QList<AppInfo> apps = scan();
        if (apps.size() != 1) {
            ADD_FAILURE() << "there are " << apps.size();
            return AppInfo({});
        }
        return apps.first();
    }

    /// Where the applications lie, below the root, sorted.
    [[nodiscard]] QByteArrayList paths() const
    {
        QByteArrayList paths;
        for (const AppInfo& app : scan())
            paths.append(app.url.nativePath().sliced(m_mac.root().nativePath().size() + 1));
        std::ranges::sort(paths);
        return paths;
    }

    // No future can be waited for once there was an application and it has gone.
    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};

    TestMac m_mac;
    MadeUpFiles m_files{m_mac.root(), m_mac.clock()()};
};

} // namespace keelbright::testing
