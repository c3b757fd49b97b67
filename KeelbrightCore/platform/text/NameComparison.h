#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

namespace keelbright {

/// How the default locale compares names when letter case does not count. Making one costs more
/// than comparing many names: keep it for a whole list, and keep the keys of names that stay.
/// Accents count; two ways of writing the same letter do not. Any thread, one at a time.
class NameComparison
{
public:
    NameComparison();
    ~NameComparison();
    NameComparison(const NameComparison&) = delete;
    NameComparison& operator=(const NameComparison&) = delete;

    /// The order of names is the order of their keys, byte by byte; names that differ in letter case
    /// only have the same key.
    [[nodiscard]] QByteArray sortKey(const QString& name) const;

    /// A text contains another one, letter case aside, where its form contains the other's form.
    [[nodiscard]] QString searchForm(const QString& text) const;

private:
    struct Rules;
    std::unique_ptr<Rules> m_rules;
};

} // namespace keelbright
