#include "Keelbright/screens/apps/AppIcons.h"

#include "Keelbright/screens/apps/AppIconFile.h"
#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QGuiApplication>
#include <QtConcurrentRun>
#include <QtMath>

namespace keelbright {

namespace {

constexpr qsizetype readsAtOnce = 2;
/// More rows than stand on any screen; who scrolled past asks again when he comes back.
constexpr qsizetype longestQueue = 200;

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
    if (m_atWork.contains(key))
        return;
    m_waiting.removeOne(key);
    m_waiting.append(key);
    if (m_waiting.size() > longestQueue)
        m_waiting.removeFirst();
    readNext();
}

void AppIcons::readNext()
{
    while (m_atWork.size() < readsAtOnce && !m_waiting.isEmpty()) {
        const Key key = m_waiting.takeLast();
        m_atWork.insert(key);
        deliver(QtConcurrent::run(&TaskPools::utility(), AppIconFile::read, key.first, key.second), this,
                [this, key](const QImage& image) { take(key, image); });
    }
}

void AppIcons::take(const Key& key, const QImage& image)
{
    constexpr qsizetype kilobyte = 1024;
    m_atWork.remove(key);
    m_icons.insert(key, new QPixmap(QPixmap::fromImage(image)), 1 + image.sizeInBytes() / kilobyte);
    Q_EMIT loaded(key.first);
    readNext();
}

} // namespace keelbright
