#pragma once

#include "KeelbrightCore/storage/OrganizerService.h"
#include "tests/storage/StorageFixture.h"

namespace keelbright::testing {

/// A folder of loose files, what is planned for it and what becomes of them.
class OrganizerFixture : public StorageFixture
{
protected:
    [[nodiscard]] QList<OrganizeProposal> propose() const { return OrganizerService::propose(folder); }

    /// "category: names" of each proposal.
    [[nodiscard]] QStringList plan() const
    {
        QStringList lines;
        for (const OrganizeProposal& proposal : propose()) {
            QStringList names;
            for (const FileProposal& file : proposal.files)
                names.append(file.name());
            lines.append(rawValue(proposal.category) + QStringLiteral(": ") +
                         names.join(QStringLiteral(", ")));
        }
        return lines;
    }

    [[nodiscard]] static QSet<QUuid> allIds(const QList<OrganizeProposal>& proposals)
    {
        QSet<QUuid> ids;
        for (const OrganizeProposal& proposal : proposals) {
            for (const FileProposal& file : proposal.files)
                ids.insert(file.id);
        }
        return ids;
    }

    [[nodiscard]] OrganizerService::ExecutionResult executeAll() const
    {
        const QList<OrganizeProposal> proposals = propose();
        return OrganizerService::execute(proposals, allIds(proposals));
    }

    [[nodiscard]] static OrganizerService::ExecutionResult moved(qint64 count)
    {
        return {.moved = count, .errors = {}};
    }

    /// Paths of all files below the folder, in alphabetical order.
    [[nodiscard]] QStringList files() const
    {
        QStringList paths;
        const std::filesystem::path root = standardPath(folder);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
            if (!entry.is_directory() || entry.is_symlink())
                paths.append(QString::fromStdString(entry.path().lexically_relative(root).string()));
        }
        paths.sort();
        return paths;
    }

    [[nodiscard]] QByteArray read(const QByteArray& path) const { return TestMac::read(at(path)); }

    void writeText(const QByteArray& path, const QByteArray& text) const
    {
        mac.writeFile("Users/mira/Folder/" + path, text);
    }
};

} // namespace keelbright::testing
