#include "Keelbright/screens/apps/AppIcons.h"

#include "Keelbright/screens/apps/AppIconFile.h"
#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QGuiApplication>
#include <QtConcurrentRun>
#include <QtMath>

namespace keelbright {

namespace {

constexpr qsizetype maximumReads = 2;
/// More rows than any screen shows. A row whose request was dropped repeats it when it is painted again.
constexpr qsizetype maximumRequests = 200;

} // namespace

QPixmap AppIcons::icon(const FileURL& bundle, int side)
{
    const double ratio = qGuiApp->devicePixelRatio();
    const Key key(bundle, qCeil(side * ratio));
    if (const QPixmap* known = m_icons.object(key)) {
        QPixmap icon = *known;
        if (!icon.isNull())
            icon.setDevicePixelRatio(ratio);
        return icon;
    }
    request(key);
    return {};
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

void AppIcons::keep(const Key& key, const QImage& image)
{
    constexpr qsizetype kilobyte = 1024;
    m_reading.remove(key);
    m_icons.insert(key, new QPixmap(QPixmap::fromImage(image)), 1 + image.sizeInBytes() / kilobyte);
    Q_EMIT loaded(key.first);
    readNext();
}

} // namespace keelbright
