#pragma once

#include "Keelbright/state/Screen.h"

#include <QAbstractListModel>
#include <optional>

namespace keelbright {

/// The rows of the sidebar: screens, and headers, which can't be selected.
class SidebarModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Data {
        symbolRole = Qt::UserRole, ///< empty for a header
    };

    explicit SidebarModel(QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Nothing for a header.
    [[nodiscard]] std::optional<Screen> screenAt(const QModelIndex& index) const;
    /// Invalid for a screen without a row.
    [[nodiscard]] QModelIndex indexOf(std::optional<Screen> screen) const;

private:
    struct Row
    {
        QString title;
        std::optional<Screen> screen;
    };

    QList<Row> m_rows;
};

} // namespace keelbright
