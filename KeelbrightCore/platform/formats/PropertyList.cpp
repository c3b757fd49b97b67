#include "KeelbrightCore/platform/formats/PropertyList.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/formats/BinaryPropertyList.h"
#include "KeelbrightCore/platform/formats/XmlPropertyList.h"

#include <sys/stat.h>

namespace keelbright {

std::optional<QVariantMap> PropertyList::dictionary(const QByteArray& data)
{
    if (data.size() > maximumBytes)
        return std::nullopt;
    const std::optional<QVariant> top =
        data.startsWith("bplist") ? BinaryPropertyList::read(data) : XmlPropertyList::read(data);
    if (!top || top->typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    return top->toMap();
}

std::optional<QVariantMap> PropertyList::dictionaryAt(const FileURL& url)
{
    struct stat status = {};
    if (::stat(url.nativePath().constData(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > maximumBytes)
        return std::nullopt;
    const auto data = FileManager::defaultManager().contents(url);
    return data ? dictionary(*data) : std::nullopt;
}

} // namespace keelbright
