#pragma once

#include <QtCore/QString>

#include <algorithm>
#include <array>

namespace ZYN {

/// The text of a cell: a text of the model, or a number, whose digits need no memory of their own. A report
/// has millions of them.
class CellText {
public:
    CellText() = default;
    CellText(QString cellText) // a text is a cell's text wherever one is wanted
        : text(std::move(cellText))
    {
    }

    /// A whole number in decimal, between the two texts.
    static CellText Integer(qint64 number, QLatin1StringView before = {}, QLatin1StringView after = {});
    /// A real number as `QVariant::toString` writes it.
    static CellText Real(double number);

    /// Valid as long as this object.
    operator QStringView() const { return size > 0 ? QStringView(units.data(), size) : QStringView(text); }

private:
    void AddFixed(quint64 digits, int places);
    void Add(QLatin1StringView piece)
    {
        std::copy(piece.begin(), piece.end(), units.begin() + size);
        size += piece.size();
    }

    QString text;
    /// Longer than any number with what stands around it.
    std::array<char16_t, 32> units;
    qsizetype size = 0;
};

} // namespace ZYN
