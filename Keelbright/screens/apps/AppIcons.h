#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QCache>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QSet>
#include <utility>

namespace keelbright {

/// The icons of applications. What is not at hand is read in the background, what was asked for last
/// first, so that a list that is scrolled fast has the rows that stand on screen. Main thread only.
class AppIcons : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The icon of a bundle as a square of that many device-independent pixels, for the sharpest
    /// screen there is. Null while it is not known, and where the bundle has none.
    [[nodiscard]] QPixmap icon(const FileURL& bundle, int side);

Q_SIGNALS:
    /// From now on `icon` gives it.
    void loaded(const keelbright::FileURL& bundle);

private:
    using Key = std::pair<FileURL, int>; ///< bundle and side in real pixels

    void request(const Key& key);
    void readNext();
    void take(const Key& key, const QImage& image);

    QCache<Key, QPixmap> m_icons{24'576}; ///< the cost of each is in kilobytes
    QList<Key> m_waiting;
    QSet<Key> m_atWork;
};

} // namespace keelbright
