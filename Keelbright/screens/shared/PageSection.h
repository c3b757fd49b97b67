#pragma once

#include <QWidget>

class QVBoxLayout;

namespace keelbright {

class SectionHeader;

/// A section of a page: its header, and close below it what belongs to it.
class PageSection : public QWidget
{
    Q_OBJECT

public:
    /// Takes ownership of the header.
    explicit PageSection(SectionHeader* header, QWidget* parent = nullptr);

    /// Below the header.
    [[nodiscard]] QVBoxLayout* content() const { return m_content; }

private:
    QVBoxLayout* m_content;
};

} // namespace keelbright
