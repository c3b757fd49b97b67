#pragma once

#include "KeelbrightCore/platform/formats/JsonDecoding.h"
#include "tests/fuzz/Fuzzer.h"

#include <QJsonDocument>

namespace keelbright::fuzzing {

/// A record that was read must be equal after it has been written and read again.
template <typename Record> void requireRoundTrip(const Record& record)
{
    const auto json = decodeJsonObject(QJsonDocument(record.toJson()).toJson());
    require(json.has_value(), "what is written is JSON");
    const Decoded<Record> again = Record::fromJson(*json);
    require(again.has_value(), "what is written can be read");
    require(*again == record, "what is written and read is what it was");
}

/// The reason for a refused text must be a sentence that a person can read.
inline void requireSentence(const JsonError& error)
{
    const QString sentence = error.localizedDescription();
    require(sentence.startsWith(QStringLiteral("The ")) && sentence.endsWith(u'.') && !error.reason.isEmpty(),
            "a refusal is a sentence with a reason");
}

/// Reads one record from a JSON text, as the stores do.
template <typename Record> Decoded<Record> readRecord(const QByteArray& text)
{
    const auto json = decodeJsonObject(text);
    Decoded<Record> record = json ? Record::fromJson(*json) : std::unexpected(json.error());
    if (record)
        requireRoundTrip(*record);
    else
        requireSentence(record.error());
    return record;
}

} // namespace keelbright::fuzzing
