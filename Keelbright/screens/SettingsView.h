#pragma once

#include "KeelbrightCore/backup/BackupSource.h"
#include "KeelbrightCore/backup/RecommendedFolder.h"

#include <QWidget>

class QVBoxLayout;

namespace keelbright {

class AppState;
class Button;
class RowList;
class RowWidget;

/// Destination, protected folders and facts about the program, as a screen of the main window and in
/// the settings window. Keeps nothing of its own: it changes the application's state and shows every
/// change of that.
class SettingsView : public QWidget
{
    Q_OBJECT

public:
    /// The settings window is small and shows the title in its frame.
    enum class Place { screen, window };

    SettingsView(AppState& state, Place place, QWidget* parent = nullptr);

private:
    void addDestinationSection(QVBoxLayout& content);
    void addFoldersSection(QVBoxLayout& content);
    static void addAboutSection(QVBoxLayout& content);
    void showDestination();
    void showFolders();
    [[nodiscard]] QList<QWidget*> removeButtons() const;

    AppState& m_state;
    RowList* m_destination = nullptr;
    Button* m_change = nullptr;
    RowList* m_folders = nullptr;
    Button* m_add = nullptr;
};

} // namespace keelbright
