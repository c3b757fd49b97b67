#include "KeelbrightCore/platform/files/FileURL.h"

#include <gtest/gtest.h>

namespace keelbright {
namespace {

FileURL url(const char* path)
{
    return FileURL::fromNativePath(path);
}

TEST(FileURL, dropsDoubledAndTrailingSlashesAndKeepsDots)
{
    EXPECT_EQ(url("//Users//mira///a/").nativePath(), "/Users/mira/a");
    EXPECT_EQ(url("/a/./b/../c").nativePath(), "/a/./b/../c");
    EXPECT_EQ(url("/").nativePath(), "/");
    EXPECT_EQ(url("///").nativePath(), "/");
    EXPECT_EQ(url("").nativePath(), "/");
}

TEST(FileURL, takesARelativePathAsBelowTheRoot)
{
    EXPECT_EQ(url("a/b").nativePath(), "/a/b");
}

TEST(FileURL, dropsWhatFollowsANul)
{
    EXPECT_EQ(FileURL::fromNativePath(QByteArray("/a\0/b", 5)).nativePath(), "/a");
}

TEST(FileURL, splitsItsLastComponent)
{
    EXPECT_EQ(url("/Users/mira").lastPathComponent(), QStringLiteral("mira"));
    EXPECT_EQ(url("/Users/mira").deletingLastPathComponent(), url("/Users"));
    EXPECT_EQ(url("/Users").deletingLastPathComponent(), url("/"));
    EXPECT_EQ(url("/").lastPathComponent(), QStringLiteral("/"));
    EXPECT_EQ(url("/").deletingLastPathComponent(), url("/"));
}

TEST(FileURL, appendsComponentsAndPaths)
{
    EXPECT_EQ(url("/").appending(QStringLiteral("a")), url("/a"));
    EXPECT_EQ(url("/a").appending(QStringLiteral("b/c")), url("/a/b/c"));
    EXPECT_EQ(url("/a").appending(QStringLiteral("/b")), url("/a/b"));
    EXPECT_EQ(url("/a").appending(QString()), url("/a"));
}

TEST(FileURL, findsTheExtensionBehindTheLastDot)
{
    EXPECT_EQ(url("/a/photo.tar.GZ").pathExtension(), QStringLiteral("GZ"));
    EXPECT_EQ(url("/a/photo").pathExtension(), QString());
    EXPECT_EQ(url("/a/.zshrc").pathExtension(), QString());
    EXPECT_EQ(url("/a/photo.").pathExtension(), QString());
    EXPECT_EQ(url("/a.app/photo").pathExtension(), QString());
}

TEST(FileURL, showsUndecodableBytesAsReplacementCharactersOnly)
{
    const FileURL odd = url("/a/b\xff\xc3(");
    EXPECT_EQ(odd.nativeLastPathComponent(), QByteArray("b\xff\xc3("));
    EXPECT_EQ(odd.lastPathComponent(), QStringLiteral("b\uFFFD\uFFFD("));
}

TEST(FileURL, encodesEverythingButPathCharacters)
{
    EXPECT_EQ(url("/Users/mira/My Photos/50%#?").absoluteString(),
              QStringLiteral("file:///Users/mira/My%20Photos/50%25%23%3F"));
    EXPECT_EQ(FileURL::fromPath(QStringLiteral("/é")).absoluteString(), QStringLiteral("file:///%C3%A9"));
    EXPECT_EQ(url("/").absoluteString(), QStringLiteral("file:///"));
}

TEST(FileURL, readsBackEveryByteThatANameCanHold)
{
    QByteArray name;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '/')
            name.append(static_cast<char>(byte));
    }
    const FileURL original = FileURL::fromNativePath("/odd/" + name);
    const auto again = FileURL::fromAbsoluteString(original.absoluteString());
    ASSERT_TRUE(again.has_value());
    EXPECT_EQ(again->nativePath(), original.nativePath());
}

TEST(FileURL, readsAFolderTextWithATrailingSlashAndALocalHost)
{
    EXPECT_EQ(FileURL::fromAbsoluteString(QStringLiteral("file:///Volumes/Backup%20Drive/")),
              url("/Volumes/Backup Drive"));
    EXPECT_EQ(FileURL::fromAbsoluteString(QStringLiteral("file://localhost/a")), url("/a"));
    EXPECT_EQ(FileURL::fromAbsoluteString(QStringLiteral("FILE:///a%2fb")), url("/a/b"));
}

TEST(FileURL, refusesWhatIsNoFileText)
{
    for (const char* text : {"", "/a", "http:///a", "file:", "file://", "file://elsewhere/a", "file:///%",
                             "file:///%4", "file:///%zz", "file:///a%00b"})
        EXPECT_FALSE(FileURL::fromAbsoluteString(QString::fromLatin1(text)).has_value()) << text;
}

TEST(FileURL, hashesEqualLocationsAlike)
{
    EXPECT_EQ(qHash(url("/a/b")), qHash(url("/a//b/")));
}

TEST(FileURL, acceptsOnlyNamesThatAFolderCanHold)
{
    for (const char* name : {"a", ".a", "...", "a..b", "..a", "\xff", " ", "\\"})
        EXPECT_TRUE(isFileName(name)) << name;
    for (const char* name : {"", ".", "..", "/", "a/b", "../a", "a/"})
        EXPECT_FALSE(isFileName(name)) << name;
    EXPECT_FALSE(isFileName(QByteArrayView("a\0b", 3)));
}

} // namespace
} // namespace keelbright
