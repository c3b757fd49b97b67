#pragma once

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTranslator>

namespace keelbright::testing {

/// While it lives, every text stands in brackets behind the name of its context. Whatever recognises
/// something by its text finds nothing then, and one text is another one in each context.
class PseudoTranslation : public QTranslator
{
public:
    PseudoTranslation() { QCoreApplication::installTranslator(this); }

    ~PseudoTranslation() override { QCoreApplication::removeTranslator(this); }

    PseudoTranslation(const PseudoTranslation&) = delete;
    PseudoTranslation& operator=(const PseudoTranslation&) = delete;

    [[nodiscard]] bool isEmpty() const override { return false; }

    [[nodiscard]] QString translate(const char* context, const char* sourceText, const char*,
                                    int) const override
    {
        return QStringLiteral("⟦%1: %2⟧").arg(QString::fromUtf8(context), QString::fromUtf8(sourceText));
    }

    /// The text as it is without the translation.
    [[nodiscard]] static QString originalOf(QString text)
    {
        static const QRegularExpression marks(QStringLiteral("⟦\\S*: |⟧"));
        return text.remove(marks);
    }
};

} // namespace keelbright::testing
