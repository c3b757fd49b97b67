#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUuid>

#include <ostream>

// A failed comparison shows texts instead of their bytes. GoogleTest looks for these beside the types.

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out)
{
    *out << '"' << bytes.toStdString() << '"';
}

inline void PrintTo(const QDateTime& date, std::ostream* out)
{
    *out << date.toString(Qt::ISODateWithMs).toStdString();
}

inline void PrintTo(const QUuid& id, std::ostream* out)
{
    *out << id.toString().toStdString();
}

namespace keelbright {

inline void PrintTo(const FileURL& url, std::ostream* out)
{
    *out << url.nativePath().toStdString();
}

} // namespace keelbright
