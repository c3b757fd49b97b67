#pragma once

#include <QMultiHash>
#include <QSet>
#include <QString>

namespace keelbright::testing {

/// What stands in translations/keelbright_LANGUAGE.ts.
class TranslationFile
{
public:
    explicit TranslationFile(const QString& language);

    /// Whether the text is a translation of the English one, in whatever context and form.
    [[nodiscard]] bool isTranslation(const QString& text, const QString& english) const;
    /// Whether the text is a translation that was cut short to "Beginn…".
    [[nodiscard]] bool isCut(const QString& text) const;
    /// All words of all translations, in small letters.
    [[nodiscard]] QSet<QString> words() const;

    /// The words of a text, in small letters: all rows of two and more letters that nothing cuts short.
    [[nodiscard]] static QSet<QString> wordsIn(const QString& text);

private:
    QMultiHash<QString, QString> m_translations; ///< by their English texts
};

} // namespace keelbright::testing
