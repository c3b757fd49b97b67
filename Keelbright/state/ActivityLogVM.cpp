#include "Keelbright/state/ActivityLogVM.h"

#include "Keelbright/state/FileChooser.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/records/ActivityStore.h"

namespace keelbright {

using namespace Qt::StringLiterals;

ActivityLogVM::ActivityLogVM(ActivityStore& store, FileChooser& files)
    : m_store(store)
    , m_files(files)
{}

void ActivityLogVM::load()
{
    m_entries = m_store.load();
}

void ActivityLogVM::clear()
{
    m_store.clear();
    m_entries.clear();
}

void ActivityLogVM::exportCSV()
{
    const QByteArray text = m_store.exportCSV().toUtf8();
    const FileSaveRequest request{tr("Export log as CSV"), tr("Save"), u"Keelbright-Activity.csv"_s,
                                  u"csv"_s};
    m_files.chooseSaveLocation(request, [text](const FileURL& url) {
        static_cast<void>(FileManager::defaultManager().writeAtomically(url, text));
    });
}

} // namespace keelbright
