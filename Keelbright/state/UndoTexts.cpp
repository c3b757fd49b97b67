#include "Keelbright/state/UndoTexts.h"

#include <QCoreApplication>
#include <QLocale>

namespace keelbright::UndoTexts {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("UndoTexts", text);
}

QString number(qint64 count)
{
    return QLocale().toString(count);
}

QString putBack(qint64 count)
{
    if (count == 0)
        return tr("Nothing was put back.");
    return count == 1 ? tr("1 item is back where it was.")
                      : tr("%1 items are back where they were.").arg(number(count));
}

QString notPutBack(qint64 count)
{
    return count == 1 ? tr("1 item could not be put back.")
                      : tr("%1 items could not be put back.").arg(number(count));
}

} // namespace

QString action(std::optional<UndoStore::Kind> kind)
{
    if (!kind)
        return tr("Undo");
    return kind == UndoStore::Kind::organise ? tr("Undo Organise") : tr("Undo Move to Trash");
}

QString progress(qint64 tried, qint64 total)
{
    return tr("%1 of %2").arg(number(tried), number(total));
}

QString headline(const UndoResult& result)
{
    if (countOf(result.remaining) > 0)
        return tr("The undo was cancelled.");
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
        lines.append(remaining == 1
                         ? tr("1 item was not tried; undo once more to go on.")
                         : tr("%1 items were not tried; undo once more to go on.").arg(number(remaining)));
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
