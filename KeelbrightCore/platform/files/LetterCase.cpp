#include "KeelbrightCore/platform/files/LetterCase.h"

#include "KeelbrightCore/platform/files/EntryLookup.h"

namespace keelbright {

namespace {

/// Upper case for lower case and the other way round, in ASCII only.
QByteArray withCaseSwapped(QByteArray name)
{
    constexpr char caseBit = 'a' - 'A';
    for (char& byte : name) {
        if ((byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'))
            byte = static_cast<char>(byte ^ caseBit);
    }
    return name;
}

QString withoutCase(QByteArrayView name)
{
    return withoutLetterCase(QString::fromUtf8(name));
}

} // namespace

QString withoutLetterCase(const QString& name)
{
    QString folded;
    for (const char32_t character : name.toUcs4())
        folded += QStringView(QChar::fromUcs4(QChar::toCaseFolded(character)));
    return folded;
}

void LetterCase::learn(int folder, const QByteArray& name)
{
    const QByteArray other = withCaseSwapped(name);
    if (m_hasLearned || other == name)
        return;
    bool folds = hasEntry(folder, "../" + other);
    // Unless the folder really holds both spellings.
    if (folds)
        forEachEntry(folder, "..", [&](QByteArrayView entry) { folds = folds && entry != other; });
    m_folds = folds;
    m_hasLearned = true;
}

bool LetterCase::isClaimedByAnother(int folder, const QByteArray& path, QByteArrayView name)
{
    if (!m_folds)
        return false;
    const QByteArray spelling = path + '/' + name.toByteArray();
    const size_t spelled = qHash(spelling);
    const size_t folded = qHash(withoutCase(spelling));
    const size_t claimant = m_claims.value(folded, spelled);
    m_claims.insert(folded, claimant);
    return claimant != spelled && hasEntry(folder, name.toByteArray()) && !isKeptApart(folder, path, name);
}

bool LetterCase::isKeptApart(int folder, const QByteArray& path, QByteArrayView name)
{
    // A file system may fold fewer letters than this class: then it holds both names.
    if (m_listedPath != path || m_listedPath.isNull()) {
        m_listedPath = path;
        m_keptApart.clear();
        QSet<QString> once;
        forEachEntry(folder, ".", [&](QByteArrayView entry) {
            const QString folded = withoutCase(entry);
            const qsizetype before = once.size();
            once.insert(folded);
            if (once.size() == before)
                m_keptApart.insert(folded);
        });
    }
    return m_keptApart.contains(withoutCase(name));
}

} // namespace keelbright
