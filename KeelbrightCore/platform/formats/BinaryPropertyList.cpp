#include "KeelbrightCore/platform/formats/BinaryPropertyList.h"

#include "KeelbrightCore/platform/formats/BinaryPropertyListLayout.h"
#include "KeelbrightCore/platform/formats/PropertyList.h"
#include "KeelbrightCore/platform/text/UtcZone.h"

#include <QDateTime>
#include <QVariantMap>
#include <bit>
#include <cmath>
#include <map>
#include <vector>

namespace keelbright {

namespace {

using Layout = BinaryPropertyListLayout;
using Kind = Layout::Kind;
using Object = Layout::Object;

QVariant integerValue(const Layout& layout, const Object& object)
{
    const quint64 size = quint64{1} << object.count;
    if (size <= 8) // up to 4 bytes are without a sign, 8 bytes have one
        return QVariant::fromValue(static_cast<qint64>(layout.number(object.offset, size)));
    const auto high = static_cast<qint64>(layout.number(object.offset, 8));
    const quint64 low = layout.number(object.offset + 8, 8);
    const auto narrow = static_cast<qint64>(low);
    if (high == (narrow < 0 ? -1 : 0))
        return QVariant::fromValue(narrow);
    return std::ldexp(static_cast<double>(high), 64) + static_cast<double>(low);
}

double realValue(const Layout& layout, const Object& object)
{
    if (object.count == 2)
        return static_cast<double>(
            std::bit_cast<float>(static_cast<quint32>(layout.number(object.offset, 4))));
    return std::bit_cast<double>(layout.number(object.offset, 8));
}

std::optional<QVariant> dateValue(const Layout& layout, const Object& object)
{
    constexpr double maximumDistance = 1e11; // seconds, some three thousand years
    const double seconds = realValue(layout, object);
    if (!(std::abs(seconds) <= maximumDistance))
        return std::nullopt;
    static const QDateTime epoch(QDate(2001, 1, 1), QTime(0, 0, 0), utcZone);
    return epoch.addMSecs(std::llround(seconds * 1'000));
}

QString utf16Text(const Layout& layout, const Object& object)
{
    QString text(static_cast<qsizetype>(object.count), Qt::Uninitialized);
    for (quint64 i = 0; i < object.count; ++i)
        text[static_cast<qsizetype>(i)] =
            QChar(static_cast<char16_t>(layout.number(object.offset + i * 2, 2)));
    return text;
}

std::optional<QVariant> plainValue(const Layout& layout, const Object& object)
{
    switch (object.kind) {
    case Kind::constant:
        return object.count == 9;
    case Kind::integer:
        return integerValue(layout, object);
    case Kind::real:
        return realValue(layout, object);
    case Kind::date:
        return dateValue(layout, object);
    case Kind::data:
        return layout.bytes(object).toByteArray();
    case Kind::asciiText:
        return QString::fromUtf8(layout.bytes(object));
    case Kind::utf16Text:
        return utf16Text(layout, object);
    case Kind::uid:
        return QVariant::fromValue(static_cast<qint64>(layout.number(object.offset, object.count + 1)));
    case Kind::array:
    case Kind::dictionary:
        break;
    }
    return std::nullopt;
}

/// Assembles the values. Follows the references with a stack of its own, so that no depth of the input
/// is a depth of calls, and makes each object once, however often it is referred to.
class Assembly
{
public:
    Assembly(const Layout& layout, qsizetype dataSize)
        : m_layout(layout)
        , m_sizeLeft(static_cast<quint64>(dataSize))
    {}

    [[nodiscard]] std::optional<QVariant> top()
    {
        if (!begin(m_layout.top()))
            return std::nullopt;
        while (!m_open.empty()) {
            Container& container = m_open.back();
            const bool isComplete = container.next == container.object.references();
            if (!(isComplete ? finish() : proceed(container)))
                return std::nullopt;
        }
        return m_made[m_layout.top()].value;
    }

private:
    struct Made
    {
        QVariant value;
        qint64 valueCount = 0; ///< with everything inside; 0 while it is being made
        int depth = 0;
    };

    struct Container
    {
        quint64 index = 0;
        Object object;
        quint64 next = 0; ///< position of the next reference
        QVariantList parts;
        qint64 valueCount = 1;
        int depth = 1;
    };

    [[nodiscard]] bool begin(quint64 index)
    {
        const std::optional<Object> object = m_layout.object(index);
        // Only objects that lie on top of each other can be larger together than the data.
        if (!object || object->size > m_sizeLeft)
            return false;
        m_sizeLeft -= object->size;
        if (!object->isContainer()) {
            const std::optional<QVariant> value = plainValue(m_layout, *object);
            if (value)
                m_made[index] = {.value = *value, .valueCount = 1, .depth = 0};
            return value.has_value();
        }
        if (m_open.size() >= size_t{PropertyList::maximumDepth})
            return false;
        m_made[index] = {};
        m_open.push_back({.index = index, .object = *object, .next = 0, .parts = {}});
        return true;
    }

    /// Takes the next part of the container, or begins to make it.
    [[nodiscard]] bool proceed(Container& container)
    {
        const quint64 index = m_layout.reference(container.object, container.next);
        const auto found = m_made.find(index);
        if (found == m_made.end())
            return begin(index);
        const Made& part = found->second;
        if (part.valueCount == 0) // the container lies within itself
            return false;
        const bool isKey =
            container.object.kind == Kind::dictionary && container.next < container.object.count;
        if (isKey && part.value.typeId() != QMetaType::QString)
            return false;
        container.parts.append(part.value);
        container.valueCount += isKey ? 0 : part.valueCount;
        container.depth = qMax(container.depth, part.depth + 1);
        ++container.next;
        return ++m_references <= 2 * PropertyList::maximumValues &&
               container.valueCount <= PropertyList::maximumValues &&
               container.depth <= PropertyList::maximumDepth;
    }

    [[nodiscard]] bool finish()
    {
        const Container container = std::move(m_open.back());
        m_open.pop_back();
        QVariant value = container.parts;
        if (container.object.kind == Kind::dictionary) {
            QVariantMap map;
            const auto count = static_cast<qsizetype>(container.object.count);
            for (qsizetype i = 0; i < count; ++i)
                map.insert(container.parts[i].toString(), container.parts[count + i]);
            value = map;
        }
        m_made[container.index] = {
            .value = value, .valueCount = container.valueCount, .depth = container.depth};
        return true;
    }

    const Layout& m_layout;
    quint64 m_sizeLeft;
    std::map<quint64, Made> m_made; ///< a hash of Qt's ends the program where memory runs out for it
    std::vector<Container> m_open;
    qint64 m_references = 0;
};

} // namespace

std::optional<QVariant> BinaryPropertyList::read(const QByteArray& data)
{
    const std::optional<Layout> layout = Layout::of(data);
    return layout ? Assembly(*layout, data.size()).top() : std::nullopt;
}

} // namespace keelbright
