#include "KeelbrightCore/check/Sha256.h"

#include <gtest/gtest.h>

namespace keelbright {

TEST(Sha256Tests, givesThePublishedValues)
{
    Sha256 checksum;
    EXPECT_EQ(checksum.result().toHex(), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    checksum.add("abc", 3);
    EXPECT_EQ(checksum.result().toHex(), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(Sha256Tests, beginsWithTheNextFileAfterEachResult)
{
    Sha256 checksum;
    checksum.add("something else", 14);
    std::ignore = checksum.result();
    checksum.add("a", 1);
    checksum.add("bc", 2);
    EXPECT_EQ(checksum.result().toHex(), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(Sha256Tests, addsTheZerosOfAHole)
{
    const QByteArray zeros(200'001, '\0');
    Sha256 written;
    written.add(zeros.constData(), zeros.size());
    Sha256 hole;
    hole.addZeros(zeros.size());
    EXPECT_EQ(hole.result(), written.result());
}

} // namespace keelbright
