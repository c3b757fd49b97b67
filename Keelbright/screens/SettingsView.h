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

/// Destination, protected folders and what the program is, as a screen of the main window and in
/// the settings window. Keeps no state: every change goes to the application's state, and every
/// change of that shows here.
class SettingsView : public QWidget
{
    Q_OBJECT

public:
    /// The settings window is small and has a title of its own.
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
