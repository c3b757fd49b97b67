#include "tests/faults/CareFaultTest.h"

#include "KeelbrightCore/platform/files/FileManager.h"

#include <fcntl.h>
#include <unistd.h>

namespace keelbright::testing {

void CareFaultTest::write(const FileURL& file, const QByteArray& content)
{
    ASSERT_TRUE(FileManager::defaultManager().createDirectory(file.deletingLastPathComponent()));
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC;
    const int descriptor = ::open(file.nativePath().constData(), flags, 0644);
    ASSERT_EQ(::write(descriptor, content.constData(), static_cast<size_t>(content.size())), content.size());
    ::close(descriptor);
}

FileURL CareFaultTest::trashOf(const FileURL& top)
{
    return top.appendingNative(".Trash-" + QByteArray::number(::getuid()));
}

} // namespace keelbright::testing
