#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <map>

namespace keelbright {

/// Finds names in one folder that differ only in how their accented letters are encoded: "é" as one
/// character, or as a letter and an accent. Some drives take them for the same name; those that take upper
/// and lower case for the same, too, also take "É" in the one form for "é" in the other. Internal to the
/// platform folder.
///
/// Takes memory only for names that can be encoded in two ways.
class NameForms
{
public:
    /// The name that was noted before and can be taken for this one; empty, and notes this one, if there is
    /// none. `foldsCase` says that the drive takes upper and lower case for the same.
    [[nodiscard]] QByteArray twinOf(QByteArrayView name, bool foldsCase);

private:
    std::map<QString, QByteArray>
        m_names; ///< by their composed form, where the drive folds case in small letters
};

/// Remembers the names of all folders that a run has filled: a folder that several sources of one name fill
/// is entered once for each of them. Internal to the platform folder.
///
/// Takes little memory, and only for names that can be encoded in two ways.
class NameFormClaims
{
public:
    /// The name in the open folder at `path` that this run has given it before, and that can be taken for
    /// this one; empty, and claims this one, if there is none, and where it is no longer there.
    [[nodiscard]] QByteArray twinOf(int folder, const QByteArray& path, QByteArrayView name, bool foldsCase);

private:
    /// By the hash of the path in its composed form, the hash of its spelling.
    QHash<size_t, size_t> m_claims;
};

/// Whether an open folder takes both names for the same: it finds something under each, and lists one.
[[nodiscard]] bool areTheSame(int folder, const QByteArray& one, const QByteArray& other);

} // namespace keelbright
