#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>

namespace keelbright {

/// A name without its letter case, letter by letter as file systems do it, so that "ß" does not become "ss".
/// Internal to the platform folder.
[[nodiscard]] QString withoutLetterCase(const QString& name);

/// Keeps names apart that differ in letter case only, on file systems to which such names are the
/// same. Internal to the platform folder.
///
/// Where letter case counts, it costs one system call a destination.
class LetterCase
{
public:
    /// Finds out whether the file system folds case, without writing: by another spelling of `name`,
    /// under which the open folder was just reached. A name without letters shows nothing, and
    /// after the first name with one nothing changes any more.
    void learn(int folder, const QByteArray& name);

    /// Whether the file system folds case, as far as that has been learned.
    [[nodiscard]] bool folds() const { return m_folds; }

    /// Whether this name in the open folder at `path` already stands for another one that was
    /// claimed before. Claims it otherwise.
    [[nodiscard]] bool isClaimedByAnother(int folder, const QByteArray& path, QByteArrayView name);

private:
    [[nodiscard]] bool isKeptApart(int folder, const QByteArray& path, QByteArrayView name);

    bool m_hasLearned = false;
    bool m_folds = false;
    /// By the hash of each claimed path without its case, the hash of its spelling: a path itself
    /// takes a hundred bytes, and there may be a million of them.
    QHash<size_t, size_t> m_claims;
    QByteArray m_listedPath;
    QSet<QString> m_keptApart; ///< folded names that the folder at `m_listedPath` holds more than once
};

} // namespace keelbright
