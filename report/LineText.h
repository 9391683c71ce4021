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
        const qsizetype start = used;
        used += count;
        if (const auto needed = static_cast<size_t>(used); needed > units.size())
            units.resize(std::max(needed, 2 * units.size()));
        return units.data() + start;
    }
    void Clear() { used = 0; }
    /// The line so far; valid until the next change.
    QStringView View() const { return {units.data(), used}; }

private:
    std::vector<char16_t> units;
    qsizetype used = 0;
};

} // namespace ZYN
