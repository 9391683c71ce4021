#pragma once

#include <QtCore/QString>

#include <algorithm>
#include <array>
#include <charconv>

namespace ZYN {

/// A text of at most `capacity` UTF-16 units, built in place: numbers with what stands around them, which
/// need no memory of their own. What is added has to fit.
template <qsizetype capacity>
class ShortText {
public:
    void Add(char latin1) { *Room(1) = static_cast<unsigned char>(latin1); }
    void Add(QLatin1StringView text) { std::copy(text.begin(), text.end(), Room(text.size())); }
    void AddZeros(qsizetype count)
    {
        if (count > 0)
            std::fill_n(Room(count), count, u'0');
    }
    /// \param width least number of digits, filled up with zeros
    void AddNumber(qint64 number, int width = 1)
    {
        char digits[24];
        const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        AddZeros(width - (end - digits));
        Add({digits, end});
    }

    bool IsEmpty() const { return m_size == 0; }
    /// Valid as long as this object, until the next change.
    QStringView View() const& { return {m_units.data(), m_size}; }
    QStringView View() && = delete;
    QString ToString() const { return QStringView(m_units.data(), m_size).toString(); }

private:
    char16_t* Room(qsizetype count)
    {
        Q_ASSERT(m_size + count <= capacity);
        m_size += count;
        return m_units.data() + (m_size - count);
    }

    std::array<char16_t, capacity> m_units;
    qsizetype m_size = 0;
};

} // namespace ZYN
