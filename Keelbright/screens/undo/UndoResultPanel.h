#pragma once

#include "KeelbrightCore/storage/UndoService.h"

#include <QWidget>

class QVBoxLayout;

namespace keelbright {

/// What an undo has come to: one sentence, what there is to say besides, and what could not be put back as a
/// list.
class UndoResultPanel : public QWidget
{
    Q_OBJECT

public:
    explicit UndoResultPanel(const UndoResult& result, QWidget* parent = nullptr);

Q_SIGNALS:
    void copyPressed();
    void closePressed();

private:
    void addSentences(const UndoResult& result, QVBoxLayout& column);
    void addFailures(const QList<UndoFailure>& failures, QVBoxLayout& column);
    void addButtons(bool hasList, QVBoxLayout& column);
};

} // namespace keelbright
