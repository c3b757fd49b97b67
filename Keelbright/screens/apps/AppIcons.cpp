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

/// Bounds the queue by giving up what was requested first.
template <typename Request> void putLast(QList<Request>& queue, const Request& request)
{
    queue.removeOne(request);
    queue.append(request);
    if (queue.size() > maximumRequests)
        queue.removeFirst();
}

} // namespace

AppIcons::AppIcons(QObject* parent)
    : QObject(parent)
{
    m_turn.setSingleShot(true);
    connect(&m_turn, &QTimer::timeout, this, &AppIcons::drawNext);
}

FileURL AppIcons::sourceOf(const AppFacts& app)
{
    return app.themeIcon.startsWith(u'/') ? FileManager::defaultManager().systemLocation(app.themeIcon)
                                          : app.url;
}

QPixmap AppIcons::icon(const FileURL& source, int side, const QString& name)
{
    const double ratio = qGuiApp->devicePixelRatio();
    const Key key(source, qCeil(side * ratio));
    if (const QPixmap* known = m_icons.object(key)) {
        QPixmap icon = *known;
        if (!icon.isNull())
            icon.setDevicePixelRatio(ratio);
        return icon;
    }
    if (name.isEmpty() || name.startsWith(u'/')) {
        request(key);
    } else {
        putLast(m_toDraw, {key, name});
        m_turn.start(0);
    }
    return {};
}

/// Icons of the theme are a matter of the main thread, and some take milliseconds: one in each turn of its
/// loop.
void AppIcons::drawNext()
{
    if (m_toDraw.isEmpty())
        return;
    const auto [key, name] = m_toDraw.takeLast();
    if (!m_toDraw.isEmpty())
        m_turn.start(0);
    const QImage picture = QIcon::fromTheme(name).pixmap(QSize(key.second, key.second)).toImage();
    store(key, picture.isNull() ? picture : AppIconFile::asSquare(picture, key.second));
    Q_EMIT loaded(key.first);
}

void AppIcons::request(const Key& key)
{
    if (m_reading.contains(key))
        return;
    putLast(m_waiting, key);
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
