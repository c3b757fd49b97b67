#pragma once

#include "KeelbrightCore/backup/BackupSource.h"
#include "KeelbrightCore/platform/files/ReadOnlyTree.h"

#include <QList>
#include <memory>
#include <vector>

namespace keelbright {

/// Where the original of a copy is looked for.
struct Original
{
    ReadOnlyTree* tree = nullptr; ///< of its source
    QByteArray folder;            ///< below the source
    QByteArray name;
};

/// The sources of a backup, as far as they can be opened. One thread at a time.
class Originals
{
public:
    /// Opens the enabled sources.
    explicit Originals(const QList<BackupSource>& sources);

    /// The places that a copy may come from, the likeliest first: of two sources with the same name the later
    /// one wins in a backup. `folder` is that of the copy below "Personal Files".
    [[nodiscard]] QList<Original> of(const QByteArray& folder, const QByteArray& name) const;

    /// A source that can't be opened.
    struct Failure
    {
        FileURL source;
        FileError error;
    };

    [[nodiscard]] const QList<Failure>& failures() const { return m_failures; }

private:
    struct Source
    {
        QByteArray name; ///< of its folder below "Personal Files"; empty for the root of the machine
        std::unique_ptr<ReadOnlyTree> tree;
    };

    std::vector<Source> m_sources;
    QList<Failure> m_failures;
};

/// Whether an original has been changed since it was copied, by what the file systems say of the two: it has
/// another size or another kind, or its data is newer. The drive may give times less exactly.
[[nodiscard]] bool isChangedSince(const ItemStatus& original, const ItemStatus& copy);

} // namespace keelbright
