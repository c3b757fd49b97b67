#pragma once

#include <QStringList>
#include <QTranslator>

namespace keelbright {

/// The texts of the window in the user's language, while it lives: those of the program, which are built
/// in, and Qt's own (of the file chooser, say), where Qt's translations are installed. To be made after
/// the application, and before the first widget.
class Translations
{
public:
    /// Takes the first of the languages ("de-AT", "en") that there are texts in, of which English is one;
    /// English where there are none in any.
    explicit Translations(const QStringList& languages);
    ~Translations();

    Translations(const Translations&) = delete;
    Translations& operator=(const Translations&) = delete;

    /// The language of the texts, as in the name of its file: "de"; "en" without a translation.
    [[nodiscard]] const QString& language() const { return m_language; }

private:
    [[nodiscard]] bool load(const QString& language);

    QString m_language;
    QTranslator m_texts;
    QTranslator m_textsOfQt;
};

} // namespace keelbright
