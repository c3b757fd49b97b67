// make-mac FOLDER: fills an empty folder with a made-up machine and prints the path of its home.

#include "tests/support/MadeUpMac.h"
#include "tests/support/MakeMachine.h"

int main(int argc, char** argv)
{
    using namespace keelbright;
    const std::optional<FileURL> root = testing::folderToFill(argc, argv);
    if (!root)
        return 2;
    const testing::MadeUpMac mac(*root);
    mac.populate();
    std::puts(mac.home().nativePath().constData());
    return 0;
}
