#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gmock/gmock.h>

// Windows without a display, and nothing of the user's own settings read or written.
int main(int argc, char** argv)
{
    const QTemporaryDir configuration;
    qputenv("XDG_CONFIG_HOME", configuration.path().toLocal8Bit());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
