#pragma once

#include "Keelbright/state/UndoStore.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace keelbright {

/// What an undo has to say, in sentences for people.
namespace UndoTexts {

/// The entry of the menu: what can be undone.
[[nodiscard]] QString action(std::optional<UndoStore::Kind> kind);

/// How far an undo is.
[[nodiscard]] QString progress(qint64 tried, qint64 total);

/// The one sentence of the result.
[[nodiscard]] QString headline(const UndoResult& result);
/// What there is to say besides, a sentence each; none where there is nothing.
[[nodiscard]] QStringList details(const UndoResult& result);

/// All that could not be put back for the clipboard: a line each, its old place and the reason.
[[nodiscard]] QString listOf(const UndoResult& result);

} // namespace UndoTexts
} // namespace keelbright
