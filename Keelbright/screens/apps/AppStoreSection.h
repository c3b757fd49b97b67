#pragma once

#include "Keelbright/screens/shared/PageSection.h"

namespace keelbright {

class AppDetailVM;
class Card;

/// The description of an application in the App Store, which is fetched when the user asks for it.
class AppStoreSection : public PageSection
{
    Q_OBJECT

public:
    /// The model outlives the section.
    explicit AppStoreSection(AppDetailVM& model, QWidget* parent = nullptr);

private:
    void redraw();
    [[nodiscard]] QWidget* makeContent();

    AppDetailVM& m_model;
    Card* m_card;
    QWidget* m_shown = nullptr;
};

} // namespace keelbright
