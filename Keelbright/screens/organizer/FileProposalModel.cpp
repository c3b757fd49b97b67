#include "Keelbright/screens/organizer/FileProposalModel.h"

#include <QHash>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// Finer than the icon of the file's category, and for fewer kinds.
QString fileIcon(const FileURL& url)
{
    static const QHash<QString, QString> icons{
        {u"pdf"_s, u"doc.richtext.fill"_s},   {u"jpg"_s, u"photo.fill"_s},
        {u"jpeg"_s, u"photo.fill"_s},         {u"png"_s, u"photo.fill"_s},
        {u"heic"_s, u"photo.fill"_s},         {u"gif"_s, u"photo.fill"_s},
        {u"webp"_s, u"photo.fill"_s},         {u"mp4"_s, u"film.fill"_s},
        {u"mov"_s, u"film.fill"_s},           {u"avi"_s, u"film.fill"_s},
        {u"mkv"_s, u"film.fill"_s},           {u"mp3"_s, u"music.note"_s},
        {u"aac"_s, u"music.note"_s},          {u"wav"_s, u"music.note"_s},
        {u"m4a"_s, u"music.note"_s},          {u"zip"_s, u"archivebox.fill"_s},
        {u"gz"_s, u"archivebox.fill"_s},      {u"rar"_s, u"archivebox.fill"_s},
        {u"7z"_s, u"archivebox.fill"_s},      {u"dmg"_s, u"arrow.down.app.fill"_s},
        {u"pkg"_s, u"arrow.down.app.fill"_s}, {u"app"_s, u"app.fill"_s},
    };
    return icons.value(url.pathExtension().toLower(), u"doc.fill"_s);
}

} // namespace

FileProposalModel::FileProposalModel(const OrganizerVM& vm, QObject* parent)
    : ItemRowModel(parent)
    , m_vm(vm)
{}

ListRow FileProposalModel::rowAt(int row) const
{
    const FileProposal& file = itemAt(row);
    ListRow shown;
    shown.mark = ListRow::Mark::checkBox;
    shown.markState = m_vm.selectedFiles().contains(file.id) ? Qt::Checked : Qt::Unchecked;
    shown.symbol = fileIcon(file.source);
    shown.symbolColor = Role::secondaryText;
    shown.title = file.name();
    shown.detail = file.destination.path();
    shown.detailSymbol = u"arrow.right"_s;
    shown.detailElide = Qt::ElideMiddle;
    shown.value = file.formattedSize();
    shown.actions = {{.id = RowActionId::reveal, .symbol = u"folder"_s, .name = tr("Reveal in Finder")}};
    return shown;
}

QString FileProposalModel::titleAt(int row) const
{
    return itemAt(row).name();
}

} // namespace keelbright
