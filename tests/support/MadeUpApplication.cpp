#include "tests/support/MadeUpApplication.h"

#include "tests/support/MadeUpIcon.h"

namespace keelbright::testing {

namespace {

QByteArray propertyList(const MadeUpApplication& application)
{
    return madeUpPropertyList({{"CFBundleName", application.name},
                               {"CFBundleIdentifier", application.bundleID},
                               {"CFBundleShortVersionString", application.version},
                               {"CFBundleIconFile", "AppIcon"},
                               {"CFBundlePackageType", "APPL"}},
                              application.form);
}

/// The form in which the metadata tool prints: keys padded to one width, sorted.
QByteArray metadata(const MadeUpFiles& files, const MadeUpApplication& application)
{
    const auto date = [&files](std::optional<int> daysAgo) -> QByteArray {
        if (!daysAgo.has_value())
            return "(null)";
        return files.now().toUTC().addDays(-*daysAgo).toString(u"yyyy-MM-dd HH:mm:ss").toLatin1() + " +0000";
    };
    const QByteArray uses =
        application.useCount.has_value() ? QByteArray::number(*application.useCount) : "(null)";
    return "kMDItemDateAdded    = " + date(application.addedDaysAgo) +
           "\nkMDItemLastUsedDate = " + date(application.lastUsedDaysAgo) +
           "\nkMDItemUseCount     = " + uses + "\n";
}

} // namespace

void addApplication(const MadeUpFiles& files, const QByteArray& folder, const MadeUpApplication& application)
{
    const QByteArray contents = folder + '/' + application.name + ".app/Contents";
    files.text(contents + "/Info.plist", propertyList(application));
    files.text(contents + "/PkgInfo", "APPL????");
    files.text(contents + "/Resources/AppIcon.icns", madeUpIcon(application.iconColour));
    files.hole(contents + "/MacOS/" + application.name, application.binaryBytes);
    files.text(contents + "/.metadata", metadata(files, application));
}

void addMetadataTool(const MadeUpFiles& files)
{
    files.program("usr/bin/mdls", R"(#!/bin/sh
# Called as: -name KEY -name KEY -name KEY PATH
for bundle; do :; done
if [ ! -e "$bundle" ]; then
    echo "$bundle: could not find $bundle."
    exit 1
fi
cat "$bundle/Contents/.metadata" 2>/dev/null || printf '%s\n' \
    'kMDItemDateAdded    = (null)' \
    'kMDItemLastUsedDate = (null)' \
    'kMDItemUseCount     = (null)'
)");
}

} // namespace keelbright::testing
