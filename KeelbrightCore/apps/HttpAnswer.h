#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

namespace keelbright {

/// Reads the answer to one HTTP GET as it arrives, and never keeps more of it than its limits. Knows what
/// such an answer needs: a length, a body in pieces ("chunked") or up to the end of the connection, and
/// answers before the answer (1xx); all other fields are passed over.
class HttpAnswer
{
public:
    enum class State {
        head,   ///< the fields have not ended
        body,   ///< the body has not ended
        whole,  ///< all of it is there; what follows is not looked at
        broken, ///< no such answer, cut off, or above a limit
    };

    /// For all that is no body: status lines and fields, also of the answers before the answer.
    static constexpr qsizetype maximumHeadBytes = qsizetype{256} * 1024;

    explicit HttpAnswer(qint64 maximumBodyBytes);

    void take(QByteArrayView bytes);
    /// The connection has ended, and nothing more follows.
    void end();

    [[nodiscard]] State state() const { return m_state; }

    /// Once the head has ended.
    [[nodiscard]] int status() const { return m_status; }

    /// Where a redirection leads, as it was sent; empty where it leads nowhere. Once the head has ended.
    [[nodiscard]] const QByteArray& location() const { return m_location; }

    /// What has arrived so far.
    [[nodiscard]] const QByteArray& body() const { return m_body; }

private:
    enum class Expected { statusLine, field, pieceSize, data, pieceEnd, trailer };

    [[nodiscard]] bool takeNext();
    [[nodiscard]] bool takeData();
    [[nodiscard]] std::optional<QByteArray> takeLine();
    void takeStatusLine(const QByteArray& line);
    void takeField(const QByteArray& line);
    void takePieceSize(const QByteArray& line);
    void countHead(qsizetype bytes);
    void beginBody();

    void breakOff() { m_state = State::broken; }

    qint64 m_maximumBodyBytes;
    State m_state = State::head;
    Expected m_expected = Expected::statusLine;
    QByteArray m_unread;
    qsizetype m_offset = 0; ///< in `m_unread`, of what has not been looked at
    qsizetype m_headBytes = 0;
    int m_status = 0;
    std::optional<qint64> m_length;
    bool m_isInPieces = false;
    std::optional<qint64> m_left; ///< of the piece or the body; nothing up to the end of the connection
    QByteArray m_location;
    QByteArray m_body;
};

} // namespace keelbright
