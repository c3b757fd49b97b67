#pragma once

#include "KeelbrightCore/apps/AppInfo.h"

#include <QCache>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QSet>
#include <QTimer>
#include <utility>

namespace keelbright {

/// The icons of applications, kept as long as there is room. Others are read in the background or, where the
/// icon theme has them, drawn one after the other, the last requested first, so that a list that is scrolled
/// fast shows those of its visible rows. Main thread only.
class AppIcons : public QObject
{
    Q_OBJECT

public:
    explicit AppIcons(QObject* parent = nullptr);

    /// The icon of an application as a square of that many device-independent pixels, sharp on every
    /// screen. Null until it is read, and if the application has none. `name` is its name in the icon
    /// theme, if it has one.
    [[nodiscard]] QPixmap icon(const FileURL& source, int side, const QString& name = {});

    /// Where the icon of the application is read from: its bundle, or the picture that it names.
    [[nodiscard]] static FileURL sourceOf(const AppFacts& app);

Q_SIGNALS:
    /// `icon` returns what is read from there from now on.
    void loaded(const keelbright::FileURL& source);

private:
    using Key = std::pair<FileURL, int>; ///< source and side in real pixels

    void drawNext();
    void request(const Key& key);
    void readNext();
    void store(const Key& key, const QImage& image);
    void keep(const Key& key, const QImage& image);

    QCache<Key, QPixmap> m_icons{24'576}; ///< counted in kilobytes
    QList<Key> m_waiting;
    QList<std::pair<Key, QString>> m_toDraw; ///< each with its name in the icon theme
    QTimer m_turn;
    QSet<Key> m_reading;
};

} // namespace keelbright
