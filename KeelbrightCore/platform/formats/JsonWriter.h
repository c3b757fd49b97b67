#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QStringEncoder>
#include <QStringList>

#include <utility>

namespace keelbright {

/// Writes one JSON value piece by piece, indented, byte for byte as QJsonDocument writes it. Beside
/// that it spares a long list the detour over a QJsonArray, which costs more than the text itself, and
/// takes over a part that has been written before.
class JsonWriter
{
public:
    /// `depth` is the number of objects and lists that the value lies in.
    explicit JsonWriter(int depth = 0);

    /// Until `endObject`, each value follows its key. Objects may be nested.
    void beginObject();
    void endObject();
    void key(const QString& key);

    void value(const QJsonValue& value);
    void value(const QStringList& texts);
    /// The text of a writer whose `depth` is the number of objects begun here plus this one's depth.
    void writtenValue(const QByteArray& text);

    /// What has been written, without a line break at its end. The writer is empty after that.
    [[nodiscard]] QByteArray take() { return std::exchange(m_text, {}); }

private:
    void begin(char bracket);
    void end(char bracket);
    /// The line break and the indentation before a key or an entry of a list.
    void beginEntry();
    void quoted(QStringView text);
    void list(const QJsonArray& values);
    void object(const QJsonObject& members);

    QByteArray m_text;
    QStringEncoder m_encoder{QStringConverter::Utf8, QStringConverter::Flag::Stateless};
    int m_depth;
    bool m_isFirst = true; ///< nothing stands before the next entry
};

} // namespace keelbright
