#include "KeelbrightCore/storage/OrganizerService.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/storage/FolderSizeService.h"

#include <algorithm>
#include <array>

namespace keelbright::OrganizerService {

namespace {

constexpr size_t categoryCount = static_cast<size_t>(FileCategory::other) + 1;

size_t indexOf(FileCategory category)
{
    return static_cast<size_t>(category);
}

/// Links are followed.
bool isDirectory(const DirectoryEntry& entry, const FileManager& fm)
{
    if (entry.type == EntryType::symbolicLink)
        return fm.fileExists(entry.url).isDirectory;
    return entry.type == EntryType::directory;
}

QByteArrayView nameOf(const FileURL& url)
{
    const QByteArray& path = url.nativePath();
    return QByteArrayView(path).sliced(path.lastIndexOf('/') + 1);
}

bool isApplication(QByteArrayView name)
{
    return pathExtensionOf(name).compare("app", Qt::CaseInsensitive) == 0;
}

qint64 fileSize(const DirectoryEntry& entry, bool isFolder, const FileManager& fm)
{
    return isFolder ? FolderSizeService::recursiveSize(entry.url, fm) : entry.fileSize.value_or(0);
}

/// The moves into the folder of one category.
struct Group
{
    FileURL folder;
    QList<FileProposal> files;
};

std::array<Group, categoryCount> emptyGroups(const FileURL& folder)
{
    std::array<Group, categoryCount> groups;
    for (const FileCategory category : allFileCategories())
        groups[indexOf(category)].folder = folder.appending(folderName(category));
    return groups;
}

QList<OrganizeProposal> proposalsOf(std::array<Group, categoryCount>& groups)
{
    QList<std::pair<qint64, OrganizeProposal>> bySize;
    for (const FileCategory category : allFileCategories()) {
        OrganizeProposal proposal{.category = category, .files = std::move(groups[indexOf(category)].files)};
        if (proposal.files.isEmpty())
            continue;
        std::ranges::stable_sort(proposal.files, std::ranges::greater(), &FileProposal::sizeBytes);
        const qint64 total = proposal.totalBytes();
        bySize.append({total, std::move(proposal)});
    }
    std::ranges::stable_sort(bySize, std::ranges::greater(), &std::pair<qint64, OrganizeProposal>::first);
    QList<OrganizeProposal> proposals;
    for (auto& [total, proposal] : bySize)
        proposals.append(std::move(proposal));
    return proposals;
}

QByteArray numbered(QByteArrayView name, int number)
{
    const QByteArrayView extension = pathExtensionOf(name);
    const QByteArrayView base = extension.isEmpty() ? name : name.chopped(extension.size() + 1);
    QByteArray result = base.toByteArray() + ' ' + QByteArray::number(number);
    if (!extension.isEmpty())
        result.append('.').append(extension);
    return result;
}

/// The planned place, or the first numbered one beside it that nothing exists at.
FileURL freePlace(const FileURL& planned, const FileManager& fm)
{
    FileURL place = planned;
    const FileURL folder = planned.deletingLastPathComponent();
    for (int number = 2; fm.fileExists(place).exists; ++number)
        place = folder.appendingNative(numbered(nameOf(planned), number));
    return place;
}

/// Makes the folder of a category, and notes it where it is new.
std::expected<void, FileError> makeFolder(const FileURL& folder, FileManager& fm, OrganizedFiles& done)
{
    const bool isNew = !fm.fileExists(folder).exists;
    auto created = fm.createDirectory(folder);
    if (created && isNew)
        done.newFolders.append(folder);
    return created;
}

std::expected<void, FileError> move(const FileProposal& file, FileManager& fm, OrganizedFiles& done)
{
    if (auto created = makeFolder(file.destination.deletingLastPathComponent(), fm, done); !created)
        return created;
    const FileURL place = freePlace(file.destination, fm);
    auto moved = fm.moveItem(file.source, place);
    if (moved)
        done.moves.append({file.source, place, !fm.fileSize(place).has_value()});
    return moved;
}

} // namespace

QList<OrganizeProposal> propose(const FileURL& folder)
{
    const FileManager& fm = FileManager::defaultManager();
    const auto entries = fm.contentsOfDirectory(folder, DirectoryEnumerator::Option::skipsHiddenFiles);
    if (!entries)
        return {};
    std::array<Group, categoryCount> groups = emptyGroups(folder);
    for (const DirectoryEntry& entry : *entries) {
        const QByteArrayView name = nameOf(entry.url);
        const bool isFolder = isDirectory(entry, fm);
        if (isFolder && !isApplication(name))
            continue;
        // Where the listing writes the folder in another form, the destination could lie elsewhere.
        if (entry.url.deletingLastPathComponent() != folder)
            continue;
        Group& group = groups[indexOf(fileCategory(name))];
        group.files.append({.source = entry.url,
                            .destination = group.folder.appendingNative(name),
                            .sizeBytes = fileSize(entry, isFolder, fm)});
    }
    return proposalsOf(groups);
}

ExecutionResult execute(const QList<OrganizeProposal>& proposals, const QSet<QUuid>& selected,
                        OrganizedFiles* done)
{
    FileManager& fm = FileManager::defaultManager();
    ExecutionResult result;
    OrganizedFiles nowhere;
    OrganizedFiles& noted = done != nullptr ? *done : nowhere;
    for (const OrganizeProposal& proposal : proposals) {
        for (const FileProposal& file : proposal.files) {
            if (!selected.contains(file.id))
                continue;
            if (const auto moved = move(file, fm, noted); moved)
                ++result.moved;
            else
                result.errors.append(file.name() + QStringLiteral(": ") +
                                     moved.error().localizedDescription());
        }
    }
    return result;
}

} // namespace keelbright::OrganizerService
