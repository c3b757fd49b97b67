#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace keelbright::testing {

/// Drags the items onto the widget and drops them, as a file manager does that proposes to move them.
/// Gives whether the widget took them to copy, not to move.
[[nodiscard]] inline bool drop(QWidget& widget, const QList<FileURL>& items)
{
    QList<QUrl> urls;
    for (const FileURL& item : items)
        urls.append(QUrl(item.absoluteString()));
    QMimeData data;
    data.setUrls(urls);
    const QPoint middle = widget.rect().center();
    QDragEnterEvent enter(middle, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &enter);
    QDropEvent drop(middle, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&widget, &drop);
    return enter.isAccepted() && drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

} // namespace keelbright::testing
