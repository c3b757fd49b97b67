#pragma once

#include "tests/support/TestMac.h"

namespace keelbright::bench {

/// The number of files in a tree: 100,000, or the value of KEELBRIGHT_BENCH_FILES.
[[nodiscard]] inline int fileCount()
{
    bool isNumber = false;
    const int count = qEnvironmentVariableIntValue("KEELBRIGHT_BENCH_FILES", &isNumber);
    return isNumber && count > 0 ? count : 100'000;
}

/// Makes small files below `root` of the machine, a hundred in each folder.
inline FileURL makeTree(const testing::TestMac& mac, const QByteArray& root, int files)
{
    for (int i = 0; i < files; ++i) {
        const QByteArray folder = root + "/folder" + QByteArray::number(i / 100).rightJustified(5, '0');
        mac.writeFile(folder + "/file" + QByteArray::number(i % 100) + ".txt", QByteArray(1 + i % 4000, 'x'));
    }
    return mac.root().appendingNative(root);
}

} // namespace keelbright::bench
