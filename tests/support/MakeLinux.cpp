// make-linux FOLDER: fills an empty folder with a made-up Linux desktop and prints the path of its home.

#include "tests/support/MadeUpLinux.h"
#include "tests/support/MakeMachine.h"

int main(int argc, char** argv)
{
    using namespace keelbright;
    using testing::MadeUpLinux;
    const std::optional<FileURL> root = testing::folderToFill(argc, argv);
    if (!root)
        return 2;
    const MadeUpLinux desktop({*root, QDateTime::currentDateTimeUtc()}, MadeUpLinux::Desktop::gnome,
                              MadeUpLinux::Language::english);
    desktop.populate();
    std::puts(desktop.home().nativePath().constData());
    return 0;
}
