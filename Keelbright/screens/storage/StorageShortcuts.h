#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QObject>
#include <QSet>
#include <array>

namespace keelbright {

/// The folders of the home that a walk often starts from, and which of them exist. Main thread; the
/// file system is asked in the background.
class StorageShortcuts : public QObject
{
    Q_OBJECT

public:
    enum class Place { home, documents, desktop, downloads, pictures };

    /// In their order on screen.
    static constexpr std::array allPlaces{Place::home, Place::documents, Place::desktop, Place::downloads,
                                          Place::pictures};

    using QObject::QObject;

    [[nodiscard]] static FileURL folder(Place place);

    /// What the last look at the file system found; true before the first one.
    [[nodiscard]] bool exists(Place place) const { return !m_missing.contains(place); }

    /// Looks at the file system in the background, and once more where a look is under way already.
    void lookUp();

Q_SIGNALS:
    /// Another place exists than before.
    void changed();

private:
    [[nodiscard]] static QSet<Place> missingPlaces();

    QSet<Place> m_missing;
    bool m_isLooking = false;
    bool m_looksAgain = false;
};

} // namespace keelbright
