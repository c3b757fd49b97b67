#include "Keelbright/screens/apps/AppIcons.h"

#include "Keelbright/screens/apps/AppIconFile.h"
#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QGuiApplication>
#include <QIcon>
#include <QtConcurrentRun>
#include <QtMath>

namespace keelbright {

namespace {

constexpr qsizetype maximumReads = 2;
/// More rows than any screen shows. A row whose request was dropped repeats it when it is painted again.
constexpr qsizetype maximumRequests = 200;

} // namespace

FileURL AppIcons::sourceOf(const AppFacts& app)
{
    return app.themeIcon.startsWith(u'/') ? FileManager::defaultManager().systemLocation(app.themeIcon)
                                          : app.url;
}

QPixmap AppIcons::icon(const FileURL& source, int side, const QString& name)
{
    const double ratio = qGuiApp->devicePixelRatio();
    const Key key(source, qCeil(side * ratio));
    QPixmap icon;
    if (const QPixmap* known = m_icons.object(key))
        icon = *known;
    else if (name.isEmpty() || name.startsWith(u'/'))
        request(key);
    else
        icon = drawn(name, key);
    if (!icon.isNull())
        icon.setDevicePixelRatio(ratio);
    return icon;
}

/// The theme reads and draws it here and now: a window's pictures can't be made elsewhere.
QPixmap AppIcons::drawn(const QString& name, const Key& key)
{
    const QImage picture = QIcon::fromTheme(name).pixmap(QSize(key.second, key.second)).toImage();
    store(key, picture.isNull() ? picture : AppIconFile::asSquare(picture, key.second));
    const QPixmap* icon = m_icons.object(key);
    return icon != nullptr ? *icon : QPixmap();
}

void AppIcons::request(const Key& key)
{
    if (m_reading.contains(key))
        return;
    m_waiting.removeOne(key);
    m_waiting.append(key);
    if (m_waiting.size() > maximumRequests)
        m_waiting.removeFirst();
    readNext();
}

void AppIcons::readNext()
{
    while (m_reading.size() < maximumReads && !m_waiting.isEmpty()) {
        const Key key = m_waiting.takeLast();
        m_reading.insert(key);
        deliver(QtConcurrent::run(&TaskPools::utility(), AppIconFile::read, key.first, key.second), this,
                [this, key](const QImage& image) { keep(key, image); });
    }
}

void AppIcons::store(const Key& key, const QImage& image)
{
    constexpr qsizetype kilobyte = 1024;
    m_icons.insert(key, new QPixmap(QPixmap::fromImage(image)), 1 + image.sizeInBytes() / kilobyte);
}

void AppIcons::keep(const Key& key, const QImage& image)
{
    m_reading.remove(key);
    store(key, image);
    Q_EMIT loaded(key.first);
    readNext();
}

} // namespace keelbright
