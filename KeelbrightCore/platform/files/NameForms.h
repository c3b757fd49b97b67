#pragma once

#include <QByteArray>
#include <QString>
#include <map>

namespace keelbright {

/// Finds names in one folder that differ only in how their accented letters are encoded: "é" as one
/// character, or as a letter and an accent. Some drives take them for the same name. Internal to the platform
/// folder.
///
/// Takes memory only for names that can be encoded in two ways.
class NameForms
{
public:
    /// The name that was noted before and can be taken for this one; empty, and notes this one, if there is
    /// none.
    [[nodiscard]] QByteArray twinOf(QByteArrayView name);

private:
    std::map<QString, QByteArray> m_names; ///< by their composed form
};

/// Whether an open folder takes both names for the same: it finds something under each, and lists one.
[[nodiscard]] bool areTheSame(int folder, const QByteArray& one, const QByteArray& other);

} // namespace keelbright
