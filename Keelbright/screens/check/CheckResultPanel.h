#pragma once

#include "KeelbrightCore/check/CheckReport.h"

#include <QWidget>

class QVBoxLayout;

namespace keelbright {

class Banner;
class Button;
class CheckFindingModel;

/// The result of a check: one sentence, what there is to say besides, six numbers, and the findings as a
/// list.
class CheckResultPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CheckResultPanel(const CheckReport& report, QWidget* parent = nullptr);

    void setCanSave(bool canSave);
    /// What has come of saving the checksums; an empty one is not shown.
    void setSavingNote(const QString& note, bool hasFailed);

Q_SIGNALS:
    void revealPressed(const keelbright::FileURL& item);
    void copyPressed();
    void savePressed();
    void againPressed();

private:
    void addSentences(const CheckReport& report);
    void addNumbers(const CheckReport& report);
    void addFindings(const CheckReport& report);
    void addButtons(const CheckReport& report);

    QVBoxLayout* m_column;
    Banner* m_saved;
    Banner* m_notSaved;
    Button* m_save;
    CheckFindingModel* m_findings;
};

} // namespace keelbright
