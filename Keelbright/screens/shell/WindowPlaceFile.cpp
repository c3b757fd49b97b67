#include "Keelbright/screens/shell/WindowPlaceFile.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/Logging.h"

#include <QJsonDocument>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 maximumSize = 4'096; // bytes; a larger file is not of the program

} // namespace

WindowPlaceFile::WindowPlaceFile(const FileURL& settings)
    : m_file(settings.appending(u"window.json"_s))
{}

std::optional<WindowPlace> WindowPlaceFile::load() const
{
    const auto data = FileManager::defaultManager().contents(m_file, maximumSize);
    if (!data)
        return std::nullopt;
    const auto json = decodeJsonObject(*data);
    const auto place = json ? WindowPlace::fromJson(*json) : std::unexpected(json.error());
    if (place)
        return *place;
    qCDebug(screensLog).noquote() << "window.json is of no use:" << place.error().localizedDescription();
    return std::nullopt;
}

void WindowPlaceFile::save(const WindowPlace& place) const
{
    if (load() == place)
        return;
    const auto written = FileManager::defaultManager().writeAtomically(
        m_file, QJsonDocument(place.toJson()).toJson(QJsonDocument::Indented));
    if (!written)
        qCDebug(screensLog).noquote() << written.error().localizedDescription();
}

} // namespace keelbright
