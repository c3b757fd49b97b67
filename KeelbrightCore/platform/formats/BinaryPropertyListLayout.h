#pragma once

#include <QByteArrayView>
#include <optional>

namespace keelbright {

/// The objects of a binary property list. Every offset and length comes from the data, which is
/// not trusted, and is checked before it is used. Internal to the platform folder.
class BinaryPropertyListLayout
{
public:
    enum class Kind : quint8 {
        constant = 0x0,
        integer = 0x1,
        real = 0x2,
        date = 0x3,
        data = 0x4,
        asciiText = 0x5,
        utf16Text = 0x6,
        uid = 0x8,
        array = 0xA,
        dictionary = 0xD,
    };

    /// An object of a known kind whose content lies whole within the data.
    struct Object
    {
        Kind kind = Kind::constant;
        quint64 count = 0;  ///< bytes, characters, elements, pairs or the marker's lower half, by kind
        quint64 offset = 0; ///< where the content begins
        quint64 size = 0;   ///< bytes of the content

        [[nodiscard]] bool isContainer() const { return kind == Kind::array || kind == Kind::dictionary; }

        /// How many other objects a container refers to: a dictionary's keys, then its values.
        [[nodiscard]] quint64 references() const { return kind == Kind::dictionary ? count * 2 : count; }
    };

    /// Nothing where the data is no binary property list of the known version. The data must
    /// outlive the layout.
    [[nodiscard]] static std::optional<BinaryPropertyListLayout> of(QByteArrayView data);

    /// The index of the object at the top.
    [[nodiscard]] quint64 top() const { return m_top; }

    [[nodiscard]] std::optional<Object> object(quint64 index) const;
    /// The index that a container gives at `position`, which is below `references()`; it need not
    /// be that of an object.
    [[nodiscard]] quint64 reference(const Object& container, quint64 position) const;
    /// The content of an object whose count is in bytes.
    [[nodiscard]] QByteArrayView bytes(const Object& object) const;
    /// A number of 1 to 8 bytes, the highest first, within an object's content.
    [[nodiscard]] quint64 number(quint64 offset, quint64 size) const;

private:
    explicit BinaryPropertyListLayout(QByteArrayView data);
    [[nodiscard]] bool readLongCount(Object& object) const;
    [[nodiscard]] std::optional<quint64> contentSize(const Object& object) const;

    QByteArrayView m_data;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
    quint64 m_objectCount = 0;
    quint64 m_top = 0;
    quint64 m_tableOffset = 0;
};

} // namespace keelbright
