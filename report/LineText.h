#pragma once

#include <QtCore/QStringView>

#include <algorithm>
#include <vector>

namespace ZYN {

/// A line being put together from many short pieces. Keeps its memory from line to line.
class LineText {
public:
    void Add(QChar character) { *Grow(1) = character.unicode(); }
    void Add(QStringView piece) { std::copy_n(piece.utf16(), piece.size(), Grow(piece.size())); }
    void Add(qsizetype count, QChar character)
    {
        if (count > 0)
            std::fill_n(Grow(count), count, character.unicode());
    }
    void Clear() { used = 0; }
    /// The line so far; valid until the next change.
    QStringView View() const { return {units.data(), used}; }

private:
    char16_t* Grow(qsizetype count)
    {
        const qsizetype start = used;
        used += count;
        if (const auto needed = static_cast<size_t>(used); needed > units.size())
            units.resize(std::max(needed, 2 * units.size()));
        return units.data() + start;
    }

    std::vector<char16_t> units;
    qsizetype used = 0;
};

} // namespace ZYN
