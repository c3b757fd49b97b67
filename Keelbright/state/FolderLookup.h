#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QHash>
#include <QObject>
#include <QUuid>
#include <optional>

namespace keelbright {

/// Looks up in the background which items are folders, for a list that asks about the rows on screen.
/// A place that does not answer, such as a drive on a lost network, holds this list's look-up and nothing
/// else. Main thread.
class FolderLookup : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Absent until it is known; `found` then follows. A link counts as what it leads to, and what does
    /// not exist as no folder.
    [[nodiscard]] std::optional<bool> isFolder(const QUuid& id, const FileURL& url);
    /// Looks everything up again, as it may have changed on disk.
    void forget();

Q_SIGNALS:
    void found();

private:
    using Questions = QHash<QUuid, FileURL>;
    using Answers = QHash<QUuid, bool>;

    [[nodiscard]] static Answers ask(const Questions& questions);
    void askNext();

    Answers m_answers;
    Questions m_waiting; ///< for the next job
    bool m_isAsking = false;
    int m_generation = 0; ///< counts the calls of `forget`; older answers are dropped
};

} // namespace keelbright
