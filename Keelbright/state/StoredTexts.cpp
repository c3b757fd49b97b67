#include "Keelbright/state/StoredTexts.h"

#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>
#include <QList>
#include <QRegularExpression>
#include <optional>

namespace keelbright::StoredTexts {

namespace {

using namespace Qt::StringLiterals;

enum class Numbers { none, plural };

/// One of the texts, and how it is recognised.
class Form
{
public:
    explicit Form(const char* english, Numbers numbers = Numbers::none)
        : m_english(english)
        , m_numbers(numbers)
    {
        QString pattern = QRegularExpression::escape(QString::fromUtf8(english));
        pattern.replace(u"\\%1"_s, u"(.*)"_s).replace(u"\\%2"_s, u"(.*)"_s);
        m_pattern.setPattern(QRegularExpression::anchoredPattern(pattern));
        m_pattern.setPatternOptions(QRegularExpression::DotMatchesEverythingOption);
    }

    /// Absent for what is another text.
    [[nodiscard]] std::optional<QString> shown(const QString& stored) const;

private:
    const char* m_english;
    Numbers m_numbers;
    QRegularExpression m_pattern;
};

/// A value may itself hold "%1", so they are put in all at once.
QString filled(const QString& text, const QStringList& values)
{
    if (values.isEmpty())
        return text;
    return values.size() == 1 ? text.arg(values.first()) : text.arg(values.at(0), values.at(1));
}

std::optional<QString> Form::shown(const QString& stored) const
{
    const QRegularExpressionMatch match = m_pattern.match(stored);
    if (!match.hasMatch())
        return std::nullopt;
    const QStringList values = match.capturedTexts().sliced(1);
    const int number = m_numbers == Numbers::plural ? pluralNumber(values.first().toLongLong())
                                                    : -1; // Qt's "without a number"
    return filled(QCoreApplication::translate("StoredTexts", m_english, nullptr, number), values);
}

QString translated(const QString& stored, const QList<Form>& forms)
{
    for (const Form& form : forms) {
        if (const std::optional<QString> shown = form.shown(stored))
            return *shown;
    }
    return stored;
}

} // namespace

QString stored(const char* text, const QStringList& values)
{
    return filled(QString::fromUtf8(text), values);
}

QString shownTitle(const QString& stored)
{
    static const QList<Form> titles{Form(backupCompleted), Form(backupWithWarnings), Form(junkTrashed),
                                    Form(filesOrganised),  Form(appFilesRemoved),    Form(appRemoved)};
    return translated(stored, titles);
}

QString shownDetail(const QString& stored)
{
    static const QList<Form> details{
        Form(filesBackedUp, Numbers::plural),
        Form(itemTrashed),
        Form(itemsTrashed, Numbers::plural),
        Form(fileSortedIn),
        Form(filesSortedIn, Numbers::plural),
        Form(fileSorted),
        Form(filesSorted, Numbers::plural),
        Form(appAndFileTrashed),
        Form(appAndFilesTrashed, Numbers::plural),
        Form(appTrashed),
        Form(appFileTrashed),
        Form(appFilesTrashed, Numbers::plural),
    };
    return translated(stored, details);
}

QString shownError(const QString& line)
{
    static const QList<Form> errors{
        Form(QT_TRANSLATE_NOOP("StoredTexts", "Skip %1")),
        Form(QT_TRANSLATE_NOOP("StoredTexts", "Dir error %1")),
        Form(QT_TRANSLATE_NOOP("StoredTexts", "Cannot create %1")),
        Form(QT_TRANSLATE_NOOP("StoredTexts", "Cannot enumerate: %1")),
        Form(QT_TRANSLATE_NOOP("StoredTexts", "Manifest write failed: %1")),
        Form(QT_TRANSLATE_NOOP("StoredTexts", "Report write failed: %1")),
        Form(QT_TRANSLATE_NOOP("StoredTexts", "Could not create backup folders: %1")),
    };
    return translated(line, errors);
}

} // namespace keelbright::StoredTexts
