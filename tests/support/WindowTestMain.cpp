#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <gmock/gmock.h>

// Windows without a display, and nothing of the user's own settings read or written.
int main(int argc, char** argv)
{
    const QTemporaryDir configuration;
    qputenv("XDG_CONFIG_HOME", configuration.path().toLocal8Bit());
    // Qt remembers where it first looked for settings; that must not be the folder of a single test.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, configuration.path());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
