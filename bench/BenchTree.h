#pragma once

#include "tests/support/TestMac.h"

namespace keelbright::bench {

/// How many files the trees of the walks have: 100,000, or what KEELBRIGHT_BENCH_FILES says.
[[nodiscard]] inline int fileCount()
{
    bool isNumber = false;
    const int count = qEnvironmentVariableIntValue("KEELBRIGHT_BENCH_FILES", &isNumber);
    return isNumber && count > 0 ? count : 100'000;
}

/// Small files, a hundred to a folder, below `root` of the machine.
inline FileURL makeTree(const testing::TestMac& mac, const QByteArray& root, int files)
{
    for (int i = 0; i < files; ++i) {
        const QByteArray folder = root + "/folder" + QByteArray::number(i / 100).rightJustified(5, '0');
        mac.writeFile(folder + "/file" + QByteArray::number(i % 100) + ".txt", QByteArray(1 + i % 4000, 'x'));
    }
    return mac.root().appendingNative(root);
}

} // namespace keelbright::bench
