#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>

namespace keelbright {

/// Keeps names apart that differ in letter case only, on file systems that take such names for
/// one and the same. Internal to the platform folder.
///
/// Where the case of letters counts, all of it costs one call a destination.
class LetterCase
{
public:
    /// Finds out once, without writing, whether the file system folds case: from an open folder
    /// that was just reached under `name`.
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
    /// Hashes of each claimed path without its case, and as it is spelled: a path itself would
    /// take a hundred bytes, and there may be a million of them.
    QHash<size_t, size_t> m_claims;
    QByteArray m_listedPath;
    QSet<QString> m_keptApart; ///< what the folder at `m_listedPath` holds in several spellings
};

} // namespace keelbright
