// make-mac FOLDER: fills an empty folder with a made-up machine and prints the path of its home.

#include "tests/support/MadeUpMac.h"

#include <cstdio>
#include <filesystem>

int main(int argc, char** argv)
{
    using namespace keelbright;
    std::error_code failure;
    if (argc != 2 ||
        (std::filesystem::exists(argv[1], failure) && !std::filesystem::is_empty(argv[1], failure))) {
        std::fputs("usage: make-mac FOLDER (a new or empty one)\n", stderr);
        return 2;
    }
    const std::string root = std::filesystem::absolute(argv[1]).string();
    const testing::MadeUpMac mac(FileURL::fromNativePath(QByteArray::fromStdString(root)));
    mac.populate();
    std::puts(mac.home().nativePath().constData());
    return 0;
}
