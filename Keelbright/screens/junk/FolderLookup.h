#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QHash>
#include <QObject>
#include <QUuid>
#include <optional>

namespace keelbright {

/// Finds out in the background which items are folders, for lists that ask about the rows on screen:
/// a place that does not answer, such as a drive on a lost network, holds up neither painting nor
/// more than one thread. Main thread.
class FolderLookup : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Nothing while it is not known; then the answer is on its way, and `found` follows. A link is
    /// what it leads to; what does not exist is no folder.
    [[nodiscard]] std::optional<bool> isFolder(const QUuid& id, const FileURL& url);
    /// Things may have changed on disk: asks anew.
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
    int m_generation = 0; ///< tells an answer from before `forget`
};

} // namespace keelbright
