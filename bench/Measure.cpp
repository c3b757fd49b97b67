// keelbright-measure WORK ARGUMENT...
//
// Runs one service or the real window (on the platform of QT_QPA_PLATFORM) and prints the measured
// values, one per line.

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/system/OpenFileLimit.h"
#include "bench/PlainCopy.h"
#include "bench/ServiceMeasures.h"
#include "bench/StorageMeasures.h"
#include "bench/WindowMeasures.h"
#include "tests/support/MadeUpMac.h"
#include "tests/support/TestMac.h"

#include <QApplication>
#include <QHash>

#include <cstdio>
#include <functional>
#include <optional>

namespace keelbright::bench {
namespace {

constexpr const char* usage =
    "usage: keelbright-measure [cold] scan TREE | size TREE | junk HOME | linux-junk MACHINE |\n"
    "                          level FOLDER | walk TREE | largest TREE | treemap CELLS | plan FOLDER |\n"
    "                          apps MACHINE COUNT |\n"
    "                          backup TREE DRIVE | check TREE DRIVE | plain TREE FOLDER | lay MACHINE | "
    "visit MACHINE |\n"
    "                          rest MACHINE SCREEN | screens | start SINCE\n"
    "\"cold\" leaves out the run before the one that is measured. A MACHINE is a folder that stands\n"
    "for the root; SINCE is the moment at which this process was started, in nanoseconds of the\n"
    "monotonic clock.\n";

int printScreens()
{
    for (const Screen screen : allScreens())
        std::puts(qPrintable(rawValue(screen)));
    return 0;
}

/// Nothing if there is no such work or it has another number of arguments.
std::optional<int> measure(const QString& work, const QStringList& arguments, Caches caches)
{
    const auto url = [&arguments](int place) { return FileURL::fromPath(arguments.at(place)); };

    struct Work
    {
        int arguments;
        std::function<std::optional<int>()> measure;
    };

    const QHash<QString, Work> works = {
        {QStringLiteral("scan"), {1, [&] { return measureScan(url(0), caches); }}},
        {QStringLiteral("junk"), {1, [&] { return measureJunk(url(0), caches); }}},
        {QStringLiteral("linux-junk"), {1, [&] { return measureLinuxJunk(url(0), caches); }}},
        {QStringLiteral("apps"), {2, [&] { return measureApps(url(0), arguments.at(1).toInt()); }}},
        {QStringLiteral("backup"), {2, [&] { return measureBackup(url(0), url(1)); }}},
        {QStringLiteral("check"), {2, [&] { return measureCheck(url(0), url(1)); }}},
        {QStringLiteral("plain"), {2, [&] { return measurePlainCopy(url(0), url(1)); }}},
        {QStringLiteral("visit"), {1, [&] { return measureVisits(url(0)); }}},
        {QStringLiteral("screens"), {0, printScreens}},
        {QStringLiteral("lay"),
         {1,
          [&] {
              testing::MadeUpMac(url(0)).populate();
              return 0;
          }}},
        {QStringLiteral("rest"),
         {2,
          [&]() -> std::optional<int> {
              const auto screen = screenFromRawValue(arguments.at(1));
              return screen ? std::optional(rest(url(0), *screen)) : std::nullopt;
          }}},
    };
    if (const auto found = works.find(work); found != works.end())
        return found->arguments == arguments.size() ? found->measure() : std::nullopt;
    return arguments.size() == 1 ? measureStorage(work, arguments.first(), caches) : std::nullopt;
}

} // namespace
} // namespace keelbright::bench

int main(int argc, char** argv)
{
    using namespace keelbright;
    if (argc == 3 && QByteArrayView(argv[1]) == "start")
        return bench::measureStart(QByteArray(argv[2]).toLongLong(), argv);
    OpenFileLimit::raise();
    const QApplication application(argc, argv);
    const testing::TestMac mac;
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool isCold = arguments.value(0) == QStringLiteral("cold");
    if (isCold)
        arguments.removeFirst();
    const auto code = bench::measure(arguments.value(0), arguments.mid(1),
                                     isCold ? bench::Caches::cold : bench::Caches::warm);
    if (!code)
        std::fputs(bench::usage, stderr);
    return code.value_or(2);
}
