#pragma once

#include <QWidget>

namespace keelbright {

class Banner;
class Button;
class Label;

/// What a check of the copies does, and the two ways to begin one.
class CheckStartPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CheckStartPanel(QWidget* parent = nullptr);

    /// The name of the destination; empty where there is none.
    void setDriveName(const QString& name);
    /// Why the one and the other can't begin now; empty where it can.
    void setRefusals(const QString& originals, const QString& list);

Q_SIGNALS:
    void startPressed();
    void listPressed();

private:
    Label* m_text;
    Banner* m_refusal;
    Button* m_start;
    Button* m_list;
};

} // namespace keelbright
