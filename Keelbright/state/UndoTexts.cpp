#include "Keelbright/state/UndoTexts.h"

#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>
#include <QLocale>

namespace keelbright::UndoTexts {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(UndoTexts)
};

QString number(qint64 count)
{
    return QLocale().toString(count);
}

QString putBack(qint64 count)
{
    if (count == 0)
        return Texts::tr("Nothing was put back.");
    return count == 1 ? Texts::tr("1 item is back where it was.")
                      : Texts::tr("%Ln items are back where they were.", nullptr, pluralNumber(count));
}

QString notPutBack(qint64 count)
{
    return count == 1 ? Texts::tr("1 item could not be put back.")
                      : Texts::tr("%Ln items could not be put back.", nullptr, pluralNumber(count));
}

} // namespace

QString action(std::optional<UndoStore::Kind> kind)
{
    if (!kind)
        return Texts::tr("Undo");
    return kind == UndoStore::Kind::organise ? Texts::tr("Undo Organise") : Texts::tr("Undo Move to Trash");
}

QString progress(qint64 tried, qint64 total)
{
    return Texts::tr("%1 of %2").arg(number(tried), number(total));
}

QString headline(const UndoResult& result)
{
    if (countOf(result.remaining) > 0)
        return Texts::tr("The undo was cancelled.");
    return result.failures.isEmpty() ? putBack(result.restored) : notPutBack(result.failures.size());
}

QStringList details(const UndoResult& result)
{
    QStringList lines;
    const qint64 remaining = countOf(result.remaining);
    if (remaining > 0 || !result.failures.isEmpty())
        lines.append(putBack(result.restored));
    if (remaining > 0 && !result.failures.isEmpty())
        lines.append(notPutBack(result.failures.size()));
    if (remaining > 0)
        lines.append(remaining == 1 ? Texts::tr("1 item was not tried; undo once more to go on.")
                                    : Texts::tr("%Ln items were not tried; undo once more to go on.", nullptr,
                                                pluralNumber(remaining)));
    return lines;
}

QString listOf(const UndoResult& result)
{
    QString text;
    for (const UndoFailure& failure : result.failures)
        text += failure.origin.path() + u'\t' + failure.reason + u'\n';
    return text;
}

} // namespace keelbright::UndoTexts
