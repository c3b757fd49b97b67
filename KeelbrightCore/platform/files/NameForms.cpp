#include "KeelbrightCore/platform/files/NameForms.h"

#include "KeelbrightCore/platform/files/EntryLookup.h"

#include <algorithm>

namespace keelbright {

namespace {

bool isAscii(QByteArrayView name)
{
    return std::ranges::all_of(name, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

} // namespace

QByteArray NameForms::twinOf(QByteArrayView name)
{
    if (isAscii(name))
        return {};
    const QString text = QString::fromUtf8(name);
    const QString composed = text.normalized(QString::NormalizationForm_C);
    if (composed == text && text.normalized(QString::NormalizationForm_D) == text)
        return {};
    const auto [noted, isNew] = m_names.try_emplace(composed, name.toByteArray());
    return isNew || noted->second == name ? QByteArray() : noted->second;
}

bool areTheSame(int folder, const QByteArray& one, const QByteArray& other)
{
    if (!hasEntry(folder, one) || !hasEntry(folder, other))
        return false;
    int listed = 0;
    forEachEntry(folder, ".",
                 [&](QByteArrayView entry) { listed += entry == one || entry == other ? 1 : 0; });
    return listed < 2;
}

} // namespace keelbright
