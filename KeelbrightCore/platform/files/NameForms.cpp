#include "KeelbrightCore/platform/files/NameForms.h"

#include "KeelbrightCore/platform/files/EntryLookup.h"
#include "KeelbrightCore/platform/files/LetterCase.h"

#include <algorithm>
#include <optional>

namespace keelbright {

namespace {

bool isAscii(QByteArrayView name)
{
    return std::ranges::all_of(name, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// What all names have in common that a drive can take for this one; nothing where there is only this one.
std::optional<QString> commonForm(QByteArrayView name, bool foldsCase)
{
    if (isAscii(name))
        return std::nullopt;
    const QString text = QString::fromUtf8(name);
    const QString composed = text.normalized(QString::NormalizationForm_C);
    if (composed == text && text.normalized(QString::NormalizationForm_D) == text)
        return std::nullopt;
    return foldsCase ? withoutLetterCase(composed) : composed;
}

} // namespace

QByteArray NameForms::twinOf(QByteArrayView name, bool foldsCase)
{
    const auto form = commonForm(name, foldsCase);
    if (!form)
        return {};
    const auto [noted, isNew] = m_names.try_emplace(*form, name.toByteArray());
    return isNew || noted->second == name ? QByteArray() : noted->second;
}

QByteArray NameFormClaims::twinOf(int folder, const QByteArray& path, QByteArrayView name, bool foldsCase)
{
    const auto form = commonForm(name, foldsCase);
    if (!form)
        return {};
    const size_t key = qHash(path, qHash(*form));
    const size_t spelling = qHash(name);
    const size_t claimant = m_claims.value(key, spelling);
    m_claims.insert(key, claimant);
    QByteArray twin;
    if (claimant == spelling)
        return twin;
    forEachEntry(folder, ".", [&](QByteArrayView entry) {
        if (qHash(entry) == claimant && commonForm(entry, foldsCase) == form)
            twin = entry.toByteArray();
    });
    return twin;
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
