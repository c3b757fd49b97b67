#include "KeelbrightCore/apps/HttpAnswer.h"

#include <algorithm>

namespace keelbright {

namespace {

constexpr qsizetype maximumLine = qsizetype{64} * 1024;

std::optional<qint64> number(const QByteArray& text, int base)
{
    bool isNumber = false;
    const qint64 value = text.trimmed().toLongLong(&isNumber, base);
    return isNumber && value >= 0 ? std::optional(value) : std::nullopt;
}

} // namespace

HttpAnswer::HttpAnswer(qint64 maximumBodyBytes)
    : m_maximumBodyBytes(maximumBodyBytes)
{}

void HttpAnswer::take(QByteArrayView bytes)
{
    const auto goesOn = [this] { return m_state == State::head || m_state == State::body; };
    if (goesOn())
        m_unread.append(bytes);
    while (goesOn() && takeNext()) {
    }
    m_unread.remove(0, m_offset);
    m_offset = 0;
}

void HttpAnswer::end()
{
    const bool endsHere = m_state == State::body && !m_isInPieces && !m_length;
    if (m_state != State::whole)
        m_state = endsHere ? State::whole : State::broken;
}

/// False where more has to arrive first.
bool HttpAnswer::takeNext()
{
    if (m_expected == Expected::data)
        return takeData();
    const std::optional<QByteArray> line = takeLine();
    if (!line)
        return false;
    switch (m_expected) {
    case Expected::statusLine:
        takeStatusLine(*line);
        break;
    case Expected::field:
        takeField(*line);
        break;
    case Expected::pieceSize:
        takePieceSize(*line);
        break;
    case Expected::pieceEnd:
        m_expected = Expected::pieceSize;
        if (!line->isEmpty())
            breakOff();
        break;
    case Expected::trailer:
        countHead(line->size());
        if (line->isEmpty())
            m_state = State::whole;
        break;
    case Expected::data:
        break;
    }
    return true;
}

bool HttpAnswer::takeData()
{
    const qint64 there = m_unread.size() - m_offset;
    const qint64 count = std::min(there, m_left.value_or(there));
    if (m_body.size() + count > m_maximumBodyBytes) {
        breakOff();
        return false;
    }
    m_body.append(QByteArrayView(m_unread).sliced(m_offset, count));
    m_offset += count;
    if (m_left) {
        *m_left -= count;
        if (*m_left == 0 && m_isInPieces)
            m_expected = Expected::pieceEnd;
        else if (*m_left == 0)
            m_state = State::whole;
    }
    return count > 0;
}

/// Without its end; nothing where that has not arrived.
std::optional<QByteArray> HttpAnswer::takeLine()
{
    const qsizetype end = m_unread.indexOf('\n', m_offset);
    if ((end < 0 ? m_unread.size() : end) - m_offset > maximumLine) {
        breakOff();
        return std::nullopt;
    }
    if (end < 0)
        return std::nullopt;
    QByteArray line = m_unread.sliced(m_offset, end - m_offset);
    m_offset = end + 1;
    if (line.endsWith('\r'))
        line.chop(1);
    return line;
}

void HttpAnswer::takeStatusLine(const QByteArray& line)
{
    countHead(line.size());
    const QByteArrayView start("HTTP/1.1 200");
    const auto status = number(line.mid(9, 3), 10);
    const bool isStatusLine = line.size() >= start.size() && line.startsWith("HTTP/1.") && line[8] == ' ';
    if (!isStatusLine || !status || *status < 100) {
        breakOff();
        return;
    }
    m_status = static_cast<int>(*status);
    m_length.reset();
    m_isInPieces = false;
    m_location.clear();
    m_expected = Expected::field;
}

void HttpAnswer::takeField(const QByteArray& line)
{
    countHead(line.size());
    if (m_state != State::head)
        return;
    if (line.isEmpty()) {
        beginBody();
        return;
    }
    const qsizetype colon = line.indexOf(':');
    const QByteArray name = line.left(colon).trimmed().toLower();
    const QByteArray value = line.mid(colon + 1).trimmed();
    if (name == "content-length") {
        const auto length = number(value, 10);
        if (!length || (m_length && m_length != length))
            breakOff();
        m_length = length;
    } else if (name == "transfer-encoding") {
        m_isInPieces = value.toLower().contains("chunked");
    } else if (name == "location") {
        m_location = value;
    }
}

void HttpAnswer::beginBody()
{
    constexpr int firstFinal = 200;
    constexpr int noContent = 204;
    constexpr int notModified = 304;
    if (m_status < firstFinal) {
        m_expected = Expected::statusLine;
        return;
    }
    m_state = State::body;
    m_expected = m_isInPieces ? Expected::pieceSize : Expected::data;
    m_left = m_length;
    const bool isEmpty = m_status == noContent || m_status == notModified || (!m_isInPieces && m_length == 0);
    if (isEmpty)
        m_state = State::whole;
}

void HttpAnswer::takePieceSize(const QByteArray& line)
{
    const auto size = number(line.sliced(0, line.contains(';') ? line.indexOf(';') : line.size()), 16);
    if (!size) {
        breakOff();
        return;
    }
    m_left = size;
    m_expected = *size == 0 ? Expected::trailer : Expected::data;
}

void HttpAnswer::countHead(qsizetype bytes)
{
    constexpr qsizetype lineEnd = 2;
    m_headBytes += bytes + lineEnd;
    if (m_headBytes > maximumHeadBytes)
        breakOff();
}

} // namespace keelbright
