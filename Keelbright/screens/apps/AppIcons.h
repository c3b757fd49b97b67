#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QCache>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QSet>
#include <utility>

namespace keelbright {

/// The icons of applications, kept as long as there is room. Others are read in the background, the last
/// requested first, so that a list that is scrolled fast shows those of its visible rows. Main thread
/// only.
class AppIcons : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The icon of a bundle as a square of that many device-independent pixels, sharp on every screen.
    /// Null until it is read, and if the bundle has none.
    [[nodiscard]] QPixmap icon(const FileURL& bundle, int side);

Q_SIGNALS:
    /// `icon` returns it from now on.
    void loaded(const keelbright::FileURL& bundle);

private:
    using Key = std::pair<FileURL, int>; ///< bundle and side in real pixels

    void request(const Key& key);
    void readNext();
    void keep(const Key& key, const QImage& image);

    QCache<Key, QPixmap> m_icons{24'576}; ///< counted in kilobytes
    QList<Key> m_waiting;
    QSet<Key> m_reading;
};

} // namespace keelbright
