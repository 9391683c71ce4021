#pragma once

#include <QtCore/QStringView>

#include <algorithm>
#include <vector>

namespace ZYN {

/// A line being put together from many short pieces. Keeps its memory from line to line.
class LineText {
public:
    void Add(QChar character) { *Append(1) = character.unicode(); }
    void Add(QStringView piece) { std::copy_n(piece.utf16(), piece.size(), Append(piece.size())); }
    void Add(qsizetype count, QChar character) { std::fill_n(Append(count), count, character.unicode()); }
    /// Lengthens the line by units that the caller fills; they lie there until the next change.
    char16_t* Append(qsizetype count)
    {
        const qsizetype start = m_used;
        m_used += count;
        if (const auto needed = static_cast<size_t>(m_used); needed > m_units.size())
            m_units.resize(std::max(needed, 2 * m_units.size()));
        return m_units.data() + start;
    }
    void Clear() { m_used = 0; }
    /// The line so far; valid until the next change.
    QStringView View() const { return {m_units.data(), m_used}; }

private:
    std::vector<char16_t> m_units;
    qsizetype m_used = 0;
};

} // namespace ZYN
