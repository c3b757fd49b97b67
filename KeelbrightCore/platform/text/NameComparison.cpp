#include "KeelbrightCore/platform/text/NameComparison.h"

#include "KeelbrightCore/platform/text/IcuText.h"

#include <QStringList>
#include <unicode/coll.h>
#include <unicode/normalizer2.h>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// In these languages the capital of "i" has a dot, and that without one is another letter.
bool hasDotlessI(const icu::Locale& locale)
{
    return QStringList{u"tr"_s, u"az"_s}.contains(QString::fromLatin1(locale.getLanguage()));
}

std::unique_ptr<icu::Collator> makeCollator(const icu::Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(locale, status));
    if (U_FAILURE(status) || !collator)
        return nullptr;
    // Letters first, then accents; the third strength would be letter case.
    collator->setStrength(icu::Collator::SECONDARY);
    collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    return collator;
}

const icu::Normalizer2* composition()
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* normalizer = icu::Normalizer2::getNFCInstance(status);
    return U_SUCCESS(status) ? normalizer : nullptr;
}

} // namespace

struct NameComparison::Rules
{
    std::unique_ptr<icu::Collator> collator; ///< null where ICU has no data
    const icu::Normalizer2* composition;     ///< likewise
    uint32_t folding;
};

NameComparison::NameComparison()
{
    const icu::Locale locale = defaultIcuLocale();
    const uint32_t folding = hasDotlessI(locale) ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT;
    m_rules = std::make_unique<Rules>(makeCollator(locale), composition(), folding);
}

NameComparison::~NameComparison() = default;

QByteArray NameComparison::sortKey(const QString& name) const
{
    if (!m_rules->collator)
        return searchForm(name).toUtf8();
    const icu::UnicodeString text = toIcu(name);
    constexpr qsizetype usualSize = 64;
    QByteArray key(usualSize, Qt::Uninitialized);
    const auto write = [&] {
        return m_rules->collator->getSortKey(text, reinterpret_cast<uint8_t*>(key.data()),
                                             static_cast<int32_t>(key.size()));
    };
    if (const int32_t size = write(); size > key.size()) {
        key.resize(size);
        write();
    } else {
        key.resize(size);
    }
    return key;
}

QString NameComparison::searchForm(const QString& text) const
{
    const auto composed = [this](const icu::UnicodeString& form) {
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString result =
            m_rules->composition != nullptr ? m_rules->composition->normalize(form, status) : form;
        return U_SUCCESS(status) ? result : form;
    };
    icu::UnicodeString form = composed(toIcu(text));
    form.foldCase(m_rules->folding);
    // Folding may take a letter apart from its accent.
    return fromIcu(composed(form));
}

} // namespace keelbright
