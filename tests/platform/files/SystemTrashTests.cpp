#include "KeelbrightCore/platform/files/SystemTrash.h"

#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright {
namespace {

FileURL at(const char* path)
{
    return FileURL::fromNativePath(path);
}

TEST(SystemTrash, whatLiesInTheTrashOfTheHomeStaysThere)
{
    const testing::TestMac mac;
    const FileURL trash = mac.makeFolder("home/.Trash");
    const auto reasonFor = [&](const FileURL& item) {
        return reasonForTrashPlace(item, trash, TrashRelation::outside);
    };
    EXPECT_EQ(reasonFor(trash.appendingNative("item")), FileError::Reason::alreadyInTrash);
    EXPECT_EQ(reasonFor(trash.appendingNative("folder/item")), FileError::Reason::alreadyInTrash);
    EXPECT_EQ(reasonFor(trash), FileError::Reason::neededInItsPlace);
    EXPECT_EQ(reasonFor(trash.deletingLastPathComponent()), FileError::Reason::neededInItsPlace)
        << "it holds the Trash";
    EXPECT_EQ(reasonFor(mac.root().appendingNative("home/.Trash-like")), std::nullopt);
    EXPECT_EQ(reasonFor(mac.root().appendingNative("home/Documents")), std::nullopt);
}

TEST(SystemTrash, whatLiesInTheTrashOfAVolumeStaysThere)
{
    const FileURL trash = at("/nowhere/.Trash");
    EXPECT_EQ(reasonForTrashPlace(at("/a/item"), trash, TrashRelation::inside),
              FileError::Reason::alreadyInTrash);
    EXPECT_EQ(reasonForTrashPlace(at("/a/item"), trash, TrashRelation::isTrash),
              FileError::Reason::neededInItsPlace);
}

TEST(SystemTrash, theTrashesOfAVolumeAreKnownByTheirName)
{
    EXPECT_EQ(relationToTrashes(at("/Volumes/Drive/.Trashes/501/item")), TrashRelation::inside);
    EXPECT_EQ(relationToTrashes(at("/Volumes/Drive/.Trashes/501/folder/item")), TrashRelation::inside);
    EXPECT_EQ(relationToTrashes(at("/Volumes/Drive/.Trashes/501")), TrashRelation::isTrash);
    EXPECT_EQ(relationToTrashes(at("/Volumes/Drive/.Trashes")), TrashRelation::isTrash);
    EXPECT_EQ(relationToTrashes(at("/Volumes/Drive/Trashes/501/item")), TrashRelation::outside);
    EXPECT_EQ(relationToTrashes(at("/Volumes/Drive/item.Trashes")), TrashRelation::outside);
}

TEST(SystemTrash, theReasonOfAFailureIsKept)
{
    EXPECT_EQ(codeOfCocoaError(4), ENOENT);
    EXPECT_EQ(codeOfCocoaError(513), EACCES);
    EXPECT_EQ(codeOfCocoaError(640), ENOSPC);
    EXPECT_EQ(codeOfCocoaError(642), EROFS);
    EXPECT_EQ(codeOfCocoaError(3328), ENOTSUP);
    EXPECT_EQ(codeOfCocoaError(-1), EPERM);
}

} // namespace
} // namespace keelbright
