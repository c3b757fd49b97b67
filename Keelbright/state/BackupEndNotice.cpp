#include "Keelbright/state/BackupEndNotice.h"

#include "Keelbright/state/AppState.h"
#include "Keelbright/state/Notifier.h"
#include "Keelbright/state/StoredTexts.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QPointer>
#include <utility>

namespace keelbright {

BackupEndNotice::BackupEndNotice(AppState& state, Notifier& notifier, Windows windows)
    : m_state(state)
    , m_notifier(notifier)
    , m_windows(std::move(windows))
    , m_wasRunning(state.engine().isRunning())
{
    connect(&state.engine(), &BackupEngine::isRunningChanged, this, &BackupEndNotice::followEngine);
}

void BackupEndNotice::followEngine()
{
    const bool isRunning = m_state.engine().isRunning();
    const bool hasEnded = std::exchange(m_wasRunning, isRunning) && !isRunning;
    if (hasEnded && !m_state.engine().isCancelled() && !m_windows.areInFront())
        showEnd();
}

void BackupEndNotice::showEnd()
{
    const auto& report = m_state.engine().lastReport();
    const auto& error = m_state.engine().lastError();
    const auto showScreen = [notice = QPointer(this)](Screen screen) {
        if (!notice)
            return;
        notice->m_windows.bringToFront();
        notice->m_state.setSelectedScreen(screen);
    };
    if (report) {
        const QString title =
            report->errors.isEmpty() ? tr("Backup completed") : tr("Backup completed with warnings");
        const QString text = tr("%n files · %1", nullptr, pluralNumber(report->filesCopied))
                                 .arg(report->copiedSizeFormatted());
        m_notifier.show({title, text}, [showScreen] { showScreen(Screen::backupReport); });
    } else if (error) {
        // The progress screen has the reason.
        m_notifier.show({tr("Backup could not start"), StoredTexts::shownError(*error)},
                        [showScreen] { showScreen(Screen::backupProgress); });
    }
}

} // namespace keelbright
