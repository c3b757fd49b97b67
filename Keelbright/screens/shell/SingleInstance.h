#pragma once

#include "Keelbright/screens/shell/WindowAction.h"
#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/system/FolderLock.h"

#include <QLocalServer>
#include <QObject>
#include <chrono>
#include <optional>

class QDeadlineTimer;
class QLocalSocket;

namespace keelbright {

/// Lets one program at a time work on a folder of settings. The first one holds a lock on the folder and
/// listens on a local socket; another start passes on what it was asked for, and ends. Both belong to the
/// process, so that nothing stays of one that crashed. Main thread only.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    enum class Start {
        first,      ///< no other program runs here
        handedOver, ///< another one runs, and its window has come to the front
        unanswered, ///< another one runs, but does not answer
    };

    explicit SingleInstance(const FileURL& folder, QObject* parent = nullptr);

    /// Becomes the first, or asks the first to come to the front and for the action, if any. Blocks for at
    /// most `patience`: one that is just starting answers as soon as its window is there, and one that is
    /// about to end makes room.
    [[nodiscard]] Start start(std::optional<WindowAction> action = std::nullopt,
                              std::chrono::milliseconds patience = std::chrono::seconds(5));

    /// Leaves further requests to whoever comes next; for a first that is about to end.
    void stopListening();

    /// The name of the local socket, the same in every start on the folder.
    [[nodiscard]] const QString& socketName() const { return m_socketName; }

Q_SIGNALS:
    /// Another start wants the window of this program in front, and the action done if there is one.
    void activationRequested(std::optional<keelbright::WindowAction> action);

private:
    [[nodiscard]] bool listen(FolderLock::Outcome lock);
    void answerNext();
    void readRequest(QLocalSocket& peer);
    [[nodiscard]] bool askFirst(const QByteArray& request, const QDeadlineTimer& deadline) const;

    FolderLock m_lock;
    QString m_socketName;
    QLocalServer m_server;
};

} // namespace keelbright
