#include "KeelbrightCore/platform/files/DirectoryPieces.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <cstring>
#include <sys/attr.h>
#include <sys/unistd.h>
#include <tuple>

namespace keelbright {

namespace {

/// As the system's own header for file systems numbers them.
enum ObjectType : fsobj_type_t { noType = 0, regularFile = 1, directory = 2, symbolicLink = 5 };

std::optional<EntryType> typeOf(fsobj_type_t type)
{
    switch (type) {
    case regularFile:
        return EntryType::regularFile;
    case directory:
        return EntryType::directory;
    case symbolicLink:
        return EntryType::symbolicLink;
    case noType:
        return std::nullopt;
    default:
        return EntryType::other;
    }
}

/// The values of one entry, which follow each other without gaps but need not lie at a multiple of their
/// size.
class Values
{
public:
    explicit Values(const char* place)
        : m_place(place)
    {}

    template <typename Value> Value next()
    {
        Value value = {};
        std::memcpy(&value, m_place, sizeof(value));
        m_place += sizeof(value);
        return value;
    }

    /// The text that a value refers to.
    const char* nextText()
    {
        const char* const here = m_place;
        return here + next<attrreference_t>().attr_dataoffset;
    }

private:
    const char* m_place;
};

} // namespace

std::expected<size_t, int> DirectoryPieces::read(int folder, char* piece, size_t size)
{
    attrlist wanted = {};
    wanted.bitmapcount = ATTR_BIT_MAP_COUNT;
    wanted.commonattr =
        ATTR_CMN_RETURNED_ATTRS | ATTR_CMN_NAME | ATTR_CMN_ERROR | ATTR_CMN_OBJTYPE | ATTR_CMN_FILEID;
    wanted.fileattr = ATTR_FILE_DATALENGTH;
    const int count = retrying([&] { return ::getattrlistbulk(folder, &wanted, piece, size, 0); });
    if (count < 0 && errno != ENOENT) // which a folder answers that was removed meanwhile
        return std::unexpected(errno);
    size_t length = 0;
    for (int entry = 0; entry < count; ++entry)
        length += entryAt(piece + length).length;
    return length;
}

DirectoryPieces::Entry DirectoryPieces::entryAt(const char* place)
{
    Values values(place);
    Entry result;
    result.length = values.next<quint32>();
    const auto has = values.next<attribute_set_t>();
    if ((has.commonattr & ATTR_CMN_ERROR) != 0)
        std::ignore = values.next<quint32>(); // the look at the entry itself finds out again
    if ((has.commonattr & ATTR_CMN_NAME) != 0)
        result.entry.name = values.nextText();
    if ((has.commonattr & ATTR_CMN_OBJTYPE) != 0)
        result.entry.type = typeOf(values.next<fsobj_type_t>());
    if ((has.commonattr & ATTR_CMN_FILEID) != 0)
        result.entry.number = values.next<quint64>();
    if ((has.fileattr & ATTR_FILE_DATALENGTH) != 0)
        result.entry.size = values.next<off_t>();
    return result;
}

} // namespace keelbright
